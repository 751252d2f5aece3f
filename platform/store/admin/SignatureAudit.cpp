#include "SignatureAudit.h"

#include "ContentCheck.h"
#include "LogSignature.h"

#include <algorithm>

void SignatureAudit::take(const LoggedTransaction& transaction)
{
    const auto report = [&](const char* text, const QByteArray& meaning) {
        ContentCheck::add(m_findings, StoreAdmin::Finding::Fault, text,
                          QByteArray::number(transaction.number), LogSignature::words(meaning).toUtf8());
    };
    QVector<LogSignature> signatures;
    for (const LoggedRow& row : transaction.rows) {
        if (m_first == 0 && LogSignature::isBeginning(row))
            m_first = transaction.number;
        LogSignature signature;
        if (LogSignature::read(row, &signature))
            signatures.append(signature);
        else if (row.table == LogSignature::tableName)
            report("В транзакции %1 изменена или удалена подпись.", QByteArray());
    }
    for (const LoggedRow& row : transaction.rows) {
        const QByteArray meaning = transaction.isLoader ? QByteArray() : LogSignature::meaningOf(row);
        if (meaning.isEmpty())
            continue;
        const auto own = std::find_if(signatures.begin(), signatures.end(),
                                      [&](const LogSignature& one) { return one.fits(transaction, row); });
        if (own != signatures.end())
            signatures.erase(own);
        else if (m_first == 0)
            ++m_unsigned;
        else
            report("В транзакции %1 нет подписи: %2.", meaning);
    }
    for (const LogSignature& stray : qAsConst(signatures))
        report("Подпись в транзакции %1 (%2) не подходит ни к одной её строке.", stray.meaning);
}

void SignatureAudit::end()
{
    if (m_first == 0)
        ContentCheck::add(m_findings, StoreAdmin::Finding::Fault,
                          "В журнале изменений нет отметки, с которой ведутся подписи.");
    else if (m_unsigned > 0)
        ContentCheck::add(m_findings, StoreAdmin::Finding::Note,
                          "Подписи ведутся с транзакции %1. Виз, утверждений и закрытий смен до неё: %2.",
                          QByteArray::number(m_first), QByteArray::number(m_unsigned));
}
