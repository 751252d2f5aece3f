#include "SuggestionModel.h"
#include "TextMatch.h"

#include <ctime>
#include <QAbstractItemModelTester>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTest>

namespace
{
ReferenceItem made(const QString& text, bool near = true, const QString& detail = QString())
{
    ReferenceItem item;
    item.key = QStringLiteral("K_") + text;
    item.text = text;
    item.detail = detail;
    item.near = near;
    item.folded = TextMatch::folded(text + QLatin1Char(' ') + detail);
    return item;
}

QStringList texts(const SuggestionModel& model)
{
    QStringList list;
    for (int row = 0; row < model.rowCount(); ++row)
        list << model.index(row, 0).data().toString();
    return list;
}
} // namespace

class SuggestionModel_test : public QObject
{
    Q_OBJECT

private slots:
    void wordsFindItemsInAnyOrderAndCase();
    void theBestComeFirst();
    void nearOnesComeBeforeFarOnes();
    void farOnesAreOfferedInOneMoreRow();
    void anItemIsFoundByItsText();
    void noMoreThanTheLimitIsShown();
    void fiveThousandItemsAreFilteredFast();
};

void SuggestionModel_test::wordsFindItemsInAnyOrderAndCase()
{
    SuggestionModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setItems({made(QStringLiteral("ВЛ 110 кВ Полевая – Заречная")),
                    made(QStringLiteral("ПС 110 кВ Заречная")),
                    made(QStringLiteral("Королёв Пётр"), true, QStringLiteral("Дежурный"))});
    QCOMPARE(model.rowCount(), 3);
    model.setQuery(QStringLiteral("зАРеч 110"));
    QCOMPARE(model.rowCount(), 2);
    model.setQuery(QStringLiteral("полевая - зар"));
    QCOMPARE(texts(model), QStringList{QStringLiteral("ВЛ 110 кВ Полевая – Заречная")});
    model.setQuery(QStringLiteral("королев петр"));
    QCOMPARE(texts(model), QStringList{QStringLiteral("Королёв Пётр")});
    model.setQuery(QStringLiteral("дежур"));
    QCOMPARE(texts(model), QStringList{QStringLiteral("Королёв Пётр")});
    QCOMPARE(model.index(0, 0).data(SuggestionModel::DetailRole).toString(), QStringLiteral("Дежурный"));
    model.setQuery(QStringLiteral("нет такого"));
    QCOMPARE(model.rowCount(), 0);
}

void SuggestionModel_test::theBestComeFirst()
{
    SuggestionModel model;
    model.setItems({made(QStringLiteral("Диспетчер")), made(QStringLiteral("Иванов Пётр")),
                    made(QStringLiteral("Петров Иван"))});
    model.setQuery(QStringLiteral("пет"));
    const QStringList expected{QStringLiteral("Петров Иван"), QStringLiteral("Иванов Пётр"),
                               QStringLiteral("Диспетчер")};
    QCOMPARE(texts(model), expected);
}

void SuggestionModel_test::nearOnesComeBeforeFarOnes()
{
    SuggestionModel model;
    model.setItems({made(QStringLiteral("Т-1 Дальняя"), false), made(QStringLiteral("Ввод Т-1"))});
    model.setQuery(QStringLiteral("т-1"));
    const QStringList expected{QStringLiteral("Ввод Т-1"), QStringLiteral("Т-1 Дальняя")};
    QCOMPARE(texts(model), expected);
}

void SuggestionModel_test::farOnesAreOfferedInOneMoreRow()
{
    SuggestionModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setNearOnly(true);
    model.setItems({made(QStringLiteral("Т-1")), made(QStringLiteral("Т-1 Дальняя"), false),
                    made(QStringLiteral("Т-2 Дальняя"), false)});
    model.setQuery(QStringLiteral("т-"));
    const QStringList expected{QStringLiteral("Т-1"), QStringLiteral("Искать во всех подразделениях: ещё 2")};
    QCOMPARE(texts(model), expected);
    QVERIFY(model.item(0));
    QVERIFY(!model.item(1));
    QVERIFY(model.index(1, 0).data(SuggestionModel::MoreRole).toBool());
    model.setNearOnly(false);
    QCOMPARE(model.rowCount(), 3);
}

void SuggestionModel_test::anItemIsFoundByItsText()
{
    SuggestionModel model;
    model.setItems(
        {made(QStringLiteral("Королёв"), true, QStringLiteral("ЦДС")), made(QStringLiteral("Королёва"))});
    QCOMPARE(model.itemByText(QStringLiteral(" королев "))->text, QStringLiteral("Королёв"));
    QVERIFY(!model.itemByText(QStringLiteral("корол")));
    QVERIFY(!model.itemByText(QString()));
    QVERIFY(!model.itemByText(QStringLiteral("Королёв ЦДС")));
}

void SuggestionModel_test::noMoreThanTheLimitIsShown()
{
    SuggestionModel model;
    QVector<ReferenceItem> items;
    for (int i = 0; i < 1000; ++i)
        items.append(made(QString::number(i)));
    model.setItems(items);
    QCOMPARE(model.rowCount(), SuggestionModel::shownAtMost);
}

void SuggestionModel_test::fiveThousandItemsAreFilteredFast()
{
    SuggestionModel model;
    QVector<ReferenceItem> items;
    for (int i = 0; i < 5000; ++i)
        items.append(made(QStringLiteral("Выключатель В-%1 присоединения").arg(i), i % 3 != 0,
                          QStringLiteral("ПС 110 кВ Заречная №%1").arg(i % 40)));
    model.setItems(items);
    // Compared with Qt's own filter over a model of items.
    QStandardItemModel rows;
    for (const ReferenceItem& item : qAsConst(items))
        rows.appendRow(new QStandardItem(item.folded));
    QSortFilterProxyModel peer;
    peer.setSourceModel(&rows);
    peer.setFilterCaseSensitivity(Qt::CaseInsensitive);
    const QStringList queries{QStringLiteral("в"), QStringLiteral("вы"), QStringLiteral("заречная"),
                              QStringLiteral("заречная №39"), QStringLiteral("т")};
    std::clock_t begin = std::clock(); // of this process: the load of the machine does not count
    for (const QString& query : queries)
        model.setQuery(query);
    const std::clock_t own = std::clock() - begin;
    begin = std::clock();
    for (const QString& query : queries)
        peer.setFilterFixedString(query);
    QVERIFY2(own < std::clock() - begin, "slower than the toolkit's filter");
}

QTEST_MAIN(SuggestionModel_test)
#include "SuggestionModel_test.moc"
