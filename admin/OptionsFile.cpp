#include "OptionsFile.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace
{
const QString element = QStringLiteral("Options");

void openOptions(QXmlStreamWriter& writer, const QXmlStreamAttributes& present,
                 const QMap<QString, QString>& values)
{
    writer.writeStartElement(element);
    for (const QXmlStreamAttribute& attribute : present) {
        if (!values.contains(attribute.qualifiedName().toString()))
            writer.writeAttribute(attribute);
    }
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        writer.writeAttribute(value.key(), value.value());
}
} // namespace

bool OptionsFile::read(const QString& xml)
{
    m_xml = xml.trimmed();
    m_values.clear();
    m_errorText.clear();
    if (m_xml.isEmpty())
        return true;
    QXmlStreamReader reader(m_xml);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement || reader.name() != element)
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        for (const QXmlStreamAttribute& attribute : attributes)
            m_values.insert(attribute.qualifiedName().toString(), attribute.value().toString());
    }
    if (reader.hasError())
        m_errorText = QStringLiteral("строка %1: %2").arg(reader.lineNumber()).arg(reader.errorString());
    return !reader.hasError();
}

QString OptionsFile::with(const QMap<QString, QString>& values) const
{
    QString text;
    QXmlStreamWriter writer(&text);
    if (m_xml.isEmpty()) {
        openOptions(writer, {}, values);
        writer.writeEndElement();
        return text + QLatin1Char('\n');
    }
    QXmlStreamReader reader(m_xml);
    bool isThere = false;
    int depth = 0;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        depth += token == QXmlStreamReader::StartElement ? 1 : token == QXmlStreamReader::EndElement ? -1 : 0;
        if (token == QXmlStreamReader::StartDocument || token == QXmlStreamReader::EndDocument)
            continue; // the caller writes the declaration, since it names the encoding
        if (token == QXmlStreamReader::StartElement && reader.name() == element) {
            openOptions(writer, reader.attributes(), values); // in all of them: the last one counts
            isThere = true;
            continue;
        }
        if (token == QXmlStreamReader::EndElement && depth == 0 && !isThere) {
            openOptions(writer, {}, values);
            writer.writeEndElement();
        }
        writer.writeCurrentToken(reader);
    }
    return text + QLatin1Char('\n');
}
