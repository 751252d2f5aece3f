#pragma once

#include <QString>

class QDateTime;
class TemplateFiller;

/// Fills what is known before the user types into the parameters of a new text. A parameter that has a
/// value keeps it.
class RecordPrefill
{
public:
    explicit RecordPrefill(TemplateFiller* filler) : m_filler(filler) {}

    /// Another text is shown, whose time does not follow that of the event.
    void clear() { m_time.clear(); }
    /// Fills the time of the event into the first parameter for a time, except a deadline: with the current
    /// time filled in, nobody would notice that it is missing.
    void fillTime(const QDateTime& time);
    /// The time of the event has changed: a time that was filled in follows it until the user sets it
    /// himself.
    void followTime(const QDateTime& time);
    /// Fills the first parameter with this base name; an empty text fills nothing.
    void fill(const QString& parameter, const QString& text, const QString& key);

private:
    void writeTime(unsigned index, const QDateTime& time);

    TemplateFiller* m_filler;
    QString m_time; ///< the text that was filled into the parameter for the time
};
