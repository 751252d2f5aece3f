#include "SecondMarkerDialog.h"

#include "ui_SecondMarkerDialog.h"

SecondMarkerDialog::SecondMarkerDialog(QWidget* parent, int flag)
    : MarkTimeDialog(parent, flag), m_form(new Ui::SecondMarkerDialog)
{
    m_form->setupUi(this);
    setWindowIcon(QIcon(QStringLiteral(":/icons/two.png")));
    setUpForm({m_form->removeMarkCheck, m_form->setMarkCheck, m_form->dateEdit, m_form->timeEdit,
               m_form->applyButton, m_form->cancelButton});
}

SecondMarkerDialog::~SecondMarkerDialog() = default;
