#include "SpellGuard.h"

#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "ReferenceData.h"
#include "ShownText.h"
#include "SiteWords.h"
#include "SpellMarks.h"
#include "UserSettings.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QTimer>

namespace
{
/// The document of an editor of free text; null for anything else.
QTextDocument* documentOf(const QObject* editor)
{
    if (const auto* text = qobject_cast<const QTextEdit*>(editor))
        return text->isReadOnly() ? nullptr : text->document();
    const auto* plain = qobject_cast<const QPlainTextEdit*>(editor);
    return plain && !plain->isReadOnly() ? plain->document() : nullptr;
}

template <class Editor>
int positionIn(const Editor* editor, const QContextMenuEvent* event)
{
    return event->reason() == QContextMenuEvent::Keyboard
               ? editor->textCursor().position()
               : editor->cursorForPosition(event->pos()).position();
}
} // namespace

SpellGuard::SpellGuard(CVrkCliApp* app, QObject* parent) : QObject(parent), m_app(app)
{
    QCoreApplication::instance()->installEventFilter(this);
    connect(app->settings(), &UserSettings::changed, this, [this](const QByteArray& name) {
        if (name == Setting::spelling && !isWanted())
            unwatchAll();
    });
}

SpellGuard::~SpellGuard()
{
    unwatchAll();
}

bool SpellGuard::isWanted() const
{
    return m_app->settings()->value(Setting::spelling).toBool();
}

bool SpellGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        if (auto* editor = qobject_cast<QWidget*>(watched); editor && documentOf(editor) && isWanted())
            watch(editor);
    } else if (event->type() == QEvent::ContextMenu) {
        noteWord(watched, static_cast<QContextMenuEvent*>(event));
    } else if (event->type() == QEvent::Polish && m_asked) {
        // The menu of the editor, before it is shown.
        auto* menu = qobject_cast<QMenu*>(watched);
        if (menu && (menu->parentWidget() == m_asked || m_asked->isAncestorOf(menu->parentWidget())))
            extend(menu);
    }
    return false;
}

void SpellGuard::watch(QWidget* editor)
{
    m_dictionary.load();
    QTextDocument* document = documentOf(editor);
    if (SpellMarks::isFree(document))
        m_marks.append(new SpellMarks(editor, document, &m_dictionary));
    // Later: it may ask the server.
    if (!m_referencesAreRead)
        QTimer::singleShot(0, editor, [guard = QPointer<SpellGuard>(this), editor] {
            if (guard)
                guard->readReferences(editor);
        });
}

void SpellGuard::unwatchAll()
{
    for (const QPointer<QObject>& marks : qAsConst(m_marks))
        delete marks;
    m_marks.clear();
}

/// The names that the module of this editor offers in its templates.
void SpellGuard::readReferences(QWidget* editor)
{
    CVrkCliMod* module = nullptr;
    for (QWidget* widget = editor; widget && !module; widget = widget->parentWidget())
        module = qobject_cast<CVrkCliMod*>(widget);
    ReferenceData* references = module ? ReferenceData::of(module) : nullptr;
    if (!references || m_referencesAreRead)
        return;
    m_referencesAreRead = true;
    if (references != m_references) {
        m_references = references;
        const auto forget = [this] { m_referencesAreRead = false; };
        connect(references, &ReferenceData::changed, this, forget);
        connect(references, &QObject::destroyed, this, forget);
    }
    QStringList texts;
    QStringList near;
    for (ParameterKind kind :
         {ParameterKind::Worker, ParameterKind::WorkerWithRole, ParameterKind::Department,
          ParameterKind::Organization, ParameterKind::EquipmentPath}) {
        for (const ReferenceItem& item : references->items(kind)) {
            texts << item.text << item.detail;
            if (item.near)
                near << item.text;
        }
    }
    texts << SiteWords::of(module->session());
    m_dictionary.setReferenceTexts(texts, near);
}

void SpellGuard::noteWord(QObject* watched, const QContextMenuEvent* event)
{
    QObject* editor = documentOf(watched) ? watched : watched->parent();
    const QTextDocument* document = editor ? documentOf(editor) : nullptr;
    auto* marks = document ? document->findChild<SpellMarks*>() : nullptr;
    if (!marks)
        return;
    m_asked = qobject_cast<QWidget*>(editor);
    const auto* text = qobject_cast<const QTextEdit*>(editor);
    m_word = marks->unknownAt(text ? positionIn(text, event)
                                   : positionIn(qobject_cast<const QPlainTextEdit*>(editor), event));
}

void SpellGuard::extend(QMenu* menu)
{
    m_asked.clear();
    const QTextCursor place = m_word;
    const QString word = place.selectedText();
    if (word.isEmpty())
        return;
    QAction* first = menu->actions().value(0);
    const QStringList proposals = m_dictionary.suggestions(word);
    for (const QString& proposal : proposals) {
        auto* action = new QAction(ShownText::entry(proposal), menu);
        action->setObjectName(QStringLiteral("spellingProposal"));
        QFont heavy = menu->font();
        heavy.setBold(true);
        action->setFont(heavy);
        connect(action, &QAction::triggered, this, [place, word, proposal] {
            QTextCursor cursor = place;
            if (cursor.selectedText() == word) // not changed in the meantime
                cursor.insertText(proposal, cursor.charFormat());
        });
        menu->insertAction(first, action);
    }
    if (proposals.isEmpty()) {
        auto* none = new QAction(tr("Нет похожих слов"), menu);
        none->setEnabled(false);
        menu->insertAction(first, none);
    }
    auto* add = new QAction(tr("Добавить «%1» в мой словарь").arg(ShownText::entry(word)), menu);
    add->setObjectName(QStringLiteral("spellingAdd"));
    connect(add, &QAction::triggered, this, [this, word] {
        if (!m_dictionary.addOwnWord(word))
            emit failed(m_dictionary.errorText());
    });
    menu->insertAction(first, add);
    menu->insertSeparator(first);
}
