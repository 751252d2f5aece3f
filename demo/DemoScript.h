#pragma once

#include "DemoJournal.h"
#include "DemoText.h"

#include <functional>
#include <QTime>

/// Makes records of the blocks of a text such as story.txt, which describes the words of a block.
class DemoScript
{
public:
    /// The real time of a time of day, so many days after the first day of the text.
    using Clock = std::function<qint64(int day, const QTime& time)>;

    /// The keys of the records begin with \a prefix; \a delay is the time from an event to its record in
    /// seconds.
    DemoScript(DemoJournal* journal, const QString& prefix, int delay, Clock clock);

    qint64 eventTime(const DemoText::Block& block) const;
    /// The record of a block, not written to the journal yet. \a author is for a block that names none; by
    /// default it is the first of the crew.
    DemoRecord record(const DemoText::Block& block, const DemoShift& shift, DemoFiller* filler,
                      const DemoPerson* author = nullptr) const;
    /// Writes the record of a block with its comments, files and successor.
    void write(const DemoText::Block& block, const DemoShift& shift, const DemoRecord& record) const;

private:
    QByteArray key(const QString& name) const;
    qint64 time(const DemoText::Line& line, const QString& text) const;
    const DemoPerson* person(const DemoText::Line& line, const QString& login) const;
    QString shown(const DemoText::Line& line) const;
    void readWord(const DemoText::Line& line, DemoRecord* record) const;
    void writeComment(const DemoText::Line& line, const DemoRecord& record) const;
    void writeFile(const DemoText::Line& line, const DemoRecord& record) const;

    DemoJournal* m_journal;
    QString m_prefix;
    int m_delay;
    Clock m_clock;
};
