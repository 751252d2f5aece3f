#pragma once

#include "TemplateEditorChip.h"

#include <functional>
#include <QTextEdit>

/// The text of a template in the editor. A chip is one character: a click selects it, it can be dragged,
/// copied and deleted; Enter on a selected chip and a double click open its dialog. Inserted foreign
/// content is reduced to what a template supports.
class TemplateEditorText : public QTextEdit
{
    Q_OBJECT

public:
    /// Drag format for the text of a single parameter from a list.
    static QString parameterFormat() { return QStringLiteral("logbook_template_parameter"); }

    explicit TemplateEditorText(QWidget* parent = nullptr);

    /// Replaces the content; nothing is left to undo, and the document counts as unmodified.
    void setContent(const QString& html);
    /// The content as a template's text, without template properties.
    QString content() const;

    /// Replaces the selection by a parameter from outside, separated by a space from adjacent chips.
    void insertParameter(const QString& html);
    /// The position of the selected chip, or of a chip next to the cursor without a selection; -1 for none.
    int currentChip() const;
    /// Empty if there is no chip at this position.
    TemplateEditorChip chipAt(int position) const;
    /// One step of undo.
    void replaceChip(int position, const TemplateEditorChip& chip);

    /// One step of undo or redo; the cursor moves to the changed text.
    void undoStep();
    void redoStep();

    bool isBold() const;
    bool isStruckOut() const;
    void setBold(bool bold);
    void setStruckOut(bool struckOut);

signals:
    void chipRequested(int position);
    /// A parameter was dropped here; the cursor is at the insertion point.
    void parameterDropped(const QString& html);
    /// Something could not be inserted, or not unchanged.
    void refused(const QString& notice);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    bool isChip(int position) const;
    QTextCharFormat formatAt(int position) const;
    /// The chip at a point of the viewport, or -1.
    int chipUnder(const QPoint& point) const;
    void select(int chip);
    void step(const std::function<void()>& go);
    QString toolTipOf(const TemplateEditorChip& chip) const;
    /// Text typed next to a chip must not get its format.
    void leaveChipFormat();
    /// True if the whole selection has the look; without a selection, if typed text gets it.
    bool hasLook(TemplateText::Look look) const;

    int m_pressedChip = -1;
};
