#include "ExpectedWarning.h"
#include "StatusLine.h"

#include "../support/AsNobody.h"
#include "../support/TextWalk.h"
#include "CRowBatch.h"
#include "CVrkCliApp.h"
#include "CVrkCliSes.h"
#include "HfnTime.h"
#include "HostBench.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "SignIn.h"
#include "Theme.h"

#include <memory>
#include <QElapsedTimer>
#include <QLabel>
#include <QMenu>
#include <QRegularExpression>
#include <QTest>
#include <QToolButton>

/// The status line on a real session.
class StatusLine_test : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void itTellsWhoWorksWhere();
    void namesAndFailuresAreNoMarkup();
    void withLargeLettersNothingIsCutOff_data();
    void withLargeLettersNothingIsCutOff();
    void aReadOnlyStoreIsAlwaysShown();
    void aFailureStaysUntilItIsAcknowledged();
    void theKeyAcknowledges();
    void severalFailuresAreCounted();
    void theSameFailureAgainIsCountedNotRepeated();
    void showsRefusedRequests_data();
    void showsRefusedRequests();
    void showsARefusedWriteWithTimeTableAndReason();
    void aRefusedWriteGoesWhenItIsWritten();
    void showsAFailedSelect();
    void aNoticeDoesNotCoverAFailure();
    void aNoticeDisappears();
    void aLostConnectionIsShownAndFound();
    void theResultOfAnUnansweredWriteStays_data();
    void theResultOfAnUnansweredWriteStays();
    void anotherHistoryIsAFailure();
    void theClockShowsTheServersTime();
    void showsAWrongClock_data();
    void showsAWrongClock();
    void theThemeChangesByItsKey();
    void thereIsNoMenuButtonWithoutAMenu();

private:
    QString text(const char* label) const { return m_line->findChild<QLabel*>(QLatin1String(label))->text(); }
    QToolButton* acknowledge() const
    {
        return m_line->findChild<QToolButton*>(QStringLiteral("acknowledgeButton"));
    }

    std::unique_ptr<HostBench> m_bench;
    std::unique_ptr<CVrkCliApp> m_app;
    std::unique_ptr<StatusLine> m_line;
};

void StatusLine_test::init()
{
    m_bench = std::make_unique<HostBench>();
    m_app = std::make_unique<CVrkCliApp>();
    SignIn signIn;
    QVERIFY(signIn.open(m_bench->url()));
    QVERIFY(signIn.signIn(QStringLiteral("roshchin")));
    QVERIFY(signIn.enter(m_app.get(), QByteArray()));
    m_line = std::make_unique<StatusLine>(m_app->session(), QStringLiteral("Рощин"), QStringLiteral("ЦДС"));
    m_line->resize(1200, 30);
    m_line->show();
}

void StatusLine_test::namesAndFailuresAreNoMarkup()
{
    const QString file = m_bench->path(QStringLiteral("x.png"));
    StatusLine line(m_app->session(), TextWalk::of(QStringLiteral("user"), file),
                    TextWalk::of(QStringLiteral("department"), file));
    line.resize(6000, 30);
    line.show();
    line.addFailure(TextWalk::of(QStringLiteral("failure"), file));
    TextWalk walk;
    walk.walk();
    QCOMPARE(walk.faults(), QStringList());
    QCOMPARE(walk.origins(), QSet<QString>({QStringLiteral("user"), QStringLiteral("department"),
                                            QStringLiteral("failure")}));
}

void StatusLine_test::cleanup()
{
    m_line.reset();
    m_app.reset();
    m_bench.reset();
}

void StatusLine_test::aReadOnlyStoreIsAlwaysShown()
{
    m_line.reset();
    m_app.reset();
    QFile::setPermissions(m_bench->path(QStringLiteral("store.sqlite")), QFile::Permissions(0x4444));
    const AsNobody nobody;
    m_app = std::make_unique<CVrkCliApp>();
    SignIn signIn;
    QVERIFY2(signIn.open(m_bench->url()), qPrintable(signIn.errorText()));
    QVERIFY(signIn.signIn(QStringLiteral("roshchin")) && signIn.enter(m_app.get(), QByteArray()));
    m_line = std::make_unique<StatusLine>(m_app->session(), QStringLiteral("Рощин"), QStringLiteral("ЦДС"));
    for (int width : {1200, 300}) {
        m_line->resize(width, 30);
        m_line->show();
        QCOMPARE(text("connectionLabel"), QStringLiteral("Подключено: только просмотр"));
        QVERIFY(m_line->findChild<QLabel*>(QStringLiteral("connectionLabel"))->isVisible());
    }
    m_line.reset();
    m_app.reset();
}

void StatusLine_test::itTellsWhoWorksWhere()
{
    QCOMPARE(text("userLabel"), QStringLiteral("Рощин, ЦДС"));
    QCOMPARE(text("connectionLabel"), QStringLiteral("Подключено"));
    QVERIFY(text("messageLabel").isEmpty());
    QVERIFY(!acknowledge()->isVisible());
}

void StatusLine_test::withLargeLettersNothingIsCutOff_data()
{
    QTest::addColumn<double>("points");
    QTest::addColumn<bool>("isShort");
    QTest::newRow("usual") << 9.6 << false;
    QTest::newRow("half as large again") << 14.4 << true;
}

void StatusLine_test::withLargeLettersNothingIsCutOff()
{
    QFETCH(double, points);
    QFETCH(bool, isShort);
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPointSizeF(points);
    QApplication::setFont(font);
    StatusLine line(m_app->session(), QStringLiteral("Рощин Илья Викторович"), QStringLiteral("ЦДС"));
    QMenu menu;
    line.setModuleMenu(&menu);
    line.setUnreadComments(12);
    if (isShort)
        line.addFailure(QStringLiteral("Не записано (записи): Записи вносят работники открытой смены."));
    line.resize(1280, 40);
    line.show();
    QVERIFY(QTest::qWaitForWindowExposed(&line));
    const auto label = [&line](const char* name) { return line.findChild<QLabel*>(QLatin1String(name)); };
    QCOMPARE(label("userLabel")->text(),
             isShort ? QStringLiteral("Рощин И. В., ЦДС") : QStringLiteral("Рощин Илья Викторович, ЦДС"));
    QCOMPARE(label("userLabel")->toolTip(), QStringLiteral("Рощин Илья Викторович, ЦДС"));
    for (const char* name : {"userLabel", "clockLabel", "connectionIcon"})
        QVERIFY2(label(name)->width() >= label(name)->sizeHint().width(), name);
    QCOMPARE(line.findChild<QToolButton*>(QStringLiteral("acknowledgeButton"))->isVisible(), isShort);
    for (const char* name : {"modulesButton", "unreadButton", "themeButton"}) {
        const auto* button = line.findChild<QToolButton*>(QLatin1String(name));
        QVERIFY2(button->isVisible() && button->width() >= button->sizeHint().width(), name);
    }
    if (isShort)
        QVERIFY(label("messageLabel")->width() >= 30 * line.fontMetrics().averageCharWidth());
    QVERIFY(line.findChild<QToolButton*>(QStringLiteral("unreadButton"))
                ->text()
                .endsWith(QStringLiteral(": 12")));

    // A lost link is always reported in words.
    emit m_app->session()->connectionChanged(false);
    QVERIFY(label("connectionIcon")->toolTip() == QStringLiteral("Нет связи с хранилищем"));
    QApplication::setFont(before);
}

void StatusLine_test::aFailureStaysUntilItIsAcknowledged()
{
    m_line->addFailure(QStringLiteral("Не записано: диск полон"));
    QVERIFY(QRegularExpression(QStringLiteral("^\\d\\d:\\d\\d:\\d\\d Не записано: диск полон$"))
                .match(text("messageLabel"))
                .hasMatch());
    QVERIFY(acknowledge()->isVisible());
    m_line->showNotice(QStringLiteral("Замечание"));
    QVERIFY(text("messageLabel").contains(QStringLiteral("диск полон")));
    acknowledge()->click();
    QVERIFY(m_line->failures().isEmpty());
    QVERIFY(!acknowledge()->isVisible());
    QCOMPARE(text("messageLabel"), QStringLiteral("Замечание"));
}

void StatusLine_test::theKeyAcknowledges()
{
    m_line->addFailure(QStringLiteral("Не записано"));
    m_line->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_line.get()));
    QTest::keyClick(m_line.get(), Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_VERIFY(m_line->failures().isEmpty());
}

void StatusLine_test::severalFailuresAreCounted()
{
    for (const char* what : {"a", "b", "c"})
        m_line->addFailure(QLatin1String(what));
    QVERIFY(text("messageLabel").endsWith(QStringLiteral(" c (и ещё 2)")));
    const QStringList shownText =
        m_line->findChild<QLabel*>(QStringLiteral("messageLabel"))->toolTip().split(QLatin1Char('\n'));
    QCOMPARE(shownText, m_line->failures());
    QCOMPARE(shownText.size(), 3);
    QVERIFY(shownText[0].endsWith(QStringLiteral(" a")));
}

void StatusLine_test::theSameFailureAgainIsCountedNotRepeated()
{
    for (int i = 0; i < 3; ++i)
        m_line->addFailure(QStringLiteral("Нет связи"));
    QCOMPARE(m_line->failures().size(), 1);
    QVERIFY(text("messageLabel").endsWith(QStringLiteral(" Нет связи (раз: 3)")));
}

void StatusLine_test::showsRefusedRequests_data()
{
    QTest::addColumn<bool>("write");
    QTest::addColumn<QString>("shownText");
    QTest::addColumn<QString>("table");
    QTest::newRow("write") << true << QStringLiteral(" Не записано (смена): Смена уже закрыта.")
                           << QStringLiteral("LogbookWorkshifts");
    QTest::newRow("block") << true
                           << QStringLiteral(" Не записано (категории шаблонов, шаблоны): Смена уже закрыта.")
                           << QStringLiteral("LogbookCatsTemplate, LogbookTemplates");
    QTest::newRow("a table without a title")
        << true << QStringLiteral(" Не записано: Смена уже закрыта.") << QStringLiteral("Elsewhere");
    QTest::newRow("read") << false << QStringLiteral(" Не прочитано: Смена уже закрыта.") << QString();
}

void StatusLine_test::showsRefusedRequests()
{
    QFETCH(bool, write);
    QFETCH(QString, shownText);
    QFETCH(QString, table);
    emit m_app->session()->requestFailed(write, table, QStringLiteral("Смена уже закрыта."));
    QVERIFY(text("messageLabel").endsWith(shownText));
}

void StatusLine_test::showsARefusedWriteWithTimeTableAndReason()
{
    expectWarning(QStringLiteral("NO_SUCH_RECORD LogbookRecords"));
    CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
    MDRData* row = batch.newRow(ROW_UPDATE, "NO_SUCH_RECORD");
    batch.SetValF(row, "status", MDRValue::number(StatusApproved));
    batch.RecPost(row);
    QVERIFY(!m_app->session()->SqlUpdate("LogbookRecords", batch.array, true, nullptr));
    QCOMPARE(m_line->failures().size(), 1);
    const QString reason = m_app->session()->lastErrorText();
    QVERIFY(QRegularExpression(QStringLiteral("[А-Яа-я]{3}")).match(reason).hasMatch());
    const QRegularExpression shownText(QStringLiteral("^\\d\\d:\\d\\d:\\d\\d Не записано \\(записи\\): %1$")
                                           .arg(QRegularExpression::escape(reason)));
    QVERIFY2(shownText.match(text("messageLabel")).hasMatch(), qPrintable(text("messageLabel")));
}

void StatusLine_test::aRefusedWriteGoesWhenItIsWritten()
{
    expectWarning(QStringLiteral("Строка связана с другими строками"), 3);
    const auto keyOf = [this](const char* sql) {
        CMDArray answer;
        answer = m_app->session()->SqlRequest(sql);
        MDRVar key;
        answer.GetVal(MDARec(answer.array, 0, 0), "KeyLink", key);
        return MDRValue::copy(key);
    };
    const QByteArray record = keyOf("SELECT KeyLink FROM LogbookRecords");
    const QByteArray worker = keyOf("SELECT Workers.KeyLink FROM Workers INNER JOIN Users ON "
                                    "Users.KeyLink = Workers.UserKey WHERE Users.login = 'roshchin'");
    const auto comment = [&](const QByteArray& key, const QByteArray& on, const QByteArray& text) {
        CRowBatch batch(LogbookCommentFields, fieldCount(LogbookCommentFields));
        MDRData* row = batch.newRow(ROW_INSERT, key);
        batch.SetValF(row, "KeyLink", MDRValue::text(key));
        batch.SetValF(row, "RecordKey", MDRValue::text(on));
        batch.SetValF(row, "WorkerKey", MDRValue::text(worker));
        batch.SetValF(row, "commentTime", MDRValue::real(m_app->session()->GetHfnTime()));
        batch.SetValF(row, "text_", MDRValue::text(text, mdr_TMemo));
        batch.RecPost(row);
        return m_app->session()->SqlUpdate("LogbookComments", batch.array, true, nullptr);
    };
    emit m_app->session()->requestFailed(false, QString(), QStringLiteral("Прочее."));
    QVERIFY(!comment("COM_A", "NO_SUCH_RECORD", "first"));
    QVERIFY(!comment("COM_B", "NO_SUCH_RECORD", "first")); // once more, under another key
    QVERIFY(!comment("COM_C", "NO_SUCH_RECORD", "second"));
    QCOMPARE(m_line->failures().size(), 2);
    QVERIFY(m_line->failures().last().endsWith(QStringLiteral("(раз: 3)")));
    QVERIFY(comment("COM_D", record, "third")); // another text
    QVERIFY(m_line->failures().last().endsWith(QStringLiteral("(раз: 3)")));
    QVERIFY(comment("COM_E", record, "first")); // by its text
    QCOMPARE(m_line->failures().size(), 2);
    QVERIFY(!m_line->failures().last().contains(QStringLiteral("раз:")));
    QVERIFY(comment("COM_C", record, "second changed")); // by its key
    QCOMPARE(m_line->failures().size(), 1);
    QVERIFY(m_line->failures().last().endsWith(QStringLiteral("Прочее.")));
}

void StatusLine_test::showsAFailedSelect()
{
    expectWarning(QStringLiteral("no such table: Nowhere"));
    QVERIFY(!m_app->session()->SqlRequest("SELECT * FROM Nowhere"));
    QCOMPARE(m_line->failures().size(), 1);
    QVERIFY(m_line->failures().constFirst().contains(QStringLiteral("Не прочитано: ")));
    QVERIFY(m_line->failures().constFirst().endsWith(m_app->session()->lastErrorText()));
}

void StatusLine_test::aNoticeDoesNotCoverAFailure()
{
    m_line->showNotice(QStringLiteral("Замечание"));
    QCOMPARE(text("messageLabel"), QStringLiteral("Замечание"));
    QVERIFY(!acknowledge()->isVisible());
    m_line->addFailure(QStringLiteral("Неудача"));
    QVERIFY(text("messageLabel").endsWith(QStringLiteral("Неудача")));
    m_line->showNotice(QStringLiteral("Другое"));
    QVERIFY(text("messageLabel").endsWith(QStringLiteral("Неудача")));
}

void StatusLine_test::aNoticeDisappears()
{
    m_line->showNotice(QStringLiteral("Замечание"));
    QTRY_VERIFY_WITH_TIMEOUT(text("messageLabel").isEmpty(), 20000);
}

void StatusLine_test::aLostConnectionIsShownAndFound()
{
    const qint64 connected =
        m_line->findChild<QLabel*>(QStringLiteral("connectionIcon"))->pixmap(Qt::ReturnByValue).cacheKey();
    emit m_app->session()->connectionChanged(false);
    QCOMPARE(text("connectionLabel"), QStringLiteral("Нет связи с хранилищем"));
    QVERIFY(
        m_line->findChild<QLabel*>(QStringLiteral("connectionIcon"))->pixmap(Qt::ReturnByValue).cacheKey() !=
        connected);
    emit m_app->session()->connectionChanged(true);
    QCOMPARE(text("connectionLabel"), QStringLiteral("Подключено"));
}

void StatusLine_test::theResultOfAnUnansweredWriteStays_data()
{
    QTest::addColumn<bool>("written");
    QTest::addColumn<QString>("shownText");
    QTest::newRow("written") << true
                             << QStringLiteral(
                                    "Связь вернулась: последнее изменение записано, повторять его не нужно.");
    QTest::newRow("not written") << false
                                 << QStringLiteral(
                                        "Связь вернулась: последнее изменение не записано, повторите его.");
}

void StatusLine_test::theResultOfAnUnansweredWriteStays()
{
    QFETCH(bool, written);
    QFETCH(QString, shownText);
    emit m_app->session()->writeSettled(written);
    QVERIFY(text("messageLabel").endsWith(shownText));
    QTest::mouseClick(acknowledge(), Qt::LeftButton);
    QVERIFY(m_line->failures().isEmpty());
}

void StatusLine_test::anotherHistoryIsAFailure()
{
    emit m_app->session()->historyChanged();
    QVERIFY(text("messageLabel")
                .endsWith(
                    QStringLiteral("История хранилища сменилась: закройте программу и откройте её снова.")));
}

void StatusLine_test::theClockShowsTheServersTime()
{
    m_line->setOwnClock([] { return QDateTime::currentDateTime().addSecs(-3600); });
    const QDateTime shown = QDateTime::fromString(text("clockLabel"), QStringLiteral("dd.MM.yyyy hh:mm:ss"));
    const QDateTime server = HfnTime_to_DateTime(m_app->session()->GetHfnTime(), -1);
    QVERIFY(qAbs(shown.secsTo(server)) <= 2);
}

void StatusLine_test::showsAWrongClock_data()
{
    QTest::addColumn<int>("ahead");
    QTest::addColumn<QString>("shownText");
    QTest::newRow("right") << 0 << QString();
    QTest::newRow("a little slow") << -3 << QString();
    QTest::newRow("a little fast") << 3 << QString();
    QTest::newRow("slow") << -30 << QStringLiteral("^Часы компьютера отстают на (29|30) с$");
    QTest::newRow("fast") << 30 << QStringLiteral("^Часы компьютера спешат на (30|31) с$");
}

void StatusLine_test::showsAWrongClock()
{
    QFETCH(int, ahead);
    QFETCH(QString, shownText);
    m_line->setOwnClock([ahead] { return QDateTime::currentDateTime().addSecs(ahead); });
    auto* label = m_line->findChild<QLabel*>(QStringLiteral("deviationLabel"));
    QCOMPARE(label->isVisible(), !shownText.isEmpty());
    QVERIFY2(QRegularExpression(shownText).match(label->text()).hasMatch(), qPrintable(label->text()));
    m_line->setOwnClock(&QDateTime::currentDateTime);
    QVERIFY(!label->isVisible());
}

void StatusLine_test::theThemeChangesByItsKey()
{
    QVERIFY(Theme::apply(QStringLiteral("light")));
    m_line->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_line.get()));
    QTest::keyClick(m_line.get(), Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_COMPARE(Theme::current(), QStringLiteral("dark"));
    m_line->findChild<QToolButton*>(QStringLiteral("themeButton"))->click();
    QCOMPARE(Theme::current(), QStringLiteral("light"));
}

void StatusLine_test::thereIsNoMenuButtonWithoutAMenu()
{
    auto* button = m_line->findChild<QToolButton*>(QStringLiteral("modulesButton"));
    QVERIFY(!button->isVisible());
    QMenu menu;
    m_line->setModuleMenu(&menu);
    QVERIFY(button->isVisible());
}

QTEST_MAIN(StatusLine_test)
#include "StatusLine_test.moc"
