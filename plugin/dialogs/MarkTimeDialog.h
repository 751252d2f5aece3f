#pragma once

#include "CPopTemplate.h"

#include <QDateTime>

class QDateEdit;
class QPushButton;
class QRadioButton;
class QTimeEdit;
class RecordTitle;

/// The dialog in which a mark of a record is set with its time or taken away: what the second marker and the execution
/// time share. It holds no record; whoever listens takes the record that is current when the answer comes.
class MarkTimeDialog : public CPopTemplate
{
    Q_OBJECT

public:
    /// Names the record that the answer will meet.
    RecordTitle* recordTitle() const { return m_recordTitle; }

protected:
    struct Form {
        QRadioButton* clear;
        QRadioButton* set;
        QDateEdit* date;
        QTimeEdit* time;
        QPushButton* apply;
        QPushButton* cancel;
    };

    MarkTimeDialog(QWidget* parent, int flag);

    /// Ties the form that the derived dialog has set up.
    void setUpForm(const Form& form);
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

    virtual void emitCleared() = 0;
    virtual void emitSet(const QDateTime& time) = 0;

private:
    void apply();
    void updateStateControls();

    Form m_controls = {};
    RecordTitle* m_recordTitle;
};
