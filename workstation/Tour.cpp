#include "Tour.h"

#include "CVrkCliMod.h"
#include "Theme.h"
#include "TourHands.h"
#include "Workstation.h"

#include <functional>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDateEdit>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTableView>
#include <QTabWidget>
#include <QToolButton>

using namespace TourHands;

namespace
{
QAbstractItemView* records(QWidget* window)
{
    return window->findChild<QAbstractItemView*>(QStringLiteral("recordsTable"));
}

/// Makes the last row current whose text holds these words and that, once it is current, fits; false when there is none.
bool selectRecord(QWidget* window, const QString& words, const std::function<bool()>& fits = {})
{
    QAbstractItemView* view = records(window);
    const QAbstractItemModel* model = view->model();
    for (int row = model->rowCount() - 1; row >= 0; --row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex index = model->index(row, column);
            if (index.data().toString().contains(words)) {
                view->setCurrentIndex(index);
                if (fits && !fits())
                    break;
                view->scrollTo(index, QAbstractItemView::PositionAtCenter);
                settle();
                return true;
            }
        }
    }
    return false;
}

/// Brings the first record after midnight into sight.
void showMidnight(QWidget* window)
{
    auto* view = qobject_cast<QTableView*>(records(window));
    const QAbstractItemModel* model = view->model();
    const int column = view->horizontalHeader()->sortIndicatorSection();
    for (int row = 1; row < model->rowCount(); ++row) {
        const QModelIndex index = model->index(row, column);
        if (index.data().toString() < model->index(row - 1, column).data().toString()) {
            view->scrollTo(index, QAbstractItemView::PositionAtCenter);
            return;
        }
    }
}

QString tr(const char* text)
{
    return QCoreApplication::translate("Tour", text);
}
} // namespace

Tour::Tour(const QString& folder) : m_book(folder), m_folder(QDir(folder).absolutePath()) {}

bool Tour::fail(const QString& text)
{
    if (m_errorText.isEmpty())
        m_errorText = text;
    return false;
}

void Tour::picture(const QString& caption)
{
    settle();
    m_book.add(caption);
}

bool Tour::admin(const QStringList& arguments)
{
    QProcess process;
    process.start(QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("vrk-admin")),
                  arguments);
    if (!process.waitForFinished(120000) || process.exitCode() != 0)
        return fail(QString::fromUtf8(process.readAllStandardError()) + process.errorString());
    m_check = QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    return true;
}

QString Tour::summary() const
{
    return tr("Картинок: %1. Страница: %2. Проверка: %3").arg(m_book.pictures()).arg(m_book.page(), m_check);
}

bool Tour::play()
{
    return playTheme(QStringLiteral("light"), tr("день")) && playTheme(QStringLiteral("dark"), tr("ночь")) &&
           (m_book.write() || fail(tr("Не удалось записать %1").arg(m_book.page())));
}

bool Tour::playTheme(const QString& theme, const QString& title)
{
    const QString file = QStringLiteral("%1/%2.sqlite").arg(m_folder, theme);
    for (const char* suffix : {"", "-wal", "-shm"})
        QFile::remove(file + QLatin1String(suffix));
    m_store = QStringLiteral("sqlite://") + file;
    if (!admin({QStringLiteral("demo"), m_store, QStringLiteral("--old")}))
        return false;

    Theme::apply(theme);
    m_book.setTheme(theme, title);
    Options options;
    options.store = m_store;
    options.user = QStringLiteral("ozerov");
    options.department = tr("ЦДС");
    {
        Workstation workstation;
        if (!workstation.enter(options))
            return fail(workstation.errorText());
        CVrkCliMod* window = workstation.startModule(options.module);
        if (!window)
            return fail(workstation.errorText());
        window->resize(1280, 720);
        settle();
        if (!playScenes(window))
            return false;
    }
    return admin({QStringLiteral("check"), m_store});
}

bool Tour::playScenes(CVrkCliMod* window)
{
    return sceneWindow(window) && sceneNewRecord(window) && sceneColleague(window) && sceneApproval(window) &&
           sceneVisa(window) && sceneDeletion(window) && sceneReading(window) && sceneSearch(window) &&
           sceneMarks(window) && sceneExecution(window) && sceneArchive(window) && sceneHandover(window) &&
           playTemplates(window) && sceneOpening(window) && sceneConvertedRecord(window);
}

bool Tour::sceneWindow(CVrkCliMod* window)
{
    if (!records(window) || records(window)->model()->rowCount() == 0)
        return fail(tr("Журнал открытой смены пуст."));
    showMidnight(window);
    picture(tr("Открытая ночная смена: записи по времени, день отделён чертой, внизу связь, пользователь и "
               "часы сервера."));
    if (selectRecord(window, tr("Место повреждения по прибору")))
        picture(tr("Авария: запись с осциллограммой, снимком и схемой, три комментария, виза начальника."));
    return true;
}

bool Tour::sceneNewRecord(CVrkCliMod* window)
{
    window->findChild<QToolButton*>(QStringLiteral("createButton"))->click();
    settle();
    QWidget* dialog = visibleDialog("RecordCreatorDialog");
    if (!dialog)
        return fail(tr("Окно новой записи не открылось."));
    type(dialog, tr("обнаружен"));
    picture(tr("Новая запись (Ctrl+N): шаблон ищется с клавиатуры по частям слов."));
    press(dialog, Qt::Key_Return);
    settle();
    picture(tr("Шаблон выбран: незаполненные обязательные поля отмечены и не дают сохранить."));

    // The filler's editors in the order of the text: Enter takes the suggestion, Tab goes on.
    for (const char* words :
         {"Ольховка", "осмотре", "Т-1, ввод 35 кВ фазы В", "35", "течь масла, 1 капля за 20 с", "Туманов",
          "установлен контроль через каждые 2 ч", "25.11.2026 18:00"}) {
        type(dialog, tr(words));
        if (visibleDialog("SuggestionPopup"))
            press(dialog, Qt::Key_Return);
        press(dialog, Qt::Key_Tab);
        settle();
    }
    picture(tr("Поля заполнены с клавиатуры, текст читается так, как войдёт в журнал."));
    press(dialog, Qt::Key_Return, Qt::ControlModifier);
    if (!wait([dialog] { return !dialog->isVisible(); }))
        return fail(tr("Запись не сохранилась."));
    if (!wait([window] { return selectRecord(window, tr("течь масла")); }))
        return fail(tr("Новая запись не появилась."));
    picture(tr("Запись внесена (Ctrl+Enter): черновик в таблице."));
    return true;
}

bool Tour::sceneColleague(CVrkCliMod* window)
{
    const int before = records(window)->model()->rowCount();
    if (!admin({QStringLiteral("demo"), m_store, QStringLiteral("--live"), QStringLiteral("--count"),
                QStringLiteral("1")}))
        return false;
    if (!wait([&] { return records(window)->model()->rowCount() > before; }))
        return fail(tr("Запись другого рабочего места не пришла."));
    picture(tr("Запись коллеги с другого рабочего места появилась сама."));
    return true;
}

bool Tour::sceneApproval(CVrkCliMod* window)
{
    if (!selectRecord(window, tr("течь масла")))
        return fail(tr("Черновик не найден."));
    window->findChild<QToolButton*>(QStringLiteral("approveButton"))->click();
    settle();
    QWidget* box = visibleDialog("CPopMessageBox");
    if (!box)
        return fail(tr("Предупреждение при утверждении не показано."));
    picture(tr("Утверждение: шаблон требует времени выполнения, журнал предупреждает."));
    if (!answer(box, tr("Да")))
        return fail(tr("В окне вопроса нет ответа «Да»."));
    settle();
    picture(tr("Запись утверждена."));
    return true;
}

bool Tour::sceneVisa(CVrkCliMod* window)
{
    if (window->findChild<QToolButton*>(QStringLiteral("signButton"))->isEnabled() &&
        window->findChild<QAction*>(QStringLiteral("signRecordAction"))->isEnabled())
        return fail(tr("Виза предложена автору записи."));
    QWidget* viewport = records(window)->viewport();
    const QPoint place = records(window)->visualRect(records(window)->currentIndex()).center();
    QMetaObject::invokeMethod(records(window), "customContextMenuRequested", Q_ARG(QPoint, place));
    settle();
    picture(tr("Виза на собственную запись не предлагается."));
    if (QWidget* menu = QApplication::activePopupWidget())
        menu->close();
    viewport->update();
    return true;
}

bool Tour::sceneDeletion(CVrkCliMod* window)
{
    window->findChild<QToolButton*>(QStringLiteral("deleteButton"))->click();
    settle();
    QWidget* box = visibleDialog("CPopMessageBox");
    if (!box)
        return fail(tr("Вопрос об удалении не показан."));
    picture(tr("Утверждённая запись удаляется только после вопроса."));
    if (!answer(box, tr("Да")))
        return fail(tr("В окне вопроса нет ответа «Да»."));
    settle();
    picture(tr("Удалённая запись остаётся в журнале: серая, зачёркнутая."));
    return true;
}

bool Tour::sceneReading(CVrkCliMod* window)
{
    if (!selectRecord(window, tr("Смену принял")))
        return true; // the story may open otherwise
    emit records(window)->doubleClicked(records(window)->currentIndex());
    settle();
    QWidget* dialog = visibleDialog("RecordCreatorDialog");
    if (!dialog)
        return fail(tr("Утверждённая запись не открылась для чтения."));
    picture(tr("Утверждённая запись открывается только для чтения."));
    dialog->close();
    settle();
    return true;
}

bool Tour::sceneSearch(CVrkCliMod* window)
{
    window->findChild<QToolButton*>(QStringLiteral("searchButton"))->click();
    settle();
    auto* edit = window->findChild<QLineEdit*>(QStringLiteral("searchEdit"));
    if (!edit || !edit->isVisible())
        return fail(tr("Строка поиска не открылась."));
    edit->setFocus();
    type(window, tr("заземл"));
    picture(tr("Поиск (Ctrl+F) по видимому тексту, по кругу."));
    return true;
}

bool Tour::sceneMarks(CVrkCliMod* window)
{
    window->findChild<QToolButton*>(QStringLiteral("closeSearchButton"))->click();
    if (!selectRecord(window, tr("Установил")))
        return fail(tr("Запись о заземлении не найдена."));
    QMetaObject::invokeMethod(
        records(window), "customContextMenuRequested",
        Q_ARG(QPoint, records(window)->visualRect(records(window)->currentIndex()).center()));
    QWidget* menu = QApplication::activePopupWidget();
    if (!menu)
        return fail(tr("Меню записи не открылось."));
    QAction* marker = menu->actions().value(1);
    menu->close();
    marker->trigger();
    settle();
    QWidget* dialog = visibleDialog("SecondMarkerDialog");
    if (!dialog)
        return fail(tr("Окно второго маркера не открылось."));
    picture(tr("Второй маркер: заземление снято, кто и когда, видно в столбце и в подсказке."));
    if (!answer(dialog, tr("Применить")))
        return fail(tr("Второй маркер не применён."));
    return true;
}

bool Tour::sceneExecution(CVrkCliMod* window)
{
    auto* button = window->findChild<QToolButton*>(QStringLiteral("executionButton"));
    const auto* approve = window->findChild<QAction*>(QStringLiteral("approveRecordAction"));
    const auto isApproved = [&] { return button->isEnabled() && !approve->isEnabled(); };
    if (!selectRecord(window, tr("Не выполнено"), isApproved))
        return fail(tr("Невыполненное распоряжение не найдено."));
    button->click();
    settle();
    QWidget* dialog = visibleDialog("TimeExecutionDialog");
    if (!dialog)
        return fail(tr("Окно времени выполнения не открылось."));
    picture(tr("Время выполнения распоряжения."));
    const int before = records(window)->model()->rowCount();
    if (!answer(dialog, tr("Применить")) ||
        !wait([&] { return records(window)->model()->rowCount() > before; }))
        return fail(tr("Время выполнения не записано."));
    picture(tr("Утверждённая запись заменена новой с временем выполнения; прежняя осталась зачёркнутой."));
    return true;
}

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
    fillGaps(dialog, tr("нет"));
    picture(tr("Закрытие смены: время, кто принял, запись о сдаче по шаблону."));
    if (!answer(dialog, tr("Закрыть смену")))
        return fail(tr("Смена не закрыта."));
    const auto* action = window->findChild<QAction*>(QStringLiteral("openWorkshiftAction"));
    if (!wait([action] { return action->isEnabled(); }))
        return fail(tr("Журнал не увидел закрытия смены."));
    picture(tr("Смена закрыта, записи неизменны."));
    return true;
}

bool Tour::sceneOpening(CVrkCliMod* window)
{
    if (!trigger(window, "openWorkshiftAction"))
        return fail(tr("Открытие смены недоступно."));
    QWidget* dialog = visibleDialog("OpenWorkshiftDialog");
    if (!dialog)
        return fail(tr("Окно открытия смены не открылось."));
    if (!chooseOwnTemplate(dialog))
        return false;
    fillGaps(dialog, tr("нет"));
    // The shift that was handed over early still runs by plan: the next one begins at its end.
    auto* button = dialog->findChild<QPushButton*>(QStringLiteral("applyButton"));
    auto* start = dialog->findChild<QDateEdit*>(QStringLiteral("startDateEdit"));
    auto* end = dialog->findChild<QDateEdit*>(QStringLiteral("endDateEdit"));
    for (int day = 0; day < 3 && !button->isEnabled(); ++day) {
        end->setDate(end->date().addDays(1));
        start->setDate(start->date().addDays(1));
        settle();
    }
    picture(tr("Открытие смены: график, интервал, состав и запись о приёме по новому шаблону."));
    if (!button->isEnabled())
        return fail(tr("Смену нельзя открыть: %1").arg(button->toolTip()));
    button->click();
    const auto* create = window->findChild<QToolButton*>(QStringLiteral("createButton"));
    if (!wait([create] { return create->isEnabled(); }))
        return fail(tr("Новая смена не открылась."));
    picture(tr("Новая смена открыта: первая запись о приёме."));
    return true;
}
