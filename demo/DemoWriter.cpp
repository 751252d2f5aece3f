#include "DemoWriter.h"

#include "GenGuid32.h"
#include "MDRValues.h"
#include "TableCatalog.h"

#include <QTextCodec>

namespace
{
/// To Qt 6 a variant with a null text is not null.
bool isNull(const QVariant& value)
{
    return value.isNull() || (value.userType() == QMetaType::QString && value.toString().isNull()) ||
           (value.userType() == QMetaType::QByteArray && value.toByteArray().isNull());
}
} // namespace

struct DemoWriter::Batch {
    explicit Batch(const CatalogTable& declared) : table(declared)
    {
        const QVector<MDRFieldDescr> fields = declared.descriptors();
        rows = std::make_unique<CRowBatch>(fields.constData(), fields.size());
    }

    const CatalogTable& table;
    std::unique_ptr<CRowBatch> rows;
};

DemoWriter::DemoWriter(Store* store) : m_store(store) {}

DemoWriter::~DemoWriter() = default;

MDRData* DemoWriter::row(const char* table, MDRFlag flag, const QByteArray& key, const Fields& fields)
{
    Batch*& batch = m_current[table];
    if (!batch) {
        const CatalogTable* declared = TableCatalog::table(table);
        if (!declared)
            qFatal("The store has no table %s", table);
        m_batches.push_back(std::make_unique<Batch>(*declared));
        batch = m_batches.back().get();
    }
    MDRData* record = batch->rows->newRow(flag, key);
    for (const auto& [name, value] : fields) {
        const MDRField* field = MDRFldByName(batch->rows->array, name);
        if (!field)
            qFatal("The table %s has no field %s", table, name);
        if (!value.isValid())
            continue;
        if (isNull(value)) {
            batch->rows->SetValF(record, name, MDRValue::null());
            continue;
        }
        switch (field->type) {
        case mdr_TDouble:
            batch->rows->SetValF(record, name, MDRValue::real(value.toDouble()));
            break;
        case mdr_TBool:
            batch->rows->SetValF(record, name, MDRValue::boolean(value.toBool()));
            break;
        case mdr_TInt32:
        case mdr_TByte:
            batch->rows->SetValF(record, name,
                                 MDRValue::number(value.toInt(), static_cast<MDRType>(field->type)));
            break;
        default: {
            const QByteArray bytes = value.userType() == QMetaType::QByteArray
                                         ? value.toByteArray()
                                         : m_store->codec()->fromUnicode(value.toString());
            batch->rows->SetValF(record, name, MDRValue::text(bytes, static_cast<MDRType>(field->type)));
        }
        }
    }
    ++m_rows;
    return batch->rows->RecPost(record);
}

void DemoWriter::insert(const char* table, const QByteArray& key, const Fields& fields)
{
    row(table, ROW_INSERT, key, fields);
}

void DemoWriter::update(const char* table, const QByteArray& key, const Fields& fields)
{
    row(table, ROW_UPDATE, key, fields);
}

bool DemoWriter::write(StoreError* error)
{
    std::vector<StoreWrite> writes;
    for (const std::unique_ptr<Batch>& batch : m_batches)
        writes.push_back({batch->table.name, batch->rows->array});
    const bool written = writes.empty() || m_store->apply(writes, GenGuid32(), error);
    m_current.clear();
    m_batches.clear();
    m_rows = 0;
    return written;
}
