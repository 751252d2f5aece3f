#pragma once

#include <QString>

/// Why the store refused or failed. The texts are for the user, in Russian; the detail is the engine's own,
/// for the log.
struct StoreError {
    enum Code {
        None,
        BadUrl,     ///< not a store URL, or an unknown engine
        Missing,    ///< no such file or database
        NotAStore,  ///< a file or database that is not ours
        TooNew,     ///< made by a newer version: the text names the version needed
        TooOld,     ///< needs an upgrade
        Locked,     ///< another process holds the lock for too long
        ReadOnly,   ///< cannot be written
        Lost,       ///< the connection is lost or a deadline has passed
        Unsettled,  ///< the same during a commit: Store::isWritten returns its outcome
        Password,   ///< the server requires a password: none was given, or it was wrong
        Full,       ///< the disk is full
        TooLarge,   ///< more than the memory guard or the limit of a value allows
        Refused,    ///< a rule of the journal or a missing right
        NoSuchRow,  ///< an update of a missing row
        BadRequest, ///< a select or write that the engine cannot take
        Internal,   ///< anything else
    };

    Code code = None;
    QString text;
    QString detail;

    explicit operator bool() const { return code != None; }
    void clear() { *this = StoreError(); }
};
