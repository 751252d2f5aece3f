#include "TimeExecutionDialog.h"

#include "ui_TimeExecutionDialog.h"

TimeExecutionDialog::TimeExecutionDialog(QWidget* parent, int flag)
    : MarkTimeDialog(parent, flag), m_form(new Ui::TimeExecutionDialog)
{
    m_form->setupUi(this);
    setWindowIcon(QIcon(QStringLiteral(":/icons/hour_glass.png")));
    setUpForm({m_form->notReadyCheck, m_form->readyCheck, m_form->dateEdit, m_form->timeEdit,
               m_form->applyButton, m_form->cancelButton});
}

TimeExecutionDialog::~TimeExecutionDialog() = default;
