#include "VisaPasswordDialog.h"

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "RecordTitle.h"
#include "ui_VisaPasswordDialog.h"

VisaPasswordDialog::VisaPasswordDialog(QWidget* parent, int flag)
    : CPopTemplate(parent, flag), m_form(new Ui::VisaPasswordDialog), m_recordTitle(new RecordTitle(this))
{
    m_form->setupUi(this);
    m_form->verticalLayout->insertWidget(0, m_recordTitle);
    setWindowIcon(QIcon(QStringLiteral(":/icons/sign.png")));
    setGuarding(true); // the visa is for records that the window below shows

    connect(m_form->passwordEdit, &QLineEdit::textChanged, m_form->applyButton,
            [this](const QString& text) { m_form->applyButton->setEnabled(!text.isEmpty()); });
    connect(m_form->passwordEdit, &QLineEdit::returnPressed, m_form->applyButton, &QPushButton::click);
    connect(m_form->applyButton, &QPushButton::clicked, this, &VisaPasswordDialog::apply);
    connect(m_form->cancelButton, &QPushButton::clicked, this, &VisaPasswordDialog::close);
}

VisaPasswordDialog::~VisaPasswordDialog() = default;

void VisaPasswordDialog::setCount(int records)
{
    m_form->countLabel->setText(tr("Записей: %1").arg(records));
    m_form->countLabel->setVisible(records > 1);
}

void VisaPasswordDialog::apply()
{
    CVrkCliSes* session = module()->session();
    if (session->provePassword(m_form->passwordEdit->text())) {
        close();
        emit proved();
        return;
    }
    m_form->noticeLabel->setText(session->lastErrorText());
    resize(width(), qMax(height(), layout()->totalHeightForWidth(width()))); // a long reason is not cut off
    m_form->passwordEdit->clear();
    m_form->passwordEdit->setFocus();
}

void VisaPasswordDialog::showEvent(QShowEvent* event)
{
    m_form->noticeLabel->clear();
    m_form->passwordEdit->setFocus();
    resize(380, 150);
    moveToCenter();
    CPopTemplate::showEvent(event);
}

void VisaPasswordDialog::hideEvent(QHideEvent* event)
{
    m_form->passwordEdit->clear(); // it is kept nowhere
    CPopTemplate::hideEvent(event);
}
