#include "DirectoryWindow.h"
#include "SheetImport.h"
#include "SheetPage.h"
#include "TestStore.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

/// How long the window of the reference data takes with 10,000 people.
class DirectoryFigures_test : public QObject
{
    Q_OBJECT

private slots:
    void tenThousandPeople();
};

namespace
{
constexpr int people = 10000;
constexpr qint64 limitMs = 20000; // of one step, for a loaded machine with sanitizers
} // namespace

void DirectoryFigures_test::tenThousandPeople()
{
    TestStore store;
    StoreError error;
    {
        const auto loader = store.openLoader();
        QVector<QStringList> rows{
            {QStringLiteral("Подразделение"), QStringLiteral("Фамилия"), QStringLiteral("Имя")}};
        for (int i = 0; i < people; ++i)
            rows << QStringList{QStringLiteral("ЦДС"), QStringLiteral("Фамилия%1").arg(i),
                                QStringLiteral("Имя")};
        SheetImport import(loader.get());
        QVERIFY(import.take(Sheets::of("Workers"), rows));
        QVERIFY(import.compare(&error) && import.write(&error));
    }
    const auto figure = [](const char* what, qint64 ms) {
        qInfo("%s: %lld ms", what, static_cast<long long>(ms));
        QVERIFY2(ms < limitMs, what);
    };
    DirectoryWindow window(store.openLoader(), store.url());
    QElapsedTimer timer;
    timer.start();
    QVERIFY(window.load(&error));
    window.show();
    QCoreApplication::processEvents();
    figure("open", timer.restart());

    SheetPage* page = window.page("Workers");
    page->findChild<QLineEdit*>(QStringLiteral("search"))->setText(QStringLiteral("Фамилия77"));
    QCOMPARE(page->table()->model()->rowCount(), 111);
    figure("search", timer.restart());
    page->findChild<QLineEdit*>(QStringLiteral("search"))->clear();

    SheetModel* model = page->model();
    timer.restart();
    model->setData(model->index(people / 2, 2), QStringLiteral("Другое"));
    window.draft()->check(store.openLoader().get());
    figure("check one edit", timer.restart());
    for (int i = 0; i < model->rowCount(); ++i)
        model->setData(model->index(i, 5), QStringLiteral("3"));
    figure("edit 10,000 cells", timer.restart());
    const auto loader = store.openLoader();
    timer.restart();
    QVERIFY(window.draft()->check(loader.get()).isEmpty());
    figure("check 10,000 edits", timer.restart());
    DirectoryDraft::Meanwhile meanwhile;
    QVERIFY(window.draft()->look(loader.get(), &meanwhile, &error));
    QCOMPARE(meanwhile.rows, 0);
    figure("look for others", timer.restart());
    DirectoryDraft::Outcome outcome;
    QVERIFY(window.draft()->save(loader.get(), store.url(), &outcome, &error));
    figure("save 10,000 edits", timer.restart());
    QCOMPARE(store.value(QStringLiteral("SELECT count(*) FROM Workers WHERE safetyGroup = 3")).toInt(),
             model->rowCount());
}

QTEST_MAIN(DirectoryFigures_test)
#include "DirectoryFigures_test.moc"
