#pragma once

#include "SpellDictionary.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QTextCursor>

class CVrkCliApp;
class QContextMenuEvent;
class QMenu;
class ReferenceData;

/// Checks the spelling in every editor of free text of the process, as far as the user wants it: marks unknown
/// words, and adds proposals and "Добавить в мой словарь" to the editor's context menu. Never changes a text by
/// itself. Line edits and read-only texts are not checked.
class VRK_EXPORT SpellGuard : public QObject
{
    Q_OBJECT

public:
    explicit SpellGuard(CVrkCliApp* app, QObject* parent = nullptr);
    ~SpellGuard() override;

    SpellDictionary* dictionary() { return &m_dictionary; }

signals:
    /// A word could not be kept.
    void failed(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isWanted() const;
    void watch(QWidget* editor);
    void unwatchAll();
    void readReferences(QWidget* editor);
    void noteWord(QObject* watched, const QContextMenuEvent* event);
    void extend(QMenu* menu);

    CVrkCliApp* m_app;
    SpellDictionary m_dictionary;
    QVector<QPointer<QObject>> m_marks;
    QPointer<ReferenceData> m_references;
    bool m_referencesAreRead = false;
    QPointer<QWidget> m_asked; ///< the editor whose menu is about to open
    QTextCursor m_word;        ///< the unknown word there
};
