#pragma once

#include "TemplateEditorChip.h"

#include <functional>
#include <QTextEdit>

/// The text of a template under edit. A chip is one character: a click selects it, it can be dragged, copied and
/// deleted; Enter on a selected chip and a double click ask for its dialog. What comes in from outside is
/// cleaned to what a template carries.
class TemplateEditorText : public QTextEdit
{
    Q_OBJECT

public:
    /// Format in which the text of a single parameter is dragged in from a list of them.
    static QString parameterFormat() { return QStringLiteral("logbook_template_parameter"); }

    explicit TemplateEditorText(QWidget* parent = nullptr);

    /// Replaces the content; nothing is left to undo, and the document counts as unmodified.
    void setContent(const QString& html);
    /// The content as a template's text, without template properties.
    QString content() const;

    /// Inserts a parameter from the outside in place of the selection, parted by a blank from chips beside it.
    void insertParameter(const QString& html);
    /// The position of the chip that is selected, or beside the cursor when nothing is; -1 for none.
    int currentChip() const;
    /// An empty one when no chip stands there.
    TemplateEditorChip chipAt(int position) const;
    /// One step of undo.
    void replaceChip(int position, const TemplateEditorChip& chip);

    /// One step back or forth; the cursor goes where the text changed.
    void undoStep();
    void redoStep();

    bool isBold() const;
    bool isStruckOut() const;
    void setBold(bool bold);
    void setStruckOut(bool struckOut);

signals:
    void chipRequested(int position);
    /// A parameter was dropped here: the cursor stands where it goes.
    void parameterDropped(const QString& html);
    /// Something could not be taken over, or not as it was.
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
    /// The chip under a point of the viewport, or -1.
    int chipUnder(const QPoint& point) const;
    void select(int chip);
    void step(const std::function<void()>& go);
    QString toolTipOf(const TemplateEditorChip& chip) const;
    /// Text typed beside a chip must not take over its format.
    void leaveChipFormat();
    /// True when all of the selection has the look; without a selection, when typed text gets it.
    bool hasLook(TemplateText::Look look) const;

    int m_pressedChip = -1;
};
