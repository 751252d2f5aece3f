#include "LastWorkshift.h"

#include "CVrkCliMod.h"
#include "CVrkToolCalcExec.h"
#include "GenGuid32.h"
#include "HfnTime.h"

namespace
{
/// The script runs on the server unchanged, after a function name that is unique for each run.
const char script[] = R"(
( DepartmentKey )
{
// ***************************************************************************** //
// Функция возвращает времея конца последней смены в подразделении DepartmentKey //
// ***************************************************************************** //
var table       ,
keySeek     ,
record      ,
idx         ,
WorkshiftKey,
endTime     ;
keySeek = 1; // ключ ["DepartmentKey;startTime:0x4"] - Определен на сервере в CimModel
table   = _ModelTableByName( "LogbookWorkshifts" );
// Для таблицы LogbookWorkshifts на сервере добавлен ключ [1 = "DepartmentKey;startTime:0x4"].
// По этому ключу записи отсортированы в обратно порядке по подразделению и времени начала смены
// (т.е. сначала будут самые новые смены).
// Для поиска самой последней смены передаем очень большое число '5е10', которые в этой таблице
// не будет найдено и тогда вернется индекс самого близкого числа к '5e10' - эта запись и будет
// последней сменой.
// Т.к. CTblRecSeek() возвращается 2 значения - указатель на запись и индекс, берем индекс.
idx = CTblRecSeek( table, keySeek, [DepartmentKey, 5e10] )[1];
if( idx >= CTblRecCount(table) ) {
exit;
}
record = CTblRec( table, keySeek, idx );
if( CRecFldGet(record, "DepartmentKey") != DepartmentKey ) {
exit;
}
endTime = CRecFldGet(record, "endTime");
// Если не указано время конца смены, то это какая-то ошибка
if( type(endTime) != var_Dbl ) {
exit;
}
Result = endTime;
}
)";
} // namespace

QDateTime lastWorkshiftEnd(CVrkCliMod* module, const QString& departmentKey)
{
    CVrkToolCalcExec tool(module);
    tool.m_script = QLatin1Char('_') + QString::fromLatin1(GenGuid32()) + QString::fromUtf8(script);
    const QByteArray department = departmentKey.toUtf8();
    CVarSetArr(&tool.m_input, 1);
    if (tool.m_input.type == CVar::Array && !tool.m_input.elements.empty())
        CVarSetStr(&tool.m_input.elements.front(), department.constData(), department.size());

    if (tool.Perform(false) != CVrkToolObject::Done || tool.m_output.type != CVar::Double)
        return {};
    return HfnTime_to_DateTime(tool.m_output.number, -1);
}
