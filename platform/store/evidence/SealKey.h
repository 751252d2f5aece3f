#pragma once

#include <memory>
#include <QByteArray>
#include <QString>

struct evp_pkey_st;

/// The name and the public key (Ed25519) that heads are verified with, written as
/// "name+id+base64" (docs/evidence-format.md).
class VerifierKey
{
public:
    VerifierKey() = default;
    VerifierKey(const QByteArray& name, const QByteArray& publicKey) : m_name(name), m_key(publicKey) {}
    /// An invalid key if the text is none.
    static VerifierKey parse(const QByteArray& text);
    /// The valid keys of a text: one a line, empty lines and comments (#) skipped.
    static QVector<VerifierKey> parseAll(const QByteArray& lines);

    bool isValid() const { return m_key.size() == 32 && isName(m_name); }
    QByteArray name() const { return m_name; }
    /// The 4 bytes that stand before a signature.
    QByteArray id() const;
    QByteArray text() const;
    bool verify(const QByteArray& message, const QByteArray& signature) const;

    /// A name is not empty and contains neither spaces, control characters nor "+".
    static bool isName(const QByteArray& name);

private:
    QByteArray m_name;
    QByteArray m_key;
};

/// A private key that signs heads, kept in a file that only its owner reads: a line with its name and the key
/// as PKCS #8 in PEM.
class SealKey
{
public:
    /// Creates a key in a new file. Null with \a error if the file exists or cannot be written.
    static std::unique_ptr<SealKey> create(const QString& file, const QByteArray& name, QString* error);
    /// Null with \a error if the file contains no such key.
    static std::unique_ptr<SealKey> load(const QString& file, QString* error);
    /// From the 32 bytes of a private key; null if there are not 32.
    static std::unique_ptr<SealKey> fromSeed(const QByteArray& seed, const QByteArray& name);
    ~SealKey();
    SealKey(const SealKey&) = delete;
    SealKey& operator=(const SealKey&) = delete;

    VerifierKey verifier() const;
    /// The 64 bytes of a signature.
    QByteArray sign(const QByteArray& message) const;

private:
    SealKey(evp_pkey_st* key, const QByteArray& name) : m_key(key), m_name(name) {}

    evp_pkey_st* m_key;
    QByteArray m_name;
};
