#include "ShiftArchive.h"

#include "OldShifts.h"
#include "Reports.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QTest>

class ShiftArchive_test : public QObject
{
    Q_OBJECT

    struct Archive : Reports {
        using Reports::Reports;
        /// "written removed", or the error.
        QString update(const QStringList& options = {})
        {
            if (run(QStringList{QStringLiteral("archive"), url, path(QStringLiteral("pages"))} + options) !=
                ReportCommand::Success)
                return err;
            return out;
        }
        QStringList pages() const
        {
            QStringList found;
            const QDir root(path(QStringLiteral("pages")));
            for (const QString& month : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
                for (const QString& page : QDir(root.filePath(month)).entryList(QDir::Files, QDir::Name))
                    if (page != QLatin1String("index.html"))
                        found << root.filePath(month + QLatin1Char('/') + page);
            return found;
        }
        /// The attached files, each in the folder of its page.
        QStringList attached() const
        {
            QStringList found;
            QDirIterator files(path(QStringLiteral("pages")), QDir::Files, QDirIterator::Subdirectories);
            while (files.hasNext())
                if (files.next().contains(QStringLiteral("_files/")))
                    found << files.fileName();
            found.sort();
            return found;
        }
        static QString told(int shifts, int written, int removed)
        {
            return QStringLiteral("Смен: %1, записано страниц: %2, убрано: %3\n")
                .arg(shifts)
                .arg(written)
                .arg(removed);
        }
    };

    static bool write(const TestStore& store, const char* table, MDRFlag flag, const QByteArray& key,
                      const TestStore::Fields& fields)
    {
        const auto loader = store.openLoader();
        return TestStore::write(loader.get(), table, flag, key, fields);
    }

private slots:
    void everyShiftHasAPageThatLinksReach()
    {
        const TestStore store;
        QCOMPARE(Reports::seal(store), QString());
        Archive archive(store);
        QCOMPARE(archive.update(), Archive::told(3, 3, 0));
        QCOMPARE(archive.pages().size(), 3);
        const QString checked = archive.checked(QStringLiteral("pages"), {QStringLiteral("Иванов И. И.")});
        QVERIFY2(checked.endsWith(QStringLiteral(" pages")), qPrintable(checked));
        QFile page(archive.pages().constFirst());
        QVERIFY(page.open(QIODevice::ReadOnly));
        QVERIFY(QString::fromUtf8(page.readAll()).contains(QStringLiteral("Опечатано: 12 abababababababab")));
    }

    void onlyChangedShiftsAreWritten()
    {
        const TestStore store;
        Archive archive(store);
        QCOMPARE(archive.update(), Archive::told(3, 3, 0));
        QCOMPARE(archive.update(), Archive::told(3, 0, 0));
        QVERIFY(write(store, "LogbookRecords", ROW_INSERT, "REC_NEW",
                      {{"ShiftKey", "SHIFT_CDS_OPEN"},
                       {"WorkerKey", "WORKER_IVANOV"},
                       {"status", 0},
                       {"recordTime", TestStore::now()},
                       {"eventTime", TestStore::now()},
                       {"html", "Свежая запись"}}));
        QCOMPARE(archive.update(), Archive::told(3, 1, 0));
        QVERIFY(archive.checked(QStringLiteral("pages"), {QStringLiteral("Свежая запись")})
                    .endsWith(QStringLiteral("pages")));
        QVERIFY(write(store, "LogbookWorkersWorkshift", ROW_UPDATE, "CREW_ZAR_1", {{"opening", true}}));
        QVERIFY(
            write(store, "LogbookComments", ROW_UPDATE, "COM_UNREAD", {{"readedTime", TestStore::now()}}));
        QCOMPARE(archive.update(), Archive::told(3, 2, 0)); // that of the crew, and that of the comment
        QVERIFY(write(store, "LogbookTemplates", ROW_UPDATE, "TPL_OPEN", {{"nameLoc", "Другое название"}}));
        QCOMPARE(archive.update(), Archive::told(3, 0, 0)); // records have their own text
        QVERIFY(write(store, "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                      {{"CloseWorkerKey", "WORKER_IVANOV"}}));
        QCOMPARE(archive.update(), Archive::told(3, 1, 0));
        QVERIFY(write(store, "Workers", ROW_UPDATE, "WORKER_IVANOV", {{"lastName", "Иваненко"}}));
        QCOMPARE(archive.update(), Archive::told(3, 3, 0)); // he may be on any page
        QVERIFY(archive.checked(QStringLiteral("pages"), {QStringLiteral("Иваненко И. И.")})
                    .endsWith(QStringLiteral("pages")));
    }

    void commentsAndFilesAreBelowTheirRecord()
    {
        const TestStore store;
        Archive archive(store);
        QCOMPARE(archive.update(), Archive::told(3, 3, 0));
        const QString checked = archive.checked(
            QStringLiteral("pages"),
            {QStringLiteral("Петров П. П."), QStringLiteral(": Уточните период смены."),
             QStringLiteral("Файл, 40 байт: осциллограмма.txt"), QStringLiteral("фото опоры № 12.png")});
        QVERIFY2(checked.endsWith(QStringLiteral(" pages")), qPrintable(checked));
        QCOMPARE(archive.attached(), QStringList());
        QVERIFY(write(store, "LogbookComments", ROW_INSERT, "COM_NEW",
                      {{"WorkerKey", "WORKER_IVANOV"},
                       {"RecordKey", "REC_PAST_1"},
                       {"commentTime", TestStore::now()},
                       {"text_", "Сводка приложена."}}));
        QCOMPARE(archive.update(), Archive::told(3, 1, 0));
        QVERIFY(archive.checked(QStringLiteral("pages"), {QStringLiteral(": Сводка приложена.")})
                    .endsWith(QStringLiteral(" pages")));
    }

    void pagesOfShiftsThatLeftTheJournalStay()
    {
        const TestStore store;
        const QStringList withFiles{QStringLiteral("--files")};
        QVERIFY(
            write(store, "LogbookFiles", ROW_INSERT, "FILE_PAST",
                  {{"RecordKey", "REC_PAST_1"}, {"fileName", "акт.txt"}, {"fileData", QByteArray("акт")}}));
        Archive archive(store);
        QCOMPARE(archive.update(withFiles), Archive::told(3, 3, 0));
        const QStringList pages = archive.pages();
        const auto loader = store.openLoader();
        StoreError error;
        OldShifts old(loader.get());
        QVERIFY(old.load(TestStore::now(), QByteArray(), &error));
        QVERIFY(old.remove(old.leaving().constFirst(), &error) == OldShifts::Outcome::Removed);
        QCOMPARE(archive.update(withFiles), Archive::told(2, 2, 0));
        QCOMPARE(archive.pages(), pages);
        QCOMPARE(archive.attached().size(), 3);
        const QString checked = archive.checked(QStringLiteral("pages"), {QStringLiteral("Кузнецов")});
        QVERIFY2(checked.endsWith(QStringLiteral(" pages")), qPrintable(checked));
        QVERIFY(QFile::remove(pages.constFirst()));
        QCOMPARE(archive.update(withFiles), Archive::told(2, 0, 0));
        QCOMPARE(archive.pages().size(), 2);
        const QFileInfo lost(pages.constFirst());
        QFile index(lost.dir().filePath(QStringLiteral("index.html")));
        QVERIFY(!index.open(QIODevice::ReadOnly) || !index.readAll().contains(lost.fileName().toUtf8()));
    }

    void filesLieBesideThePages()
    {
        const TestStore store;
        Archive archive(store);
        const QStringList withFiles{QStringLiteral("--files")};
        QCOMPARE(archive.update(withFiles), Archive::told(3, 3, 0));
        QCOMPARE(archive.attached().size(), 2);
        QVERIFY(archive.checked(QStringLiteral("pages")).endsWith(QStringLiteral(" pages")));
        QVERIFY(write(store, "LogbookFiles", ROW_UPDATE, "FILE_TEXT",
                      {{"fileName", "запуск.html"}, {"fileData", QByteArray("<script>alert(1)</script>")}}));
        QCOMPARE(archive.update(withFiles), Archive::told(3, 1, 0));
        const QStringList names = archive.attached();
        QCOMPARE(names.size(), 2); // the former content is gone
        QCOMPARE(names.filter(QRegularExpression(QStringLiteral("\\.bin$"))).size(), 1);
        QVERIFY(archive.checked(QStringLiteral("pages"), {QStringLiteral("запуск.html")})
                    .endsWith(QStringLiteral(" pages")));
        QCOMPARE(archive.update(withFiles), Archive::told(3, 0, 0));
        QCOMPARE(archive.update(), Archive::told(3, 3, 0)); // without the files
        QCOMPARE(archive.attached(), QStringList());
    }

    void namesOfFilesAreSafe()
    {
        const QByteArray text("text");
        const auto suffix = [](const char* name, const QByteArray& content) {
            return ShiftArchive::fileName(QString::fromUtf8(name), content).section(QLatin1Char('.'), 1);
        };
        QCOMPARE(suffix("Схема.PDF", text), QStringLiteral("pdf"));
        QCOMPARE(suffix("../../etc/x.png", text), QStringLiteral("png"));
        for (const char* name :
             {"a.html", "a.svg", "a.xhtml", "a.js", "a.exe", "a.desktop", "a", "pdf", "a.pdf.lnk"})
            QCOMPARE(suffix(name, text), QStringLiteral("bin"));
        QCOMPARE(suffix("a.txt", "#!/bin/sh\n"), QStringLiteral("bin"));
        QCOMPARE(ShiftArchive::fileName(QStringLiteral("a.txt"), text),
                 ShiftArchive::fileName(QStringLiteral("b.txt"), text));
        QVERIFY(ShiftArchive::fileName(QStringLiteral("a.txt"), "other") !=
                ShiftArchive::fileName(QStringLiteral("a.txt"), text));
    }

    void aLostPageIsWrittenAgain()
    {
        const TestStore store;
        Archive archive(store);
        QCOMPARE(archive.update(), Archive::told(3, 3, 0));
        QVERIFY(QFile::remove(archive.pages().constFirst()));
        QCOMPARE(archive.update(), Archive::told(3, 1, 0));
        QVERIFY(QFile::remove(archive.path(QStringLiteral("pages/.vrk-report"))));
        QCOMPARE(archive.update(), Archive::told(3, 3, 0));
    }

    void aCorrectedShiftLeavesNoFormerPage()
    {
        const TestStore store;
        Archive archive(store);
        QCOMPARE(archive.update(), Archive::told(3, 3, 0));
        QFile other(archive.path(QStringLiteral("pages/readme.txt")));
        QVERIFY(other.open(QIODevice::WriteOnly));
        const QStringList before = archive.pages();
        QVERIFY(write(store, "LogbookWorkshifts", ROW_UPDATE, "SHIFT_ZAR_OPEN",
                      {{"startTime", TestStore::now() - 9000}}));
        QCOMPARE(archive.update(), Archive::told(3, 1, 1));
        QVERIFY(archive.pages() != before);
        QVERIFY(other.exists());
        QVERIFY(archive.checked(QStringLiteral("pages")).endsWith(QStringLiteral("pages")));
    }

    void aFolderThatCannotBeWrittenIsNamed()
    {
        const TestStore store;
        Archive archive(store);
        QCOMPARE(
            archive.run({QStringLiteral("archive"), archive.url, archive.path(QStringLiteral("no/pages"))}),
            ReportCommand::Failed);
        QVERIFY2(archive.err.contains(QStringLiteral("нельзя создать")), qPrintable(archive.err));
        QVERIFY(!QDir(archive.path(QStringLiteral("no"))).exists());
    }

    void hostileNamesAndTextsStayTexts()
    {
        const TestStore store;
        const QString hostile = QStringLiteral("</td><script>alert('x')</script>&amp;\"");
        QVERIFY(write(store, "Departments", ROW_UPDATE, "DEP_CDS", {{"name_", hostile}}));
        QVERIFY(
            write(store, "LogbookRecords", ROW_UPDATE, "REC_MESSAGE", {{"html", hostile.toHtmlEscaped()}}));
        QVERIFY(write(store, "LogbookComments", ROW_UPDATE, "COM_READ", {{"text_", hostile}}));
        QVERIFY(write(store, "LogbookFiles", ROW_UPDATE, "FILE_TEXT", {{"fileName", "<b>.txt"}}));
        Archive archive(store);
        QCOMPARE(archive.update(), Archive::told(3, 3, 0));
        const QString checked =
            archive.checked(QStringLiteral("pages"),
                            {hostile, QStringLiteral(": ") + hostile, QStringLiteral(" байт: <b>.txt")});
        QVERIFY2(checked.endsWith(QStringLiteral(" pages")), qPrintable(checked));
    }
};

QTEST_MAIN(ShiftArchive_test)
#include "ShiftArchive_test.moc"
