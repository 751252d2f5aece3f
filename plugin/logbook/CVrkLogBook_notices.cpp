#include "CModelTable.h"
#include "CVrkCliSes.h"
#include "CVrkLogBook.h"
#include "LocationInfo.h"
#include "LogBookWidget.h"
#include "RecordValue.h"
#include "ui_CVrkLogBook.h"

/// What other modules ask of the journal.

void CVrkLogBook::slot_modNotify(QString name, QVariant value)
{
    if (name == QLatin1String("showRecord") && home()->isInit())
        showRecord(value.toString().toUtf8());
}

void CVrkLogBook::showRecord(const QByteArray& recordKey)
{
    QByteArray quoted = recordKey;
    quoted.replace('\'', "''");
    CMDArray answer;
    answer = session()->SqlRequest("SELECT W.KeyLink, W.DepartmentKey FROM LogbookRecords AS R INNER JOIN "
                                   "LogbookWorkshifts AS W ON W.KeyLink = R.ShiftKey WHERE R.KeyLink = '" +
                                   quoted + "'");
    const MDRData* row = answer.RecCount() > 0 ? MDARec(answer.array, 0, 0) : nullptr;
    if (!row) {
        showError(tr("Запись не найдена: её могли удалить."));
        return;
    }
    const QByteArray departmentKey = MDRValue::copy(recordValue(row, "DepartmentKey"));
    LogBookWidget* logbook = home();
    if (departmentKey == logbook->location()->departmentKey().toUtf8()) {
        m_form->logbooks->setCurrentWidget(logbook);
    } else {
        const MDRVar key = MDRValue::text(departmentKey);
        const MDRData* department = MDARecSeekV(m_departments->data.array, 0, &key, 0);
        const MDRVar organization =
            department ? recordValue(department, "OrganizationKey") : MDRValue::null();
        appendLogbook(QString::fromUtf8(MDRValue::copy(organization)), QString::fromUtf8(departmentKey));
        logbook = currentLogBook();
    }
    if (!logbook->showRecord(QString::fromUtf8(MDRValue::copy(recordValue(row, "KeyLink"))), recordKey))
        showError(tr("Запись не найдена: её могли удалить."));
}
