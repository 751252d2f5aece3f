#pragma once

#include "RandomDispatcher.h"

#include <QHash>
#include <QObject>
#include <QStringList>

/// Says what is wrong with journal windows: each of them against itself, reckoned anew by plain loops; against the rows of
/// the store; and against a window that is opened now.
class JournalCheck : public QObject
{
public:
    explicit JournalCheck(const TestStore& store);
    ~JournalCheck() override;

    /// Follows the loads of the pages of a window from now on.
    void follow(RandomDispatcher& person);

    /// A window by itself: rows shown, order, cells that the client fills, panes, buttons, labels.
    QStringList byItself(RandomDispatcher& person);
    /// The tables of a window that has heard of everything against the store.
    QStringList againstStore(RandomDispatcher& person);
    /// The cells of all visible rows of a journal against those of a fresh page in a fresh window.
    QStringList againstFresh(RandomDispatcher& person, JournalWindow& fresh);

    /// While loads fail, a page may hold less than the store.
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
    /// What an archive view was loaded with: it takes no new rows.
    QHash<const QObject*, QSet<QByteArray>> m_loaded;
    QStringList m_loadFaults;
    bool m_loadsFail = false;
};
