#include "VrkPreviewCsv.h"

#include "Csv.h"

#include <QTest>

class VrkPreviewCsv_test : public QObject
{
    Q_OBJECT

private:
    static VrkPreviewTable::Cell cell(const QString& text, const QString& meaning = QString())
    {
        VrkPreviewTable::Cell made;
        made.text = text;
        made.meaning = meaning;
        return made;
    }
    static QVector<QStringList> read(const VrkPreviewTable& table)
    {
        QVector<Csv::Row> rows;
        QString error;
        if (!Csv::read(VrkPreviewCsv::table(table), &rows, &error))
            qFatal("%s", qPrintable(error));
        QVector<QStringList> cells;
        for (const Csv::Row& row : qAsConst(rows))
            cells.append(row.cells);
        return cells;
    }

private slots:
    void cellsAreTextsAndIconsTheirMeaning()
    {
        VrkPreviewTable table;
        table.header.cells = {cell(QStringLiteral("Время%1записи").arg(QChar(QChar::LineSeparator))),
                              cell(QString(), QStringLiteral("Направление"))};
        table.rows = {
            {false, {cell(QStringLiteral("20:01")), cell(QString(), QStringLiteral("Передали вы"))}},
            {false,
             {cell(QStringLiteral("a;\"b%1c").arg(QChar(QChar::LineSeparator))),
              cell(QStringLiteral("Озеров"), QStringLiteral("Виза"))}}};
        const QVector<QStringList> rows = read(table);
        QCOMPARE(rows.size(), 3);
        QCOMPARE(rows[0], QStringList({QStringLiteral("Время записи"), QStringLiteral("Направление")}));
        QCOMPARE(rows[1], QStringList({QStringLiteral("20:01"), QStringLiteral("Передали вы")}));
        QCOMPARE(rows[2], QStringList({QStringLiteral("a;\"b\nc"), QStringLiteral("Виза Озеров")}));
    }

    void daysHaveTheirOwnColumn()
    {
        VrkPreviewTable table;
        table.header.cells = {cell(QStringLiteral("Время"))};
        table.rows = {{false, {cell(QStringLiteral("23:59"))}, {}, QDate(2026, 11, 22)},
                      {true, {cell(QStringLiteral("23 ноября 2026, понедельник"))}},
                      {false, {cell(QStringLiteral("00:07"))}, {}, QDate(2026, 11, 23)}};
        const QVector<QStringList> rows = read(table);
        QCOMPARE(rows.size(), 3);
        QCOMPARE(rows[0], QStringList({QStringLiteral("День"), QStringLiteral("Время")}));
        QCOMPARE(rows[1], QStringList({QStringLiteral("22.11.2026"), QStringLiteral("23:59")}));
        QCOMPARE(rows[2], QStringList({QStringLiteral("23.11.2026"), QStringLiteral("00:07")}));
    }

    void noTextBecomesAFormula()
    {
        VrkPreviewTable table;
        table.header.cells = {cell(QStringLiteral("Текст"))};
        table.rows = {{false, {cell(QStringLiteral("=1+1"))}}};
        QCOMPARE(read(table).last(), QStringList({QStringLiteral("'=1+1")}));
    }
};

QTEST_MAIN(VrkPreviewCsv_test)
#include "VrkPreviewCsv_test.moc"
