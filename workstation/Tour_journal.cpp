#include "CVrkCliMod.h"
#include "Tour.h"
#include "TourHands.h"

#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QTableWidget>
#include <QTabWidget>
#include <QTextEdit>
#include <QToolButton>

using namespace TourHands;

void Tour::sceneWindow(CVrkCliMod* window)
{
    require(countOfRecords(window) > 0, tr("Журнал открытой смены пуст."));
    showMidnight(window);
    picture(tr("Открытая ночная смена: записи по времени, день отделён чертой, внизу связь, пользователь и "
               "часы сервера."));
    if (findRecord(window, tr("Место повреждения по прибору")))
        picture(tr("Авария: запись с осциллограммой, снимком и схемой, три комментария, виза начальника."));
}

void Tour::sceneNewRecord(CVrkCliMod* window)
{
    QWidget* dialog = openedBy(window, "createButton", "RecordCreatorDialog");
    type(dialog, tr("обнаружен"));
    picture(tr("Новая запись (Ctrl+N): шаблон ищется с клавиатуры по частям слов."));
    press(dialog, Qt::Key_Return);
    settle();
    picture(tr("Шаблон выбран: незаполненные обязательные поля отмечены и не дают сохранить."));

    fill(dialog, {tr("Ольховка"), tr("осмотре"), tr("Т-1, ввод 35 кВ фазы В"), tr("35"),
                  tr("течь масла, 1 капля за 20 с"), tr("Туманов"),
                  tr("установлен контроль через каждые 2 ч"), tr("25.11.2026 18:00")});
    picture(tr("Поля заполнены с клавиатуры, текст читается так, как войдёт в журнал."));
    press(dialog, Qt::Key_Return, Qt::ControlModifier);
    require(wait([dialog] { return !dialog->isVisible(); }), tr("Запись не сохранилась."));
    require(wait([window] { return findRecord(window, tr("течь масла")); }),
            tr("Новая запись не появилась."));
    picture(tr("Запись внесена (Ctrl+Enter): черновик в таблице."));
}

void Tour::sceneColleague(CVrkCliMod* window)
{
    const QStringList one{QStringLiteral("--live"), QStringLiteral("--count"), QStringLiteral("1")};
    addRecord(
        window,
        [&] {
            admin(QStringList{QStringLiteral("demo"), m_store} + one);
        },
        tr("Запись другого рабочего места не пришла."));
    picture(tr("Запись коллеги с другого рабочего места появилась сама."));
}

void Tour::sceneApproval(CVrkCliMod* window)
{
    require(findRecord(window, tr("течь масла")), tr("Черновик не найден."));
    QWidget* box = openedBy(window, "approveButton", "CPopMessageBox");
    picture(tr("Утверждение: шаблон требует времени выполнения, журнал предупреждает."));
    answer(box, tr("Да"));
    picture(tr("Запись утверждена."));
}

void Tour::sceneVisa(CVrkCliMod* window)
{
    require(!child<QToolButton>(window, "signButton")->isEnabled() ||
                !child<QAction>(window, "signRecordAction")->isEnabled(),
            tr("Виза предложена автору записи."));
    QMenu* menu = recordMenu(window);
    picture(tr("Виза на собственную запись не предлагается."));
    menu->close();
}

void Tour::sceneDeletion(CVrkCliMod* window)
{
    QWidget* box = openedBy(window, "deleteButton", "CPopMessageBox");
    picture(tr("Утверждённая запись удаляется только после вопроса."));
    answer(box, tr("Да"));
    picture(tr("Удалённая запись остаётся в журнале: серая, зачёркнутая."));
}

void Tour::sceneReading(CVrkCliMod* window)
{
    if (!findRecord(window, tr("Смену принял")))
        return; // the story may already be there at the start
    emit records(window)->doubleClicked(records(window)->currentIndex());
    settle();
    QWidget* dialog = visibleDialog("RecordCreatorDialog");
    picture(tr("Утверждённая запись открывается только для чтения."));
    dialog->close();
    settle();
}

void Tour::sceneSearch(CVrkCliMod* window)
{
    click(window, "searchButton");
    auto* edit = child<QLineEdit>(home(window), "searchEdit");
    require(edit->isVisible(), tr("Строка поиска не открылась."));
    typeInto(edit, tr("заземл"));
    picture(tr("Поиск (Ctrl+F) по видимому тексту, по кругу."));
}

void Tour::sceneMarks(CVrkCliMod* window)
{
    click(home(window), "closeSearchButton");
    require(findRecord(window, tr("Установил")), tr("Запись о заземлении не найдена."));
    QMenu* menu = recordMenu(window);
    menu->close();
    menu->actions().at(1)->trigger();
    settle();
    QWidget* dialog = visibleDialog("SecondMarkerDialog");
    picture(tr("Второй маркер: заземление снято, кто и когда, видно в столбце и в подсказке."));
    answer(dialog, tr("Применить"));
}

void Tour::sceneExecution(CVrkCliMod* window)
{
    const auto* button = child<QToolButton>(window, "executionButton");
    const auto* approve = child<QAction>(window, "approveRecordAction");
    const auto isApproved = [&] { return button->isEnabled() && !approve->isEnabled(); };
    require(findRecord(window, tr("Не выполнено"), isApproved), tr("Невыполненное распоряжение не найдено."));
    QWidget* dialog = openedBy(window, "executionButton", "TimeExecutionDialog");
    picture(tr("Время выполнения распоряжения."));
    addRecord(
        window, [&] { answer(dialog, tr("Применить")); }, tr("Время выполнения не записано."));
    picture(tr("Утверждённая запись заменена новой с временем выполнения; прежняя осталась зачёркнутой."));
}

void Tour::sceneOrigin(CVrkCliMod* window)
{
    triggerEntry(window, tr("Перейти к первичной записи"));
    picture(tr("«Перейти к первичной записи» ведёт от новой записи к той, которую она заменила."));
}

void Tour::sceneComments(CVrkCliMod* window)
{
    require(findRecord(window, tr("Место повреждения по прибору")), tr("Запись об аварии не найдена."));
    QWidget* dialog = openedBy(home(window), "createCommentButton", "CommentCreatorDialog");
    typeInto(child<QTextEdit>(dialog, "commentEdit"),
             tr("Осциллограммы с двух концов линии переданы в службу РЗА."));
    picture(tr("Комментарий к записи об аварии."));
    const auto* list = child<QListWidget>(home(window), "commentsList");
    const int before = list->count();
    click(dialog, "applyButton");
    require(wait([&] { return list->count() > before; }), tr("Комментарий не появился."));
    click(window, "commentsButton");
    picture(tr("Все непрочитанные комментарии к своим записям собраны на одной вкладке."));
    child<QTabWidget>(window, "logbooks")->setCurrentIndex(0);
}

void Tour::sceneFiles(CVrkCliMod* window)
{
    auto* panes = child<QTabWidget>(home(window), "additionalTab");
    panes->setCurrentIndex(1);
    require(child<QTableWidget>(home(window), "filesTable")->rowCount() > 0,
            tr("У записи об аварии нет файлов."));
    picture(tr("Файлы записи об аварии: осциллограмма, снимок, схема."));
    panes->setCurrentIndex(0);
}

void Tour::sceneReport(CVrkCliMod* window)
{
    QWidget* report = openedBy(window, "reportButton", "ReportDialog");
    picture(tr("Отчёт (Ctrl+P): записи, которые видны в журнале."));
    QWidget* preview = openedBy(report, "printButton", "VrkPreviewWindow");
    picture(tr("Просмотр страниц: так отчёт печатается и сохраняется в PDF."));
    preview->close();
    report->close();
    settle();
}
