#pragma once

#include "DemoTemplates.h"

#include <QPair>
#include <QRandomGenerator>
#include <QVector>

class DemoNetwork;
struct DemoPerson;
struct DemoSubstation;

/// Fills record templates as a dispatcher would: parameters that are told get their values, the others plausible ones
/// out of the samples and the network.
class DemoFiller
{
public:
    /// Where and when a record is written.
    struct Scene {
        int department = 0;
        qint64 time = 0; ///< of the event
        qint64 shiftStart = 0;
        qint64 shiftEnd = 0;
        QVector<const DemoPerson*> crew; ///< the author first
    };
    /// Values by label; of parameters with one label each takes the next value told for it. "" empties an optional
    /// parameter.
    using Values = QVector<QPair<QString, QString>>;

    DemoFiller(const DemoNetwork& network, quint32 seed);

    /// The html of the record, UTF-8. A label that the template does not have ends the program.
    std::string fill(const DemoTemplate& record, const Scene& scene, const Values& values = {});

    /// A number from \a from up to, not including, \a to.
    int number(int from, int to) { return m_random.bounded(from, to); }
    /// True in so many of a hundred cases.
    bool chance(int percent) { return m_random.bounded(100) < percent; }
    template <class T>
    const T& pick(const QVector<T>& list)
    {
        return list.at(m_random.bounded(list.size()));
    }

private:
    struct Place;

    QString sample(const QString& notation);
    QString value(const std::string& type, const QString& label, const QStringList& choices,
                  const QString& format, const DemoTemplate& record, const Scene& scene, const Place& place);
    QString moment(const QString& label, const QString& format, qint64 time);
    QString interval(const QString& label, const Scene& scene);
    QString bay(const DemoSubstation& substation, const QString& label);
    /// Somebody that a record of this department would name under this label, and of which department.
    QPair<const DemoPerson*, int> somebody(const Scene& scene, const std::string& type, const QString& label);

    const DemoNetwork& m_network;
    QRandomGenerator m_random;
};
