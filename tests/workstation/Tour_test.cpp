#include "ExpectedWarning.h"
#include "Tour.h"

#include "CMDArray.h"
#include "CVrkCliApp.h"
#include "CVrkCliSes.h"
#include "HostBench.h"
#include "SignIn.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

/// The tour plays the night of the story with keys and clicks, and produces a page and two valid stores.
class Tour_test : public QObject
{
    Q_OBJECT

private slots:
    void theWholeShiftIsPlayed()
    {
        expectWarning(QStringLiteral("исчез"), 2);
        QApplication::setQuitOnLastWindowClosed(false);
        const QTemporaryDir folder(testFolderTemplate());
        QFile::setPermissions(folder.path(), QFile::Permissions(0x7777));
        Tour tour(folder.path());
        QVERIFY2(tour.play(), qPrintable(tour.errorText()));

        QFile page(folder.filePath(QStringLiteral("index.html")));
        QVERIFY(page.open(QIODevice::ReadOnly));
        const QString html = QString::fromUtf8(page.readAll());
        const int scenes = html.count(QStringLiteral("<figure>"));
        QVERIFY(scenes >= 30);
        const QStringList pictures = QDir(folder.path()).entryList({QStringLiteral("*.png")});
        QCOMPARE(pictures.size(), 2 * scenes);
        for (const QString& picture : pictures)
            QVERIFY2(html.contains(picture), qPrintable(picture));
        QVERIFY(tour.summary().contains(QStringLiteral("Хранилище в порядке")));
        QVERIFY(
            !html.contains(QRegularExpression(QStringLiteral("img \\{[^}]*[^-]width:")))); // none is scaled

        // Who handed the shift over, who took it over, and who works in the next one: in both stores.
        for (const char* theme : {"light", "dark"}) {
            CVrkCliApp app;
            SignIn signIn;
            const QString file = folder.filePath(QLatin1String(theme) + QStringLiteral(".sqlite"));
            QVERIFY(signIn.open(QStringLiteral("sqlite://") + file) &&
                    signIn.signIn(QStringLiteral("gorin")) && signIn.enter(&app, QByteArray()));
            const auto count = [&app](const char* sql) {
                CMDArray rows;
                rows = app.session()->SqlRequest(sql);
                return rows.RecCount();
            };
            QCOMPARE(
                count("SELECT C.KeyLink FROM LogbookWorkersWorkshift C, LogbookWorkshifts S, Workers W WHERE "
                      "C.opening = 0 AND S.KeyLink = C.WorkshiftKey AND W.KeyLink = S.CloseWorkerKey AND "
                      "W.lastName = 'Озеров' AND C.WorkerKey IN (SELECT KeyLink FROM Workers WHERE lastName "
                      "IN ('Горин', 'Ручьёва')) AND S.endTime = (SELECT max(endTime) FROM LogbookWorkshifts "
                      "WHERE CloseWorkerKey = S.CloseWorkerKey)"),
                2);
            QCOMPARE(
                count("SELECT C.KeyLink FROM LogbookWorkersWorkshift C, LogbookWorkshifts S, Workers W WHERE "
                      "C.opening = 1 AND S.KeyLink = C.WorkshiftKey AND S.CloseWorkerKey IS NULL AND "
                      "W.KeyLink = "
                      "S.OpenWorkerKey AND W.lastName = 'Горин'"),
                2);
        }
    }
};

QTEST_MAIN(Tour_test)
#include "Tour_test.moc"
