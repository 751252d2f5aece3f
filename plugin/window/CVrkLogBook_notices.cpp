#include "AppendWorkerDialog.h"
#include "CModelTable.h"
#include "CommentCreatorDialog.h"
#include "CVrkCliApp.h"
#include "CVrkCliSes.h"
#include "CVrkLogBook.h"
#include "Fields.h"
#include "LeftTexts.h"
#include "LocationInfo.h"
#include "LogBookToolBar.h"
#include "LogBookWidget.h"
#include "NoticeBar.h"
#include "RecordValue.h"
#include "ui_CVrkLogBook.h"
#include "WorkshiftDialog.h"

#include <QAction>

/// Requests of other modules.

void CVrkLogBook::slot_modNotify(QString name, QVariant value)
{
    if (name == QLatin1String("showRecord") && home()->isInit())
        showRecord(value.toString().toUtf8());
}

bool CVrkLogBook::showRecord(const QByteArray& recordKey)
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
        return false;
    }
    const QByteArray departmentKey = Row(row).copy(Field::DepartmentKey);
    LogBookWidget* logbook = home();
    if (departmentKey == logbook->location()->departmentKey().toUtf8()) {
        m_form->logbooks->setCurrentWidget(logbook);
    } else {
        const Row department(recordByKeyLink(m_departments, departmentKey.constData()));
        appendLogbook(QString::fromUtf8(department.copy(Field::OrganizationKey)),
                      QString::fromUtf8(departmentKey));
        logbook = currentLogBook();
    }
    const bool isShown = logbook->showRecord(QString::fromUtf8(Row(row).key()), recordKey);
    if (!isShown)
        showError(tr("Запись не найдена: её могли удалить."));
    return isShown;
}

void CVrkLogBook::createLeftTexts()
{
    auto* bar = new NoticeBar(m_form->centralwidget);
    bar->setObjectName(QStringLiteral("leftTextsBar"));
    m_form->verticalLayout->insertWidget(0, bar);
    const auto always = [] { return true; };
    const auto byAction = [](const QString& place, QAction* action) {
        return LeftTexts::Opener{place, [action] { return action->isEnabled(); },
                                 [action](const KeptTexts::Text&) { action->trigger(); }};
    };
    const QString department = m_location->departmentKey();
    std::vector<LeftTexts::Opener> openers;
    openers.push_back({QStringLiteral("record/") + department, always, [this](const KeptTexts::Text& text) {
                           m_form->logbooks->setCurrentWidget(home());
                           home()->showKeptRecord(text);
                       }});
    openers.push_back({CommentCreatorDialog::keptPlace(), always, [this](const KeptTexts::Text& text) {
                           if (showRecord(text.values.value(QStringLiteral("record")).toUtf8()))
                               currentTab()->showKeptComment(text);
                       }});
    openers.push_back(byAction(QStringLiteral("values/open_wshift/") + department,
                               m_toolBar->action("openWorkshiftAction")));
    openers.push_back(byAction(QStringLiteral("values/close_wshift/") + department,
                               m_toolBar->action("closeWorkshiftAction")));
    openers.push_back(byAction(WorkshiftDialog::keptPlace(QStringLiteral("open_wshift"), department),
                               m_toolBar->action("openWorkshiftAction")));
    openers.push_back(byAction(WorkshiftDialog::keptPlace(QStringLiteral("close_wshift"), department),
                               m_toolBar->action("closeWorkshiftAction")));
    openers.push_back(
        byAction(AppendWorkerDialog::keptPlace(department), m_toolBar->action("appendWorkerAction")));
    new LeftTexts(m_app->keptTexts(), bar, std::move(openers), this);
}
