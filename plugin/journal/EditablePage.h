#pragma once

#include "JournalRules.h"
#include "LogBookTab.h"

#include <initializer_list>
#include <QDateTime>
#include <QVector>

class CRowBatch;
class QAbstractButton;

/// A page whose records the user may change, by the rules of the workshift that it shows. This class has the
/// changes of existing records, apart from writing their text. Each applies to the record that is current at
/// that moment, and only writes to the server: the page follows the change event.
class EditablePage : public LogBookTab, public JournalRules
{
    Q_OBJECT

public:
    using LogBookTab::LogBookTab;

    MDRData* currentRecord() const override { return LogBookTab::currentRecord(); }

public slots:
    void deleteRecordRequest();
    void deleteMyDraftsRequest() { deleteDrafts(true, "deleteMyDraftsRequest()"); }
    void deleteAllDraftsRequest() { deleteDrafts(false, "deleteAllDraftsRequest()"); }
    void approveRecordRequest();
    void approveRecord();
    void approveMyRecordsRequest() { approveDrafts(true, "approveMyRecordsRequest()"); }
    void approveAllRecordsRequest() { approveDrafts(false, "approveAllRecordsRequest()"); }
    void signRecordRequest();
    void signAllRecordsRequest();
    /// The user has given his password again: writes the visas that wait for it, apart from those of records that
    /// somebody has deleted since.
    void signAfterPassword();

    /// Setting an execution time on an approved record makes a successor; removing it changes the record in
    /// place.
    void setSecondMarkRequest(const QDateTime& dt);
    void removeSecondMarkRequest();
    void setTimeExecRequest(const QDateTime& dt);
    void removeTimeExecRequest();

    /// Copies a reference to the record to the clipboard; pasting creates a draft of the user in this shift.
    void copyRecordRequest();
    void pasteRecordRequest();

signals:
    /// The site asks for the password before a visa; null stands for several records.
    void visaPasswordWanted(const MDRData* record, int count);

private slots: // connected by name: the message box takes the slot's name
    void deleteRecordAnswer(QAbstractButton* button);
    void approveRecordAnswer(QAbstractButton* button);

private:
    void prepareRecord(MDRData* record) override { m_shown.prepareRecord(record); }
    void forgetRecord(MDRData* record) override { m_shown.census.remove(record); }

    bool send(CRowBatch& batch);
    /// Sends the batch unless it is empty. A failure is logged under this function of the page, and shown.
    void write(CRowBatch& batch, const char* function, const QString& logLine, const QString& message);
    bool deleteRecord(MDRData* record);
    bool setRecordDeleted(MDRData* record);
    QVector<MDRData*> drafts(bool onlyMine) const;
    void deleteDrafts(bool onlyMine, const char* function);
    void approveDrafts(bool onlyMine, const char* function);
    void requestVisas(const QVector<MDRData*>& records, bool isOfAll);
    void writeVisas(const QVector<MDRData*>& records, bool isOfAll);

    using Marks = std::initializer_list<std::pair<const char*, MDRVar>>;
    /// Writes values into a record in place. In the log line of a failure "%1" is the table, "%2" the
    /// record, the rest from "%3" on.
    void markRecord(const QByteArray& key, const Marks& marks, const char* function, const QString& logLine,
                    const QStringList& rest, const QString& message);
    void writeMark(CRowBatch& batch, const QByteArray& key, const char* function, const QString& logLine,
                   const QStringList& rest, const QString& message);
    void addSuccessor(CRowBatch& batch, const MDRData* record, const QByteArray& key, double time);
    static void copyMarked(CRowBatch& batch, MDRData* row, const MDRData* record);
    void pasteRecord(const MDRData* source);

    QVector<QByteArray> m_awaitingVisas; ///< keys of the records that wait for the password
    bool m_isVisaOfAll = false;
};
