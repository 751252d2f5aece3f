#include "CVrkCliMod.h"
#include "Tour.h"
#include "TourHands.h"
#include "Workstation.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

using namespace TourHands;

namespace
{
QString ownTemplate()
{
    return Tour::tr("Смена принята на щите");
}

QString convertedTemplate()
{
    return Tour::tr("Отключение ВЛ");
}

QWidget* commonPage(CVrkCliMod* window)
{
    auto* page = child<QWidget>(window, "publicTemplates");
    child<QTabWidget>(window, "templatesTabWidget")->setCurrentWidget(page);
    return page;
}

/// Types into the search line of the page; true if an item with this name is then current.
bool find(QWidget* page, const QString& name)
{
    typeInto(child<QLineEdit>(page, "searchEdit"), name);
    return child<QTreeView>(page, "templatesTree")->currentIndex().data().toString() == name;
}

/// Finds a parameter in the list next to the text and inserts it at the cursor.
void insertParameter(QWidget* page, const QString& name)
{
    click(page, "findParameterButton");
    typeInto(child<QLineEdit>(page, "parameterSearch"), name);
    press(page->window(), Qt::Key_Return);
}
} // namespace

void Tour::playTemplates(CVrkCliMod* journal)
{
    journal->hide();
    {
        Workstation desk;
        signIn(&desk, m_store, QStringLiteral("admin"));
        CVrkCliMod* configurator = started(&desk, QStringLiteral("template"), 800);
        sceneOwnTemplate(configurator);
        configurator->hide();
        CVrkCliMod* converter = started(&desk, QStringLiteral("converter"), 720);
        sceneConverter(converter);
        converter->hide();
        configurator->show();
        sceneConverted(configurator);
    }
    journal->show();
    settle();
}

void Tour::sceneOwnTemplate(CVrkCliMod* window)
{
    QWidget* page = commonPage(window);
    require(find(page, tr("Оперативная смена")), tr("Категория не найдена."));
    settleAnimations();
    picture(tr("Конфигуратор администратора: шаблоны трёх уровней, поиск по дереву, справа паспорт."));
    trigger(window, "createTemplateAction");
    type(window, ownTemplate());
    child<QCheckBox>(page, "templateOpenBox")->setFocus();
    press(window, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    child<QTextEdit>(page, "templateText")->setFocus();
    type(window, tr("Смену "));
    insertParameter(page, tr("интервал"));
    type(window, tr(" приняли: "));
    insertParameter(page, tr("состав смены с группами"));
    type(window, tr(". Схема сверена по щиту. Замечания: "));
    insertParameter(page, tr("общие текст"));
    settleAnimations();
    picture(tr("Новый шаблон открытия смены: параметры вставлены с клавиатуры, внизу вид в журнале."));
    const auto* save = child<QToolButton>(window, "saveButton");
    click(window, "saveButton");
    require(wait([save] { return !save->isEnabled(); }), tr("Шаблон не сохранён."));
    settleAnimations();
    picture(tr("Шаблон сохранён (Ctrl+S) и сразу действует на всех рабочих местах."));
}

void Tour::sceneConverter(CVrkCliMod* window)
{
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
    click(window, "convertButton");
    glance.stop();
    require(isShown, tr("Ход конвертации не был показан."));
    picture(tr("Отчёт: сколько обработано, чего нет в прежнем журнале; он же сохраняется файлом с каждым "
               "шаблоном."));
    click(window, "saveButton");
    picture(tr("Параметры и шаблоны сохранены двумя блоками."));
}

void Tour::sceneConverted(CVrkCliMod* window)
{
    QWidget* page = commonPage(window);
    require(wait([page] { return find(page, convertedTemplate()); }),
            tr("Преобразованный шаблон не найден в конфигураторе."));
    settleAnimations();
    picture(tr("Преобразованный шаблон в конфигураторе: маркеры, команда и параметры на месте."));
}

void Tour::chooseOwnTemplate(QWidget* dialog)
{
    typeInto(child<QLineEdit>(child<QWidget>(dialog, "templatesWidget"), "searchEdit"), ownTemplate());
    press(dialog, Qt::Key_Return);
    settle();
}

void Tour::sceneConvertedRecord(CVrkCliMod* journal)
{
    QWidget* dialog = openedBy(journal, "createButton", "RecordCreatorDialog");
    type(dialog, convertedTemplate());
    press(dialog, Qt::Key_Return);
    settle();
    // The time is filled in already. Enter takes the suggestion, Tab goes on.
    fill(dialog, {tr("Ольховка"), tr("Ольховка"), tr("В-110"), tr("успешно"), tr("гроза"),
                  tr("перекрытие изоляции в грозу")});
    picture(tr("Запись по преобразованному шаблону: списки, время и оборудование заполняются как у новых."));
    addRecord(
        journal, [&] { press(dialog, Qt::Key_Return, Qt::ControlModifier); },
        tr("Запись по преобразованному шаблону не сохранилась."));
    picture(tr("Она внесена в журнал с первым маркером."));
}
