#pragma once

#include "DirectoryWindow.h"
#include "NoticeBar.h"
#include "SaveDialog.h"
#include "SheetPage.h"
#include "TestStore.h"

#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QTest>

/// The window of the reference data over a real store, used with keys and buttons. Base of tests.
class DirectoryBench
{
protected:
    void start();
    void stop();

    SheetPage* open(const char* table);
    QTableView* table(const char* table) { return open(table)->table(); }
    QModelIndex cell(const char* table, const QByteArray& key, const QString& heading);
    QString shown(const char* table, const QByteArray& key, const QString& heading)
    {
        return cell(table, key, heading).data().toString();
    }
    void type(const char* table, const QByteArray& key, const QString& heading, const QString& text);
    void press(const char* action);
    template <class Widget>
    Widget* box() const;
    void answer(QDialog* dialog, const char* button);
    /// Saves and confirms.
    void save();
    QByteArray added(const char* table);
    QString notice() const { return m_window->findChild<NoticeBar*>(QStringLiteral("notice"))->text(); }
    QVariant value(const char* sql) const { return m_store->value(QString::fromUtf8(sql)); }

    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<DirectoryWindow> m_window;
};

inline void DirectoryBench::start()
{
    m_store = std::make_unique<TestStore>();
    m_window = std::make_unique<DirectoryWindow>(m_store->openLoader(), m_store->url());
    StoreError error;
    QVERIFY2(m_window->load(&error), qPrintable(error.text));
    m_window->show();
}

inline void DirectoryBench::stop()
{
    m_window.reset();
    m_store.reset();
}

inline SheetPage* DirectoryBench::open(const char* table)
{
    SheetPage* page = m_window->page(table);
    auto* names = m_window->findChild<QListWidget*>(QStringLiteral("sheets"));
    for (int row = 0; row < names->count() && !page->isVisible(); ++row)
        names->setCurrentRow(row);
    return page;
}

inline QModelIndex DirectoryBench::cell(const char* table, const QByteArray& key, const QString& heading)
{
    SheetPage* page = open(table);
    const Sheet& sheet = page->model()->sheet();
    const int column = int(sheet.column(heading) - sheet.columns.constData());
    page->showCell(key, column);
    return page->table()->currentIndex().sibling(page->table()->currentIndex().row(), column);
}

inline void DirectoryBench::type(const char* table, const QByteArray& key, const QString& heading,
                                 const QString& text)
{
    const QModelIndex index = cell(table, key, heading);
    QTableView* view = open(table)->table();
    view->setCurrentIndex(index);
    QTest::keyClick(view, Qt::Key_F2);
    auto* line = view->viewport()->findChild<QLineEdit*>();
    QVERIFY(line);
    line->selectAll();
    line->insert(text);
    open(table)->commit();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

inline void DirectoryBench::press(const char* action)
{
    auto* found = m_window->findChild<QAction*>(QLatin1String(action));
    QVERIFY2(found && found->isEnabled(), action);
    found->trigger();
}

template <class Widget>
Widget* DirectoryBench::box() const
{
    for (Widget* one : m_window->findChildren<Widget*>())
        if (one->isVisible())
            return one;
    return nullptr;
}

inline void DirectoryBench::answer(QDialog* dialog, const char* button)
{
    QVERIFY(dialog);
    auto* found = dialog->findChild<QPushButton*>(QLatin1String(button));
    QVERIFY2(found, button);
    QTest::mouseClick(found, Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

inline void DirectoryBench::save()
{
    press("save");
    QVERIFY2(box<SaveDialog>(), qPrintable(notice()));
    answer(box<SaveDialog>(), "write");
    QCOMPARE(notice(), QStringLiteral("Записано."));
}

inline QByteArray DirectoryBench::added(const char* table)
{
    SheetPage* page = open(table);
    press("add");
    page->commit();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return page->model()->rows().constLast().key;
}
