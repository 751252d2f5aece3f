#pragma once

#include "Directory.h"

#include <QMap>

/// Figures about the approved records and the closed shifts of a journal. One code for both engines: the rows are
/// read in pages and counted here.
class Statistics
{
public:
    /// What is counted. Records count by their own time, shifts by their start.
    struct Choice {
        double from = 0;       ///< HfnTime; 0: from the beginning
        double to = 0;         ///< the first time that no longer counts; 0: to the end
        QByteArray department; ///< empty: all
        int lateMinutes = 30;  ///< an entry is late if it was made more minutes after its event
    };
    /// One figure: \a count of \a total.
    struct Figure {
        QByteArray
            group;    ///< "department", "category", "template", "hour", "late", "overdue", "signedHandovers"
        QString name; ///< within the group; empty if the group is one figure
        qint64 count = 0;
        qint64 total = 0;
    };
    Statistics(const Directory& directory, const Choice& choice) : m_directory(directory), m_choice(choice) {}
    /// False if the store cannot be read.
    bool count(Store* store, StoreError* error);
    /// Groups in the order above. Names by falling count, hours by time, without those that have no record.
    QVector<Figure> figures() const;

private:
    bool countRecords(Store* store, StoreError* error);
    bool countShifts(Store* store, StoreError* error);
    void readTemplates();
    QByteArray during(const char* field) const;
    QVector<Figure> ranked(const char* group, const QMap<QString, qint64>& counts) const;

    const Directory& m_directory;
    Choice m_choice;
    QHash<QString, QByteArray> m_kinds; ///< the fixed words of a template to its key
    QMap<QString, qint64> m_departments;
    QMap<QString, qint64> m_categories;
    QMap<QString, qint64> m_templates;
    QMap<int, qint64> m_hours;
    qint64 m_records = 0;
    qint64 m_late = 0;
    qint64 m_orders = 0;
    qint64 m_overdue = 0;
    qint64 m_shifts = 0;
    qint64 m_signed = 0;
};
