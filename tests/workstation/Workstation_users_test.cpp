#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "HelpMenu.h"
#include "HostBench.h"
#include "ModuleMenu.h"
#include "SignInDialog.h"
#include "StatusLine.h"
#include "Workstation.h"

#include <cstdio>
#include <memory>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <unistd.h>

/// The users of the host and their modules: with the shared libraries and the real plug-in.
class Workstation_users_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }
    void init();
    void cleanup();

    void aMissingStoreIsNamed();
    void aFileThatIsNoStoreIsNamed();
    void aNewerStoreNamesTheVersionNeeded();
    void reportsALockedStore();
    void reportsAStoreWithoutPermission();

    void theDialogAsksForUserAndDepartment();
    void aDepartmentOfSeveralIsChosenByTheUser();
    void theDialogRemembersTheDepartmentOfEachUser();
    void aCancelledSignInHasNoReason();
    void theDialogTellsWhyAUserCannotEnter();

    void savedChangesLetTheModuleClose();

    void theMenuOffersWhatTheRightsAllow_data();
    void theMenuOffersWhatTheRightsAllow();
    void modulesWorkSideBySideOnOneSession();
    void anOpenModuleIsRaisedNotDoubled();
    void aClosedModuleMayBeStartedAgain();
    void theKeyOpensTheMenu();

    void theNextUserIsInByTwoKeys();
    void theOneWhoWorkedBeforeIsOfferedNext();
    void changingTheUserAsksAboutUnsavedChanges();
    void aCancelledChangeLeavesNobodySignedIn();

private:
    Options options(const QString& user) const;
    QString refusal(const Options& options);
    CVrkCliMod* started(const QString& user, const QString& module = QStringLiteral("logbook"));

    std::unique_ptr<HostBench> m_bench;
    std::unique_ptr<Workstation> m_host;
};

void Workstation_users_test::init()
{
    m_bench = std::make_unique<HostBench>();
    m_host = std::make_unique<Workstation>();
}

void Workstation_users_test::cleanup()
{
    m_host.reset();
    m_bench.reset();
}

Options Workstation_users_test::options(const QString& user) const
{
    Options options;
    options.store = m_bench->url();
    options.user = user;
    if (user == QLatin1String("ozerov"))
        options.department = QStringLiteral("ЦДС");
    return options;
}

QString Workstation_users_test::refusal(const Options& options)
{
    return m_host->enter(options) ? QString() : m_host->errorText();
}

CVrkCliMod* Workstation_users_test::started(const QString& user, const QString& module)
{
    if (!m_host->enter(options(user)))
        return nullptr;
    return m_host->startModule(module);
}

void Workstation_users_test::aMissingStoreIsNamed()
{
    Options wrong = options(QStringLiteral("ozerov"));
    wrong.store = m_bench->url(QStringLiteral("none.sqlite"));
    QCOMPARE(
        refusal(wrong),
        QStringLiteral("Файл хранилища «%1» не найден.").arg(m_bench->path(QStringLiteral("none.sqlite"))));
    QVERIFY(!QFile::exists(m_bench->path(QStringLiteral("none.sqlite"))));
}

void Workstation_users_test::aFileThatIsNoStoreIsNamed()
{
    QFile file(m_bench->path(QStringLiteral("letter.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("This is a letter, not a journal.\n").repeated(100));
    file.close();
    Options wrong = options(QStringLiteral("ozerov"));
    wrong.store = m_bench->url(QStringLiteral("letter.txt"));
    QCOMPARE(refusal(wrong),
             QStringLiteral("Файл «%1» не является хранилищем журнала.").arg(file.fileName()));
}

void Workstation_users_test::aNewerStoreNamesTheVersionNeeded()
{
    const QString script = QStringLiteral("import sqlite3, sys\n"
                                          "store = sqlite3.connect(sys.argv[1])\n"
                                          "store.execute('PRAGMA user_version = 57')\n");
    QCOMPARE(HostBench::run(QStringLiteral("python3"),
                            {QStringLiteral("-c"), script, m_bench->path(QStringLiteral("store.sqlite"))}),
             QString());
    const QString text = refusal(options(QStringLiteral("ozerov")));
    QVERIFY2(text.contains(QStringLiteral("нужна версия схемы 57")), qPrintable(text));
}

void Workstation_users_test::reportsALockedStore()
{
    const QString script = QStringLiteral("import sqlite3, sys\n"
                                          "store = sqlite3.connect(sys.argv[1], isolation_level=None)\n"
                                          "store.execute('PRAGMA locking_mode = EXCLUSIVE')\n"
                                          "store.execute('BEGIN EXCLUSIVE')\n"
                                          "store.execute('PRAGMA user_version = 1')\n"
                                          "print('locked', flush=True)\n"
                                          "sys.stdin.read()\n");
    QProcess other;
    other.start(QStringLiteral("python3"),
                {QStringLiteral("-c"), script, m_bench->path(QStringLiteral("store.sqlite"))});
    QVERIFY(other.waitForReadyRead(20000));
    const QString text = refusal(options(QStringLiteral("ozerov")));
    other.closeWriteChannel();
    QVERIFY(other.waitForFinished(20000));
    QCOMPARE(text, QStringLiteral("Файл хранилища «%1» слишком долго занят другой программой.")
                       .arg(m_bench->path(QStringLiteral("store.sqlite"))));
}

void Workstation_users_test::reportsAStoreWithoutPermission()
{
    const QString file = m_bench->path(QStringLiteral("store.sqlite"));
    const auto entering = [this, &file](int fileRights) {
        QFile::setPermissions(file, QFile::Permissions(fileRights));
        QFile::setPermissions(m_bench->folder.path(), QFile::Permissions(0x5555));
        QProcess other; // as a user who is not the administrator of the computer
        other.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--enter"), m_bench->url()});
        const bool hasEnded = other.waitForFinished(30000);
        QFile::setPermissions(m_bench->folder.path(), QFile::Permissions(0x7777));
        return hasEnded ? QString::fromUtf8(other.readAllStandardOutput()) : QStringLiteral("it goes on");
    };
    const QString text = entering(0);
    QVERIFY2(text.contains(file), qPrintable(text));
    QVERIFY2(text.startsWith(QStringLiteral("Нет доступа к файлу хранилища")), qPrintable(text));
    QCOMPARE(entering(0x4444), QString()); // it can be opened for reading
}

void Workstation_users_test::theDialogAsksForUserAndDepartment()
{
    QString chosen;
    QSize spare;
    int cut = -1;
    HostBench::whenShown<SignInDialog>([&chosen, &spare, &cut](SignInDialog* dialog) {
        spare = dialog->size() - dialog->sizeHint();
        auto* logins = dialog->findChild<QComboBox*>(QStringLiteral("loginCombo"));
        auto* departments = dialog->findChild<QComboBox*>(QStringLiteral("departmentCombo"));
        logins->setCurrentIndex(
            logins->findData(QStringLiteral("lugovoy"))); // of a department with a long name
        cut = qMax(0, departments->sizeHint().width() - departments->width());
        logins->setCurrentIndex(logins->findData(QStringLiteral("ozerov")));
        QCOMPARE(departments->count(), 2);
        departments->setCurrentIndex(1);
        chosen = departments->currentText().section(QStringLiteral(", "), 0, 0);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    QVERIFY(m_host->enter(options(QString())));
    CVrkCliMod* window = m_host->startModule(QStringLiteral("logbook"));
    QVERIFY(window);
    QVERIFY(window->findChild<QLabel*>(QStringLiteral("userLabel"))->text().endsWith(chosen));
    QCOMPARE(spare, QSize(0, 0)); // no larger than its content
    QCOMPARE(cut, 0);
}

void Workstation_users_test::aDepartmentOfSeveralIsChosenByTheUser()
{
    bool wasAsked = false;
    HostBench::whenShown<SignInDialog>([&wasAsked](SignInDialog* dialog) {
        auto* logins = dialog->findChild<QComboBox*>(QStringLiteral("loginCombo"));
        auto* departments = dialog->findChild<QComboBox*>(QStringLiteral("departmentCombo"));
        const auto* notice = dialog->findChild<QLabel*>(QStringLiteral("noticeLabel"));
        const auto* enter =
            dialog->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->button(QDialogButtonBox::Ok);
        logins->setCurrentIndex(logins->findData(QStringLiteral("ozerov")));
        QCOMPARE(departments->currentIndex(), -1);
        QVERIFY(!enter->isEnabled());
        QCOMPARE(notice->text(), QStringLiteral("Выберите подразделение."));
        QTest::keyClick(dialog, Qt::Key_Return);
        QVERIFY(dialog->isVisible());
        QTest::keyClick(departments, Qt::Key_Down);
        QCOMPARE(departments->currentIndex(), 0);
        QVERIFY(enter->isEnabled());
        QCOMPARE(notice->text(), QString());
        // A single login needs no choice.
        logins->setCurrentIndex(logins->findData(QStringLiteral("roshchin")));
        QCOMPARE(departments->currentIndex(), 0);
        QVERIFY(enter->isEnabled());
        wasAsked = true;
        dialog->reject();
    });
    QVERIFY(!m_host->enter(options(QString())));
    QVERIFY(wasAsked);
}

void Workstation_users_test::theDialogRemembersTheDepartmentOfEachUser()
{
    QString chosen;
    const auto choose = [&chosen](const QString& login, int department) {
        HostBench::whenShown<SignInDialog>([=, &chosen](SignInDialog* dialog) {
            auto* logins = dialog->findChild<QComboBox*>(QStringLiteral("loginCombo"));
            auto* departments = dialog->findChild<QComboBox*>(QStringLiteral("departmentCombo"));
            logins->setCurrentIndex(logins->findData(login));
            if (department >= 0)
                departments->setCurrentIndex(department);
            chosen = departments->currentText();
            QTest::keyClick(dialog, Qt::Key_Return);
        });
    };
    choose(QStringLiteral("ozerov"), 1);
    QVERIFY(m_host->enter(options(QString())));
    const QString first = chosen;
    choose(QStringLiteral("roshchin"), -1);
    QVERIFY(m_host->enter(options(QString())));
    choose(QStringLiteral("ozerov"), -1);
    QVERIFY(m_host->enter(options(QString())));
    QCOMPARE(chosen, first);
}

void Workstation_users_test::aCancelledSignInHasNoReason()
{
    HostBench::whenShown<SignInDialog>([](SignInDialog* dialog) { dialog->reject(); });
    QVERIFY(!m_host->enter(options(QString())));
    QVERIFY(m_host->errorText().isEmpty());
}

void Workstation_users_test::theDialogTellsWhyAUserCannotEnter()
{
    QString notice;
    bool mayEnter = true;
    HostBench::whenShown<SignInDialog>([&](SignInDialog* dialog) {
        auto* logins = dialog->findChild<QComboBox*>(QStringLiteral("loginCombo"));
        logins->setCurrentIndex(logins->findData(QStringLiteral("stazher")));
        notice = dialog->findChild<QLabel*>(QStringLiteral("noticeLabel"))->text();
        mayEnter = dialog->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))
                       ->button(QDialogButtonBox::Ok)
                       ->isEnabled();
        dialog->reject();
    });
    QVERIFY(!m_host->enter(options(QString())));
    QCOMPARE(notice, QStringLiteral("Для этого пользователя не заведён сотрудник ни в одном подразделении."));
    QVERIFY(!mayEnter);
}

void Workstation_users_test::savedChangesLetTheModuleClose()
{
    QPointer<CVrkCliMod> window = started(QStringLiteral("admin"), QStringLiteral("template"));
    QVERIFY(window);
    window->SetIsEdit(true);
    int asked = 0;
    HostBench::answer(QStringLiteral("Сохранить"), &asked);
    QVERIFY(window->close());
    QCOMPARE(asked, 1);
    QTRY_VERIFY(!window);
}

void Workstation_users_test::theMenuOffersWhatTheRightsAllow_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QStringList>("offered");
    const QStringList first{QStringLiteral("logbookAction"), QStringLiteral("templateAction")};
    const QStringList last{QStringLiteral("unfinishedAction"), QStringLiteral("archiveAction"),
                           QStringLiteral("bookmarksAction"), QStringLiteral("pastAction"),
                           QStringLiteral("statisticsAction")};
    const QStringList usual = first + last;
    QTest::newRow("administrator") << QStringLiteral("admin")
                                   << first + QStringList{QStringLiteral("converterAction")} + last;
    QTest::newRow("local administrator") << QStringLiteral("listov") << usual;
    QTest::newRow("dispatcher") << QStringLiteral("ozerov") << usual;
}

void Workstation_users_test::theMenuOffersWhatTheRightsAllow()
{
    QFETCH(QString, user);
    QFETCH(QStringList, offered);
    CVrkCliMod* window = started(user);
    QVERIFY(window);
    auto* menu = window->findChild<ModuleMenu*>();
    QVERIFY(menu);
    QStringList names;
    for (const QAction* action : menu->actions()) {
        if (!action->isSeparator() && !action->menu() && action != menu->changeUserAction() &&
            action != menu->ownViewAction() && action != menu->settingsAction())
            names << action->objectName();
    }
    QCOMPARE(names, offered);
    QVERIFY(menu->actions().contains(menu->ownViewAction()));
    QVERIFY(menu->actions().contains(menu->settingsAction()));
    QVERIFY(menu->actions().contains(menu->helpMenu()->menuAction()));
    QCOMPARE(menu->actions().constLast(), menu->changeUserAction());
    QVERIFY(menu->changeUserAction()->isEnabled());
}

void Workstation_users_test::modulesWorkSideBySideOnOneSession()
{
    CVrkCliMod* journal = started(QStringLiteral("admin"));
    QVERIFY(journal);
    auto* menu = journal->findChild<ModuleMenu*>();
    for (const char* name :
         {"template", "converter", "unfinished", "archive", "bookmarks", "past", "statistics"})
        menu->findChild<QAction*>(QLatin1String(name) + QStringLiteral("Action"))->trigger();
    QVector<CVrkCliMod*> windows;
    m_host->startModule(QStringLiteral("history"));
    for (const PluginCatalog::Module& entry : m_host->catalog().modules()) {
        CVrkCliMod* window = m_host->module(entry.name);
        QVERIFY2(window && window->isVisible(), qPrintable(entry.name));
        QCOMPARE(window->session(), m_host->app()->session());
        QVERIFY(m_host->statusLine(window));
        windows << window;
    }
    QVERIFY(windows[1]->close());
    QVERIFY(journal->isVisible() && windows[2]->isVisible());
}

void Workstation_users_test::anOpenModuleIsRaisedNotDoubled()
{
    CVrkCliMod* journal = started(QStringLiteral("admin"));
    QVERIFY(journal);
    QCOMPARE(m_host->startModule(QStringLiteral("logbook")), journal);
    QCOMPARE(m_host->app()->modules().size(), 1);
}

void Workstation_users_test::aClosedModuleMayBeStartedAgain()
{
    QVERIFY(started(QStringLiteral("admin")));
    QPointer<CVrkCliMod> first = m_host->startModule(QStringLiteral("template"));
    QVERIFY(first && first->close());
    CVrkCliMod* second = m_host->startModule(QStringLiteral("template"));
    QVERIFY(second && second != first && second->isVisible());
}

void Workstation_users_test::theKeyOpensTheMenu()
{
    CVrkCliMod* journal = started(QStringLiteral("ozerov"));
    QVERIFY(journal);
    journal->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(journal));
    auto* menu = journal->findChild<ModuleMenu*>();
    bool shown = false;
    QTimer::singleShot(0, menu, [&] {
        shown = menu->isVisible();
        menu->close();
    });
    QTest::keyClick(journal, Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_VERIFY(shown);
}

void Workstation_users_test::theNextUserIsInByTwoKeys()
{
    QPointer<CVrkCliMod> journal = started(QStringLiteral("admin"));
    QVERIFY(journal);
    QPointer<CVrkCliMod> editor = m_host->startModule(QStringLiteral("template"));
    journal->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(journal));
    journal->resize(1111, 555);
    QString offered;
    HostBench::whenShown<SignInDialog>([&](SignInDialog* dialog) {
        offered = dialog->login();
        QVERIFY(!journal && !editor); // the windows of the previous user are closed
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    QTest::keyClick(journal.data(), Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_VERIFY(!offered.isEmpty());
    QTRY_VERIFY(m_host->module(QStringLiteral("logbook")));
    QVERIFY(offered != QLatin1String("admin"));
    QCOMPARE(m_host->module(QStringLiteral("logbook"))->size(), QSize(1111, 555));
    QCOMPARE(m_host->app()->modules().size(), 1);
    const auto* label =
        m_host->module(QStringLiteral("logbook"))->findChild<QLabel*>(QStringLiteral("userLabel"));
    QVERIFY(!label->text().contains(QStringLiteral("Полянский")));
}

void Workstation_users_test::theOneWhoWorkedBeforeIsOfferedNext()
{
    const auto enterAs = [](const QString& login) {
        HostBench::whenShown<SignInDialog>([login](SignInDialog* dialog) {
            auto* logins = dialog->findChild<QComboBox*>(QStringLiteral("loginCombo"));
            logins->setCurrentIndex(logins->findData(login));
            QTest::keyClick(dialog, Qt::Key_Return);
        });
    };
    enterAs(QStringLiteral("severov"));
    QVERIFY(m_host->enter(options(QString())));
    enterAs(QStringLiteral("roshchin"));
    QVERIFY(m_host->enter(options(QString())));
    QVERIFY(m_host->startModule(QStringLiteral("logbook")));
    for (const char* next : {"severov", "roshchin", "severov"}) {
        QString offered;
        HostBench::whenShown<SignInDialog>([&offered](SignInDialog* dialog) {
            offered = dialog->login();
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        m_host->changeUser();
        QCOMPARE(offered, QLatin1String(next));
        QVERIFY(m_host->module(QStringLiteral("logbook")));
    }
}

void Workstation_users_test::changingTheUserAsksAboutUnsavedChanges()
{
    CVrkCliMod* journal = started(QStringLiteral("admin"));
    QVERIFY(journal);
    CVrkCliMod* editor = m_host->startModule(QStringLiteral("template"));
    editor->SetIsEdit(true);
    int asked = 0;
    HostBench::answer(QStringLiteral("Остаться"), &asked);
    m_host->changeUser();
    QCOMPARE(asked, 1);
    QCOMPARE(m_host->module(QStringLiteral("logbook")), journal);
    QCOMPARE(m_host->module(QStringLiteral("template")), editor);
    QVERIFY(editor->isEdit());
}

void Workstation_users_test::aCancelledChangeLeavesNobodySignedIn()
{
    QVERIFY(started(QStringLiteral("admin")));
    QSignalSpy left(m_host.get(), &Workstation::left);
    HostBench::whenShown<SignInDialog>([](SignInDialog* dialog) { dialog->reject(); });
    m_host->changeUser();
    QCOMPARE(left.count(), 1);
    QVERIFY(m_host->errorText().isEmpty());
    QVERIFY(m_host->app()->modules().isEmpty());
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    if (argc == 3 && QByteArray(argv[1]) == "--enter") {
        if (geteuid() == 0 && setuid(65534) != 0)
            return 2;
        Workstation host;
        Options options;
        options.store = QString::fromLocal8Bit(argv[2]);
        options.user = QStringLiteral("roshchin");
        const bool entered = host.enter(options);
        std::printf("%s", entered ? "" : host.errorText().toUtf8().constData());
        return 0;
    }
    Workstation_users_test test;
    return QTest::qExec(&test, argc, argv);
}
#include "Workstation_users_test.moc"
