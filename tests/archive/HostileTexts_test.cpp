#include "../templates/ConfiguratorBench.h"
#include "AppendWorkerDialog.h"
#include "ArchiveBench.h"
#include "CommentCreatorDialog.h"
#include "CVrkArchive.h"
#include "CVrkUnfinished.h"
#include "HtmlParser.h"
#include "JournalWindow.h"
#include "OrgStructDialog.h"
#include "RecordCreatorDialog.h"
#include "ReportDialog.h"
#include "SecondMarkerDialog.h"
#include "TableCatalog.h"
#include "TemplatesWidget.h"
#include "TextWalk.h"

#include <fcntl.h>
#include <QListWidget>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QToolButton>
#include <sys/inotify.h>
#include <unistd.h>

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
    void everyTextIsMetSomewhere();

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

    QTemporaryDir m_folder{testFolderTemplate()};
    QString m_bait;
    int m_watch = -1;
    std::unique_ptr<TestStore> m_store;
    TextWalk m_walk;
    QSet<QString> m_written; ///< origins of all texts
    QSet<QString> m_met;     ///< by all walks
};

void HostileTexts_test::initTestCase()
{
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
    parser.setTemplateProperty("second_mark", m_bait.toStdString());
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
    for (const char* place : {"recordMenu(QMenu) action", "recordsTable(QTableView) tip of item", "tab",
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

void HostileTexts_test::everyTextIsMetSomewhere() {}

QTEST_MAIN(HostileTexts_test)
#include "HostileTexts_test.moc"
