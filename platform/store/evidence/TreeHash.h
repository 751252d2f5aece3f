#pragma once

#include <array>
#include <QByteArray>

struct evp_md_ctx_st;

/// A SHA-256 hash: the hash of a leaf or of a node in a tree of the evidence.
struct TreeHash : std::array<unsigned char, 32> {
    TreeHash() : array{} {}

    QByteArray bytes() const { return QByteArray(reinterpret_cast<const char*>(data()), 32); }
    QByteArray base64() const { return bytes().toBase64(); }
    /// The first 16 hex digits, as heads are written on paper.
    QByteArray onPaper() const { return bytes().left(8).toHex(); }
    /// From 32 bytes at an address.
    static TreeHash at(const char* bytes);
    /// False unless the text is base64 of 32 bytes.
    static bool fromBase64(const QByteArray& text, TreeHash* hash);
};

/// Computes SHA-256 over values in the notation of docs/evidence-format.md. One object computes any number
/// of hashes, one after another; result() begins the next one.
class Sha256
{
public:
    Sha256();
    ~Sha256();
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;

    Sha256& byte(unsigned char value);
    Sha256& add(const TreeHash& hash);
    Sha256& integer(qint64 value);
    Sha256& real(double value);
    /// The bytes alone.
    Sha256& raw(const QByteArray& bytes);
    /// Its length and its bytes.
    Sha256& text(const QByteArray& bytes);
    /// The same, and a null array differs from an empty one.
    Sha256& optional(const QByteArray& bytes);

    TreeHash result();

private:
    void add(const void* data, std::size_t size);

    evp_md_ctx_st* m_context;
};
