#include "EvidenceExport.h"

#include "AdminText.h"
#include "ChangeRow.h"
#include "LogSignature.h"
#include "LongWork.h"
#include "StoreErrors.h"
#include "TimeStamp.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace
{
QByteArray list(const QVector<TreeHash>& hashes)
{
    QByteArray json;
    for (const TreeHash& hash : hashes)
        json += (json.isEmpty() ? "\"" : ", \"") + hash.base64() + '"';
    return '[' + json + ']';
}

/// All hashes as one text, which is shorter than a list.
QByteArray joined(const QVector<TreeHash>& hashes)
{
    QByteArray bytes;
    for (const TreeHash& hash : hashes)
        bytes += hash.bytes();
    return '"' + bytes.toBase64() + '"';
}

/// The fewest digits that restore the number. Readers take "-0" for an integer, which has no such zero.
QByteArray number(double value)
{
    if (value == 0 && std::signbit(value))
        return "-0.0";
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    return QByteArray(buffer, static_cast<int>(end - buffer));
}

QByteArray optional(const QByteArray& row)
{
    return row.isNull() ? QByteArray("null") : ChangeRow::quoted(row);
}

QByteArray lineOf(const LoggedRow& row, int place)
{
    return "{\"place\": " + QByteArray::number(place) + ", \"table\": " + ChangeRow::quoted(row.table) +
           ", \"key\": " + ChangeRow::quoted(row.key) + ", \"event\": " + QByteArray::number(row.event) +
           ", \"old\": " + optional(row.oldRow) + ", \"new\": " + optional(row.newRow) + '}';
}

/// Whether a row is one of those, or a signature under one.
bool isOf(const LoggedRow& row, const QSet<QByteArray>& keys)
{
    LogSignature signature;
    return keys.contains(row.key) || (LogSignature::read(row, &signature) && keys.contains(signature.key));
}

/// Whether a row ends an epoch. The row of the first one is in the first transaction, whose path would double the proof
/// of a record.
bool endsEpoch(const LoggedRow& row)
{
    return row.table == "StoreProperties" && row.key == "epoch" && row.event != 601;
}
} // namespace

EvidenceExport::EvidenceExport(EvidenceLog& log, const QByteArray& keys, const Choice& choice)
    : m_log(log), m_keys(keys), m_choice(choice)
{
}

bool EvidenceExport::isShown(const LoggedTransaction& transaction, const LoggedRow& row) const
{
    const bool isInTime = (m_choice.from == 0 || transaction.time >= m_choice.from) &&
                          (m_choice.to == 0 || transaction.time <= m_choice.to);
    return endsEpoch(row) || (isInTime && (m_choice.rows.isEmpty() || isOf(row, m_choice.rows)));
}

bool EvidenceExport::findHead(StoreError* error)
{
    const QVector<VerifierKey> keys = VerifierKey::parseAll(m_keys);
    QMap<qint64, QByteArray> stored;
    if (!m_log.heads(&stored))
        return false;
    // A part of the log has the newest head and those wanted, not the thousands of a year.
    const auto take = [&](const QByteArray& text) {
        const SignedNote note(text);
        const bool isSigned = note.signer(keys).isValid();
        if (isSigned)
            m_heads.insert(note.head().size, text);
        if (isSigned && note.head().size > m_head.size)
            m_head = note.head();
        return isSigned;
    };
    for (auto note = stored.cend(); note != stored.cbegin();)
        if (take(*--note) && !m_choice.isWhole())
            break;
    for (const QByteArray& wanted : qAsConst(m_choice.heads))
        if (SignedNote(wanted).head().size < m_head.size)
            take(wanted);
    return m_head.size > 0 ||
           StoreErrors::raise(error, StoreError::BadRequest,
                              "Журнал изменений ещё не опечатан: сначала выполните vrk-admin seal.");
}

bool EvidenceExport::findStamps()
{
    QMap<qint64, QByteArray> stored;
    if (!m_log.stamps(&stored))
        return false;
    for (auto stamp = stored.cbegin(); stamp != stored.cend(); ++stamp) {
        if (!TimeStamp::isFor(stamp.value(), m_heads.value(stamp.key())))
            continue;
        m_stamps.insert(stamp.key(), stamp.value());
    }
    return true;
}

QByteArray EvidenceExport::readMe() const
{
    const QString clock =
        m_stamps.isEmpty()
            ? QStringLiteral("Что его часы шли верно, выгрузка\n   не доказывает: меток времени в ней нет.")
            : QStringLiteral(
                  "Что записанное до\n   печати было не позже названного часа, доказывает метка времени "
                  "(RFC 3161) постороннего центра; её\n   проверяет openssl с сертификатом центра, "
                  "который спросите у него самого:\n"
                  "       openssl ts -verify -data heads/%1.txt -in heads/%1.tsr -CAfile центр.pem\n"
                  "       openssl ts -reply -in heads/%1.tsr -text")
                  .arg(m_stamps.lastKey(), 12, 10, QLatin1Char('0'));
    return AdminText::content("evidence/README.txt").replace(QLatin1String("%clock"), clock).toUtf8();
}

bool EvidenceExport::writeFile(const QString& name, const QByteArray& content, StoreError* error)
{
    QFile file(m_folder.filePath(name));
    return (file.open(QIODevice::WriteOnly | QIODevice::NewOnly) && file.write(content) == content.size() &&
            file.flush()) ||
           StoreErrors::raise(error, StoreError::ReadOnly, "Файл «%1» нельзя записать.", file.fileName());
}

bool EvidenceExport::writeTransaction(const LoggedTransaction& transaction, const HashTiles& tiles)
{
    QByteArray rows;
    QVector<qint64> shown;
    for (int place = 0; place < transaction.rows.size(); ++place) {
        const LoggedRow& row = transaction.rows.at(place);
        if (!isShown(transaction, row))
            continue;
        rows += (shown.isEmpty() ? "" : ", ") + lineOf(row, place);
        shown.append(place);
    }
    if (shown.isEmpty() && !m_choice.isWhole())
        return true;
    const bool isSealed = transaction.number <= m_head.size;
    if (isSealed)
        m_whole.append(transaction.number - 1);
    else
        m_isProven = false;
    ++m_count;
    // A damaged tree still lets the rows be exported: the verifier computes it again.
    const QByteArray leaf = isSealed ? '"' + tiles.leaf(transaction.number - 1).base64() + '"' : QByteArray();
    const QByteArray line =
        "{\"number\": " + QByteArray::number(transaction.number) +
        ", \"batchKey\": " + ChangeRow::quoted(transaction.batchKey) +
        ", \"login\": " + ChangeRow::quoted(transaction.login) + ", \"role\": \"" + transaction.role() +
        "\", \"time\": " + number(transaction.time) +
        ", \"leaf\": " + (isSealed && !tiles.isBroken() ? leaf : QByteArray("null")) +
        ", \"rowCount\": " + QByteArray::number(transaction.rows.size()) +
        ", \"hidden\": " + list(LogLeaf::rows(transaction).hidden(shown, transaction.rows.size())) +
        ", \"rows\": [" + rows + "]}\n";
    return m_lines.write(line) == line.size();
}

bool EvidenceExport::writeLog(StoreError* error)
{
    m_lines.setFileName(m_folder.filePath(QStringLiteral("log.jsonl")));
    bool isWritten = m_lines.open(QIODevice::WriteOnly | QIODevice::NewOnly);
    const HashTiles tiles(m_log, m_head.size);
    const LongWork work("Выгрузка журнала изменений");
    qint64 done = 0;
    const auto take = [&](const LoggedTransaction& transaction) {
        work.advance(++done);
        isWritten = isWritten && writeTransaction(transaction, tiles);
        return isWritten;
    };
    qint64 end = 0;
    QByteArray epoch;
    if (!m_log.end(&end, &epoch))
        return false;
    if (m_choice.rows.isEmpty()) {
        if (!m_log.read(1, end, take))
            return false;
    } else {
        QVector<qint64> numbers;
        if (!m_log.numbersOf("epoch", "StoreProperties", &numbers))
            return false;
        for (const QByteArray& key : qAsConst(m_choice.rows))
            if (!m_log.numbersOf(key, QByteArray(), &numbers))
                return false;
        std::sort(numbers.begin(), numbers.end());
        numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
        for (const qint64 one : qAsConst(numbers))
            if (!m_log.read(one, one, take))
                return false;
    }
    isWritten = isWritten && m_lines.flush();
    return isWritten ||
           StoreErrors::raise(error, StoreError::Full, "Файл «%1» нельзя записать.", m_lines.fileName());
}

QByteArray EvidenceExport::proof(const HashTiles& tiles, const EpochHistory& epochs) const
{
    QByteArray consistency;
    for (auto note = m_heads.cbegin(); !m_choice.isWhole() && note != m_heads.cend(); ++note) {
        const LogHead head = SignedNote(note.value()).head();
        if (head.size < m_head.size && head.size <= epochs.endOf(head.epoch))
            consistency += (consistency.isEmpty() ? "\"" : ",\"") + QByteArray::number(head.size) +
                           "\":" + joined(tiles.consistency(head.size, m_head.size));
    }
    const QByteArray hidden =
        joined(m_choice.isWhole() ? QVector<TreeHash>() : tiles.hidden(m_whole, m_head.size));
    return "{\"format\":2,\"origin\":" + ChangeRow::quoted(m_head.origin()) +
           ",\"size\":" + QByteArray::number(m_head.size) + ",\"hidden\":" + hidden +
           ",\"isWhole\":" + (m_choice.isWhole() ? "true" : "false") + ",\"consistency\":{" + consistency +
           "}}\n";
}

bool EvidenceExport::write(const QDir& folder, StoreError* error)
{
    m_folder = folder;
    EpochHistory epochs;
    if (!findHead(error) || !findStamps() || !epochs.load(m_log))
        return false;
    if (!m_folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden).isEmpty() ||
        !m_folder.mkpath(QStringLiteral("heads")))
        return StoreErrors::raise(error, StoreError::BadRequest, "Папка «%1» должна быть новой или пустой.",
                                  m_folder.path());
    if (!writeLog(error))
        return false;
    const HashTiles tiles(m_log, m_head.size);
    const QByteArray proofs = proof(tiles, epochs);
    if (tiles.isBroken())
        return StoreErrors::raise(
            error, StoreError::Internal,
            "Дерево журнала изменений повреждено: проверьте хранилище vrk-admin check.");
    for (auto note = m_heads.cbegin(); note != m_heads.cend(); ++note)
        if (!writeFile(QStringLiteral("heads/%1.txt").arg(note.key(), 12, 10, QLatin1Char('0')), note.value(),
                       error))
            return false;
    for (auto stamp = m_stamps.cbegin(); stamp != m_stamps.cend(); ++stamp)
        if (!writeFile(QStringLiteral("heads/%1.tsr").arg(stamp.key(), 12, 10, QLatin1Char('0')),
                       stamp.value(), error))
            return false;
    return writeFile(QStringLiteral("proof.json"), proofs, error) &&
           writeFile(QStringLiteral("keys.txt"), m_keys, error) &&
           writeFile(QStringLiteral("README.txt"), readMe(), error) &&
           writeFile(QStringLiteral("verify.py"), AdminText::content("evidence/verify.py").toUtf8(), error);
}
