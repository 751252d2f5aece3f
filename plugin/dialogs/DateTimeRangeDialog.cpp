#include "DateTimeRangeDialog.h"

#include "ui_DateTimeRangeDialog.h"

#include <QKeyEvent>

DateTimeRangeDialog::DateTimeRangeDialog(QWidget* parent, int flag)
    : CPopTemplate(parent, flag), m_form(new Ui::DateTimeRangeDialog)
{
    m_form->setupUi(this);
    setWindowIcon(QIcon(QStringLiteral(":/icons/clock_blue.png")));
    const QDateTime now = QDateTime::currentDateTime();
    for (QDateEdit* edit : {m_form->startDateEdit, m_form->endDateEdit}) {
        edit->setDate(now.date());
        connect(edit, &QDateEdit::dateChanged, this, &DateTimeRangeDialog::updateStateControls);
    }
    for (QTimeEdit* edit : {m_form->startTimeEdit, m_form->endTimeEdit}) {
        edit->setTime(now.time());
        connect(edit, &QTimeEdit::timeChanged, this, &DateTimeRangeDialog::updateStateControls);
    }
    connect(m_form->applyButton, &QPushButton::clicked, this, &DateTimeRangeDialog::apply);
    connect(m_form->cancelButton, &QPushButton::clicked, this, &DateTimeRangeDialog::close);
}

DateTimeRangeDialog::~DateTimeRangeDialog() = default;

QDateTime DateTimeRangeDialog::start() const
{
    return QDateTime(m_form->startDateEdit->date(), m_form->startTimeEdit->time());
}

QDateTime DateTimeRangeDialog::end() const
{
    return QDateTime(m_form->endDateEdit->date(), m_form->endTimeEdit->time());
}

void DateTimeRangeDialog::updateStateControls()
{
    m_form->applyButton->setEnabled(start() < end());
}

void DateTimeRangeDialog::apply()
{
    emit rangeSelected(start(), end());
    close();
}

void DateTimeRangeDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Enter && m_form->applyButton->isEnabled())
        apply();
    CPopTemplate::keyPressEvent(event);
}

void DateTimeRangeDialog::showEvent(QShowEvent* event)
{
    // Deliberate: disabled until an edit changes, although the values are kept
    m_form->applyButton->setEnabled(false);
    m_form->startDateEdit->setFocus();
    m_form->startDateEdit->setSelectedSection(QDateTimeEdit::DaySection);
    const QDateTime now = QDateTime::currentDateTime();
    m_form->endDateEdit->setMaximumDate(now.date());
    m_form->endTimeEdit->setMaximumTime(now.time()); // Deliberate: on every date
    resize(300, 100);
    moveToCenter();
    CPopTemplate::showEvent(event);
}
