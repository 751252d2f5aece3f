#include "StandardJournal.h"

#include "HtmlParser.h"
#include "TestStore.h"

namespace
{
void add(Store* store, const char* table, const char* key, const TestStore::Fields& fields)
{
    StoreError error;
    if (!TestStore::write(store, table, ROW_INSERT, key, fields, &error))
        qFatal("%s of %s cannot be written: %s (%s)", key, table, qPrintable(error.text),
               qPrintable(error.detail));
}

std::string parameter(const char* name, const char* label, const char* shown = nullptr)
{
    return HtmlParser::createParameter({{"name", name}, {"locname", label}}, shown ? shown : label);
}

struct Properties {
    bool open = false;
    bool close = false;
    bool timeExec = false;
    const char* firstMark = nullptr;
    const char* secondMark = nullptr;
    const char* command = nullptr;
};

QString html(const std::string& text, const Properties& properties = {})
{
    HtmlParser parser(text);
    parser.setTemplateProperty("open_wshift", properties.open);
    parser.setTemplateProperty("close_wshift", properties.close);
    parser.setTemplateProperty("time_exec", properties.timeExec);
    if (properties.firstMark)
        parser.setTemplateProperty("first_mark", properties.firstMark);
    if (properties.secondMark)
        parser.setTemplateProperty("second_mark", properties.secondMark);
    if (properties.command)
        parser.setTemplateProperty("command", properties.command);
    return QString::fromStdString(parser.readyHtml(true));
}

Properties orderProperties()
{
    Properties order;
    order.timeExec = true;
    order.secondMark = ":/markers/worker_blue.png";
    order.command = "Доложено об исполнении";
    return order;
}

QString openText(const char* who, const char* when)
{
    Properties open;
    open.open = true;
    return html("Смену принял " + parameter("shift_workers_groups", "Диспетчер", who) + " " +
                    parameter("interval", "Период смены", when) + ".",
                open);
}

QString orderText(const char* substation, const char* what)
{
    return html("Отдана команда: на " + parameter("substation", "Подстанция", substation) + " отключить " +
                    parameter("text", "Оборудование", what) + ".",
                orderProperties());
}

QString tripText(const char* line, const char* substation)
{
    Properties trip;
    trip.firstMark = ":/markers/exclamation_mark.png";
    return html("Отключилась " + parameter("line", "Линия", line) + " на " +
                    parameter("substation", "Подстанция", substation) + ".",
                trip);
}

void addPeople(Store* store)
{
    add(store, "OrgTypes", "TYPE_CENTER", {{"name_", "Диспетчерский центр"}});
    add(store, "OrgTypes", "TYPE_NETS", {{"name_", "Электросетевая организация"}});
    add(store, "Organizations", "ORG_CENTER",
        {{"OrgTypeKey", "TYPE_CENTER"}, {"name_", "ДЦ «Северная дуга»"}});
    add(store, "Organizations", "ORG_NETS",
        {{"OrgTypeKey", "TYPE_NETS"}, {"name_", "Электросети «Ключевой край»"}});
    add(store, "Departments", "DEP_ODS", {{"OrganizationKey", "ORG_CENTER"}, {"name_", "ОДС"}});
    add(store, "Departments", "DEP_CDS", {{"OrganizationKey", "ORG_NETS"}, {"name_", "ЦДС"}});
    add(store, "Departments", "DEP_ZAR",
        {{"OrganizationKey", "ORG_NETS"},
         {"ParentKey", "DEP_CDS"},
         {"name_", "Заречная диспетчерская группа"}});

    const struct {
        const char* key;
        const char* login;
        const char* name;
    } users[] = {
        {"USER_IVANOV", "ivanov", "Иванов Иван Иванович"},
        {"USER_PETROV", "petrov", "Петров Пётр Петрович"},
        {"USER_SIDOROVA", "sidorova", "Сидорова Анна Сергеевна"},
        {"USER_SMIRNOV", "smirnov", "Смирнов Олег Павлович"},
        {"USER_KUZNETSOV", "kuznetsov", "Кузнецов Лев Андреевич"},
        {"USER_VIEWER", "viewer", "Наблюдатель"},
    };
    for (const auto& user : users)
        add(store, "Users", user.key, {{"login", user.login}, {"name_", user.name}, {"deleted_", 0}});
    add(store, "UserRights", "RIGHT_SIDOROVA",
        {{"UserKey", "USER_SIDOROVA"}, {"rightName", "ADMINISTRATOR"}});
    add(store, "UserRights", "RIGHT_SMIRNOV",
        {{"UserKey", "USER_SMIRNOV"}, {"rightName", "ADMINISTRATOR_OPERLOG_LOCAL"}});

    const struct {
        const char* key;
        const char* user;
        const char* department;
        const char* last;
        const char* first;
        const char* patronymic;
        int group;
        int deleted;
    } workers[] = {
        {"WORKER_IVANOV", "USER_IVANOV", "DEP_CDS", "Иванов", "Иван", "Иванович", 5, 0},
        {"WORKER_PETROV", "USER_PETROV", "DEP_CDS", "Петров", "Пётр", "Петрович", 4, 0},
        {"WORKER_SIDOROVA", "USER_SIDOROVA", "DEP_CDS", "Сидорова", "Анна", "Сергеевна", 5, 0},
        {"WORKER_SMIRNOV_ZAR", "USER_SMIRNOV", "DEP_ZAR", "Смирнов", "Олег", "Павлович", 0, 0},
        {"WORKER_SMIRNOV_ODS", "USER_SMIRNOV", "DEP_ODS", "Смирнов", "Олег", "Павлович", 0, 0},
        {"WORKER_KUZNETSOV", "USER_KUZNETSOV", "DEP_CDS", "Кузнецов", "Лев", "Андреевич", 3, 1},
    };
    for (const auto& worker : workers)
        add(store, "Workers", worker.key,
            {{"UserKey", worker.user},
             {"DepartmentKey", worker.department},
             {"lastName", worker.last},
             {"firstName", worker.first},
             {"patronymicName", worker.patronymic},
             {"safetyGroup", worker.group},
             {"deleted_", worker.deleted}});

    add(store, "Roles", "ROLE_CDS_SENIOR", {{"DepartmentKey", "DEP_CDS"}, {"name_", "Старший диспетчер"}});
    add(store, "Roles", "ROLE_CDS_DISPATCHER", {{"DepartmentKey", "DEP_CDS"}, {"name_", "Диспетчер"}});
    add(store, "Roles", "ROLE_ZAR", {{"DepartmentKey", "DEP_ZAR"}, {"name_", "Диспетчер группы"}});
    add(store, "WorkerRoles", "WROLE_IVANOV_1",
        {{"RoleKey", "ROLE_CDS_SENIOR"}, {"WorkerKey", "WORKER_IVANOV"}});
    add(store, "WorkerRoles", "WROLE_IVANOV_2",
        {{"RoleKey", "ROLE_CDS_DISPATCHER"}, {"WorkerKey", "WORKER_IVANOV"}});
    add(store, "WorkerRoles", "WROLE_PETROV",
        {{"RoleKey", "ROLE_CDS_DISPATCHER"}, {"WorkerKey", "WORKER_PETROV"}});
    add(store, "WorkerRoles", "WROLE_SMIRNOV",
        {{"RoleKey", "ROLE_ZAR"}, {"WorkerKey", "WORKER_SMIRNOV_ZAR"}});

    add(store, "Shifts", "TIMETABLE_CDS_DAY",
        {{"DepartmentKey", "DEP_CDS"}, {"name_", "Дневная"}, {"startTime", 28800}, {"endTime", 72000}});
    add(store, "Shifts", "TIMETABLE_CDS_NIGHT",
        {{"DepartmentKey", "DEP_CDS"}, {"name_", "Ночная"}, {"startTime", 72000}, {"endTime", 28800}});
    add(store, "Shifts", "TIMETABLE_ZAR_DAY",
        {{"DepartmentKey", "DEP_ZAR"}, {"name_", "Дневная"}, {"startTime", 28800}, {"endTime", 72000}});
}

void addTemplates(Store* store)
{
    add(store, "LogbookCatsTemplate", "CAT_COMMON", {{"nameLoc", "Оперативная смена"}});
    add(store, "LogbookCatsTemplate", "CAT_COMMON_SUB",
        {{"ParentKey", "CAT_COMMON"}, {"nameLoc", "Команды и переключения"}});
    add(store, "LogbookCatsTemplate", "CAT_NETS",
        {{"OrgTypeKey", "TYPE_NETS"}, {"nameLoc", "Технологические нарушения"}});
    add(store, "LogbookCatsTemplate", "CAT_CDS", {{"DepartmentKey", "DEP_CDS"}, {"nameLoc", "Погода"}});
    add(store, "LogbookCatsTemplate", "CAT_ZAR", {{"DepartmentKey", "DEP_ZAR"}, {"nameLoc", "Сообщения"}});

    Properties open;
    open.open = true;
    Properties close;
    close.close = true;
    Properties trip;
    trip.firstMark = ":/markers/exclamation_mark.png";
    add(store, "LogbookTemplates", "TPL_OPEN",
        {{"CategoryKey", "CAT_COMMON"},
         {"nameLoc", "Приём смены"},
         {"html", html("Смену принял " + parameter("shift_workers_groups", "Диспетчер") + " " +
                           parameter("interval", "Период смены") + ".",
                       open)}});
    add(store, "LogbookTemplates", "TPL_CLOSE",
        {{"CategoryKey", "CAT_COMMON"},
         {"nameLoc", "Сдача смены"},
         {"html", html("Смену сдал " + parameter("employee_fio", "Сдал") + ".", close)}});
    add(store, "LogbookTemplates", "TPL_ORDER",
        {{"CategoryKey", "CAT_COMMON_SUB"},
         {"nameLoc", "Команда на производство переключений"},
         {"html", html("Отдана команда: на " + parameter("substation", "Подстанция") + " отключить " +
                           parameter("text", "Оборудование") + ".",
                       orderProperties())}});
    add(store, "LogbookTemplates", "TPL_TRIP",
        {{"CategoryKey", "CAT_NETS"},
         {"nameLoc", "Автоматическое отключение линии"},
         {"html", html("Отключилась " + parameter("line", "Линия") + " на " +
                           parameter("substation", "Подстанция") + ".",
                       trip)}});
    add(store, "LogbookTemplates", "TPL_TEXT",
        {{"CategoryKey", "CAT_CDS"},
         {"nameLoc", "Штормовое предупреждение"},
         {"html", html("Получено штормовое предупреждение: усиление ветра.")}});

    add(store, "TemplateParamCategories", "PARCAT_MAIN", {{"nameLoc", "Общие параметры"}});
    add(store, "TemplateParams", "PAR_TEXT",
        {{"CategoryKey", "PARCAT_MAIN"}, {"nameLoc", "Текст"}, {"html", html(parameter("text", "Текст"))}});
    add(store, "TemplateParams", "PAR_LIST",
        {{"CategoryKey", "PARCAT_MAIN"},
         {"nameLoc", "Состояние связи"},
         {"html", html(HtmlParser::createParameter(
                      {{"name", "list"},
                       {"locname", "Состояние связи"},
                       {"list", HtmlParser::createListProperty({"исправна", "имеет неисправности"})}},
                      "Состояние связи"))}});

    add(store, "Equipment", "EQ_SUBSTATION",
        {{"DepartmentKey", "DEP_ZAR"},
         {"kind", "substation"},
         {"name_", "ПС 110 кВ Заречная"},
         {"voltage", "110"}});
    add(store, "Equipment", "EQ_BAY",
        {{"ParentKey", "EQ_SUBSTATION"},
         {"DepartmentKey", "DEP_ZAR"},
         {"kind", "bay"},
         {"name_", "В 110 Полевая I цепь"},
         {"voltage", "110"}});
    add(store, "Equipment", "EQ_LINE",
        {{"DepartmentKey", "DEP_CDS"},
         {"kind", "line"},
         {"name_", "ВЛ 110 кВ Полевая – Заречная"},
         {"voltage", "110"}});
}

struct Record {
    const char* key;
    const char* shift;
    const char* worker;
    int status;
    double time;
    QString html;
    TestStore::Fields more = {};
};

void addRecord(Store* store, const Record& record)
{
    TestStore::Fields fields = {{"ShiftKey", record.shift},  {"WorkerKey", record.worker},
                                {"recordTime", record.time}, {"eventTime", record.time},
                                {"html", record.html},       {"status", record.status}};
    for (const auto& field : record.more)
        fields.push_back(field);
    add(store, "LogbookRecords", record.key, fields);
}

void addWorkshifts(Store* store, double now)
{
    const double hour = 3600;
    const struct {
        const char* key;
        const char* department;
        const char* opener;
        double start;
        double hours;
    } shifts[] = {
        {"SHIFT_CDS_PAST", "DEP_CDS", "WORKER_IVANOV", now - 30 * hour, 24},
        {"SHIFT_CDS_OPEN", "DEP_CDS", "WORKER_IVANOV", now - 6 * hour, 24},
        {"SHIFT_ZAR_OPEN", "DEP_ZAR", "WORKER_SMIRNOV_ZAR", now - 2 * hour, 12},
    };
    for (const auto& shift : shifts)
        add(store, "LogbookWorkshifts", shift.key,
            {{"DepartmentKey", shift.department},
             {"OpenWorkerKey", shift.opener},
             {"createdAt", shift.start},
             {"startTime", shift.start},
             {"endTime", shift.start + shift.hours * hour}});
    TestStore::write(store, "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_PAST",
                     {{"CloseWorkerKey", "WORKER_IVANOV"}});

    const struct {
        const char* key;
        const char* shift;
        const char* worker;
        int opening;
    } crew[] = {
        {"CREW_CDS_1", "SHIFT_CDS_OPEN", "WORKER_IVANOV", 1},
        {"CREW_CDS_2", "SHIFT_CDS_OPEN", "WORKER_PETROV", 1},
        {"CREW_ZAR_1", "SHIFT_ZAR_OPEN", "WORKER_SMIRNOV_ZAR", 1},
        {"CREW_PAST_1", "SHIFT_CDS_PAST", "WORKER_IVANOV", 1},
        {"CREW_PAST_2", "SHIFT_CDS_PAST", "WORKER_KUZNETSOV", 1},
        {"CREW_PAST_3", "SHIFT_CDS_PAST", "WORKER_PETROV", 0},
    };
    for (const auto& row : crew)
        add(store, "LogbookWorkersWorkshift", row.key,
            {{"WorkshiftKey", row.shift}, {"WorkerKey", row.worker}, {"opening", row.opening}});
}

void addRecords(Store* store, double now)
{
    const auto ago = [now](double minutes) { return now - 60 * minutes; };
    const QString order = orderText("ПС 110 кВ Луговая", "ВЛ 110 кВ Полевая – Заречная");
    const Record records[] = {
        {"REC_PAST_1", "SHIFT_CDS_PAST", "WORKER_IVANOV", 0, ago(1700), html("Принята сводка погоды.")},
        {"REC_PAST_2", "SHIFT_CDS_PAST", "WORKER_KUZNETSOV", 0, ago(900),
         html("Проверена связь с подстанциями.")},
        {"REC_OPENING", "SHIFT_CDS_OPEN", "WORKER_IVANOV", 0, ago(360),
         openText("Иванов И.И. гр.V", "с 20:00 по 08:00")},
        {"REC_MESSAGE",
         "SHIFT_CDS_OPEN",
         "WORKER_IVANOV",
         0,
         ago(300),
         html("Запрошено состояние <b>нагрузки</b>."),
         {{"ReceiverWorkerKey", "WORKER_SMIRNOV_ZAR"}, {"direction", 1}}},
        {"REC_REPLACED", "SHIFT_CDS_OPEN", "WORKER_IVANOV", 2, ago(240), order},
        {"REC_SUCCESSOR",
         "SHIFT_CDS_OPEN",
         "WORKER_IVANOV",
         0,
         ago(240),
         order,
         {{"OriginRecordKey", "REC_REPLACED"}, {"executionTime", ago(230)}}},
        {"REC_ORDER", "SHIFT_CDS_OPEN", "WORKER_PETROV", 0, ago(180), orderText("ПС 35 кВ Ольховка", "ф. 7")},
        {"REC_TRIP",
         "SHIFT_CDS_OPEN",
         "WORKER_PETROV",
         0,
         ago(120),
         tripText("ВЛ 110 кВ Полевая – Заречная", "ПС 110 кВ Заречная"),
         {{"firstMarkTime", ago(121)}, {"VisaWorkerKey", "WORKER_SIDOROVA"}}},
        {"REC_DRAFT_IVANOV", "SHIFT_CDS_OPEN", "WORKER_IVANOV", 1, ago(60),
         html("Черновик: осмотр оборудования.")},
        {"REC_DRAFT_PETROV", "SHIFT_CDS_OPEN", "WORKER_PETROV", 1, ago(30),
         html("Черновик: доклад бригады.")},
        {"REC_ZAR", "SHIFT_ZAR_OPEN", "WORKER_SMIRNOV_ZAR", 0, ago(100), html("Схема сверена по щиту.")},
    };
    for (const Record& record : records)
        addRecord(store, record);

    add(store, "LogbookComments", "COM_UNREAD",
        {{"WorkerKey", "WORKER_PETROV"},
         {"RecordKey", "REC_OPENING"},
         {"commentTime", ago(350)},
         {"text_", "Уточните период смены."}});
    add(store, "LogbookComments", "COM_READ",
        {{"WorkerKey", "WORKER_IVANOV"},
         {"RecordKey", "REC_ORDER"},
         {"commentTime", ago(170)},
         {"text_", "Исполнение доложить до конца смены."},
         {"readedTime", ago(160)}});
    add(store, "LogbookComments", "COM_PAST",
        {{"WorkerKey", "WORKER_SIDOROVA"},
         {"RecordKey", "REC_PAST_1"},
         {"commentTime", ago(800)},
         {"text_", "Приложите сводку к записи."}});

    add(store, "LogbookFiles", "FILE_TEXT",
        {{"WorkerKey", "WORKER_PETROV"},
         {"RecordKey", "REC_TRIP"},
         {"fileName", "осциллограмма.txt"},
         {"fileData", QByteArray("t;Ia;Ib;Ic\n0;1.2;1.1;1.2\n20;9.8;1.0;1.1\n")}});
    // A picture of one pixel.
    add(store, "LogbookFiles", "FILE_IMAGE",
        {{"WorkerKey", "WORKER_PETROV"},
         {"RecordKey", "REC_TRIP"},
         {"fileName", "фото опоры № 12.png"},
         {"fileData", QByteArray::fromBase64(
                          "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9awAA"
                          "AABJRU5ErkJggg==")}});
}
} // namespace

void writeStandardJournal(Store* loader, double now)
{
    addPeople(loader);
    addTemplates(loader);
    addWorkshifts(loader, now);
    addRecords(loader, now);
}
