#include "ParameterKind.h"

#include "HtmlParser.h"

#include <QCoreApplication>
#include <QHash>

ParameterKind ParameterSpec::kindOf(const QString& name)
{
    static const QHash<QString, ParameterKind> kinds{
        {QStringLiteral("datetime"), ParameterKind::DateTime},
        {QStringLiteral("list"), ParameterKind::List},
        {QStringLiteral("basevoltage"), ParameterKind::Voltage},
        {QStringLiteral("organization"), ParameterKind::Organization},
        {QStringLiteral("department"), ParameterKind::Department},
        {QStringLiteral("employee_fio"), ParameterKind::Worker},
        {QStringLiteral("employee_fio_role"), ParameterKind::WorkerWithRole},
        {QStringLiteral("employee_fio_group"), ParameterKind::WorkerWithGroup},
        {QStringLiteral("employee_fio_dep_org"), ParameterKind::WorkerWithPlace},
        {QStringLiteral("equipmentname"), ParameterKind::EquipmentName},
        {QStringLiteral("equipmentpath"), ParameterKind::EquipmentPath},
        {QStringLiteral("substation"), ParameterKind::Substation},
        {QStringLiteral("line"), ParameterKind::Line},
        {QStringLiteral("bay"), ParameterKind::Bay},
        {QStringLiteral("interval"), ParameterKind::Interval},
        {QStringLiteral("shift_workers"), ParameterKind::Crew},
        {QStringLiteral("shift_workers_groups"), ParameterKind::CrewWithGroups},
    };
    return kinds.value(name.toLower(), ParameterKind::Text);
}

ParameterSpec ParameterSpec::read(const HtmlParser& parser, unsigned index)
{
    const auto property = [&](const char* called) {
        return QString::fromStdString(parser.propertyValue(index, called));
    };
    ParameterSpec spec;
    spec.name = property("name");
    spec.kind = kindOf(spec.name);
    spec.label = property("locname");
    if (spec.label.isEmpty())
        spec.label = QCoreApplication::translate("TemplateFiller", "Параметр %1").arg(index + 1);
    spec.format = property("format");
    spec.before = property("before");
    spec.after = property("after");
    spec.optional = parser.isExistProperty(index, "optional");
    for (const std::string& value : HtmlParser::listValues(parser.propertyValue(index, "list")))
        spec.values << QString::fromStdString(value);
    return spec;
}
