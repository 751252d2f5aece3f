#include "SearchMenu.h"

#include "ShownText.h"

#include <QInputDialog>
#include <QMenu>

SearchMenu::AskName& SearchMenu::askName()
{
    static AskName current = [](QWidget* parent, const QString& title, const QString& proposed) {
        return QInputDialog::getText(parent, title, tr("Название:"), QLineEdit::Normal, proposed).trimmed();
    };
    return current;
}

SearchMenu::SearchMenu(QWidget* parent) : QToolButton(parent)
{
    setText(tr("Поис&ки"));
    setToolTip(tr("Сохранённые и последние поиски"));
    setPopupMode(QToolButton::InstantPopup);
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    setFocusPolicy(Qt::StrongFocus);
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("searchMenu"));
    setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, &SearchMenu::fill);
}

void SearchMenu::init(UserSettings* settings, std::function<KeptSearch()> current)
{
    m_book = std::make_unique<SearchBook>(settings);
    m_current = std::move(current);
}

void SearchMenu::addSearches(const QVector<KeptSearch>& searches, const QString& name)
{
    for (const KeptSearch& one : searches) {
        QAction* action = menu()->addAction(ShownText::entry(one.name));
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, [this, one] { emit chosen(one); });
    }
}

void SearchMenu::fill()
{
    qDeleteAll(menu()->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)); // clear() leaves them
    menu()->clear();
    if (!m_book)
        return;
    const QVector<KeptSearch> saved = m_book->saved();
    addSearches(saved, QStringLiteral("savedSearch"));
    menu()->addSection(tr("Последние"));
    addSearches(m_book->last(), QStringLiteral("lastSearch"));
    menu()->addSeparator();
    QAction* save = menu()->addAction(tr("Сохранить поиск..."), this, &SearchMenu::saveCurrent);
    save->setObjectName(QStringLiteral("saveSearch"));
    if (saved.isEmpty())
        return;
    QMenu* rename = menu()->addMenu(tr("Переименовать"));
    QMenu* remove = menu()->addMenu(tr("Удалить"));
    for (const KeptSearch& one : saved) {
        const QString name = one.name;
        QAction* renaming =
            rename->addAction(ShownText::entry(name) + QStringLiteral("..."), this, [this, name] {
                m_book->rename(name, askName()(window(), tr("Переименовать поиск"), name));
            });
        renaming->setObjectName(QStringLiteral("renameSearch"));
        QAction* removing =
            remove->addAction(ShownText::entry(name), this, [this, name] { m_book->remove(name); });
        removing->setObjectName(QStringLiteral("removeSearch"));
    }
}

void SearchMenu::saveCurrent()
{
    KeptSearch search = m_current();
    search.name = askName()(window(), tr("Сохранить поиск"), search.name);
    if (!search.name.isEmpty())
        m_book->save(search);
}
