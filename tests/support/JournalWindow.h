#pragma once

#include "CloseWorkshiftDialog.h"
#include "CPopMessageBox.h"
#include "CVrkLogBook.h"
#include "LogBookWidget.h"
#include "OpenWorkshiftDialog.h"
#include "TestClient.h"

#include <memory>
#include <QAction>
#include <QLabel>

/// The whole journal window of one login on a test store, as a separate workstation: several of them can
/// use one store. Changes of another one arrive when the event loop runs or deliver() is called, not
/// before.
class JournalWindow
{
public:
    explicit JournalWindow(const TestStore& store, const QString& login,
                           const QByteArray& department = QByteArray());

    /// On its own store, signed in already as \a login.
    JournalWindow(std::unique_ptr<Store> store, const QString& login, const QString& department,
                  const QString& organization);

    TestClient& client() { return m_client; }
    CVrkLogBook& window() { return *m_window; }
    LogBookWidget& home() { return *m_home; }
    void deliver() { m_client.deliver(); }

    /// A child of the window by its object name; aborts the program if there is none.
    template <class Widget>
    Widget* child(const char* name)
    {
        return childOf<Widget>(m_window.get(), name);
    }
    template <class Widget>
    static Widget* childOf(const QObject* parent, const char* name)
    {
        auto* widget = parent->findChild<Widget*>(QLatin1String(name));
        if (!widget)
            qFatal("no child %s", name);
        return widget;
    }
    /// Triggers an action of the tool bar; a disabled one does nothing.
    void trigger(const char* action) { child<QAction>(action)->trigger(); }
    bool isEnabled(const char* action) { return child<QAction>(action)->isEnabled(); }
    QString status() { return child<QLabel>("statusLabel")->text(); }
    QString interval() { return child<QLabel>("intervalLabel")->text(); }

    OpenWorkshiftDialog* opening() { return m_window->findChild<OpenWorkshiftDialog*>(); }
    CloseWorkshiftDialog* closing() { return m_window->findChild<CloseWorkshiftDialog*>(); }
    /// The message box that is shown, or null.
    CPopMessageBox* box() const;
    /// Presses the button of this role in the box; aborts the program if there is none.
    void answer(QDialogButtonBox::ButtonRole role);

    /// Shows the opening dialog, with an interval of one day from \a start.
    void requestOpening(const QDateTime& start);
    /// Shows the closing dialog; a question about drafts is answered with \a role.
    void requestClosing(QDialogButtonBox::ButtonRole role = QDialogButtonBox::NoRole);
    /// Adds a worker to the crew of a shift dialog through its button and the organization tree.
    void choose(const QWidget* dialog, const char* workerKey);
    /// Replaces the text of a dialog's parameter editor by typing.
    static void type(const QWidget* dialog, int parameter, const QString& text);
    /// The text of a dialog in the form to be written.
    static QString filled(const QWidget* dialog);

    /// The record with this key in the home tab, or null.
    MDRData* record(const QString& key);
    /// Makes the row of a shown record current.
    void select(const char* key);

private:
    void start(const QString& login);

    TestClient m_client;
    std::unique_ptr<CVrkLogBook> m_window;
    LogBookWidget* m_home = nullptr;
};
