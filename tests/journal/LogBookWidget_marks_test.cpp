#include "CommentCreatorDialog.h"
#include "HtmlParser.h"
#include "LogbookFields.h"
#include "LogWatch.h"
#include "RecordValue.h"
#include "SecondMarkerDialog.h"
#include "TestJournal.h"
#include "TimeExecutionDialog.h"

#include <QClipboard>
#include <QDateEdit>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>

/// Second markers, execution times, and the copying of records: the result in the store and the messages to
/// the user.
class LogBookWidget_marks_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;

    static QVariant stored(const TestStore& store, const QString& key, const char* field)
    {
        return store.value(QStringLiteral("SELECT %1 FROM LogbookRecords WHERE KeyLink='%2'")
                               .arg(QLatin1String(field), key));
    }
    static QVariant stored(const TestStore& store, const char* key, const char* field)
    {
        return stored(store, QString::fromLatin1(key), field);
    }
    static int records(const TestStore& store)
    {
        return store.value(QStringLiteral("SELECT count(*) FROM LogbookRecords")).toInt();
    }
    static void refuse(const TestStore& store, const char* operation)
    {
        QCOMPARE(store.refuse(QLatin1String(operation), QStringLiteral("LogbookRecords")), QString());
    }
    void compareFailure(TestJournal& journal, const QString& line, const QString& text)
    {
        QCOMPARE(m_log->take(QStringLiteral("LogBookWidget")), QStringList{line});
        QVERIFY(!m_log->take(QStringLiteral("CVrkCliSes")).isEmpty());
        CPopMessageBox* box = journal.box();
        QVERIFY(box);
        QCOMPARE(box->title(), QStringLiteral("Ошибка"));
        QCOMPARE(box->text(), QStringLiteral("<center>%1</center>").arg(text));
        QCOMPARE(box->icon(), MessageIconError);
        QCOMPARE(box->type(), MessageTypeOk);
        journal.press(QDialogButtonBox::AcceptRole);
    }
    /// The record menu opened on the current record.
    static QAction* menuEntry(TestJournal& journal, int index)
    {
        emit journal.view()->customContextMenuRequested(QPoint(10, 10));
        auto* menu = journal.view()->findChild<QMenu*>(QStringLiteral("recordMenu"));
        menu->close();
        return menu->actions().at(index);
    }
    static void put(const QByteArray& content, const char* format = "logbook_record")
    {
        auto* mimeData = new QMimeData;
        mimeData->setData(QLatin1String(format), content);
        QGuiApplication::clipboard()->setMimeData(mimeData);
    }
    /// Gives a record a value in every field.
    static void fill(const TestStore& store, const char* key)
    {
        const double now = TestStore::now();
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookRecords", ROW_UPDATE, key,
                                 {{"VisaWorkerKey", "WORKER_SIDOROVA"},
                                  {"ReceiverWorkerKey", "WORKER_SMIRNOV_ZAR"},
                                  {"OriginRecordKey", "REC_REPLACED"},
                                  {"SecondMarkWorkerKey", "WORKER_PETROV"},
                                  {"recordTime", now - 500},
                                  {"eventTime", now - 400},
                                  {"firstMarkTime", now - 300},
                                  {"secondMarkTime", now - 200},
                                  {"executionTime", now - 100},
                                  {"direction", 2}}));
        for (const MDRFieldDescr& field : LogbookRecordFields)
            QVERIFY2(!stored(store, key, field.name).isNull(), field.name);
    }
    /// Fields with different values in two records.
    static QStringList differences(const TestStore& store, const QString& key, const char* other)
    {
        QStringList names;
        for (const MDRFieldDescr& field : LogbookRecordFields)
            if (stored(store, key, field.name) != stored(store, other, field.name))
                names << QLatin1String(field.name);
        return names;
    }
    static const QDateTime& moment()
    {
        static const QDateTime time(QDate(2026, 11, 20), QTime(3, 15));
        return time;
    }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
        QGuiApplication::clipboard()->clear();
    }
    void cleanup() { QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString()); }

    void setsTheSecondMarkerOnAnyRecord()
    {
        const TestStore store;
        TestJournal journal(store);
        for (const char* key : {"REC_ORDER", "REC_REPLACED", "REC_DRAFT_PETROV"}) {
            journal.select(key);
            journal.tab().setSecondMarkRequest(moment());
            QCOMPARE(stored(store, key, "SecondMarkWorkerKey").toString(), QStringLiteral("WORKER_IVANOV"));
            QCOMPARE(stored(store, key, "secondMarkTime").toLongLong(), moment().toSecsSinceEpoch());
            journal.tab().removeSecondMarkRequest();
            QVERIFY(stored(store, key, "SecondMarkWorkerKey").isNull());
            QVERIFY(stored(store, key, "secondMarkTime").isNull());
        }
    }

    void tellsOfAFailedMarker()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_ORDER");
        refuse(store, "UPDATE");
        journal.tab().setSecondMarkRequest(moment());
        compareFailure(
            journal,
            QStringLiteral(
                "void LogBookWidget::setSecondMarkRequest(QDateTime) error set second marker record! "
                "Data: Table(LogbookRecords), KeyLink(REC_ORDER), SecondMarkWorkerKey(WORKER_IVANOV), "
                "secondMarkTime(%1)")
                .arg(double(moment().toSecsSinceEpoch()), 0, 'g'),
            QStringLiteral("Не удалось установить второй маркер!"));
        journal.tab().removeSecondMarkRequest();
        compareFailure(
            journal,
            QStringLiteral(
                "void LogBookWidget::removeSecondMarkRequest() error remove second marker record! Data: "
                "Table(LogbookRecords), KeyLink(REC_ORDER)"),
            QStringLiteral("Не удалось удалить второй маркер!"));
    }

    void theMenuNamesTheMarkerOfADraft()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_ORDER"); // approved: can no longer be set
        QAction* entry = menuEntry(journal, 1);
        QVERIFY(entry->isEnabled());
        QCOMPARE(entry->text(), QStringLiteral("Второй маркер..."));
        QCOMPARE(journal.tab().secondMarkCommand(), QString());

        put("LogbookRecords;REC_ORDER");
        journal.tab().pasteRecordRequest();
        journal.deliver();
        QVERIFY(journal.tab().isSecondMarkSettable()); // the new draft is current
        entry = menuEntry(journal, 1);
        const QString command = journal.tab().secondMarkCommand();
        QVERIFY(!command.isEmpty());
        QCOMPARE(entry->text(), command);
        QVERIFY(journal.tab().secondMarkIconPath().startsWith(QLatin1String(":/markers/")));
    }

    void theMenuTakesTheNameOfTheMarkerWithoutACommand()
    {
        const TestStore store;
        struct Marker {
            const char* path;
            const char* name;
            const char* icon; ///< a path that is not that of a marker is not opened
        };
        const Marker markers[] = {{":/markers/worker_red.png", "Допуск бригады", ":/markers/worker_red.png"},
                                  {":/icons/star.png", "Второй маркер...", ":/icons/two.png"},
                                  {"/usr/share/two.png", "Второй маркер...", ":/icons/two.png"},
                                  {":/markers/unknown.png", "Второй маркер...", ":/markers/unknown.png"}};
        for (const auto& [path, name, icon] : markers) {
            HtmlParser html("Бригада");
            html.setTemplateProperty("second_mark", std::string(path));
            QVERIFY(TestStore::write(store.openLoader().get(), "LogbookRecords", ROW_UPDATE,
                                     "REC_DRAFT_IVANOV",
                                     {{"html", QString::fromStdString(html.readyHtml(true))}}));
            TestJournal journal(store);
            journal.select("REC_DRAFT_IVANOV");
            const QAction* entry = menuEntry(journal, 1);
            QCOMPARE(entry->text(), QString::fromUtf8(name));
            QCOMPARE(journal.tab().secondMarkIconPath(), QLatin1String(path));
            QCOMPARE(entry->icon().pixmap(16, 16).toImage(),
                     QIcon(QLatin1String(icon)).pixmap(16, 16).toImage());
        }
    }

    void knowsTheNamesOfTheMarkers_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("name");
        const char* const names[][2] = {
            {":/markers/exclamation_mark.png", "Авария"},
            {":/markers/worker_red.png", "Допуск бригады"},
            {":/markers/worker_blue.png", "Завершение работ бригады"},
            {":/markers/arrow_up_blue.png", "Передача вышестоящей организации"},
            {":/markers/arrow_down_red.png", "Передача от вышестоящей организации"},
            {":/markers/thunder_blue.png", "Снято заземление"},
            {":/markers/thunder_red.png", "Установлено заземление"},
            {":/markers/Thunder_red.png", ""},
            {"", ""},
        };
        for (const auto& name : names)
            QTest::addRow("%s", name[0]) << QString::fromUtf8(name[0]) << QString::fromUtf8(name[1]);
    }
    void knowsTheNamesOfTheMarkers()
    {
        QFETCH(QString, path);
        const LogBookWidget tab;
        QTEST(tab.iconPathToName(path), "name");
    }

    void anExecutionTimeOfADraftStaysInPlace()
    {
        const TestStore store;
        TestJournal journal(store);
        const int before = records(store);
        journal.select("REC_DRAFT_IVANOV");
        journal.tab().setTimeExecRequest(moment());
        QCOMPARE(records(store), before);
        QCOMPARE(stored(store, "REC_DRAFT_IVANOV", "executionTime").toLongLong(),
                 moment().toSecsSinceEpoch());
        QCOMPARE(stored(store, "REC_DRAFT_IVANOV", "status").toInt(), 1);
        QVERIFY(stored(store, "REC_DRAFT_IVANOV", "OriginRecordKey").isNull());
    }

    void anExecutionTimeOfAnApprovedRecordMakesASuccessor()
    {
        const TestStore store;
        TestJournal journal(store);
        const int before = records(store);
        const QString html = stored(store, "REC_TRIP", "html").toString();
        QCOMPARE(stored(store, "REC_TRIP", "VisaWorkerKey").toString(), QStringLiteral("WORKER_SIDOROVA"));
        journal.select("REC_TRIP");
        journal.tab().setTimeExecRequest(moment());
        QCOMPARE(records(store), before + 1);
        QCOMPARE(stored(store, "REC_TRIP", "status").toInt(), 2);
        QVERIFY(stored(store, "REC_TRIP", "executionTime").isNull());

        const QString successor =
            store.value(QStringLiteral("SELECT KeyLink FROM LogbookRecords WHERE OriginRecordKey='REC_TRIP'"))
                .toString();
        QCOMPARE(successor.size(), 32);
        QCOMPARE(stored(store, successor, "status").toInt(), 0);
        QVERIFY(stored(store, successor, "VisaWorkerKey").isNull());
        QCOMPARE(stored(store, successor, "executionTime").toLongLong(), moment().toSecsSinceEpoch());
        QCOMPARE(stored(store, successor, "html").toString(), html);
        for (const char* field :
             {"ShiftKey", "WorkerKey", "recordTime", "eventTime", "firstMarkTime", "direction"})
            QCOMPARE(stored(store, successor, field), stored(store, "REC_TRIP", field));

        journal.deliver();
        journal.select(successor.toLatin1().constData());
        QVERIFY(journal.tab().isRecordHasOrigin());
        journal.tab().goToOriginRecord();
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_TRIP"));
    }

    void anExecutionTimeIsTakenAwayInPlace()
    {
        const TestStore store;
        TestJournal journal(store);
        const int before = records(store);
        journal.select("REC_SUCCESSOR"); // approved
        journal.tab().removeTimeExecRequest();
        QCOMPARE(records(store), before);
        QVERIFY(stored(store, "REC_SUCCESSOR", "executionTime").isNull());
        QCOMPARE(stored(store, "REC_SUCCESSOR", "status").toInt(), 0);
    }

    void tellsOfAFailedExecutionTime()
    {
        const TestStore store;
        TestJournal journal(store);
        const int before = records(store);
        journal.select("REC_ORDER");
        refuse(store, "INSERT"); // the old record must not be deleted without its successor
        journal.tab().setTimeExecRequest(moment());
        compareFailure(
            journal,
            QStringLiteral(
                "void LogBookWidget::setTimeExecRequest(QDateTime) error set time execution record! Data: "
                "Table(LogbookRecords), KeyLink(REC_ORDER), executionTime(%1)")
                .arg(double(moment().toSecsSinceEpoch()), 0, 'g'),
            QStringLiteral("Не удалось установить время выполнения!"));
        QCOMPARE(records(store), before);
        QCOMPARE(stored(store, "REC_ORDER", "status").toInt(), 0);

        QCOMPARE(store.permit(QStringLiteral("INSERT"), QStringLiteral("LogbookRecords")), QString());
        refuse(store, "UPDATE");
        journal.tab().removeTimeExecRequest();
        compareFailure(
            journal,
            QStringLiteral(
                "void LogBookWidget::removeTimeExecRequest() error remove time execution record! Data: "
                "Table(LogbookRecords), KeyLink(REC_ORDER)"),
            QStringLiteral("Не удалось сбросить время выпонения!"));
    }

    void theDialogsSetAndClear()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_ORDER");
        journal.tab().changeSecondMarkRequest();
        auto* dialog = journal.module().findChild<SecondMarkerDialog*>();
        QVERIFY(dialog->isVisible());
        auto* clear = dialog->findChild<QRadioButton*>(QStringLiteral("removeMarkCheck"));
        auto* set = dialog->findChild<QRadioButton*>(QStringLiteral("setMarkCheck"));
        auto* date = dialog->findChild<QDateEdit*>(QStringLiteral("dateEdit"));
        auto* time = dialog->findChild<QTimeEdit*>(QStringLiteral("timeEdit"));
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Второй маркер..."));
        QVERIFY(!dialog->windowIcon().isNull());
        QCOMPARE(clear->text(), QStringLiteral("Удалить маркер"));
        QCOMPARE(set->text(), QStringLiteral("Установить маркер"));
        QCOMPARE(time->displayFormat(), QStringLiteral("hh:mm"));
        QVERIFY(set->isChecked());
        QVERIFY(date->isEnabled());
        QCOMPARE(date->date(), QDate::currentDate());
        date->setDate(moment().date());
        time->setTime(moment().time());

        QTest::keyClick(dialog, Qt::Key_Return); // does nothing
        QVERIFY(dialog->isVisible());
        QTest::keyClick(dialog, Qt::Key_Enter);
        QVERIFY(!dialog->isVisible());
        QCOMPARE(stored(store, "REC_ORDER", "secondMarkTime").toLongLong(), moment().toSecsSinceEpoch());

        journal.tab().changeSecondMarkRequest();
        clear->click();
        QVERIFY(!date->isEnabled());
        QVERIFY(!time->isEnabled());
        dialog->findChild<QPushButton*>(QStringLiteral("applyButton"))->click();
        QVERIFY(stored(store, "REC_ORDER", "secondMarkTime").isNull());

        journal.tab().changeSecondMarkRequest(); // the choice of the last use is kept
        QVERIFY(clear->isChecked());
        QVERIFY(!date->isEnabled());
        QCOMPARE(date->date(), QDate::currentDate());
        QTest::keyClick(dialog, Qt::Key_Escape);
        QVERIFY(!dialog->isVisible());

        journal.tab().changeTimeExecRequest();
        auto* execution = journal.module().findChild<TimeExecutionDialog*>();
        QVERIFY(execution->isVisible());
        QCOMPARE(execution->windowTitle(), QStringLiteral("Время выполнения..."));
        QCOMPARE(execution->findChild<QRadioButton*>(QStringLiteral("readyCheck"))->text(),
                 QStringLiteral("Выполнено"));
        QCOMPARE(execution->findChild<QRadioButton*>(QStringLiteral("notReadyCheck"))->text(),
                 QStringLiteral("Не выполено"));
        execution->close();
        journal.select("REC_DRAFT_IVANOV");
        const auto apply = [&](const char* choice) {
            journal.tab().changeTimeExecRequest();
            execution->findChild<QRadioButton*>(QLatin1String(choice))->click();
            execution->findChild<QPushButton*>(QStringLiteral("applyButton"))->click();
        };
        apply("readyCheck");
        QVERIFY(!stored(store, "REC_DRAFT_IVANOV", "executionTime").isNull());
        apply("notReadyCheck");
        QVERIFY(stored(store, "REC_DRAFT_IVANOV", "executionTime").isNull());
    }

    void copiesAReferenceAndPastesADraft()
    {
        const TestStore store;
        TestJournal journal(store);
        const int before = records(store);
        journal.select("REC_TRIP");
        journal.tab().copyRecordRequest();
        QCOMPARE(QGuiApplication::clipboard()->mimeData()->data(QStringLiteral("logbook_record")),
                 QByteArray("LogbookRecords;REC_TRIP"));
        journal.tab().pasteRecordRequest();
        journal.tab().pasteRecordRequest();
        QCOMPARE(records(store), before + 2);
        const auto rows =
            store.rows(QStringLiteral("SELECT KeyLink FROM LogbookRecords ORDER BY rowid DESC LIMIT 2"));
        QVERIFY(rows[0][0] != rows[1][0]);
        const QString key = rows[0][0].toString();
        QCOMPARE(stored(store, key, "WorkerKey").toString(), QStringLiteral("WORKER_IVANOV"));
        QCOMPARE(stored(store, key, "ShiftKey").toString(), QStringLiteral("SHIFT_CDS_OPEN"));
        QCOMPARE(stored(store, key, "status").toInt(), 1);
        QVERIFY(stored(store, key, "VisaWorkerKey").isNull());
        for (const char* field :
             {"html", "recordTime", "eventTime", "firstMarkTime", "direction", "executionTime"})
            QCOMPARE(stored(store, key, field), stored(store, "REC_TRIP", field));
    }

    void aPasteKeepsAllThatIsNotItsOwn()
    {
        const TestStore store;
        fill(store, "REC_ZAR");
        fill(store, "REC_ORDER");
        TestJournal journal(store);
        for (const char* source : {"REC_ORDER", "REC_ZAR"}) { // shown, and fetched
            put(QByteArray("LogbookRecords;") + source);
            journal.tab().pasteRecordRequest();
            const QString key =
                store.value(QStringLiteral("SELECT KeyLink FROM LogbookRecords ORDER BY rowid DESC LIMIT 1"))
                    .toString();
            QStringList changed{QStringLiteral("KeyLink"), QStringLiteral("WorkerKey"),
                                QStringLiteral("VisaWorkerKey"), QStringLiteral("status")};
            if (qstrcmp(source, "REC_ZAR") == 0)
                changed.insert(1, QStringLiteral("ShiftKey"));
            QCOMPARE(differences(store, key, source), changed);
            QVERIFY(stored(store, key, "VisaWorkerKey").isNull());
        }
    }

    void aSuccessorKeepsAllThatIsNotItsOwn()
    {
        const TestStore store;
        fill(store, "REC_ORDER");
        TestJournal journal(store);
        journal.select("REC_ORDER");
        journal.tab().setTimeExecRequest(moment());
        const QString key =
            store.value(QStringLiteral("SELECT KeyLink FROM LogbookRecords ORDER BY rowid DESC LIMIT 1"))
                .toString();
        QCOMPARE(differences(store, key, "REC_ORDER"),
                 QStringList({QStringLiteral("KeyLink"), QStringLiteral("VisaWorkerKey"),
                              QStringLiteral("OriginRecordKey"), QStringLiteral("executionTime"),
                              QStringLiteral("status")}));
        QCOMPARE(stored(store, key, "OriginRecordKey").toString(), QStringLiteral("REC_ORDER"));
        QCOMPARE(stored(store, key, "executionTime").toLongLong(), moment().toSecsSinceEpoch());
        QVERIFY(stored(store, key, "VisaWorkerKey").isNull());
        QCOMPARE(stored(store, key, "status").toInt(), 0);
    }

    void theSmallDialogsNameTheirRecord()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_TRIP");
        const auto titleOf = [](const QWidget* dialog) {
            const auto* label = dialog->findChild<QLabel*>(QStringLiteral("recordTitle"));
            return label->isVisible() ? label->toolTip().replace(QLatin1Char('\n'), QLatin1Char(' '))
                                      : QString();
        };
        const auto isNamed = [](const QString& title) {
            return title.contains(QStringLiteral("Петров П. П.")) &&
                   title.contains(QStringLiteral("Отключилась ВЛ 110 кВ Полевая – Заречная"));
        };
        auto* marker = journal.module().findChild<SecondMarkerDialog*>();
        journal.tab().changeSecondMarkRequest();
        QVERIFY2(isNamed(titleOf(marker)), qPrintable(titleOf(marker)));
        auto* execution = journal.module().findChild<TimeExecutionDialog*>();
        journal.tab().changeTimeExecRequest();
        QVERIFY(isNamed(titleOf(execution)));
        auto* comment = journal.module().findChild<CommentCreatorDialog*>();
        journal.child<QToolButton>("createCommentButton")->click();
        QVERIFY(isNamed(titleOf(comment)));
        journal.select("REC_MESSAGE"); // the answer now applies to this one
        for (const QWidget* dialog : std::initializer_list<const QWidget*>{marker, execution, comment})
            QVERIFY(titleOf(dialog).contains(QStringLiteral("Запрошено состояние нагрузки")));
    }

    void aTitleFitsItsDialog()
    {
        const TestStore store;
        const QString text = QStringLiteral("осмотр ").repeated(200);
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
                                 {{"html", text}}));
        TestJournal journal(store);
        journal.select("REC_DRAFT_IVANOV");
        journal.tab().changeSecondMarkRequest();
        auto* title = journal.module().findChild<SecondMarkerDialog*>()->findChild<QLabel*>(
            QStringLiteral("recordTitle"));
        const double time = Row(journal.record("REC_DRAFT_IVANOV")).value("recordTime").value.real;
        QVERIFY(title->toolTip().contains(
            journal.session().HfnTimeToSesTime(time).toString(QStringLiteral("dd.MM.yyyy hh:mm"))));
        for (const QString& line : title->toolTip().split(u'\n'))
            QVERIFY2(line.size() <= 120, qPrintable(line));
        QVERIFY(title->toolTip().count(QStringLiteral("осмотр")) > 50);
        QVERIFY(title->toolTip().count(QStringLiteral("осмотр")) < 100);
        const auto fits = [title] {
            for (const QString& line : title->text().split(u'\n'))
                if (title->fontMetrics().horizontalAdvance(line) > title->width())
                    return false;
            return title->text().endsWith(u'…');
        };
        QVERIFY2(fits(), qPrintable(title->text()));
        const QString narrow = title->text();
        title->resize(title->width() + 200, title->height());
        QVERIFY(title->text().size() > narrow.size());
        QVERIFY2(fits(), qPrintable(title->text()));
    }

    void withoutARecordThereIsNoTitle()
    {
        const TestStore store;
        TestJournal journal(store, QStringLiteral("smirnov"), "DEP_ODS");
        journal.tab().changeSecondMarkRequest();
        const auto* dialog = journal.module().findChild<SecondMarkerDialog*>();
        QVERIFY(dialog->isVisible());
        QVERIFY(!dialog->findChild<QLabel*>(QStringLiteral("recordTitle"))->isVisible());
    }

    void pastesARecordOfAnotherDepartment()
    {
        const TestStore store;
        TestJournal journal(store);
        QVERIFY(!journal.record("REC_ZAR"));
        const int before = records(store);
        put("LogbookRecords;REC_ZAR");
        journal.tab().pasteRecordRequest();
        QCOMPARE(records(store), before + 1);
        const QString key =
            store.value(QStringLiteral("SELECT KeyLink FROM LogbookRecords ORDER BY rowid DESC LIMIT 1"))
                .toString();
        QCOMPARE(stored(store, key, "ShiftKey").toString(), QStringLiteral("SHIFT_CDS_OPEN"));
        QCOMPARE(stored(store, key, "html"), stored(store, "REC_ZAR", "html"));
    }

    void pastesOnlyRecords_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QByteArray>("format");
        QTest::newRow("no semicolon") << QByteArray("LogbookRecords") << QByteArray("logbook_record");
        QTest::newRow("two semicolons")
            << QByteArray("LogbookRecords;REC_ORDER;") << QByteArray("logbook_record");
        QTest::newRow("another table")
            << QByteArray("LogbookFiles;REC_ORDER") << QByteArray("logbook_record");
        QTest::newRow("another format") << QByteArray("LogbookRecords;REC_ORDER") << QByteArray("text/plain");
        QTest::newRow("no such record")
            << QByteArray("LogbookRecords;REC_NOWHERE") << QByteArray("logbook_record");
        QTest::newRow("no key") << QByteArray("LogbookRecords;") << QByteArray("logbook_record");
        QTest::newRow("a quote in the key")
            << QByteArray("LogbookRecords;x' OR '1'='1") << QByteArray("logbook_record");
        QTest::newRow("too long a key")
            << QByteArray("LogbookRecords;REC_OF_A_KEY_OF_THIRTY_3_LETTERS_") << QByteArray("logbook_record");
        QTest::newRow("behind a NUL")
            << QByteArray("LogbookFiles\0;REC_ORDER", 22) << QByteArray("logbook_record");
    }
    void pastesOnlyRecords()
    {
        QFETCH(QByteArray, content);
        QFETCH(QByteArray, format);
        const TestStore store;
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookRecords", ROW_INSERT,
                                 "REC_OF_A_KEY_OF_THIRTY_3_LETTERS_",
                                 {{"ShiftKey", "SHIFT_CDS_OPEN"},
                                  {"WorkerKey", "WORKER_IVANOV"},
                                  {"recordTime", TestStore::now()},
                                  {"html", "x"},
                                  {"status", 0}}));
        TestJournal journal(store);
        const int before = records(store);
        put(content, format.constData());
        journal.tab().pasteRecordRequest();
        QCOMPARE(records(store), before);
        QVERIFY(!journal.box());
    }

    void aPasteEndsAtTheFirstNul()
    {
        const TestStore store;
        TestJournal journal(store);
        const int before = records(store);
        put(QByteArray("LogbookRecords;REC_ORDER\0;more", 30));
        journal.tab().pasteRecordRequest();
        QCOMPARE(records(store), before + 1);
    }

    void whatIsNoKeyIsNotAskedFor()
    {
        const TestStore store;
        TestJournal journal(store);
        QCOMPARE(store.dropTables({QStringLiteral("LogbookRecords")}), QString());
        for (const char* key : {"", "ЗАПИСЬ", "x'"}) {
            put(QByteArray("LogbookRecords;") + key);
            journal.tab().pasteRecordRequest();
            QCOMPARE(journal.client().takeFailures(), QStringList());
        }
    }

    void aFailedPasteIsSilent()
    {
        const TestStore store;
        TestJournal journal(store);
        refuse(store, "INSERT");
        put("LogbookRecords;REC_ORDER");
        journal.tab().pasteRecordRequest();
        QVERIFY(!journal.box());
        QVERIFY(!m_log->take(QStringLiteral("CVrkCliSes")).isEmpty());
        QCOMPARE(journal.client().takeFailures().size(), 1); // the status line shows it
    }
};

QTEST_MAIN(LogBookWidget_marks_test)
#include "LogBookWidget_marks_test.moc"
