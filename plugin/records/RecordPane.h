#pragma once

#include <functional>
#include <QObject>

class CModelTable;
class CRowBatch;
class CVrkCliMod;
class LocationInfo;
class PageMessages;
class QAbstractButton;
struct MDRData;

/// The common base of the panes of comments and of files: rows of one table that belong to the page's
/// current record, of which the user may delete his own. An action changes nothing here: it writes to the
/// server, and the page reloads after the change event.
class RecordPane : public QObject
{
    Q_OBJECT

public:
    /// The data of a pane; nothing is owned.
    struct Source {
        QString owner; ///< the page's class, for its log lines
        CVrkCliMod* module;
        LocationInfo* location;
        CModelTable* table; ///< the page's rows of all its records
        PageMessages* messages;
        std::function<MDRData*()> currentRecord;
    };

protected:
    RecordPane(const Source& source, QObject* parent);

    const Source& source() const { return m_source; }
    /// A function's signature for the log: "%1" is replaced by the page's class.
    QString signature(const char* function) const;
    /// The row with this key, or null.
    MDRData* row(const QString& key) const;
    /// The row's WorkerKey is the user's.
    bool isMine(const MDRData* row) const;
    /// There is a current record that is not deleted.
    bool isChangeable() const;
    bool send(const CRowBatch& batch) const;

    /// Asks a question about a row; the answer goes to \a slot of this pane.
    void ask(const QString& key, const QString& title, const QString& text, const char* slot);
    /// The row of the open question; empty without one, also if another message has replaced it.
    QString askedKey();
    /// Closes the question; true if it was answered with yes.
    bool isConfirmed(QAbstractButton* button);
    /// Deletes a row on the server. A failure goes to the log ("%1" of \a logLine is the table, "%2" the
    /// key) and into the message box.
    void remove(const MDRData* row, const char* function, const QString& logLine, const QString& message);

private:
    Source m_source;
    QString m_askedKey;
};
