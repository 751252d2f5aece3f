#include "MarkTimeDialog.h"

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "RecordTitle.h"

#include <QBoxLayout>
#include <QDateEdit>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>

MarkTimeDialog::MarkTimeDialog(QWidget* parent, int flag)
    : CPopTemplate(parent, flag), m_recordTitle(new RecordTitle(this))
{
    setGuarding(true); // the answer goes to the current record of the window below
}

void MarkTimeDialog::setUpForm(const Form& form)
{
    m_controls = form;
    static_cast<QBoxLayout*>(layout())->insertWidget(0, m_recordTitle);
    connect(form.clear, &QRadioButton::clicked, this, &MarkTimeDialog::updateStateControls);
    connect(form.set, &QRadioButton::clicked, this, &MarkTimeDialog::updateStateControls);
    connect(form.apply, &QPushButton::clicked, this, &MarkTimeDialog::apply);
    connect(form.cancel, &QPushButton::clicked, this, &MarkTimeDialog::close);
    form.set->setChecked(true);
    updateStateControls();
}

void MarkTimeDialog::updateStateControls()
{
    m_controls.date->setEnabled(m_controls.set->isChecked());
    m_controls.time->setEnabled(m_controls.set->isChecked());
}

void MarkTimeDialog::apply()
{
    if (m_controls.clear->isChecked())
        emitCleared();
    else if (m_controls.set->isChecked())
        emitSet(QDateTime(m_controls.date->date(), m_controls.time->time()));
    close();
}

void MarkTimeDialog::keyPressEvent(QKeyEvent* event)
{
    // Deliberate: Return does nothing, the keypad's Enter applies.
    if (event->key() == Qt::Key_Enter)
        apply();
    CPopTemplate::keyPressEvent(event);
}

void MarkTimeDialog::showEvent(QShowEvent* event)
{
    // The radio button keeps the state of the last use.
    const QDateTime now = module()->session()->HfnTimeToSesTime();
    m_controls.date->setFocus();
    m_controls.date->setDate(now.date());
    m_controls.time->setTime(now.time());
    resize(300, 150);
    moveToCenter();
    CPopTemplate::showEvent(event);
}
