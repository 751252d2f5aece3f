#include "ReadyCheck.h"

#include "ShiftBook.h"
#include "TemplateCells.h"

namespace
{
constexpr int deepest = 64;
constexpr int secondsOfDay = 86400;

/// True if the department may use the templates of a category.
bool isOffered(const Directory& directory, QByteArray category, const DirectoryRow& department)
{
    const DirectoryRow* organization =
        directory.row("Organizations", department.reference("OrganizationKey"));
    for (int depth = 0; depth < deepest; ++depth) {
        const DirectoryRow* row = directory.row("LogbookCatsTemplate", category);
        if (!row)
            return false;
        const QByteArray type = row->reference("OrgTypeKey");
        const QByteArray owner = row->reference("DepartmentKey");
        category = row->reference("ParentKey");
        if (!owner.isEmpty())
            return owner == department.key;
        if (!type.isEmpty())
            return organization && organization->reference("OrgTypeKey") == type;
        if (category.isEmpty())
            return true;
    }
    return false;
}

bool hasRow(const Directory& directory, const QByteArray& table, const DirectoryRow& department)
{
    for (const DirectoryRow* row : directory.rows(table)) {
        if (row->reference("DepartmentKey") == department.key)
            return true;
    }
    return false;
}

bool hasLogin(const Directory& directory, const DirectoryRow& department)
{
    for (const DirectoryRow* worker : directory.rows("Workers")) {
        const DirectoryRow* user = directory.row("Users", worker->reference("UserKey"));
        if (worker->reference("DepartmentKey") == department.key && !worker->retired() && user &&
            !user->retired())
            return true;
    }
    return false;
}

/// The shifts of the timetable that the store would refuse.
QStringList tooLong(const Directory& directory, const DirectoryRow& department, int longest)
{
    QStringList texts;
    for (const DirectoryRow* shift : directory.rows("Shifts")) {
        const double start = shift->values.value("startTime").toDouble();
        const double end = shift->values.value("endTime").toDouble();
        const double seconds = end < start ? end + secondsOfDay - start : end - start;
        if (shift->reference("DepartmentKey") == department.key && seconds > longest)
            texts << QStringLiteral("смена «%1» длиннее разрешённого (shifts.csv, vrk-admin option URL set "
                                    "LongestShift=…)")
                         .arg(shift->text("name_"));
    }
    return texts;
}
} // namespace

QVector<ReadyCheck::Finding> ReadyCheck::look(const Directory& directory, Store* store, StoreError* error)
{
    QVector<Finding> findings;
    const int longest = store->longestShift();
    const double now = store->serverTime();
    const auto departments = directory.rows("Departments");
    if (departments.isEmpty())
        findings.append({{}, QStringLiteral("нет ни одного подразделения (departments.csv)")});
    for (const DirectoryRow* department : departments) {
        const QString name = directory.label("Departments", *department);
        const auto missing = [&](const QString& text) { findings.append({name, text}); };
        bool opens = false;
        bool works = false;
        bool closes = false;
        for (const DirectoryRow* row : directory.rows("LogbookTemplates")) {
            if (!isOffered(directory, row->reference("CategoryKey"), *department))
                continue;
            const bool opening = TemplateCells::hasFlag(row->text("html"), "open_wshift");
            const bool closing = TemplateCells::hasFlag(row->text("html"), "close_wshift");
            opens = opens || opening;
            closes = closes || closing;
            works = works || (!opening && !closing);
        }
        if (!hasLogin(directory, *department))
            missing(
                QStringLiteral("открыть смену некому: нет сотрудника с логином (users.csv, workers.csv)"));
        if (!hasRow(directory, "Shifts", *department))
            missing(QStringLiteral("для открытия смены нет расписания (shifts.csv)"));
        for (const QString& text : tooLong(directory, *department, longest))
            missing(text);
        ShiftBook book;
        if (!book.load(store, department->key, error))
            return findings;
        if (book.last() && !(book.last()->end - now <= longest))
            missing(
                QStringLiteral("смену не открыть до %1, до конца последней (vrk-admin shift URL correct %2)")
                    .arg(ShiftBook::shown(book.last()->end), QString::fromUtf8(book.last()->key)));
        if (!opens)
            missing(QStringLiteral(
                "для открытия смены нет шаблона с «да» в столбце «Открывает смену» (templates.csv)"));
        if (!works)
            missing(QStringLiteral("для записей в смене нет ни одного обычного шаблона (templates.csv)"));
        if (!closes)
            missing(QStringLiteral(
                "для закрытия смены нет шаблона с «да» в столбце «Закрывает смену» (templates.csv)"));
    }
    return findings;
}
