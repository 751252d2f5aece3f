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

bool Tour::sceneArchive(CVrkCliMod* window)
{
    if (!trigger(window, "chooseWorkshiftAction"))
        return fail(tr("Выбор смены недоступен."));
    QWidget* shifts = visibleDialog("WorkshiftsDialog");
    if (!shifts)
        return fail(tr("Окно выбора смены не открылось."));
    picture(tr("Выбор прошлой смены."));
    if (!answer(shifts, tr("Применить")) || !trigger(window, "infoWorkshiftAction"))
        return fail(tr("Прошлая смена не показана."));
    picture(tr("Прошлая смена в архиве и её состав."));
    if (QWidget* info = visibleDialog("WorkshiftInfoDialog"))
        info->close();
    return trigger(window, "currentWorkshiftAction") || fail(tr("Возврат к текущей смене недоступен."));
}

bool Tour::sceneStorm(CVrkCliMod* window)
{
    for (int row = 0;; ++row) {
        if (!trigger(window, "chooseWorkshiftAction"))
            return fail(tr("Выбор смены недоступен."));
        QWidget* shifts = visibleDialog("WorkshiftsDialog");
        auto* list = shifts->findChild<QListWidget*>(QStringLiteral("workshiftsList"));
        if (row >= list->count())
            return fail(tr("Штормовой ночи нет среди смен."));
        list->setCurrentRow(row);
        if (!answer(shifts, tr("Применить")))
            return fail(tr("Смена не выбрана."));
        if (records(window)->model()->rowCount() >= recordsOfStorm)
            break;
    }
    window->findChild<QToolButton*>(QStringLiteral("searchButton"))->click();
    home(window)->findChild<QLineEdit*>(QStringLiteral("searchEdit"))->setFocus();
    home(window)->findChild<QLineEdit*>(QStringLiteral("searchEdit"))->selectAll();
    type(window, tr("Назначен обход"));
    press(window, Qt::Key_Return);
    settle();
    picture(tr("Штормовая ночь, четыреста записей: поиск ведёт от места к месту."));
    window->findChild<QToolButton*>(QStringLiteral("searchButton"))->click();
    return trigger(window, "currentWorkshiftAction") || fail(tr("Возврат к текущей смене недоступен."));
}

bool Tour::sceneLostStore(CVrkCliMod* window)
{
    const auto* connection = window->findChild<QLabel*>(QStringLiteral("connectionLabel"));
    const QString connected = connection->text();
    QWidget* dialog = openedBy(window, "createButton", "RecordCreatorDialog");
    if (!dialog)
        return fail(tr("Окно новой записи не открылось."));
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
    if (!isLost || !dialog->isVisible())
        return fail(tr("Пропажа хранилища не замечена."));
    if (!wait([&] { return connection->text() == connected; }))
        return fail(tr("Хранилище вернулось, а журнал его не нашёл."));
    press(dialog, Qt::Key_Return, Qt::ControlModifier);
    if (!wait([dialog] { return !dialog->isVisible(); }) ||
        !wait([window] { return selectRecord(window, tr("уровень масла")); }))
        return fail(tr("Запись не сохранилась после возвращения хранилища."));
    picture(tr("Хранилище вернулось: связь найдена, тот же текст записан."));
    window->findChild<QToolButton*>(QStringLiteral("acknowledgeButton"))->click();
    return true;
}

bool Tour::sceneLetters(CVrkCliMod* window)
{
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(usual.pointSizeF() * largeLetters);
    QApplication::setFont(large);
    settle();
    selectRecord(window, tr("уровень масла"));
    picture(tr(
        "Крупные буквы в небольшом окне: текст записей получает место, комментарии и файлы открывает F4."));
    QApplication::setFont(usual);
    settle();
    return true;
}

bool Tour::sceneHandover(CVrkCliMod* window)
{
    if (!trigger(window, "closeWorkshiftAction"))
        return fail(tr("Закрытие смены недоступно."));
    QWidget* box = visibleDialog("CPopMessageBox");
    if (!box)
        return fail(tr("Вопрос о черновиках не показан."));
    picture(tr("Сдача смены: сначала вопрос о черновиках."));
    if (!answer(box, tr("Да")))
        return fail(tr("В окне вопроса нет ответа «Да»."));
    QWidget* dialog = visibleDialog("CloseWorkshiftDialog");
    if (!dialog)
        return fail(tr("Окно закрытия смены не открылось."));
    for (const char* name : {"Горин", "Ручьёва"}) {
        click(dialog, "addWorkerButton");
        if (!chooseWorker(tr(name)))
            return fail(tr("Принимающий смену не выбран."));
    }
    if (dialog->findChild<QTableWidget*>(QStringLiteral("workersTable"))->rowCount() != 2)
        return fail(tr("Принимающих смену не двое."));
    dialog->findChild<QWidget*>(QStringLiteral("parameterInput_0"))->setFocus();
    fill(dialog,
         {tr("Озеров"), tr("Горин"), tr("2"), tr("1"), tr("ВЛ 110 кВ Полевая – Заречная"), tr("нет")});
    picture(tr("Закрытие смены: кто принял, время и запись о сдаче по шаблону."));
    if (!answer(dialog, tr("Закрыть смену")))
        return fail(tr("Смена не закрыта."));
    const auto* action = window->findChild<QAction*>(QStringLiteral("openWorkshiftAction"));
    if (!wait([action] { return action->isEnabled(); }))
        return fail(tr("Журнал не увидел закрытия смены."));
    if (!selectRecord(window, tr("Смену сдал Озеров")))
        return fail(tr("В записи о сдаче не те имена."));
    picture(tr("Смена закрыта, записи неизменны."));
    return true;
}

bool Tour::sceneNextUser(Workstation* workstation)
{
    bool isIn = false;
    whenShown("SignInDialog", [&](QWidget* dialog) {
        auto* logins = dialog->findChild<QComboBox*>(QStringLiteral("loginCombo"));
        logins->setCurrentIndex(logins->findData(QStringLiteral("gorin")));
        picture(tr("За стол садится принявший смену: «Сменить пользователя» (Ctrl+Shift+U)."));
        isIn = answer(dialog, tr("Войти"));
    });
    workstation->changeUser();
    settle();
    return (isIn && workstation->module(QStringLiteral("logbook"))) ||
           fail(tr("Следующий диспетчер не вошёл."));
}

bool Tour::sceneOpening(CVrkCliMod* window)
{
    if (!trigger(window, "openWorkshiftAction"))
        return fail(tr("Открытие смены недоступно."));
    QWidget* dialog = visibleDialog("OpenWorkshiftDialog");
    if (!dialog)
        return fail(tr("Окно открытия смены не открылось."));
    click(dialog, "addWorkerButton");
    if (!chooseWorker(tr("Ручьёва")))
        return fail(tr("Второй диспетчер смены не выбран."));
    if (!chooseOwnTemplate(dialog))
        return false;
    dialog->findChild<QWidget*>(QStringLiteral("parameterInput_2"))->setFocus(); // the other fields are
                                                                                 // filled in
    fill(dialog, {tr("усилить контроль за ПС Ольховка")});

    // The shift that was handed over early still runs according to the plan: the next one of the timetable
    // begins at its end.
    auto* button = dialog->findChild<QPushButton*>(QStringLiteral("applyButton"));
    auto* timetable = dialog->findChild<QTableWidget*>(QStringLiteral("shiftsTable"));
    auto* start = dialog->findChild<QDateEdit*>(QStringLiteral("startDateEdit"));
    auto* end = dialog->findChild<QDateEdit*>(QStringLiteral("endDateEdit"));
    for (int day = 0; day < 3 && !button->isEnabled(); ++day)
        for (int row = 0; row < timetable->rowCount() && !button->isEnabled(); ++row) {
            timetable->selectRow((row + 1) %
                                 timetable->rowCount()); // different from the one before, so that the
                                                         // change is visible
            timetable->selectRow(row);
            end->setDate(end->date().addDays(day));
            start->setDate(start->date().addDays(day));
            settle();
        }
    picture(tr("Открытие смены: график, интервал, состав и запись о приёме по новому шаблону."));
    if (!button->isEnabled())
        return fail(tr("Смену нельзя открыть: %1").arg(button->toolTip()));
    button->click();
    const auto* create = window->findChild<QToolButton*>(QStringLiteral("createButton"));
    if (!wait([create] { return create->isEnabled(); }))
        return fail(tr("Новая смена не открылась."));
    if (!selectRecord(window, tr("приняли: Горин")))
        return fail(tr("В записи о приёме не то имя."));
    picture(tr("Новая смена открыта: первая запись о приёме."));
    return true;
}
