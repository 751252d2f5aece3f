#include "DemoPast.h"

#include "DemoKey.h"

#include <algorithm>
#include <QDateTime>

namespace
{
constexpr int minute = 60;
constexpr int hour = 3600;
constexpr int shiftsOfFortnight = 28;
constexpr int stormRecords = 400;
constexpr quint32 seed = 20261;

using Network = DemoNetwork;

bool isNight(const DemoShift& shift)
{
    return QDateTime::fromSecsSinceEpoch(shift.start).time().hour() == 20;
}
} // namespace

DemoPast::DemoPast(DemoJournal* journal) : m_journal(journal) {}

void DemoPast::write(qint64 now, const DemoClock::Story& story)
{
    for (int department = 0; department < Network::DepartmentCount; ++department)
        writeDepartment(department, now, story);
    writeRunning(Network::Ods, now);
    writeRunning(Network::Zarechnaya, now);
    writeRepair(now);
    writeYearAgo(now);
}

void DemoPast::writeDepartment(int department, qint64 now, const DemoClock::Story& story)
{
    const qint64 until = department == Network::Cds ? story.start : DemoClock::shiftStart(now);
    QVector<qint64> starts;
    for (int day = 16; day >= 0; --day)
        for (int change : {8, 20}) {
            const qint64 start = DemoClock::daysBefore(now, day, change);
            if (start < until)
                starts.append(start);
        }
    starts = starts.mid(starts.size() - shiftsOfFortnight);

    DemoFiller filler(m_journal->network(), seed + static_cast<quint32>(department));
    const QVector<const DemoTemplate*> kinds = m_journal->recordsOf(department);
    int storm = starts.size() - 10;
    for (int i = 0; i < starts.size(); ++i) {
        const qint64 end = std::min(DemoClock::nextChange(starts[i]), until);
        // The crews take turns so that the crew after the last shift is the first one again.
        DemoShift shift =
            m_journal->plan(department, starts[i], end, i - starts.size() + 12 * shiftsOfFortnight);
        const bool last = i + 1 == starts.size();
        shift.open = last && department == Network::Lugovaya; // the one that nobody closed in time
        if (last && department == Network::Cds)
            writeChief(&shift, &filler);
        m_journal->add(shift);
        m_shifts.append(shift);
        m_journal->opening(shift, &filler, shift.start + filler.number(1, 6) * minute);
        if (department == Network::Cds && i >= storm && isNight(shift)) {
            writeStorm(shift, &filler);
            storm = starts.size(); // one is enough
        } else {
            const int most = department == Network::Cds ? 39 : 25;
            m_journal->routine(shift, &filler, filler.number(6, most), shift.start + 10 * minute,
                               shift.end - 20 * minute, kinds);
        }
        if (!shift.open)
            m_journal->closing(shift, &filler, shift.end - filler.number(2, 9) * minute);
    }
}

void DemoPast::writeRunning(int department, qint64 now)
{
    DemoFiller filler(m_journal->network(), seed + 100 + static_cast<quint32>(department));
    const qint64 start = DemoClock::shiftStart(now);
    DemoShift shift = m_journal->plan(department, start, DemoClock::nextChange(now), 0);
    shift.open = true;
    m_journal->add(shift);
    m_shifts.append(shift);
    m_journal->opening(shift, &filler, std::min(start + minute, now));
    m_journal->routine(shift, &filler, filler.number(8, 20), start + 2 * minute, now - 8 * minute,
                       m_journal->recordsOf(department));
}

void DemoPast::writeStorm(const DemoShift& shift, DemoFiller* filler)
{
    QVector<const DemoTemplate*> kinds;
    for (const QString& name :
         {QStringLiteral("Автоматическое отключение линии"), QStringLiteral("Отключение трансформатора"),
          QStringLiteral("Восстановление питания потребителей"), QStringLiteral("Выезд оперативной бригады"),
          QStringLiteral("Прибытие бригады на место"), QStringLiteral("Замыкание на землю"),
          QStringLiteral("Фактическая погода"), QStringLiteral("Сообщение вышестоящему центру"),
          QStringLiteral("Обход линии, отыскание повреждения"), QStringLiteral("Телефонограмма принята"),
          QStringLiteral("Действие устройства РЗА без отключения"), QStringLiteral("Установка заземления"),
          QStringLiteral("Команда на производство переключений"), QStringLiteral("Штормовое предупреждение")})
        kinds.append(&m_journal->record(name));
    m_journal->routine(shift, filler, stormRecords - 2, shift.start + 10 * minute, shift.end - 20 * minute,
                       kinds);
}

/// The chief replaces a dispatcher; three comments on his records are unread.
void DemoPast::writeChief(DemoShift* shift, DemoFiller* filler)
{
    const DemoNetwork& network = m_journal->network();
    const DemoPerson& chief = network.person(QStringLiteral("klenov"));
    const DemoPerson& senior = network.person(QStringLiteral("ozerov"));
    const DemoPerson& colleague = network.person(QStringLiteral("roshchin"));
    const DemoPerson& engineer = network.person(QStringLiteral("listov"));
    shift->crew.append(&chief);
    const auto entry = [&](const QString& kind, qint64 time, const DemoFiller::Values& values) {
        DemoRecord record;
        record.key = demoKey(QStringLiteral("chief %1").arg(time));
        record.author = &chief;
        record.eventTime = time;
        record.recordTime = time + 3 * minute;
        record.html = filler->fill(m_journal->record(kind), shift->scene(time, &chief), values);
        m_journal->add(*shift, record);
        return record.key;
    };
    const qint64 first = shift->start + 95 * minute;
    const QByteArray training =
        entry(QStringLiteral("Инструктаж и тренировка"), first,
              {{QStringLiteral("Тема"), QStringLiteral("отключение ПС Кирпичная с потерей питания")},
               {QStringLiteral("Провёл"), chief.fullName()}});
    const qint64 second = shift->start + 210 * minute;
    const QByteArray order =
        entry(QStringLiteral("Прочее сообщение"), second,
              {{QStringLiteral("Текст записи"),
                QStringLiteral("На время штормового предупреждения бригадам ОВБ находиться на базах, "
                               "передвижную электростанцию держать прогретой.")}});
    m_journal->comment(
        training, colleague, first + 2 * hour,
        QStringLiteral("Схема для тренировки устарела: СВ-10 ПС Кирпичная с прошлой недели включён."), 0);
    m_journal->comment(
        order, senior, second + 20 * minute,
        QStringLiteral("ОВБ № 4 до вечера без автомобиля, на это время её заменит бригада Луговой группы."),
        0);
    m_journal->comment(order, engineer, second + 55 * minute,
                       QStringLiteral("Электростанция проверена под нагрузкой, топлива на 16 часов."), 0);
}

void DemoPast::step(const QString& kind, qint64 time, const DemoFiller::Values& values, qint64 executionTime,
                    qint64 secondMarkTime)
{
    const DemoShift shift = shiftAt(Network::Cds, time);
    if (shift.key.isEmpty())
        return; // on this day the story's shift began earlier than in the timetable
    DemoFiller filler(m_journal->network(), static_cast<quint32>(time));
    DemoRecord record;
    record.key = demoKey(QStringLiteral("repair %1").arg(time));
    record.author = shift.crew.first();
    record.eventTime = time;
    record.recordTime = time + 2 * minute;
    record.executionTime = executionTime;
    if (secondMarkTime > 0) {
        record.secondMarkTime = secondMarkTime;
        record.secondMarkWorker = shiftAt(Network::Cds, secondMarkTime).crew.first();
    }
    record.html = filler.fill(m_journal->record(kind), shift.scene(time, record.author), values);
    m_journal->add(shift, record);
}

void DemoPast::writeRepair(qint64 now)
{
    const auto at = [now](int day, int ofHour, int ofMinute) {
        return DemoClock::daysBefore(now, 9 - day, ofHour, ofMinute);
    };
    const auto shown = [&](int day, int ofHour, int ofMinute) {
        return QDateTime::fromSecsSinceEpoch(at(day, ofHour, ofMinute))
            .toString(QStringLiteral("dd.MM.yyyy hh:mm"));
    };
    const QString line = QStringLiteral("ВЛ 110 кВ Луговая – Мельничная");
    const QString substation = QStringLiteral("ПС 110 кВ Мельничная");
    const QString bay = QStringLiteral("В-110 Луговая");
    const QString path = substation + QStringLiteral(" / ") + bay;
    const QString number = QStringLiteral("412");
    const QString permit = QStringLiteral("88");
    const QString period = QStringLiteral("с %1 по %2").arg(shown(1, 8, 0), shown(1, 20, 0));
    using Values = DemoFiller::Values;

    step(QStringLiteral("Подача заявки в вышестоящий центр"), at(0, 10, 15),
         Values{{QStringLiteral("Куда подана"), QStringLiteral("ДЦ «Северная дуга»")},
                {QStringLiteral("Вид заявки"), QStringLiteral("неплановая")},
                {QStringLiteral("Номер заявки"), number},
                {QStringLiteral("Оборудование"), path},
                {QStringLiteral("Запрошенный срок"), period},
                {QStringLiteral("Цель работ"),
                 QStringLiteral("замена дефектных изоляторов и ревизия выключателя")}},
         0, at(0, 14, 35));
    step(QStringLiteral("Решение по заявке на вывод в ремонт"), at(0, 14, 40),
         Values{{QStringLiteral("Номер заявки"), number},
                {QStringLiteral("Оборудование"), path},
                {QStringLiteral("Срок работ"), period},
                {QStringLiteral("Решение"), QStringLiteral("разрешена")}},
         0, at(1, 8, 20));
    step(
        QStringLiteral("Команда на производство переключений"), at(1, 8, 32),
        Values{{QStringLiteral("Подстанция"), substation},
               {QStringLiteral("Операция"), QStringLiteral("вывести в ремонт")},
               {QStringLiteral("Оборудование"), bay},
               {QStringLiteral("Цель переключений"), QStringLiteral("вывод линии в ремонт по заявке № 412")}},
        at(1, 9, 5), at(1, 9, 8));
    step(QStringLiteral("Установка заземления"), at(1, 9, 20),
         Values{{QStringLiteral("Подстанция"), substation},
                {QStringLiteral("Вид заземления"), QStringLiteral("включены заземляющие ножи")},
                {QStringLiteral("Обозначение или номер"), QStringLiteral("ЗН-Л-110 Луговая")},
                {QStringLiteral("Место установки"), path},
                {QStringLiteral("Линия"), line}},
         0, at(2, 17, 25));
    step(QStringLiteral("Разрешение на подготовку рабочего места и допуск"), at(1, 9, 45),
         Values{{QStringLiteral("Основание"), QStringLiteral("наряду")},
                {QStringLiteral("Номер"), permit},
                {QStringLiteral("Место работ"), path},
                {QStringLiteral("Срок окончания"), shown(1, 20, 0)},
                {QStringLiteral("Содержание работ"), QStringLiteral("замена изоляторов, ревизия привода")}},
         0, at(2, 17, 0));
    const auto extension = [&](int day, int ofHour, const QString& until, const QString& reason) {
        step(QStringLiteral("Продление наряда"), at(day, ofHour, 30),
             Values{{QStringLiteral("Номер"), permit},
                    {QStringLiteral("Место работ"), path},
                    {QStringLiteral("Продлён до"), until},
                    {QStringLiteral("Причина продления"), reason}},
             at(day, ofHour, 40));
    };
    extension(1, 19, shown(2, 8, 0), QStringLiteral("выявлен дополнительный дефект"));
    extension(2, 7, shown(2, 18, 0), QStringLiteral("не закончена регулировка привода"));
    step(QStringLiteral("Окончание работ по наряду"), at(2, 17, 0),
         Values{{QStringLiteral("Основание"), QStringLiteral("наряду")},
                {QStringLiteral("Номер"), permit},
                {QStringLiteral("Время окончания"), shown(2, 16, 55)},
                {QStringLiteral("Место работ"), path},
                {QStringLiteral("Готовность"), QStringLiteral("можно включать")}});
    step(QStringLiteral("Снятие заземления"), at(2, 17, 25),
         Values{{QStringLiteral("Подстанция"), substation},
                {QStringLiteral("Вид заземления"), QStringLiteral("отключены заземляющие ножи")},
                {QStringLiteral("Обозначение или номер"), QStringLiteral("ЗН-Л-110")},
                {QStringLiteral("Место установки"), path},
                {QStringLiteral("Осталось"), QStringLiteral("0")}});
    step(QStringLiteral("Включение линии под напряжение"), at(2, 18, 10),
         Values{{QStringLiteral("Линия"), line},
                {QStringLiteral("Подстанция"), substation},
                {QStringLiteral("Выключатель"), bay},
                {QStringLiteral("Транзит"), QStringLiteral("да")}},
         at(2, 18, 10));
}

void DemoPast::writeYearAgo(qint64 now)
{
    DemoFiller filler(m_journal->network(), seed + 200);
    const DemoPerson& gone = m_journal->network().byLastName(QStringLiteral("Берегов"));
    const QVector<const DemoTemplate*> kinds = m_journal->recordsOf(Network::Cds);
    for (int day = 395; day > 365; --day)
        for (int change : {8, 20}) {
            const qint64 start = DemoClock::daysBefore(now, day, change);
            DemoShift shift =
                m_journal->plan(Network::Cds, start, DemoClock::nextChange(start), 2 * day + change / 20);
            if (day % 2 == 0)
                shift.crew[0] = &gone;
            m_journal->add(shift);
            m_journal->opening(shift, &filler, start + 3 * minute);
            m_journal->routine(shift, &filler, filler.number(4, 11), start + 10 * minute,
                               shift.end - 20 * minute, kinds);
            m_journal->closing(shift, &filler, shift.end - 5 * minute);
        }
}

DemoShift DemoPast::shiftAt(int department, qint64 time) const
{
    for (const DemoShift& shift : m_shifts)
        if (shift.department == department && shift.start <= time && time < shift.end)
            return shift;
    return {};
}
