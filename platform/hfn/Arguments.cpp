#include "Arguments.h"

#include "HfnTime.h"

bool Arguments::takeFlag(QStringList* arguments, const QString& option)
{
    return arguments->removeAll(option) > 0;
}

QString Arguments::takeValue(QStringList* arguments, const QString& option)
{
    const int at = arguments->indexOf(option);
    if (at < 0 || at + 1 >= arguments->size())
        return QString();
    arguments->removeAt(at);
    return arguments->takeAt(at);
}

double Arguments::timeOf(const QString& text)
{
    return DateTime_To_HfnTime(QDateTime::fromString(text.simplified(), QStringLiteral("d.M.yyyy h:mm")));
}
