#pragma once

#include <QMap>
#include <QString>

/// The server's options file: XML in which the attributes of the element Options are used. All other
/// content is preserved.
class OptionsFile
{
public:
    /// Parses the text of a file; an empty one is a file without options. False with errorText() if it is
    /// not well-formed.
    bool read(const QString& xml);
    QString errorText() const { return m_errorText; }

    /// A null text if the option is missing. If there are several elements Options, the last one that has
    /// it counts.
    QString value(const QString& name) const { return m_values.value(name); }
    /// The text of the file with these options set, without an XML declaration. Call read() first.
    QString with(const QMap<QString, QString>& values) const;

private:
    QString m_xml;
    QMap<QString, QString> m_values;
    QString m_errorText;
};
