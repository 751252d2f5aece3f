#include "OrgStructDialog.h"

#include "OrgStructWidget.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

OrgStructDialog::OrgStructDialog(QWidget* parent, int flag)
    : CPopTemplate(parent, flag),
      m_widget(new OrgStructWidget(this)),
      m_applyButton(new QPushButton(tr("Выбрать"), this))
{
    setObjectName(QStringLiteral("OrgStructDialog"));
    setWindowTitle(tr("Организационная структура"));
    m_widget->setObjectName(QStringLiteral("orgStructWidget"));
    m_applyButton->setObjectName(QStringLiteral("applyButton"));
    auto* cancelButton = new QPushButton(tr("Отмена"), this);
    cancelButton->setObjectName(QStringLiteral("cancelButton"));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_applyButton);
    buttons->addWidget(cancelButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_widget);
    layout->addLayout(buttons);

    connect(m_widget, &OrgStructWidget::currentChanged, this, &OrgStructDialog::updateControls);
    connect(m_widget, &OrgStructWidget::itemActivated, this, &OrgStructDialog::accept);
    connect(m_applyButton, &QPushButton::clicked, this, &OrgStructDialog::accept);
    connect(cancelButton, &QPushButton::clicked, this, &QWidget::close);
    updateControls();
    const int em = fontMetrics().height();
    resize(30 * em, 34 * em);
}

OrgStructDialog::~OrgStructDialog() = default;

void OrgStructDialog::accept()
{
    const OrgStruct::SelectedItem item = m_widget->selectedItem();
    if (item.type == OrgStruct::None)
        return;
    close();
    emit itemSelected(item);
}

void OrgStructDialog::updateControls()
{
    m_applyButton->setEnabled(m_widget->selectedItem().type != OrgStruct::None);
}

void OrgStructDialog::showEvent(QShowEvent* event)
{
    m_widget->startSearch();
    updateControls();
    moveToCenter();
    CPopTemplate::showEvent(event);
}
