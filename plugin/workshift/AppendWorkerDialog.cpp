#include "AppendWorkerDialog.h"

#include "CrewTable.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "GenGuid32.h"
#include "HfnWrapper.h"
#include "HtmlParser.h"
#include "KeptChoice.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "LogText.h"
#include "RecordValue.h"
#include "TemplateText.h"
#include "ui_AppendWorkerDialog.h"

#include <QTextCodec>

namespace
{
void reportFailure(const char* table)
{
    LogText::warn(QStringLiteral("void AppendWorkerDialog::apply()"),
                  LogText::fill(QStringLiteral("fail request CVrkCliSes::SqlUpdate update %1!"),
                                {QLatin1String(table)}));
}
} // namespace

AppendWorkerDialog::AppendWorkerDialog(QWidget* parent, int flag)
    : CPopTemplate(parent, flag),
      m_pending(LogbookTable::Workshifts, LogbookWorkersWorkshiftFields, ""),
      m_form(new Ui::AppendWorkerDialog)
{
    m_form->setupUi(this);
    const auto isOver = [this](const KeptTexts::Values& kept) {
        return kept.value(QStringLiteral("workshift")).toUtf8() != m_workshiftKey;
    };
    m_kept = new KeptChoice(
        this, tr("Не добавлено: %1."),
        {[this] { return chosen(); }, isOver, [this](const KeptTexts::Values& kept) { choose(kept); }});
    setWindowIcon(QIcon(QStringLiteral(":/icons/info.png")));
    m_form->addButton->setIcon(QIcon(QStringLiteral(":/icons/add.png")));
    m_form->addButton->setToolTip(tr("Добавить сотрудника"));
    m_form->templateLabel->setTextFormat(Qt::RichText);
    m_crew = new CrewTable(m_form->workersTable, module()->session(), this);
    m_crew->setNames(CrewTable::ShortNames);

    connect(m_form->templateLabel, &QLabel::linkActivated, this, &AppendWorkerDialog::workerLinkClicked);
    connect(m_form->cancelButton, &QPushButton::clicked, this, &AppendWorkerDialog::close);
    connect(m_form->applyButton, &QPushButton::clicked, this, &AppendWorkerDialog::apply);
    connect(m_form->addButton, &QToolButton::clicked, this, &AppendWorkerDialog::showOrgStructDialog);
}

AppendWorkerDialog::~AppendWorkerDialog() = default;

void AppendWorkerDialog::setWorkshiftRecord(MDRData* record)
{
    m_workshiftKey = Row(record).key();
}

void AppendWorkerDialog::setDepartmentKey(const QString& key)
{
    m_departmentKey = key;
    m_kept->setPlace(keptPlace(key));
}

KeptTexts::Values AppendWorkerDialog::chosen() const
{
    QStringList workers;
    for (int position = 0; position < m_pending.data.RecCount(); ++position)
        workers << QString::fromUtf8(Row(MDARec(m_pending.data.array, 0, position)).copy(Field::WorkerKey));
    if (workers.isEmpty())
        return {};
    return {{QStringLiteral("caption"),
             tr("запись «%1»").arg(TemplateText::plain(m_form->templateLabel->text()))},
            {QStringLiteral("workshift"), QString::fromUtf8(m_workshiftKey)},
            {QStringLiteral("workers"), workers.join(u'\n')}};
}

void AppendWorkerDialog::choose(const KeptTexts::Values& kept)
{
    for (const QString& worker : kept.value(QStringLiteral("workers")).split(u'\n'))
        if (!m_crew->workerKeys().contains(worker))
            appendWorker(worker);
}

void AppendWorkerDialog::hideEvent(QHideEvent* event)
{
    m_kept->forget(); // dropped by the user, or written
    CPopTemplate::hideEvent(event);
}

void AppendWorkerDialog::showEvent(QShowEvent* event)
{
    reload();
    m_kept->begin();
    updateApplyEnabled();
    resize(400, 300);
    moveToCenter();
    CPopTemplate::showEvent(event);
}

void AppendWorkerDialog::reload()
{
    m_pending.data.lastError = MDAClearRec(m_pending.data.array);
    updateTemplate();
    m_crew->clear();
    if (m_workshiftKey.isEmpty())
        return;
    m_crew->setTables(m_workers, m_roles, m_workerRoles);
    m_crew->appendRows(m_crewRows);
}

void AppendWorkerDialog::updateApplyEnabled()
{
    m_form->applyButton->setEnabled(m_pending.data.RecCount() > 0);
}

QString AppendWorkerDialog::hardTemplate(int count)
{
    if (count == 0)
        return {};
    QStringList parameters;
    const std::string label = tr("ФИО").toStdString();
    for (int i = 0; i < count; ++i)
        parameters << QString::fromStdString(HtmlParser::createParameter(
            {{"name", "employee_fio"}, {"idx", std::to_string(i)}, {"locname", label}}, label));
    return (count == 1 ? tr("В смену дополнительно добавлен диспетчер: ")
                       : tr("В смену дополнительно добавлены диспетчеры: ")) +
           parameters.join(QStringLiteral(", "));
}

void AppendWorkerDialog::updateTemplate()
{
    m_form->templateLabel->clear();
    const int count = m_pending.data.RecCount();
    if (count == 0)
        return;
    HtmlParser parser(hardTemplate(count).toStdString());
    for (int position = 0; position < count; ++position) {
        const auto index = static_cast<unsigned>(position);
        const QByteArray key = Row(MDARec(m_pending.data.array, 0, position)).copy(Field::WorkerKey);
        const QString name =
            HfnWrapper::workerShortName(module()->session()->codec(), m_workers, QString::fromUtf8(key));
        if (!name.isEmpty())
            parser.setDisplayText(index, name.toStdString());
        parser.setPropertyData(index, key.toStdString());
    }
    m_form->templateLabel->setText(QString::fromStdString(parser.readyHtml(true)));
}

void AppendWorkerDialog::showOrgStructDialog()
{
    m_crew->choose(m_orgStructDialog, m_departmentKey, [this](const QString& key) { appendWorker(key); });
}

void AppendWorkerDialog::appendWorker(const QString& workerKey)
{
    const QByteArray rowKey = GenGuid32();
    const QByteArray worker = workerKey.toUtf8();
    MDRData* row = MDARecNew(m_pending.data.array);
    MDRSetFlags(row, ROW_INSERT);
    m_pending.data.SetValF(row, Field::KeyLink, MDRValue::text(rowKey));
    m_pending.data.SetValF(row, Field::WorkshiftKey, MDRValue::text(m_workshiftKey));
    m_pending.data.SetValF(row, Field::WorkerKey, MDRValue::text(worker));
    m_pending.data.SetValF(row, Field::opening, MDRValue::boolean(true));
    m_pending.data.RecPost(row);

    m_crew->append(workerKey);
    m_form->workersTable->selectRow(m_form->workersTable->rowCount() - 1);
    updateTemplate();
    updateApplyEnabled();
    m_kept->touch();
}

void AppendWorkerDialog::workerLinkClicked(const QString& link)
{
    const QString key = QString::fromStdString(HtmlParser::dataFromProperties(link.toStdString()));
    for (int row = 0; row < m_form->workersTable->rowCount(); ++row) {
        const QTableWidgetItem* item = m_form->workersTable->item(row, 0);
        if (item && item->data(Qt::UserRole).toString() == key)
            m_form->workersTable->selectRow(row);
    }
}

void AppendWorkerDialog::apply()
{
    if (m_pending.data.RecCount() == 0)
        return;
    if (!module()->session()->SqlUpdate(LogbookTable::WorkersWorkshift, m_pending.data.array, true,
                                        nullptr)) {
        reportFailure(LogbookTable::WorkersWorkshift);
        return; // the dialog stays open for another attempt
    }
    writeRecord();
    close();
}

void AppendWorkerDialog::writeRecord()
{
    const QByteArray recordKey = GenGuid32();
    const QByteArray workerKey = m_workerKey.toUtf8();
    const QByteArray html = module()->session()->codec()->fromUnicode(m_form->templateLabel->text());
    const double now = module()->session()->GetHfnTime();
    const MDRVar null = MDRValue::null();

    CRowBatch batch(LogbookRecordFields);
    MDRData* row = batch.newRow(ROW_INSERT, recordKey);
    batch.SetValF(row, Field::KeyLink, MDRValue::text(recordKey));
    batch.SetValF(row, Field::ShiftKey, MDRValue::text(m_workshiftKey));
    batch.SetValF(row, Field::WorkerKey, MDRValue::text(workerKey));
    for (const char* field : fieldNames(Field::VisaWorkerKey, Field::ReceiverWorkerKey,
                                        Field::SecondMarkWorkerKey, Field::OriginRecordKey,
                                        Field::firstMarkTime, Field::executionTime, Field::secondMarkTime))
        batch.SetValF(row, field, null);
    batch.SetValF(row, Field::recordTime, MDRValue::real(now));
    batch.SetValF(row, Field::eventTime, MDRValue::real(now));
    batch.SetValF(row, Field::html, MDRValue::text(html, mdr_TMemo));
    batch.SetValF(row, Field::status, MDRValue::number(StatusApproved));
    batch.SetValF(row, Field::direction, MDRValue::number(DirectionNone));
    batch.RecPost(row);
    if (!module()->session()->SqlUpdate(LogbookTable::Records, batch.array, true, nullptr))
        reportFailure(LogbookTable::Records); // the workers stay added
}
