#include "LogHead.h"

#include <algorithm>

namespace
{
constexpr char originMark[] = "vrk-logbook/";
constexpr char timeMark[] = "time ";
constexpr char signatureMark[] = "\xE2\x80\x94 "; // an em dash

constexpr int idSize = 4;
constexpr int signatureSize = 64;
} // namespace

QByteArray LogHead::note(const std::vector<std::unique_ptr<SealKey>>& keys) const
{
    const QByteArray text = origin() + '\n' + QByteArray::number(size) + '\n' + root.base64() + '\n' +
                            timeMark + time.toUTC().toString(Qt::ISODate).toLatin1() + '\n';
    QByteArray note = text + '\n';
    for (const auto& key : keys) {
        const QByteArray signature = key->sign(text);
        if (signature.isEmpty())
            return QByteArray();
        const VerifierKey verifier = key->verifier();
        note += signatureMark + verifier.name() + ' ' + (verifier.id() + signature).toBase64() + '\n';
    }
    return note;
}

SignedNote::SignedNote(const QByteArray& text)
{
    const int border = text.indexOf("\n\n");
    if (border < 0 || !text.endsWith('\n'))
        return;
    m_text = text.left(border + 1);
    QList<QByteArray> lines = m_text.split('\n');
    lines.removeLast(); // after the last line feed
    bool isNumber = false;
    if (lines.size() < 3 || !lines[0].startsWith(originMark) || !TreeHash::fromBase64(lines[2], &m_head.root))
        return;
    m_head.epoch = lines[0].mid(static_cast<int>(sizeof originMark) - 1);
    m_head.size = lines[1].toLongLong(&isNumber);
    if (!isNumber || m_head.size < 0 || QByteArray::number(m_head.size) != lines[1])
        return;
    for (int i = 3; i < lines.size(); ++i)
        if (lines[i].startsWith(timeMark))
            m_head.time = QDateTime::fromString(QString::fromLatin1(lines[i].mid(5)), Qt::ISODate);

    QList<QByteArray> signatures = text.mid(border + 2).split('\n');
    signatures.removeLast();
    for (const QByteArray& line : signatures) {
        const QByteArray named = line.mid(static_cast<int>(sizeof signatureMark) - 1);
        const int space = named.indexOf(' ');
        const auto bytes =
            QByteArray::fromBase64Encoding(named.mid(space + 1), QByteArray::AbortOnBase64DecodingErrors);
        if (!line.startsWith(signatureMark) || space <= 0 || !bytes)
            return;
        m_signatures.append({named.left(space), bytes.decoded});
    }
    m_isValid = !m_signatures.isEmpty();
}

bool SignedNote::Signature::isBy(const VerifierKey& key) const
{
    return key.name() == name && key.id() == bytes.left(idSize);
}

bool SignedNote::isOfOtherKeys(const QVector<VerifierKey>& keys) const
{
    return m_isValid && std::none_of(m_signatures.cbegin(), m_signatures.cend(), [&](const Signature& one) {
               return std::any_of(keys.cbegin(), keys.cend(),
                                  [&](const VerifierKey& key) { return one.isBy(key); });
           });
}

VerifierKey SignedNote::signer(const QVector<VerifierKey>& keys) const
{
    VerifierKey found;
    for (const Signature& signature : m_signatures) {
        for (const VerifierKey& key : keys) {
            if (!signature.isBy(key))
                continue;
            if (signature.bytes.size() != idSize + signatureSize ||
                !key.verify(m_text, signature.bytes.mid(idSize)))
                return VerifierKey();
            if (!found.isValid())
                found = key;
        }
    }
    return m_isValid ? found : VerifierKey();
}
