#pragma once

#include "MDArray.h"

#include <QByteArray>
#include <QVector>

/// One column as the store declares it, in the order of the descriptor table.
struct CatalogField {
    QByteArray name;
    MDRType type;
    int width;
};

/// One table of the store.
struct CatalogTable {
    QByteArray name;
    QVector<CatalogField> fields;
    QVector<QByteArray> keys;                 ///< in the format of MDRKeyDescr; key 0 is "KeyLink"
    QVector<QByteArray> rowKey = {"KeyLink"}; ///< the fields that form the key of a row in the change log

    /// Index of a field by name, ignoring ASCII case; -1 if there is none.
    int fieldIndex(const QByteArray& field) const;
    /// Whether it is a tree of categories, in which a row must not become its own descendant.
    bool isCategoryTree() const { return name == "LogbookCatsTemplate" || name == "TemplateParamCategories"; }
    /// An expression for the key of a row in the change log.
    QByteArray rowKeyOf(const QByteArray& alias) const;
    /// Names of the fields that contain times or other numbers with a fraction.
    QVector<QByteArray> reals() const;
    /// The fields as MDAFldAdd takes them.
    QVector<MDRFieldDescr> descriptors() const;
};

/// All tables that the store offers, under their declared names: the journal's, the reference tables, the
/// tables of the earlier journal. The schema of both engines, the names in answers and events, and the
/// checks are derived from it.
///
/// Equipment.kind is "substation", "line", "bay" or any other word; substations and lines have parameters
/// of their own in templates. ParentKey leads from a bay to its substation; voltage is a text such as "110"
/// or "0,4", in kilovolts.
namespace TableCatalog
{
const QVector<CatalogTable>& tables();
/// These tables and the store's own: properties, files and signatures, which modules do not know. Every
/// change of them is logged.
const QVector<CatalogTable>& loggedTables();
/// By name, ignoring ASCII case; null if there is no such table.
const CatalogTable* table(const QByteArray& name);
} // namespace TableCatalog
