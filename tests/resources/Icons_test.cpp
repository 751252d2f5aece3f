#include <algorithm>
#include <cmath>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QMovie>
#include <QTest>

namespace
{
QStringList icons()
{
    return QStringLiteral(
               "time organization employee workshift department down-arrow info clock_blue hour_glass clock "
               "home one copy report close up-arrow apply ellipsis add draft template time_settings search "
               "save arrow_left printer deleted direction star paste readed edited folder clear two comment "
               "delete affix preview arrow_right add_blue sign")
        .split(QLatin1Char(' '));
}

QStringList markers()
{
    return QStringLiteral("thunder_red worker_blue worker_red exclamation_mark arrow_up_blue arrow_down_red "
                          "thunder_blue")
        .split(QLatin1Char(' '));
}

/// Signs that modules and host share.
QStringList sharedIcons()
{
    return QStringLiteral("add apply folder template edited search up-arrow down-arrow copy paste")
        .split(QLatin1Char(' '));
}

QStringList hostIcons()
{
    return QStringLiteral("connected disconnected warning error question information now pin user type "
                          "organization department remove cancel")
               .split(QLatin1Char(' ')) +
           sharedIcons();
}

QStringList all()
{
    QStringList paths;
    for (const QString& name : icons())
        paths << QStringLiteral(":/icons/") + name;
    for (const QString& name : markers())
        paths << QStringLiteral(":/markers/") + name;
    for (const QString& name : hostIcons())
        paths << QStringLiteral(":/vrk/") + name;
    return paths;
}

void paths()
{
    QTest::addColumn<QString>("path");
    for (const QString& path : all())
        QTest::newRow(qPrintable(path)) << path;
}

double luminance(QRgb color)
{
    const auto linear = [](int channel) {
        const double value = channel / 255.0;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

double contrast(QRgb one, QRgb other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QRgb over(QRgb ink, QRgb ground)
{
    const auto mix = [&](int a, int b) { return (a * qAlpha(ink) + b * (255 - qAlpha(ink))) / 255; };
    return qRgb(mix(qRed(ink), qRed(ground)), mix(qGreen(ink), qGreen(ground)),
                mix(qBlue(ink), qBlue(ground)));
}
} // namespace

class Icons_test : public QObject
{
    Q_OBJECT

private slots:
    void isThereAtBothScales_data() { paths(); }
    void isThereAtBothScales()
    {
        QFETCH(QString, path);
        QCOMPARE(QImage(path + QStringLiteral(".png")).size(), QSize(24, 24));
        QCOMPARE(QImage(path + QStringLiteral("@2x.png")).size(), QSize(48, 48));
    }

    void commonPrefixesHaveNoOtherResources()
    {
        QCOMPARE(QDir(QStringLiteral(":/icons")).entryList().size(), 2 * icons().size());
        QCOMPARE(QDir(QStringLiteral(":/markers")).entryList().size(), 2 * markers().size());
    }

    void isVisibleInLightAndDarkThemes_data() { paths(); }
    void isVisibleInLightAndDarkThemes()
    {
        QFETCH(QString, path);
        const QImage image = QImage(path + QStringLiteral(".png")).convertToFormat(QImage::Format_ARGB32);
        for (QRgb ground : {qRgb(0xff, 0xff, 0xff), qRgb(0x23, 0x26, 0x29)}) {
            int strokes = 0;
            double sum = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    if (qAlpha(image.pixel(x, y)) >= 192) {
                        ++strokes;
                        sum += contrast(over(image.pixel(x, y), ground), ground);
                    }
            QVERIFY2(strokes >= 12, qPrintable(QString::number(strokes)));
            QVERIFY2(sum / strokes >= 3.0, qPrintable(QString::number(sum / strokes)));
        }
    }

    void isKnownByItsShapeWithoutColour()
    {
        QVector<QImage> shapes;
        QStringList names = all();
        names.removeOne(QStringLiteral(":/vrk/information"));  // shared with the info of the tool bar
        names.removeOne(QStringLiteral(":/vrk/warning"));      // shared with the marker of an accident
        names.removeOne(QStringLiteral(":/vrk/organization")); // shared by modules and host
        names.removeOne(QStringLiteral(":/vrk/department"));
        for (const QString& name : sharedIcons())
            names.removeOne(QStringLiteral(":/vrk/") + name);
        for (const QString& path : names)
            shapes << QImage(path + QStringLiteral(".png")).convertToFormat(QImage::Format_Alpha8);
        for (int a = 0; a < shapes.size(); ++a)
            for (int b = a + 1; b < shapes.size(); ++b) {
                int different = 0;
                for (int y = 0; y < 24; ++y)
                    for (int x = 0; x < 24; ++x)
                        if (std::abs(shapes[a].constScanLine(y)[x] - shapes[b].constScanLine(y)[x]) >= 128)
                            ++different;
                QVERIFY2(different >= 10, qPrintable(names[a] + QLatin1Char(' ') + names[b]));
            }
    }

    void loaderMoves()
    {
        QMovie movie(QStringLiteral(":/gifs/loader.gif"));
        QVERIFY(movie.isValid());
        QCOMPARE(movie.frameCount(), 12);
        QVERIFY(movie.jumpToFrame(0));
        const QImage first = movie.currentImage();
        QVERIFY(movie.jumpToFrame(1));
        QVERIFY(!first.isNull());
        QVERIFY(first != movie.currentImage());
        QCOMPARE(first.pixelColor(96, 96).alpha(), 0);
    }

    void applicationHasItsIconInTheSizesOfDesktops()
    {
        QCOMPARE(QImage(QStringLiteral(":/vrk/app.png")).size(), QSize(64, 64));
        QCOMPARE(QImage(QStringLiteral(":/vrk/app@2x.png")).size(), QSize(128, 128));
        for (int size : {16, 24, 32, 48, 256})
            QCOMPARE(QImage(QStringLiteral(":/vrk/app_%1.png").arg(size)).size(), QSize(size, size));
    }
};

QTEST_MAIN(Icons_test)
#include "Icons_test.moc"
