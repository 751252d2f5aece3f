#pragma once

#include "RandomDispatcher.h"

#include <QHash>
#include <QObject>
#include <QStringList>

/// Finds errors in journal windows: compares each of them with its own rows, recomputed by simple loops;
/// with the rows of the store; and with a newly opened window.
class JournalCheck : public QObject
{
public:
    explicit JournalCheck(const TestStore& store);
    ~JournalCheck() override;

    /// Follows the loads of a window's pages from now on.
    void follow(RandomDispatcher& person);

    /// Checks a window alone: shown rows, order, cells that the client fills, panes, buttons, labels.
    QStringList byItself(RandomDispatcher& person);
    /// Compares the tables of a window that has received all events with the store.
    QStringList againstStore(RandomDispatcher& person);
    /// Compares the cells of all visible rows of a journal with those of a fresh page in a fresh window.
    QStringList againstFresh(RandomDispatcher& person, JournalWindow& fresh);

    /// While loads fail, a page may contain less than the store.
    void setLoadsFail(bool fail) { m_loadsFail = fail; }

private:
    /// Rows as texts by their key.
    using Rows = QMap<QByteArray, QString>;
    static Rows rowsOf(const CMDArray& rows, const char* table);
    Rows stored(const char* table, const QString& where) const;
    static Rows held(LogBookWidget* journal, const char* table);
    static QStringList compare(const QString& what, const Rows& held, const Rows& stored);
    static QString name(LogBookWidget* journal);
    void rememberLoad(LogBookWidget* journal);
    QString recordsWhere(LogBookWidget* journal) const;

    QStringList rows(const QString& name, LogBookTab* tab, CModelTable* records) const;
    QStringList filledFields(const QString& name, LogBookWidget* journal) const;
    QStringList panes(const QString& name, LogBookWidget* journal) const;
    QStringList rules(const QString& name, LogBookWidget* journal) const;
    QStringList bar(RandomDispatcher& person) const;
    void leaveStale(LogBookWidget* journal);
    void takeRowsOfOthers(LogBookWidget* journal, Rows* crew, Rows* records) const;
    QStringList workshifts(const QString& name, LogBookWidget* journal) const;
    QStringList inbox(CommentsWidget* page) const;

    std::unique_ptr<Store> m_reader;
    /// The loaded rows of an archive view: it accepts no new ones.
    QHash<const QObject*, QSet<QByteArray>> m_loaded;
    QStringList m_loadFaults;
    bool m_loadsFail = false;
};
