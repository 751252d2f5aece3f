#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "LogbookTables.h"
#include "RecordValue.h"
#include "TemplatesProxyModel.h"
#include "TemplateTab.h"

/// What the user sees on the page of his level.

QString TemplateTab::levelSignature(const char* function) const
{
    return QStringLiteral("void TemplateTab::%1_%2(QModelIndex, MDArrayRec*)")
        .arg(QLatin1String(function), QLatin1String(m_level->name));
}

/// An administrator sees all types of organizations, a local administrator that of his organization, a
/// viewer no page.
void TemplateTab::applyTemplateFilter_Orgs()
{
    if (isAdmin())
        return;
    const QString organization = isAnyAdmin() ? userParameter("ORGANIZATIONKEY") : QString();
    if (organization.isEmpty()) {
        emit hideMe();
        return;
    }
    const QString sql = QStringLiteral("SELECT * FROM %1 WHERE KeyLink = '%2';")
                            .arg(QLatin1String(LogbookTable::Organizations), organization);
    CMDArray answer;
    answer = m_module->session()->SqlRequest(sql.toUtf8().constData());
    if (answer.RecCount() == 0) {
        // Deliberate: the placeholder is not filled in.
        emit writeLog(QStringLiteral("void TemplateTab::applyTemplateFilter_Orgs()"),
                      QStringLiteral("SQL request {%1} return 0 records. Failed check "));
        emit hideMe();
        return;
    }
    const MDRVar type = Row(MDARec(answer.array, 0, 0)).value(Field::OrgTypeKey);
    if (MDRValue::hasText(type))
        proxy()->setFilterRoot(QString::fromUtf8(MDRValue::bytes(type)));
    else
        emit hideMe();
}

/// An administrator sees all departments, others their own. Deliberate: without a department the page is
/// hidden for everybody, including the administrator.
void TemplateTab::applyTemplateFilter_Deps()
{
    const QString department = userParameter("DEPARTMENTKEY");
    if (department.isEmpty()) {
        emit writeLog(
            QStringLiteral("void TemplateTab::applyTemplateFilter_Deps()"),
            QStringLiteral("not found department key in {m_app->m_user_params} by key DEPARTMENTKEY"));
        emit hideMe();
        return;
    }
    if (!isAdmin())
        proxy()->setFilterRoot(department);
}
