#pragma once

#include <QObject>
#include <QStringList>
#include <QVector>

/// The result of a conversion: lines for display, the two lists that decide whether it may be saved, and
/// the outcome for each template and parameter.
class ConversionReport : public QObject
{
    Q_OBJECT

public:
    enum Tone { Plain, Good, Warning, Error };
    struct Line {
        Tone tone;
        QString text;
    };
    enum Result {
        Text,
        List,
        DateTime,
        Reference,
        Base,
        Unnamed,
        BadName,
        BadDate,
        Template,
        OpenBracket,
        LeftOut
    };
    /// The outcome for one old row.
    struct Outcome {
        QString name;
        Result result;
        QStringList losses; ///< content that the new row does not have
    };

    /// Appends one paragraph, possibly with several lines.
    void add(Tone tone, const QString& text);
    const QVector<Line>& lines() const { return m_lines; }
    /// One old row is done; \a text is the progress, empty for no change.
    void step(const QString& text = QString()) { emit stepped(text); }

    /// The whole report in the form of a text file.
    QString asText() const;

    QStringList missing; ///< unknown parameters that templates name; warnings
    QStringList failed;  ///< rows that could not be converted; errors, which block saving
    QVector<Outcome> params;
    QVector<Outcome> templates;

signals:
    void added(ConversionReport::Tone tone, const QString& text);
    void stepped(const QString& text);

private:
    QVector<Line> m_lines;
};
