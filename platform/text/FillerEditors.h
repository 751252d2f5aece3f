#pragma once

#include "FillerText.h"
#include "ParameterEditor.h"

#include <QScrollArea>
#include <QVector>

class LatelyUsed;
class QLabel;
class ReferenceData;

/// The editors of a template's parameters in a column, each with its label and its state. Tab follows the
/// order of the text; editors are identified by number.
class FillerEditors : public QScrollArea
{
    Q_OBJECT

public:
    explicit FillerEditors(QWidget* parent = nullptr);

    /// Replaces all editors.
    void setParameters(const QVector<ParameterSpec>& specs, ReferenceData* reference, LatelyUsed* latelyUsed);
    int count() const { return m_rows.size(); }
    /// The parameter that this widget belongs to; -1 for other widgets.
    int indexOf(const QWidget* widget) const;

    ParameterValue value(int index) const { return m_rows.at(index).editor->value(); }
    void setValue(int index, const ParameterValue& value) { m_rows.at(index).editor->setValue(value); }
    bool isUnknown(int index) const { return m_rows.at(index).editor->isUnknown(); }
    void setState(int index, ParameterState state);
    /// Moves the focus to an editor.
    void focusEditor(int index) { m_rows.at(index).editor->input()->setFocus(Qt::TabFocusReason); }
    /// Highlights the label of the current parameter and scrolls to its editor; -1 for none.
    void setCurrent(int index);

signals:
    void edited(int index);
    void judged(int index);
    void entered(int index);
    void nextRequested(int index);

protected:
    void changeEvent(QEvent* event) override;

private:
    void placeInTabOrder();
    void fitWidths();

    struct Row {
        QLabel* label;
        ParameterEditor* editor;
    };

    QVector<Row> m_rows;
    int m_current = -1;
};
