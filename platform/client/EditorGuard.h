#pragma once

#include "TextFit.h"

#include <QObject>

class QTextDocument;
class QWidget;

/// Watches every editor of the process (line edits, including those of combo boxes and cells, and both
/// kinds of text edits): text that the user types, pastes, drops or composes is fitted to the code page at
/// once. One undo reverts the user's edit and its fitting together. Text that the program sets is unchanged
/// until the user edits it.
class EditorGuard : public QObject
{
    Q_OBJECT

public:
    explicit EditorGuard(QObject* parent = nullptr);

    void setCodec(const QTextCodec* codec) { m_fit = TextFit(codec); }

signals:
    void textAdjusted(const QString& notice);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void watch(QObject* editor);
    void fitLine();
    void fitTextEdit();
    void fitPlainTextEdit();
    void fitEdited(QTextDocument* document, QWidget* editor);
    void fitDocument(QTextDocument* document);

    TextFit m_fit;
    bool m_fitting = false;
};
