#include "RecordNotes.h"

#include "CMDArray.h"
#include "CVrkCliSes.h"
#include "FileNames.h"
#include "HfnTime.h"
#include "KeyNames.h"
#include "LogbookTables.h"
#include "Row.h"
#include "Store.h"

#include <algorithm>
#include <QCoreApplication>
#include <QDateTime>

namespace
{
constexpr int keysAtOnce = 500; ///< the text of a select has its limits

QString words(const char* text)
{
    return QCoreApplication::translate("RecordNotes", text);
}

QByteArray selectOf(const char* table, const QByteArray& records)
{
    return QString::fromLatin1(LogbookSql::ByRecords)
        .arg(QLatin1String(table), QLatin1String(Field::RecordKey), QString::fromUtf8(records))
        .toUtf8();
}

/// The rows of an answer in an order of their own.
template <class Less>
QVector<const MDRData*> sorted(const CMDArray& answer, Less less)
{
    QVector<const MDRData*> rows;
    for (int i = 0; i < answer.RecCount(); ++i)
        rows.append(MDARec(answer.array, 0, i));
    std::sort(rows.begin(), rows.end(),
              [less](const MDRData* left, const MDRData* right) { return less(Row(left), Row(right)); });
    return rows;
}
} // namespace

bool RecordNotes::load(const QVector<QByteArray>& records)
{
    m_notes.clear();
    for (int first = 0; first < records.size(); first += keysAtOnce) {
        QByteArray list;
        for (const QByteArray& key : records.mid(first, keysAtOnce))
            list += (list.isEmpty() ? "" : ",") + Store::literal(key);
        if (!loadComments(list) || !loadFiles(list))
            return false;
    }
    return true;
}

bool RecordNotes::loadComments(const QByteArray& records)
{
    CMDArray answer;
    answer = m_session->SqlRequest(selectOf(LogbookTable::Comments, records));
    if (!answer.array)
        return false;
    const auto comments = sorted(answer, [](const Row& left, const Row& right) {
        const double first = left.time(Field::commentTime);
        const double second = right.time(Field::commentTime);
        return first < second || (first == second && left.key() < right.key());
    });
    for (const MDRData* comment : comments) {
        const Row row(comment);
        const QDateTime time = m_session->HfnTimeToSesTime(row.time(Field::commentTime));
        m_notes[row.copy(Field::RecordKey)].append(
            {words("Комментарий, %1, %2")
                 .arg(m_names->workerName(row.copy(Field::WorkerKey)),
                      time.toString(QStringLiteral("dd.MM.yyyy hh:mm"))),
             row.text(Field::text_, m_session->codec())});
    }
    return true;
}

bool RecordNotes::loadFiles(const QByteArray& records)
{
    CMDArray answer;
    answer = m_session->SqlRequest(selectOf(LogbookTable::Files, records));
    if (!answer.array)
        return false;
    const auto files = sorted(answer, [](const Row& left, const Row& right) {
        const QByteArray first = left.bytes(Field::fileName);
        const QByteArray second = right.bytes(Field::fileName);
        return first < second || (first == second && left.key() < right.key());
    });
    for (const MDRData* file : files) {
        const Row row(file);
        std::int32_t length = 0;
        MDRBlobLength(MDRFldByName(MDARecArr(file), Field::fileData), file, &length);
        const QString name =
            FileNames::shown(FileNames::local(row.text(Field::fileName, m_session->codec())));
        m_notes[row.copy(Field::RecordKey)].append(
            {words("Файл, %1").arg(sizeText(length)), name, row.key()});
    }
    return true;
}

QString RecordNotes::sizeText(qint64 bytes)
{
    constexpr qint64 kilo = 1024;
    if (bytes < kilo)
        return words("%1 байт").arg(bytes);
    if (bytes < kilo * kilo)
        return words("%1 КБ").arg((bytes + kilo - 1) / kilo);
    return words("%1 МБ").arg(QString::number(static_cast<double>(bytes) / (kilo * kilo), 'f', 1)
                                  .replace(QLatin1Char('.'), QLatin1Char(',')));
}
