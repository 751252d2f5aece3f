#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "RecordDump.h"
#include "TemplateTab.h"

namespace
{
QString recordSignature()
{
    return QStringLiteral(
        "void TemplateTab::printRecordTable(CVrkCliMod*, CMDArray*, MDArrayRec*, const QString&)");
}
} // namespace

void TemplateTab::printStructTable(CMDArray* table, const QString& title)
{
    RecordDump::printStruct(
        table, QStringLiteral("void TemplateTab::printStructTable(CMDArray*, const QString&)"), title);
}

void TemplateTab::printKeysTable(CMDArray* table, const QString& title)
{
    RecordDump::printKeys(
        table, QStringLiteral("void TemplateTab::printKeysTable(CMDArray*, const QString&)"), title);
}

void TemplateTab::printRecordTable(CVrkCliMod* module, CMDArray* table, MDRData* record, const QString& title)
{
    RecordDump::printRecord(module->session()->codec(), table, record, recordSignature(), title);
}

void TemplateTab::printTable(CVrkCliMod* module, CMDArray* table, const QString& title)
{
    RecordDump::printTable(module->session()->codec(), table, recordSignature(), title);
}
