#include "OldShiftsExport.h"

#include "AdminText.h"
#include "CMDArray.h"
#include "Csv.h"
#include "EvidenceExport.h"
#include "LongWork.h"
#include "MDRValues.h"
#include "SealFiles.h"
#include "StoreErrors.h"

#include <algorithm>
#include <fcntl.h>
#include <QCryptographicHash>
#include <QTextCodec>
#include <unistd.h>

namespace
{
QByteArray cell(const MDArray* array, int row, int field)
{
    MDRVar value;
    MDRGetVal(MDRFldByNum(array, field), MDARec(array, 0, row), &value);
    return MDRValue::copy(value);
}

/// The name in the folder: a number, and an ending of the original name that is harmless in any system.
QString nameOf(int number, const QString& original)
{
    const QString ending = original.section(QLatin1Char('.'), -1).toLower();
    const bool isPlain = original.contains(QLatin1Char('.')) && !ending.isEmpty() && ending.size() <= 8 &&
                         std::all_of(ending.begin(), ending.end(), [](QChar sign) {
                             return sign.unicode() < 0x80 && sign.isLetterOrNumber();
                         });
    return QStringLiteral("files/%1").arg(number, 6, 10, QLatin1Char('0')) +
           (isPlain ? QLatin1Char('.') + ending : QString());
}

/// Whether everything that was written to the file system of the folder is on its disk.
bool isOnDisk(const QString& folder)
{
    const int descriptor = open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const bool isDone = descriptor >= 0 && syncfs(descriptor) == 0;
    if (descriptor >= 0)
        close(descriptor);
    return isDone;
}
} // namespace

bool OldShiftsExport::put(const QString& name, const QByteArray& content, StoreError* error) const
{
    QFile file(m_folder.filePath(name));
    return (file.open(QIODevice::WriteOnly | QIODevice::NewOnly) && file.write(content) == content.size() &&
            file.flush()) ||
           StoreErrors::raise(error, StoreError::Full, "Файл «%1» нельзя записать.", file.fileName());
}

bool OldShiftsExport::writeEvidence(StoreError* error)
{
    EvidenceExport::Choice choice;
    for (const OldShifts::Shift& shift : *m_shifts)
        for (const QSet<QByteArray>& keys : shift.rows)
            choice.rows += keys;
    QByteArray published;
    if (!SealFiles::published(m_store, &published, error))
        return false;
    const auto log = m_store->evidence(Store::Access::Read, error);
    if (!log)
        return false;
    EvidenceExport evidence(*log, published, choice);
    if (!evidence.write(m_folder.filePath(QStringLiteral("evidence")), error))
        return false;
    return evidence.isProven() ||
           StoreErrors::raise(
               error, StoreError::BadRequest,
               "Последние изменения этих смен ещё не опечатаны: сначала выполните vrk-admin seal.");
}

bool OldShiftsExport::isLogged(const QByteArray& key, const QByteArray& hash, StoreError* error) const
{
    CMDArray answer;
    answer = m_store->select("SELECT newRow FROM ChangeLog WHERE tableName = 'LogbookFiles' AND rowKey = " +
                                 Store::literal(key) + " ORDER BY number DESC LIMIT 1",
                             error);
    return answer.array && answer.RecCount() == 1 && cell(answer.array, 0, 0).contains('"' + hash + '"');
}

bool OldShiftsExport::writeFiles(StoreError* error)
{
    QVector<QStringList> list{{QStringLiteral("Файл"), QStringLiteral("Имя"), QStringLiteral("Код"),
                               QStringLiteral("Код записи"), QStringLiteral("SHA-256")}};
    QByteArray sums;
    const LongWork work("Запись файлов", m_shifts->size());
    for (int place = 0; place < m_shifts->size(); ++place) {
        work.advance(place);
        CMDArray answer;
        answer = m_store->select("SELECT F.KeyLink, F.RecordKey, F.fileName FROM LogbookFiles AS F JOIN"
                                 " LogbookRecords AS R ON R.KeyLink = F.RecordKey WHERE R.ShiftKey = " +
                                     Store::literal(m_shifts->at(place).key) + " ORDER BY F.KeyLink",
                                 error);
        if (!answer.array)
            return false;
        for (int i = 0; i < answer.RecCount(); ++i) {
            const QByteArray key = cell(answer.array, i, 0);
            const QString original = m_store->codec()->toUnicode(cell(answer.array, i, 2));
            const QString name = nameOf(list.size(), original);
            QByteArray content;
            if (!m_store->blob("LogbookFiles", "fileData", key, &content, error))
                return false;
            const QByteArray hash = QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex();
            if (!content.isNull() && !isLogged(key, hash, error))
                return StoreErrors::raise(
                    error, StoreError::Internal,
                    "Файл «%1» не тот, что в журнале изменений: проверьте хранилище vrk-admin check.",
                    original);
            if (!put(name, content, error))
                return false;
            sums += hash + "  " + name.toUtf8() + '\n';
            list.append({name, Csv::harmless(original), QString::fromUtf8(key),
                         QString::fromUtf8(cell(answer.array, i, 1)), QString::fromLatin1(hash)});
        }
    }
    return put(QStringLiteral("files.csv"), Csv::write(list), error) &&
           put(QStringLiteral("SHA256SUMS"), sums, error);
}

bool OldShiftsExport::write(const QDir& folder, const QString& about, StoreError* error)
{
    m_folder = folder;
    if (!m_folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden).isEmpty() ||
        !m_folder.mkpath(QStringLiteral("files")))
        return StoreErrors::raise(error, StoreError::BadRequest, "Папка «%1» должна быть новой или пустой.",
                                  m_folder.path());
    if (!writeEvidence(error) || !writeFiles(error) ||
        !put(QStringLiteral("README.txt"),
             AdminText::content("evidence/ARCHIVE.txt").replace(QLatin1String("%about"), about).toUtf8(),
             error))
        return false;
    return isOnDisk(m_folder.path()) ||
           StoreErrors::raise(error, StoreError::Full, "Папка «%1» не сохранилась на диске.",
                              m_folder.path());
}
