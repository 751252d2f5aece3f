#pragma once

#include "DemoTemplates.h"

#include <QPair>
#include <QRandomGenerator>
#include <QVector>

class DemoNetwork;
struct DemoPerson;
struct DemoSubstation;

/// Fills record templates like a dispatcher: given values go to their parameters, the others get plausible
/// values from the samples and the network.
class DemoFiller
{
public:
    /// Place and time of a record.
    struct Scene {
        int department = 0;
        qint64 time = 0; ///< of the event
        qint64 shiftStart = 0;
        qint64 shiftEnd = 0;
        QVector<const DemoPerson*> crew; ///< the author first
    };
    /// Values by label; parameters with the same label take the given values one after another. "" leaves
    /// an optional parameter empty.
    using Values = QVector<QPair<QString, QString>>;

    DemoFiller(const DemoNetwork& network, quint32 seed);

    /// The html of the record, UTF-8. A label that the template does not have aborts the program.
    std::string fill(const DemoTemplate& record, const Scene& scene, const Values& values = {});

    /// A number from \a from to \a to, excluding \a to.
    int number(int from, int to) { return m_random.bounded(from, to); }
    /// True with this probability in percent.
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
    /// A person that a record of this department would name under this label, and the person's department.
    QPair<const DemoPerson*, int> somebody(const Scene& scene, const std::string& type, const QString& label);

    const DemoNetwork& m_network;
    QRandomGenerator m_random;
};
