#include "Command.h"

#include "AdminText.h"
#include "Arguments.h"
#include "Csv.h"
#include "Directory.h"
#include "JournalFigures.h"
#include "JsonList.h"
#include "StoreZone.h"

#include <QSaveFile>

namespace
{
void tell(const QVector<JournalFigures::Figure>& figures, const JournalFigures::Choice& choice,
          QTextStream& out)
{
    QByteArray group;
    for (const JournalFigures::Figure& figure : figures) {
        if (figure.group != group)
            out << JournalFigures::title(figure.group, choice.lateMinutes)
                << (figure.name.isNull() ? QStringLiteral(": ") : QStringLiteral(":\n"));
        group = figure.group;
        if (figure.name.isNull())
            out << QStringLiteral("%1 из %2\n").arg(figure.count).arg(figure.total);
        else
            out << QStringLiteral("  %1: %2\n").arg(AdminText::printable(figure.name)).arg(figure.count);
    }
}

void fill(const QVector<JournalFigures::Figure>& figures, JsonList* list)
{
    for (const JournalFigures::Figure& figure : figures)
        list->add({{QStringLiteral("group"), QString::fromUtf8(figure.group)},
                   {QStringLiteral("name"), figure.name.isNull() ? QJsonValue() : QJsonValue(figure.name)},
                   {QStringLiteral("count"), figure.count},
                   {QStringLiteral("total"), figure.total}});
}

bool writeCsv(const QVector<JournalFigures::Figure>& figures, const JournalFigures::Choice& choice,
              const QString& path)
{
    QVector<QStringList> rows{{QStringLiteral("Показатель"), QStringLiteral("Название"),
                               QStringLiteral("Число"), QStringLiteral("Из")}};
    for (const JournalFigures::Figure& figure : figures)
        rows.append({JournalFigures::title(figure.group, choice.lateMinutes), Csv::harmless(figure.name),
                     QString::number(figure.count), QString::number(figure.total)});
    const QByteArray bytes = Csv::write(rows);
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

bool count(Store* store, const Directory& directory, const JournalFigures::Choice& choice,
           QVector<JournalFigures::Figure>* figures, StoreError* error)
{
    JournalFigures counted(choice, store->codec());
    for (QByteArray sql; !(sql = counted.request()).isEmpty();) {
        CMDArray answer;
        answer = store->select(sql, error);
        if (!answer.array)
            return false;
        counted.take(answer);
    }
    QHash<QByteArray, QString> departments;
    for (const DirectoryRow* row : directory.rows("Departments"))
        departments.insert(row->key, directory.reference("Departments", row->key));
    *figures = counted.figures(departments);
    return true;
}

/// Reads a time into \a time unless the text is null; false if it is none.
bool read(const QString& text, double* time)
{
    *time = text.isNull() ? 0 : Arguments::timeOf(text);
    return text.isNull() || *time > 0;
}

/// Reads whole minutes into \a minutes unless the text is null; false if it is none.
bool read(const QString& text, int* minutes)
{
    bool isNumber = true;
    if (!text.isNull())
        *minutes = text.toInt(&isNumber);
    return isNumber && *minutes >= 0;
}

/// Empty if the choice is understood, otherwise the reason.
QString refusal(const Directory& directory, const QString& from, const QString& to, const QString& department,
                JournalFigures::Choice* choice)
{
    if (!read(from, &choice->from) || !read(to, &choice->to))
        return QStringLiteral("Время пишется так: дд.ММ.гггг чч:мм.");
    if (choice->to > 0 && choice->to <= choice->from)
        return QStringLiteral("Начало должно быть раньше конца.");
    if (department.isNull())
        return {};
    const QVector<QByteArray> found = directory.resolve("Departments", department);
    choice->department = found.value(0);
    return found.size() == 1 ? QString()
           : found.isEmpty()
               ? QStringLiteral("Подразделения «%1» нет.").arg(department)
               : QStringLiteral("Подразделений «%1» несколько, назовите и организацию: «Организация / %1».")
                     .arg(department);
}
} // namespace

Command::ExitCode Command::stats(const QStringList& arguments, Streams& streams)
{
    QStringList rest = arguments;
    JsonList list(&rest);
    const QString from = Arguments::takeValue(&rest, QStringLiteral("--from"));
    const QString to = Arguments::takeValue(&rest, QStringLiteral("--to"));
    const QString department = Arguments::takeValue(&rest, QStringLiteral("--department"));
    const QString late = Arguments::takeValue(&rest, QStringLiteral("--late"));
    const QString csv = Arguments::takeValue(&rest, QStringLiteral("--csv"));
    if (rest.size() != 1 || (list.isWanted() && !csv.isNull()))
        return WrongUsage;
    StoreError error;
    const auto store = Store::open(rest.constFirst(), {}, &error);
    Directory directory;
    if (!store || !directory.load(store.get(), &error))
        return fail(streams, error);
    const StoreZone zone(*store);
    JournalFigures::Choice choice;
    if (!read(late, &choice.lateMinutes)) {
        streams.err << QStringLiteral("Опоздание пишется целым числом минут.\n");
        return Failed;
    }
    if (const QString reason = refusal(directory, from, to, department, &choice); !reason.isEmpty()) {
        streams.err << reason << QLatin1Char('\n');
        return Failed;
    }
    QVector<JournalFigures::Figure> figures;
    if (!count(store.get(), directory, choice, &figures, &error))
        return fail(streams, error);
    if (!csv.isNull() && !writeCsv(figures, choice, csv)) {
        streams.err << QStringLiteral("Не удалось записать %1\n").arg(csv);
        return Failed;
    }
    if (list.isWanted()) {
        fill(figures, &list);
        list.print(streams.out);
    } else if (csv.isNull()) {
        tell(figures, choice, streams.out);
    }
    return Success;
}
