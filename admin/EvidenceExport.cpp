#include "EvidenceExport.h"

#include "AdminText.h"
#include "ChangeRow.h"
#include "StoreErrors.h"

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

bool isEpoch(const LoggedRow& row)
{
    return row.table == "StoreProperties" && row.key == "epoch";
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
    return isEpoch(row) || (isInTime && (m_choice.record.isEmpty() || row.key == m_choice.record));
}

bool EvidenceExport::findHead(StoreError* error)
{
    const QVector<VerifierKey> keys = VerifierKey::parseAll(m_keys);
    if (!m_log.heads(&m_heads))
        return false;
    for (auto note = m_heads.begin(); note != m_heads.end();) {
        const SignedNote read(note.value());
        const bool isSigned = read.signer(keys).isValid() && read.head().size == note.key();
        if (isSigned)
            m_head = read.head();
        note = isSigned ? note + 1 : m_heads.erase(note);
    }
    return m_head.size > 0 ||
           StoreErrors::raise(error, StoreError::BadRequest,
                              "Журнал изменений ещё не опечатан: сначала выполните vrk-admin seal.");
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
    const auto take = [&](const LoggedTransaction& transaction) {
        isWritten = isWritten && writeTransaction(transaction, tiles);
        return isWritten;
    };
    qint64 end = 0;
    QByteArray epoch;
    if (!m_log.end(&end, &epoch))
        return false;
    if (m_choice.record.isEmpty()) {
        if (!m_log.read(1, end, take))
            return false;
    } else {
        QVector<qint64> numbers;
        if (!m_log.numbersOf(m_choice.record, QByteArray(), &numbers) ||
            !m_log.numbersOf("epoch", "StoreProperties", &numbers))
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
            consistency += (consistency.isEmpty() ? "\"" : ", \"") + QByteArray::number(head.size) +
                           "\": " + list(tiles.consistency(head.size, m_head.size));
    }
    return "{\"format\": 1, \"origin\": " + ChangeRow::quoted(m_head.origin()) +
           ", \"size\": " + QByteArray::number(m_head.size) + ", \"hidden\": " +
           list(m_choice.isWhole() ? QVector<TreeHash>() : tiles.hidden(m_whole, m_head.size)) +
           ", \"isWhole\": " + (m_choice.isWhole() ? "true" : "false") + ", \"consistency\": {" +
           consistency + "}}\n";
}

bool EvidenceExport::write(const QDir& folder, StoreError* error)
{
    m_folder = folder;
    EpochHistory epochs;
    if (!findHead(error) || !epochs.load(m_log))
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
    return writeFile(QStringLiteral("proof.json"), proofs, error) &&
           writeFile(QStringLiteral("keys.txt"), m_keys, error) &&
           writeFile(QStringLiteral("README.txt"), AdminText::content("evidence/README.txt").toUtf8(),
                     error) &&
           writeFile(QStringLiteral("verify.py"), AdminText::content("evidence/verify.py").toUtf8(), error);
}
