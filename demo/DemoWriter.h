#pragma once

#include "MDArray.h"
#include "Store.h"

#include <map>
#include <memory>
#include <QByteArray>
#include <QVariant>
#include <vector>

/// Collects rows of any tables of the store and writes them in one transaction, table by table in the order
/// in which the tables were first used.
class DemoWriter
{
public:
    using Fields = std::vector<std::pair<const char*, QVariant>>;

    /// \a store must outlive the writer.
    explicit DemoWriter(Store* store);
    ~DemoWriter();

    /// Texts as QString, in records as bytes of the store's code page; an invalid value does not set the
    /// field, a null one of another type sets it to null. A table or field that the store does not know
    /// aborts the program: the demo would not match the schema.
    void insert(const char* table, const QByteArray& key, const Fields& fields);
    void update(const char* table, const QByteArray& key, const Fields& fields);
    void remove(const char* table, const QByteArray& key) { row(table, ROW_DELETE, key, {}); }

    /// Later rows are written after all rows so far, independent of their tables.
    void barrier() { m_current.clear(); }

    int rows() const { return m_rows; }
    /// Writes the collected rows, all or nothing, and starts again.
    bool write(StoreError* error);

private:
    struct Batch;

    MDRData* row(const char* table, MDRFlag flag, const QByteArray& key, const Fields& fields);

    Store* m_store;
    std::vector<std::unique_ptr<Batch>> m_batches; ///< in the order of writing
    std::map<QByteArray, Batch*> m_current;        ///< the batch that takes the rows of a table
    int m_rows = 0;
};
