#include "ParamText.h"

#include <QStringList>

namespace
{
struct Pair {
    const char* old;
    const char* present;
};

constexpr Pair layouts[] = {
    {"Date", "dd.MM.yyyy"},
    {"ShortDateTime", "dd.MM.yyyy hh:mm:ss"},
    {"ShortestDateTime", "dd.MM.yyyy hh:mm"},
    {"LongDateTime", "dd.MM.yyyy hh:mm:ss.zzz"},
    {"ShortTime", "hh:mm:ss"},
    {"ShortestTime", "hh:mm"},
    {"LongTime", "hh:mm:ss.zzz"},
    {"ShortestDateTime_y2", "dd.MM.yy hh:mm"},
    {"ShortestDateTime_y2r", "hh:mm dd.MM.yy"},
};

constexpr Pair employeeFormats[] = {
    {"Name", "employee_fio"},
    {"NameAndGroup", "employee_fio_group"},
    {"NameAndRole", "employee_fio_role"},
    {"NameAndDepartmentAndOrganization", "employee_fio_dep_org"},
};

template <std::size_t N>
QString lookUp(const Pair (&pairs)[N], const QString& old)
{
    for (const Pair& pair : pairs)
        if (old == QLatin1String(pair.old))
            return QString::fromLatin1(pair.present);
    return {};
}
} // namespace

bool ParamText::contains(const QString& text, const char* word)
{
    return text.indexOf(QLatin1String(word), 0, Qt::CaseInsensitive) != -1;
}

QString ParamText::toQtDateTimeLayout(const QString& name)
{
    return lookUp(layouts, name);
}

std::vector<std::string> ParamText::enumValues(const QString& param)
{
    QString items = param;
    items.remove(QLatin1Char('"'));
    // Deliberate: other spellings of the prefix stay and become part of the first item.
    items.remove(QLatin1String("Enum="));
    items.remove(QLatin1String("ENUM="));
    std::vector<std::string> values;
    for (const QString& item : items.split(QLatin1Char(','))) {
        const QStringList pieces = item.split(QLatin1Char('='));
        values.push_back(pieces.size() == 2 ? pieces[1].toStdString() : std::string());
    }
    return values;
}

QString ParamText::equipmentParameter(const QString& param)
{
    if (contains(param, "ALL") || contains(param, "PARENTAL"))
        return contains(param, "CaptionAndContainer") ? QStringLiteral("equipmentpath")
                                                      : QStringLiteral("equipmentname");
    // Deliberate: without "=" the name starts at the beginning, without ";" it extends to the end.
    const int begin = param.indexOf(QLatin1Char('=')) + 1;
    const int end = param.indexOf(QLatin1Char(';'), begin);
    return param.mid(begin, end < 0 ? -1 : end - begin).toLower();
}

QString ParamText::organizationParameter(const QString& param)
{
    if (!contains(param, "ALL"))
        return contains(param, "PARENTAL") ? QStringLiteral("employee_fio") : QString();
    if (!contains(param, "DisplayFormat"))
        return QStringLiteral("organization");
    const QLatin1String format("DisplayFormat=");
    const int at = param.indexOf(format);
    return at < 0 ? QString() : lookUp(employeeFormats, param.mid(at + format.size()));
}
