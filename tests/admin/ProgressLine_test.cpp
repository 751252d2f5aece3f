#include "AdminRun.h"
#include "LongWork.h"
#include "ProgressLine.h"
#include "TestStore.h"

#include <QTest>

/// What a terminal shows during long work, on both engines.
class ProgressLine_test : public QObject
{
    Q_OBJECT

private:
    struct Site : AdminRun {
        Site() { url = store.url(); }
        /// Runs a command as on a terminal.
        Command::ExitCode watch(const QStringList& arguments)
        {
            out.clear();
            err.clear();
            QTextStream outStream(&out);
            QTextStream errStream(&err);
            Streams streams{outStream, errStream, nullptr, true};
            return runAdmin(arguments, streams);
        }
        TestStore store;
    };
    static QString clear() { return QStringLiteral("\r\x1b[K"); }

private slots:
    void aTerminalShowsTheWork_data()
    {
        QTest::addColumn<QStringList>("command");
        QTest::addColumn<QString>("name");
        const auto row = [](const QString& name, const QStringList& command) {
            QTest::newRow(qPrintable(command.join(QLatin1Char(' ')))) << command << name;
        };
        row(QStringLiteral("Проверка журнала изменений"), {QStringLiteral("check"), QStringLiteral("URL")});
        row(QStringLiteral("Проверка ссылок"), {QStringLiteral("check"), QStringLiteral("URL")});
        row(QStringLiteral("Проверка поиска"), {QStringLiteral("check"), QStringLiteral("URL")});
        row(QStringLiteral("Составление указателя поиска"),
            {QStringLiteral("check"), QStringLiteral("URL"), QStringLiteral("--rebuild-search")});
        row(QStringLiteral("Копирование"),
            {QStringLiteral("backup"), QStringLiteral("URL"), QStringLiteral("FILE")});
        row(QStringLiteral("Выгрузка таблиц: "),
            {QStringLiteral("export"), QStringLiteral("URL"), QStringLiteral("FILE")});
        row(QStringLiteral("Опечатывание: 0 % (0 из "),
            {QStringLiteral("seal"), QStringLiteral("URL"), QStringLiteral("--init"), QStringLiteral("--key"),
             QStringLiteral("FILE")});
    }

    void aTerminalShowsTheWork()
    {
        QFETCH(QStringList, command);
        QFETCH(QString, name);
        Site site;
        command.replaceInStrings(QStringLiteral("URL"), site.url);
        command.replaceInStrings(QStringLiteral("FILE"), site.path(QStringLiteral("file")));
        QCOMPARE(site.watch(command), Command::Success);
        QVERIFY2(site.err.contains(clear() + name), qPrintable(site.err));
        QVERIFY2(site.err.endsWith(clear()), qPrintable(site.err)); // the line disappears
        QVERIFY(!site.out.contains(name));
    }

    void elsewhereTheWorkIsSilent()
    {
        Site site;
        QCOMPARE(site.call("check"), Command::Success);
        QCOMPARE(site.err, QString());
    }

    void theEndOfAPartIsShown()
    {
        QString err;
        QTextStream stream(&err);
        QString out;
        QTextStream outStream(&out);
        {
            Streams streams{outStream, stream, nullptr, true};
            const ProgressLine line(streams);
            const LongWork work("Дело", 4);
            work.advance(1); // too soon after the beginning
            work.advance(4);
        }
        const LongWork after("Потом");
        QCOMPARE(err, clear() + QStringLiteral("Дело: 0 % (0 из 4)") + clear() +
                          QStringLiteral("Дело: 100 % (4 из 4)") + clear());
    }
};

QTEST_GUILESS_MAIN(ProgressLine_test)
#include "ProgressLine_test.moc"
