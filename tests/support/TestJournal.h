#pragma once

#include "CPopMessageBox.h"
#include "LocationInfo.h"
#include "LogBookWidget.h"
#include "TestClient.h"

#include <memory>
#include <QTableView>

class CLiteModel;

/// One journal page of a login on a test store, created like in the journal window: a module with the
/// reference tables, the location of the user, the page in its own visible window; change events reach the
/// page through deliver().
class TestJournal
{
public:
    /// Loads the page at once; if \a isStarted is false, only start() does.
    explicit TestJournal(const TestStore& store, const QString& login = QStringLiteral("ivanov"),
                         const QByteArray& department = QByteArray(), bool isStarted = true);
    ~TestJournal();

    void start();
    LogBookWidget& tab() { return *m_tab; }
    LocationInfo& location() { return *m_location; }
    CVrkCliMod& module();
    CVrkCliSes& session() { return m_client.session(); }
    TestClient& client() { return m_client; }

    /// Delivers all committed changes and returns the page's answer to each event: "601 LogbookRecords 1".
    QStringList deliver();
    /// Passes a synthetic event to the page.
    bool send(int number, const QByteArray& key, const QByteArray& source,
              const QByteArray& packedRecord = QByteArray());

    /// A child of the page by its object name; the test ends if there is none.
    template <class Widget>
    Widget* child(const char* name)
    {
        auto* widget = m_tab->findChild<Widget*>(QLatin1String(name));
        if (!widget)
            qFatal("no widget %s", name);
        return widget;
    }
    QTableView* view() { return child<QTableView>("recordsTable"); }
    /// The page's record with this key, or null.
    MDRData* record(const char* key);
    /// Keys of the shown rows, from top to bottom.
    QStringList shownKeys();
    QString currentKey();
    /// Makes the record's row current, like a click.
    void select(const char* key);
    /// Text of a cell of a shown record in a role.
    QVariant cell(const char* key, const char* field, int role = Qt::DisplayRole);

    /// The message box if it is shown, otherwise null.
    CPopMessageBox* box();
    /// Presses a button of the box: the one of this role.
    void press(QDialogButtonBox::ButtonRole role);

private:
    class Module;

    TestClient m_client;
    std::unique_ptr<Module> m_module;
    std::unique_ptr<CLiteModel> m_tables;
    LocationInfo* m_location = nullptr;
    LogBookWidget* m_tab = nullptr;
};
