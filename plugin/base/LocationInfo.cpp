#include "LocationInfo.h"

#include "CModelTable.h"
#include "CStringParams.h"
#include "Row.h"

#include <QDebug>

LocationInfo::LocationInfo(QObject* parent) : QObject(parent) {}

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

    const QByteArray user = userKey.toUtf8();
    const QByteArray department = departmentKey.toUtf8();
    for (int i = 0; i < workers->data.RecCount(); ++i) {
        const Row row(MDARec(workers->data.array, 0, i));
        if (row.isSet(Field::deleted_) || row.bytes(Field::DepartmentKey) != department ||
            row.bytes(Field::UserKey) != user)
            continue;
        return QString::fromUtf8(MDRValue::copy(row.value("keyLink")));
    }
    return QString();
}

QString LocationInfo::orgTypeKey(const QString& organizationKey) const
{
    const MDRData* row =
        recordByKeyLink(table(QStringLiteral("Organizations")), organizationKey.toUtf8().constData());
    return QString::fromUtf8(Row(row).copy(Field::OrgTypeKey));
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
