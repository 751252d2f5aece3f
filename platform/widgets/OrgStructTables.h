#pragma once

#include "CLiteModel.h"
#include "OrgStruct.h"

#include <memory>
#include <QVector>

class CVrkCliMod;
class QTextCodec;
struct TEventNciParse;

/// The reference tables behind the tree of organizations, each with KeyLink as key 0, kept current by change events.
class OrgStructTables
{
public:
    /// A row with the fields that the tree needs.
    struct Row {
        int type = OrgStruct::None;
        QString key;
        QString name;
        bool hidden = false; ///< a deleted worker
    };

    /// Loads the tables; those that cannot be loaded stay empty.
    void load(CVrkCliMod* module);
    /// Applies an event. Returns the type of the event's row; None if it belongs to another table or
    /// changes nothing.
    int apply(const TEventNciParse& event);

    QVector<Row> rows(int type) const;
    /// The row with this key; its type is None if it does not exist.
    Row row(int type, const QString& key) const;
    /// The parent of a row: the first of its parents that exists, otherwise the top (type None). Cycles end
    /// at the top.
    Row parent(int type, const QString& key) const;
    /// All data of a worker except the path; without a key if he is not found.
    OrgStruct::Worker worker(const QString& key) const;

private:
    CModelTable* table(int type) const;
    MDRData* record(int type, const QString& key) const;
    Row read(int type, const MDRData* record) const;
    Row directParent(int type, const QString& key) const;

    std::unique_ptr<CLiteModel> m_tables;
    QTextCodec* m_codec = nullptr;
};
