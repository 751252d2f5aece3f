#pragma once

#include "CPopMessageBox.h"
#include "CVrkTemplateEditor.h"
#include "LogWatch.h"
#include "RecordValue.h"
#include "TemplatesEditSourceModel.h"
#include "TemplatesProxyModel.h"
#include "TemplateTab.h"
#include "TestClient.h"

#include <QLineEdit>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

/// A configurator that a login has opened on a test store.
class Configurator
{
public:
    explicit Configurator(const TestStore& store, const QString& login = QStringLiteral("sidorova"),
                          const QByteArray& department = QByteArray())
        : m_client(std::make_unique<TestClient>(store, login, department))
    {
        open();
    }
    /// On its own client.
    explicit Configurator(std::unique_ptr<TestClient> client) : m_client(std::move(client)) { open(); }

    TestClient& client() { return *m_client; }
    CVrkTemplateEditor& window() { return *m_window; }
    bool isStarted() const { return m_started; }

    TemplateTab* page(const char* name) const
    {
        return m_window->findChild<TemplateTab*>(QLatin1String(name));
    }
    TemplateTab* common() const { return page("publicTemplates"); }
    TemplateTab* orgs() const { return page("orgsTemplates"); }
    TemplateTab* deps() const { return page("depsTemplates"); }
    QTabWidget* pages() const
    {
        return m_window->findChild<QTabWidget*>(QStringLiteral("templatesTabWidget"));
    }
    /// Brings a page to the front.
    TemplateTab* show(TemplateTab* page)
    {
        pages()->setCurrentWidget(page);
        return page;
    }
    template <typename Widget>
    Widget* child(const char* name) const
    {
        return m_window->findChild<Widget*>(QLatin1String(name));
    }
    template <typename Widget>
    static Widget* in(const TemplateTab* page, const char* name)
    {
        return page->findChild<Widget*>(QLatin1String(name));
    }
    static QTreeView* tree(const TemplateTab* page) { return in<QTreeView>(page, "templatesTree"); }
    static int passport(const TemplateTab* page)
    {
        return in<QStackedWidget>(page, "passportStack")->currentIndex();
    }

    /// The record with this key in the copies of the server's tables.
    static MDRData* record(const TemplateTab* page, const char* key)
    {
        MDRData* found = recordByKeyLink(&page->tables().categories, key);
        return found ? found : recordByKeyLink(&page->tables().templates, key);
    }
    static QModelIndex source(const TemplateTab* page, const char* key)
    {
        return page->model()->indexByRecord(record(page, key));
    }
    /// Makes the row of a record current, like a click.
    static bool select(TemplateTab* page, const char* key)
    {
        const QModelIndex index = page->proxy()->mapFromSource(source(page, key));
        tree(page)->setCurrentIndex(index);
        return index.isValid() && page->currentRecord() == record(page, key);
    }
    /// Makes a root row current.
    static bool selectRoot(TemplateTab* page, const QString& key)
    {
        for (int i = 0; i < page->proxy()->rowCount(); ++i) {
            const QModelIndex index = page->proxy()->index(i, 0);
            if (index.data(Qt::UserRole).toString() == key) {
                tree(page)->setCurrentIndex(index);
                return true;
            }
        }
        return false;
    }
    static QString currentKey(const TemplateTab* page)
    {
        return QString::fromUtf8(MDRValue::copy(Row(page->currentRecord()).value("KeyLink")));
    }
    static QString currentName(const TemplateTab* page)
    {
        return tree(page)->currentIndex().data().toString();
    }
    /// The shown rows, with an indent for each level.
    static QStringList shown(const TemplateTab* page)
    {
        QStringList lines;
        list(*page->proxy(), QModelIndex(), QString(), &lines);
        return lines;
    }
    /// The page's own message box, when it is visible.
    CPopMessageBox* box() const
    {
        for (CPopMessageBox* one : m_window->findChildren<CPopMessageBox*>())
            if (one->isVisible())
                return one;
        return nullptr;
    }
    QString boxText() const { return box() ? box()->text() : QString(); }
    void answer(const char* buttonName)
    {
        if (CPopMessageBox* one = box())
            QTest::mouseClick(one->findChild<QAbstractButton*>(QLatin1String(buttonName)), Qt::LeftButton);
    }
    void deliver() { m_client->deliver(); }
    /// Runs queued work of the event loop, then delivers.
    void settle()
    {
        QCoreApplication::processEvents();
        deliver();
    }

private:
    void open()
    {
        m_window = std::make_unique<CVrkTemplateEditor>(&m_client->app());
        m_window->show();
        m_client->session().startEvents();
        m_started = m_window->ModuleStart();
    }
    static void list(const QAbstractItemModel& model, const QModelIndex& parent, const QString& indent,
                     QStringList* lines)
    {
        for (int i = 0; i < model.rowCount(parent); ++i) {
            const QModelIndex index = model.index(i, 0, parent);
            lines->append(indent + index.data().toString());
            list(model, index, indent + QStringLiteral("  "), lines);
        }
    }

    std::unique_ptr<TestClient> m_client;
    std::unique_ptr<CVrkTemplateEditor> m_window;
    bool m_started = false;
};
