#pragma once

#include <QMap>
#include <QString>

/// The server's options file: XML, of which the attributes of the element Options count. What else stands in it is left
/// as it is.
class OptionsFile
{
public:
    /// Takes the text of a file; an empty one is a file without options. False, and errorText() says where, when it is
    /// not well formed.
    bool read(const QString& xml);
    QString errorText() const { return m_errorText; }

    /// A null text when the option is not there. Of several elements Options the last one that has it counts.
    QString value(const QString& name) const { return m_values.value(name); }
    /// The text of the file with these options set, without an XML declaration. Call read() first.
    QString with(const QMap<QString, QString>& values) const;

private:
    QString m_xml;
    QMap<QString, QString> m_values;
    QString m_errorText;
};
