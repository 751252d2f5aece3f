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
    /// A row as the tree needs it.
    struct Row {
        int type = OrgStruct::None;
        QString key;
        QString name;
        bool hidden = false; ///< a deleted worker
    };

    /// Loads the tables; those that cannot be had stay empty.
    void load(CVrkCliMod* module);
    /// Applies an event. The type of the row that it was about, None when it is of another table or changes nothing.
    int apply(const TEventNciParse& event);

    QVector<Row> rows(int type) const;
    /// The row with this key; its type is None when there is none.
    Row row(int type, const QString& key) const;
    /// Where a row hangs: the first of its parents that exists, else the top (type None). Rings end at the top.
    Row parent(int type, const QString& key) const;
    /// All that is known about a worker, but for the path; without a key when there is none.
    OrgStruct::Worker worker(const QString& key) const;

private:
    CModelTable* table(int type) const;
    MDRData* record(int type, const QString& key) const;
    QString text(int type, const MDRData* record, const char* field) const;
    Row read(int type, const MDRData* record) const;
    Row directParent(int type, const QString& key) const;

    std::unique_ptr<CLiteModel> m_tables;
    QTextCodec* m_codec = nullptr;
};
