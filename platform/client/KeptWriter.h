#pragma once

#include "KeptTexts.h"

#include <functional>
#include <memory>

class KeptFolder;

/// Brings texts to a folder in a thread of its own, the latest state of each. It goes to the disk at once, and then
/// rests a while, so that a fast typist does not wear it out; what could not be written is tried again until it can.
class KeptWriter
{
public:
    /// Takes the folder over. \a scope marks the files; \a told gets an error text when writing begins to fail, and an
    /// empty one when it works again; it is called in the thread.
    KeptWriter(std::unique_ptr<KeptFolder> folder, const QByteArray& scope,
               std::function<void(const QString&)> told);
    /// Waits a few seconds at most for what is waiting; a disk that hangs keeps nobody.
    ~KeptWriter();
    KeptWriter(const KeptWriter&) = delete;
    KeptWriter& operator=(const KeptWriter&) = delete;

    void put(const KeptTexts::Text& text);
    void remove(const QByteArray& id);
    /// Waits some seconds at most until nothing is waiting; false when it is not so, or not to be had.
    bool flush();
    /// Why texts cannot be written at present; empty when they can.
    QString errorText() const;

    /// A file's bytes; the checksum in them tells a whole file from a damaged one.
    static QByteArray pack(const KeptTexts::Text& text, const QByteArray& scope);
    /// False for bytes that are not those of a text of this scope.
    static bool unpack(const QByteArray& bytes, const QByteArray& scope, KeptTexts::Text* text);

private:
    struct Shared;
    std::shared_ptr<Shared> m_shared; ///< also the thread's: it may outlive this object
};
