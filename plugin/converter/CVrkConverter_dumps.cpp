#include "CVrkCliSes.h"
#include "CVrkConverter.h"
#include "RecordDump.h"

namespace
{
QString recordSignature()
{
    return QStringLiteral(
        "void CVrkConverter::printRecordTable(CVrkCliMod*, CMDArray*, MDArrayRec*, const QString&)");
}
} // namespace

void CVrkConverter::printStructTable(CMDArray* table, const QString& title)
{
    RecordDump::printStruct(
        table, QStringLiteral("void CVrkConverter::printStructTable(CMDArray*, const QString&)"), title);
}

void CVrkConverter::printKeysTable(CMDArray* table, const QString& title)
{
    RecordDump::printKeys(
        table, QStringLiteral("void CVrkConverter::printKeysTable(CMDArray*, const QString&)"), title);
}

void CVrkConverter::printRecordTable(CVrkCliMod* module, CMDArray* table, MDRData* record,
                                     const QString& title)
{
    RecordDump::printRecord(module->session()->codec(), table, record, recordSignature(), title);
}

void CVrkConverter::printTable(CVrkCliMod* module, CMDArray* table, const QString& title)
{
    RecordDump::printTable(module->session()->codec(), table, recordSignature(), title);
}
