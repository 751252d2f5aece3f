#include "CVrkCliMod.h"
#include "Tour.h"
#include "TourHands.h"
#include "Workstation.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

using namespace TourHands;

namespace
{
QString tr(const char* text)
{
    return QCoreApplication::translate("Tour", text);
}

QString ownTemplate()
{
    return tr("Смена принята на щите");
}

QString convertedTemplate()
{
    return tr("Отключение ВЛ");
}

QWidget* commonPage(CVrkCliMod* window)
{
    auto* pages = window->findChild<QTabWidget*>(QStringLiteral("templatesTabWidget"));
    auto* page = window->findChild<QWidget*>(QStringLiteral("publicTemplates"));
    pages->setCurrentWidget(page);
    return page;
}

/// Types into the search line of the page; true if an item with this name is then current.
bool find(QWidget* page, const QString& name)
{
    auto* line = page->findChild<QLineEdit*>(QStringLiteral("searchEdit"));
    line->setFocus();
    line->clear();
    type(page->window(), name);
    return page->findChild<QTreeView*>(QStringLiteral("templatesTree"))->currentIndex().data().toString() ==
           name;
}

/// Finds a parameter in the list next to the text and inserts it at the cursor.
void insertParameter(QWidget* page, const QString& name)
{
    page->findChild<QToolButton*>(QStringLiteral("findParameterButton"))->click();
    page->findChild<QLineEdit*>(QStringLiteral("parameterSearch"))->clear();
    type(page->window(), name);
    press(page->window(), Qt::Key_Return);
}
} // namespace

bool Tour::playTemplates(CVrkCliMod* journal)
{
    journal->hide();
    Options options;
    options.keepsTexts = false;
    options.store = m_store;
    options.user = QStringLiteral("admin");
    bool played = false;
    {
        Workstation desk;
        CVrkCliMod* configurator =
            desk.enter(options) ? desk.startModule(QStringLiteral("template")) : nullptr;
        if (!configurator)
            return fail(desk.errorText());
        configurator->resize(1280, 800);
        played = sceneOwnTemplate(configurator);
        configurator->hide();
        CVrkCliMod* converter = played ? desk.startModule(QStringLiteral("converter")) : nullptr;
        if (played && !converter)
            return fail(desk.errorText());
        played = played && sceneConverter(converter);
        if (converter)
            converter->hide();
        configurator->show();
        played = played && sceneConverted(configurator);
    }
    journal->show();
    settle();
    return played;
}

bool Tour::sceneOwnTemplate(CVrkCliMod* window)
{
    QWidget* page = commonPage(window);
    if (!find(page, tr("Оперативная смена")))
        return fail(tr("Категория не найдена."));
    settleAnimations();
    picture(tr("Конфигуратор администратора: шаблоны трёх уровней, поиск по дереву, справа паспорт."));
    if (!trigger(window, "createTemplateAction"))
        return fail(tr("Создание шаблона недоступно."));
    type(window, ownTemplate());
    page->findChild<QCheckBox*>(QStringLiteral("templateOpenBox"))->setFocus();
    press(window, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    page->findChild<QTextEdit*>(QStringLiteral("templateText"))->setFocus();
    type(window, tr("Смену "));
    insertParameter(page, tr("интервал"));
    type(window, tr(" приняли: "));
    insertParameter(page, tr("состав смены с группами"));
    type(window, tr(". Схема сверена по щиту. Замечания: "));
    insertParameter(page, tr("общие текст"));
    settleAnimations();
    picture(tr("Новый шаблон открытия смены: параметры вставлены с клавиатуры, внизу вид в журнале."));
    auto* save = window->findChild<QToolButton*>(QStringLiteral("saveButton"));
    save->click();
    if (!wait([save] { return !save->isEnabled(); }))
        return fail(tr("Шаблон не сохранён."));
    settleAnimations();
    picture(tr("Шаблон сохранён (Ctrl+S) и сразу действует на всех рабочих местах."));
    return true;
}

bool Tour::sceneConverter(CVrkCliMod* window)
{
    window->resize(1280, 720);
    picture(tr("Конвертер: таблицы прежнего журнала загружены, ничего ещё не изменено."));
    bool isShown = false;
    QTimer glance;
    QObject::connect(&glance, &QTimer::timeout, window, [&] {
        const auto* text = window->findChild<QLabel*>(QStringLiteral("loaderText"));
        if (isShown || !text || !text->isVisible() || !text->text().startsWith(tr("Обработано")))
            return;
        isShown = true;
        picture(tr("Конвертация идёт: окно закрыто индикатором, ход виден."));
    });
    glance.start(0);
    window->findChild<QPushButton*>(QStringLiteral("convertButton"))->click();
    glance.stop();
    if (!isShown)
        return fail(tr("Ход конвертации не был показан."));
    picture(tr("Отчёт: сколько обработано, чего нет в прежнем журнале; он же сохраняется файлом с каждым "
               "шаблоном."));
    auto* save = window->findChild<QPushButton*>(QStringLiteral("saveButton"));
    if (!save->isEnabled())
        return fail(tr("Конвертация не может быть сохранена."));
    save->click();
    picture(tr("Параметры и шаблоны сохранены двумя блоками."));
    return true;
}

bool Tour::sceneConverted(CVrkCliMod* window)
{
    QWidget* page = commonPage(window);
    if (!wait([page] { return find(page, convertedTemplate()); }))
        return fail(tr("Преобразованный шаблон не найден в конфигураторе."));
    settleAnimations();
    picture(tr("Преобразованный шаблон в конфигураторе: маркеры, команда и параметры на месте."));
    return true;
}

bool Tour::chooseOwnTemplate(QWidget* dialog)
{
    auto* templates = dialog->findChild<QWidget*>(QStringLiteral("templatesWidget"));
    auto* line = templates ? templates->findChild<QLineEdit*>(QStringLiteral("searchEdit")) : nullptr;
    if (!line)
        return fail(tr("В окне открытия смены нет поиска шаблона."));
    line->setFocus();
    type(dialog, ownTemplate());
    press(dialog, Qt::Key_Return);
    settle();
    return true;
}

bool Tour::sceneConvertedRecord(CVrkCliMod* journal)
{
    QWidget* dialog = openedBy(journal, "createButton", "RecordCreatorDialog");
    if (!dialog)
        return fail(tr("Окно новой записи не открылось."));
    type(dialog, convertedTemplate());
    press(dialog, Qt::Key_Return);
    settle();
    // The time is filled in already. Enter takes the suggestion, Tab goes on.
    fill(dialog, {tr("Ольховка"), tr("Ольховка"), tr("В-110"), tr("успешно"), tr("гроза"),
                  tr("перекрытие изоляции в грозу")});
    picture(tr("Запись по преобразованному шаблону: списки, время и оборудование заполняются как у новых."));
    const QAbstractItemView* view = records(journal);
    const int before = view->model()->rowCount();
    press(dialog, Qt::Key_Return, Qt::ControlModifier);
    if (!wait([&] { return !dialog->isVisible() && view->model()->rowCount() > before; }))
        return fail(tr("Запись по преобразованному шаблону не сохранилась."));
    picture(tr("Она внесена в журнал с первым маркером."));
    return true;
}
