#include "DemoStory.h"

#include "DemoKey.h"
#include "DemoPast.h"
#include "DemoStore.h"

#include <QDateTime>

namespace
{
constexpr int minute = 60;
constexpr int hour = 3600;
constexpr quint32 seed = 2217;

QString line()
{
    return QStringLiteral("ВЛ 110 кВ Заречная – Кирпичная");
}
QString zarechnaya()
{
    return QStringLiteral("ПС 110 кВ Заречная");
}
QString kirpichnaya()
{
    return QStringLiteral("ПС 110 кВ Кирпичная");
}
QString centre()
{
    return QStringLiteral("Северов М. Ю., ОДС, ДЦ «Северная дуга»");
}
} // namespace

DemoStory::DemoStory(DemoJournal* journal, const DemoClock::Story& clock)
    : m_journal(journal),
      m_clock(clock),
      m_shift(journal->plan(DemoNetwork::Cds, clock.start, clock.end, 0)),
      m_filler(journal->network(), seed),
      m_senior(journal->network().person(DemoStore::dispatcher())),
      m_colleague(journal->network().person(DemoStore::colleague())),
      m_chief(journal->network().person(DemoStore::chief()))
{
    m_shift.open = true;
}

void DemoStory::write(DemoPast* past, qint64 now)
{
    m_journal->add(m_shift);
    writeEvening();
    writeOrders();
    writeAccident();
    writeMidnight();
    writeRepair();
    writeLateHours(past);
    writeSince(now);
}

qint64 DemoStory::at(int ofHour, int ofMinute, int second) const
{
    const int sinceStart = (ofHour + 24 - 20) % 24 * hour + ofMinute * minute + second;
    return m_clock.start + sinceStart;
}

QString DemoStory::shown(int ofHour, int ofMinute, const char* format) const
{
    return QDateTime::fromSecsSinceEpoch(at(ofHour, ofMinute)).toString(QLatin1String(format));
}

DemoRecord DemoStory::entry(const DemoPerson& author, qint64 time, const QString& kind, const Values& values)
{
    DemoRecord record;
    record.key = demoKey(QStringLiteral("story %1 %2").arg(m_clock.start).arg(time));
    record.author = &author;
    record.eventTime = time;
    record.recordTime = time + minute;
    record.html = m_filler.fill(m_journal->record(kind), m_shift.scene(time, &author), values);
    return record;
}

QByteArray DemoStory::add(const DemoRecord& record)
{
    m_journal->add(m_shift, record);
    return record.key;
}

void DemoStory::writeEvening()
{
    DemoRecord opening =
        entry(m_senior, m_clock.start, QStringLiteral("Приём смены"),
              {{QStringLiteral("Схема и режим"), QStringLiteral("имеют отклонения, указаны в журнале")},
               {QStringLiteral("Состояние связи и ТМ"), QStringLiteral("исправны")},
               {QStringLiteral("Особые указания"),
                QStringLiteral("Усилить контроль за ВЛ 110 кВ: ожидается мокрый снег.")}});
    opening.visa = &m_chief;
    add(opening);
    add(entry(m_senior, at(20, 6), QStringLiteral("Проверка диспетчерского щита"),
              {{QStringLiteral("Результат"), QStringLiteral("соответствует")},
               {QStringLiteral("Расхождения"), QStringLiteral("Замечаний по щиту нет.")}}));
    add(entry(m_colleague, at(20, 12), QStringLiteral("Фактическая погода"),
              {{QStringLiteral("Явление"), QStringLiteral("мокрый снег")},
               {QStringLiteral("Температура, град"), QStringLiteral("0")},
               {QStringLiteral("Ветер, м/с"), QStringLiteral("11")},
               {QStringLiteral("Гололёд"), QStringLiteral("нет")}}));

    DemoRecord storm = entry(m_senior, at(20, 20), QStringLiteral("Штормовое предупреждение"),
                             {{QStringLiteral("Явление"), QStringLiteral("усиление ветра")},
                              {QStringLiteral("Скорость ветра, м/с"), QStringLiteral("24")},
                              {QStringLiteral("Период действия"),
                               QStringLiteral("с %1 по %2")
                                   .arg(shown(21, 0, "dd.MM.yyyy hh:mm"), shown(6, 0, "dd.MM.yyyy hh:mm"))},
                              {QStringLiteral("Район"), QStringLiteral("весь район электросетей")},
                              {QStringLiteral("Кто передал"), QStringLiteral("диспетчер ОДС Северов")},
                              {QStringLiteral("Режим бригад"), QStringLiteral("повышенной готовности")},
                              {QStringLiteral("Проверил"), QStringLiteral("Туманов И. К., старший ОВБ")}});
    storm.secondMarkTime = at(20, 31);
    storm.secondMarkWorker = &m_colleague;
    add(storm);

    const DemoPerson& works = m_journal->network().byLastName(QStringLiteral("Гранитов"));
    DemoRecord question = entry(
        m_colleague, at(20, 35), QStringLiteral("Телефонограмма принята"),
        {{QStringLiteral("Номер"), QStringLiteral("117")},
         {QStringLiteral("Отправитель"), QStringLiteral("Завод «Гранит-Юг»")},
         {QStringLiteral("Передал"), QStringLiteral("дежурный энергетик Гранитов")},
         {QStringLiteral("Текст телефонограммы"),
          QStringLiteral("Ночью пуск двигателя № 5 мощностью 1,6 МВт. Прошу подтвердить возможность.")}});
    question.direction = DirectionLeft;
    question.receiver = &works;
    add(question);
    DemoRecord answer =
        entry(m_colleague, at(20, 41), QStringLiteral("Телефонограмма передана"),
              {{QStringLiteral("Кому"), QStringLiteral("Завод «Гранит-Юг»")},
               {QStringLiteral("Номер"), QStringLiteral("62")},
               {QStringLiteral("Текст телефонограммы"),
                QStringLiteral("Пуск до 22:00 разрешаем, после начала шторма воздержитесь.")},
               {QStringLiteral("Принял"),
                QStringLiteral("Гранитов А. В., Служба главного энергетика, Завод «Гранит-Юг»")}});
    answer.direction = DirectionRight;
    answer.receiver = &works;
    answer.secondMarkTime = at(20, 44);
    answer.secondMarkWorker = &m_colleague;
    add(answer);
    add(entry(m_colleague, at(20, 52), QStringLiteral("Замер нагрузок"),
              {{QStringLiteral("Линия"), line()},
               {QStringLiteral("Ток, А"), QStringLiteral("184")},
               {QStringLiteral("Мощность, МВт"), QStringLiteral("34,6")}}));
}

void DemoStory::writeOrders()
{
    const QString order = QStringLiteral("Команда на производство переключений");
    DemoRecord first = entry(m_senior, at(21, 8), order,
                             {{QStringLiteral("Кому"), QStringLiteral("Ветров П. С., дежурный ПС Заречная")},
                              {QStringLiteral("Подстанция"), zarechnaya()},
                              {QStringLiteral("Операция"), QStringLiteral("вывести в ремонт")},
                              {QStringLiteral("Оборудование"), QStringLiteral("В-110 Полевая I")},
                              {QStringLiteral("Цель переключений"), QStringLiteral("замена ввода")},
                              {QStringLiteral("Номер бланка"), QStringLiteral("214")}});
    DemoRecord successor = first; // replaces the first one, with the execution time
    first.status = StatusDeleted;
    first.visa = &m_chief;
    add(first);
    successor.key = demoKey(QStringLiteral("story %1 successor").arg(m_clock.start));
    successor.origin = first.key;
    successor.executionTime = at(21, 46);
    add(successor);

    add(entry(m_colleague, at(21, 15), QStringLiteral("Решение по заявке на вывод в ремонт"),
              {{QStringLiteral("Номер заявки"), QStringLiteral("431")},
               {QStringLiteral("Вид заявки"), QStringLiteral("плановая")},
               {QStringLiteral("Оборудование"), QStringLiteral("ПС 110 кВ Родниковая / Т-2")},
               {QStringLiteral("Решение"), QStringLiteral("разрешена с изменением срока")},
               {QStringLiteral("Передал решение"), centre()}}));
    add(entry(m_senior, at(21, 25), QStringLiteral("Осмотр оборудования"),
              {{QStringLiteral("Вид осмотра"), QStringLiteral("внеочередной")},
               {QStringLiteral("Оборудование"), QStringLiteral("ПС 110 кВ Заречная / В-110 Полевая I")},
               {QStringLiteral("Подстанция"), zarechnaya()},
               {QStringLiteral("Осмотрел"), QStringLiteral("Ветров П. С. гр.IV")},
               {QStringLiteral("Замечания"), QStringLiteral("нет")}}));
    const auto reserve = [&](const DemoPerson& author, qint64 time, const QString& bay, const QString& form) {
        return entry(author, time, order,
                     {{QStringLiteral("Кому"), QStringLiteral("Кирпичёв А. И., дежурный ПС Кирпичная")},
                      {QStringLiteral("Подстанция"), kirpichnaya()},
                      {QStringLiteral("Операция"), QStringLiteral("вывести в резерв")},
                      {QStringLiteral("Оборудование"), bay},
                      {QStringLiteral("Цель переключений"), QStringLiteral("подготовка схемы к шторму")},
                      {QStringLiteral("Номер бланка"), form}});
    };
    add(reserve(m_colleague, at(21, 40), QStringLiteral("СВ-10"), QStringLiteral("215")));
    DemoRecord draft = reserve(m_senior, at(21, 55), QStringLiteral("Т-2"), QStringLiteral("216"));
    draft.status = StatusDraft;
    add(draft);
    DemoRecord telemetry = entry(m_colleague, at(22, 5), QStringLiteral("Неисправность телемеханики"),
                                 {{QStringLiteral("Неисправность"), QStringLiteral("нет телеизмерений")},
                                  {QStringLiteral("Подстанция"), QStringLiteral("ПС 35 кВ Ольховка")},
                                  {QStringLiteral("Сигнал"), QStringLiteral("Потеря канала")},
                                  {QStringLiteral("Номер сигнала"), QStringLiteral("41")},
                                  {QStringLiteral("Способ"), QStringLiteral("по телефону")}});
    telemetry.executionTime = at(22, 50);
    add(telemetry);
}

void DemoStory::writeAccident()
{
    DemoRecord trip =
        entry(m_senior, at(22, 17, 43), QStringLiteral("Автоматическое отключение линии"),
              {{QStringLiteral("Линия"), line()},
               {QStringLiteral("Подстанция"), zarechnaya()},
               {QStringLiteral("Выключатель"), QStringLiteral("В-110 Кирпичная")},
               {QStringLiteral("Сработавшие защиты"), QStringLiteral("ДЗ II ступень")},
               {QStringLiteral("Работа АПВ"), QStringLiteral("неуспешное")},
               {QStringLiteral("Расстояние, км"), QStringLiteral("11,4")},
               {QStringLiteral("Обесточенные потребители"),
                QStringLiteral("ПС 110 кВ Кирпичная, 1 840 потребителей")},
               {QStringLiteral("Сброс нагрузки, МВт"), QStringLiteral("9,6")},
               {QStringLiteral("Погода в районе"), QStringLiteral("мокрый снег, ветер 17 м/с")}});
    trip.visa = &m_chief;
    trip.secondMarkTime = at(22, 19);
    trip.secondMarkWorker = &m_senior;
    add(trip);
    attach(trip.key);
    m_journal->comment(
        trip.key, m_colleague, at(22, 29),
        QStringLiteral("По регистратору Кирпичной ток 3,9 кА, фаза А. Похоже на обрыв, а не на схлёст."), 0);
    m_journal->comment(trip.key, m_senior, at(22, 34),
                       QStringLiteral("Осциллограмму и фото от ОВБ приложил, схема питания - вариант 2."),
                       at(22, 34));
    m_journal->comment(trip.key, m_chief, at(22, 48),
                       QStringLiteral("До утра линию не опробовать. Подготовьте аварийную заявку."), 0);

    add(entry(m_senior, at(22, 19), QStringLiteral("Сообщение вышестоящему центру"),
              {{QStringLiteral("Кому сообщено"), centre()},
               {QStringLiteral("Содержание сообщения"),
                QStringLiteral(
                    "отключилась ВЛ 110 кВ Заречная – Кирпичная, АПВ неуспешное, погашена ПС Кирпичная")},
               {QStringLiteral("Полученное указание"), QStringLiteral("доложить после осмотра")}}));
    DemoRecord crew =
        entry(m_colleague, at(22, 24), QStringLiteral("Выезд оперативной бригады"),
              {{QStringLiteral("Номер бригады"), QStringLiteral("2")},
               {QStringLiteral("Старший бригады"), QStringLiteral("Туманов И. К. гр.IV")},
               {QStringLiteral("Член бригады"), QStringLiteral("Мохов Д. А. гр.IV")},
               {QStringLiteral("Подстанция"), kirpichnaya()},
               {QStringLiteral("Причина выезда"), QStringLiteral("осмотр линии после отключения")},
               {QStringLiteral("Прибытие"), shown(23, 10)},
               {QStringLiteral("Связь"), QStringLiteral("радиостанция")},
               {QStringLiteral("Позывной"), QStringLiteral("Ясень")}});
    crew.secondMarkTime = at(0, 52);
    crew.secondMarkWorker = &m_colleague;
    add(crew);
    add(entry(m_colleague, at(22, 31), QStringLiteral("Действие устройства РЗА без отключения"),
              {{QStringLiteral("Подстанция"), kirpichnaya()},
               {QStringLiteral("Сигнал"), QStringLiteral("Пуск осциллографа")},
               {QStringLiteral("Состояние сигнала"), QStringLiteral("снят")}}));
    add(entry(m_senior, at(22, 44), QStringLiteral("Восстановление питания потребителей"),
              {{QStringLiteral("Потребители"), QStringLiteral("ПС Кирпичная, всех 1 840 потребителей")},
               {QStringLiteral("Подстанция"), QStringLiteral("ПС 110 кВ Родниковая")},
               {QStringLiteral("Линия"), QStringLiteral("ВЛ 110 кВ Родниковая – Кирпичная")},
               {QStringLiteral("Перерыв питания, мин"), QStringLiteral("26")},
               {QStringLiteral("Недоотпуск, кВт·ч"), QStringLiteral("4160")},
               {QStringLiteral("Состояние оборудования"), QStringLiteral("осматривается")}}));
    DemoRecord demand = entry(
        m_senior, at(22, 58), QStringLiteral("Получено распоряжение вышестоящего центра"),
        {{QStringLiteral("Отдал распоряжение"), centre()},
         {QStringLiteral("Содержание распоряжения"),
          QStringLiteral("ограничить нагрузку ПС Кирпичная до 30 МВт на время питания от ПС Родниковая")},
         {QStringLiteral("Срок исполнения"), shown(23, 30, "dd.MM.yyyy hh:mm")}});
    demand.executionTime = at(23, 18);
    add(demand);
    DemoRecord limit =
        entry(m_colleague, at(23, 12), QStringLiteral("Ограничение потребителя"),
              {{QStringLiteral("Потребитель"), QStringLiteral("Завод «Гранит-Юг»")},
               {QStringLiteral("Период ограничения"),
                QStringLiteral("с %1 по %2")
                    .arg(shown(23, 15, "dd.MM.yyyy hh:mm"), shown(6, 0, "dd.MM.yyyy hh:mm"))},
               {QStringLiteral("Величина, МВт"), QStringLiteral("4")},
               {QStringLiteral("Подстанция"), kirpichnaya()},
               {QStringLiteral("Присоединение"), QStringLiteral("В-35 Гранитная I")},
               {QStringLiteral("Основание"), QStringLiteral("график аварийного ограничения")},
               {QStringLiteral("Кто оповещён"), QStringLiteral("дежурный энергетик Гранитов")}});
    limit.executionTime = at(23, 18);
    add(limit);
}

void DemoStory::writeMidnight()
{
    add(entry(m_senior, at(23, 30), QStringLiteral("Прибытие бригады на место"),
              {{QStringLiteral("Номер бригады"), QStringLiteral("2")},
               {QStringLiteral("Подстанция"), kirpichnaya()},
               {QStringLiteral("Доложил"), QStringLiteral("Туманов И. К. гр.IV")},
               {QStringLiteral("Результат осмотра"), QStringLiteral("обрыв шлейфа фазы А на опоре № 42")}}));
    DemoRecord request =
        entry(m_senior, at(23, 44), QStringLiteral("Подача заявки в вышестоящий центр"),
              {{QStringLiteral("Куда подана"), QStringLiteral("ДЦ «Северная дуга»")},
               {QStringLiteral("Вид заявки"), QStringLiteral("аварийная")},
               {QStringLiteral("Номер заявки"), QStringLiteral("438")},
               {QStringLiteral("Оборудование"), QStringLiteral("ПС 110 кВ Заречная / В-110 Кирпичная")},
               {QStringLiteral("Цель работ"), QStringLiteral("восстановление шлейфа фазы А на опоре № 42")},
               {QStringLiteral("Принял"), centre()}});
    request.secondMarkTime = at(23, 52);
    request.secondMarkWorker = &m_senior;
    add(request);
    DemoRecord scheme =
        entry(m_colleague, at(23, 58), QStringLiteral("Изменение схемы сети 110 кВ"),
              {{QStringLiteral("Подстанция"), kirpichnaya()},
               {QStringLiteral("Операция"), QStringLiteral("включён")},
               {QStringLiteral("Аппарат"), QStringLiteral("В-110 Родниковая")},
               {QStringLiteral("Точка деления"), QStringLiteral("ПС 110 кВ Заречная / В-110 Кирпичная")},
               {QStringLiteral("Согласовал"), centre()}});
    scheme.executionTime = at(0, 2);
    add(scheme);
    DemoRecord disconnect =
        entry(m_colleague, at(0, 6), QStringLiteral("Команда на производство переключений"),
              {{QStringLiteral("Кому"), QStringLiteral("Кирпичёв А. И., дежурный ПС Кирпичная")},
               {QStringLiteral("Подстанция"), kirpichnaya()},
               {QStringLiteral("Операция"), QStringLiteral("вывести в ремонт")},
               {QStringLiteral("Оборудование"), QStringLiteral("В-110 Заречная")},
               {QStringLiteral("Цель переключений"), QStringLiteral("подготовка рабочего места")},
               {QStringLiteral("Номер бланка"), QStringLiteral("217")}});
    disconnect.executionTime = at(0, 9);
    add(disconnect);
}

void DemoStory::writeRepair()
{
    add(entry(m_senior, at(0, 10), QStringLiteral("Установка заземления"),
              {{QStringLiteral("Подстанция"), kirpichnaya()},
               {QStringLiteral("Вид заземления"), QStringLiteral("включены заземляющие ножи")},
               {QStringLiteral("Обозначение или номер"), QStringLiteral("ЗН-Л-110 Заречная")},
               {QStringLiteral("Место установки"), QStringLiteral("ЛР-110 Заречная")},
               {QStringLiteral("Линия"), line()},
               {QStringLiteral("Установил"), QStringLiteral("Мохов Д. А. гр.IV")}}));
    add(entry(m_senior, at(0, 31), QStringLiteral("Разрешение на подготовку рабочего места и допуск"),
              {{QStringLiteral("Основание"), QStringLiteral("наряду")},
               {QStringLiteral("Номер"), QStringLiteral("93")},
               {QStringLiteral("Место работ"), QStringLiteral("ПС 110 кВ Кирпичная / В-110 Заречная")},
               {QStringLiteral("Производитель работ"), QStringLiteral("Травин И. О. гр.IV")},
               {QStringLiteral("Численность бригады"), QStringLiteral("4")},
               {QStringLiteral("Допускающий"), QStringLiteral("Кирпичёв А. И. гр.IV")},
               {QStringLiteral("Срок окончания"), shown(7, 0, "dd.MM.yyyy hh:mm")},
               {QStringLiteral("Содержание работ"),
                QStringLiteral("восстановление шлейфа фазы А на опоре № 42")}}));
    add(entry(m_colleague, at(0, 52), QStringLiteral("Окончание работ по наряду"),
              {{QStringLiteral("Основание"), QStringLiteral("распоряжению")},
               {QStringLiteral("Номер"), QStringLiteral("27")},
               {QStringLiteral("Место работ"), QStringLiteral("ПС 110 кВ Кирпичная / В-110 Заречная")},
               {QStringLiteral("Производитель работ"), QStringLiteral("Туманов И. К. гр.IV")},
               {QStringLiteral("Готовность"), QStringLiteral("включать нельзя, требуется испытание")}}));
}

void DemoStory::writeLateHours(DemoPast* past)
{
    DemoRecord mistaken =
        entry(m_colleague, at(1, 15), QStringLiteral("Замер нагрузок"),
              {{QStringLiteral("Линия"), line()}, {QStringLiteral("Ток, А"), QStringLiteral("176")}});
    mistaken.status = StatusDeleted;
    add(mistaken);
    m_journal->comment(
        mistaken.key, m_colleague, at(1, 17),
        QStringLiteral("Удалено: линия отключена с 22:17, замер записан по устаревшим телеизмерениям."),
        at(1, 17));

    DemoRecord corrected = entry(m_senior, at(1, 20), QStringLiteral("Прочее сообщение"));
    corrected.html = DemoTemplates::html(
        QStringLiteral("Срок доклада бригады по опоре № 42 перенесён: ~не позднее 02:00~ *не позднее 03:30*. "
                       "Автомобиль ОВБ № 2 ~вернулся на базу~ остаётся на ПС Кирпичная до окончания работ."),
        nullptr);
    add(corrected);
    add(entry(
        m_senior, at(1, 40), QStringLiteral("Прочее сообщение"),
        {{QStringLiteral("Текст записи"),
          QStringLiteral("Состояние на начало второй половины ночи:\n"
                         "1. ВЛ 110 кВ Заречная – Кирпичная отключена, заземлена с двух сторон.\n"
                         "2. ПС Кирпичная питается от ПС Родниковая, 27,8 МВт при допустимых 30.\n"
                         "3. В-110 Полевая I на ПС Заречная в ремонте до 12:00.\n"
                         "4. На опоре № 42 работает бригада Травина И. О., наряд № 93.\n"
                         "5. Штормовое предупреждение действует до 06:00, ОВБ в повышенной готовности.")}}));

    DemoRecord mine =
        entry(m_senior, at(2, 5), QStringLiteral("Сообщение вышестоящему центру"),
              {{QStringLiteral("Кому сообщено"), centre()},
               {QStringLiteral("Содержание сообщения"),
                QStringLiteral("о ходе восстановления шлейфа на опоре № 42 и нагрузке ПС Кирпичная")},
               {QStringLiteral("Полученное указание"), QString()}});
    mine.status = StatusDraft;
    add(mine);
    const QString thirdDay =
        QDateTime::fromSecsSinceEpoch(m_clock.start).addDays(3).toString(QStringLiteral("dd.MM.yyyy"));
    DemoRecord colleagues =
        entry(m_colleague, at(2, 7), QStringLiteral("Обнаружен дефект оборудования"),
              {{QStringLiteral("Подстанция"), QStringLiteral("ПС 35 кВ Ольховка")},
               {QStringLiteral("Обстоятельства"), QStringLiteral("осмотре")},
               {QStringLiteral("Оборудование"), QStringLiteral("Т-1, ввод 35 кВ фазы В")},
               {QStringLiteral("Напряжение"), QStringLiteral("35 кВ")},
               {QStringLiteral("Описание дефекта"), QStringLiteral("течь масла, 1 капля за 20 с")},
               {QStringLiteral("Сообщил"), QStringLiteral("Туманов И. К., старший ОВБ")},
               {QStringLiteral("Принятые меры"), QStringLiteral("установлен контроль через каждые 2 ч")},
               {QStringLiteral("Срок устранения"), thirdDay + QStringLiteral(" 18:00")}});
    colleagues.status = StatusDraft;
    add(colleagues);

    // A record of a neighbouring department, copied and pasted here: a draft with the times of its source.
    const DemoShift neighbours = past->shiftAt(DemoNetwork::Zarechnaya, at(2, 12));
    DemoRecord source =
        entry(*neighbours.crew.first(), at(2, 12), QStringLiteral("Переход водозабора на резервный ввод"),
              {{QStringLiteral("Резервный ввод"), QStringLiteral("РП-4 / Т-2")},
               {QStringLiteral("Причина"), QStringLiteral("посадка напряжения")},
               {QStringLiteral("Насосы"), QStringLiteral("запущены вручную")},
               {QStringLiteral("Сообщил"), QStringLiteral("машинист насосной")}});
    m_journal->add(neighbours, source);
    source.key = demoKey(QStringLiteral("story %1 pasted").arg(m_clock.start));
    source.author = &m_senior;
    source.status = StatusDraft;
    add(source);
}

/// The records written since the end of the story, if it ended hours ago.
void DemoStory::writeSince(qint64 now)
{
    const qint64 end = at(2, 20);
    const int hours = static_cast<int>((now - end) / hour);
    QVector<const DemoTemplate*> kinds;
    for (const QString& kind :
         {QStringLiteral("Фактическая погода"), QStringLiteral("Замер нагрузок"),
          QStringLiteral("Осмотр оборудования"), QStringLiteral("Проверка диспетчерского щита"),
          QStringLiteral("Телефонограмма принята"), QStringLiteral("Сообщение вышестоящему центру"),
          QStringLiteral("Прочее сообщение")})
        kinds.append(&m_journal->record(kind));
    m_journal->routine(m_shift, &m_filler, hours, end + 20 * minute, now - 10 * minute, kinds);
}
