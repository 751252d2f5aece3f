#include "GuideText.h"

#include <QFile>
#include <QRegularExpression>
#include <QWidget>

namespace
{
QString resource(const char* name)
{
    QFile file(QString::fromLatin1(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// As links name a heading: lower case, blanks as hyphens, no punctuation.
QString anchorOf(const QString& title)
{
    QString anchor;
    for (const QChar character : title.toLower()) {
        if (character.isLetterOrNumber() || character == QLatin1Char('-'))
            anchor += character;
        else if (character.isSpace())
            anchor += QLatin1Char('-');
    }
    return anchor;
}

bool isCalled(const QWidget* widget, const QString& name)
{
    return widget->objectName() == name || widget->inherits(name.toLatin1().constData());
}
} // namespace

GuideText::GuideText()
{
    read(resource(":/help/user-guide.ru.md") + QLatin1Char('\n') + resource(":/help/changes.ru.md"));
}

GuideText::GuideText(const QString& markdown)
{
    read(markdown);
}

QString GuideText::firstShift()
{
    return QStringLiteral("Смена за десять минут");
}

QString GuideText::keys()
{
    return QStringLiteral("Клавиши");
}

QString GuideText::news()
{
    return QStringLiteral("Что нового");
}

void GuideText::read(const QString& markdown)
{
    static const QRegularExpression heading(QStringLiteral("^(#{1,6}) +(.+?) *$"));
    static const QRegularExpression comment(QStringLiteral("^<!-- *window: *(.*?) *-->$"));
    const QStringList lines = markdown.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const QRegularExpressionMatch title = heading.match(line);
        const QRegularExpressionMatch windows = comment.match(line);
        if (title.hasMatch())
            m_sections.append({int(title.capturedLength(1)), title.captured(2), {}});
        if (windows.hasMatch() && !m_sections.isEmpty()) {
            static const QRegularExpression comma(QStringLiteral(" *, *"));
            m_sections.last().windows += windows.captured(1).split(comma, Qt::SkipEmptyParts);
        } else if (!line.startsWith(QLatin1String("<!--"))) {
            m_markdown += line + QLatin1Char('\n');
        }
    }
}

int GuideText::sectionOf(const QWidget* widget) const
{
    for (; widget; widget = widget->parentWidget()) {
        for (int i = 0; i < m_sections.size(); ++i)
            for (const QString& name : m_sections[i].windows)
                if (isCalled(widget, name))
                    return i;
    }
    return -1;
}

int GuideText::section(const QString& title) const
{
    const QString wanted = anchorOf(title);
    for (int i = 0; i < m_sections.size(); ++i) {
        if (anchorOf(m_sections[i].title) == wanted)
            return i;
    }
    return -1;
}
