#include "WorkshiftsDialog.h"

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "LogbookTables.h"
#include "LogText.h"
#include "RecordValue.h"
#include "ui_WorkshiftsDialog.h"

#include <QKeyEvent>

WorkshiftsDialog::WorkshiftsDialog(QWidget* parent, int flag)
    : CPopTemplate(parent, flag), m_form(new Ui::WorkshiftsDialog)
{
    m_form->setupUi(this);
    setWindowIcon(QIcon(QStringLiteral(":/icons/workshift.png")));
    connect(m_form->workshiftsList, &QListWidget::currentRowChanged, this,
            &WorkshiftsDialog::updateStateControls);
    connect(m_form->workshiftsList, &QListWidget::doubleClicked, this, &WorkshiftsDialog::apply);
    connect(m_form->applyButton, &QPushButton::clicked, this, &WorkshiftsDialog::apply);
    connect(m_form->cancelButton, &QPushButton::clicked, this, &WorkshiftsDialog::close);
}

WorkshiftsDialog::~WorkshiftsDialog() = default;

void WorkshiftsDialog::showEvent(QShowEvent* event)
{
    m_form->applyButton->setEnabled(false);
    reloadWorkshifts();
    m_form->workshiftsList->setCurrentRow(0);
    updateStateControls();
    resize(300, 400);
    moveToCenter();
    CPopTemplate::showEvent(event);
}

void WorkshiftsDialog::updateStateControls()
{
    m_form->applyButton->setEnabled(m_form->workshiftsList->currentRow() >= 0);
}

void WorkshiftsDialog::reloadWorkshifts()
{
    const QString signature = QStringLiteral("void WorkshiftsDialog::reloadWorkshifts()");
    m_form->workshiftsList->clear();
    if (m_departmentKey.isEmpty()) {
        LogText::warn(signature, QStringLiteral("failed upload workshifts: department keyLink is empty!"));
        return;
    }
    CVrkCliSes* session = module()->session();
    const QString sql = QString::fromLatin1(LogbookSql::ClosedWorkshifts)
                            .arg(QLatin1String(LogbookTable::Workshifts), QLatin1String(Field::DepartmentKey),
                                 m_departmentKey, QLatin1String(Field::CloseWorkerKey));
    CMDArray workshifts;
    workshifts = session->SqlRequest(sql.toUtf8().constData());
    if (!workshifts.array) {
        LogText::warn(signature, QStringLiteral("error SQL query execution [%1]").arg(sql));
        return;
    }
    workshifts.setKeys({Field::KeyLink, "startTime:0x4"});

    for (int position = 0; position < MDAKeyRecCount(workshifts.array, 1); ++position) {
        const MDRData* workshift = MDARec(workshifts.array, 1, position);
        const auto time = [&](const char* field) {
            return session->HfnTimeToSesTime(Row(workshift).value(field).value.real)
                .toString(QStringLiteral("dd.MM.yyyy hh:mm"));
        };
        auto* item = new QListWidgetItem(
            time(Field::startTime) + QStringLiteral(" - ") + time(Field::endTime), m_form->workshiftsList);
        item->setData(Qt::UserRole, QString::fromLatin1(Row(workshift).bytes(Field::KeyLink)));
    }
}

void WorkshiftsDialog::apply()
{
    if (const QListWidgetItem* item = m_form->workshiftsList->currentItem()) {
        const QString key = item->data(Qt::UserRole).toString();
        if (!key.isEmpty())
            emit workshiftSelected(key);
    }
    close();
}

void WorkshiftsDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Enter && m_form->applyButton->isEnabled())
        apply();
    CPopTemplate::keyPressEvent(event);
}
