#pragma once

#include "CPopMessageBox.h"
#include "LocationInfo.h"
#include "LogBookWidget.h"
#include "TestClient.h"

#include <memory>
#include <QTableView>

class CLiteModel;

/// One journal page of a login over a test store, as the journal window makes it: a module with the reference tables,
/// the location of the user, the page in its own visible window; change events reach the page through deliver().
class TestJournal
{
public:
    /// Loads the page at once; with \a isStarted false only start() does.
    explicit TestJournal(const TestStore& store, const QString& login = QStringLiteral("ivanov"),
                         const QByteArray& department = QByteArray(), bool isStarted = true);
    ~TestJournal();

    void start();
    LogBookWidget& tab() { return *m_tab; }
    LocationInfo& location() { return *m_location; }
    CVrkCliMod& module();
    CVrkCliSes& session() { return m_client.session(); }
    TestClient& client() { return m_client; }

    /// Delivers all that was committed and returns what the page answered to each event: "601 LogbookRecords 1".
    QStringList deliver();
    /// Hands the page an event made by hand.
    bool send(int number, const QByteArray& key, const QByteArray& source,
              const QByteArray& packedRecord = QByteArray());

    /// A child of the page by its object name; the test ends when there is none.
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
    /// Keys of the rows shown, from top to bottom.
    QStringList shownKeys();
    QString currentKey();
    /// Makes the record's row current, as a click does.
    void select(const char* key);
    /// Text of a cell of a shown record in a role.
    QVariant cell(const char* key, const char* field, int role = Qt::DisplayRole);

    /// The message box when it is shown, else null.
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
