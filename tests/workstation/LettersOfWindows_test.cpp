#include "CPopTemplate.h"
#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "HostBench.h"
#include "Options.h"
#include "UserSettings.h"
#include "Workstation.h"

#include <QComboBox>
#include <QStyle>
#include <QTest>

/// The letters of the settings in every window: all texts grow with them.
class LettersOfWindows_test : public QObject
{
    Q_OBJECT

private:
    using Sizes = QHash<QWidget*, double>;

    static QString described(const QWidget* widget)
    {
        return QStringLiteral("%1: %2(%3)")
            .arg(QString::fromLatin1(widget->window()->metaObject()->className()), widget->objectName(),
                 QString::fromLatin1(widget->metaObject()->className()));
    }
    static Sizes sizesOf(const QVector<QWidget*>& windows)
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
        Sizes sizes;
        for (QWidget* window : windows)
            for (QWidget* widget : window->findChildren<QWidget*>())
                if (!widget->inherits("QTableCornerButton")) // has no text
                    sizes.insert(widget, QFontInfo(widget->font()).pixelSize());
        return sizes;
    }

    CVrkCliMod* start(const char* name)
    {
        CVrkCliMod* module = m_host->startModule(QString::fromLatin1(name));
        if (!module)
            qFatal("%s", qPrintable(m_host->errorText()));
        return module;
    }

    std::unique_ptr<HostBench> m_bench;
    std::unique_ptr<Workstation> m_host;

private slots:
    void init()
    {
        m_bench = std::make_unique<HostBench>();
        Options options;
        options.store = m_bench->url();
        options.user = QStringLiteral("admin");
        options.department = QStringLiteral("ЦДС");
        m_host = std::make_unique<Workstation>();
        QVERIFY2(m_host->enter(options), qPrintable(m_host->errorText()));
    }
    void cleanup()
    {
        m_host.reset();
        m_bench.reset();
    }

    void allTextsGrowAndShrink()
    {
        QVector<QWidget*> windows;
        for (const char* name : {"logbook", "template", "converter", "unfinished", "archive", "bookmarks",
                                 "history", "past", "statistics"}) {
            CVrkCliMod* module = start(name);
            windows.append(module);
            for (auto* dialog : module->findChildren<CPopTemplate*>())
                windows.append(dialog);
        }
        UserSettings* settings = static_cast<CVrkCliMod*>(windows.constFirst())->app()->settings();
        const Sizes usual = sizesOf(windows);
        settings->setValue(Setting::letters, 150);
        const Sizes large = sizesOf(windows);
        QStringList found;
        for (auto it = usual.cbegin(); it != usual.cend(); ++it)
            if (large.contains(it.key()) && large.value(it.key()) < 1.35 * it.value())
                found << described(it.key());
        QCOMPARE(found, QStringList());
        settings->setValue(Setting::letters, 100);
        const Sizes again = sizesOf(windows);
        for (auto it = usual.cbegin(); it != usual.cend(); ++it)
            if (again.contains(it.key()) && again.value(it.key()) != it.value())
                found << described(it.key());
        QCOMPARE(found, QStringList());
        QVERIFY(usual.size() > 500);
    }

    void timesOfAShiftAreReadWhole_data()
    {
        QTest::addColumn<int>("letters");
        QTest::newRow("usual") << 100;
        QTest::newRow("half as large again") << 150;
    }
    void timesOfAShiftAreReadWhole()
    {
        QFETCH(int, letters);
        CVrkCliMod* past = start("past");
        past->app()->settings()->setValue(Setting::letters, letters);
        past->resize(1280, 720);
        QVERIFY(QTest::qWaitForWindowExposed(past));
        auto* shifts = past->findChild<QComboBox*>(QStringLiteral("shiftCombo"));
        QVERIFY(shifts->isVisible() && shifts->count() > 0);
        QStyleOptionComboBox option;
        option.initFrom(shifts);
        const QRect room = shifts->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                           QStyle::SC_ComboBoxEditField, shifts);
        for (int i = 0; i < qMin(shifts->count(), 20); ++i)
            QVERIFY2(shifts->fontMetrics().horizontalAdvance(shifts->itemText(i)) <= room.width(),
                     qPrintable(shifts->itemText(i)));
    }
};

QTEST_MAIN(LettersOfWindows_test)
#include "LettersOfWindows_test.moc"
