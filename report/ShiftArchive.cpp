#include "ShiftArchive.h"

#include "Fields.h"
#include "ReportFile.h"
#include "Row.h"
#include "RunnableFile.h"
#include "VrkPreviewHtml.h"

#include <algorithm>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QLocale>
#include <QMap>
#include <QRegularExpression>

namespace
{
constexpr char positionFile[] = ".vrk-report";
constexpr char positionMark[] = "vrk-report pages 2"; ///< changes when pages look different
constexpr int changesAtOnce = 5000;
constexpr int manyKeys = 2000; ///< so many changes: writing all pages is as quick

QString words(const char* text)
{
    return QCoreApplication::translate("ShiftArchive", text);
}

VrkPreviewTable::Cell cell(const QString& text, const QString& link = QString())
{
    VrkPreviewTable::Cell made;
    made.text = text;
    made.link = link;
    return made;
}

VrkPreviewTable tableOf(const QStringList& headings)
{
    VrkPreviewTable table;
    for (const QString& heading : headings)
        table.header.cells.append(cell(heading));
    return table;
}

/// The folder of the files of a page, beside it.
QString filesFolder(const QString& page)
{
    return page.section(QLatin1Char('.'), 0, 0) + QStringLiteral("_files");
}

QString monthOf(const ReportShift& shift)
{
    return shift.start.toString(QStringLiteral("yyyy-MM"));
}

QString monthTitle(const QString& month)
{
    const QDate first = QDate::fromString(month, QStringLiteral("yyyy-MM"));
    QString name = QLocale(QLocale::Russian).standaloneMonthName(first.month());
    name[0] = name[0].toUpper();
    return QStringLiteral("%1 %2").arg(name).arg(first.year());
}
} // namespace

bool ShiftArchive::fail(const QString& text)
{
    m_error = text;
    return false;
}

QString ShiftArchive::pageName(const ReportShift& shift)
{
    // The department may be renamed; the key is not for the eye.
    const QByteArray mark = QCryptographicHash::hash(shift.key, QCryptographicHash::Sha256).toHex().left(8);
    return shift.start.toString(QStringLiteral("yyyy-MM-dd_hhmm_")) + QString::fromLatin1(mark) +
           QStringLiteral(".html");
}

QString ShiftArchive::fileName(const QString& name, const QByteArray& content)
{
    // Browsers and desktops show these and run nothing in them.
    static const QSet<QString> passive{
        QStringLiteral("pdf"),  QStringLiteral("png"),  QStringLiteral("jpg"),  QStringLiteral("jpeg"),
        QStringLiteral("gif"),  QStringLiteral("bmp"),  QStringLiteral("tif"),  QStringLiteral("tiff"),
        QStringLiteral("txt"),  QStringLiteral("csv"),  QStringLiteral("rtf"),  QStringLiteral("doc"),
        QStringLiteral("docx"), QStringLiteral("xls"),  QStringLiteral("xlsx"), QStringLiteral("ppt"),
        QStringLiteral("pptx"), QStringLiteral("odt"),  QStringLiteral("ods"),  QStringLiteral("odp"),
        QStringLiteral("zip"),  QStringLiteral("7z"),   QStringLiteral("rar"),  QStringLiteral("mp3"),
        QStringLiteral("wav"),  QStringLiteral("mp4"),  QStringLiteral("avi"),  QStringLiteral("dwg"),
        QStringLiteral("dxf"),  QStringLiteral("webp"), QStringLiteral("ogg")};
    const QString suffix =
        name.contains(QLatin1Char('.')) ? name.section(QLatin1Char('.'), -1).toLower() : QString();
    const bool isPassive = passive.contains(suffix) && !RunnableFile::isContent(content);
    const QByteArray hash = QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex().left(16);
    return QString::fromLatin1(hash) + QLatin1Char('.') + (isPassive ? suffix : QStringLiteral("bin"));
}

QByteArray ShiftArchive::mark() const
{
    return QByteArray(positionMark) + (m_withFiles ? " with files" : "");
}

ChangePosition ShiftArchive::readPosition() const
{
    QFile file(m_folder.filePath(QLatin1String(positionFile)));
    if (!file.open(QIODevice::ReadOnly))
        return ChangePosition();
    const QList<QByteArray> lines = file.readAll().split('\n');
    if (lines.size() < 3 || lines[0] != mark())
        return ChangePosition();
    ChangePosition position;
    position.epoch = lines[1];
    position.number = lines[2].toLongLong();
    return position;
}

bool ShiftArchive::writePosition(const ChangePosition& position)
{
    const QByteArray text =
        mark() + '\n' + position.epoch + '\n' + QByteArray::number(position.number) + '\n';
    return ReportFile::update(m_folder.filePath(QLatin1String(positionFile)), text, nullptr, &m_error);
}

bool ShiftArchive::ownersOf(const QByteArray& table, const QByteArray& field, const QSet<QByteArray>& keys,
                            QSet<QByteArray>* owners) const
{
    if (keys.isEmpty())
        return true;
    QByteArray list;
    for (const QByteArray& key : keys)
        list += (list.isEmpty() ? "" : ",") + Store::literal(key);
    StoreError error;
    CMDArray answer;
    answer = m_source->store()->select("SELECT * FROM " + table + " WHERE KeyLink IN (" + list + ")", &error);
    for (int i = 0; answer.array && i < answer.RecCount(); ++i)
        owners->insert(MDRValue::copy(Row(MDARec(answer.array, 0, i)).value(field.constData())));
    return answer.array && answer.RecCount() == keys.size();
}

bool ShiftArchive::changedSince(ChangePosition position, QSet<QByteArray>* shifts) const
{
    if (position.epoch.isEmpty())
        return false;
    const QSet<QByteArray> without{"LogbookTemplates", "LogbookCatsTemplate", "LogSignatures"};
    QSet<QByteArray> records;
    QSet<QByteArray> comments;
    QSet<QByteArray> files;
    QSet<QByteArray> crews;
    for (;;) {
        const qint64 before = position.number;
        QVector<StoreChange> changes;
        StoreError error;
        if (!m_source->store()->changesAfter(&position, changesAtOnce, &changes, &error))
            return false;
        for (const StoreChange& change : qAsConst(changes)) {
            if (without.contains(change.table))
                continue;
            if (change.table == "LogbookWorkshifts")
                shifts->insert(change.key);
            else if (change.event != 603 && change.table == "LogbookRecords")
                records.insert(change.key);
            else if (change.event != 603 && change.table == "LogbookComments")
                comments.insert(change.key);
            else if (change.event != 603 && change.table == "LogbookFiles")
                files.insert(change.key);
            else if (change.event != 603 && change.table == "LogbookWorkersWorkshift")
                crews.insert(change.key);
            else
                return false; // a name, or a row that no longer says whose it was
        }
        if (records.size() + comments.size() + files.size() + crews.size() > manyKeys)
            return false;
        if (position.number == before)
            break;
    }
    return ownersOf("LogbookComments", "RecordKey", comments, &records) &&
           ownersOf("LogbookFiles", "RecordKey", files, &records) &&
           ownersOf("LogbookRecords", "ShiftKey", records, shifts) &&
           ownersOf("LogbookWorkersWorkshift", "WorkshiftKey", crews, shifts);
}

bool ShiftArchive::update()
{
    m_shifts.clear();
    m_written = m_removed = 0;
    if (!m_folder.exists() && !QDir().mkdir(m_folder.path()))
        return fail(words("Папку «%1» нельзя создать.").arg(QDir::toNativeSeparators(m_folder.path())));
    // First: what is written from now on belongs to the next update.
    ChangePosition now;
    StoreError error;
    if (!m_source->store()->position(&now, &error))
        return fail(error.text);
    const ChangePosition former = readPosition();
    QSet<QByteArray> changed;
    const bool isKnown = former.epoch == now.epoch && changedSince(former, &changed);
    if (!m_source->shifts(QByteArray(), &m_shifts))
        return fail(m_source->errorText());

    QMap<QString, QVector<ReportShift>> months;
    for (const ReportShift& shift : qAsConst(m_shifts)) {
        const QString month = monthOf(shift);
        months[month].append(shift);
        const QString file = m_folder.filePath(month + QLatin1Char('/') + pageName(shift));
        if (isKnown && !changed.contains(shift.key) && QFile::exists(file))
            continue;
        if (!writeShift(shift, file))
            return false;
    }
    if (!addArchived(&months))
        return false;
    for (auto month = months.cbegin(); month != months.cend(); ++month)
        if (!writeMonth(month.key(), month.value()))
            return false;
    if (!writeStart(months) || !writePosition(now))
        return false;
    // Last: until now the former pages of months lead to these.
    static const QRegularExpression monthName(QStringLiteral("^\\d{4}-\\d\\d$"));
    const QStringList folders = m_folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot).filter(monthName);
    for (const QString& month : folders)
        removeOthers(month, months.value(month));
    return true;
}

bool ShiftArchive::addArchived(QMap<QString, QVector<ReportShift>>* months)
{
    QVector<ReportShift> archived;
    if (!m_source->archivedShifts(&archived))
        return fail(m_source->errorText());
    for (const ReportShift& shift : qAsConst(archived)) {
        const QString month = monthOf(shift);
        QVector<ReportShift>& shifts = (*months)[month];
        if (QFile::exists(m_folder.filePath(month + QLatin1Char('/') + pageName(shift))))
            shifts.insert(std::lower_bound(shifts.begin(), shifts.end(), shift), shift);
        if (shifts.isEmpty())
            months->remove(month);
    }
    return true;
}

QString ShiftArchive::imprint()
{
    const QString seal = m_source->seal();
    return seal.isEmpty() ? seal : words("Опечатано: %1").arg(seal);
}

bool ShiftArchive::writeShift(const ReportShift& shift, const QString& file)
{
    ReportDocument document;
    if (!m_source->ofShift(shift, false, &document))
        return fail(m_source->errorText());
    document.table.imprint = imprint();
    if (!m_folder.mkpath(monthOf(shift)))
        return fail(words("Папку «%1» нельзя создать.").arg(m_folder.filePath(monthOf(shift))));
    // The page leads to its files: they come before it, and former ones go after it.
    const QString folder = monthOf(shift) + QLatin1Char('/') + filesFolder(pageName(shift));
    QSet<QString> names;
    if (m_withFiles && !writeFiles(folder, &document, &names))
        return false;
    const QVector<VrkPreviewHtml::Link> links{{QStringLiteral("../index.html"), words("Все месяцы")},
                                              {QStringLiteral("index.html"), monthTitle(monthOf(shift))}};
    if (!ReportFile::write(file, VrkPreviewHtml::page(document.table, links), true, &m_error))
        return false;
    removeFiles(folder, names);
    ++m_written;
    return true;
}

/// Copies the files of a document and lets its notes lead to them.
bool ShiftArchive::writeFiles(const QString& folder, ReportDocument* document, QSet<QString>* names)
{
    for (const ReportFileNote& file : qAsConst(document->files)) {
        QByteArray content;
        if (!m_source->fileContent(file.key, &content))
            return fail(m_source->errorText());
        if (!m_folder.mkpath(folder))
            return fail(words("Папку «%1» нельзя создать.").arg(m_folder.filePath(folder)));
        const QString name = fileName(file.name, content);
        if (!ReportFile::update(m_folder.filePath(folder + QLatin1Char('/') + name), content, nullptr,
                                &m_error))
            return false;
        names->insert(name);
        document->table.rows[file.row].notes[file.note].link =
            folder.section(QLatin1Char('/'), -1) + QLatin1Char('/') + name;
    }
    return true;
}

void ShiftArchive::removeFiles(const QString& folder, const QSet<QString>& wanted) const
{
    static const QRegularExpression ours(QStringLiteral("^[0-9a-f]{16}\\.[0-9a-z]+$"));
    QDir files(m_folder.filePath(folder));
    const QStringList found = files.entryList(QDir::Files).filter(ours);
    for (const QString& name : found)
        if (!wanted.contains(name))
            files.remove(name);
    if (wanted.isEmpty() && files.exists())
        m_folder.rmdir(folder); // fails if there is anything else in it
}

/// Without the seal, which would change the pages of all months.
bool ShiftArchive::writeMonth(const QString& month, const QVector<ReportShift>& shifts)
{
    const QString time = QStringLiteral("dd.MM.yyyy hh:mm");
    VrkPreviewTable table =
        tableOf({words("Начало"), words("Конец"), words("Подразделение"), words("Открыл"), words("Закрыл")});
    for (const ReportShift& shift : shifts)
        table.rows.append(
            {false,
             {cell(shift.start.toString(time), pageName(shift)), cell(shift.end.toString(time)),
              cell(m_source->title(shift.departmentKey)), cell(m_source->names().workerName(shift.openedBy)),
              cell(shift.isOpen() ? words("смена открыта") : m_source->names().workerName(shift.closedBy))}});
    table.footer = words("Смены: %1").arg(monthTitle(month));
    const QVector<VrkPreviewHtml::Link> links{{QStringLiteral("../index.html"), words("Все месяцы")}};
    return ReportFile::update(m_folder.filePath(month + QStringLiteral("/index.html")),
                              VrkPreviewHtml::page(table, links), nullptr, &m_error);
}

bool ShiftArchive::writeStart(const QMap<QString, QVector<ReportShift>>& months)
{
    VrkPreviewTable table = tableOf({words("Месяц"), words("Смен")});
    for (auto month = months.cend(); month != months.cbegin();) {
        --month; // the newest first
        table.rows.append({false,
                           {cell(monthTitle(month.key()), month.key() + QStringLiteral("/index.html")),
                            cell(QString::number(month.value().size()))}});
    }
    table.footer = words("Оперативный журнал: архив смен");
    table.imprint = imprint();
    return ReportFile::update(m_folder.filePath(QStringLiteral("index.html")), VrkPreviewHtml::page(table),
                              nullptr, &m_error);
}

void ShiftArchive::removeOthers(const QString& month, const QVector<ReportShift>& shifts)
{
    static const QRegularExpression ours(QStringLiteral("^\\d{4}-\\d\\d-\\d\\d_\\d{4}_[0-9a-f]{8}\\.html$"));
    QSet<QString> wanted;
    for (const ReportShift& shift : shifts)
        wanted.insert(pageName(shift));
    QDir folder(m_folder.filePath(month));
    const QStringList pages = folder.entryList(QDir::Files).filter(ours);
    for (const QString& page : pages) {
        if (wanted.contains(page) || !folder.remove(page))
            continue;
        ++m_removed;
        removeFiles(month + QLatin1Char('/') + filesFolder(page), {});
    }
    if (shifts.isEmpty() && folder.remove(QStringLiteral("index.html")))
        m_folder.rmdir(month);
}
