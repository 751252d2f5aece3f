#include "Fields.h"
#include "JournalWindow.h"
#include "TestStore.h"
#include "VrkTableHeader.h"
#include "VrkTableTool.h"

#include <QHelpEvent>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QTextCodec>
#include <QToolButton>
#include <QToolTip>

/// The journal's table in windows that are too narrow for all its columns: those without content give their space to
/// the text.
class EmptyColumns_test : public QObject
{
    Q_OBJECT

    QFont m_before;
    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<JournalWindow> m_journal;
    QTableView* m_view = nullptr;

    // Qt 6 lays the letters out closer: larger ones take as much space as those of Qt 5.
    static constexpr double usualPoints = QT_VERSION < QT_VERSION_CHECK(6, 0, 0) ? 12 : 13;

    void show(int width, double points = usualPoints)
    {
        QFont font = QApplication::font();
        font.setPointSizeF(points);
        QApplication::setFont(font);
        m_journal->window().resize(width, width * 9 / 16);
        m_journal->window().show();
        settle();
        if (JournalWindow::childOf<QWidget>(&m_journal->home(), "additionalTab")->isVisible())
            m_journal->child<QToolButton>("paneButton")->click();
        settle();
    }
    static void settle()
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }
    void showPastShift()
    {
        m_journal->window().slot_modNotify(QStringLiteral("showRecord"), QStringLiteral("REC_PAST_2"));
        settle();
    }
    int column(const char* field) const
    {
        return m_journal->home().findChild<VrkTableTool*>()->model()->idxField(QLatin1String(field));
    }
    int width(const char* field) const { return m_view->columnWidth(column(field)); }
    int described(const char* field) const
    {
        return qobject_cast<VrkTableHeader*>(m_view->horizontalHeader())->neededWidth(column(field));
    }
    bool isFolded(const char* field) const { return width(field) < described(field); }
    int widthOfText() const
    {
        const QString sample = QStringLiteral("Отключён выключатель, бригада допущена к раб");
        return m_view->fontMetrics().horizontalAdvance(sample);
    }
    QHash<int, int> widths() const
    {
        QHash<int, int> all;
        for (int i = 0; i < m_view->model()->columnCount(); ++i)
            if (!m_view->isColumnHidden(i))
                all.insert(i, m_view->columnWidth(i));
        return all;
    }
    QString html(const char* key)
    {
        const Row row(m_journal->record(QString::fromLatin1(key)));
        return m_journal->client().session().codec()->toUnicode(MDRValue::copy(row.value(Field::html)));
    }
    void write(const char* key, MDRFlag flag, const TestStore::Fields& fields)
    {
        StoreError error;
        QVERIFY2(TestStore::write(m_store->openLoader().get(), "LogbookRecords", flag, key, fields, &error),
                 qPrintable(error.text));
        m_journal->deliver();
        settle();
    }

private slots:
    void initTestCase() { m_before = QApplication::font(); }
    void init()
    {
        m_store = std::make_unique<TestStore>();
        m_journal = std::make_unique<JournalWindow>(*m_store, QStringLiteral("ivanov"));
        m_view = JournalWindow::childOf<QTableView>(&m_journal->home(), "recordsTable");
    }
    void cleanup()
    {
        m_journal.reset();
        m_store.reset();
        QApplication::setFont(m_before);
    }

    void theTextGetsTheSpaceOfEmptyColumns()
    {
        show(1280);
        showPastShift();
        QVERIFY(isFolded(Field::object));
        QVERIFY(width(Field::html) >= widthOfText());
        for (const char* field : {Field::status.name, Field::recordTime.name, Field::WorkerKey.name})
            QVERIFY2(!isFolded(field), field);
        const QHeaderView* header = m_view->horizontalHeader();
        const int least = header->fontMetrics().horizontalAdvance(QStringLiteral("Лин"));
        for (int column = 0; column < header->count(); ++column)
            QVERIFY(header->isSectionHidden(column) || header->sectionSize(column) > 16);
        QVERIFY(width(Field::object) > least);
    }

    void aColumnThatFitsIsNotFolded()
    {
        show(1920);
        showPastShift();
        for (const char* field :
             {Field::object.name, Field::executionTime.name, Field::ReceiverWorkerKey.name})
            QVERIFY2(!isFolded(field), field);
        const QHash<int, int> wide = widths();
        m_journal->window().resize(1280, 720);
        settle();
        QVERIFY(isFolded(Field::object));
        m_journal->window().resize(1920, 1080);
        settle();
        QCOMPARE(widths(), wide);
    }

    void onlyAsManyColumnsAsNeededAreFolded()
    {
        show(1920);
        showPastShift();
        int folded = 0;
        for (int size = 1900; size > 900; size -= 20) {
            m_journal->window().resize(size, 720);
            settle();
            int now = 0;
            for (const char* field : {Field::object.name, Field::executionTime.name})
                now += isFolded(field) ? 1 : 0;
            QVERIFY(now >= folded);
            QVERIFY(now <= folded + 1);
            folded = now;
        }
        QCOMPARE(folded, 2);
    }

    void contentGivesAColumnItsWidthBack()
    {
        show(1200);
        const QString trip = html("REC_TRIP");
        const QString order = html("REC_ORDER");
        showPastShift();
        QVERIFY(isFolded(Field::object));
        write("REC_PAST_2", ROW_UPDATE, {{"html", trip}});
        QVERIFY(!isFolded(Field::object));
        QVERIFY(isFolded(Field::executionTime));
        write("REC_PAST_1", ROW_UPDATE, {{"html", order}}); // "Не выполнено"
        QVERIFY(!isFolded(Field::executionTime));
    }

    void anotherShiftIsLookedAtAfresh()
    {
        show(1200);
        QVERIFY(!isFolded(Field::executionTime)); // the open shift has an executed order
        showPastShift();
        QVERIFY(isFolded(Field::executionTime));
        m_journal->window().slot_modNotify(QStringLiteral("showRecord"), QStringLiteral("REC_TRIP"));
        settle();
        QVERIFY(!isFolded(Field::executionTime));
    }

    void aWidthOfTheUserIsKept()
    {
        show(1280);
        showPastShift();
        const int own = 300;
        m_view->setColumnWidth(column(Field::object), own);
        settle();
        QCOMPARE(width(Field::object), own);
        m_journal->window().resize(1100, 720);
        settle();
        QCOMPARE(width(Field::object), own);
        QVERIFY(isFolded(Field::executionTime));
    }

    void aFoldedHeaderSaysItsName()
    {
        show(1280);
        showPastShift();
        const auto tip = [this](const char* field) {
            QHeaderView* header = m_view->horizontalHeader();
            const QPoint at(header->sectionViewportPosition(column(field)) + 5, header->height() / 2);
            QToolTip::hideText();
            QHelpEvent event(QEvent::ToolTip, at, header->viewport()->mapToGlobal(at));
            QCoreApplication::sendEvent(header->viewport(), &event);
            return QToolTip::text();
        };
        QCOMPARE(tip(Field::WorkerKey), QString());
        QCOMPARE(tip(Field::object), QStringLiteral("Линия Подстанция"));
    }

    void contentIsNeverCutOff()
    {
        // Headers give way before the text would have to be scrolled, words in the columns do not.
        showPastShift();
        for (double points : {usualPoints, 1.25 * usualPoints, 1.5 * usualPoints}) {
            show(1180, points);
            QCOMPARE(m_view->horizontalScrollBar()->maximum(), 0);
            const QFontMetrics metrics = m_view->fontMetrics();
            QVERIFY(width(Field::WorkerKey) > metrics.horizontalAdvance(QStringLiteral("Кузнецов")));
            QVERIFY(width(Field::recordTime) > metrics.horizontalAdvance(QStringLiteral("02:17")));
            QVERIFY(width(Field::html) >= 20 * metrics.averageCharWidth());
        }
        QVERIFY(isFolded(Field::recordTime));
    }

    void onlyTheRowsOnTheScreenCount()
    {
        const QString order = html("REC_ORDER");
        for (int i = 0; i < 60; ++i)
            write(QStringLiteral("REC_MANY_%1").arg(i).toLatin1(), ROW_INSERT,
                  {{"ShiftKey", "SHIFT_CDS_PAST"},
                   {"WorkerKey", "WORKER_IVANOV"},
                   {"recordTime", m_store->now() - 60000 + i},
                   {"status", 0},
                   {"html", i == 30 ? order : QStringLiteral("Обход")}});
        show(1200);
        showPastShift();
        QVERIFY(isFolded(Field::executionTime));
        m_view->setCurrentIndex(m_view->model()->index(31, column(Field::recordTime)));
        settle();
        QVERIFY(!isFolded(Field::executionTime));
        m_view->scrollToBottom();
        settle();
        QVERIFY(!isFolded(Field::executionTime)); // columns do not jump back and forth
    }

    void aTableWithoutRowsKeepsItsHeaders()
    {
        show(1280);
        m_journal->home().uploadRecordsIn(QDateTime::currentDateTime().addYears(-3),
                                          QDateTime::currentDateTime().addYears(-2));
        settle();
        QCOMPARE(m_view->model()->rowCount(), 0);
        m_journal->window().resize(1200, 720);
        settle();
        QVERIFY(!isFolded(Field::object));
    }
};

QTEST_MAIN(EmptyColumns_test)
#include "EmptyColumns_test.moc"
