#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "ExpectedWarning.h"

#include <cstring>
#include <QSignalSpy>
#include <QTest>

namespace
{
/// Position of a virtual function in the table of its class: a pointer to it contains the offset plus one.
template <typename Operation>
std::ptrdiff_t place(Operation operation)
{
    std::ptrdiff_t offset = 0;
    std::memcpy(&offset, &operation, sizeof offset);
    return (offset - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}
} // namespace

class CVrkCliModTest : public QObject
{
    Q_OBJECT

private slots:
    void theBaseClassHasPlainDefaults();
    void virtualFunctionsKeepTheirOrder();
    void parametersAreKept();
    void theTitleIsReturnedAndShown();
    void theEditStateAddsAStarToTheTitle();
    void withoutAGuardWindowsClose();
    void theGuardDecidesWhetherAWindowCloses();
    void logLinesGoToTheSink();
    void withoutASinkLogLinesGoToTheMessageLog();
    void aDeletedLogSinkIsForgotten();
    void iconsAreFoundByPathAndByName();
    void errorsAreLoggedUnderTheNameOfTheModule();
    void unreadCommentsAreReportedOnce();
    void iconNamesLeadToNoOtherFolder();
    void theModuleStyleKeepsColoursAndFonts();

private:
    struct Sink : CVrkCliMod {
        using CVrkCliMod::CVrkCliMod;
        QStringList lines;
        void LogFile(int level, QString func, QString text) override
        {
            lines.append(QStringLiteral("%1 %2 %3").arg(level).arg(func, text));
        }
    };
    CVrkCliApp app;
};

void CVrkCliModTest::theBaseClassHasPlainDefaults()
{
    CVrkCliMod module(&app);
    QVERIFY(module.ModuleStart());
    module.ModuleStop();
    QCOMPARE(module.MessageOn(), 0);
    QCOMPARE(module.MessageData(nullptr), 0);
    QCOMPARE(module.SetParamCommand(QStringLiteral("x")), 0);
    QCOMPARE(module.SetParamProfile(QStringLiteral("x")), 0);
    QCOMPARE(module.GetParamProfile(), QString());
    module.SetParamState(QStringLiteral("x"));
    QCOMPARE(module.GetParamState(), QString());
    QCOMPARE(module.GetAlarmsList(), QVariantList());
    module.ParentResizeOn(1, 1);
    module.AppIdleEvent();
    module.ModSesReconnect();
    module.ModDataEditPost();
    module.ModDataEditCancel();
    module.slot_modNotify(QString(), QVariant());
    module.slot_toolFinished();
    module.slot_popMessageBoxClicked(nullptr);
    module.slot_endRestructure();
    QVERIFY(!module.isEdit());
}

void CVrkCliModTest::virtualFunctionsKeepTheirOrder()
{
    // Plug-ins call them by position.
    const std::ptrdiff_t first = place(&CVrkCliMod::LogFile);
    const QVector<std::ptrdiff_t> places{
        place(&CVrkCliMod::LogFile),
        place(&CVrkCliMod::ModuleStart),
        place(&CVrkCliMod::ModuleStop),
        place(&CVrkCliMod::MessageOn),
        place(&CVrkCliMod::MessageData),
        place(&CVrkCliMod::SetError),
        place(&CVrkCliMod::SetParamMod),
        place(&CVrkCliMod::GetParamMod),
        place(&CVrkCliMod::SetParamCommand),
        place(&CVrkCliMod::SetParamProfile),
        place(&CVrkCliMod::GetParamProfile),
        place(&CVrkCliMod::SetParamState),
        place(&CVrkCliMod::GetParamState),
        place(&CVrkCliMod::ParentResizeOn),
        place(&CVrkCliMod::GetAlarmsList),
        place(&CVrkCliMod::AppIdleEvent),
        place(&CVrkCliMod::ModSesReconnect),
        place(&CVrkCliMod::ModDataEditPost),
        place(&CVrkCliMod::ModDataEditCancel),
        place(&CVrkCliMod::slot_modNotify),
        place(&CVrkCliMod::slot_toolFinished),
        place(&CVrkCliMod::slot_popMessageBoxClicked),
        place(&CVrkCliMod::slot_endRestructure),
    };
    for (int i = 0; i < places.size(); ++i)
        QCOMPARE(places[i], first + i);
    QCOMPARE(first, place(&CVrkCliMod::createPopupMenu) + 1);
}

void CVrkCliModTest::parametersAreKept()
{
    CVrkCliMod module(&app);
    module.SetParamMod(QStringLiteral("name"), QStringLiteral("value"));
    QString value;
    module.GetParamMod(QStringLiteral("name"), value);
    QCOMPARE(value, QStringLiteral("value"));
    module.GetParamMod(QStringLiteral("other"), value);
    QCOMPARE(value, QString());
}

void CVrkCliModTest::theTitleIsReturnedAndShown()
{
    CVrkCliMod module(&app);
    QSignalSpy spy(&module, &CVrkCliMod::titleChanged);
    module.SetModTitle(QStringLiteral("Оперативный журнал"), QString());
    QCOMPARE(spy.at(0), (QVariantList{QStringLiteral("Оперативный журнал"), QString()}));
    QCOMPARE(module.moduleTitle(), QStringLiteral("Оперативный журнал"));
    QCOMPARE(module.windowTitle(), QStringLiteral("Оперативный журнал[*]"));
    module.SetModTitle(QStringLiteral("Журнал"), QStringLiteral("ЦДС"));
    QCOMPARE(module.windowTitle(), QStringLiteral("Журнал – ЦДС[*]"));
}

void CVrkCliModTest::theEditStateAddsAStarToTheTitle()
{
    CVrkCliMod module(&app);
    module.SetModTitle(QStringLiteral("Журнал"), QString());
    QSignalSpy spy(&module, &CVrkCliMod::editStateChanged);
    module.SetIsEdit(true);
    QVERIFY(module.isEdit());
    QVERIFY(module.isWindowModified());
    module.SetIsEdit(true);
    QCOMPARE(spy.count(), 1);
    module.SetIsEdit(false);
    QVERIFY(!module.isEdit());
    QVERIFY(!module.isWindowModified());
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1).at(0).toBool(), false);
}

void CVrkCliModTest::withoutAGuardWindowsClose()
{
    expectWarning(QStringLiteral("does not contain a '[*]'"));
    CVrkCliMod module(&app);
    module.SetIsEdit(true);
    QSignalSpy closed(&module, &CVrkCliMod::closed);
    module.show();
    QVERIFY(module.close());
    QVERIFY(!module.isVisible());
    QCOMPARE(closed.count(), 1);
}

void CVrkCliModTest::theGuardDecidesWhetherAWindowCloses()
{
    expectWarning(QStringLiteral("does not contain a '[*]'"));
    CVrkCliApp guarded;
    CVrkCliMod module(&guarded);
    CVrkCliMod* asked = nullptr;
    guarded.setCloseGuard([&asked](CVrkCliMod* one) {
        asked = one;
        return !one->isEdit();
    });
    QSignalSpy closed(&module, &CVrkCliMod::closed);
    module.show();
    module.SetIsEdit(true);
    QVERIFY(!module.close());
    QCOMPARE(asked, &module);
    QVERIFY(module.isVisible());
    QCOMPARE(closed.count(), 0);
    module.SetIsEdit(false);
    QVERIFY(module.close());
    QCOMPARE(closed.count(), 1);
}

void CVrkCliModTest::logLinesGoToTheSink()
{
    Sink sink(&app);
    CVrkCliMod module(&app);
    app.setLogSink(&sink);
    QCOMPARE(module.logSink(), &sink);
    module.LogFile(2, QStringLiteral("void f()"), QStringLiteral("sentence"));
    module.logSink()->LogFile(2, QStringLiteral("void g()"), QStringLiteral("another"));
    QCOMPARE(sink.lines,
             (QStringList{QStringLiteral("2 void f() sentence"), QStringLiteral("2 void g() another")}));
}

void CVrkCliModTest::withoutASinkLogLinesGoToTheMessageLog()
{
    CVrkCliMod module(&app);
    app.setLogSink(nullptr);
    QTest::ignoreMessage(QtWarningMsg, "void f() sentence");
    module.logSink()->LogFile(2, QStringLiteral("void f()"), QStringLiteral("sentence"));
    app.setLogSink(&module); // the base itself is the sink
    QTest::ignoreMessage(QtWarningMsg, "void g() sentence");
    module.LogFile(2, QStringLiteral("void g()"), QStringLiteral("sentence"));
    app.setLogSink(nullptr);
}

void CVrkCliModTest::aDeletedLogSinkIsForgotten()
{
    CVrkCliMod module(&app);
    {
        Sink sink(&app);
        app.setLogSink(&sink);
    }
    QVERIFY(!app.logSink());
    QCOMPARE(module.logSink(), &module);
}

void CVrkCliModTest::iconsAreFoundByPathAndByName()
{
    // Files of a resource, one in the folder of the host's icons and one elsewhere.
    CVrkCliMod module(&app);
    QVERIFY(module.icon(QString()).isNull());
    QVERIFY(module.icon(QStringLiteral("no_such_icon")).isNull());
    QVERIFY(module.icon(QStringLiteral(":/icons/no_such_icon.png")).isNull());
    QVERIFY(!module.icon(QStringLiteral(":/qt-project.org/styles/commonstyle/images/up-16.png")).isNull());
    QVERIFY(!module.icon(QStringLiteral("remove.png")).isNull()); // an icon of the host
    QVERIFY(QFile::exists(QStringLiteral(":/icons/hour_glass.png")));
    QVERIFY(module.icon(QStringLiteral("hour_glass.png")).isNull()); // an icon of a plug-in
}

void CVrkCliModTest::errorsAreLoggedUnderTheNameOfTheModule()
{
    struct Named : Sink {
        using Sink::Sink;
        void setName(const QString& name) { m_name = name; }
    };
    Named sink(&app);
    sink.setName(QStringLiteral("Журнал"));
    sink.SetError(QStringLiteral("беда"));
    QCOMPARE(sink.lines, QStringList{QStringLiteral("2 Журнал беда")});
}

void CVrkCliModTest::unreadCommentsAreReportedOnce()
{
    CVrkCliMod module(&app);
    QSignalSpy changed(&module, &CVrkCliMod::unreadCommentsChanged);
    for (const int count : {3, 3, 4})
        module.SetUnreadComments(count);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(changed.last().first().toInt(), 4);
}

void CVrkCliModTest::iconNamesLeadToNoOtherFolder()
{
    CVrkCliMod module(&app);
    const QString elsewhere = QStringLiteral("../qt-project.org/styles/commonstyle/images/up-16.png");
    QVERIFY(QFile::exists(QStringLiteral(":/qt-project.org/styles/commonstyle/images/up-16.png")));
    QVERIFY(module.icon(elsewhere).isNull());
}

void CVrkCliModTest::theModuleStyleKeepsColoursAndFonts()
{
    CVrkCliMod module(&app);
    QPalette night;
    night.setColor(QPalette::Window, Qt::black);
    module.setPalette(night);
    const QFont font = module.font();
    module.setModuleStyle();
    QCOMPARE(module.palette().color(QPalette::Window), QColor(Qt::black));
    QCOMPARE(module.font(), font);
    QCOMPARE(module.styleSheet(), QString());
    QCOMPARE(module.iconSize(), QSize(24, 24));
}

QTEST_MAIN(CVrkCliModTest)
#include "CVrkCliMod_test.moc"
