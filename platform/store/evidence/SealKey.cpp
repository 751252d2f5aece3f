#include "SealKey.h"

#include "TreeHash.h"

#include <fcntl.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <QFile>
#include <QVector>
#include <unistd.h>

namespace
{
constexpr char nameMark[] = "name: ";
constexpr char ed25519[] = "\x01"; // the kind of the key

using Pkey = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;
using Context = std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)>;
using Bio = std::unique_ptr<BIO, decltype(&BIO_free)>;

const unsigned char* raw(const QByteArray& bytes)
{
    return reinterpret_cast<const unsigned char*>(bytes.constData());
}

/// Instead of the library's own, which asks on the terminal.
int noPassword(char*, int, int, void*)
{
    return -1;
}

/// A file of its own that only the user reads. False if it exists or cannot be written.
bool writeNew(const QString& name, const QByteArray& content)
{
    const int descriptor =
        ::open(QFile::encodeName(name).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    QFile file;
    return descriptor >= 0 && file.open(descriptor, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle) &&
           file.write(content) == content.size() && file.flush() && ::fsync(descriptor) == 0;
}
} // namespace

bool VerifierKey::isName(const QByteArray& name)
{
    for (const char c : name)
        if (static_cast<unsigned char>(c) <= 0x20 || c == '+' || c == 0x7F)
            return false;
    return !name.isEmpty();
}

QByteArray VerifierKey::id() const
{
    // The id is the hash of plain bytes, without their length.
    QByteArray hashed = m_name + '\n' + ed25519 + m_key;
    unsigned char digest[EVP_MAX_MD_SIZE];
    EVP_Digest(hashed.constData(), static_cast<std::size_t>(hashed.size()), digest, nullptr, EVP_sha256(),
               nullptr);
    return QByteArray(reinterpret_cast<const char*>(digest), 4);
}

QByteArray VerifierKey::text() const
{
    return m_name + '+' + id().toHex() + '+' + (ed25519 + m_key).toBase64();
}

VerifierKey VerifierKey::parse(const QByteArray& text)
{
    const int first = text.indexOf('+');
    const int second = text.indexOf('+', first + 1);
    if (first < 0 || second < 0)
        return VerifierKey();
    const auto key =
        QByteArray::fromBase64Encoding(text.mid(second + 1), QByteArray::AbortOnBase64DecodingErrors);
    if (!key || !key.decoded.startsWith(ed25519))
        return VerifierKey();
    const VerifierKey parsed(text.left(first), key.decoded.mid(1));
    return parsed.isValid() && parsed.id().toHex() == text.mid(first + 1, second - first - 1).toLower()
               ? parsed
               : VerifierKey();
}

QVector<VerifierKey> VerifierKey::parseAll(const QByteArray& lines)
{
    QVector<VerifierKey> keys;
    for (const QByteArray& line : lines.split('\n'))
        if (const VerifierKey key = parse(line.trimmed()); key.isValid())
            keys.append(key);
    return keys;
}

bool VerifierKey::verify(const QByteArray& message, const QByteArray& signature) const
{
    if (!isValid())
        return false;
    const Pkey key(EVP_PKEY_new_raw_public_key(EVP_PKEY_ED25519, nullptr, raw(m_key), 32), EVP_PKEY_free);
    const Context context(EVP_MD_CTX_new(), EVP_MD_CTX_free);
    return key && context && EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, key.get()) == 1 &&
           EVP_DigestVerify(context.get(), raw(signature), static_cast<std::size_t>(signature.size()),
                            raw(message), static_cast<std::size_t>(message.size())) == 1;
}

std::unique_ptr<SealKey> SealKey::fromSeed(const QByteArray& seed, const QByteArray& name)
{
    EVP_PKEY* key =
        seed.size() == 32 ? EVP_PKEY_new_raw_private_key(EVP_PKEY_ED25519, nullptr, raw(seed), 32) : nullptr;
    return std::unique_ptr<SealKey>(key ? new SealKey(key, name) : nullptr);
}

std::unique_ptr<SealKey> SealKey::create(const QString& file, const QByteArray& name, QString* error)
{
    *error =
        QString::fromUtf8("Ключ «%1» не создан: такой файл есть, или в его папку нельзя писать.").arg(file);
    EVP_PKEY* made = EVP_PKEY_Q_keygen(nullptr, nullptr, "ED25519");
    const Bio memory(BIO_new(BIO_s_mem()), BIO_free);
    if (!made || !memory ||
        PEM_write_bio_PKCS8PrivateKey(memory.get(), made, nullptr, nullptr, 0, nullptr, nullptr) != 1) {
        EVP_PKEY_free(made);
        return nullptr;
    }
    std::unique_ptr<SealKey> key(new SealKey(made, name));
    char* text = nullptr;
    const long length = BIO_get_mem_data(memory.get(), &text);
    return writeNew(file, nameMark + name + '\n' + QByteArray(text, static_cast<int>(length)))
               ? std::move(key)
               : nullptr;
}

std::unique_ptr<SealKey> SealKey::load(const QString& file, QString* error)
{
    QFile pem(file);
    *error = QString::fromUtf8("Файл ключа «%1» не читается.").arg(file);
    if (!pem.open(QIODevice::ReadOnly))
        return nullptr;
    const QByteArray content = pem.read(65536);
    const Bio memory(BIO_new_mem_buf(content.constData(), content.size()), BIO_free);
    EVP_PKEY* key = memory ? PEM_read_bio_PrivateKey(memory.get(), nullptr, noPassword, nullptr) : nullptr;
    *error = QString::fromUtf8("В файле «%1» нет ключа Ed25519.").arg(file);
    const QByteArray line = content.left(content.indexOf('\n'));
    const QByteArray name = line.startsWith(nameMark) ? line.mid(sizeof nameMark - 1).trimmed() : "seal";
    if (key && EVP_PKEY_get_id(key) == EVP_PKEY_ED25519 && VerifierKey::isName(name))
        return std::unique_ptr<SealKey>(new SealKey(key, name));
    EVP_PKEY_free(key);
    return nullptr;
}

SealKey::~SealKey()
{
    EVP_PKEY_free(m_key);
}

VerifierKey SealKey::verifier() const
{
    QByteArray key(32, '\0');
    std::size_t size = 32;
    EVP_PKEY_get_raw_public_key(m_key, reinterpret_cast<unsigned char*>(key.data()), &size);
    return VerifierKey(m_name, key);
}

QByteArray SealKey::sign(const QByteArray& message) const
{
    QByteArray signature(64, '\0');
    std::size_t size = 64;
    const Context context(EVP_MD_CTX_new(), EVP_MD_CTX_free);
    const bool isSigned = context &&
                          EVP_DigestSignInit(context.get(), nullptr, nullptr, nullptr, m_key) == 1 &&
                          EVP_DigestSign(context.get(), reinterpret_cast<unsigned char*>(signature.data()),
                                         &size, raw(message), static_cast<std::size_t>(message.size())) == 1;
    return isSigned ? signature : QByteArray();
}
