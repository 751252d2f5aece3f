#include "AdminText.h"

#include <QFile>

// Outside of any namespace, as the macro requires.
static void openResources()
{
    Q_INIT_RESOURCE(admin);
}

QString AdminText::content(const char* name)
{
    openResources();
    QFile file(QStringLiteral(":/admin/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The program has lost its file %s", name);
    return QString::fromUtf8(file.readAll());
}

QString AdminText::printable(const QString& text)
{
    QString shown;
    for (const QChar character : text) {
        const QChar::Category kind = character.category();
        if (kind == QChar::Other_Control || kind == QChar::Other_Format || kind == QChar::Separator_Line ||
            kind == QChar::Separator_Paragraph)
            shown += character == QLatin1Char('\n')
                         ? QStringLiteral("\\n")
                         : QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
        else
            shown += character;
    }
    return shown;
}
