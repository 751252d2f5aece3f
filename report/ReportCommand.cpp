#include "ReportCommand.h"

#include "Arguments.h"
#include "Csv.h"
#include "FileSaver.h"
#include "HfnTime.h"
#include "RecordQuery.h"
#include "ReportFile.h"
#include "ReportSource.h"
#include "ShiftArchive.h"
#include "VrkPreviewHtml.h"
#include "VrkPreviewPaper.h"

#include <algorithm>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

// Outside of any namespace, as the macro requires.
static void openReportResources()
{
    Q_INIT_RESOURCE(report);
}

namespace
{
using ReportCommand::ExitCode;

QString words(const char* text)
{
    return QCoreApplication::translate("ReportCommand", text);
}

/// A chapter of help.txt: the lines below its title; empty if there is none.
QString chapter(const QString& title)
{
    openReportResources();
    QFile file(QStringLiteral(":/vrk-report/help.txt"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The program has lost its help");
    const QString text = QLatin1Char('\n') + QString::fromUtf8(file.readAll());
    const QString heading = QStringLiteral("\n== %1\n").arg(title);
    const int begin = text.indexOf(heading);
    if (begin < 0)
        return QString();
    const int end = text.indexOf(QStringLiteral("\n== "), begin + heading.size());
    return text.mid(begin + heading.size(), end < 0 ? -1 : end + 1 - begin - heading.size());
}

/// What was asked for; each value is null or false if it was not named.
struct Request {
    QString url;
    QString file;
    QString department, at, key, from, to, day, words, equipment, limit, days, format;
    bool isOpen = false;
    bool isAll = false;
    bool hasCode = false;
    bool isForced = false;
    bool hasFiles = false;
    QString fault; ///< of the arguments

    int number(const QString& text, int usual)
    {
        bool isNumber = true;
        const int value = text.isNull() ? usual : text.toInt(&isNumber);
        if (!isNumber || value < 1)
            fault = ::words("Не число: «%1».").arg(text);
        return value;
    }
    /// A time or, for a day without a time, its beginning or end.
    QDateTime time(const QString& text, bool isEnd)
    {
        if (text.isNull())
            return QDateTime();
        const QDate whole = QDate::fromString(text.simplified(), QStringLiteral("d.M.yyyy"));
        if (whole.isValid())
            return isEnd ? QDateTime(whole, QTime(23, 59, 59)) : QDateTime(whole, QTime(0, 0));
        const double found = Arguments::timeOf(text);
        if (found <= 0)
            fault = ::words("Не время: «%1». Пишите дд.ММ.гггг чч:мм.").arg(text);
        return HfnTime_to_DateTime(found, -1);
    }
};

/// Takes the options that the usage of the command names; everything else is a fault.
Request parsed(const QString& usage, const QStringList& arguments)
{
    Request request;
    QStringList rest = arguments;
    const struct {
        const char* name;
        QString* value;
    } values[] = {{"--department", &request.department},
                  {"--at", &request.at},
                  {"--key", &request.key},
                  {"--from", &request.from},
                  {"--to", &request.to},
                  {"--day", &request.day},
                  {"--words", &request.words},
                  {"--equipment", &request.equipment},
                  {"--limit", &request.limit},
                  {"--days", &request.days},
                  {"--format", &request.format}};
    const struct {
        const char* name;
        bool* flag;
    } flags[] = {{"--open", &request.isOpen},
                 {"--all", &request.isAll},
                 {"--code", &request.hasCode},
                 {"--force", &request.isForced},
                 {"--files", &request.hasFiles}};
    const auto isOffered = [&usage](const char* name) {
        return usage.contains(QStringLiteral("[%1").arg(QLatin1String(name)));
    };
    for (const auto& option : values)
        if (isOffered(option.name))
            *option.value = Arguments::takeValue(&rest, QLatin1String(option.name));
    for (const auto& option : flags)
        if (isOffered(option.name))
            *option.flag = Arguments::takeFlag(&rest, QLatin1String(option.name));
    for (const QString& argument : qAsConst(rest))
        if (argument.startsWith(QLatin1String("--")))
            request.fault = words("Неизвестный параметр «%1», или у него нет значения.").arg(argument);
    if (request.fault.isEmpty() && rest.size() != 2)
        request.fault =
            rest.size() < 2 ? words("Назовите хранилище и файл.") : words("Лишнее: «%1».").arg(rest.at(2));
    request.url = rest.value(0);
    request.file = rest.value(1);
    return request;
}

/// The kind of file: that of its name or, in a folder, the wanted one.
QString suffixOf(Request* request)
{
    const QStringList known{QStringLiteral("pdf"), QStringLiteral("html"), QStringLiteral("csv")};
    const bool isFolder = QFileInfo(request->file).isDir();
    const QString suffix = isFolder
                               ? (request->format.isNull() ? known.constFirst() : request->format.toLower())
                               : QFileInfo(request->file).suffix().toLower();
    if (!isFolder && !request->format.isNull() && request->format.toLower() != suffix)
        request->fault = words("Вид «%1» не подходит к имени файла.").arg(request->format);
    else if (!known.contains(suffix))
        request->fault = words("Вид отчёта: pdf, html или csv, а не «%1».").arg(suffix);
    return suffix;
}

bool readShift(ReportSource* source, Request* request, ReportDocument* document, QString* error)
{
    const QDateTime at = request->time(request->at, false);
    QByteArray department;
    QVector<ReportShift> shifts;
    if (!request->fault.isEmpty())
        return false;
    if ((request->key.isNull() && !source->department(request->department, &department)) ||
        !source->shifts(department, &shifts)) {
        *error = source->errorText();
        return false;
    }
    const auto wanted = std::find_if(shifts.crbegin(), shifts.crend(), [&](const ReportShift& shift) {
        if (!request->key.isNull())
            return shift.key == request->key.toUtf8();
        if (at.isValid())
            return shift.start <= at && at < shift.end;
        return shift.isOpen() == request->isOpen;
    });
    if (wanted == shifts.crend()) {
        *error = words("Такой смены нет.");
        return false;
    }
    return source->ofShift(*wanted, request->isAll, document);
}

bool readPeriod(ReportSource* source, Request* request, ReportDocument* document, QString* error)
{
    const QDate today = source->now().date();
    QDateTime from = request->time(request->from, false);
    QDateTime to = request->time(request->to, true);
    if (!request->day.isNull()) {
        const bool isYesterday = request->day == QLatin1String("yesterday");
        const QDate day = isYesterday || request->day == QLatin1String("today")
                              ? today.addDays(isYesterday ? -1 : 0)
                              : QDate::fromString(request->day, QStringLiteral("d.M.yyyy"));
        if (!day.isValid() || from.isValid() || to.isValid())
            request->fault = words("Назовите один день: yesterday, today или дд.ММ.гггг.");
        from = QDateTime(day, QTime(0, 0));
        to = QDateTime(day, QTime(23, 59, 59));
    }
    if (request->fault.isEmpty() && !from.isValid())
        request->fault = words("Назовите время: --from и --to, или --day.");
    if (!to.isValid())
        to = source->now();
    if (request->fault.isEmpty() && to < from)
        request->fault = words("Конец раньше начала.");
    if (!request->fault.isEmpty())
        return false;
    QByteArray department;
    if (source->department(request->department, &department))
        return source->ofPeriod(department, from, to, request->isAll, document);
    *error = source->errorText();
    return false;
}

bool readSearch(ReportSource* source, Request* request, ReportDocument* document, QString* error)
{
    RecordQuery query;
    query.words = request->words;
    query.equipment = request->equipment;
    query.limit = request->number(request->limit, query.limit);
    const QDateTime from = request->time(request->from, false);
    const QDateTime to = request->time(request->to, true);
    if (from.isValid())
        query.from = DateTime_To_HfnTime(from);
    if (to.isValid())
        query.to = DateTime_To_HfnTime(to);
    if (request->words.isEmpty() && request->equipment.isEmpty())
        request->fault = words("Назовите, что искать: --words или --equipment.");
    if (!request->fault.isEmpty())
        return false;
    if (request->department.isNull() || source->department(request->department, &query.departmentKey))
        return source->found(query, document);
    *error = source->errorText();
    return false;
}

bool readHandover(ReportSource* source, Request* request, ReportDocument* document, QString* error)
{
    constexpr int usualDays = 30; // as in the window
    const int days = request->number(request->days, usualDays);
    QByteArray department;
    if (!request->fault.isEmpty())
        return false;
    if (source->department(request->department, &department))
        return source->handover(department, days, document);
    *error = source->errorText();
    return false;
}

QByteArray bytesOf(const QString& suffix, ReportDocument* document)
{
    if (suffix == QLatin1String("csv"))
        return Csv::write(document->rows);
    if (suffix == QLatin1String("html"))
        return VrkPreviewHtml::page(document->table);
    QByteArray pdf;
    VrkPreviewPages pages;
    pages.setTable(document->table);
    VrkPreviewPaper::writePdf(&pages, document->table.footer.section(QLatin1Char('\n'), 0, 0),
                              QPageLayout::Landscape, &pdf);
    return pdf;
}

using Read = bool (*)(ReportSource*, Request*, ReportDocument*, QString*);

ExitCode report(Read read, Request* request, QTextStream& out, QTextStream& err)
{
    const QString suffix = suffixOf(request);
    if (!request->fault.isEmpty())
        return ReportCommand::WrongUsage;
    ReportSource source;
    ReportDocument document;
    QString error;
    const bool isRead = source.open(request->url) && read(&source, request, &document, &error);
    if (!request->fault.isEmpty())
        return ReportCommand::WrongUsage;
    if (!isRead) {
        err << (error.isEmpty() ? source.errorText() : error) << QLatin1Char('\n');
        return ReportCommand::Failed;
    }
    const QString seal = source.seal();
    document.table.imprint = seal.isEmpty() ? QString() : words("Опечатано: %1").arg(seal);
    document.table.code = request->hasCode ? seal.toLatin1() : QByteArray();
    const bool isFolder = QFileInfo(request->file).isDir();
    const QString file =
        isFolder
            ? QDir(request->file).filePath(FileSaver::fileName(document.name) + QLatin1Char('.') + suffix)
            : request->file;
    if (!ReportFile::write(file, bytesOf(suffix, &document), isFolder || request->isForced, &error)) {
        err << error << QLatin1Char('\n');
        return ReportCommand::Failed;
    }
    out << words("Записано: %1").arg(QDir::toNativeSeparators(file)) << QLatin1Char('\n');
    return ReportCommand::Success;
}

ExitCode archive(Request* request, QTextStream& out, QTextStream& err)
{
    ReportSource source;
    if (!source.open(request->url)) {
        err << source.errorText() << QLatin1Char('\n');
        return ReportCommand::Failed;
    }
    ShiftArchive folder(&source, request->file, request->hasFiles);
    if (!folder.update()) {
        err << folder.errorText() << QLatin1Char('\n');
        return ReportCommand::Failed;
    }
    out << words("Смен: %1, записано страниц: %2, убрано: %3\n")
               .arg(folder.shiftCount())
               .arg(folder.writtenCount())
               .arg(folder.removedCount());
    return ReportCommand::Success;
}

bool isHelp(const QString& argument)
{
    return argument == QLatin1String("--help") || argument == QLatin1String("-h") ||
           argument == QLatin1String("help");
}
} // namespace

ReportCommand::ExitCode ReportCommand::run(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    const struct {
        const char* name;
        Read read; ///< null for the archive
    } commands[] = {{"shift", readShift},
                    {"period", readPeriod},
                    {"search", readSearch},
                    {"handover", readHandover},
                    {"archive", nullptr}};
    const QString name = arguments.value(0);
    if (name.isEmpty() || isHelp(name)) {
        (name.isEmpty() ? err : out) << chapter(QStringLiteral("vrk-report"));
        return name.isEmpty() ? WrongUsage : Success;
    }
    if (name == QLatin1String("--version")) {
        out << QStringLiteral("vrk-report %1\n").arg(QStringLiteral(VRK_VERSION));
        return Success;
    }
    for (const auto& command : commands) {
        if (QLatin1String(command.name) != name)
            continue;
        const QString usage = chapter(name);
        if (isHelp(arguments.value(1))) {
            out << usage;
            return Success;
        }
        Request request = parsed(usage, arguments.mid(1));
        const ExitCode code = !request.fault.isEmpty() ? WrongUsage
                              : command.read           ? report(command.read, &request, out, err)
                                                       : archive(&request, out, err);
        if (code == WrongUsage)
            err << request.fault << QStringLiteral("\n\n") << usage;
        return code;
    }
    err << words("Нет команды «%1».\n\n").arg(name) << chapter(QStringLiteral("vrk-report"));
    return WrongUsage;
}
