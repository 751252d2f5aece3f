#include "DemoReference.h"

#include "DemoKey.h"
#include "DemoNetwork.h"
#include "DemoWriter.h"
#include "HtmlParser.h"
#include "TableCatalog.h"

#include <QSet>

namespace
{
/// Russian names of the fields, the same in every table.
const QHash<QString, QString>& fieldNames()
{
    static const QHash<QString, QString> names = [] {
        QHash<QString, QString> map;
        const QString text = QStringLiteral(
            "KeyLink=Ключ;DepartmentKey=Подразделение;OpenWorkerKey=Кто открыл;"
            "CloseWorkerKey=Кто закрыл;createdAt=Создана;startTime=Начало;endTime=Конец;"
            "WorkshiftKey=Смена;WorkerKey=Сотрудник;opening=При открытии;ShiftKey=Смена;"
            "VisaWorkerKey=Виза;ReceiverWorkerKey=Кому;OriginRecordKey=Первичная запись;"
            "SecondMarkWorkerKey=Кто установил второй маркер;recordTime=Время записи;"
            "eventTime=Время события;firstMarkTime=Первый маркер;secondMarkTime=Второй маркер;"
            "executionTime=Время выполнения;html=Текст;status=Состояние;direction=Направление;"
            "RecordKey=Запись;commentTime=Время комментария;text_=Текст;readedTime=Время прочтения;"
            "fileName=Имя файла;fileData=Содержимое;CategoryKey=Категория;nameLoc=Наименование;"
            "ParentKey=Родитель;OrgTypeKey=Тип организации;login=Имя для входа;name_=Наименование;"
            "deleted_=Удалён;UserKey=Пользователь;rightName=Право;firstName=Имя;lastName=Фамилия;"
            "patronymicName=Отчество;safetyGroup=Группа по электробезопасности;"
            "OrganizationKey=Организация;RoleKey=Должность;nameLat=Латинское имя;"
            "TablesKey=Таблица;kind=Вид;voltage=Класс напряжения;canStartShift=Открывает смену;"
            "canEndShift=Закрывает смену;isNecessaryFinishTime=Требует времени выполнения;"
            "icon=Первый маркер;completingIcon=Второй маркер;completingCommand=Команда;"
            "param=Описание;TableKey=Таблица;FieldTypeKey=Тип поля");
        for (const QString& pair : text.split(QLatin1Char(';')))
            map.insert(pair.section(QLatin1Char('='), 0, 0), pair.section(QLatin1Char('='), 1));
        return map;
    }();
    return names;
}

const QHash<QString, QString>& tableNames()
{
    static const QHash<QString, QString> names = [] {
        QHash<QString, QString> map;
        const QString text = QStringLiteral(
            "LogbookWorkshifts=Смены журнала;LogbookWorkersWorkshift=Состав смен;LogbookRecords=Записи "
            "журнала;"
            "LogbookComments=Комментарии к записям;LogbookFiles=Файлы записей;LogbookTemplates=Шаблоны "
            "записей;"
            "LogbookCatsTemplate=Категории шаблонов;Users=Пользователи;UserRights=Права пользователей;"
            "Workers=Сотрудники;Departments=Подразделения;Organizations=Организации;OrgTypes=Типы "
            "организаций;"
            "Shifts=Расписание смен;Roles=Должности;WorkerRoles=Должности сотрудников;Tables=Справочник "
            "таблиц;"
            "Fields=Справочник полей;TemplateParamCategories=Группы параметров;TemplateParams=Параметры "
            "шаблонов;"
            "Equipment=Оборудование;OperLogCategories=Категории прежнего журнала;"
            "OperLogTemplates=Шаблоны прежнего журнала;OperLogTemplateParams=Параметры прежнего журнала");
        for (const QString& pair : text.split(QLatin1Char(';')))
            map.insert(pair.section(QLatin1Char('='), 0, 0), pair.section(QLatin1Char('='), 1));
        return map;
    }();
    return names;
}
} // namespace

void DemoReference::writeTemplates(DemoWriter* writer, const DemoNetwork& network,
                                   const QVector<DemoTemplate>& templates)
{
    QSet<QByteArray> written;
    for (const DemoTemplate& record : templates) {
        QString path = QStringLiteral("category %1 %2").arg(record.level).arg(record.owner);
        QByteArray parent;
        for (const QString& name : record.categories) {
            path += QStringLiteral(" / ") + name;
            const QByteArray key = demoKey(path);
            if (!written.contains(key)) {
                written.insert(key);
                QVariant type;
                QVariant department;
                if (parent.isEmpty() && record.level == DemoTemplate::OrgType)
                    type = network.orgTypeKey(record.owner);
                if (parent.isEmpty() && record.level == DemoTemplate::Department)
                    department = network.departmentKey(record.owner);
                writer->insert("LogbookCatsTemplate", key,
                               {{"ParentKey", parent.isEmpty() ? QVariant() : parent},
                                {"OrgTypeKey", type},
                                {"DepartmentKey", department},
                                {"nameLoc", name}});
            }
            parent = key;
        }
        writer->insert("LogbookTemplates", demoKey(QStringLiteral("template %1 %2").arg(path, record.name)),
                       {{"CategoryKey", parent},
                        {"nameLoc", record.name},
                        {"html", QString::fromStdString(record.html)}});
    }
}

void DemoReference::writeParameters(DemoWriter* writer)
{
    const auto group = [&](const QString& name) {
        const QByteArray key = demoKey(QStringLiteral("parameters ") + name);
        writer->insert("TemplateParamCategories", key, {{"nameLoc", name}});
        return key;
    };
    const auto parameter = [&](const QByteArray& category, const QString& name, const QString& text) {
        QString error;
        const std::string html = DemoTemplates::html(text, &error);
        if (!error.isEmpty())
            qFatal("The demo's parameter \"%s\": %s", qPrintable(name), qPrintable(error));
        writer->insert(
            "TemplateParams", demoKey(QStringLiteral("parameter ") + name),
            {{"CategoryKey", category}, {"nameLoc", name}, {"html", QString::fromStdString(html)}});
    };
    const QByteArray switching = group(QStringLiteral("Переключения"));
    parameter(switching, QStringLiteral("Операция"),
              QStringLiteral(
                  "{list:Операция;отключить|включить|вывести в ремонт|ввести в работу|вывести в резерв}"));
    parameter(
        switching, QStringLiteral("Вид заземления"),
        QStringLiteral("{list:Вид заземления;включены заземляющие ножи|установлено переносное заземление}"));
    parameter(switching, QStringLiteral("Номер бланка"), QStringLiteral("{text?:Номер бланка}"));
    parameter(switching, QStringLiteral("Время команды"), QStringLiteral("{datetime:Время команды;hh:mm}"));
    const QByteArray faults = group(QStringLiteral("Нарушения и погода"));
    parameter(faults, QStringLiteral("Работа АПВ"),
              QStringLiteral("{list:Работа АПВ;успешное|неуспешное|не работало|выведено}"));
    parameter(faults, QStringLiteral("Явление"),
              QStringLiteral("{list:Явление;усиление ветра|гроза|гололёд|сильный снег|сильный мороз}"));
    parameter(faults, QStringLiteral("Время отключения"),
              QStringLiteral("{datetime:Время отключения;hh:mm:ss}"));
    parameter(faults, QStringLiteral("Сброс нагрузки"), QStringLiteral("{text:Сброс нагрузки, МВт}"));
}

void DemoReference::writeDirectories(DemoWriter* writer)
{
    for (const CatalogTable& table : TableCatalog::tables()) {
        const QString latin = QString::fromLatin1(table.name);
        const QByteArray key = demoKey(QStringLiteral("table ") + latin);
        writer->insert("Tables", key, {{"nameLat", latin}, {"nameLoc", tableNames().value(latin, latin)}});
        for (const CatalogField& declared : table.fields) {
            const QString field = QString::fromLatin1(declared.name);
            writer->insert(
                "Fields", demoKey(QStringLiteral("field %1 %2").arg(latin, field)),
                {{"TablesKey", key}, {"nameLat", field}, {"nameLoc", fieldNames().value(field, field)}});
        }
    }
}
