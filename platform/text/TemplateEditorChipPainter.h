#pragma once

#include <QObject>
#include <QTextObjectInterface>

/// Draws the chips of a document: the caption on a rounded background, aligned with the surrounding words.
/// A dashed frame marks an optional parameter.
class TemplateEditorChipPainter : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    explicit TemplateEditorChipPainter(QWidget* editor);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                    const QTextFormat& format) override;

private:
    QWidget* m_editor; ///< its palette is used
};
