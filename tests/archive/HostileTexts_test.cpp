#include "../templates/ConfiguratorBench.h"
#include "AppendWorkerDialog.h"
#include "ArchiveBench.h"
#include "CommentCreatorDialog.h"
#include "CVrkArchive.h"
#include "CVrkConverter.h"
#include "CVrkHistory.h"
#include "CVrkPast.h"
#include "CVrkUnfinished.h"
#include "ExpectedWarning.h"
#include "HtmlParser.h"
#include "JournalWindow.h"
#include "OrgStructDialog.h"
#include "RecordCreatorDialog.h"
#include "ReportDialog.h"
#include "SecondMarkerDialog.h"
#include "StoreAdmin.h"
#include "TableCatalog.h"
#include "TemplatesWidget.h"
#include "TextWalk.h"

#include <atomic>
#include <ctime>
#include <fcntl.h>
#include <QListWidget>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QTextEdit>
#include <QToolButton>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace
{
/// A named pipe: opening it for reading waits for a writer. This one releases the reader after a moment and
/// reports it.
class Pipe
{
public:
    explicit Pipe(const QString& path) : m_path(path.toLocal8Bit())
    {
        if (::mkfifo(m_path.constData(), 0600) != 0)
            qFatal("no pipe");
        m_thread = std::thread([this] {
            while (!m_isOver) {
                // Opens only while a reader waits at the other end.
                const int end = ::open(m_path.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
                if (end >= 0) {
                    m_isOpened = true;
                    ::close(end);
                }
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            }
        });
    }
    ~Pipe()
    {
        m_isOver = true;
        m_thread.join();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    /// Since the last call.
    bool wasOpened() { return m_isOpened.exchange(false); }

private:
    QByteArray m_path;
    std::atomic<bool> m_isOver{false};
    std::atomic<bool> m_isOpened{false};
    std::thread m_thread;
};
} // namespace

/// A journal with markup, paths and scripts in every text. All windows are opened on it; they show the
/// texts literally, and open none of the files that the texts name.
class HostileTexts_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void journalShowsTextsAsTheyAre();
    void configuratorShowsTextsAsTheyAre();
    void searchShowsTextsAsTheyAre();
    void unfinishedShowsTextsAsTheyAre();
    void historyShowsTextsAsTheyAre();
    void pastShowsTextsAsTheyAre();
    void converterShowsTextsAsTheyAre();
    void everyTextIsMetSomewhere();
    void endlessLinesAndNulFreezeNoWindow();

private:
    void spoilTexts();
    QString spoiltHtml(const QString& origin, const QString& html) const;
    void walkRecords(JournalWindow* desk);
    void walkDialogs(JournalWindow* desk);
    void walkMenu(JournalWindow* desk);
    void look()
    {
        QCoreApplication::processEvents();
        m_walk.walk();
    }
    bool isFileOpened() const;
    QString pipe() const { return m_folder.filePath(QStringLiteral("pipe.png")); }

    QTemporaryDir m_folder{testFolderTemplate()};
    QString m_bait;
    int m_watch = -1;
    std::unique_ptr<Pipe> m_pipe;
    std::unique_ptr<TestStore> m_store;
    TextWalk m_walk;
    QSet<QString> m_written; ///< origins of all texts
    QSet<QString> m_met;     ///< by all walks
};

void HostileTexts_test::initTestCase()
{
    expectWarning(QStringLiteral("Cannot set file position")); // the toolkit looks into the pipe
    QCoreApplication::setOrganizationName(QStringLiteral("vrk-test"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    m_bait = m_folder.filePath(QStringLiteral("bait.png"));
    QVERIFY(QImage(4, 4, QImage::Format_RGB32).save(m_bait));
    m_watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    QVERIFY(m_watch >= 0);
    QVERIFY(inotify_add_watch(m_watch, qPrintable(m_bait), IN_OPEN) >= 0);
    QVERIFY(!isFileOpened());
    QVERIFY(!QIcon(m_bait).pixmap(16, 16).isNull());
    QVERIFY(isFileOpened()); // the watch works
    m_pipe = std::make_unique<Pipe>(pipe());
    QVERIFY(QIcon(pipe()).pixmap(16, 16).isNull());
    QVERIFY(m_pipe->wasOpened());
    m_store = std::make_unique<TestStore>();
    spoilTexts();
}

void HostileTexts_test::init()
{
    m_walk = TextWalk();
}

void HostileTexts_test::cleanup()
{
    for (const QString& origin : m_walk.origins())
        m_met.insert(origin.section(QLatin1Char(' '), 0, 0));
    for (const QString& fault : m_walk.faults())
        qWarning("%s", qPrintable(fault));
    QCOMPARE(m_walk.faults().size(), 0);
    QVERIFY2(!isFileOpened(), "a file that a text names was opened");
    QVERIFY2(!m_pipe->wasOpened(), "a pipe that a text names was opened");
}

bool HostileTexts_test::isFileOpened() const
{
    char events[4096];
    return read(m_watch, events, sizeof events) > 0;
}

/// Every text of every table that is neither a key nor a word of the program.
void HostileTexts_test::spoilTexts()
{
    const QSet<QByteArray> ofTheProgram{"Users.login", "UserRights.rightName", "Equipment.kind",
                                        "Tables.nameLat", "Fields.nameLat"};
    const std::unique_ptr<Store> loader = m_store->openLoader();
    for (const CatalogTable& table : TableCatalog::tables()) {
        for (const CatalogField& field : table.fields) {
            const QByteArray origin = table.name + '.' + field.name;
            const bool isText =
                (field.type == mdr_TChar && !field.name.endsWith("Key") && field.name != "KeyLink") ||
                field.type == mdr_TMemo;
            if (!isText || ofTheProgram.contains(origin))
                continue;
            const QString name = QLatin1String(origin);
            const auto rows = m_store->rows(QStringLiteral("SELECT KeyLink, %1 FROM %2")
                                                .arg(QLatin1String(field.name), QLatin1String(table.name)));
            for (const QVariantList& row : rows) {
                const QString text = field.name == "html" ? spoiltHtml(name, row.at(1).toString())
                                                          : TextWalk::of(name, m_bait);
                QVERIFY(TestStore::write(loader.get(), table.name, ROW_UPDATE, row.at(0).toByteArray(),
                                         {{field.name.constData(), text}}));
                m_written.insert(name);
            }
        }
    }
}

QString HostileTexts_test::spoiltHtml(const QString& origin, const QString& html) const
{
    const auto text = [&](const char* part) {
        return TextWalk::of(origin + QLatin1Char(' ') + QLatin1String(part), m_bait).toStdString();
    };
    HtmlParser parser(
        "<img src=\"" + m_bait.toStdString() + "\"><p>" + HtmlParser::escaped(text("text")) + "</p>" +
        HtmlParser::createParameter({{"name", "text"}, {"locname", text("label")}}, text("shown")) +
        HtmlParser::createParameter({{"name", "list"},
                                     {"locname", text("list")},
                                     {"list", HtmlParser::createListProperty({text("item")})}},
                                    text("list")));
    const HtmlParser before(html.toStdString());
    for (const char* flag : {"open_wshift", "close_wshift", "time_exec"})
        parser.setTemplateProperty(flag, before.isExistTemplateProperty(flag));
    parser.setTemplateProperty("first_mark", m_bait.toStdString());
    parser.setTemplateProperty("second_mark", pipe().toStdString());
    parser.setTemplateProperty("command", text("command"));
    return QString::fromStdString(parser.readyHtml(true));
}

void HostileTexts_test::walkRecords(JournalWindow* desk)
{
    auto* view = JournalWindow::childOf<QTableView>(&desk->home(), "recordsTable");
    for (int row = 0; row < view->model()->rowCount(); ++row) {
        view->setCurrentIndex(view->model()->index(row, 4));
        look();
    }
    for (int page = 0; page < 2; ++page) {
        JournalWindow::childOf<QTabWidget>(&desk->home(), "additionalTab")->setCurrentIndex(page);
        look();
    }
}

void HostileTexts_test::walkMenu(JournalWindow* desk)
{
    auto* view = JournalWindow::childOf<QTableView>(&desk->home(), "recordsTable");
    desk->select("REC_DRAFT_IVANOV");
    emit view->customContextMenuRequested(view->visualRect(view->currentIndex()).center());
    auto* menu = JournalWindow::childOf<QMenu>(&desk->home(), "recordMenu");
    look();
    QCOMPARE(menu->actions().at(1)->icon().pixmap(16, 16).toImage(),
             QIcon(QStringLiteral(":/icons/two.png")).pixmap(16, 16).toImage());
    menu->hide();
}

void HostileTexts_test::walkDialogs(JournalWindow* desk)
{
    QVector<QPointer<CPopTemplate>> dialogs;
    for (CPopTemplate* dialog : desk->window().findChildren<CPopTemplate*>())
        dialogs.append(dialog);
    for (const QPointer<CPopTemplate>& dialog : qAsConst(dialogs)) {
        if (!dialog)
            continue;
        dialog->show();
        for (auto* templates : dialog->findChildren<TemplatesWidget*>())
            templates->selectFirstTemplate();
        look();
        if (dialog)
            dialog->hide();
    }
    desk->home().appendWorkerRequest();
    auto* append = desk->window().findChild<AppendWorkerDialog*>();
    JournalWindow::childOf<QToolButton>(append, "addButton")->click();
    OrgStruct::SelectedItem chosen;
    chosen.type = OrgStruct::Person;
    chosen.worker.keyLink = QStringLiteral("WORKER_SIDOROVA");
    for (OrgStructDialog* structure : desk->window().findChildren<OrgStructDialog*>()) {
        if (structure->isVisible()) {
            structure->hide();
            emit structure->itemSelected(chosen);
        }
    }
    look();
    append->hide();
    desk->home().changeSecondMarkRequest();
    look();
    desk->window().findChild<SecondMarkerDialog*>()->hide();
    desk->home().createRecordRequest();
    auto* creator = desk->window().findChild<RecordCreatorDialog*>();
    creator->findChild<TemplatesWidget*>()->selectTemplate(QStringLiteral("TPL_TRIP"));
    look();
    creator->hide();
    desk->select("REC_DRAFT_IVANOV");
    desk->home().editRecordRequest();
    look();
    creator->hide();
    desk->home().showReportDialog();
    look();
    desk->window().findChild<ReportDialog*>()->hide();
}

void HostileTexts_test::journalShowsTextsAsTheyAre()
{
    expectWarning(QStringLiteral("department keyLink is empty!"));
    QVERIFY(!m_written.isEmpty());
    const std::unique_ptr<Store> loader = m_store->openLoader();
    // Both markers and all persons of a record are shown.
    QVERIFY(
        TestStore::write(loader.get(), "LogbookRecords", ROW_UPDATE, "REC_TRIP",
                         {{"secondMarkTime", TestStore::now()}, {"SecondMarkWorkerKey", "WORKER_PETROV"}}));
    JournalWindow desk(*m_store, QStringLiteral("ivanov"));
    desk.window().resize(1600, 900);
    walkRecords(&desk);
    walkMenu(&desk);
    walkDialogs(&desk);
    desk.child<QToolButton>("commentsButton")->click();
    desk.window().appendLogbook(QStringLiteral("ORG_NETS"), QStringLiteral("DEP_ZAR"));
    look();
    // All kinds of places were checked: a menu entry, a tip, a tab, a list.
    const QString places = QStringList(m_walk.places().values()).join(QLatin1Char('\n'));
    for (const char* place : {"recordMenu(RecordMenu) action", "recordsTable(QTableView) tip of item", "tab",
                              "commentsList(QListWidget) item", "filesTable(QTableWidget) item",
                              "templateLabel(QLabel) text", "recordTitle(RecordTitle) text", "workersTable"})
        QVERIFY2(places.contains(QLatin1String(place)),
                 qPrintable(QLatin1String(place) + QLatin1Char('\n') + places));
}

void HostileTexts_test::configuratorShowsTextsAsTheyAre()
{
    Configurator desk(*m_store);
    QVERIFY(desk.isStarted());
    desk.window().resize(1400, 900);
    for (TemplateTab* page : {desk.common(), desk.orgs(), desk.deps()}) {
        desk.show(page);
        Configurator::tree(page)->expandAll();
        for (const char* key : {"CAT_COMMON", "TPL_OPEN", "TPL_ORDER", "TPL_TRIP", "TPL_TEXT"}) {
            if (Configurator::record(page, key)) {
                Configurator::select(page, key);
                look();
            }
        }
    }
}

void HostileTexts_test::searchShowsTextsAsTheyAre()
{
    TestClient client(*m_store);
    CVrkArchive window(&client.app());
    window.show();
    window.ModuleStart();
    window.findChild<QLineEdit*>(QStringLiteral("wordsEdit"))->setText(QStringLiteral("метка"));
    window.findChild<QPushButton*>(QStringLiteral("searchButton"))->click();
    client.deliver();
    look();
    QVERIFY(window.findChild<RecordList*>()->count() > 0);
}

void HostileTexts_test::unfinishedShowsTextsAsTheyAre()
{
    TestClient client(*m_store);
    CVrkUnfinished window(&client.app());
    window.show();
    window.ModuleStart();
    client.deliver();
    look();
}

void HostileTexts_test::historyShowsTextsAsTheyAre()
{
    TestClient client(*m_store);
    CVrkHistory window(&client.app());
    window.show();
    window.ModuleStart();
    window.slot_modNotify(QStringLiteral("showRecord"), QStringLiteral("REC_TRIP"));
    auto* view = window.findChild<QTableView*>(QStringLiteral("changeTable"));
    QVERIFY(view->model()->rowCount() > 3);
    for (int row = 0; row < view->model()->rowCount(); ++row) {
        view->selectRow(row);
        look();
    }
}

void HostileTexts_test::pastShowsTextsAsTheyAre()
{
    TestClient client(*m_store);
    CVrkPast window(&client.app());
    window.show();
    window.ModuleStart();
    window.slot_modNotify(QStringLiteral("showRecord"), QStringLiteral("REC_TRIP"));
    QVERIFY(window.findChild<RecordList*>()->count() > 0);
    look();
}

void HostileTexts_test::converterShowsTextsAsTheyAre()
{
    const TestStore store;
    StoreError error;
    for (const char* right : {"ADMINISTRATOR", "SQL_EXEC", "SQL_REQUEST", "TBL_REQUEST", "TBL_UPDATE"})
        QVERIFY(StoreAdmin::grant(store.url(), QStringLiteral("ivanov"), right, true, &error));
    const auto write = [&](const char* table, const char* key, const char* field, TestStore::Fields fields) {
        const QString origin = QLatin1String(table) + QLatin1Char('.') + QLatin1String(field);
        fields.push_back({field, TextWalk::of(origin, pipe())});
        QVERIFY(TestStore::write(store.openLoader().get(), table, ROW_INSERT, key, fields));
    };
    write("OperLogCategories", "C1", "name_", {});
    write("OperLogTemplateParams", "P1", "nameLoc", {{"nameLat", "prim"}});
    write("OperLogTemplateParams", "P2", "param", {{"nameLat", "podst"}});
    write("OperLogTemplates", "T1", "name_", {{"CategoryKey", "C1"}, {"text_", "<prim> <podst> <gone>"}});
    write("OperLogTemplates", "T2", "text_", {{"CategoryKey", "C1"}, {"name_", "T2"}});
    TestClient client(store);
    CVrkConverter window(&client.app());
    window.show();
    QVERIFY(window.ModuleStart());
    look();
    window.findChild<QPushButton*>(QStringLiteral("convertButton"))->click();
    look();
    // Every tag is taken for the name of a missing parameter.
    const QString report = window.findChild<QTextEdit*>(QStringLiteral("infoEdit"))->toPlainText();
    for (const char* line :
         {"\n<b>\n", "\n<img src=\"//srv/share/a.png\">\n", "\n<a href=\"javascript:x()\">\n"})
        QVERIFY2(report.contains(QLatin1String(line)), qPrintable(report));
}

/// Texts that are shown nowhere need a reason: no template here has a field for equipment, base parameters
/// are offered by their names, and the name of a login is shown in the window around the modules.
void HostileTexts_test::everyTextIsMetSomewhere()
{
    QSet<QString> unseen = m_written;
    unseen.subtract(m_met);
    unseen.subtract({QStringLiteral("Equipment.name_"), QStringLiteral("Equipment.voltage"),
                     QStringLiteral("TemplateParams.html"), QStringLiteral("Users.name_")});
    QStringList names = unseen.values();
    names.sort();
    QCOMPARE(names.join(QLatin1Char(' ')), QString());
}

/// Five megabytes in one word, in one line of words, and with a NUL in the middle. Processor time is
/// measured, which does not depend on other programs.
void HostileTexts_test::endlessLinesAndNulFreezeNoWindow()
{
    const TestStore store;
    const std::unique_ptr<Store> loader = store.openLoader();
    constexpr int letters = 5000000;
    const QString word(letters, QLatin1Char('x'));
    const QString words = QStringLiteral("abcd ").repeated(letters / 5);
    const QString nul = QStringLiteral("front") + QChar(0) + QStringLiteral("back");
    const auto write = [&](const char* table, const char* key, const char* field, const QString& text) {
        QVERIFY(TestStore::write(loader.get(), table, ROW_UPDATE, key, {{field, text}}));
    };
    write("LogbookRecords", "REC_OPENING", "html", word);
    write("LogbookRecords", "REC_ORDER", "html", words);
    write("LogbookRecords", "REC_TRIP", "html", nul);
    write("LogbookComments", "COM_UNREAD", "text_", word);
    write("LogbookComments", "COM_READ", "text_", words);
    write("LogbookTemplates", "TPL_TEXT", "html", word);
    double longest = 0;
    QByteArray slowest;
    const auto step = [&](const char* name, const auto& act) {
        const std::clock_t start = std::clock();
        act();
        QCoreApplication::processEvents();
        const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        if (seconds > longest) {
            longest = seconds;
            slowest = name;
        }
    };
    std::unique_ptr<JournalWindow> desk;
    step("opening", [&] { desk = std::make_unique<JournalWindow>(store, QStringLiteral("ivanov")); });
    for (const char* key : {"REC_OPENING", "REC_ORDER", "REC_TRIP", "REC_DRAFT_IVANOV"})
        step(key, [&] { desk->select(key); });
    step("resizing", [&] { desk->window().resize(1500, 800); });
    auto* creator = desk->window().findChild<RecordCreatorDialog*>();
    step("creating", [&] { desk->home().createRecordRequest(); });
    step("template",
         [&] { creator->findChild<TemplatesWidget*>()->selectTemplate(QStringLiteral("TPL_TEXT")); });
    creator->hide();
    step("report", [&] { desk->home().showReportDialog(); });
    // At most a tenth of it; the sanitizers are several times slower.
    QVERIFY2(longest < 10, qPrintable(QString::fromLatin1(slowest) + QString::number(longest)));
}

QTEST_MAIN(HostileTexts_test)
#include "HostileTexts_test.moc"
