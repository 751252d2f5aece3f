#include "FuzzTarget.h"
#include "TestJournal.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

// For any clipboard content in the format of a record, a paste writes nothing, or one draft if it names an
// existing record.

namespace
{
/// A journal with one record, made again before many pasted ones slow it down.
struct Desk {
    static constexpr int mostPasted = 50;

    TestStore store;
    TestJournal journal{store};
    int first = count();
    int pasted = 0;

    int count() const { return store.value(QStringLiteral("SELECT count(*) FROM LogbookRecords")).toInt(); }
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int count = 1;
    static char name[] = "paste_fuzz";
    static char* names[] = {name, nullptr};
    // Neither is destroyed: at the exit of the program, parts of Qt have gone before them.
    [[maybe_unused]] static const auto* const application = new QApplication(count, names);
    static Desk* desk = nullptr;
    if (desk && desk->pasted == Desk::mostPasted) {
        fuzzRequire(desk->count() == desk->first + desk->pasted);
        delete desk;
        desk = nullptr;
    }
    if (!desk)
        desk = new Desk;

    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    auto* payload = new QMimeData;
    payload->setData(QStringLiteral("logbook_record"), bytes);
    QGuiApplication::clipboard()->setMimeData(payload);
    desk->journal.tab().pasteRecordRequest();
    if (const QStringList failures = desk->journal.client().takeFailures(); !failures.isEmpty())
        qFatal("%s", qPrintable(failures.join(QLatin1Char('\n'))));
    const QStringList events = desk->journal.deliver();
    fuzzRequire(events.size() <= 1);
    desk->pasted += events.size();
    return 0;
}

std::vector<QByteArray> fuzzSeeds()
{
    return {QByteArrayLiteral("LogbookRecords;NOBODY"), QByteArrayLiteral("LogbookRecords;A' OR '1'='1"),
            QByteArray("LogbookRecords;K\0;x", 19), QByteArrayLiteral("LogbookComments;REC_1"),
            QByteArrayLiteral("LogbookRecords;ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789")};
}
