#include "TreeHash.h"

#include <cstring>
#include <openssl/evp.h>
#include <QtEndian>

TreeHash TreeHash::at(const char* bytes)
{
    TreeHash hash;
    std::memcpy(hash.data(), bytes, hash.size());
    return hash;
}

bool TreeHash::fromBase64(const QByteArray& text, TreeHash* hash)
{
    const auto decoded = QByteArray::fromBase64Encoding(text, QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded || decoded.decoded.size() != 32)
        return false;
    *hash = at(decoded.decoded.constData());
    return true;
}

Sha256::Sha256() : m_context(EVP_MD_CTX_new())
{
    // Looks the algorithm up once; afterwards the context begins again without it.
    Q_CHECK_PTR(m_context);
    const bool isThere = EVP_DigestInit_ex(m_context, EVP_sha256(), nullptr) == 1;
    Q_ASSERT(isThere);
    Q_UNUSED(isThere)
}

Sha256::~Sha256()
{
    EVP_MD_CTX_free(m_context);
}

void Sha256::add(const void* data, std::size_t size)
{
    EVP_DigestUpdate(m_context, data, size);
}

Sha256& Sha256::byte(unsigned char value)
{
    add(&value, 1);
    return *this;
}

Sha256& Sha256::add(const TreeHash& hash)
{
    add(hash.data(), hash.size());
    return *this;
}

Sha256& Sha256::integer(qint64 value)
{
    const qint64 ordered = qToBigEndian(value);
    add(&ordered, sizeof ordered);
    return *this;
}

Sha256& Sha256::real(double value)
{
    qint64 bits;
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&bits, &value, sizeof bits);
    return integer(bits);
}

Sha256& Sha256::raw(const QByteArray& bytes)
{
    add(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return *this;
}

Sha256& Sha256::text(const QByteArray& bytes)
{
    return integer(bytes.size()).raw(bytes);
}

Sha256& Sha256::optional(const QByteArray& bytes)
{
    return bytes.isNull() ? byte(0) : byte(1).text(bytes);
}

TreeHash Sha256::result()
{
    TreeHash hash;
    EVP_DigestFinal_ex(m_context, hash.data(), nullptr);
    EVP_DigestInit_ex(m_context, nullptr, nullptr);
    return hash;
}
