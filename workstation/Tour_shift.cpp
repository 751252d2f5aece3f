#include "CVrkCliMod.h"
#include "Tour.h"
#include "TourHands.h"
#include "Workstation.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QToolButton>

using namespace TourHands;

namespace
{
constexpr int recordsOfStorm = 300; ///< no other night has this number
constexpr double largeLetters = 1.5;

/// Moves the store's file away, or back.
void moveStore(const QString& url, const QString& from, const QString& to)
{
    const QString file = url.mid(int(qstrlen("sqlite://")));
    for (const char* suffix : {"", "-wal", "-shm"})
        QFile::rename(file + from + QLatin1String(suffix), file + to + QLatin1String(suffix));
}
} // namespace

void Tour::sceneArchive(CVrkCliMod* window)
{
    QWidget* shifts = triggered(window, "chooseWorkshiftAction", "WorkshiftsDialog");
    picture(tr("Выбор прошлой смены."));
    answer(shifts, tr("Применить"));
    QWidget* info = triggered(window, "infoWorkshiftAction", "WorkshiftInfoDialog");
    picture(tr("Прошлая смена в архиве и её состав."));
    info->close();
    trigger(window, "currentWorkshiftAction");
}

void Tour::sceneStorm(CVrkCliMod* window)
{
    for (int row = 0; countOfRecords(window) < recordsOfStorm; ++row) {
        QWidget* shifts = triggered(window, "chooseWorkshiftAction", "WorkshiftsDialog");
        auto* list = child<QListWidget>(shifts, "workshiftsList");
        require(row < list->count(), tr("Штормовой ночи нет среди смен."));
        list->setCurrentRow(row);
        answer(shifts, tr("Применить"));
    }
    click(window, "searchButton");
    typeInto(child<QLineEdit>(home(window), "searchEdit"), tr("Назначен обход"));
    press(window, Qt::Key_Return);
    settle();
    picture(tr("Штормовая ночь, четыреста записей: поиск ведёт от места к месту."));
    click(window, "searchButton");
    trigger(window, "currentWorkshiftAction");
}

void Tour::sceneLostStore(CVrkCliMod* window)
{
    const auto* connection = child<QLabel>(window, "connectionLabel");
    const QString connected = connection->text();
    QWidget* dialog = openedBy(window, "createButton", "RecordCreatorDialog");
    type(dialog, tr("обнаружен"));
    press(dialog, Qt::Key_Return);
    settle();
    fill(dialog, {tr("Ольховка"), tr("осмотре"), tr("Т-2, расширитель"), tr("35"),
                  tr("уровень масла ниже нормы"), tr("Туманов"), tr("долито масло"), tr("26.11.2026 12:00")});

    moveStore(m_store, QString(), QStringLiteral(".away"));
    press(dialog, Qt::Key_Return, Qt::ControlModifier);
    const bool isLost = wait([&] { return connection->text() != connected; });
    picture(
        tr("Хранилище пропало: запись не принята, набранный текст остаётся, внизу сказано, что не записано и "
           "почему."));
    moveStore(m_store, QStringLiteral(".away"), QString());
    require(isLost && dialog->isVisible(), tr("Пропажа хранилища не замечена."));
    require(wait([&] { return connection->text() == connected; }),
            tr("Хранилище вернулось, а журнал его не нашёл."));
    press(dialog, Qt::Key_Return, Qt::ControlModifier);
    require(wait([dialog] { return !dialog->isVisible(); }) &&
                wait([window] { return findRecord(window, tr("уровень масла")); }),
            tr("Запись не сохранилась после возвращения хранилища."));
    picture(tr("Хранилище вернулось: связь найдена, тот же текст записан."));
    click(window, "acknowledgeButton");
}

void Tour::sceneLetters(CVrkCliMod* window)
{
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(usual.pointSizeF() * largeLetters);
    QApplication::setFont(large);
    settle();
    findRecord(window, tr("уровень масла"));
    picture(tr(
        "Крупные буквы в небольшом окне: текст записей получает место, комментарии и файлы открывает F4."));
    QApplication::setFont(usual);
    settle();
}

void Tour::sceneHandover(CVrkCliMod* window)
{
    QWidget* box = triggered(window, "closeWorkshiftAction", "CPopMessageBox");
    picture(tr("Сдача смены: сначала вопрос о черновиках."));
    answer(box, tr("Да"));
    QWidget* dialog = visibleDialog("CloseWorkshiftDialog");
    for (const char* name : {"Горин", "Ручьёва"}) {
        click(dialog, "addWorkerButton");
        chooseWorker(tr(name));
    }
    require(child<QTableWidget>(dialog, "workersTable")->rowCount() == 2, tr("Принимающих смену не двое."));
    child<QWidget>(dialog, "parameterInput_0")->setFocus();
    fill(dialog,
         {tr("Озеров"), tr("Горин"), tr("2"), tr("1"), tr("ВЛ 110 кВ Полевая – Заречная"), tr("нет")});
    picture(tr("Закрытие смены: кто принял, время и запись о сдаче по шаблону."));
    answer(dialog, tr("Закрыть смену"));
    const auto* action = child<QAction>(window, "openWorkshiftAction");
    require(wait([action] { return action->isEnabled(); }), tr("Журнал не увидел закрытия смены."));
    require(findRecord(window, tr("Смену сдал Озеров")), tr("В записи о сдаче не те имена."));
    picture(tr("Смена закрыта, записи неизменны."));
}

void Tour::sceneNextUser(Workstation* workstation)
{
    bool isIn = false;
    whenShown("SignInDialog", [&](QWidget* dialog) {
        auto* logins = dialog->findChild<QComboBox*>(QStringLiteral("loginCombo"));
        logins->setCurrentIndex(logins->findData(QStringLiteral("gorin")));
        picture(tr("За стол садится принявший смену: «Сменить пользователя» (Ctrl+Shift+U)."));
        isIn = isAnswered(dialog, tr("Войти"));
    });
    workstation->changeUser();
    settle();
    require(isIn && workstation->module(QStringLiteral("logbook")), tr("Следующий диспетчер не вошёл."));
}

void Tour::sceneOpening(CVrkCliMod* window)
{
    QWidget* dialog = triggered(window, "openWorkshiftAction", "OpenWorkshiftDialog");
    click(dialog, "addWorkerButton");
    chooseWorker(tr("Ручьёва"));
    chooseOwnTemplate(dialog);
    child<QWidget>(dialog, "parameterInput_2")->setFocus(); // the other fields are filled in
    fill(dialog, {tr("усилить контроль за ПС Ольховка")});

    // The shift that was handed over early still runs according to the plan: the next one of the timetable
    // begins at its end.
    auto* button = child<QPushButton>(dialog, "applyButton");
    auto* timetable = child<QTableWidget>(dialog, "shiftsTable");
    auto* start = child<QDateEdit>(dialog, "startDateEdit");
    auto* end = child<QDateEdit>(dialog, "endDateEdit");
    for (int day = 0; day < 3 && !button->isEnabled(); ++day)
        for (int row = 0; row < timetable->rowCount() && !button->isEnabled(); ++row) {
            // Another row first, so that the change is visible.
            timetable->selectRow((row + 1) % timetable->rowCount());
            timetable->selectRow(row);
            end->setDate(end->date().addDays(day));
            start->setDate(start->date().addDays(day));
            settle();
        }
    picture(tr("Открытие смены: график, интервал, состав и запись о приёме по новому шаблону."));
    require(button->isEnabled(), tr("Смену нельзя открыть: %1").arg(button->toolTip()));
    button->click();
    const auto* create = child<QToolButton>(window, "createButton");
    require(wait([create] { return create->isEnabled(); }), tr("Новая смена не открылась."));
    require(findRecord(window, tr("приняли: Горин")), tr("В записи о приёме не то имя."));
    picture(tr("Новая смена открыта: первая запись о приёме."));
}
