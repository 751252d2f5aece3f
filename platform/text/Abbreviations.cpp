#include "Abbreviations.h"

#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "SiteWords.h"
#include "UserSettings.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextEdit>
#include <QTimer>

namespace
{
bool isEditor(const QObject* object)
{
    if (const auto* text = qobject_cast<const QTextEdit*>(object))
        return !text->isReadOnly();
    const auto* plain = qobject_cast<const QPlainTextEdit*>(object);
    return plain && !plain->isReadOnly();
}

QTextCursor cursorOf(const QWidget* editor)
{
    if (const auto* text = qobject_cast<const QTextEdit*>(editor))
        return text->textCursor();
    return qobject_cast<const QPlainTextEdit*>(editor)->textCursor();
}

/// The text of the paragraph before the cursor.
QString textBefore(const QTextCursor& cursor)
{
    return cursor.block().text().left(cursor.positionInBlock());
}

bool isPartOfWord(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('-') || character == QLatin1Char('_');
}

/// A hyphen continues a word, and brackets and quotation marks may open the next one.
bool endsWord(QChar character)
{
    return character == QLatin1Char(' ') || QStringLiteral(".,;:!?)»").contains(character);
}
} // namespace

Abbreviations::Abbreviations(CVrkCliApp* app, QObject* parent) : QObject(parent), m_app(app)
{
    QCoreApplication::instance()->installEventFilter(this);
}

void Abbreviations::setAll(const QHash<QString, QString>& all)
{
    m_all = all;
    m_longest = 0;
    for (auto one = all.begin(); one != all.end(); ++one)
        m_longest = qMax(m_longest, int(one.key().size()));
}

QString Abbreviations::textFor(const QString& before, QChar typed, int* length) const
{
    const QString end = before.right(m_longest + 1);
    for (int size = qMin(m_longest, int(end.size())); size > 0; --size) {
        const bool isWhole = size == end.size() || !isPartOfWord(end[end.size() - size - 1]);
        const QString word = isWhole ? end.right(size) : QString();
        if (word.isEmpty())
            continue;
        const bool isCapital = word[0].isUpper();
        const QString small = word[0].toLower() + word.mid(1);
        if (m_all.contains(word + typed) || (isCapital && m_all.contains(small + typed)))
            return QString(); // "откл" and "откл." may both be in the list
        *length = size;
        if (const auto same = m_all.constFind(word); same != m_all.constEnd())
            return *same;
        const QString text = isCapital ? m_all.value(small) : QString();
        if (!text.isEmpty())
            return text[0].toUpper() + text.mid(1);
    }
    return QString();
}

bool Abbreviations::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && !m_isTyping && !m_all.isEmpty()) {
        auto* key = static_cast<QKeyEvent*>(event);
        const QString text = key->text();
        if (text.size() == 1 && endsWord(text[0]) && isEditor(watched))
            return type(static_cast<QWidget*>(watched), key);
    } else if (event->type() == QEvent::FocusIn && isEditor(watched)) {
        // Later: it may ask the server.
        auto* editor = static_cast<QWidget*>(watched);
        QTimer::singleShot(0, editor, [self = QPointer<Abbreviations>(this), editor] {
            if (self)
                self->read(editor);
        });
    }
    return false;
}

/// True: the editor has received the key.
bool Abbreviations::type(QWidget* editor, QKeyEvent* event)
{
    const QTextCursor before = cursorOf(editor);
    const QChar typed = event->text().at(0);
    int length = 0;
    const QString text = before.hasSelection() ? QString() : textFor(textBefore(before), typed, &length);
    if (text.isEmpty() || !m_app->settings()->value(Setting::abbreviations).toBool())
        return false;
    const QString abbreviation = textBefore(before).right(length);
    const QPointer<QWidget> guarded = editor;
    {
        const QScopedValueRollback<bool> typing(m_isTyping, true);
        QCoreApplication::sendEvent(editor, event);
    }
    if (!guarded)
        return true;
    // The editor may have done something else with the key.
    QTextCursor cursor = cursorOf(editor);
    if (!textBefore(cursor).endsWith(abbreviation + typed))
        return true;
    cursor.movePosition(QTextCursor::Left);
    cursor.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, length);
    cursor.insertText(text);
    return true;
}

void Abbreviations::read(QWidget* editor)
{
    CVrkCliMod* module = nullptr;
    for (QWidget* widget = editor; widget && !module; widget = widget->parentWidget())
        module = qobject_cast<CVrkCliMod*>(widget);
    if (!module || m_module)
        return;
    m_module = module;
    setAll(SiteWords::abbreviations(module->session()));
}
