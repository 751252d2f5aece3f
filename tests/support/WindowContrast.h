#pragma once

#include "Contrast.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

/// Measures every text of a window, as it is drawn, against its background. Base of the tests of legible windows.
class WindowContrast
{
protected:
    /// A place of a window in which there is a text, with nothing else but its background.
    struct Place {
        QString text;
        QRect rect;
        bool isEnabled;
    };
    static constexpr double forDisabled = 3;

    static QString textOf(const QWidget* widget)
    {
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            return label->pixmap(Qt::ReturnByValue).isNull() ? label->text() : QString();
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            const auto* tool = qobject_cast<const QToolButton*>(widget);
            const bool hasText =
                !tool || tool->icon().isNull() || tool->toolButtonStyle() != Qt::ToolButtonIconOnly;
            return hasText ? button->text() : QString();
        }
        if (const auto* line = qobject_cast<const QLineEdit*>(widget))
            return line->text().isEmpty() ? line->placeholderText() : line->text();
        if (const auto* box = qobject_cast<const QComboBox*>(widget))
            return box->isEditable() ? QString() : box->currentText();
        if (const auto* group = qobject_cast<const QGroupBox*>(widget))
            return group->title();
        if (const auto* edit = qobject_cast<const QTextEdit*>(widget))
            return edit->toPlainText();
        if (const auto* edit = qobject_cast<const QPlainTextEdit*>(widget))
            return edit->toPlainText();
        return QString();
    }
    /// Without the pictures and marks at the edges.
    static QRect rectOf(const QWidget* widget)
    {
        QRect rect = widget->rect().adjusted(3, 3, -3, -3);
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            if (!button->icon().isNull() || qobject_cast<const QCheckBox*>(button) ||
                qobject_cast<const QRadioButton*>(button))
                rect.setLeft(rect.left() + qMax(button->iconSize().width(), 24) + 4);
            if (const auto* tool = qobject_cast<const QToolButton*>(button); tool && tool->menu())
                rect.setRight(rect.right() - 16);
        } else if (const auto* box = qobject_cast<const QComboBox*>(widget)) {
            const QIcon icon = box->itemIcon(box->currentIndex());
            rect.adjust(icon.isNull() ? 0 : box->iconSize().width() + 6, 0, -30, 0);
        } else if (qobject_cast<const QGroupBox*>(widget)) {
            rect = QRect(12, 0, widget->width() - 24, widget->fontMetrics().height());
        } else if (const auto* line = qobject_cast<const QLineEdit*>(widget)) {
            const int side = line->isClearButtonEnabled() || !line->actions().isEmpty() ? line->height() : 0;
            rect.adjust(side, 0, -side, 0);
        }
        return rect;
    }
    static void addCells(const QAbstractItemView* view, const QWidget* window, QVector<Place>* places)
    {
        const QAbstractItemModel* model = view->model();
        QModelIndexList open{QModelIndex()};
        while (model && !open.isEmpty()) {
            const QModelIndex parent = open.takeFirst();
            for (int row = 0; row < qMin(model->rowCount(parent), 60); ++row) {
                for (int column = 0; column < model->columnCount(parent); ++column) {
                    const QModelIndex index = model->index(row, column, parent);
                    if (column == 0 && model->hasChildren(index))
                        open.append(index);
                    const QRect whole = view->visualRect(index);
                    QRect rect = whole & view->viewport()->rect();
                    if (rect.top() > whole.top())
                        continue; // the part left may show no letter
                    const QString text = index.data().toString();
                    if (index.data(Qt::DecorationRole).isValid())
                        rect.setLeft(rect.left() + view->iconSize().width() + 24);
                    if (text.isEmpty() || rect.width() < 20 || rect.height() < view->fontMetrics().height())
                        continue;
                    places->append({text, QRect(view->viewport()->mapTo(window, rect.topLeft()), rect.size()),
                                    view->isEnabled() && model->flags(index).testFlag(Qt::ItemIsEnabled)});
                }
            }
        }
    }
    static QVector<Place> placesOf(const QWidget* window)
    {
        QVector<Place> places;
        for (const QWidget* widget : window->findChildren<QWidget*>()) {
            if (widget->window() != window || !widget->isVisible())
                continue;
            if (const auto* view = qobject_cast<const QAbstractItemView*>(widget))
                addCells(view, window, &places);
            if (const auto* bar = qobject_cast<const QTabBar*>(widget)) {
                for (int i = 0; i < bar->count(); ++i) {
                    const int icon = bar->tabIcon(i).isNull() ? 4 : bar->iconSize().width() + 12;
                    const QRect rect = bar->tabRect(i).adjusted(icon, 4, -6, -4);
                    places.append({bar->tabText(i), QRect(bar->mapTo(window, rect.topLeft()), rect.size()),
                                   bar->isTabEnabled(i)});
                }
            }
            const QString text = textOf(widget).simplified();
            const QRect rect = rectOf(widget);
            if (!text.isEmpty() && QRegion(rect).subtracted(widget->visibleRegion()).isEmpty())
                places.append(
                    {text, QRect(widget->mapTo(window, rect.topLeft()), rect.size()), widget->isEnabled()});
        }
        return places;
    }
    /// The contrast of the strongest pixel with the commonest one.
    static double contrastIn(const QImage& image, const QRect& place)
    {
        QHash<QRgb, int> counts;
        const QRect rect = place & image.rect();
        for (int y = rect.top(); y <= rect.bottom(); ++y)
            for (int x = rect.left(); x <= rect.right(); ++x)
                ++counts[image.pixel(x, y)];
        QRgb ground = 0;
        for (auto it = counts.cbegin(); it != counts.cend(); ++it)
            if (it.value() > counts.value(ground))
                ground = it.key();
        double most = 1;
        for (auto it = counts.cbegin(); it != counts.cend(); ++it)
            most = qMax(most, Contrast::between(QColor(it.key()), QColor(ground)));
        return most;
    }
    /// Texts with too little contrast; counts those that were measured.
    static QStringList faults(QWidget* window, int* measured)
    {
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            QFont font = widget->font();
            if (font.styleStrategy() & QFont::NoAntialias)
                continue;
            font.setStyleStrategy(QFont::NoAntialias);
            widget->setFont(font);
        }
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
        const QImage image = window->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QStringList found;
        for (const Place& place : placesOf(window)) {
            if ((place.rect & image.rect()).isEmpty())
                continue;
            ++*measured;
            const double contrast = contrastIn(image, place.rect);
            if (contrast < (place.isEnabled ? Contrast::forTexts : forDisabled))
                found << QStringLiteral("%1: \"%2\" %3")
                             .arg(window->windowTitle(), place.text.left(40))
                             .arg(contrast);
        }
        return found;
    }

    static void themes()
    {
        QTest::addColumn<QString>("theme");
        for (const char* theme : {"light", "dark", "contrast"})
            QTest::newRow(theme) << QString::fromLatin1(theme);
    }
    static void compare(const QStringList& found, int measured, int least)
    {
        for (const QString& fault : found)
            qWarning("%s", qPrintable(fault));
        QCOMPARE(found.size(), 0);
        QVERIFY2(measured >= least, qPrintable(QString::number(measured)));
    }
};
