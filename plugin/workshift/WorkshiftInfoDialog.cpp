#include "WorkshiftInfoDialog.h"

#include "CModelTable.h"
#include "CrewTable.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "HfnWrapper.h"
#include "RecordValue.h"
#include "ui_WorkshiftInfoDialog.h"

WorkshiftInfoDialog::WorkshiftInfoDialog(QWidget* parent, int flag)
    : CPopTemplate(parent, flag), m_form(new Ui::WorkshiftInfoDialog)
{
    m_form->setupUi(this);
    setWindowIcon(QIcon(QStringLiteral(":/icons/info.png")));
    m_crew = new CrewTable(m_form->workersTable, module()->session(), this);
    m_crew->setNames(CrewTable::ShortNames);
    connect(m_form->closeButton, &QPushButton::clicked, this, &WorkshiftInfoDialog::close);
}

WorkshiftInfoDialog::~WorkshiftInfoDialog() = default;

void WorkshiftInfoDialog::showEvent(QShowEvent* event)
{
    reload();
    resize(300, 300);
    moveToCenter();
    CPopTemplate::showEvent(event);
}

void WorkshiftInfoDialog::setWorkshiftRecord(MDRData* record)
{
    m_workshiftKey = Row(record).key();
}

void WorkshiftInfoDialog::reload()
{
    for (QLabel* label : {m_form->startValue, m_form->endValue, m_form->openValue, m_form->closeValue})
        label->clear();
    m_crew->clear();
    const MDRData* workshift = recordByKeyLink(m_workshifts, m_workshiftKey.constData());
    if (!workshift)
        return;

    CVrkCliSes* session = module()->session();
    const auto showTime = [&](QLabel* label, const char* field) {
        label->setText(session->HfnTimeToSesTime(Row(workshift).value(field).value.real)
                           .toString(QStringLiteral("dd.MM.yyyy hh:mm")));
    };
    showTime(m_form->startValue, Field::startTime);
    showTime(m_form->endValue, Field::endTime);
    const auto showWorker = [&](QLabel* caption, QLabel* label, const char* field) {
        const MDRVar key = Row(workshift).value(field);
        caption->setVisible(!key.isNull);
        label->setVisible(!key.isNull);
        label->setText(
            HfnWrapper::workerFullName(session->codec(), m_workers, QString::fromUtf8(MDRValue::bytes(key))));
    };
    showWorker(m_form->openLabel, m_form->openValue, Field::OpenWorkerKey);
    showWorker(m_form->closeLabel, m_form->closeValue, Field::CloseWorkerKey);

    m_crew->setTables(m_workers, m_roles, m_workerRoles);
    m_crew->appendRows(m_crewRows);
}
