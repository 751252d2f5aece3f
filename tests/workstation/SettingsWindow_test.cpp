#include "SettingsWindow.h"

#include "ColumnsPage.h"
#include "Contrast.h"
#include "CVrkCliMod.h"
#include "HostBench.h"
#include "HostSettings.h"
#include "Letters.h"
#include "ReportsPage.h"
#include "SignInDialog.h"
#include "SpellGuard.h"
#include "StoreDialog.h"
#include "Theme.h"
#include "UserSettings.h"
#include "Workstation.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QTimeEdit>

/// The window "Настройки" over the real journal: every change applies to the open windows and is kept.
class SettingsWindow_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void cleanupTestCase() { m_host.reset(); }

    void itsKeyOpensOneWindow();
    void theSearchFindsWordsInAnyForm_data();
    void theSearchFindsWordsInAnyForm();
    void theSearchSaysIfNothingIsFound();
    void lettersChangeOpenWindowsAtOnce();
    void usualLettersComeBackExactly();
    void coloursChangeAtOnceAndAreKept();
    void theKeyOfTheNightIsKeptForTheUser();
    void changesCanBeTakenBack();
    void aPageReturnsToItsDefaults();
    void aReportFolderIsChosen();
    void quietHoursAreSet();
    void columnsOfTheJournalAreChosen();
    void columnsAreMovedAndKept();
    void widthsAreSetAndTakenBack();
    void ownWordsAreRemoved();
    void withoutADictionaryThePageSaysSo();
    void chosenModulesStart();
    void withoutAChoiceTheJournalStarts_data();
    void withoutAChoiceTheJournalStarts();
    void anotherStoreIsOpened();
    void aStoreThatFailsIsAskedForAgain();
    void explanationsAreLegible_data();
    void explanationsAreLegible();
    void nothingIsCutOffInASmallScreen_data();
    void nothingIsCutOffInASmallScreen();
    void unwrittenSettingsAreSaid();

private:
    SettingsWindow* open();
    QTableView* table() { return m_shown->findChild<QTableView*>(QStringLiteral("recordsTable")); }
    QStringList shownColumns();
    /// Makes the entry of a column current.
    QListWidgetItem* column(const QString& name);
    template <class Widget>
    Widget* find(const char* name)
    {
        return m_window->findChild<Widget*>(QLatin1String(name));
    }
    UserSettings* settings() { return m_host->app()->settings(); }
    QStringList pages()
    {
        QStringList shown;
        const auto* list = find<QListWidget>("pageList");
        for (int i = 0; i < list->count(); ++i) {
            if (!list->item(i)->isHidden())
                shown << list->item(i)->text();
        }
        return shown;
    }

    HostBench m_bench;
    std::unique_ptr<Workstation> m_host;
    CVrkCliMod* m_journal = nullptr;
    CVrkCliMod* m_shown = nullptr; ///< the journal whose columns are examined
    SettingsWindow* m_window = nullptr;
};

void SettingsWindow_test::initTestCase()
{
    Options options;
    options.store = m_bench.url();
    options.user = QStringLiteral("ozerov");
    options.department = QStringLiteral("ЦДС");
    m_host = std::make_unique<Workstation>();
    QVERIFY2(m_host->enter(options), qPrintable(m_host->errorText()));
    m_journal = m_host->startModule(QStringLiteral("logbook"));
    QVERIFY(m_journal);
    m_shown = m_journal;
    QVERIFY(QTest::qWaitForWindowExposed(m_journal));
}

void SettingsWindow_test::cleanup()
{
    delete m_journal->findChild<SettingsWindow*>();
    for (const char* name : UserSettings::names())
        settings()->setValue(name, UserSettings::defaultValue(name));
}

SettingsWindow* SettingsWindow_test::open()
{
    m_host->showSettings(m_journal);
    m_window = m_journal->findChild<SettingsWindow*>();
    return m_window;
}

void SettingsWindow_test::itsKeyOpensOneWindow()
{
    m_journal->activateWindow();
    QApplication::setActiveWindow(m_journal);
    QTest::keyClick(m_journal, Qt::Key_Comma, Qt::ControlModifier);
    QTRY_COMPARE(m_journal->findChildren<SettingsWindow*>().size(), 1);
    QVERIFY(m_journal->findChild<SettingsWindow*>()->isVisible());
    open();
    QCOMPARE(m_journal->findChildren<SettingsWindow*>().size(), 1);
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Настройки"));
}

void SettingsWindow_test::theSearchFindsWordsInAnyForm_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("page");
    QTest::newRow("a word") << QStringLiteral("размер") << QStringLiteral("Вид");
    QTest::newRow("another form") << QStringLiteral("буквами") << QStringLiteral("Вид");
    QTest::newRow("two words") << QStringLiteral("ТЁМНЫЕ цвета") << QStringLiteral("Вид");
    QTest::newRow("not in the caption") << QStringLiteral("шрифты") << QStringLiteral("Вид");
    QTest::newRow("notices") << QStringLiteral("звуки") << QStringLiteral("Звук и сообщения");
    QTest::newRow("store") << QStringLiteral("серверы") << QStringLiteral("Хранилище");
    QTest::newRow("start") << QStringLiteral("запуск") << QStringLiteral("Запуск");
    QTest::newRow("columns") << QStringLiteral("столбец шире") << QStringLiteral("Столбцы");
    QTest::newRow("spelling") << QStringLiteral("опечатка") << QStringLiteral("Правописание");
    QTest::newRow("reports") << QStringLiteral("pdf") << QStringLiteral("Отчёты");
}

void SettingsWindow_test::theSearchFindsWordsInAnyForm()
{
    QFETCH(QString, query);
    QFETCH(QString, page);
    open();
    const int all = pages().size();
    find<QLineEdit>("searchEdit")->setText(query);
    QCOMPARE(pages(), QStringList{page});
    QCOMPARE(find<QListWidget>("pageList")->currentItem()->text(), page);
    find<QLineEdit>("searchEdit")->clear();
    QCOMPARE(pages().size(), all);
}

void SettingsWindow_test::theSearchSaysIfNothingIsFound()
{
    open();
    QVERIFY(!find<QLabel>("nothingLabel")->isVisible());
    find<QLineEdit>("searchEdit")->setText(QStringLiteral("кофеварка"));
    QVERIFY(find<QLabel>("nothingLabel")->isVisible());
    find<QLineEdit>("searchEdit")->clear();
    QVERIFY(!find<QLabel>("nothingLabel")->isVisible());
    QVERIFY(find<QSlider>("lettersSlider")->isVisible());
}

void SettingsWindow_test::lettersChangeOpenWindowsAtOnce()
{
    open();
    const auto* table = m_journal->findChild<QTableView*>(QStringLiteral("recordsTable"));
    const qreal before = table->font().pointSizeF();
    auto* slider = find<QSlider>("lettersSlider");
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_PageUp);
    QTest::keyClick(slider, Qt::Key_PageUp);
    QCOMPARE(find<QSpinBox>("lettersSpin")->value(), 150);
    QVERIFY(qAbs(table->font().pointSizeF() - before * 1.5) < 0.1);
    QVERIFY(qAbs(m_window->font().pointSizeF() - before * 1.5) < 0.1);
    for (const QLabel* label : m_journal->findChildren<QLabel*>()) {
        if (!label->styleSheet().isEmpty())
            QVERIFY2(label->font().pointSizeF() > before * 1.3, qPrintable(label->objectName()));
    }
    QCOMPARE(UserSettings().value(Setting::letters).toInt(), 150);
}

void SettingsWindow_test::usualLettersComeBackExactly()
{
    const QFont before = QApplication::font();
    for (int percent : {175, 125, 150, 100})
        settings()->setValue(Setting::letters, percent);
    QCOMPARE(QApplication::font(), before);
    QCOMPARE(Letters::current(), 100);
}

void SettingsWindow_test::coloursChangeAtOnceAndAreKept()
{
    open();
    auto* combo = find<QComboBox>("themeCombo");
    for (const QString& name : Theme::names()) {
        combo->setCurrentIndex(combo->findData(name));
        QCOMPARE(Theme::current(), name);
        UserSettings later;
        later.setUser(QStringLiteral("ozerov"));
        QCOMPARE(later.value(Setting::theme).toString(), name);
    }
    QCOMPARE(combo->count(), Theme::names().size());
}

void SettingsWindow_test::theKeyOfTheNightIsKeptForTheUser()
{
    open();
    settings()->setValue(Setting::theme, QStringLiteral("light"));
    m_journal->findChild<QAbstractButton*>(QStringLiteral("themeButton"))->click();
    QCOMPARE(Theme::current(), QStringLiteral("dark"));
    QCOMPARE(settings()->value(Setting::theme).toString(), QStringLiteral("dark"));
    QCOMPARE(find<QComboBox>("themeCombo")->currentData().toString(), QStringLiteral("dark"));
}

void SettingsWindow_test::changesCanBeTakenBack()
{
    settings()->setValue(Setting::letters, 110);
    open();
    find<QSpinBox>("lettersSpin")->setValue(160);
    find<QComboBox>("themeCombo")
        ->setCurrentIndex(find<QComboBox>("themeCombo")->findData(QStringLiteral("contrast")));
    find<QPushButton>("backButton")->click();
    QCOMPARE(settings()->value(Setting::letters).toInt(), 110);
    QCOMPARE(Theme::current(), QStringLiteral("system"));
    QCOMPARE(find<QSpinBox>("lettersSpin")->value(), 110);
}

void SettingsWindow_test::aPageReturnsToItsDefaults()
{
    settings()->setValue(Setting::letters, 110);
    settings()->setValue(Setting::reportFolder, m_bench.folder.path());
    open();
    find<QPushButton>("defaultsButton")->click();
    QCOMPARE(settings()->value(Setting::letters).toInt(), 100);
    QCOMPARE(settings()->reportFolder(), m_bench.folder.path()); // another page
}

void SettingsWindow_test::aReportFolderIsChosen()
{
    open();
    auto* page = m_window->findChild<ReportsPage*>();
    m_window->showPage(page);
    page->setFolderChooser([this](const QString&) { return m_bench.folder.path(); });
    find<QPushButton>("reportFolderButton")->click();
    QCOMPARE(settings()->reportFolder(), m_bench.folder.path());
    auto* edit = find<QLineEdit>("reportFolderEdit");
    QCOMPARE(edit->text(), m_bench.folder.path());
    QVERIFY(!find<QLabel>("reportFolderProblem")->isVisible());
    page->setFolderChooser([](const QString&) { return QString(); });
    find<QPushButton>("reportFolderButton")->click();
    QCOMPARE(settings()->reportFolder(), m_bench.folder.path());
    edit->setText(QStringLiteral("/nowhere"));
    QTest::keyClick(edit, Qt::Key_Return);
    QVERIFY(find<QLabel>("reportFolderProblem")->isVisible());
    QVERIFY(m_window->isVisible());
}

void SettingsWindow_test::quietHoursAreSet()
{
    open();
    auto* from = find<QTimeEdit>("noticesquietFromEdit");
    QVERIFY(!from->isEnabled());
    find<QCheckBox>("noticesquietBox")->setChecked(true);
    QVERIFY(from->isEnabled());
    from->setTime(QTime(21, 30));
    QCOMPARE(settings()->value(Setting::quietFrom).toString(), QStringLiteral("21:30"));
    find<QPushButton>("backButton")->click();
    QCOMPARE(from->time(), QTime(22, 0));
    QVERIFY(!from->isEnabled());
}

QStringList SettingsWindow_test::shownColumns()
{
    const QHeaderView* header = table()->horizontalHeader();
    QStringList names;
    for (int visual = 0; visual < header->count(); ++visual) {
        const int column = header->logicalIndex(visual);
        if (!header->isSectionHidden(column))
            names << header->model()->headerData(column, Qt::Horizontal).toString().simplified();
    }
    return names;
}

QListWidgetItem* SettingsWindow_test::column(const QString& name)
{
    auto* list = find<QListWidget>("columnList");
    const QList<QListWidgetItem*> items = list->findItems(name, Qt::MatchExactly);
    if (items.size() == 1)
        list->setCurrentItem(items[0]);
    return items.value(0);
}

void SettingsWindow_test::columnsOfTheJournalAreChosen()
{
    open();
    const QStringList all = shownColumns();
    QCOMPARE(find<QListWidget>("columnList")->count(), all.size());
    for (int i = 0; i < all.size(); ++i)
        QVERIFY(!find<QListWidget>("columnList")->item(i)->text().isEmpty());
    QVERIFY(column(QStringLiteral("Файлы")));
    column(QStringLiteral("Автор"))->setCheckState(Qt::Unchecked);
    QCOMPARE(shownColumns().size(), all.size() - 1);
    QVERIFY(!shownColumns().contains(QStringLiteral("Автор")));
    column(QStringLiteral("Текст"))->setCheckState(Qt::Unchecked);
    QVERIFY(shownColumns().contains(QStringLiteral("Текст")));
    find<QPushButton>("backButton")->click();
    QCOMPARE(shownColumns(), all);
    QCOMPARE(column(QStringLiteral("Автор"))->checkState(), Qt::Checked);
}

void SettingsWindow_test::columnsAreMovedAndKept()
{
    open();
    const QStringList all = shownColumns();
    column(QStringLiteral("Время записи"));
    find<QPushButton>("columnDownButton")->click();
    column(QStringLiteral("Автор"))->setCheckState(Qt::Unchecked);
    QStringList expected = all;
    expected.move(all.indexOf(QStringLiteral("Время записи")), all.indexOf(QStringLiteral("Время события")));
    expected.removeAll(QStringLiteral("Автор"));
    QCOMPARE(shownColumns(), expected);

    Options options;
    options.store = m_bench.url();
    options.user = QStringLiteral("ozerov");
    options.department = QStringLiteral("ЦДС");
    {
        Workstation second;
        QVERIFY(second.enter(options));
        m_shown = second.start();
        QCOMPARE(shownColumns(), expected);
    }
    m_shown = m_journal;
    m_window->showPage(m_window->findChild<ColumnsPage*>());
    find<QPushButton>("defaultsButton")->click();
    QCOMPARE(shownColumns(), all);
}

void SettingsWindow_test::widthsAreSetAndTakenBack()
{
    open();
    m_journal->resize(1500, 600);
    const auto authorWidth = [this] {
        const QAbstractItemModel* model = table()->model();
        for (int i = 0; i < model->columnCount(); ++i) {
            if (model->headerData(i, Qt::Horizontal).toString() == QStringLiteral("Автор"))
                return table()->columnWidth(i);
        }
        return -1;
    };
    const int before = authorWidth();
    column(QStringLiteral("Автор"));
    auto* width = find<QSpinBox>("columnWidthSpin");
    QCOMPARE(width->value(), 0);
    width->setValue(40);
    QCOMPARE(authorWidth(), 40 * table()->fontMetrics().averageCharWidth());
    column(QStringLiteral("Текст"));
    QVERIFY(!width->isEnabled());
    column(QStringLiteral("Автор"));
    QCOMPARE(width->value(), 40);
    find<QPushButton>("backButton")->click();
    QCOMPARE(authorWidth(), before);
    QCOMPARE(width->value(), 0);
}

void SettingsWindow_test::ownWordsAreRemoved()
{
    const QString login = QStringLiteral("ozerov");
    open();
    auto* words = find<QListWidget>("ownWordsList");
    QCOMPARE(words->count(), 0);
    SpellDictionary* dictionary = m_host->spelling()->dictionary();
    QVERIFY(dictionary->addOwnWord(QStringLiteral("телемех")));
    QVERIFY(QFile::exists(HostSettings::ownWordsFile(login)));
    QVERIFY(HostSettings::ownWordsFile(login).startsWith(m_bench.folder.path()));
    QCOMPARE(words->count(), 1);
    words->setCurrentRow(0);
    find<QPushButton>("removeWordButton")->click();
    QCOMPARE(words->count(), 0);
    QCOMPARE(dictionary->ownWords(), QStringList());
}

void SettingsWindow_test::withoutADictionaryThePageSaysSo()
{
    open();
    QVERIFY(find<QCheckBox>("spellingBox")->isEnabled());
    delete m_window;
    qputenv("XDG_DATA_DIRS", m_bench.folder.path().toLocal8Bit());
    open();
    qunsetenv("XDG_DATA_DIRS");
    auto* box = find<QCheckBox>("spellingBox");
    QVERIFY(!box->isEnabled());
    QVERIFY(box->accessibleDescription().contains(QStringLiteral("hunspell-ru")));
}

void SettingsWindow_test::chosenModulesStart()
{
    open();
    auto* archive = find<QCheckBox>("start_archive");
    QVERIFY(find<QCheckBox>("start_logbook")->isChecked());
    QVERIFY(!find<QCheckBox>("start_converter")); // this user may not open it
    archive->setChecked(true);
    Options options;
    options.store = m_bench.url();
    options.user = QStringLiteral("ozerov");
    options.department = QStringLiteral("ЦДС");
    Workstation second;
    QVERIFY(second.enter(options));
    const CVrkCliMod* first = second.start();
    QCOMPARE(first, second.module(QStringLiteral("logbook")));
    QVERIFY(second.module(QStringLiteral("archive")));
    options.module = QStringLiteral("archive"); // the command line is stronger
    Workstation third;
    QVERIFY(third.enter(options));
    first = third.start();
    QCOMPARE(first, third.module(QStringLiteral("archive")));
    QVERIFY(!third.module(QStringLiteral("logbook")));
}

void SettingsWindow_test::withoutAChoiceTheJournalStarts_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("unknown") << QStringList{QStringLiteral("coffee")};
    QTest::newRow("not allowed") << QStringList{QStringLiteral("converter")};
    QTest::newRow("of a record") << QStringList{QStringLiteral("history")};
}

void SettingsWindow_test::withoutAChoiceTheJournalStarts()
{
    QFETCH(QStringList, names);
    QSettings().setValue(QStringLiteral("users/ozerov/start.modules"), names);
    Options options;
    options.store = m_bench.url();
    options.user = QStringLiteral("ozerov");
    options.department = QStringLiteral("ЦДС");
    Workstation second;
    QVERIFY(second.enter(options));
    QVERIFY(second.start());
    QVERIFY(second.module(QStringLiteral("logbook")));
}

void SettingsWindow_test::anotherStoreIsOpened()
{
    const QString other = m_bench.url(QStringLiteral("other.sqlite"));
    QVERIFY(QFile::copy(m_bench.path(QStringLiteral("store.sqlite")),
                        m_bench.path(QStringLiteral("other.sqlite"))));
    Options options;
    options.store = m_bench.url();
    options.user = QStringLiteral("ozerov");
    options.department = QStringLiteral("ЦДС");
    Workstation second;
    QVERIFY(second.enter(options));
    const QPointer<CVrkCliMod> former = second.start();
    second.setStoreChooser([](QWidget*) { return QString(); });
    second.changeStore();
    QVERIFY(former);
    second.setStoreChooser([other](QWidget*) { return other; });
    second.showSettings(former);
    HostBench::whenShown<SignInDialog>([](QDialog* dialog) { dialog->accept(); });
    former->findChild<QPushButton*>(QStringLiteral("otherStoreButton"))->click();
    QTRY_VERIFY(!former);
    QTRY_VERIFY(second.module(QStringLiteral("logbook")));
    QCOMPARE(second.storeAddress(), other);
}

void SettingsWindow_test::aStoreThatFailsIsAskedForAgain()
{
    Options options;
    options.store = m_bench.url();
    options.user = QStringLiteral("ozerov");
    options.department = QStringLiteral("ЦДС");
    Workstation second;
    QVERIFY(second.enter(options));
    QVERIFY(second.start());
    bool isAsked = false;
    second.setStoreChooser([this](QWidget*) { return m_bench.url(QStringLiteral("missing.sqlite")); });
    HostBench::whenShown<StoreDialog>([&isAsked](StoreDialog* dialog) {
        isAsked = dialog->findChild<QLabel*>(QStringLiteral("noticeLabel"))->isVisible();
        static_cast<QDialog*>(dialog)->reject();
    });
    const QSignalSpy left(&second, &Workstation::left);
    second.changeStore();
    QVERIFY(isAsked);
    QCOMPARE(left.size(), 1);
    QCOMPARE(second.errorText(), QString());
}

void SettingsWindow_test::explanationsAreLegible_data()
{
    QTest::addColumn<QString>("theme");
    for (const QString& name : Theme::names())
        QTest::newRow(qPrintable(name)) << name;
}

void SettingsWindow_test::explanationsAreLegible()
{
    QFETCH(QString, theme);
    settings()->setValue(Setting::theme, theme);
    open();
    for (const QLabel* label : m_window->findChildren<QLabel*>()) {
        const double found = Contrast::between(label->palette().color(label->foregroundRole()),
                                               label->palette().color(label->backgroundRole()));
        QVERIFY2(found >= Contrast::forTexts, qPrintable(label->text() + QString::number(found)));
    }
}

void SettingsWindow_test::nothingIsCutOffInASmallScreen_data()
{
    QTest::addColumn<int>("letters");
    for (int percent : {100, 150, 175})
        QTest::addRow("%d", percent) << percent;
}

void SettingsWindow_test::nothingIsCutOffInASmallScreen()
{
    QFETCH(int, letters);
    settings()->setValue(Setting::letters, letters);
    open();
    auto* list = find<QListWidget>("pageList");
    for (int i = 0; i < list->count(); ++i) {
        list->setCurrentRow(i);
        m_window->resize(1000, 600);
        QCoreApplication::processEvents();
        QVERIFY(list->viewport()->width() >= list->sizeHintForColumn(0));
        for (QWidget* widget : m_window->findChildren<QWidget*>()) {
            const bool isText = qobject_cast<QLabel*>(widget) || qobject_cast<QAbstractButton*>(widget);
            if (!widget->isVisible() || !isText || qobject_cast<QLineEdit*>(widget->parentWidget()))
                continue;
            QVERIFY2(widget->width() >= widget->minimumSizeHint().width() &&
                         widget->height() >= widget->minimumSizeHint().height(),
                     qPrintable(widget->objectName()));
        }
    }
}

void SettingsWindow_test::unwrittenSettingsAreSaid()
{
    open();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/proc/1/nothing"));
    find<QSpinBox>("lettersSpin")->setValue(120);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_bench.folder.path());
    QVERIFY(find<QLabel>("failureLabel")->isVisible());
    QCOMPARE(Letters::current(), 120);
    find<QSpinBox>("lettersSpin")->setValue(130);
    QVERIFY(!find<QLabel>("failureLabel")->isVisible());
}

QTEST_MAIN(SettingsWindow_test)
#include "SettingsWindow_test.moc"
