#pragma once

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSet>
#include <QTabBar>
#include <QTest>
#include <QTextBrowser>
#include <QTextEdit>

/// Checks a window for users who see badly or have no mouse: names for screen readers, Tab and Escape. Base of tests.
class AccessibleWindow
{
protected:
    static QString described(const QWidget* widget)
    {
        QStringList path;
        for (; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget())
            path.prepend(QStringLiteral("%1(%2)").arg(
                widget->objectName(), QString::fromLatin1(widget->metaObject()->className())));
        return path.mid(qMax(0, path.size() - 3)).join(QLatin1Char('/'));
    }
    /// Parts that Qt creates itself; their owners are checked.
    static bool isPart(const QWidget* widget)
    {
        if (widget->objectName().startsWith(QLatin1String("qt_")) || qobject_cast<const QHeaderView*>(widget))
            return true;
        const auto* area = qobject_cast<const QAbstractScrollArea*>(widget->parentWidget());
        if (area && area->viewport() == widget)
            return true;
        for (const QWidget* owner = widget->parentWidget(); owner && !widget->isWindow();
             owner = owner->parentWidget()) {
            if (qobject_cast<const QAbstractSpinBox*>(owner) || qobject_cast<const QComboBox*>(owner) ||
                qobject_cast<const QLineEdit*>(owner) || qobject_cast<const QHeaderView*>(owner) ||
                qobject_cast<const QTabBar*>(owner))
                return true;
            // The corner of a table that selects all, and the list behind a text.
            if (qobject_cast<const QAbstractItemView*>(owner) &&
                qobject_cast<const QAbstractButton*>(widget) && widget->objectName().isEmpty())
                return true;
        }
        return false;
    }
    static bool isControl(const QWidget* widget)
    {
        const bool isKind =
            qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLineEdit*>(widget) ||
            qobject_cast<const QTextEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget) ||
            qobject_cast<const QComboBox*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget) ||
            qobject_cast<const QAbstractItemView*>(widget);
        return (isKind || (widget->focusPolicy() & Qt::TabFocus)) && !isPart(widget);
    }
    static QVector<QWidget*> widgetsOf(QWidget* window)
    {
        QVector<QWidget*> found;
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            if (widget->window() == window)
                found.append(widget);
        }
        return found;
    }
    /// The name that a screen reader says for a widget.
    static QString nameOf(QWidget* widget)
    {
        const QAccessibleInterface* reported = QAccessible::queryAccessibleInterface(widget);
        return reported ? reported->text(QAccessible::Name).simplified() : QString();
    }
    static QStringList nameless(QWidget* window)
    {
        QStringList found;
        for (QWidget* widget : widgetsOf(window)) {
            if (!isControl(widget))
                continue;
            if (nameOf(widget).isEmpty())
                found << QStringLiteral("no name: ") + described(widget);
        }
        return found;
    }
    /// Controls of the same kind with the same name, so that nobody can hear where the focus is. The named groups
    /// around a control belong to its name.
    static QStringList confused(QWidget* window)
    {
        QHash<QString, QString> owners;
        QStringList found;
        for (QWidget* widget : widgetsOf(window)) {
            if (!isControl(widget) || !widget->isVisible() || !(widget->focusPolicy() & Qt::TabFocus))
                continue;
            const QAccessibleInterface* reported = QAccessible::queryAccessibleInterface(widget);
            QString key = QStringLiteral("%1 %2").arg(reported ? reported->role() : 0).arg(nameOf(widget));
            for (QWidget* group = widget->parentWidget(); group && group != window;
                 group = group->parentWidget())
                key += QLatin1Char('/') + nameOf(group);
            if (owners.contains(key))
                found << QStringLiteral("named \"%1\" twice: %2, %3")
                             .arg(nameOf(widget), owners.value(key), described(widget));
            owners.insert(key, described(widget));
        }
        return found;
    }
    static QStringList mnemonicsTwice(QWidget* window)
    {
        QHash<QString, QString> owners;
        QStringList found;
        for (QWidget* widget : widgetsOf(window)) {
            if (!widget->isVisible())
                continue;
            QStringList texts;
            if (const auto* button = qobject_cast<QAbstractButton*>(widget))
                texts << button->text();
            else if (const auto* group = qobject_cast<QGroupBox*>(widget))
                texts << group->title();
            else if (const auto* label = qobject_cast<QLabel*>(widget); label && label->buddy())
                texts << label->text();
            else if (const auto* bar = qobject_cast<QTabBar*>(widget))
                for (int i = 0; i < bar->count(); ++i)
                    texts << bar->tabText(i);
            for (const QString& text : texts) {
                const QString key = QKeySequence::mnemonic(text).toString();
                if (key.isEmpty())
                    continue;
                if (owners.contains(key))
                    found
                        << QStringLiteral("%1 twice: %2, %3").arg(key, owners.value(key), described(widget));
                owners.insert(key, described(widget));
            }
        }
        return found;
    }
    static void activate(QWidget* window)
    {
        window->show();
        QApplication::setActiveWindow(window);
        if (!QTest::qWaitForWindowActive(window))
            qWarning("not active: %s", qPrintable(described(window)));
    }
    /// Moves by Tab: no widget keeps the focus, and all that accept it are reached.
    static QStringList notReached(QWidget* window)
    {
        activate(window);
        QWidget* at = window->focusWidget();
        if (!at) {
            QTest::keyClick(window, Qt::Key_Tab);
            at = window->focusWidget();
        }
        const QWidget* start = at;
        QStringList found;
        QSet<QWidget*> visited;
        for (int steps = 0; at && steps < 400 && !visited.contains(at); ++steps) {
            visited.insert(at);
            // In a date Tab first moves from day to month to year, in a page from link to link.
            const int most = qobject_cast<QDateTimeEdit*>(at) ? 8 : qobject_cast<QTextBrowser*>(at) ? 100 : 1;
            QWidget* next = at;
            for (int press = 0; press < most && next == at; ++press) {
                QTest::keyClick(at, Qt::Key_Tab);
                next = window->focusWidget();
            }
            if (next == at)
                found << QStringLiteral("keeps Tab: ") + described(at);
            at = next;
        }
        if (at && at != start)
            found << QStringLiteral("Tab returns to ") + described(at) + QStringLiteral(", not to ") +
                         described(start);
        for (QWidget* widget : widgetsOf(window)) {
            const bool isWanted = isControl(widget) && widget->isVisible() && widget->isEnabled() &&
                                  (widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy();
            // In a group of radio buttons Tab reaches the checked one.
            const auto* button = qobject_cast<QAbstractButton*>(widget);
            const bool isOfGroup = button && button->autoExclusive() && !button->isChecked();
            if (isWanted && !isOfGroup && !visited.contains(widget))
                found << QStringLiteral("not reached: ") + described(widget);
        }
        return found;
    }
    /// Counts the requests to close a window, which stays open.
    struct CloseCount : QObject {
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() != QEvent::Close)
                return false;
            ++closes;
            event->ignore();
            return true;
        }
        int closes = 0;
    };
    /// Escape closes a dialog, wherever the focus is.
    static QStringList notClosed(QWidget* window)
    {
        QStringList found;
        CloseCount count;
        window->installEventFilter(&count);
        for (QWidget* widget : widgetsOf(window)) {
            if (!widget->isVisible() || !widget->isEnabled() || !(widget->focusPolicy() & Qt::TabFocus))
                continue;
            activate(window);
            widget->setFocus();
            const int before = count.closes;
            QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
            if (window->isVisible() && count.closes == before)
                found << QStringLiteral("keeps Escape: ") + described(widget);
        }
        window->removeEventFilter(&count);
        return found;
    }
    /// Modules and main windows stay open.
    static bool isDialog(QWidget* window)
    {
        return !window->inherits("CVrkCliMod") && !window->inherits("QMainWindow");
    }
    static QStringList faults(QWidget* window)
    {
        QCoreApplication::processEvents();
        QStringList found = nameless(window) + confused(window) + mnemonicsTwice(window);
        found += notReached(window);
        if (isDialog(window))
            found += notClosed(window);
        return found;
    }
    static void compare(const QStringList& found)
    {
        for (const QString& fault : found)
            qWarning("%s", qPrintable(fault));
        QCOMPARE(found.size(), 0);
    }
};
