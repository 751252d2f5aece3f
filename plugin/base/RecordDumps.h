#pragma once

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "RecordDump.h"

/// Dumps of record arrays to the message log, for debugging, as static functions of a class: the log names
/// them with its name.
template <class Owner>
class RecordDumps
{
public:
    static void printStructTable(CMDArray* table, const QString& title)
    {
        RecordDump::printStruct(table, signature("printStructTable(CMDArray*, const QString&)"), title);
    }
    static void printKeysTable(CMDArray* table, const QString& title)
    {
        RecordDump::printKeys(table, signature("printKeysTable(CMDArray*, const QString&)"), title);
    }
    static void printRecordTable(CVrkCliMod* module, CMDArray* table, MDRData* record, const QString& title)
    {
        RecordDump::printRecord(module->session()->codec(), table, record, signature(ofRecord), title);
    }
    static void printTable(CVrkCliMod* module, CMDArray* table, const QString& title)
    {
        RecordDump::printTable(module->session()->codec(), table, signature(ofRecord), title);
    }

private:
    static constexpr char ofRecord[] =
        "printRecordTable(CVrkCliMod*, CMDArray*, MDArrayRec*, const QString&)";
    static QString signature(const char* function)
    {
        return QStringLiteral("void %1::%2")
            .arg(QLatin1String(Owner::staticMetaObject.className()), QLatin1String(function));
    }
};
