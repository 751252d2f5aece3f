#include "PersonName.h"

QString PersonName::shortName(const QString& surname, const QString& firstName, const QString& patronymic)
{
    QString name = surname;
    for (const QString& part : {firstName, patronymic}) {
        if (!part.isEmpty())
            name += QLatin1Char(' ') + part.left(1) + QLatin1Char('.');
    }
    return name;
}

QString PersonName::groupText(int group)
{
    static const char* const roman[] = {"I", "II", "III", "IV", "V"};
    return group >= 1 && group <= 5 ? QString::fromLatin1(roman[group - 1]) : QString::number(group);
}

QString PersonName::withGroup(const QString& name, int group)
{
    return name.isEmpty() || group <= 0 ? name : name + QStringLiteral(" гр.") + groupText(group);
}
