#include "RecordDump.h"

#include "MDRValues.h"

#include <QDebug>
#include <QHash>
#include <QLocale>
#include <QTextCodec>

namespace
{
void printLine(const QString& line)
{
    qInfo().noquote() << line;
}

QString typeName(int type)
{
    static const QHash<int, QString> names{
        {mdr_TBool, QStringLiteral("mdr_TBool")},   {mdr_TByte, QStringLiteral("mdr_TByte")},
        {mdr_TInt32, QStringLiteral("mdr_TInt32")}, {mdr_TDouble, QStringLiteral("mdr_TDouble")},
        {mdr_TChar, QStringLiteral("mdr_TChar")},   {mdr_TMemo, QStringLiteral("mdr_TMemo")},
        {mdr_TBlob, QStringLiteral("mdr_TBlob")},
    };
    return names.value(type, QStringLiteral("UNKNOWN_TYPE"));
}

QString shown(const MDRVar& value, const QTextCodec* codec)
{
    if (value.isNull)
        return QStringLiteral("NULL");
    switch (value.type) {
    case mdr_TBool:
        return value.value.number != 0 ? QStringLiteral("true") : QStringLiteral("false");
    case mdr_TByte:
    case mdr_TInt32:
        return QString::number(value.value.number);
    case mdr_TDouble:
        return QString::number(value.value.real, 'g', QLocale::FloatingPointShortest);
    case mdr_TChar:
    case mdr_TMemo:
    case mdr_TBlob:
        return codec->toUnicode(MDRValue::bytes(value));
    default:
        return QString();
    }
}
} // namespace

void RecordDump::printStruct(const CMDArray* table, const QString& signature, const QString& title)
{
    if (!table)
        return;
    printLine(signature + QLatin1Char(' ') + title);
    for (int i = 0; i < MDAFldCount(table->array); ++i)
        printLine(
            QStringLiteral("%1 - %2").arg(i, 2).arg(QLatin1String(MDRFldByNum(table->array, i)->name), 20));
}

void RecordDump::printKeys(const CMDArray* table, const QString& signature, const QString& title)
{
    if (!table)
        return;
    printLine(signature + QLatin1Char(' ') + title);
    for (int i = 0; i < MDAKeyCount(table->array); ++i)
        printLine(QStringLiteral("key: %1").arg(i));
}

void RecordDump::printRecord(const QTextCodec* codec, const CMDArray* table, const MDRData* record,
                             const QString& signature, const QString& title)
{
    if (!table || !record)
        return;
    printLine(signature + QLatin1Char(' ') + title);
    printLine(QStringLiteral("record address: 0x%1").arg(reinterpret_cast<quintptr>(record), 0, 16));
    const std::pair<int, QString> flags[] = {{ROW_INSERT, QStringLiteral("record is ROW_INSERT")},
                                             {ROW_UPDATE, QStringLiteral("record is ROW_UPDATE")},
                                             {ROW_DELETE, QStringLiteral("record is ROW_DELETE")}};
    for (const auto& [flag, line] : flags)
        if (record->flags & flag)
            printLine(line);
    for (int i = 0; i < MDAFldCount(table->array); ++i) {
        const MDRField* field = MDRFldByNum(table->array, i);
        MDRVar value;
        MDRGetVal(field, record, &value);
        printLine(QString(QLatin1String(field->name)).leftJustified(12) + QStringLiteral(" (") +
                  typeName(field->type).leftJustified(8) + QStringLiteral(") = ") + shown(value, codec));
    }
}

void RecordDump::printTable(const QTextCodec* codec, const CMDArray* table, const QString& signature,
                            const QString& title)
{
    if (!table)
        return;
    for (int i = 0; i < table->RecCount(); ++i) {
        const MDRData* record = MDARec(table->array, 0, i);
        if (record)
            printRecord(codec, table, record, signature, QStringLiteral("idx = %1. %2").arg(i).arg(title));
        else
            printLine(title + QStringLiteral("\nRecord is Q_NULLPTR by idx: ") + QString::number(i));
    }
}
