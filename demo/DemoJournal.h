#pragma once

#include "DemoFiller.h"
#include "DemoNetwork.h"
#include "DemoTemplates.h"
#include "LogbookFields.h"

#include <QByteArray>
#include <QString>
#include <QVector>

class DemoWriter;

/// One shift of a department: a row of LogbookWorkshifts with its crew.
struct DemoShift {
    QByteArray key;
    int department = 0;
    qint64 start = 0;
    qint64 end = 0;
    QVector<const DemoPerson*> crew; ///< who opened it first
    bool open = false;
    QVector<const DemoPerson*> relief; ///< who took it over

    DemoFiller::Scene scene(qint64 time, const DemoPerson* author) const;
};

/// One record to be written to the journal. Times are 0 and persons null if not set.
struct DemoRecord {
    QByteArray key;
    const DemoPerson* author = nullptr;
    const DemoPerson* visa = nullptr;
    const DemoPerson* receiver = nullptr;
    const DemoPerson* secondMarkWorker = nullptr;
    QByteArray origin;
    qint64 recordTime = 0;
    qint64 eventTime = 0;
    qint64 secondMarkTime = 0;
    qint64 executionTime = 0;
    std::string html; ///< UTF-8
    RecordStatus status = StatusApproved;
    RecordDirection direction = DirectionNone;
};

/// Puts shifts, records, comments and files into a writer, and provides the templates by name.
class DemoJournal
{
public:
    DemoJournal(DemoWriter* writer, const DemoNetwork& network, QVector<DemoTemplate> templates);

    const DemoNetwork& network() const { return m_network; }
    /// Aborts the program if there is none of this name.
    const DemoTemplate& record(const QString& name) const;
    /// The templates that a department may use, except those that open or close a shift.
    QVector<const DemoTemplate*> recordsOf(int department) const;

    /// The templates of a line of everyday.txt.
    QVector<const DemoTemplate*> everydayRecords(const QString& word) const;

    static QByteArray shiftKey(int department, qint64 start);
    /// A shift of the timetable with the crew whose turn it is; it is not written to the journal yet.
    DemoShift plan(int department, qint64 start, qint64 end, int turn) const;

    void add(const DemoShift& shift);
    /// The first marker's time is that of the event if the html has a first marker.
    void add(const DemoShift& shift, const DemoRecord& record);
    /// \a readTime 0: unread.
    void comment(const QByteArray& record, const DemoPerson& author, qint64 time, const QString& text,
                 qint64 readTime);
    void file(const QByteArray& record, const DemoPerson& author, const QString& name,
              const QByteArray& content);

    /// The records with which a shift is opened and closed.
    void opening(const DemoShift& shift, DemoFiller* filler, qint64 time);
    void closing(const DemoShift& shift, DemoFiller* filler, qint64 time);
    /// A number of everyday records between two times; later actions on them are also before \a to.
    void routine(const DemoShift& shift, DemoFiller* filler, int count, qint64 from, qint64 to,
                 const QVector<const DemoTemplate*>& kinds);

private:
    void everyday(const DemoShift& shift, DemoFiller* filler, const DemoTemplate& kind, qint64 time,
                  qint64 latest, int number);

    DemoWriter* m_writer;
    const DemoNetwork& m_network;
    const QVector<DemoTemplate> m_templates;
    const QVector<QString> m_remarks;
    int m_comments = 0;
};
