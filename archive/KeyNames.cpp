#include "KeyNames.h"

#include "CLiteModel.h"
#include "CToolLiteModel.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "HfnWrapper.h"
#include "MDRValues.h"

#include <algorithm>
#include <QTextCodec>

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
    return text(m_departments, key, Field::name_);
}

QString KeyNames::text(CModelTable* table, const QByteArray& key, const char* field) const
{
    const MDRVar value = MDRValue::text(key);
    const MDRData* row = table && !key.isEmpty() ? MDARecSeekV(table->data.array, 0, &value, 0) : nullptr;
    MDRVar found;
    if (!row)
        return QString();
    table->data.GetVal(row, field, found);
    return m_module->session()->codec()->toUnicode(MDRValue::bytes(found));
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
        const MDRData* row = MDARec(m_departments->data.array, 0, i);
        MDRVar key;
        MDRVar organization;
        m_departments->data.GetVal(row, Field::KeyLink, key);
        m_departments->data.GetVal(row, Field::OrganizationKey, organization);
        const QByteArray departmentKey = MDRValue::copy(key);
        QString name = departmentName(departmentKey);
        const QString organizationName = text(m_organizations, MDRValue::copy(organization), Field::name_);
        if (!organizationName.isEmpty())
            name += QStringLiteral(", ") + organizationName;
        all.append({departmentKey, name});
    }
    sort(&all);
    return all;
}

QVector<KeyNames::Entry> KeyNames::workers(const QByteArray& departmentKey) const
{
    QVector<Entry> all;
    for (int i = 0; m_workers && i < m_workers->data.RecCount(); ++i) {
        const MDRData* row = MDARec(m_workers->data.array, 0, i);
        MDRVar key;
        MDRVar department;
        m_workers->data.GetVal(row, Field::KeyLink, key);
        m_workers->data.GetVal(row, Field::DepartmentKey, department);
        if (!departmentKey.isEmpty() && MDRValue::copy(department) != departmentKey)
            continue;
        QString name = workerName(MDRValue::copy(key));
        if (departmentKey.isEmpty()) // a person may work in several departments
            name += QStringLiteral(", ") + departmentName(MDRValue::copy(department));
        all.append({MDRValue::copy(key), name});
    }
    sort(&all);
    return all;
}
