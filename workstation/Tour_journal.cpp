#include "CVrkCliMod.h"
#include "Tour.h"
#include "TourHands.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>
#include <QTabWidget>
#include <QTextEdit>
#include <QToolButton>

using namespace TourHands;

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
    QWidget* dialog = openedBy(window, "createButton", "RecordCreatorDialog");
    if (!dialog)
        return fail(tr("Окно новой записи не открылось."));
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
    QWidget* box = openedBy(window, "approveButton", "CPopMessageBox");
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
    const QPoint place = records(window)->visualRect(records(window)->currentIndex()).center();
    QMetaObject::invokeMethod(records(window), "customContextMenuRequested", Q_ARG(QPoint, place));
    settle();
    picture(tr("Виза на собственную запись не предлагается."));
    if (QWidget* menu = QApplication::activePopupWidget())
        menu->close();
    return true;
}

bool Tour::sceneDeletion(CVrkCliMod* window)
{
    QWidget* box = openedBy(window, "deleteButton", "CPopMessageBox");
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
        return true; // the story may already be there at the start
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
    click(window, "searchButton");
    auto* edit = home(window)->findChild<QLineEdit*>(QStringLiteral("searchEdit"));
    if (!edit || !edit->isVisible())
        return fail(tr("Строка поиска не открылась."));
    edit->setFocus();
    type(window, tr("заземл"));
    picture(tr("Поиск (Ctrl+F) по видимому тексту, по кругу."));
    return true;
}

bool Tour::sceneMarks(CVrkCliMod* window)
{
    home(window)->findChild<QToolButton*>(QStringLiteral("closeSearchButton"))->click();
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
    const auto* button = window->findChild<QToolButton*>(QStringLiteral("executionButton"));
    const auto* approve = window->findChild<QAction*>(QStringLiteral("approveRecordAction"));
    const auto isApproved = [&] { return button->isEnabled() && !approve->isEnabled(); };
    if (!selectRecord(window, tr("Не выполнено"), isApproved))
        return fail(tr("Невыполненное распоряжение не найдено."));
    QWidget* dialog = openedBy(window, "executionButton", "TimeExecutionDialog");
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

bool Tour::sceneOrigin(CVrkCliMod* window)
{
    QAction* origin = recordEntry(window, tr("Перейти к первичной записи"));
    if (!origin)
        return fail(tr("Переход к первичной записи недоступен."));
    origin->trigger();
    picture(tr("«Перейти к первичной записи» ведёт от новой записи к той, которую она заменила."));
    return true;
}

bool Tour::sceneComments(CVrkCliMod* window)
{
    if (!selectRecord(window, tr("Место повреждения по прибору")))
        return fail(tr("Запись об аварии не найдена."));
    QWidget* dialog = openedBy(home(window), "createCommentButton", "CommentCreatorDialog");
    if (!dialog)
        return fail(tr("Окно комментария не открылось."));
    dialog->findChild<QTextEdit*>(QStringLiteral("commentEdit"))->setFocus();
    type(dialog, tr("Осциллограммы с двух концов линии переданы в службу РЗА."));
    picture(tr("Комментарий к записи об аварии."));
    auto* list = home(window)->findChild<QListWidget*>(QStringLiteral("commentsList"));
    const int before = list->count();
    dialog->findChild<QAbstractButton*>(QStringLiteral("applyButton"))->click();
    if (!wait([&] { return list->count() > before; }))
        return fail(tr("Комментарий не появился."));
    window->findChild<QToolButton*>(QStringLiteral("commentsButton"))->click();
    picture(tr("Все непрочитанные комментарии к своим записям собраны на одной вкладке."));
    window->findChild<QTabWidget*>(QStringLiteral("logbooks"))->setCurrentIndex(0);
    return true;
}

bool Tour::sceneFiles(CVrkCliMod* window)
{
    auto* panes = home(window)->findChild<QTabWidget*>(QStringLiteral("additionalTab"));
    panes->setCurrentIndex(1);
    const auto* files = home(window)->findChild<QTableWidget*>(QStringLiteral("filesTable"));
    if (files->rowCount() == 0)
        return fail(tr("У записи об аварии нет файлов."));
    picture(tr("Файлы записи об аварии: осциллограмма, снимок, схема."));
    panes->setCurrentIndex(0);
    return true;
}

bool Tour::sceneReport(CVrkCliMod* window)
{
    QWidget* report = openedBy(window, "reportButton", "ReportDialog");
    if (!report)
        return fail(tr("Окно отчёта не открылось."));
    picture(tr("Отчёт (Ctrl+P): записи, которые видны в журнале."));
    QWidget* preview = openedBy(report, "printButton", "VrkPreviewWindow");
    if (!preview)
        return fail(tr("Просмотр не открылся."));
    picture(tr("Просмотр страниц: так отчёт печатается и сохраняется в PDF."));
    preview->close();
    report->close();
    settle();
    return true;
}
