#include "DemoTemplates.h"

#include "DemoText.h"
#include "HtmlParser.h"

#include <QMap>
#include <QSet>

namespace
{
using Property = std::pair<std::string, std::string>;

/// The content of a parameter's braces.
struct Parameter {
    QString type;
    bool optional = false;
    QString label;
    QString more;
    QString before; ///< words that are shown only together with the value
    QString after;
};

/// Removes the words around the value from the end of the text after the label: "; Бланк № …." Lists and
/// dates have their values and their layout before them.
void readWords(Parameter* parameter)
{
    const bool hasMore =
        parameter->type == QLatin1String("list") || parameter->type == QLatin1String("datetime");
    const int begin = hasMore ? parameter->more.indexOf(QLatin1Char(';')) + 1 : 0;
    const int value = parameter->more.indexOf(QChar(0x2026), begin);
    if ((hasMore && begin == 0) || value < 0)
        return;
    parameter->before = parameter->more.mid(begin, value - begin);
    parameter->after = parameter->more.mid(value + 1);
    parameter->more.truncate(qMax(0, begin - 1));
}

bool readParameter(const QString& text, Parameter* parameter)
{
    const int colon = text.indexOf(QLatin1Char(':'));
    if (colon <= 0)
        return false;
    parameter->type = text.left(colon);
    parameter->optional = parameter->type.endsWith(QLatin1Char('?'));
    if (parameter->optional)
        parameter->type.chop(1);
    const QString rest = text.mid(colon + 1);
    const int semicolon = rest.indexOf(QLatin1Char(';'));
    parameter->label = rest.left(semicolon).trimmed();
    parameter->more = semicolon < 0 ? QString() : rest.mid(semicolon + 1);
    readWords(parameter);
    return !parameter->label.isEmpty();
}

std::string parameterHtml(const Parameter& parameter, int index)
{
    std::vector<Property> properties{{"name", parameter.type.toStdString()},
                                     {"idx", std::to_string(index)},
                                     {"locname", parameter.label.toStdString()}};
    if (parameter.type == QLatin1String("datetime"))
        properties.emplace_back("format", parameter.more.toStdString());
    if (parameter.type == QLatin1String("list")) {
        std::vector<std::string> values;
        for (const QString& value : parameter.more.split(QLatin1Char('|')))
            values.push_back(value.toStdString());
        properties.emplace_back("list", HtmlParser::createListProperty(values));
    }
    if (parameter.optional)
        properties.emplace_back("optional", "1");
    if (!parameter.before.isEmpty())
        properties.emplace_back("before", parameter.before.toStdString());
    if (!parameter.after.isEmpty())
        properties.emplace_back("after", parameter.after.toStdString());
    return HtmlParser::createParameter(properties, parameter.label.toStdString());
}

/// Reads templates one after another; knows the current line for errors.
class Reader
{
public:
    explicit Reader(QVector<DemoTemplate>* templates) : m_templates(templates) {}

    bool read(const QString& notation, QString* error)
    {
        for (const DemoText::Line& line : DemoText::parse(notation, error)) {
            m_number = line.number;
            readLine(line);
            if (!m_error.isEmpty())
                break;
        }
        if (m_error.isEmpty() && error->isEmpty())
            finish();
        if (!m_error.isEmpty())
            *error = QStringLiteral("line %1: %2").arg(m_number).arg(m_error);
        return error->isEmpty();
    }

private:
    void readLine(const DemoText::Line& line)
    {
        if (line.word == QLatin1String("==")) {
            finish();
            m_open = true;
            m_current.name = line.value;
        } else if (!m_open) {
            m_error = QStringLiteral("nothing is open");
        } else if (line.word == QLatin1String("~")) {
            m_current.samples.insert(line.label, line.values());
        } else {
            readValue(line.word, line.value);
        }
    }

    void readValue(const QString& word, const QString& value)
    {
        if (word == QLatin1String("level"))
            readLevel(value);
        else if (word == QLatin1String("category"))
            m_current.categories = value.split(QStringLiteral(" / "));
        else if (word == QLatin1String("flags"))
            readFlags(value);
        else if (word == QLatin1String("first_mark"))
            m_current.firstMark = marker(value);
        else if (word == QLatin1String("second_mark"))
            m_current.secondMark = marker(value);
        else if (word == QLatin1String("command"))
            m_current.command = value;
        else if (word == QLatin1String("text"))
            m_text = value;
        else
            m_error = QStringLiteral("unknown word \"%1\"").arg(word);
    }

    void readLevel(const QString& value)
    {
        const int open = value.indexOf(QChar(0xab));
        const int close = value.indexOf(QChar(0xbb));
        m_current.owner = open > 0 && close > open ? value.mid(open + 1, close - open - 1) : QString();
        m_leveled = true;
        if (value == QStringLiteral("Общие"))
            m_current.level = DemoTemplate::Common;
        else if (value.startsWith(QStringLiteral("Тип «")) && !m_current.owner.isEmpty())
            m_current.level = DemoTemplate::OrgType;
        else if (value.startsWith(QStringLiteral("Подразделение «")) && !m_current.owner.isEmpty())
            m_current.level = DemoTemplate::Department;
        else
            m_error = QStringLiteral("unknown level \"%1\"").arg(value);
    }

    void readFlags(const QString& value)
    {
        static const QSet<QString> known{QStringLiteral("open_wshift"), QStringLiteral("close_wshift"),
                                         QStringLiteral("time_exec")};
        m_current.flags = value.split(QStringLiteral(", "));
        for (const QString& flag : qAsConst(m_current.flags))
            if (!known.contains(flag))
                m_error = QStringLiteral("unknown flag \"%1\"").arg(flag);
    }

    QString marker(const QString& label)
    {
        const QString path = DemoTemplates::markerPath(label);
        if (path.isEmpty())
            m_error = QStringLiteral("unknown marker \"%1\"").arg(label);
        return path;
    }

    /// Completes the open template and adds it.
    void finish()
    {
        if (!m_open || !m_error.isEmpty())
            return;
        const QString name = m_current.name;
        if (!m_leveled || m_current.categories.isEmpty() || m_text.isEmpty())
            m_error = QStringLiteral("\"%1\" lacks level, category or text").arg(name);
        else if (!m_current.command.isEmpty() && m_current.secondMark.isEmpty())
            m_error = QStringLiteral("\"%1\" has a command without second marker").arg(name);
        if (m_error.isEmpty())
            m_current.html = DemoTemplates::html(m_text, &m_error);
        if (m_error.isEmpty())
            checkSamples();
        if (m_error.isEmpty())
            setProperties();
        m_templates->append(m_current);
        m_current = DemoTemplate();
        m_text.clear();
        m_leveled = false;
    }

    void checkSamples()
    {
        static const QSet<QString> sampled{QStringLiteral("text"), QStringLiteral("signalName"),
                                           QStringLiteral("signalNum")};
        const HtmlParser parser(m_current.html);
        QSet<QString> labels;
        for (unsigned i = 0; i < parser.countParameters(); ++i)
            if (sampled.contains(QString::fromStdString(parser.propertyNameValue(i))))
                labels.insert(QString::fromStdString(parser.propertyValue(i, "locname")));
        for (const QString& label : qAsConst(labels))
            if (!m_current.samples.contains(label))
                m_error = QStringLiteral("\"%1\" has no samples for \"%2\"").arg(m_current.name, label);
        for (auto sample = m_current.samples.cbegin(); sample != m_current.samples.cend(); ++sample)
            if (!labels.contains(sample.key()))
                m_error = QStringLiteral("\"%1\" has samples for no parameter \"%2\"")
                              .arg(m_current.name, sample.key());
    }

    void setProperties()
    {
        HtmlParser parser(m_current.html);
        for (const QString& flag : qAsConst(m_current.flags))
            parser.setTemplateProperty(flag.toStdString(), true);
        if (!m_current.firstMark.isEmpty())
            parser.setTemplateProperty("first_mark", m_current.firstMark.toStdString());
        if (!m_current.secondMark.isEmpty())
            parser.setTemplateProperty("second_mark", m_current.secondMark.toStdString());
        if (!m_current.command.isEmpty())
            parser.setTemplateProperty("command", m_current.command.toStdString());
        m_current.html = parser.readyHtml(true);
    }

    QVector<DemoTemplate>* m_templates;
    int m_number = 0;
    QString m_error;
    bool m_open = false;
    bool m_leveled = false;
    QString m_text;
    DemoTemplate m_current;
};
} // namespace

QVector<DemoTemplate> DemoTemplates::builtIn()
{
    QVector<DemoTemplate> templates;
    QString error;
    if (!parse(QString::fromUtf8(DemoText::content(QStringLiteral("templates.txt"))), &templates, &error))
        qFatal("The demo's templates cannot be read: %s", qPrintable(error));
    return templates;
}

bool DemoTemplates::parse(const QString& notation, QVector<DemoTemplate>* templates, QString* error)
{
    return Reader(templates).read(notation, error);
}

const QStringList& DemoTemplates::parameterKinds()
{
    static const QStringList kinds = DemoText::list(QStringLiteral("reference.txt"), QStringLiteral("kinds"));
    return kinds;
}

QString DemoTemplates::unknownKind(const QString& text)
{
    int open = text.indexOf(QLatin1Char('{'));
    while (open >= 0) {
        const int end = text.indexOf(QLatin1Char('}'), open);
        Parameter parameter;
        if (end > 0 && readParameter(text.mid(open + 1, end - open - 1), &parameter) &&
            !parameterKinds().contains(parameter.type))
            return parameter.type;
        open = text.indexOf(QLatin1Char('{'), open + 1);
    }
    return QString();
}

std::string DemoTemplates::html(const QString& text, QString* error)
{
    std::string result;
    QString fixed;
    const auto flush = [&] {
        result += HtmlParser::escaped(fixed.toStdString());
        fixed.clear();
    };
    QMap<QChar, bool> open;
    QHash<QString, int> count;
    for (int i = 0; i < text.size(); ++i) {
        const QChar sign = text.at(i);
        if (sign == QLatin1Char('{')) {
            flush();
            const int end = text.indexOf(QLatin1Char('}'), i);
            Parameter parameter;
            if (end < 0 || !readParameter(text.mid(i + 1, end - i - 1), &parameter)) {
                if (error)
                    *error = QStringLiteral("a parameter without end or label: \"%1\"").arg(text.mid(i, 40));
                return {};
            }
            result += parameterHtml(parameter, count[parameter.type]++);
            i = end;
        } else if (sign == QLatin1Char('*') || sign == QLatin1Char('~')) {
            flush();
            bool& inside = open[sign];
            if (inside)
                result += "</span>";
            else
                result += sign == QLatin1Char('*') ? "<span style=\" font-weight:600;\">"
                                                   : "<span style=\" text-decoration: line-through;\">";
            inside = !inside;
        } else {
            fixed += sign;
        }
    }
    flush();
    return result;
}

namespace
{
const QHash<QString, QString>& markerPaths()
{
    static const QHash<QString, QString> paths = [] {
        QHash<QString, QString> read;
        for (const DemoText::Line& line : DemoText::lines(QStringLiteral("reference.txt"))) {
            if (line.word == QLatin1String("marker")) {
                const QStringList values = line.values(2);
                read.insert(values[0], QStringLiteral(":/markers/") + values[1]);
            }
        }
        return read;
    }();
    return paths;
}
} // namespace

QString DemoTemplates::markerPath(const QString& label)
{
    return markerPaths().value(label);
}

QStringList DemoTemplates::markerLabels()
{
    return markerPaths().keys();
}
