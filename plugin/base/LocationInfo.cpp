#include "LocationInfo.h"

#include "CModelTable.h"
#include "CStringParams.h"
#include "Fields.h"
#include "MDRValues.h"

#include <QDebug>

LocationInfo::LocationInfo(QObject* parent) : QObject(parent) {}

void LocationInfo::setWorkersTable(CModelTable* table)
{
    m_tables.insert(QStringLiteral("Workers"), table);
}

void LocationInfo::setDepartmentsTable(CModelTable* table)
{
    m_tables.insert(QStringLiteral("Departments"), table);
}

void LocationInfo::setOrganizationsTable(CModelTable* table)
{
    m_tables.insert(QStringLiteral("Organizations"), table);
}

void LocationInfo::setOrgTypesTable(CModelTable* table)
{
    m_tables.insert(QStringLiteral("OrgTypes"), table);
}

CModelTable* LocationInfo::table(const QString& name) const
{
    return m_tables.value(name, nullptr);
}

void LocationInfo::init(const CStringParams& params)
{
    m_userKey = params.getValue(QStringLiteral("KEYLINK"), QString());
    m_departmentKey = params.getValue(QStringLiteral("DEPARTMENTKEY"), QString());
    m_organizationKey = params.getValue(QStringLiteral("ORGANIZATIONKEY"), QString());
    m_workerKey = workerKey(m_userKey, m_departmentKey);
    m_orgTypeKey = orgTypeKey(m_organizationKey);
}

bool LocationInfo::hasError() const
{
    return m_userKey.isEmpty() || m_workerKey.isEmpty() || m_departmentKey.isEmpty() ||
           m_organizationKey.isEmpty();
}

QString LocationInfo::errorString() const
{
    if (m_userKey.isEmpty())
        return tr("Пользователь не определен!");
    if (m_workerKey.isEmpty())
        return tr("Сотрудник не определен!");
    if (m_departmentKey.isEmpty())
        return tr("Подразделение не определено!");
    if (m_organizationKey.isEmpty())
        return tr("Организация не определена!");
    return QString();
}

QString LocationInfo::workerKey(const QString& userKey, const QString& departmentKey) const
{
    const CModelTable* workers = table(QStringLiteral("Workers"));
    if (!workers || userKey.isEmpty() || departmentKey.isEmpty())
        return QString();

    const CMDArray& rows = workers->data;
    const QByteArray user = userKey.toUtf8();
    const QByteArray department = departmentKey.toUtf8();
    MDRVar value;
    for (int i = 0; i < rows.RecCount(); ++i) {
        const MDRData* row = MDARec(rows.array, 0, i);
        rows.GetVal(row, Field::deleted_, value);
        if (value.type != mdr_TNone && !value.isNull && value.value.number != 0)
            continue;
        rows.GetVal(row, Field::DepartmentKey, value);
        if (MDRValue::bytes(value) != department)
            continue;
        rows.GetVal(row, Field::UserKey, value);
        if (MDRValue::bytes(value) != user)
            continue;
        rows.GetVal(row, "keyLink", value);
        return QString::fromUtf8(MDRValue::copy(value));
    }
    return QString();
}

QString LocationInfo::orgTypeKey(const QString& organizationKey) const
{
    const CModelTable* organizations = table(QStringLiteral("Organizations"));
    if (!organizations || organizationKey.isEmpty())
        return QString();

    const QByteArray key = organizationKey.toUtf8();
    MDRVar value = MDRValue::text(key);
    const CMDArray& rows = organizations->data;
    const MDRData* row = MDARecSeekV(rows.array, 0, &value, 0);
    if (!row)
        return QString();
    rows.GetVal(row, Field::OrgTypeKey, value);
    return QString::fromUtf8(MDRValue::copy(value));
}

void LocationInfo::printInfo() const
{
    const QString line = QStringLiteral("---------------------------");
    qDebug().noquote() << line;
    qDebug().noquote() << tr("Пользователь : %1").arg(m_userKey);
    qDebug().noquote() << tr("Сотрудник    : %1").arg(m_workerKey);
    qDebug().noquote() << tr("Подразделение: %1").arg(m_departmentKey);
    qDebug().noquote() << tr("Организация  : %1").arg(m_organizationKey);
    qDebug().noquote() << line;
}
