#pragma once

#include <QObject>
#include <QStringList>
#include <QVector>

/// What a conversion has to tell: lines for the eye, the two lists that decide whether it may be saved, and what became
/// of each template and parameter.
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
    /// What became of one old row.
    struct Outcome {
        QString name;
        Result result;
        QStringList losses; ///< what the new row no longer holds
    };

    /// Appends one paragraph; it may hold several lines.
    void add(Tone tone, const QString& text);
    const QVector<Line>& lines() const { return m_lines; }
    /// One old row is done; \a text says how far the run is, empty for no change.
    void step(const QString& text = QString());

    /// The whole report as a text file shows it.
    QString asText() const;

    QStringList missing; ///< parameters that templates name and nobody knows; warnings
    QStringList failed;  ///< what could not be converted; errors, which block saving
    QVector<Outcome> params;
    QVector<Outcome> templates;

signals:
    void added(ConversionReport::Tone tone, const QString& text);
    void stepped(const QString& text);

private:
    QVector<Line> m_lines;
};
