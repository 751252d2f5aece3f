#pragma once

#include "CPopTemplate.h"

#include <QDateTime>

class QDateEdit;
class QPushButton;
class QRadioButton;
class QTimeEdit;
class RecordTitle;

/// The dialog that sets a mark of a record with its time or removes it: the common base of second marker
/// and execution time. It knows no record; the receiver uses the record that is current when the answer
/// arrives.
class MarkTimeDialog : public CPopTemplate
{
    Q_OBJECT

public:
    /// Shows the record that the answer applies to.
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

    /// Connects the form of the derived dialog.
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
