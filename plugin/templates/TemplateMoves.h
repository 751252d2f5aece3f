#pragma once

#include <QByteArray>
#include <QSet>
#include <utility>
#include <vector>

class CModelTable;
class CVrkCliSes;
class SentEdits;
struct MDRData;
struct MDRVar;
struct TemplateTables;

/// Moves items of the tree on the server, and knows the moves whose events have not arrived yet. A move
/// deletes and inserts one key in one block, so that references to it stay valid without changes.
class TemplateMoves
{
public:
    /// Nothing is owned.
    TemplateMoves(CVrkCliSes* session, TemplateTables& tables, const SentEdits& sent,
                  const CModelTable* orgTypes, const CModelTable* departments);

    /// False if the target cannot contain a category.
    bool moveCategory(const MDRData* record, const MDRData* target);
    void moveTemplate(const MDRData* record, const MDRData* target);
    bool isUnderWay(const QByteArray& key) const { return m_moving.contains(key); }
    /// The moved row has arrived; false if it was not moved here.
    bool finish(const QByteArray& key) { return m_moving.remove(key); }

private:
    /// The server's state of a record: that of a running save, otherwise the record itself.
    const MDRData* storedOf(const MDRData* record, const CModelTable& edits) const;
    void sendMove(CModelTable* moved, const QByteArray& key,
                  const std::vector<std::pair<const char*, MDRVar>>& values);

    CVrkCliSes* m_session;
    TemplateTables& m_tables;
    const SentEdits& m_sent;
    const CModelTable* m_orgTypes;
    const CModelTable* m_departments;
    QSet<QByteArray> m_moving; ///< keys
};
