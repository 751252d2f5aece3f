#include "CVrkArchive.h"

#include "ArchiveBench.h"
#include "CRowBatch.h"
#include "CVrkCliApp.h"
#include "ExpectedWarning.h"
#include "FailingStore.h"
#include "FileSaver.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "SearchMenu.h"
#include "Typing.h"
#include "UserSettings.h"
#include "VrkPreviewWindow.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QCompleter>
#include <QDateEdit>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

class CVrkArchive_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<ArchiveBench<CVrkArchive>> m_bench;

    void record(const char* key, const char* shift, const char* html, double daysAgo = 1,
                const TestStore::Fields& more = {})
    {
        TestStore::Fields fields{{"ShiftKey", shift},
                                 {"WorkerKey", "WORKER_PETROV"},
                                 {"recordTime", TestStore::now() - daysAgo * 24 * 3600},
                                 {"status", 0},
                                 {"html", html}};
        for (const TestStore::Field& field : more)
            fields.push_back(field);
        m_bench->write("LogbookRecords", ROW_INSERT, key, fields);
    }
    static QStringList list(const char* keys) { return QString::fromLatin1(keys).split(QLatin1Char(' ')); }
    QLineEdit* words() { return m_bench->child<QLineEdit>("wordsEdit"); }
    void choose(const char* combo, const QString& text)
    {
        auto* box = m_bench->child<QComboBox>(combo);
        const int index = box->findText(text);
        QVERIFY2(index >= 0, qPrintable(text));
        box->setCurrentIndex(index);
    }
    /// Types the words and presses Enter.
    QStringList found(const char* text)
    {
        words()->setFocus();
        words()->selectAll();
        QTest::keyClick(words(), Qt::Key_Delete);
        typeText(words(), QString::fromUtf8(text));
        QTest::keyClick(words(), Qt::Key_Return);
        return m_bench->keys();
    }
    QString footer()
    {
        return m_bench->child<QLabel>("foundLabel")->text().section(QLatin1String(" ("), 0, 0);
    }

private slots:
    void init() { m_bench = std::make_unique<ArchiveBench<CVrkArchive>>(); }
    void cleanup() { m_bench.reset(); }

    void itOpensAtTheNewestOfTheOwnDepartment()
    {
        m_bench->start();
        QCOMPARE(m_bench->child<QComboBox>("departmentCombo")->currentData().toByteArray(),
                 QByteArray("DEP_CDS"));
        QCOMPARE(m_bench->keys().constFirst(), QStringLiteral("REC_DRAFT_PETROV"));
        QVERIFY(!m_bench->keys().contains(QStringLiteral("REC_ZAR")));
        QCOMPARE(footer(), QStringLiteral("Найдено записей: 10"));
        QVERIFY(words()->hasFocus());
        QVERIFY(!m_bench->child<QPushButton>("moreButton")->isVisible());
    }

    QString hiddenText()
    {
        const auto* label = m_bench->child<QLabel>("hiddenLabel");
        return label->isVisible() ? label->text() : QString();
    }
    void filtersHideAndSayHowMuch()
    {
        record("A", "SHIFT_CDS_PAST", "На ПС Заречная отключена линия", 1, {{"WorkerKey", "WORKER_IVANOV"}});
        record("B", "SHIFT_CDS_PAST",
               "<html><head><meta name=\"template\" "
               "content=\"time_exec=1;first_mark=:/markers/thunder_red.png\">"
               "</head><body>Заземление линии</body></html>",
               2);
        record("C", "SHIFT_CDS_PAST", "Черновик о линии", 3, {{"status", 1}});
        record("D", "SHIFT_CDS_PAST", "Осмотр линии", 4);
        m_bench->write("LogbookFiles", ROW_INSERT, "FILE_D", {{"RecordKey", "D"}, {"fileName", "a.txt"}});
        m_bench->start();
        QCOMPARE(found("линия"), list("A B C D"));
        QCOMPARE(hiddenText(), QString());
        auto* all = m_bench->child<QPushButton>("showAllButton");
        QVERIFY(!all->isVisible());

        auto* text = m_bench->child<QLineEdit>("filterEdit");
        typeText(text, QStringLiteral("РЕЧНАЯ отк"));
        QCOMPARE(m_bench->keys(), list("A"));
        QCOMPARE(hiddenText(), QStringLiteral("скрыто 3 записи"));
        QCOMPARE(footer(), QStringLiteral("Найдено записей: 4"));
        all->click();
        QCOMPARE(m_bench->keys(), list("A B C D"));
        QCOMPARE(text->text(), QString());
        QVERIFY(!all->isVisible());

        const auto only = [this, all](const char* button) {
            m_bench->child<QAbstractButton>(button)->click();
            const QStringList keys = m_bench->keys();
            all->click();
            return keys;
        };
        QCOMPARE(only("markedFilter"), list("B"));
        QCOMPARE(only("undoneFilter"), list("B C"));
        QCOMPARE(only("filesFilter"), list("D"));
        auto* author = m_bench->child<QComboBox>("authorFilter");
        QCOMPARE(author->count(), 3); // all, and the two of the found records
        author->setCurrentIndex(author->findData(QByteArray("WORKER_IVANOV")));
        QCOMPARE(m_bench->keys(), list("A"));
        QCOMPARE(hiddenText(), QStringLiteral("скрыто 3 записи"));
    }

    QStringList choicesOf(const char* combo)
    {
        const auto* box = m_bench->child<QComboBox>(combo);
        QStringList names;
        for (int i = 0; i < box->count(); ++i)
            names.append(box->itemText(i));
        return names;
    }
    void aMarkerAndAnEquipmentAreChosen()
    {
        const QByteArray bay = R"(<a href="parameter:name=bay">яч. 5</a>)";
        const QByteArray line = R"(<a href="parameter:name=line">ВЛ Полевая</a>)";
        const auto html = [](const QByteArray& properties, const QByteArray& body) {
            return "<html><head><meta name=\"template\" content=\"" + properties + "\"></head><body>" + body +
                   " линия</body></html>";
        };
        record("A", "SHIFT_CDS_PAST", html("first_mark=:/markers/thunder_red.png", bay), 1);
        record("B", "SHIFT_CDS_PAST",
               html("first_mark=:/markers/thunder_red.png;second_mark=:/markers/thunder_blue.png", line), 2);
        record("C", "SHIFT_CDS_PAST",
               html("first_mark=:/markers/worker_red.png;second_mark=:/markers/thunder_blue.png", bay + line),
               3, {{"secondMarkTime", TestStore::now() - 1000}});
        record("D", "SHIFT_CDS_PAST",
               html("first_mark=/etc/passwd", "<a href=\"parameter:name=text\">нет</a>"), 4);
        m_bench->start();
        QCOMPARE(found("линия"), list("A B C D"));
        QCOMPARE(choicesOf("markerFilter"),
                 QStringList({QStringLiteral("Все маркеры"), QStringLiteral("Допуск бригады"),
                              QStringLiteral("Снято заземление"), QStringLiteral("Установлено заземление")}));
        QCOMPARE(choicesOf("equipmentFilter"),
                 QStringList({QStringLiteral("Всё оборудование"), QStringLiteral("ВЛ Полевая"),
                              QStringLiteral("яч. 5")}));

        choose("markerFilter", QStringLiteral("Установлено заземление"));
        QCOMPARE(m_bench->keys(), list("A B"));
        QCOMPARE(hiddenText(), QStringLiteral("скрыто 2 записи"));
        choose("markerFilter", QStringLiteral("Снято заземление")); // not set in B
        QCOMPARE(m_bench->keys(), list("C"));
        choose("markerFilter", QStringLiteral("Все маркеры"));
        choose("equipmentFilter", QStringLiteral("яч. 5"));
        QCOMPARE(m_bench->keys(), list("A C"));
        choose("markerFilter", QStringLiteral("Допуск бригады"));
        QCOMPARE(m_bench->keys(), list("C"));

        m_bench->child<QPushButton>("showAllButton")->click();
        QCOMPARE(m_bench->keys(), list("A B C D"));
        QCOMPARE(m_bench->child<QComboBox>("equipmentFilter")->currentIndex(), 0);
        QCOMPARE(m_bench->child<QComboBox>("markerFilter")->currentIndex(), 0);
    }

    void aChosenEquipmentStaysForTheNextSearch()
    {
        record("A", "SHIFT_CDS_PAST", "осмотр <a href=\"parameter:name=line\">ВЛ Полевая</a>", 1);
        record("B", "SHIFT_CDS_PAST", "отключение", 2);
        m_bench->start();
        found("осмотр");
        choose("equipmentFilter", QStringLiteral("ВЛ Полевая"));
        QCOMPARE(found("отключение"), QStringList());
        QCOMPARE(m_bench->child<QComboBox>("equipmentFilter")->currentText(), QStringLiteral("ВЛ Полевая"));
        QCOMPARE(hiddenText(), QStringLiteral("скрыта 1 запись"));
    }

    void filtersStayForTheNextSearch()
    {
        record("A", "SHIFT_CDS_PAST", "Осмотр линии", 1);
        record("B", "SHIFT_CDS_PAST", "Отключение линии", 2);
        m_bench->start();
        typeText(m_bench->child<QLineEdit>("filterEdit"), QStringLiteral("осмотр"));
        QCOMPARE(found("линия"), list("A"));
        QCOMPARE(hiddenText(), QStringLiteral("скрыта 1 запись"));
        QCOMPARE(found("отключение линии"), QStringList());
        QVERIFY(m_bench->child<QLabel>("emptyLabel")->text().contains(QStringLiteral("Показать все")));
        QVERIFY(!m_bench->child<QAction>("printAction")->isEnabled());
        m_bench->child<QPushButton>("clearButton")->click();
        QCOMPARE(hiddenText(), QString());
        QCOMPARE(found("линия"), list("A B"));
    }

    void hiddenRecordsAreCountedInRussian()
    {
        for (int i = 0; i < 21; ++i)
            record(QByteArray("N" + QByteArray::number(i)).constData(), "SHIFT_CDS_PAST", "линия", 1 + i);
        m_bench->start();
        auto* text = m_bench->child<QLineEdit>("filterEdit");
        text->setText(QStringLiteral("нет такого"));
        found("линия");
        QCOMPARE(hiddenText(), QStringLiteral("скрыта 21 запись"));
        record("LAST", "SHIFT_CDS_PAST", "линия одна", 50);
        for (int i = 0; i < 10; ++i)
            m_bench->write("LogbookRecords", ROW_DELETE, QByteArray("N" + QByteArray::number(i)).constData());
        found("линия");
        QCOMPARE(hiddenText(), QStringLiteral("скрыто 12 записей"));
    }

    void wordsAreFoundAndMarked()
    {
        record("A", "SHIFT_CDS_PAST", "<p>На ПС <b>Север</b>ная отключена &lt;линия&gt;</p>");
        m_bench->start();
        QCOMPARE(found("линию отключить"), list("A"));
        QCOMPARE(m_bench->cell(0, "html").toString(), QStringLiteral("На ПС Северная отключена <линия>"));
        const QString marked = m_bench->cell(0, "html", Qt::UserRole).toString();
        QVERIFY2(marked.contains(QStringLiteral("<b><u>отключена</u></b>")), qPrintable(marked));
        QVERIFY2(marked.contains(QStringLiteral("&lt;<b><u>линия</u></b>&gt;")), qPrintable(marked));
        // A word is found across the markup within it.
        QCOMPARE(found("северной"), list("A"));
        QVERIFY(m_bench->cell(0, "html", Qt::UserRole)
                    .toString()
                    .contains(QStringLiteral("<b><u>Север</u></b><b><u>ная</u></b>")));
        found("");
        QVERIFY(!m_bench->cell(0, "html", Qt::UserRole).toString().contains(QStringLiteral("<u>")));
    }

    void searchesShortlyAfterTyping()
    {
        record("A", "SHIFT_CDS_PAST", "неповторимое");
        m_bench->start();
        typeText(words(), QStringLiteral("неповторимых"));
        QVERIFY(m_bench->keys().size() > 1);
        QVERIFY(QTest::qWaitFor([&] { return m_bench->keys() == list("A"); }));
    }

    void choicesNarrowAtOnce()
    {
        record("A", "SHIFT_CDS_PAST", "обкатка", 1);
        record("B", "SHIFT_CDS_PAST", "обкатка", 20, {{"WorkerKey", "WORKER_IVANOV"}});
        record("C", "SHIFT_ZAR_OPEN", "обкатка", 100, {{"WorkerKey", "WORKER_SMIRNOV_ZAR"}});
        record("D", "SHIFT_CDS_PAST", "обкатка", 800, {{"status", 2}});
        m_bench->start();
        QCOMPARE(found("обкатка"), list("A B D"));
        choose("departmentCombo", QStringLiteral("Все подразделения"));
        QCOMPARE(m_bench->keys(), list("A B C D"));
        QVERIFY(!m_bench->view()->isColumnHidden(15)); // the authors
        choose("periodCombo", QStringLiteral("За год"));
        QCOMPARE(m_bench->keys(), list("A B C"));
        choose("periodCombo", QStringLiteral("За месяц"));
        QCOMPARE(m_bench->keys(), list("A B"));
        choose("periodCombo", QStringLiteral("За неделю"));
        QCOMPARE(m_bench->keys(), list("A"));
        choose("periodCombo", QStringLiteral("По датам:"));
        QVERIFY(m_bench->child<QDateEdit>("fromEdit")->isVisible());
        const QDate day = QDateTime::fromSecsSinceEpoch(qint64(TestStore::now()) - 100 * 24 * 3600).date();
        m_bench->child<QDateEdit>("fromEdit")->setDate(day);
        m_bench->child<QDateEdit>("toEdit")->setDate(day);
        QCOMPARE(m_bench->keys(), list("C"));
        choose("periodCombo", QStringLiteral("За всё время"));
        QVERIFY(!m_bench->child<QDateEdit>("fromEdit")->isVisible());
        choose("statusCombo", QStringLiteral("Удалённые"));
        QCOMPARE(m_bench->keys(), list("D"));
        QVERIFY(m_bench->cell(0, "html", Qt::FontRole).value<QFont>().strikeOut());
        choose("statusCombo", QStringLiteral("Любое"));
        auto* workers = m_bench->child<QComboBox>("workerCombo");
        workers->setCurrentIndex(workers->findData(QByteArray("WORKER_IVANOV")));
        QCOMPARE(m_bench->keys(), list("B"));
        m_bench->child<QPushButton>("clearButton")->click();
        QCOMPARE(words()->text(), QString());
        QCOMPARE(m_bench->child<QComboBox>("departmentCombo")->currentData().toByteArray(),
                 QByteArray("DEP_CDS"));
        QCOMPARE(workers->currentIndex(), 0);
    }

    void equipmentIsLookedForWhereItIsNamed()
    {
        record("A", "SHIFT_CDS_PAST", R"(На <a href="parameter:name=substation">ПС Дальняя</a> порядок)");
        record("B", "SHIFT_CDS_PAST", "Звонок с ПС Дальняя");
        m_bench->start();
        auto* equipment = m_bench->child<QLineEdit>("equipmentEdit");
        equipment->setFocus();
        typeText(equipment, QStringLiteral("дальней"));
        QTest::keyClick(equipment, Qt::Key_Return);
        QCOMPARE(m_bench->keys(), list("A"));
        QVERIFY(m_bench->cell(0, "html", Qt::UserRole)
                    .toString()
                    .contains(QStringLiteral("<b><u>Дальняя</u></b>")));
    }

    void theAuthorsAreThoseOfTheDepartment()
    {
        m_bench->start();
        auto* workers = m_bench->child<QComboBox>("workerCombo");
        // he has left, his records are still there
        QVERIFY(workers->findData(QByteArray("WORKER_KUZNETSOV")) > 0);
        QCOMPARE(workers->findData(QByteArray("WORKER_SMIRNOV_ZAR")), -1);
        choose("departmentCombo", QStringLiteral("Все подразделения"));
        QVERIFY(workers->findData(QByteArray("WORKER_SMIRNOV_ZAR")) > 0);
    }

    void aNameIsChosenByTypingAPartOfIt()
    {
        m_bench->start();
        auto* workers = m_bench->child<QComboBox>("workerCombo");
        workers->setFocus();
        workers->lineEdit()->selectAll();
        typeText(workers->lineEdit(), QStringLiteral("етров"));
        auto* offered = workers->completer()->popup();
        QVERIFY(offered->isVisible());
        QTest::keyClick(offered, Qt::Key_Down);
        QTest::keyClick(offered, Qt::Key_Return);
        QCOMPARE(workers->currentData().toByteArray(), QByteArray("WORKER_PETROV"));
        workers->setFocus();
        workers->lineEdit()->selectAll();
        typeText(workers->lineEdit(), QStringLiteral("Никто"));
        words()->setFocus();
        QCOMPARE(workers->currentText(), QStringLiteral("Петров П. П."));
    }

    void moreHitsComeWhenAskedFor()
    {
        CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
        const QByteArray html = TestStore::bytes(QStringLiteral("тысячекратное"));
        for (int i = 0; i < CVrkArchive::hitsAtOnce + 1; ++i) {
            MDRData* row = batch.newRow(ROW_INSERT, "R" + QByteArray::number(i));
            batch.SetValF(row, "ShiftKey", MDRValue::text("SHIFT_CDS_PAST"));
            batch.SetValF(row, "recordTime", MDRValue::real(TestStore::now() - i));
            batch.SetValF(row, "status", MDRValue::number(0));
            batch.SetValF(row, "html", MDRValue::text(html));
            batch.RecPost(row);
        }
        StoreError error;
        QVERIFY(m_bench->store.openLoader()->apply({{"LogbookRecords", batch.array}}, "MANY", &error));
        m_bench->start();
        QCOMPARE(found("тысячекратное").size(), CVrkArchive::hitsAtOnce);
        QCOMPARE(footer(), QStringLiteral("Показаны последние 500, есть и более ранние"));
        auto* more = m_bench->child<QPushButton>("moreButton");
        QVERIFY(more->isVisible());
        QTest::mouseClick(more, Qt::LeftButton);
        QCOMPARE(m_bench->keys().size(), CVrkArchive::hitsAtOnce + 1);
        QCOMPARE(footer(), QStringLiteral("Найдено записей: 501"));
        QVERIFY(!more->isVisible());
        QVERIFY(m_bench->view()->hasFocus());
    }

    void aHitLeadsToTheJournal()
    {
        record("A", "SHIFT_ZAR_OPEN", "обкатка");
        m_bench->start();
        choose("departmentCombo", QStringLiteral("Все подразделения"));
        QCOMPARE(found("обкатка"), list("A"));
        QTest::keyClick(words(), Qt::Key_Down);
        QVERIFY(m_bench->view()->hasFocus());
        QTest::keyClick(m_bench->view(), Qt::Key_Return);
        m_bench->doubleClick(m_bench->view()->currentIndex().row());
        const QString once = QStringLiteral("logbook showRecord A");
        QCOMPARE(m_bench->asked, (QStringList{once, once}));
    }

    void whatIsFoundIsSavedAsATable()
    {
        record("A", "SHIFT_CDS_PAST", "<p>=обкатка <b>1</b>; &quot;да&quot;</p>", 1,
               {{"recordTime", 1600000000.0}});
        m_bench->start();
        const QTemporaryDir folder;
        m_bench->client().app().settings()->setValue(Setting::reportFolder, folder.path());
        const FileSaver::Asking desktop = FileSaver::asking();
        QString file;
        FileSaver::asking().file = [&](QWidget*, const FileSaver::Kind&, const QString& proposed) {
            return file = proposed;
        };
        found("обкатка");
        QTest::keyClick(&m_bench->module(), Qt::Key_S, Qt::ControlModifier);
        FileSaver::asking() = desktop;
        QVERIFY2(file.startsWith(folder.filePath(QStringLiteral("Поиск обкатка 20"))), qPrintable(file));
        QFile table(file);
        QVERIFY(table.open(QIODevice::ReadOnly));
        const QByteArray bytes = table.readAll();
        QVERIFY(bytes.startsWith("\xEF\xBB\xBF"));
        QCOMPARE(QString::fromUtf8(bytes),
                 QStringLiteral("Состояние;Время записи;Автор;Текст\r\n"
                                "Утверждена;13.09.2020 15:26;Петров П. П.;\"'=обкатка 1; \"\"да\"\"\"\r\n"));
        QVERIFY(m_bench->module().findChild<FileSaver*>()->text().startsWith(QStringLiteral("Сохранено")));
        found("неслыханное");
        QVERIFY(!m_bench->child<QAction>("tableAction")->isEnabled());
    }

    void whatIsFoundIsPrintedWithTheQuery()
    {
        record("A", "SHIFT_CDS_PAST", "обкатка");
        m_bench->start();
        found("обкатка");
        QTest::keyClick(&m_bench->module(), Qt::Key_P, Qt::ControlModifier);
        auto* preview = m_bench->module().findChild<VrkPreviewWindow*>();
        QVERIFY(preview && preview->isVisible());
        QCOMPARE(preview->table().footer,
                 QStringLiteral("Поиск по архиву: обкатка, %1\nНайдено записей: 1")
                     .arg(m_bench->child<QComboBox>("departmentCombo")->currentText()));
        QCOMPARE(preview->table().rows.size(), 1);
        preview->close();
    }

    void searchesAreSavedRenamedAndRemoved()
    {
        record("A", "SHIFT_CDS_PAST", "обкатка");
        m_bench->start();
        QString name = QStringLiteral("Моя & обкатка");
        const SearchMenu::AskName real = SearchMenu::askName();
        SearchMenu::askName() = [&name](QWidget*, const QString&, const QString&) { return name; };
        auto* menu = m_bench->child<QMenu>("searchMenu");
        const auto entries = [menu](const char* kind) {
            emit menu->aboutToShow();
            return menu->findChildren<QAction*>(QLatin1String(kind));
        };
        QCOMPARE(found("обкатка"), list("A"));
        choose("periodCombo", QStringLiteral("За год"));
        entries("saveSearch").at(0)->trigger();
        m_bench->child<QPushButton>("clearButton")->click();
        QVERIFY(m_bench->keys().size() > 1);
        QCOMPARE(entries("savedSearch").size(), 1);
        QCOMPARE(entries("savedSearch").at(0)->text(), QStringLiteral("Моя && обкатка"));
        entries("savedSearch").at(0)->trigger();
        QCOMPARE(m_bench->keys(), list("A"));
        QCOMPARE(m_bench->child<QComboBox>("periodCombo")->currentText(), QStringLiteral("За год"));
        name = QStringLiteral("Другая");
        entries("renameSearch").at(0)->trigger();
        QCOMPARE(entries("savedSearch").size(), 1);
        QCOMPARE(entries("savedSearch").at(0)->text(), name);
        entries("removeSearch").at(0)->trigger();
        QVERIFY(entries("savedSearch").isEmpty());
        SearchMenu::askName() = real;
    }

    void theLastTenSearchesAreKept()
    {
        m_bench->start();
        for (int i = 0; i < 12; ++i)
            found(qPrintable(QStringLiteral("слово%1").arg(i)));
        found("слово11");
        const SearchBook book(m_bench->client().app().settings());
        QCOMPARE(book.last().size(), 10);
        QCOMPARE(book.last().constFirst().words, QStringLiteral("слово11"));
        QCOMPARE(book.last().constLast().words, QStringLiteral("слово2"));
        m_bench->client().app().settings()->setValue(
            Setting::lastSearches, QStringList{QStringLiteral("{damaged"), QStringLiteral("[]"), QString()});
        QVERIFY(book.last().isEmpty());
    }

    void whatCameSinceTheOwnLastShiftIsFound()
    {
        const double end = TestStore::now() - 5 * 24 * 3600;
        m_bench->write(
            "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_PAST",
            {{"OpenWorkerKey", "WORKER_IVANOV"}, {"CloseWorkerKey", "WORKER_IVANOV"}, {"endTime", end}});
        record("BEFORE", "SHIFT_CDS_PAST", "обкатка", 6);
        record("SINCE", "SHIFT_CDS_PAST", "обкатка", 4);
        m_bench->start();
        QCOMPARE(found("обкатка"), list("SINCE BEFORE"));
        choose("periodCombo", QStringLiteral("С моей прошлой смены"));
        QCOMPARE(m_bench->keys(), list("SINCE"));
    }

    void nothingFoundIsSaid()
    {
        m_bench->start();
        QCOMPARE(found("неслыханное"), QStringList());
        auto* empty = m_bench->child<QLabel>("emptyLabel");
        QVERIFY(empty->isVisible());
        QVERIFY(empty->text().startsWith(QStringLiteral("Ничего не найдено")));
        QCOMPARE(footer(), QStringLiteral("Найдено записей: 0"));
        QVERIFY(!empty->text().contains(QStringLiteral("кавыч")));
        for (const char* query : {"\"неслыханное слово\"", "неслыханное -слово"}) {
            found(query);
            QVERIFY2(empty->text().contains(QStringLiteral("без кавычек и минуса")), query);
        }
        QVERIFY(words()->toolTip().contains(QStringLiteral("в кавычках: слова рядом")));
        QVERIFY(!found("").isEmpty());
        QVERIFY(!empty->isVisible());
    }

    void aFailureKeepsWhatWasFound()
    {
        expectWarning(QStringLiteral("Диск хранилища переполнен"));
        auto plan = std::make_shared<FailingStore::Plan>();
        m_bench->startOn(std::make_unique<FailingStore>(m_bench->store.open(QStringLiteral("ivanov")), plan));
        const QStringList before = m_bench->keys();
        QVERIFY(!before.isEmpty());
        plan->failedSelects = 1;
        QCOMPARE(found("обкатка"), before);
        QVERIFY(m_bench->child<QLabel>("foundLabel")->text().contains(FailingStore::refusal()));
        QCOMPARE(m_bench->client().takeFailures(), QStringList{FailingStore::refusal()});
    }

    void columnsSort()
    {
        record("A", "SHIFT_CDS_PAST", "обкатка", 1, {{"WorkerKey", "WORKER_IVANOV"}});
        record("B", "SHIFT_CDS_PAST", "обкатка", 2);
        record("C", "SHIFT_CDS_PAST", "обкатка", 3, {{"WorkerKey", "WORKER_IVANOV"}});
        m_bench->start();
        found("обкатка");
        m_bench->view()->sortByColumn(2, Qt::DescendingOrder); // authors
        QCOMPARE(m_bench->keys().constFirst(), QStringLiteral("B"));
        m_bench->view()->sortByColumn(7, Qt::AscendingOrder); // times
        QCOMPARE(m_bench->keys(), list("C B A"));
    }
};

QTEST_MAIN(CVrkArchive_test)
#include "CVrkArchive_test.moc"
