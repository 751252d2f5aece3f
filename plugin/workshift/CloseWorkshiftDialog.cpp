#include "CloseWorkshiftDialog.h"

#include "CModelTable.h"
#include "CrewTable.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "KeptChoice.h"
#include "LogbookFields.h"
#include "LogText.h"
#include "RecordValue.h"
#include "ui_CloseWorkshiftDialog.h"

#include <QCloseEvent>

namespace
{
QString applySignature()
{
    return QStringLiteral("void CloseWorkshiftDialog::apply()");
}
} // namespace

CloseWorkshiftDialog::CloseWorkshiftDialog(QWidget* parent, int flag)
    : WorkshiftDialog(parent, flag), m_form(new Ui::CloseWorkshiftDialog)
{
    m_form->setupUi(this);
    // The filled-in text gets the space.
    m_form->splitter_2->setSizes({340, 860});
    m_form->splitter->setSizes({280, 580});
    setUpForm({m_form->workersTable, m_form->addWorkerButton, m_form->removeWorkerButton,
               m_form->clearWorkersButton, m_form->templatesWidget, m_form->templateFiller,
               m_form->cancelButton, m_form->closeWorkshiftButton},
              QStringLiteral("close_wshift"));
    m_form->closeWorkshiftButton->setToolTip(QStringLiteral("Ctrl+Enter"));

    connect(m_form->closeWorkshiftButton, &QPushButton::clicked, this, [this] {
        apply();
        close(); // in every case
    });
    for (QDateTimeEdit* edit :
         std::initializer_list<QDateTimeEdit*>{m_form->eventDateEdit, m_form->eventTimeEdit})
        connect(edit, &QDateTimeEdit::dateTimeChanged, m_kept, &KeptChoice::touch);
    connect(m_templates, &TemplatesWidget::selectionChanged, this, [this] {
        reloadTemplateText(m_templates->currentTemplate(),
                           QStringLiteral("void CloseWorkshiftDialog::reloadTemplateText(MDArrayRec*)"));
    });
}

CloseWorkshiftDialog::~CloseWorkshiftDialog() = default;

void CloseWorkshiftDialog::setCurrentWorkshift(MDRData* workshift)
{
    // The key is kept, not the record: the table may be reloaded while the dialog is open.
    m_workshiftKey = Row(workshift).key();
}

MDRData* CloseWorkshiftDialog::currentWorkshift() const
{
    return recordByKeyLink(table(QLatin1String(LogbookTable::Workshifts)), m_workshiftKey.constData());
}

void CloseWorkshiftDialog::showEvent(QShowEvent* event)
{
    const QDateTime now = module()->session()->HfnTimeToSesTime();
    m_form->eventDateEdit->setDate(now.date());
    m_form->eventTimeEdit->setTime(now.time());
    m_templates->reloadTemplates();
    m_templates->selectFirstTemplate();
    updateStateControls();
    m_proposed = eventTime();
    m_kept->begin();
    resize(1200, 500);
    moveToCenter();
    WorkshiftDialog::showEvent(event);
}

void CloseWorkshiftDialog::closeEvent(QCloseEvent* event)
{
    WorkshiftDialog::closeEvent(event);
    m_workshiftKey.clear();
    m_approveDraftRecords = false;
}

QDateTime CloseWorkshiftDialog::eventTime() const
{
    return QDateTime(m_form->eventDateEdit->date(), m_form->eventTimeEdit->time());
}

KeptTexts::Values CloseWorkshiftDialog::chosen() const
{
    const QStringList workers = m_crew->workerKeys();
    const QDateTime time = eventTime();
    if (workers.isEmpty() && time == m_proposed)
        return {};
    KeptTexts::Values values = chosenCrew(workers, time.toString(QStringLiteral("dd.MM.yyyy hh:mm")));
    values.insert(QStringLiteral("workshift"), QString::fromUtf8(m_workshiftKey));
    if (time != m_proposed) // otherwise "now" is right each time the dialog is shown
        values.insert(QStringLiteral("time"), time.toString(Qt::ISODate));
    return values;
}

bool CloseWorkshiftDialog::isOver(const KeptTexts::Values& kept) const
{
    return kept.value(QStringLiteral("workshift")).toUtf8() != m_workshiftKey;
}

void CloseWorkshiftDialog::chooseTimes(const KeptTexts::Values& kept)
{
    const QDateTime time = QDateTime::fromString(kept.value(QStringLiteral("time")), Qt::ISODate);
    if (!time.isValid())
        return;
    m_form->eventDateEdit->setDate(time.date());
    m_form->eventTimeEdit->setTime(time.time());
}

void CloseWorkshiftDialog::updateStateControls()
{
    m_form->closeWorkshiftButton->setEnabled(m_filler->isFilled());
    m_form->missingLabel->setText(m_filler->isFilled() ? QString() : missingText());
}

void CloseWorkshiftDialog::updateWorkshiftControls()
{
    const QTableWidgetItem* current = m_form->workersTable->currentItem();
    m_form->clearWorkersButton->setEnabled(m_form->workersTable->rowCount() > 0);
    m_form->removeWorkerButton->setEnabled(current && current->isSelected());
}

void CloseWorkshiftDialog::clearWorkers()
{
    m_crew->clear();
    updateWorkshiftControls();
}

void CloseWorkshiftDialog::approveDrafts() const
{
    CModelTable* records = table(QLatin1String(LogbookTable::Records));
    CRowBatch batch(LogbookRecordFields);
    for (int position = 0; records && position < records->data.RecCount(); ++position) {
        const MDRData* record = MDARec(records->data.array, 0, position);
        if (!hasStatus(record, StatusDraft))
            continue;
        MDRData* row = batch.newRow(ROW_UPDATE, Row(record).key());
        batch.SetValF(row, Field::status, MDRValue::number(StatusApproved));
        batch.RecPost(row);
    }
    if (batch.RecCount() > 0 && !send(LogbookTable::Records, batch))
        LogText::warn(
            applySignature(),
            LogText::fill(
                QStringLiteral("error create record about closing workshift! SqlUpdate returned FALSE! "
                               "Table: %1"),
                {QLatin1String(LogbookTable::Records)}));
}

bool CloseWorkshiftDialog::closeWorkshift(const MDRData* workshift, const QByteArray& key) const
{
    CRowBatch batch(LogbookWorkshiftFields);
    MDRData* row = batch.newRow(ROW_UPDATE, key);
    for (int number = 0; workshift && number < MDAFldCount(batch.array); ++number) {
        MDRVar value;
        MDRGetVal(MDRFldByNum(MDARecArr(workshift), number), workshift, &value);
        MDRSetVal(MDRFldByNum(batch.array, number), row, &value);
    }
    const QByteArray workerKey = m_workerKey.toUtf8();
    batch.SetValF(row, Field::CloseWorkerKey, MDRValue::text(workerKey));
    batch.RecPost(row);
    if (send(LogbookTable::Workshifts, batch))
        return true;
    LogText::warn(
        applySignature(),
        LogText::fill(QStringLiteral("failed closing workshift! SqlUpdate returned FALSE! Data: "
                                     "Table[%1],%2[%3],%4[%5]"),
                      {QLatin1String(LogbookTable::Workshifts), QLatin1String(Field::KeyLink),
                       QString::fromLatin1(key), QLatin1String(Field::CloseWorkerKey), m_workerKey}));
    return false;
}

void CloseWorkshiftDialog::apply()
{
    const QString title = tr("Ошибка закрытия смены");
    const QString internalError = tr("Произошла внутренняя ошибка при закрытии смены!");
    if (m_approveDraftRecords)
        approveDrafts();

    const double time = DateTime_To_HfnTime(eventTime());
    const QByteArray workshiftKey = m_workshiftKey;
    QStringList values{QLatin1String(LogbookTable::Records)};
    CRowBatch record(LogbookRecordFields);
    addRecord(record, workshiftKey, time, &values);
    if (!send(LogbookTable::Records, record)) {
        // The last pair, the direction, is not in the log line.
        LogText::warn(
            applySignature(),
            LogText::fill(
                QStringLiteral("error create record about closing workshift! SqlUpdate returned FALSE! "
                               "Data: Table[%1]: %2[%3], %4[%5], %6[%7], %8[%9], %10[%11],%12[%13], "
                               "%14[%15], %16[%17], %18[%19],%20[%21], %22[%23], %24[%25], %26[%27],"),
                values));
        emit error(title, tr("Не удалось создать запись о закрытии смены!"));
        return;
    }
    if (!closeWorkshift(currentWorkshift(), workshiftKey)) {
        emit error(title, internalError);
        return;
    }
    m_kept->forget();
    m_filler->valuesWritten(); // not earlier: a failed closing is tried again with the same text

    CRowBatch takers(LogbookWorkersWorkshiftFields);
    addCrewRows(takers, workshiftKey, false);
    if (takers.RecCount() > 0 && !send(LogbookTable::WorkersWorkshift, takers)) {
        // Deliberate: the line names the table of workshifts.
        LogText::warn(
            applySignature(),
            LogText::fill(
                QStringLiteral("failed closing workshift! SqlUpdate returned FALSE! Data: Table[%1]"),
                {QLatin1String(LogbookTable::Workshifts)}));
        emit error(title, internalError);
    }
}
