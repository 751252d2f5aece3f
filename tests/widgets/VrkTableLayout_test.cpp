#include "VrkTableLayout.h"

#include "TableSetup.h"

#include <QHeaderView>
#include <QScrollBar>

/// The column widths of a record table, for all sizes of window and font.
class VrkTableLayout_test : public QObject
{
    Q_OBJECT

private slots:
    void theTextOfRecordsTakesTheRemainingWidth()
    {
        Setup s;
        s.append("A", QStringLiteral("20.11.2026 09:05"), longText(20));
        s.configure();
        s.show();
        const auto together = [&s] {
            return s.view.columnWidth(s.column(keyLink)) + s.view.columnWidth(s.column(recordTime)) +
                   s.view.columnWidth(s.column(html));
        };
        QCOMPARE(together(), s.view.viewport()->width());
        const int key = s.view.columnWidth(s.column(keyLink));
        s.view.resize(1000, 400);
        QCOMPARE(together(), s.view.viewport()->width());
        QCOMPARE(s.view.columnWidth(s.column(keyLink)), key);
    }

    void ofAVeryLongLineOnlyTheBeginningIsLaidOut()
    {
        Setup s;
        const auto text = [](int letters) {
            return QStringLiteral("<b>&lt;") + QString(letters, u'ж') + QStringLiteral("</b>");
        };
        s.append("A", QStringLiteral("20.11.2026 09:05"), text(5 << 20));
        s.append("B", QStringLiteral("20.11.2026 09:06"), text(200000));
        s.append("C", QStringLiteral("20.11.2026 09:07"), text(90000));
        s.configure();
        const auto height = [&s](int row) {
            return s.delegate()->heightForWidth(s.tool.proxy()->index(row, s.column(html)), 300);
        };
        QCOMPARE(height(0), height(1));
        QVERIFY(height(1) > height(2));
        const QFontMetrics metrics(s.view.font());
        QVERIFY(height(2) > 90000 / 300 * metrics.horizontalAdvance(u'ж') / 2 * metrics.height() / 2);
    }

    void headersOfTwoLinesFitAtAnyFontSize()
    {
        for (qreal scale : {1.0, 1.25, 1.5}) {
            Setup s;
            QFont font = s.view.font();
            font.setPointSizeF(font.pointSizeF() * scale);
            s.view.setFont(font);
            s.tool.model()->setHeaderData(recordTime, Qt::Horizontal, QStringLiteral("Время\nвыполнения"),
                                          Qt::DisplayRole);
            s.append("A", QStringLiteral("20.11.2026 09:05"), longText(20));
            s.configure();
            s.show();
            const QHeaderView* header = s.view.horizontalHeader();
            const QSize text = header->fontMetrics().size(0, QStringLiteral("Время\nвыполнения"));
            QVERIFY(s.view.columnWidth(s.column(recordTime)) >= text.width());
            QVERIFY(header->height() >= text.height());
        }
    }

    void columnsGrowWithWhatComesButNotThoseOfTheUser()
    {
        Setup s;
        s.append("A", QStringLiteral("20.11.2026 09:05"), QString());
        s.configure();
        s.show();
        const int narrow = s.view.columnWidth(s.column(keyLink));
        s.append("KEYWITHALONGNAME", QStringLiteral("20.11.2026 09:06"), QString());
        s.settle();
        const int grown = s.view.columnWidth(s.column(keyLink));
        QVERIFY(grown > narrow);

        s.view.horizontalHeader()->resizeSection(s.column(keyLink), 40);
        s.append("KEYWITHAMUCHLONGERNAMESTILL", QStringLiteral("20.11.2026 09:07"), QString());
        s.settle();
        QCOMPARE(s.view.columnWidth(s.column(keyLink)), 40);
        s.tool.adjustColumnsWidth();
        QVERIFY(s.view.columnWidth(s.column(keyLink)) > 40);
    }

    void aColumnShownLaterGetsItsWidth()
    {
        Setup s;
        s.append("A", QStringLiteral("20.11.2026 09:05"), QString());
        s.configure();
        s.show();
        const QString status = QStringLiteral("status");
        s.tool.model()->setHeaderData(status, Qt::Horizontal, QStringLiteral("Статус"), Qt::DisplayRole);
        s.tool.setColumnVisible(status, true);
        s.settle();
        QVERIFY(s.view.columnWidth(s.column(status)) >=
                s.view.horizontalHeader()->fontMetrics().horizontalAdvance(QStringLiteral("Статус")));
    }

    void namesAreWrappedBeforeTheTextIsSqueezed()
    {
        Setup s;
        MDRData* record = s.append("A", QStringLiteral("20.11.2026 09:05"), longText(20));
        MDRData* edited = MDARecEdit(record);
        s.table.setText(edited, "object",
                        QStringLiteral("ПС 110 кВ Заречная/ВЛ 110 кВ Заречная – Кирпичная"));
        s.table.RecPost(edited);
        s.tool.updateView(record);
        const QString object = QStringLiteral("object");
        s.configure();
        s.tool.setColumnVisible(object, true);
        s.tool.setColumnPosition(object, 2);
        s.tool.adjustColumnsWidth();
        s.view.resize(1000, 400);
        s.show();
        const int wide = s.view.columnWidth(s.column(object));
        s.view.resize(420, 400);
        s.settle();
        QVERIFY(s.view.columnWidth(s.column(object)) < wide);
        QVERIFY(s.view.columnWidth(s.column(html)) >= 20 * s.view.fontMetrics().averageCharWidth());
    }

    void rowsThatComeIntoSightLaterWidenTheirColumnsToo()
    {
        Setup s;
        const QString object = QStringLiteral("object");
        const QString word = QStringLiteral("Заречновский");
        for (int i = 0; i < 20; ++i) {
            const QString time = QStringLiteral("20.11.2026 09:%1").arg(i + 10);
            MDRData* edited = MDARecEdit(s.append(QByteArray::number(i), time, longText(20)));
            if (i == 18)
                s.table.setText(edited, "object", word);
            s.table.RecPost(edited);
        }
        s.configure();
        s.tool.setColumnVisible(object, true);
        s.tool.setColumnPosition(object, 2);
        s.tool.adjustColumnsWidth();
        s.view.resize(300, 300);
        s.show();
        s.view.resize(1500, 1500); // rows shrink, and the last ones become visible
        QTRY_VERIFY(s.view.columnWidth(s.column(object)) > s.view.fontMetrics().horizontalAdvance(word));
    }

    void aNameHasOneLineOrItsLongestWordAsWidth()
    {
        Setup s;
        const QString object = QStringLiteral("object");
        const QString name = QStringLiteral("Туманов И. К.");
        MDRData* edited = MDARecEdit(s.append("A", QStringLiteral("20.11.2026 09:05"), longText(20)));
        s.table.setText(edited, "object", name);
        s.table.RecPost(edited);
        s.configure();
        s.tool.setColumnVisible(object, true);
        s.tool.setColumnPosition(object, 2);
        s.tool.adjustColumnsWidth();
        s.show();
        const QFontMetrics metrics = s.view.fontMetrics();
        const int whole = metrics.horizontalAdvance(name);
        int wrapped = 0;
        for (int width = 300; width < 900; width += 25) {
            s.view.resize(width, 400);
            s.settle();
            const int column = s.view.columnWidth(s.column(object));
            const int text = s.view.columnWidth(s.column(html));
            if (column < whole) {
                ++wrapped;
                QVERIFY(text < 70 * metrics.averageCharWidth()); // no space is lost
            }
            QVERIFY(column > whole || column < whole - metrics.horizontalAdvance(QLatin1Char('.')));
        }
        QVERIFY(wrapped > 0);
        QVERIFY(s.view.columnWidth(s.column(object)) > whole);
    }

    void initialsAreNotTornApart()
    {
        Setup s;
        const QString object = QStringLiteral("object");
        MDRData* record = s.append("A", QStringLiteral("20.11.2026 09:05"), QString());
        const QFontMetrics metrics{s.view.font()};
        const auto longest = [&](const QString& text) {
            MDRData* edited = MDARecEdit(record);
            s.table.setText(edited, "object", text);
            s.table.RecPost(edited);
            s.tool.updateView(record);
            return s.delegate()->naturalWidth(s.tool.proxy()->index(0, s.column(object)), true);
        };
        QVERIFY(longest(QStringLiteral("Ян А. Б.")) > metrics.horizontalAdvance(QStringLiteral("А. Б.")));
        // A sentence before an initial is not a name, and line ends of the text are kept.
        QVERIFY(longest(QStringLiteral("Да. Нет. Да.")) <
                metrics.horizontalAdvance(QStringLiteral("Да. Нет.")));
        QVERIFY(longest(QStringLiteral("Линия\nПост")) <
                metrics.horizontalAdvance(QStringLiteral("ЛинияПост")));
    }

    void aNewCurrentRecordDoesNotScrollSideways()
    {
        Setup s;
        s.append("AVERYLONGKEYOFARECORDTHATISWIDE", QStringLiteral("20.11.2026 09:05"), longText(5));
        MDRData* second = s.append("B", QStringLiteral("20.11.2026 09:06"), longText(5));
        s.configure();
        s.view.resize(200, 300);
        s.show();
        s.tool.setCurrentFirst();
        QScrollBar* sideways = s.view.horizontalScrollBar();
        QVERIFY(sideways->maximum() > 0);
        sideways->setValue(sideways->maximum());
        s.tool.setCurrentRecord(second);
        s.settle();
        QCOMPARE(sideways->value(), sideways->maximum());
    }
};

QTEST_MAIN(VrkTableLayout_test)
#include "VrkTableLayout_test.moc"
