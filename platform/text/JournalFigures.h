#pragma once

#include "CMDArray.h"
#include "VrkExport.h"

#include <QHash>
#include <QMap>
#include <QSet>
#include <QString>
#include <QVector>

class QTextCodec;

/// Figures about the approved records and the closed workshifts of a journal: by department, template and hour, late
/// entries, overdue orders, signed closings. It names the requests and counts their answers; the caller reads them:
///
///     JournalFigures figures(choice, codec);
///     for (QByteArray sql; !(sql = figures.request()).isEmpty();)
///         figures.take(answer(sql));
///
/// Answers have at most 5,000 rows, so a window can stay alive between two of them.
class VRK_EXPORT JournalFigures
{
public:
    /// What is counted. Records count by their own time, workshifts by their start.
    struct Choice {
        double from = 0;       ///< HfnTime; 0: from the beginning
        double to = 0;         ///< the first time that no longer counts; 0: to the end
        QByteArray department; ///< key; empty: all
        int lateMinutes = 30;  ///< an entry is late if it was made more minutes after its event
    };
    /// One figure: \a count of \a total.
    struct Figure {
        /// "department", "category", "template", "hour", "late", "overdue", "signedHandovers"
        QByteArray group;
        QString name; ///< within the group; null if the group is one figure
        qint64 count = 0;
        qint64 total = 0;
    };

    /// \a codec is that of the store's texts, not owned.
    JournalFigures(const Choice& choice, const QTextCodec* codec) : m_choice(choice), m_codec(codec) {}

    /// The select whose answer is wanted next; empty when everything has been read.
    QByteArray request() const;
    /// Counts the answer to request().
    void take(const CMDArray& answer);
    /// Records read so far, and those that will be read; the latter is 0 until it is known.
    qint64 readRecords() const { return m_records; }
    qint64 expectedRecords() const { return m_expected; }

    /// Groups in the order above. Names by falling count, hours by time, without those that have no record.
    /// Departments that are not in \a departments have their key as name.
    QVector<Figure> figures(const QHash<QByteArray, QString>& departments) const;
    /// The Russian heading of a group.
    static QString title(const QByteArray& group, int lateMinutes);

private:
    enum Stage { Templates, Count, Records, Shifts, Signatures, End };
    struct Kind {
        QString name;
        QString category;
    };
    QByteArray during(const char* field) const;
    void takeTemplates(const CMDArray& answer);
    void takeRecords(const CMDArray& answer);
    void takeShifts(const CMDArray& answer);
    void takeSignatures(const CMDArray& answer);
    void goOn(int rows);
    QString text(const CMDArray& answer, int row, int column) const;
    QVector<Figure> ranked(const char* group, const QMap<QString, qint64>& counts) const;

    Choice m_choice;
    const QTextCodec* m_codec;
    Stage m_stage = Templates;
    QByteArray m_last;            ///< key of the last row read at this stage
    QHash<QString, Kind> m_kinds; ///< by the fixed words of a template
    QMap<QByteArray, qint64> m_departments;
    QMap<QString, qint64> m_categories;
    QMap<QString, qint64> m_templates;
    QMap<int, qint64> m_hours;
    qint64 m_expected = 0;
    qint64 m_records = 0;
    qint64 m_late = 0;
    qint64 m_orders = 0;
    qint64 m_overdue = 0;
    QSet<QByteArray> m_unsigned; ///< keys of closed workshifts without a known signature
    qint64 m_shifts = 0;
    qint64 m_signed = 0;
};
