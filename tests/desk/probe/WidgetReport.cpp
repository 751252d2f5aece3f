#include "WidgetReport.h"

#include "WidgetCut.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QTextDocumentFragment>
#include <QTextEdit>
#include <QWindow>

namespace
{
constexpr int cellsAtMost = 4000;

/// Constant for the widget's lifetime.
double idOf(const QWidget* widget)
{
    return double(quintptr(widget));
}

QString plain(QString text)
{
    return text.remove(QLatin1Char('&'));
}

QJsonArray place(const QWidget* widget, const QRect& inside)
{
    const double ratio = widget->devicePixelRatioF();
    const QPoint corner = widget->mapToGlobal(inside.topLeft());
    return {qRound(corner.x() * ratio), qRound(corner.y() * ratio), qRound(inside.width() * ratio),
            qRound(inside.height() * ratio)};
}

QString textOf(const QWidget* widget)
{
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return plain(button->text());
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        if (Qt::mightBeRichText(label->text()))
            return QTextDocumentFragment::fromHtml(label->text()).toPlainText();
        return label->buddy() ? plain(label->text()) : label->text();
    }
    if (const auto* line = qobject_cast<const QLineEdit*>(widget))
        return line->displayText();
    if (const auto* edit = qobject_cast<const QTextEdit*>(widget))
        return edit->toPlainText();
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(widget))
        return edit->toPlainText();
    if (const auto* combo = qobject_cast<const QComboBox*>(widget))
        return combo->currentText();
    if (const auto* spin = qobject_cast<const QAbstractSpinBox*>(widget))
        return spin->text();
    if (const auto* group = qobject_cast<const QGroupBox*>(widget))
        return group->title();
    return QString();
}

QJsonObject item(const QString& text, const QJsonArray& rect, bool isCurrent, bool isSelected, bool isEnabled)
{
    return {{QStringLiteral("text"), text},
            {QStringLiteral("rect"), rect},
            {QStringLiteral("current"), isCurrent},
            {QStringLiteral("selected"), isSelected},
            {QStringLiteral("enabled"), isEnabled}};
}

/// A row of the view: the texts of its cells separated by bars.
QJsonObject row(const QAbstractItemView* view, const QModelIndex& first)
{
    const QAbstractItemModel* model = view->model();
    QStringList texts;
    QRect rect = view->visualRect(first);
    bool isSelected = false;
    for (int column = 0; column < model->columnCount(first.parent()); ++column) {
        const QModelIndex cell = first.sibling(first.row(), column);
        QVariant shown = cell.data();
        if (!shown.isValid() || shown.toString().isEmpty())
            shown = cell.data(Qt::EditRole);
        texts << shown.toString();
        rect |= view->visualRect(cell);
        isSelected = isSelected || view->selectionModel()->isSelected(cell);
    }
    rect &= view->viewport()->rect();
    const QModelIndex current = view->currentIndex();
    const bool isCurrent =
        current.row() == first.row() && current.parent() == first.parent() && current.isValid();
    QJsonObject made = item(texts.join(QLatin1Char('|')), place(view->viewport(), rect), isCurrent,
                            isSelected, first.flags() & Qt::ItemIsEnabled);
    if (first.data(Qt::CheckStateRole).isValid())
        made.insert(QStringLiteral("checked"), first.data(Qt::CheckStateRole).toInt() == Qt::Checked);
    return made;
}

void addRows(const QAbstractItemView* view, const QModelIndex& parent, QJsonArray* rows, int* cells)
{
    const QAbstractItemModel* model = view->model();
    for (int i = 0; i < model->rowCount(parent) && *cells < cellsAtMost; ++i) {
        const QModelIndex first = model->index(i, 0, parent);
        *cells += model->columnCount(parent);
        if (view->visualRect(first).isValid() || parent == QModelIndex())
            rows->append(row(view, first));
        if (model->hasChildren(first) && view->inherits("QTreeView"))
            addRows(view, first, rows, cells);
    }
}

QJsonArray itemsOf(const QWidget* widget)
{
    QJsonArray items;
    if (const auto* header = qobject_cast<const QHeaderView*>(widget)) {
        for (int i = 0; header->model() && header->orientation() == Qt::Horizontal && i < header->count();
             ++i) {
            if (header->isSectionHidden(i))
                continue;
            const QRect rect(header->sectionViewportPosition(i), 0, header->sectionSize(i), header->height());
            const QString text = header->model()->headerData(i, Qt::Horizontal).toString();
            items.append(item(text, place(header->viewport(), rect), false, false, true));
        }
    } else if (const auto* view = qobject_cast<const QAbstractItemView*>(widget)) {
        int cells = 0;
        if (view->model() && view->selectionModel())
            addRows(view, view->rootIndex(), &items, &cells);
    } else if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
        for (int i = 0; i < tabs->count(); ++i) {
            const bool isCurrent = i == tabs->currentIndex();
            items.append(item(plain(tabs->tabText(i)), place(tabs, tabs->tabRect(i)), isCurrent, isCurrent,
                              tabs->isTabEnabled(i)));
        }
    } else if (const auto* menu = qobject_cast<const QMenu*>(widget)) {
        for (QAction* action : menu->actions()) {
            if (action->isVisible() && !action->isSeparator())
                items.append(item(plain(action->text().section(QLatin1Char('\t'), 0, 0)),
                                  place(menu, menu->actionGeometry(action)), menu->activeAction() == action,
                                  action->isChecked(), action->isEnabled()));
        }
    }
    return items;
}

QJsonObject describe(const QWidget* widget)
{
    QJsonObject made{{QStringLiteral("id"), idOf(widget)},
                     {QStringLiteral("class"), QLatin1String(widget->metaObject()->className())},
                     {QStringLiteral("name"), widget->objectName()},
                     {QStringLiteral("rect"), place(widget, widget->rect())},
                     {QStringLiteral("enabled"), widget->isEnabled()}};
    const QRect seen = widget->visibleRegion().boundingRect();
    if (seen != widget->rect())
        made.insert(QStringLiteral("seen"), place(widget, seen));
    const QString text = textOf(widget);
    if (!text.isEmpty())
        made.insert(QStringLiteral("text"), text);
    if (const auto* line = qobject_cast<const QLineEdit*>(widget)) {
        if (!line->placeholderText().isEmpty())
            made.insert(QStringLiteral("hint"), line->placeholderText());
        made.insert(QStringLiteral("cursor"), line->cursorPosition());
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        if (button->isCheckable())
            made.insert(QStringLiteral("checked"), button->isChecked());
    }
    if (!widget->toolTip().isEmpty())
        made.insert(QStringLiteral("tip"), widget->toolTip());
    const QString cut = widgetCut(widget);
    if (!cut.isEmpty())
        made.insert(QStringLiteral("cut"), cut);
    const QJsonArray items = itemsOf(widget);
    if (!items.isEmpty())
        made.insert(QStringLiteral("items"), items);

    QJsonArray children;
    for (const QObject* child : widget->children()) {
        const auto* inner = qobject_cast<const QWidget*>(child);
        if (inner && !inner->isWindow() && inner->isVisible())
            children.append(describe(inner));
    }
    if (!children.isEmpty())
        made.insert(QStringLiteral("children"), children);
    return made;
}

/// Of a hidden window only the frame is reported: that it is hidden matters, its contents do not.
QJsonObject describeWindow(const QWidget* window)
{
    QJsonObject made;
    if (window->isVisible())
        made = describe(window);
    else
        made = QJsonObject{{QStringLiteral("id"), idOf(window)},
                           {QStringLiteral("class"), QLatin1String(window->metaObject()->className())},
                           {QStringLiteral("name"), window->objectName()}};
    made.insert(QStringLiteral("title"), window->windowTitle());
    made.insert(QStringLiteral("shown"), window->isVisible());
    made.insert(QStringLiteral("minimized"), window->isMinimized());
    made.insert(QStringLiteral("modal"), window->isModal());
    made.insert(QStringLiteral("popup"), window->windowType() == Qt::Popup ||
                                             window->windowType() == Qt::ToolTip ||
                                             window->windowType() == Qt::SplashScreen);
    made.insert(QStringLiteral("wid"), double(window->windowHandle()->winId()));
    made.insert(QStringLiteral("owner"), idOf(window->parentWidget()));
    return made;
}
} // namespace

QJsonObject WidgetReport::make()
{
    QJsonArray windows;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        // A window without a handle has never been shown.
        if (window->windowHandle() && window->windowHandle()->handle())
            windows.append(describeWindow(window));
    }
    return {{QStringLiteral("focus"), idOf(QApplication::focusWidget())},
            {QStringLiteral("active"), idOf(QApplication::activeWindow())},
            {QStringLiteral("popup"), idOf(QApplication::activePopupWidget())},
            {QStringLiteral("modal"), idOf(QApplication::activeModalWidget())},
            {QStringLiteral("windows"), windows}};
}
