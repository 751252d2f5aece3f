#include "ReferenceData.h"

#include "CModelTable.h"
#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "PersonName.h"
#include "Row.h"
#include "TEventNciParse.h"
#include "TextMatch.h"

#include <algorithm>
#include <map>
#include <QHash>
#include <QSet>
#include <set>

namespace
{
struct WorkerRow {
    QString key;
    QString department;
    QString lastName;
    QString firstName;
    QString patronymicName;
    int group = 0;
    bool deleted = false;
};
struct EquipmentRow {
    QString key;
    QString parent;
    QString department;
    QString kind;
    QString name;
    QString voltage;
};

QString joined(const QStringList& parts, const QString& separator)
{
    QStringList present;
    for (const QString& part : parts) {
        if (!part.isEmpty())
            present << part;
    }
    return present.join(separator);
}

QString fullName(const WorkerRow& worker)
{
    return joined({worker.lastName, worker.firstName, worker.patronymicName}, QStringLiteral(" "));
}

QString shortName(const WorkerRow& worker)
{
    return PersonName::shortName(worker.lastName, worker.firstName, worker.patronymicName);
}

bool isEquipment(ParameterKind kind)
{
    return kind == ParameterKind::EquipmentName || kind == ParameterKind::EquipmentPath ||
           kind == ParameterKind::Substation || kind == ParameterKind::Line || kind == ParameterKind::Bay;
}

QString wantedKind(ParameterKind kind)
{
    if (kind == ParameterKind::Substation)
        return QStringLiteral("substation");
    if (kind == ParameterKind::Line)
        return QStringLiteral("line");
    return kind == ParameterKind::Bay ? QStringLiteral("bay") : QString();
}
} // namespace

struct ReferenceData::Private {
    CVrkCliMod* module = nullptr;
    std::map<ParameterKind, QVector<ReferenceItem>> items;
    std::map<QByteArray, std::unique_ptr<CModelTable>> tables;
    std::set<ParameterKind> incomplete; ///< read while a request failed: read again at the next question
    bool failed = false;

    CVrkCliSes* session() const { return module->session(); }
    QString userParameter(const char* name) const
    {
        CVrkCliApp* app = module->app();
        return app ? app->m_user_params.getValue(QString::fromLatin1(name), QString()) : QString();
    }

    const CMDArray& table(const QByteArray& name, const QByteArray& select)
    {
        std::unique_ptr<CModelTable>& kept = tables[name];
        if (!kept) {
            kept = std::make_unique<CModelTable>(name.toStdString());
            MDArray* answer = session() ? session()->SqlRequest(select.constData()) : nullptr;
            if (answer)
                kept->data = answer;
            else
                failed = true;
        }
        return kept->data;
    }
    /// Forgets tables that could not be read; true if there were any.
    bool dropFailed()
    {
        if (!failed)
            return false;
        for (auto it = tables.begin(); it != tables.end();)
            it = MDAKeyCount(it->second->data.array) == 0 ? tables.erase(it) : std::next(it);
        failed = false;
        return true;
    }
    const CMDArray& table(const QByteArray& name) { return table(name, "SELECT * FROM " + name + ";"); }

    template <class Field>
    QString text(const Row& row, const Field& field) const
    {
        return row.text(field, session()->codec());
    }
    template <class Function>
    void forEach(const CMDArray& rows, Function function) const
    {
        for (int i = 0; i < rows.RecCount(); ++i)
            function(Row(MDARec(rows.array, 0, i)));
    }

    QHash<QString, QString> names(const QByteArray& tableName)
    {
        QHash<QString, QString> map;
        forEach(table(tableName),
                [&](const Row& row) { map.insert(text(row, Field::KeyLink), text(row, Field::name_)); });
        return map;
    }

    QVector<WorkerRow> workers()
    {
        QVector<WorkerRow> list;
        forEach(table("Workers"), [&](const Row& row) {
            list.append({text(row, Field::KeyLink), text(row, Field::DepartmentKey),
                         text(row, Field::lastName), text(row, Field::firstName),
                         text(row, Field::patronymicName), row.number(Field::safetyGroup, 0),
                         row.isSet(Field::deleted_)});
        });
        return list;
    }

    /// The user's department and all departments below it.
    QSet<QString> area()
    {
        QSet<QString> keys{userParameter("DEPARTMENTKEY")};
        bool grown = true;
        while (grown) { // also ends with cycles, since each key is added once
            grown = false;
            forEach(table("Departments"), [&](const Row& row) {
                const QString key = text(row, Field::KeyLink);
                const QString parent = text(row, Field::ParentKey);
                if (!parent.isEmpty() && keys.contains(parent) && !keys.contains(key)) {
                    keys.insert(key);
                    grown = true;
                }
            });
        }
        return keys;
    }

    QVector<ReferenceItem> organizations();
    QVector<ReferenceItem> departments();
    QVector<ReferenceItem> workerItems(ParameterKind kind);
    QVector<ReferenceItem> equipment(ParameterKind kind);
    QVector<ReferenceItem> voltages();
    QVector<ReferenceItem> make(ParameterKind kind);
};

QVector<ReferenceItem> ReferenceData::Private::organizations()
{
    QVector<ReferenceItem> list;
    const QString own = userParameter("ORGANIZATIONKEY");
    forEach(table("Organizations"), [&](const Row& row) {
        ReferenceItem item;
        item.key = text(row, Field::KeyLink);
        item.text = text(row, Field::name_);
        item.near = item.key == own;
        list.append(item);
    });
    return list;
}

QVector<ReferenceItem> ReferenceData::Private::departments()
{
    QVector<ReferenceItem> list;
    const QSet<QString> own = area();
    const QHash<QString, QString> organizationNames = names("Organizations");
    forEach(table("Departments"), [&](const Row& row) {
        ReferenceItem item;
        item.key = text(row, Field::KeyLink);
        item.text = text(row, Field::name_);
        item.detail = organizationNames.value(text(row, Field::OrganizationKey));
        item.near = own.contains(item.key);
        list.append(item);
    });
    return list;
}

QVector<ReferenceItem> ReferenceData::Private::workerItems(ParameterKind kind)
{
    const QSet<QString> own = area();
    const QHash<QString, QString> departmentNames = names("Departments");
    const QHash<QString, QString> organizationNames = names("Organizations");
    const QHash<QString, QString> roleNames = names("Roles");
    QHash<QString, QString> organizationOf;
    forEach(table("Departments"), [&](const Row& row) {
        organizationOf.insert(text(row, Field::KeyLink),
                              organizationNames.value(text(row, Field::OrganizationKey)));
    });
    QHash<QString, QStringList> rolesOf;
    forEach(table("WorkerRoles"), [&](const Row& row) {
        const QString role = roleNames.value(text(row, Field::RoleKey));
        if (!role.isEmpty())
            rolesOf[text(row, Field::WorkerKey)] << role;
    });

    QVector<ReferenceItem> list;
    const QVector<WorkerRow> all = workers();
    for (const WorkerRow& worker : all) {
        if (worker.deleted)
            continue;
        QStringList roles = rolesOf.value(worker.key);
        roles.sort(Qt::CaseInsensitive);
        const QString role = roles.join(QLatin1Char('/'));
        const QString department = departmentNames.value(worker.department);
        ReferenceItem item;
        item.key = worker.key;
        item.near = own.contains(worker.department);
        item.detail = joined({role, department}, QStringLiteral(" · "));
        switch (kind) {
        case ParameterKind::WorkerWithRole:
            item.text = joined({fullName(worker), role}, QStringLiteral(", "));
            item.detail = department;
            break;
        case ParameterKind::WorkerWithGroup:
            item.text = PersonName::withGroup(fullName(worker), worker.group);
            break;
        case ParameterKind::WorkerWithPlace:
            item.text = joined({fullName(worker), department, organizationOf.value(worker.department)},
                               QStringLiteral(", "));
            item.detail = role;
            break;
        case ParameterKind::Crew:
            item.text = shortName(worker);
            break;
        case ParameterKind::CrewWithGroups:
            item.text = PersonName::withGroup(shortName(worker), worker.group);
            break;
        default:
            item.text = fullName(worker);
        }
        list.append(item);
    }
    return list;
}

QVector<ReferenceItem> ReferenceData::Private::equipment(ParameterKind kind)
{
    const QSet<QString> own = area();
    const QString wanted = wantedKind(kind);
    QVector<EquipmentRow> all;
    QHash<QString, int> byKey;
    forEach(table("Equipment"), [&](const Row& row) {
        byKey.insert(text(row, Field::KeyLink), all.size());
        all.append({text(row, Field::KeyLink), text(row, Field::ParentKey), text(row, Field::DepartmentKey),
                    text(row, Field::kind), text(row, Field::name_), text(row, Field::voltage)});
    });

    QVector<ReferenceItem> list;
    for (const EquipmentRow& row : qAsConst(all)) {
        if (row.name.isEmpty() || (!wanted.isEmpty() && row.kind.compare(wanted, Qt::CaseInsensitive) != 0))
            continue;
        QStringList containers;
        QString department = row.department;
        QSet<int> seen;
        for (int up = byKey.value(row.parent, -1); up >= 0 && !seen.contains(up);
             up = byKey.value(all.at(up).parent, -1)) {
            seen.insert(up);
            containers.prepend(all.at(up).name);
            if (department.isEmpty())
                department = all.at(up).department;
        }
        ReferenceItem item;
        item.key = row.key;
        item.near = department.isEmpty() || own.contains(department);
        const QString place = joined(containers, QStringLiteral(", "));
        const bool path = kind == ParameterKind::EquipmentPath;
        item.text = path ? joined({place, row.name}, QStringLiteral(", ")) : row.name;
        const QString voltage = row.name.contains(row.voltage) ? QString() : row.voltage;
        item.detail = joined({path ? QString() : place, voltage}, QStringLiteral(" · "));
        list.append(item);
    }
    return list;
}

QVector<ReferenceItem> ReferenceData::Private::voltages()
{
    QStringList all;
    forEach(table("Equipment"), [&](const Row& row) { all << text(row, Field::voltage); });
    all.removeAll(QString());
    all.removeDuplicates();
    const auto kilovolts = [](const QString& voltage) {
        return voltage.section(QLatin1Char(' '), 0, 0).replace(QLatin1Char(','), QLatin1Char('.')).toDouble();
    };
    std::sort(all.begin(), all.end(), [&](const QString& a, const QString& b) {
        return kilovolts(a) != kilovolts(b) ? kilovolts(a) < kilovolts(b) : a < b;
    });
    QVector<ReferenceItem> list;
    for (const QString& voltage : qAsConst(all)) {
        ReferenceItem item;
        const bool bare = voltage.at(voltage.size() - 1).isDigit();
        item.text = bare ? voltage + QStringLiteral(" кВ") : voltage;
        list.append(item);
    }
    return list;
}

QVector<ReferenceItem> ReferenceData::Private::make(ParameterKind kind)
{
    QVector<ReferenceItem> list;
    if (!session())
        return list;
    if (kind == ParameterKind::Voltage)
        list = voltages(); // sorted by voltage, not by text
    else if (kind == ParameterKind::Organization)
        list = organizations();
    else if (kind == ParameterKind::Department)
        list = departments();
    else if (isEquipment(kind))
        list = equipment(kind);
    else
        list = workerItems(kind);
    for (ReferenceItem& item : list)
        item.folded = TextMatch::folded(item.text + QLatin1Char(' ') + item.detail);
    if (kind != ParameterKind::Voltage) {
        std::stable_sort(list.begin(), list.end(), [](const ReferenceItem& a, const ReferenceItem& b) {
            return a.near != b.near ? a.near : a.folded < b.folded;
        });
    }
    return list;
}

ReferenceData* ReferenceData::of(CVrkCliMod* module)
{
    if (!module)
        return nullptr;
    ReferenceData* data = module->findChild<ReferenceData*>(QString(), Qt::FindDirectChildrenOnly);
    return data ? data : new ReferenceData(module);
}

ReferenceData::ReferenceData(CVrkCliMod* module) : QObject(module), d(new Private)
{
    d->module = module;
}

ReferenceData::~ReferenceData() = default;

const QVector<ReferenceItem>& ReferenceData::items(ParameterKind kind)
{
    const auto found = d->items.find(kind);
    if (found != d->items.end() && d->incomplete.count(kind) == 0)
        return found->second;
    QVector<ReferenceItem>& list = d->items[kind];
    list = d->make(kind);
    if (d->dropFailed())
        d->incomplete.insert(kind);
    else
        d->incomplete.erase(kind);
    return list;
}

QVector<ReferenceItem> ReferenceData::crew(ParameterKind kind)
{
    QVector<ReferenceItem> list;
    if (!d->session())
        return list;
    QByteArray department = d->userParameter("DEPARTMENTKEY").toUtf8();
    department.replace('\'', "''");
    const CMDArray& rows = d->table(
        "LogbookWorkersWorkshift",
        "SELECT LogbookWorkersWorkshift.* FROM LogbookWorkersWorkshift INNER JOIN LogbookWorkshifts ON "
        "LogbookWorkshifts.KeyLink = LogbookWorkersWorkshift.WorkshiftKey WHERE "
        "LogbookWorkshifts.DepartmentKey = '" +
            department +
            "' AND (LogbookWorkshifts.CloseWorkerKey IS NULL OR LogbookWorkshifts.CloseWorkerKey = '');");
    QSet<QString> keys;
    d->forEach(rows, [&](const Row& row) {
        if (row.isSet(Field::opening))
            keys.insert(d->text(row, Field::WorkerKey));
    });
    d->dropFailed();
    for (const ReferenceItem& item : items(kind)) {
        if (keys.contains(item.key))
            list.append(item);
    }
    return list;
}

QDateTime ReferenceData::now() const
{
    return d->session() ? d->session()->HfnTimeToSesTime() : QDateTime::currentDateTime();
}

QString ReferenceData::userKey() const
{
    return d->userParameter("KEYLINK");
}

void ReferenceData::MessageData(TEventNciParse* event)
{
    if (!event)
        return;
    QByteArray name = event->tableName.toLatin1();
    if (name.compare("LogbookWorkshifts", Qt::CaseInsensitive) == 0)
        name = "LogbookWorkersWorkshift"; // the crew of the open workshift
    const auto stale = std::find_if(d->tables.begin(), d->tables.end(), [&name](const auto& table) {
        return table.first.compare(name, Qt::CaseInsensitive) == 0;
    });
    if (stale == d->tables.end())
        return;
    d->tables.erase(stale);
    d->items.clear();
    emit changed();
}
