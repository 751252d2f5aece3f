#pragma once

#include "CVrkCliMod.h"
#include "RecordList.h"
#include "TestClient.h"
#include "TestFolder.h"
#include "VrkTableModel.h"

#include <QAbstractProxyModel>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

/// A module that shows records of many shifts, on a test store and with its own settings; its requests to
/// the journal are recorded instead of executed.
template <class Module>
class ArchiveBench
{
public:
    explicit ArchiveBench(const QString& login = QStringLiteral("ivanov")) : m_login(login)
    {
        QCoreApplication::setOrganizationName(QStringLiteral("vrk-test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
        QSettings().clear();
    }

    void start(const QByteArray& department = QByteArray())
    {
        m_module.reset();
        m_client = std::make_unique<TestClient>(store, m_login, department);
        begin();
    }
    /// On a store that fails on request of the test.
    void startOn(std::unique_ptr<Store> other)
    {
        m_client = std::make_unique<TestClient>(std::move(other));
        m_client->app().m_user_params.setValue(QStringLiteral("DEPARTMENTKEY"), QStringLiteral("DEP_CDS"));
        begin();
    }
    void stop() { m_module.reset(); }

    Module& module() { return *m_module; }
    TestClient& client() { return *m_client; }
    template <class Widget>
    Widget* child(const char* name)
    {
        auto* found = m_module->template findChild<Widget*>(QLatin1String(name));
        if (!found)
            qFatal("no child %s", name);
        return found;
    }
    RecordList* list() { return m_module->template findChild<RecordList*>(); }
    QTableView* view() { return child<QTableView>("foundTable"); }
    /// Keys of the shown rows, from top to bottom.
    QStringList keys()
    {
        QStringList all;
        for (int row = 0; row < view()->model()->rowCount(); ++row)
            all.append(cell(row, "KeyLink").toString());
        return all;
    }
    QVariant cell(int row, const char* field, int role = Qt::DisplayRole)
    {
        const auto* proxy = qobject_cast<QAbstractProxyModel*>(view()->model());
        const auto* model = qobject_cast<const VrkTableModel*>(proxy->sourceModel());
        return proxy->index(row, model->idxField(QLatin1String(field))).data(role);
    }
    void doubleClick(int row)
    {
        QTest::qWait(0); // rows are measured
        const QPoint place(view()->viewport()->width() - 20, view()->rowViewportPosition(row) + 5);
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseDClick(view()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }
    /// Writes a row in the role of imports and delivers its events.
    void write(const char* table, MDRFlag flag, const char* key, const TestStore::Fields& fields = {})
    {
        StoreError error;
        if (!TestStore::write(store.openLoader().get(), table, flag, key, fields, &error))
            qFatal("%s", qPrintable(error.text + error.detail));
        if (m_client)
            m_client->deliver();
    }

    TestStore store;
    QStringList asked; ///< "module notice value"

private:
    void begin()
    {
        m_module = std::make_unique<Module>(&m_client->app());
        m_client->app().setModuleOpener([this](const QString& name) {
            asked.append(name);
            return m_journal.get();
        });
        m_journal = std::make_unique<Journal>(&m_client->app(), &asked);
        m_module->show();
        m_module->ModuleStart();
        if (!QTest::qWaitForWindowActive(m_module.get()))
            qFatal("the window does not become active");
        m_client->deliver();
    }

    struct Journal : CVrkCliMod {
        Journal(CVrkCliApp* app, QStringList* to) : CVrkCliMod(app), asked(to) {}
        void slot_modNotify(QString name, QVariant value) override
        {
            asked->last() += QLatin1Char(' ') + name + QLatin1Char(' ') + value.toString();
        }
        QStringList* asked;
    };

    QTemporaryDir m_settings{testFolderTemplate()};
    QString m_login;
    std::unique_ptr<TestClient> m_client;
    std::unique_ptr<Journal> m_journal;
    std::unique_ptr<Module> m_module;
};
