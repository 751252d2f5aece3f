#pragma once

#include "CMDArray.h"
#include "TableCatalog.h"

#include <map>
#include <memory>

class CodePage;

/// Makes the packed records of change events out of rows of the change log.
class ChangePacker
{
public:
    /// \a codePage must outlive the packer.
    explicit ChangePacker(const CodePage* codePage) : m_codePage(codePage) {}

    /// All fields of the new row in order; marks on the fields that differ from the old row, on all without one. An
    /// empty \a newRow, that of a deletion, gives no bytes. Blobs are null in it, and marked when they changed.
    QByteArray pack(const CatalogTable& table, const QByteArray& oldRow, const QByteArray& newRow);

private:
    const CodePage* m_codePage;
    std::map<const CatalogTable*, std::unique_ptr<CMDArray>> m_arrays; ///< empty ones with the fields
};
