#pragma once

#include "KeptTexts.h"

#include <functional>
#include <memory>

class KeptFolder;

/// Writes the latest state of each text to a folder, in a separate thread. It writes at once and then
/// pauses, so that a fast typist does not wear out the disk; a failed write is tried again until it
/// succeeds.
class KeptWriter
{
public:
    /// Takes ownership of the folder. \a scope marks the files. The callback receives an error text when writing
    /// starts to fail, and an empty text when it works again; it is called in the thread.
    KeptWriter(std::unique_ptr<KeptFolder> folder, const QByteArray& scope,
               std::function<void(const QString&)> reportError);
    /// Waits at most a few seconds for pending writes; a disk that hangs does not block the program.
    ~KeptWriter();
    KeptWriter(const KeptWriter&) = delete;
    KeptWriter& operator=(const KeptWriter&) = delete;

    void put(const KeptTexts::Text& text);
    void remove(const QByteArray& id);
    /// Waits at most some seconds until nothing is pending; false if that fails.
    bool flush();
    /// Why texts cannot be written now; empty when they can.
    QString errorText() const;

    /// The bytes of a file; their checksum distinguishes a complete file from a damaged one.
    static QByteArray pack(const KeptTexts::Text& text, const QByteArray& scope);
    /// False unless the bytes are a text of this scope.
    static bool unpack(const QByteArray& bytes, const QByteArray& scope, KeptTexts::Text* text);

private:
    struct Shared;
    std::shared_ptr<Shared> m_shared; ///< shared with the thread: it may outlive this object
};
