#pragma once

#include "CMDArray.h"
#include "Store.h"
#include "TableCatalog.h"

#include <map>
#include <memory>

class CodePage;

/// Makes changes with packed records from rows of the change log.
class ChangePacker
{
public:
    /// \a codePage must outlive the packer.
    explicit ChangePacker(const CodePage* codePage) : m_codePage(codePage) {}

    /// Appends the change of a row of the log; false if no receiver knows its table, which is one of a newer
    /// schema.
    bool append(qint64 number, qint64 event, const QByteArray& table, const QByteArray& key,
                const QByteArray& oldRow, const QByteArray& newRow, QVector<StoreChange>* changes);

    /// All fields of the new row in order; marks on the fields that differ from the old row, or on all
    /// fields without an old row. An empty \a newRow (a deletion) gives no bytes. Blobs are null, and
    /// marked if they changed.
    QByteArray pack(const CatalogTable& table, const QByteArray& oldRow, const QByteArray& newRow);

private:
    const CodePage* m_codePage;
    std::map<const CatalogTable*, std::unique_ptr<CMDArray>> m_arrays; ///< empty arrays with the fields
};
