#include "Sheet.h"

#include <algorithm>

namespace
{
using Column = SheetColumn;
constexpr int identified = Column::Required | Column::Identity;

Column name(const QString& heading, const char* field, int use = identified)
{
    return {heading, field, Column::Text, use, {}};
}

Column reference(const QString& heading, const char* field, const char* table, int use = Column::Optional)
{
    return {heading, field, Column::Reference, use, table};
}

Column plain(const QString& heading, const char* field, Column::Kind kind, int use = Column::Optional)
{
    return {heading, field, kind, use, {}};
}

Sheet sheet(const QString& file, const QString& title, const char* table, QVector<Column> columns)
{
    columns.append({QStringLiteral("Код"), "KeyLink", Column::Code, Column::Optional, {}});
    return {file, title, table, columns};
}

/// Tables that the converter reads.
QVector<Sheet> earlierJournal()
{
    const auto field = [](const char* name, Column::Kind kind, const char* refers = "") {
        return Column{QString::fromLatin1(name), name, kind, Column::Optional, refers};
    };
    const auto raw = [&](const char* name) { return field(name, Column::Verbatim); };
    const auto table = [&](const char* name, const QString& title, QVector<Column> columns) {
        columns.append({QStringLiteral("KeyLink"), "KeyLink", Column::Code, Column::Required, {}});
        return Sheet{QString::fromLatin1(name) + QStringLiteral(".csv"), title, name, columns, true};
    };
    return {
        table("OperLogCategories", QStringLiteral("категории прежнего журнала"),
              {raw("ParentKey"), field("OrgTypeKey", Column::Reference, "OrgTypes"),
               field("DepartmentKey", Column::Reference, "Departments"), raw("name_")}),
        table("OperLogTemplates", QStringLiteral("шаблоны прежнего журнала"),
              {raw("CategoryKey"), raw("name_"), raw("text_"), field("canStartShift", Column::Flag),
               field("canEndShift", Column::Flag), field("isNecessaryFinishTime", Column::Flag), raw("icon"),
               raw("completingIcon"), raw("completingCommand")}),
        table("OperLogTemplateParams", QStringLiteral("параметры прежнего журнала"),
              {raw("nameLat"), raw("nameLoc"), raw("param"), raw("TableKey"), raw("FieldTypeKey")}),
    };
}

QVector<Sheet> organization()
{
    const QString title = QStringLiteral("Название");
    const QString department = QStringLiteral("Подразделение");
    const QString parent = QStringLiteral("Входит в");
    const QString retired = QStringLiteral("Удалён");
    return {
        sheet(QStringLiteral("organization-types.csv"), QStringLiteral("типы организаций"), "OrgTypes",
              {name(title, "name_")}),
        sheet(QStringLiteral("organizations.csv"), QStringLiteral("организации"), "Organizations",
              {name(title, "name_"), reference(QStringLiteral("Тип"), "OrgTypeKey", "OrgTypes"),
               reference(parent, "ParentKey", "Organizations")}),
        sheet(QStringLiteral("departments.csv"), QStringLiteral("подразделения"), "Departments",
              {reference(QStringLiteral("Организация"), "OrganizationKey", "Organizations", identified),
               name(title, "name_"), reference(parent, "ParentKey", "Departments")}),
        sheet(QStringLiteral("users.csv"), QStringLiteral("пользователи и их права"), "Users",
              {name(QStringLiteral("Логин"), "login"), name(QStringLiteral("Имя"), "name_", Column::Optional),
               plain(QStringLiteral("Права"), "", Column::Rights), plain(retired, "deleted_", Column::Flag)}),
        sheet(QStringLiteral("workers.csv"), QStringLiteral("сотрудники"), "Workers",
              {reference(department, "DepartmentKey", "Departments", identified),
               name(QStringLiteral("Фамилия"), "lastName"),
               name(QStringLiteral("Имя"), "firstName", Column::Identity),
               name(QStringLiteral("Отчество"), "patronymicName", Column::Identity),
               reference(QStringLiteral("Логин"), "UserKey", "Users"),
               plain(QStringLiteral("Группа"), "safetyGroup", Column::SafetyGroup),
               plain(retired, "deleted_", Column::Flag)}),
        sheet(QStringLiteral("roles.csv"), QStringLiteral("должности"), "Roles",
              {reference(department, "DepartmentKey", "Departments", identified), name(title, "name_")}),
        sheet(QStringLiteral("worker-roles.csv"), QStringLiteral("должности сотрудников"), "WorkerRoles",
              {plain(department, "DepartmentKey", Column::Scope),
               reference(QStringLiteral("Сотрудник"), "WorkerKey", "Workers", identified),
               reference(QStringLiteral("Должность"), "RoleKey", "Roles", identified)}),
        sheet(QStringLiteral("shifts.csv"), QStringLiteral("расписание смен"), "Shifts",
              {reference(department, "DepartmentKey", "Departments", identified), name(title, "name_"),
               plain(QStringLiteral("Начало"), "startTime", Column::Time, Column::Required),
               plain(QStringLiteral("Конец"), "endTime", Column::Time, Column::Required)}),
        sheet(QStringLiteral("equipment.csv"), QStringLiteral("оборудование"), "Equipment",
              {reference(department, "DepartmentKey", "Departments"),
               plain(QStringLiteral("Вид"), "kind", Column::EquipmentKind, Column::Required),
               reference(parent, "ParentKey", "Equipment", Column::Identity), name(title, "name_"),
               name(QStringLiteral("Класс напряжения"), "voltage", Column::Optional)}),
    };
}

QVector<Sheet> templates()
{
    const QString title = QStringLiteral("Название");
    const QString parent = QStringLiteral("Входит в");
    const QString text = QStringLiteral("Текст");
    return {
        sheet(QStringLiteral("template-categories.csv"), QStringLiteral("категории шаблонов"),
              "LogbookCatsTemplate",
              {reference(QStringLiteral("Тип организации"), "OrgTypeKey", "OrgTypes", Column::Identity),
               reference(QStringLiteral("Подразделение"), "DepartmentKey", "Departments", Column::Identity),
               reference(parent, "ParentKey", "LogbookCatsTemplate", Column::Identity),
               name(title, "nameLoc")}),
        sheet(QStringLiteral("templates.csv"), QStringLiteral("шаблоны записей"), "LogbookTemplates",
              {reference(QStringLiteral("Категория"), "CategoryKey", "LogbookCatsTemplate", identified),
               name(title, "nameLoc"), plain(text, "html", Column::Notation, Column::Required),
               plain(QStringLiteral("Открывает смену"), "open_wshift", Column::TemplateFlag),
               plain(QStringLiteral("Закрывает смену"), "close_wshift", Column::TemplateFlag),
               plain(QStringLiteral("Требует времени выполнения"), "time_exec", Column::TemplateFlag),
               plain(QStringLiteral("Первый маркер"), "first_mark", Column::TemplateMarker),
               plain(QStringLiteral("Второй маркер"), "second_mark", Column::TemplateMarker),
               plain(QStringLiteral("Команда"), "command", Column::TemplateCommand)}),
        sheet(QStringLiteral("parameter-groups.csv"), QStringLiteral("группы готовых параметров"),
              "TemplateParamCategories",
              {reference(parent, "ParentKey", "TemplateParamCategories", Column::Identity),
               name(title, "nameLoc")}),
        sheet(QStringLiteral("parameters.csv"), QStringLiteral("готовые параметры шаблонов"),
              "TemplateParams",
              {reference(QStringLiteral("Группа"), "CategoryKey", "TemplateParamCategories", identified),
               name(title, "nameLoc"), plain(text, "html", Column::Notation, Column::Required)}),
    };
}

/// The number of characters to insert, delete or replace.
int distance(const QString& from, const QString& to)
{
    QVector<int> row(to.size() + 1);
    for (int i = 0; i < row.size(); ++i)
        row[i] = i;
    for (int i = 0; i < from.size(); ++i) {
        int diagonal = row[0];
        row[0] = i + 1;
        for (int k = 0; k < to.size(); ++k) {
            const int changed = diagonal + (from.at(i) == to.at(k) ? 0 : 1);
            diagonal = row[k + 1];
            row[k + 1] = std::min({changed, row[k] + 1, row[k + 1] + 1});
        }
    }
    return row.constLast();
}
} // namespace

const SheetColumn* Sheet::column(const QString& heading) const
{
    for (const SheetColumn& one : columns) {
        if (one.heading.compare(heading.trimmed(), Qt::CaseInsensitive) == 0)
            return &one;
    }
    return nullptr;
}

QStringList Sheet::headings() const
{
    QStringList all;
    for (const SheetColumn& one : columns)
        all << one.heading;
    return all;
}

const QVector<Sheet>& Sheets::all()
{
    static const QVector<Sheet> sheets = organization() + templates() + earlierJournal();
    return sheets;
}

const Sheet& Sheets::of(const QByteArray& table)
{
    for (const Sheet& one : all()) {
        if (one.table == table)
            return one;
    }
    qFatal("No sheet for the table %s", table.constData());
}

const Sheet* Sheets::byFile(const QString& file)
{
    for (const Sheet& one : all()) {
        if (one.file.compare(file, Qt::CaseInsensitive) == 0)
            return &one;
    }
    return nullptr;
}

const QStringList& Sheets::rights()
{
    static const QStringList known{
        QStringLiteral("ADMINISTRATOR"), QStringLiteral("ADMINISTRATOR_OPERLOG_LOCAL"),
        QStringLiteral("SQL_EXEC"),      QStringLiteral("SQL_REQUEST"),
        QStringLiteral("TBL_REQUEST"),   QStringLiteral("TBL_UPDATE")};
    return known;
}

QString Sheets::nearest(const QString& word, const QStringList& known)
{
    constexpr int shortestBeginning = 3;
    for (const QString& one : known) {
        if (word.size() >= shortestBeginning && one.startsWith(word, Qt::CaseInsensitive))
            return one;
    }
    QString best;
    int least = std::max(2, int(word.size()) / 2);
    for (const QString& one : known) {
        const int steps = distance(word.toCaseFolded(), one.toCaseFolded());
        if (steps <= least && (best.isEmpty() || steps < least)) {
            best = one;
            least = steps;
        }
    }
    return best;
}
