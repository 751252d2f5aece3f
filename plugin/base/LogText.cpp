#include "LogText.h"

#include <QDebug>

QString LogText::fill(const QString& format, const QStringList& values)
{
    QString result;
    result.reserve(format.size());
    for (int i = 0; i < format.size();) {
        int end = i + 1;
        while (format.at(i) == QLatin1Char('%') && end < format.size() && format.at(end).isDigit())
            ++end;
        const int number = format.mid(i + 1, end - i - 1).toInt();
        if (number >= 1 && number <= values.size())
            result += values.at(number - 1);
        else
            result += format.mid(i, end - i);
        i = end;
    }
    return result;
}

void LogText::warn(const QString& signature, const QString& text)
{
    qWarning().noquote() << signature << text;
}

QString LogText::centered(const QString& text)
{
    return QStringLiteral("<center>%1</center>").arg(text);
}
