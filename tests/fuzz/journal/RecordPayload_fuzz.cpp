#include "FuzzTarget.h"
#include "TestJournal.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

// For any clipboard content in the format of a record, a paste writes nothing, or one draft if it names an
// existing record.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int count = 1;
    static char name[] = "paste_fuzz";
    static char* names[] = {name, nullptr};
    // Never destroyed: at the exit of the program, parts of Qt 6 have gone before it.
    [[maybe_unused]] static const auto* const application = new QApplication(count, names);
    static const TestStore store;
    static TestJournal journal(store);
    static const QString countSql = QStringLiteral("SELECT count(*) FROM LogbookRecords");
    static int records = store.value(countSql).toInt();

    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    auto* payload = new QMimeData;
    payload->setData(QStringLiteral("logbook_record"), bytes);
    QGuiApplication::clipboard()->setMimeData(payload);
    journal.tab().pasteRecordRequest();
    if (const QStringList failures = journal.client().takeFailures(); !failures.isEmpty())
        qFatal("%s", qPrintable(failures.join(QLatin1Char('\n'))));
    const QStringList events = journal.deliver();
    fuzzRequire(events.size() <= 1);
    records += events.size();
    static unsigned runs = 0;
    if (++runs % 1000 == 0)
        fuzzRequire(store.value(countSql).toInt() == records);
    return 0;
}

std::vector<QByteArray> fuzzSeeds()
{
    return {QByteArrayLiteral("LogbookRecords;NOBODY"), QByteArrayLiteral("LogbookRecords;A' OR '1'='1"),
            QByteArray("LogbookRecords;K\0;x", 19), QByteArrayLiteral("LogbookComments;REC_1"),
            QByteArrayLiteral("LogbookRecords;ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789")};
}
