#include "KeyNames.h"

#include "CLiteModel.h"
#include "CToolLiteModel.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "HfnWrapper.h"
#include "Row.h"

#include <algorithm>

KeyNames::KeyNames() = default;
KeyNames::~KeyNames() = default;

bool KeyNames::load(CVrkCliMod* module)
{
    m_module = module;
    CToolLiteModel tool(module);
    tool.setObjectName(QStringLiteral("LiteModel"));
    tool.m_names << QStringLiteral("Workers") << QStringLiteral("Departments")
                 << QStringLiteral("Organizations");
    tool.Perform(false);
    m_model.reset(tool.m_model);
    tool.m_model = nullptr;
    if (!m_model)
        return false;
    m_workers = m_model->GetTableByName("Workers");
    m_departments = m_model->GetTableByName("Departments");
    m_organizations = m_model->GetTableByName("Organizations");
    return m_workers && m_departments && m_organizations;
}

QString KeyNames::workerName(const QByteArray& key) const
{
    return m_workers
               ? HfnWrapper::workerShortName(m_module->session()->codec(), m_workers, QString::fromUtf8(key))
               : QString();
}

QString KeyNames::departmentName(const QByteArray& key) const
{
    return HfnWrapper::nameOf(m_module->session()->codec(), m_departments, QString::fromUtf8(key));
}

QString KeyNames::organizationName(const QByteArray& departmentKey) const
{
    const QTextCodec* codec = m_module->session()->codec();
    const MDRData* row = recordByKeyLink(m_departments, departmentKey.constData());
    return row ? HfnWrapper::nameOf(codec, m_organizations, Row(row).text(Field::OrganizationKey, codec))
               : QString();
}

namespace
{
void sort(QVector<KeyNames::Entry>* entries)
{
    std::sort(entries->begin(), entries->end(),
              [](const KeyNames::Entry& left, const KeyNames::Entry& right) {
                  const int order = QString::localeAwareCompare(left.name, right.name);
                  return order != 0 ? order < 0 : left.key < right.key;
              });
}
} // namespace

QVector<KeyNames::Entry> KeyNames::departments() const
{
    QVector<Entry> all;
    for (int i = 0; m_departments && i < m_departments->data.RecCount(); ++i) {
        const Row row(MDARec(m_departments->data.array, 0, i));
        const QTextCodec* codec = m_module->session()->codec();
        QString name = row.text(Field::name_, codec);
        const QString organization =
            HfnWrapper::nameOf(codec, m_organizations, row.text(Field::OrganizationKey, codec));
        if (!organization.isEmpty())
            name += QStringLiteral(", ") + organization;
        all.append({row.key(), name});
    }
    sort(&all);
    return all;
}

QVector<KeyNames::Entry> KeyNames::workers(const QByteArray& departmentKey) const
{
    QVector<Entry> all;
    for (int i = 0; m_workers && i < m_workers->data.RecCount(); ++i) {
        const Row row(MDARec(m_workers->data.array, 0, i));
        const QByteArray department = row.copy(Field::DepartmentKey);
        if (!departmentKey.isEmpty() && department != departmentKey)
            continue;
        QString name = workerName(row.key());
        if (departmentKey.isEmpty()) // a person may work in several departments
            name += QStringLiteral(", ") + departmentName(department);
        all.append({row.key(), name});
    }
    sort(&all);
    return all;
}
