#pragma once

#include "TextFit.h"

#include <QObject>

class QTextDocument;
class QWidget;

/// Watches over every editor of the process (line edits, also those of combo boxes and cells, and both kinds
/// of text edits): what the user types, pastes, drops or composes there is fitted into the code page at once.
/// One undo takes the user's edit and its fitting back together. Text that the program sets stays as it is
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
