#include "AccessibleWindow.h"
#include "DirectoryWindow.h"
#include "SaveDialog.h"
#include "SheetPage.h"
#include "TestStore.h"
#include "Theme.h"
#include "WindowContrast.h"

#include <QAction>
#include <QDir>
#include <QTableView>

/// The window of the reference data for users who see badly or have no mouse, in each theme and size of letters. With
/// VRK_PICTURES=FOLDER it leaves pictures there.
class DirectoryLook_test : public QObject, private WindowContrast, private AccessibleWindow
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void textsAreLegible_data();
    void textsAreLegible();
    void keysReachEverything();
    void largeLettersFit();

private:
    void edit();
    DirectoryDraft::Meanwhile conflict();
    static void keep(QWidget* window, const QString& name);

    QFont m_font;
    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<DirectoryWindow> m_window;
};

void DirectoryLook_test::init()
{
    m_font = QApplication::font();
    m_store = std::make_unique<TestStore>();
    m_window = std::make_unique<DirectoryWindow>(m_store->openLoader(), m_store->url());
    StoreError error;
    QVERIFY(m_window->load(&error));
}

void DirectoryLook_test::cleanup()
{
    m_window.reset();
    m_store.reset();
    QApplication::setFont(m_font);
    Theme::apply(QStringLiteral("light"));
}

void DirectoryLook_test::keep(QWidget* window, const QString& name)
{
    const QString folder = qEnvironmentVariable("VRK_PICTURES");
    if (!folder.isEmpty())
        QVERIFY(window->grab().save(QDir(folder).filePath(name + QStringLiteral(".png"))));
}

/// A changed row, a new one, a retired one, a fault.
void DirectoryLook_test::edit()
{
    SheetModel* workers = m_window->page("Workers")->model();
    const auto set = [workers](const QByteArray& key, int column, const char* text) {
        workers->setData(workers->index(workers->find(key), column), QString::fromUtf8(text));
    };
    set("WORKER_IVANOV", 5, "4");
    const QByteArray key = workers->append();
    set(key, 0, "ЦДС");
    set(key, 1, "Орлова");
    set(key, 2, "Анна");
    QVERIFY(workers->discard({"WORKER_SIDOROVA"}));
    set("WORKER_PETROV", 5, "9");
    m_window->findChild<QAction*>(QStringLiteral("nextFault"))->trigger();
}

DirectoryDraft::Meanwhile DirectoryLook_test::conflict()
{
    SheetModel* workers = m_window->page("Workers")->model();
    DirectoryDraft::Meanwhile meanwhile;
    meanwhile.rows = 1;
    meanwhile.conflicts.append({workers, "WORKER_IVANOV", 5, QStringLiteral("2")});
    return meanwhile;
}

void DirectoryLook_test::textsAreLegible_data()
{
    themes();
}

void DirectoryLook_test::textsAreLegible()
{
    QFETCH(QString, theme);
    QVERIFY(Theme::apply(theme));
    m_window->resize(1280, 720);
    m_window->show();
    edit();
    int measured = 0;
    QStringList found = WindowContrast::faults(m_window.get(), &measured);
    keep(m_window.get(), theme);
    QTableView* table = m_window->page("Workers")->table();
    for (const int column : {0, 1}) { // a list and a line
        table->edit(table->currentIndex().sibling(table->currentIndex().row(), column));
        found += WindowContrast::faults(m_window.get(), &measured);
        keep(m_window.get(), QStringLiteral("%1-editor-%2").arg(theme).arg(column));
        m_window->page("Workers")->commit();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    auto* names = m_window->findChild<QListWidget*>(QStringLiteral("sheets"));
    for (int page = 1; page < names->count(); ++page) {
        names->setCurrentRow(page);
        found += WindowContrast::faults(m_window.get(), &measured);
        keep(m_window.get(), QStringLiteral("%1-%2").arg(theme).arg(page));
    }
    SaveDialog save(*m_window->draft(), QStringLiteral("Пока вы правили, другие изменили строк: 2."),
                    nullptr);
    ConflictDialog conflicts(conflict(), nullptr);
    for (QDialog* dialog : {static_cast<QDialog*>(&save), static_cast<QDialog*>(&conflicts)}) {
        dialog->show();
        found += WindowContrast::faults(dialog, &measured);
        keep(dialog, theme + QLatin1Char('-') + dialog->objectName());
    }
    WindowContrast::compare(found, measured, 150);
}

void DirectoryLook_test::keysReachEverything()
{
    m_window->show();
    edit();
    QStringList found = AccessibleWindow::faults(m_window.get());
    SaveDialog save(*m_window->draft(), QString(), nullptr);
    ConflictDialog conflicts(conflict(), nullptr);
    found += AccessibleWindow::faults(&save);
    found += AccessibleWindow::faults(&conflicts);
    AccessibleWindow::compare(found);
}

/// With letters of 150 % everything is on a screen of 1280x720.
void DirectoryLook_test::largeLettersFit()
{
    QFont font = m_font;
    font.setPointSizeF(font.pointSizeF() * 1.5);
    QApplication::setFont(font);
    m_window = std::make_unique<DirectoryWindow>(m_store->openLoader(), m_store->url());
    StoreError error;
    QVERIFY(m_window->load(&error));
    m_window->show();
    edit();
    m_window->resize(1280, 680);
    QCoreApplication::processEvents();
    QCOMPARE(m_window->size(), QSize(1280, 680));
    const auto* names = m_window->findChild<QListWidget*>(QStringLiteral("sheets"));
    QVERIFY(names->sizeHintForColumn(0) <= names->viewport()->width());
    keep(m_window.get(), QStringLiteral("large"));
    SaveDialog save(*m_window->draft(), QString(), nullptr);
    save.show();
    QVERIFY(save.width() <= 1280 && save.height() <= 680);
    keep(&save, QStringLiteral("large-save"));
}

QTEST_MAIN(DirectoryLook_test)
#include "DirectoryLook_test.moc"
