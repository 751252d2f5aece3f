#pragma once

#include "GenGuid32.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "Store.h"
#include "StoreAdmin.h"

#include <QString>
#include <QTemporaryDir>

/// A temporary store for measurements: one department, one open workshift, any number of records.
class BenchStore
{
public:
    explicit BenchStore(int records = 0)
    {
        require(StoreAdmin::init(url(), "Windows-1251", "Europe/Moscow", &m_error));
        m_loader = open();
        CRowBatch shifts(LogbookWorkshiftFields, fieldCount(LogbookWorkshiftFields));
        MDRData* shift = shifts.newRow(ROW_INSERT, "SHIFT");
        shifts.SetValF(shift, "DepartmentKey", MDRValue::text("DEPARTMENT"));
        shifts.RecPost(shift);
        write("LogbookWorkshifts", shifts);

        CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
        for (int i = 0; i < records; ++i)
            batch.RecPost(newRecord(batch, i));
        write("LogbookRecords", batch);
    }

    QString file() const { return m_folder.filePath(QStringLiteral("journal.vrk")); }
    QString url() const { return QStringLiteral("sqlite://") + file(); }
    Store* loader() { return m_loader.get(); }

    std::unique_ptr<Store> open()
    {
        Store::Options options;
        options.loader = true;
        auto store = Store::open(url(), options, &m_error);
        require(store != nullptr);
        return store;
    }
    void write(const char* table, const CRowBatch& batch)
    {
        require(m_loader->apply({{table, batch.array}}, GenGuid32(), &m_error));
    }

    /// A typical record of a real journal: all 15 fields, a text of some 400 bytes in Russian.
    static MDRData* newRecord(CRowBatch& batch, int number)
    {
        static const QByteArray html = "<p>\xCE\xF2\xE4\xE0\xED\xE0 \xEA\xEE\xEC\xE0\xED\xE4\xE0 <a "
                                       "href=\"parameter:name=substation\">" +
                                       QByteArray(150, '\xEF') + "</a> " + QByteArray(150, '\xE0') + "</p>";
        MDRData* record = batch.newRow(ROW_INSERT, GenGuid32());
        for (const char* name :
             {"WorkerKey", "VisaWorkerKey", "ReceiverWorkerKey", "OriginRecordKey", "SecondMarkWorkerKey"}) {
            const QByteArray key = GenGuid32();
            batch.SetValF(record, name, MDRValue::text(key));
        }
        batch.SetValF(record, "ShiftKey", MDRValue::text("SHIFT"));
        for (const char* name :
             {"recordTime", "eventTime", "firstMarkTime", "secondMarkTime", "executionTime"})
            batch.SetValF(record, name, MDRValue::real(1763600000.0 + number));
        batch.SetValF(record, "html", MDRValue::text(html));
        batch.SetValF(record, "status", MDRValue::number(0));
        batch.SetValF(record, "direction", MDRValue::number(number % 3));
        return record;
    }

private:
    void require(bool done) const
    {
        if (!done)
            qFatal("%s", qPrintable(m_error.text + m_error.detail));
    }

    QTemporaryDir m_folder;
    StoreError m_error;
    std::unique_ptr<Store> m_loader;
};
