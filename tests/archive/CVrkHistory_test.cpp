#include "CVrkHistory.h"

#include "ArchiveBench.h"
#include "ChangeTable.h"
#include "ExpectedWarning.h"
#include "FailingStore.h"
#include "RecordEntries.h"
#include "WordDiff.h"

#include <QAction>
#include <QClipboard>
#include <QElapsedTimer>
#include <QLabel>
#include <QMenu>
#include <QTextBlock>
#include <QTextEdit>

/// The history of a record, read from the change log of a real store.
class CVrkHistory_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<ArchiveBench<CVrkHistory>> m_bench;

    void open(const char* key)
    {
        m_bench->start();
        m_bench->module().slot_modNotify(QStringLiteral("showRecord"), QLatin1String(key));
    }
    QTableView* view() { return m_bench->child<QTableView>("changeTable"); }
    /// The texts of a column, from top to bottom: 1 time, 2 person, 3 deed, 4 details.
    QStringList column(int place)
    {
        QStringList all;
        for (int row = 0; row < view()->model()->rowCount(); ++row)
            all << view()->model()->index(row, place).data().toString();
        return all;
    }
    QString side(const char* name) { return m_bench->child<QTextEdit>(name)->toPlainText(); }
    /// The passages of a side with the mark of differing words.
    QStringList marked(const char* name)
    {
        QStringList all;
        const QTextDocument* document = m_bench->child<QTextEdit>(name)->document();
        for (QTextBlock block = document->begin(); block.isValid(); block = block.next())
            for (auto it = block.begin(); !it.atEnd(); ++it)
                if (it.fragment().charFormat().fontStrikeOut() || it.fragment().charFormat().fontUnderline())
                    all << it.fragment().text();
        return all;
    }
    void write(const char* login, const char* table, MDRFlag flag, const char* key,
               const TestStore::Fields& fields)
    {
        StoreError error;
        QVERIFY2(TestStore::write(m_bench->store.open(QLatin1String(login)).get(), table, flag, key, fields,
                                  &error),
                 qPrintable(error.text + error.detail));
    }

private slots:
    void init() { m_bench = std::make_unique<ArchiveBench<CVrkHistory>>(); }
    void cleanup() { m_bench.reset(); }

    void withoutARecordItSaysHowToOpenOne()
    {
        m_bench->start();
        QVERIFY(m_bench->child<QLabel>("emptyLabel")->text().contains(QStringLiteral("из меню записи")));
        QVERIFY(!m_bench->child<QAction>("copyAction")->isEnabled());
    }

    void everyChangeOfARecordIsListed()
    {
        write("ivanov", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
              {{"html", "<p>Включён ВВ-110 Полевая</p>"}});
        write("ivanov", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
              {{"html", "<p>Отключён ВВ-110 Заречная</p>"}});
        write("petrov", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV", {{"status", 0}});
        write("petrov", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
              {{"VisaWorkerKey", "WORKER_PETROV"}});
        open("REC_DRAFT_IVANOV");
        QCOMPARE(column(3),
                 (QStringList{QStringLiteral("Поставлена виза"), QStringLiteral("Запись утверждена"),
                              QStringLiteral("Изменён текст"), QStringLiteral("Изменён текст"),
                              QStringLiteral("Внесён черновик")}));
        QCOMPARE(column(2).at(0), QStringLiteral("Петров Пётр Петрович (petrov)"));
        QVERIFY2(column(2).at(4).startsWith(QStringLiteral("администратор (")), qPrintable(column(2).at(4)));
        QVERIFY2(column(4).at(0).contains(QStringLiteral("Петров П. П.")), qPrintable(column(4).at(0)));
        QVERIFY2(column(4).at(0).contains(QStringLiteral("Подпись «виза»: Петров Пётр Петрович (petrov), ")),
                 qPrintable(column(4).at(0)));
        QVERIFY(column(4).at(1).contains(QStringLiteral("Подпись «утверждение»: ")));
        QVERIFY2(side("afterEdit").contains(QStringLiteral("Подпись «виза»: Петров")),
                 qPrintable(side("afterEdit")));
        view()->selectRow(2);
        QCOMPARE(side("beforeEdit"), QStringLiteral("Текст: Включён ВВ-110 Полевая"));
        QCOMPARE(side("afterEdit"), QStringLiteral("Текст: Отключён ВВ-110 Заречная"));
        QCOMPARE(marked("beforeEdit"), (QStringList{QStringLiteral("Включён"), QStringLiteral("Полевая")}));
        QCOMPARE(marked("afterEdit"), (QStringList{QStringLiteral("Отключён"), QStringLiteral("Заречная")}));
    }

    void commentsAndFilesAreThereAlsoRemovedOnes()
    {
        write("petrov", "LogbookComments", ROW_INSERT, "COM_GONE",
              {{"RecordKey", "REC_TRIP"}, {"WorkerKey", "WORKER_PETROV"}, {"text_", "лишнее"}});
        write("petrov", "LogbookComments", ROW_DELETE, "COM_GONE", {});
        open("REC_TRIP");
        QCOMPARE(column(3).mid(0, 2),
                 (QStringList{QStringLiteral("Комментарий удалён"), QStringLiteral("Добавлен комментарий")}));
        QCOMPARE(column(3).count(QStringLiteral("Приложен файл")), 2);
        QVERIFY(side("beforeEdit").contains(QStringLiteral("лишнее")));
        QCOMPARE(side("afterEdit"), QString());
        const int file = column(3).indexOf(QStringLiteral("Приложен файл"));
        QVERIFY2(column(4).at(file).contains(QStringLiteral("SHA-256 ")), qPrintable(column(4).at(file)));
    }

    void aChangeElsewhereIsShownAtOnce()
    {
        open("REC_ORDER");
        const int before = column(3).size();
        write("petrov", "LogbookComments", ROW_INSERT, "COM_NEW",
              {{"RecordKey", "REC_ORDER"}, {"WorkerKey", "WORKER_PETROV"}, {"text_", "ответ"}});
        m_bench->client().deliver();
        QCOMPARE(column(3).size(), before + 1);
        write("petrov", "LogbookComments", ROW_DELETE, "COM_NEW", {});
        m_bench->client().deliver();
        QCOMPARE(column(3).at(0), QStringLiteral("Комментарий удалён"));
    }

    void allIsCopiedAsText()
    {
        write("ivanov", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV", {{"html", "<p>Новый текст</p>"}});
        open("REC_DRAFT_IVANOV");
        m_bench->child<QAction>("copyAction")->trigger();
        const QString text = QGuiApplication::clipboard()->text();
        QVERIFY2(text.indexOf(QStringLiteral("Внесён черновик")) <
                     text.indexOf(QStringLiteral("Изменён текст")),
                 qPrintable(text));
        QVERIFY(text.contains(QStringLiteral("Стало:\nТекст: Новый текст")));
        QVERIFY(text.contains(QStringLiteral("Иванов Иван Иванович (ivanov)")));
    }

    void hostileTextsAreShownAsTheyAre()
    {
        const QString hostile =
            QStringLiteral("<img src=x><b>&amp; ") + QChar(0x202e) + QStringLiteral("задом");
        write("petrov", "LogbookComments", ROW_INSERT, "COM_HOSTILE",
              {{"RecordKey", "REC_ORDER"}, {"WorkerKey", "WORKER_PETROV"}, {"text_", hostile}});
        write("petrov", "LogbookComments", ROW_INSERT, "COM_LONG",
              {{"RecordKey", "REC_ORDER"},
               {"WorkerKey", "WORKER_PETROV"},
               {"text_", QString(5000000, QLatin1Char('x'))}});
        QElapsedTimer clock;
        open("REC_ORDER");
        clock.start();
        m_bench->module().slot_modNotify(QStringLiteral("showRecord"), QStringLiteral("REC_ORDER"));
        QVERIFY2(clock.elapsed() < 3000, qPrintable(QString::number(clock.elapsed())));
        QVERIFY(side("afterEdit").contains(QStringLiteral("(показано 20000 знаков из 5000000)")));
        view()->selectRow(1);
        QVERIFY2(side("afterEdit").contains(QStringLiteral("<img src=x><b>&amp; ")),
                 qPrintable(side("afterEdit")));
        // Only a store in UTF-8 has such characters.
        QCOMPARE(
            ChangeText::visible(QStringLiteral("a") + QChar(0x202e) + QChar(0x1b) + QStringLiteral("\nb")),
            QStringLiteral("a\\u202e\\u001b\nb"));
    }

    void aThousandChangesOpenFast()
    {
        const auto store = m_bench->store.open(QStringLiteral("ivanov"));
        for (int i = 0; i < 1000; ++i)
            QVERIFY(TestStore::write(store.get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
                                     {{"html", QStringLiteral("<p>Вариант %1 записи</p>").arg(i)}}));
        m_bench->start();
        QElapsedTimer clock;
        clock.start();
        m_bench->module().slot_modNotify(QStringLiteral("showRecord"), QStringLiteral("REC_DRAFT_IVANOV"));
        QCoreApplication::processEvents();
        QVERIFY2(clock.elapsed() < 3000, qPrintable(QString::number(clock.elapsed()))); // 0.25 s
        QCOMPARE(column(3).size(), 1001);
    }

    void anUnreadableLogIsReported()
    {
        auto plan = std::make_shared<FailingStore::Plan>();
        m_bench->startOn(std::make_unique<FailingStore>(m_bench->store.open(QStringLiteral("ivanov")), plan));
        plan->failedSelects = 1;
        expectWarning(FailingStore::refusal());
        m_bench->module().slot_modNotify(QStringLiteral("showRecord"), QStringLiteral("REC_ORDER"));
        QVERIFY2(m_bench->child<QLabel>("emptyLabel")->text().contains(FailingStore::refusal()),
                 qPrintable(m_bench->child<QLabel>("emptyLabel")->text()));
    }

    /// He sees the history of records, as every login reads the journal, and nothing of other tables.
    void anOrdinaryLoginReadsAndChangesNothing()
    {
        m_bench->startOn(m_bench->store.open(QStringLiteral("petrov")));
        QVERIFY(!m_bench->client().session().OperationRights("ADMINISTRATOR"));
        m_bench->module().slot_modNotify(QStringLiteral("showRecord"), QStringLiteral("REC_ORDER"));
        QVERIFY(!column(3).isEmpty());
        // Only rows of the journal: neither a login nor a right is the history of a record.
        for (const char* key : {"USER_IVANOV", "WORKER_IVANOV", "TPL_ORDER"}) {
            m_bench->module().slot_modNotify(QStringLiteral("showRecord"), QLatin1String(key));
            QCOMPARE(column(3).size(), 0);
        }
        const QString last = QStringLiteral("SELECT max(number) FROM ChangeTransactions");
        const int before = m_bench->store.value(last).toInt();
        for (QAction* action : m_bench->module().findChildren<QAction*>())
            if (action->objectName() != QLatin1String("printAction"))
                action->trigger();
        QCOMPARE(m_bench->store.value(last).toInt(), before);
    }

    void anUnknownRecordHasNoHistory()
    {
        open("NOBODY");
        QCOMPARE(column(3).size(), 0);
        QVERIFY(m_bench->child<QLabel>("emptyLabel")->text().contains(QStringLiteral("этой записи нет")));
    }

    void theMenuOfARecordOpensItsHistory()
    {
        m_bench->start();
        CVrkCliApp& app = m_bench->client().app();
        QStringList opened;
        app.setModuleOpener([&](const QString& module) {
            opened << module;
            return &m_bench->module();
        });
        app.setRecordEntries({{QStringLiteral("history"), QStringLiteral("История записи"),
                               QKeySequence(Qt::CTRL | Qt::Key_H)}});
        QWidget list;
        QMenu menu;
        QByteArray current;
        RecordEntries::append(&menu, &list, &app, [&] { return current; });
        QAction* entry = menu.actions().constLast();
        QCOMPARE(entry->text(), QStringLiteral("История записи"));
        entry->trigger();
        QCOMPARE(opened, QStringList());
        current = "REC_ORDER";
        list.setFocusPolicy(Qt::StrongFocus);
        list.show();
        list.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&list));
        QTest::keyClick(&list, Qt::Key_H, Qt::ControlModifier);
        QCOMPARE(opened, QStringList{QStringLiteral("history")});
        QVERIFY(!column(3).isEmpty());
    }

    void wordsThatDifferAreFound_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("removed");
        QTest::addColumn<QString>("inserted");
        QTest::newRow("a word") << "один два три"
                                << "один 2 три"
                                << "два"
                                << "2";
        QTest::newRow("nothing") << "один"
                                 << "один"
                                 << ""
                                 << "";
        QTest::newRow("the end") << "один"
                                 << "один, два"
                                 << ""
                                 << ", два";
        QTest::newRow("twice") << "а б а б"
                               << "а в а г"
                               << "б|б"
                               << "в|г";
        QTest::newRow("all") << ""
                             << "текст"
                             << ""
                             << "текст";
    }
    void wordsThatDifferAreFound()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        const auto differing = [](const QVector<WordDiff::Piece>& pieces) {
            QStringList all;
            for (const WordDiff::Piece& piece : pieces)
                if (!piece.isSame)
                    all << piece.text;
            return all.join(QLatin1Char('|'));
        };
        const auto whole = [](const QVector<WordDiff::Piece>& pieces) {
            QString all;
            for (const WordDiff::Piece& piece : pieces)
                all += piece.text;
            return all;
        };
        const WordDiff::Sides sides = WordDiff::of(before, after);
        QCOMPARE(whole(sides.before), before);
        QCOMPARE(whole(sides.after), after);
        QTEST(differing(sides.before), "removed");
        QTEST(differing(sides.after), "inserted");
    }
};

QTEST_MAIN(CVrkHistory_test)
#include "CVrkHistory_test.moc"
