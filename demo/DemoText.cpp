#include "DemoText.h"

#include <QFile>

// Outside of any namespace, as the macro requires.
static void openResources()
{
    Q_INIT_RESOURCE(demo);
}

QStringList DemoText::Line::values() const
{
    QStringList values = value.split(QStringLiteral(" | "));
    for (QString& one : values)
        if (one == QLatin1String("-"))
            one.clear();
    return values;
}

QStringList DemoText::Line::values(int count) const
{
    const QStringList all = values();
    if (all.size() != count)
        fail(QStringLiteral("%1 values instead of %2").arg(all.size()).arg(count));
    return all;
}

void DemoText::Line::fail(const QString& fault) const
{
    qFatal("The demo's text %s, line %d: %s", qPrintable(file), number, qPrintable(fault));
}

void DemoText::Line::failAtWord() const
{
    fail(QStringLiteral("unknown word \"%1\"").arg(word));
}

const DemoText::Line* DemoText::Block::line(const QString& word) const
{
    for (const Line& line : lines)
        if (line.word == word)
            return &line;
    return nullptr;
}

QByteArray DemoText::content(const QString& name)
{
    openResources();
    QFile file(QStringLiteral(":/demo/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The demo has lost %s", qPrintable(name));
    return file.readAll();
}

QVector<DemoText::Line> DemoText::parse(const QString& text, QString* error)
{
    QVector<Line> lines;
    int number = 0;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        ++number;
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const int colon = line.indexOf(QLatin1String(": "));
        if (line.startsWith(QLatin1String("== "))) {
            lines.append({{}, number, QStringLiteral("=="), {}, line.mid(3).trimmed()});
        } else if (line.startsWith(QLatin1String("  ")) && !lines.isEmpty()) {
            lines.last().value += QLatin1Char('\n') + line.mid(2);
        } else if (colon < 0) {
            *error = QStringLiteral("line %1: no value").arg(number);
            return lines;
        } else if (line.startsWith(QLatin1String("~ "))) {
            lines.append({{}, number, QStringLiteral("~"), line.mid(2, colon - 2), line.mid(colon + 2)});
        } else {
            lines.append({{}, number, line.left(colon), {}, line.mid(colon + 2).trimmed()});
        }
    }
    return lines;
}

QVector<DemoText::Line> DemoText::lines(const QString& file)
{
    QString error;
    QVector<Line> lines = parse(QString::fromUtf8(content(file)), &error);
    if (!error.isEmpty())
        qFatal("The demo's text %s, %s", qPrintable(file), qPrintable(error));
    for (Line& line : lines)
        line.file = file;
    return lines;
}

QVector<DemoText::Block> DemoText::blocks(const QString& file)
{
    QVector<Block> blocks;
    for (const Line& line : lines(file)) {
        if (line.word == QLatin1String("=="))
            blocks.append({line, {}});
        else if (blocks.isEmpty())
            line.fail(QStringLiteral("nothing is open"));
        else
            blocks.last().lines.append(line);
    }
    return blocks;
}

QStringList DemoText::list(const QString& file, const QString& word)
{
    for (const Line& line : lines(file))
        if (line.word == word)
            return line.values();
    qFatal("The demo's text %s has no line \"%s\"", qPrintable(file), qPrintable(word));
}
