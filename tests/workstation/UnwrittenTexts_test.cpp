#include "CVrkCliMod.h"
#include "HostBench.h"
#include "KeptTexts.h"
#include "NoticeBar.h"
#include "RecordCreatorDialog.h"
#include "TemplateFiller.h"
#include "Workstation.h"

#include <memory>
#include <QAction>
#include <QDir>
#include <QPointer>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

/// Unsaved texts when the journal is closed or the program ends: the question, and the offer at the next
/// start. The real plug-in in the real host.
class UnwrittenTexts_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<HostBench> m_bench;
    std::unique_ptr<Workstation> m_host;
    QPointer<CVrkCliMod> m_journal;

    void start(const QString& user = QStringLiteral("ozerov"))
    {
        m_host.reset();
        m_host = std::make_unique<Workstation>();
        Options options;
        options.store = m_bench->url();
        options.user = user;
        options.department = QStringLiteral("ЦДС");
        QVERIFY2(m_host->enter(options), qPrintable(m_host->errorText()));
        m_journal = m_host->startModule(QStringLiteral("logbook"));
        QVERIFY(m_journal);
    }
    RecordCreatorDialog* dialog() const { return m_journal->findChild<RecordCreatorDialog*>(); }
    TemplateFiller* filler() const { return dialog()->findChild<TemplateFiller*>(); }
    NoticeBar* offer() const { return m_journal->findChild<NoticeBar*>(QStringLiteral("leftTextsBar")); }
    void press(const QObject* parent, const char* button)
    {
        auto* found = parent->findChild<QAbstractButton*>(QLatin1String(button));
        QVERIFY2(found, button);
        found->click();
    }
    /// A record that the user has started to write.
    void begin()
    {
        press(m_journal, "createButton");
        QVERIFY(dialog()->isVisible());
        filler()->setTemplate(QStringLiteral("Отключён выключатель В-110"));
        QCOMPARE(m_host->app()->keptTexts()->held(m_journal).size(), 1);
    }
    /// Ends the host like a kill: the files on the disk are unchanged.
    void kill()
    {
        QVERIFY(m_host->app()->keptTexts()->flush());
        const QString kept = m_bench->path(QStringLiteral("vrk-logbook/kept"));
        const QString copy = m_bench->path(QStringLiteral("copy"));
        QCOMPARE(HostBench::run(QStringLiteral("cp"), {QStringLiteral("-r"), kept, copy}), QString());
        m_host.reset();
        QVERIFY(QDir(kept).removeRecursively() && QDir().rename(copy, kept));
    }

private slots:
    void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }
    void init() { m_bench = std::make_unique<HostBench>(); }
    void cleanup()
    {
        m_host.reset();
        m_bench.reset();
    }

    void closingTheJournalAsksAboutTheRecord()
    {
        start();
        begin();
        QString question;
        HostBench::whenShown<QMessageBox>([&question](QMessageBox* box) {
            question = box->text();
            QTest::keyClick(box, Qt::Key_Escape);
        });
        QVERIFY(!m_journal->close());
        QCOMPARE(question, QStringLiteral("Не записано: запись «Отключён выключатель В-110»."));
        QVERIFY(dialog()->isVisible());
        int asked = 0;
        HostBench::answer(QStringLiteral("Закрыть, текст оставить"), &asked);
        QVERIFY(m_journal->close());
        QCOMPARE(asked, 1);

        start();
        QTRY_VERIFY(offer()->isVisible());
        QVERIFY(offer()->text().contains(QStringLiteral("запись «Отключён выключатель В-110»")));
        press(offer(), "openLeftButton");
        QVERIFY(dialog()->isVisible());
        QCOMPARE(filler()->filledTemplate(true), QStringLiteral("Отключён выключатель В-110"));
        QTRY_VERIFY(!offer()->isVisible());
        press(dialog(), "saveButton");
        QVERIFY(!dialog()->isVisible());
        QVERIFY(m_journal->close()); // nothing is left to ask about
        start();
        QCoreApplication::processEvents();
        QVERIFY(!offer()->isVisible());
    }

    void textThatIsDroppedAtClosingIsGone()
    {
        start();
        begin();
        int asked = 0;
        HostBench::answer(QStringLiteral("Закрыть без текста"), &asked);
        QVERIFY(m_journal->close());
        QCOMPARE(asked, 1);
        start();
        QCoreApplication::processEvents();
        QVERIFY(!offer()->isVisible());
        press(m_journal, "createButton");
        QCOMPARE(filler()->filledTemplate(true), QString());
    }

    void aKilledProgramsTextsAreOfferedOneByOne()
    {
        start();
        begin();
        dialog()->close(); // by the program: the text waits
        press(m_journal, "createButton");
        QVERIFY(filler()->filledTemplate(true).contains(QStringLiteral("В-110")));
        filler()->setTemplate(QStringLiteral("Вторая запись"));
        m_host->app()->keptTexts()->keep(QStringLiteral("record/") + department(),
                                         {{QStringLiteral("caption"), QStringLiteral("запись «первая»")},
                                          {QStringLiteral("create"), QStringLiteral("1")},
                                          {QStringLiteral("html"), QStringLiteral("первая")}});
        QCOMPARE(m_host->app()->keptTexts()->held(m_journal).size(), 1);
        kill();

        start(QStringLiteral("roshchin")); // another login sees nothing
        QCoreApplication::processEvents();
        QVERIFY(!offer()->isVisible());
        start();
        QTRY_VERIFY(offer()->isVisible());
        QVERIFY(offer()->text().contains(QStringLiteral("Ждут ещё: 1.")));
        press(offer(), "dropLeftButton");
        QTRY_VERIFY(!offer()->text().contains(QStringLiteral("Ждут ещё")));
        QVERIFY(offer()->isVisible());
        press(offer(), "laterButton");
        QVERIFY(!offer()->isVisible());
        QCOMPARE(m_host->app()->keptTexts()->left().size(), 1);
        start();
        QTRY_VERIFY(offer()->isVisible()); // it waits for the next start
    }

private:
    QString department() const
    {
        return m_host->app()->m_user_params.getValue(QStringLiteral("DEPARTMENTKEY"), QString());
    }
};

QTEST_MAIN(UnwrittenTexts_test)
#include "UnwrittenTexts_test.moc"
