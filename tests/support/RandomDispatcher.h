#pragma once

#include "JournalWindow.h"

#include <QSet>
#include <QStringList>
#include <random>

class CommentCreatorDialog;
class CommentsWidget;
class CPopTemplate;
class LogBookTab;
class MarkTimeDialog;
class QAbstractButton;
class QTableView;
class RecordCreatorDialog;

/// A person at a journal window who performs random actions through its widgets, one in each step. The
/// sequence depends only on the generator, so a run can be repeated.
class RandomDispatcher
{
public:
    /// \a files is a folder with a file to attach.
    RandomDispatcher(std::unique_ptr<JournalWindow> window, const TestStore& store, const QString& login,
                     std::mt19937* random);
    ~RandomDispatcher();

    /// Performs one action. Returns a line that describes it.
    QString step();
    /// The store may refuse the last action although the window had all events: it used a dialog that was
    /// opened in an earlier state, or the window offers the action in any state.
    bool mayBeRefused() const { return m_mayBeRefused; }

    JournalWindow& window() { return *m_window; }
    QString login() const { return m_login; }
    /// The current page.
    LogBookTab* tab() const;
    static QTableView* view(const LogBookTab* tab);
    QList<LogBookWidget*> journals() const;
    QVector<CPopTemplate*> pops() const;
    /// A question or a small value dialog blocks the window's input.
    bool isGuarded() const;

    /// Answers or closes all open dialogs.
    void closePops();
    /// Typed texts that the user has not dropped, that were never in the store, and that no dialog of the
    /// window offers. Closes what is open; takes what is offered.
    QStringList lostTexts();

private:
    using Act = bool (RandomDispatcher::*)();
    struct Choice {
        const char* name;
        int weight;
        Act act;
    };
    static const std::vector<Choice>& choices();

    int pick(int count);
    bool press(QAbstractButton* button);
    bool trigger(const char* action, const char* button);
    template <class Widget>
    Widget* in(const QObject* parent, const char* name) const
    {
        return parent->findChild<Widget*>(QLatin1String(name));
    }
    QModelIndex anyRow();
    void clickOn(const QModelIndex& index);
    void setTime(const QWidget* dialog, const char* date, const char* time, const QDateTime& value);
    QString newText();
    /// Marks the content of this text as dropped by the user.
    void drop(const QString& text);
    void strikeOffered();
    void chooseWorker();

    // In the window.
    bool clickRow();
    bool clickUnderGuard();
    bool doubleClickRow();
    bool keyInTable();
    bool createRecord();
    bool approve();
    bool remove();
    bool sign();
    bool changeExecution();
    bool useRecordMenu();
    bool createComment();
    bool changeComment();
    bool removeComment();
    bool readComments();
    bool attachFile();
    bool useFile();
    bool changePeriod();
    bool changeTab();
    bool search();
    bool sort();
    bool changeShift();
    bool lookAround();

    // In the dialog above it.
    void actIn(CPopTemplate* pop);
    void actInBox(CPopMessageBox* box);
    void actInCreator(RecordCreatorDialog* dialog);
    void actInComment(CommentCreatorDialog* dialog);
    void actInMark(CPopTemplate* dialog);
    void actInOpening(OpenWorkshiftDialog* dialog);
    void actInClosing(CloseWorkshiftDialog* dialog);
    void actInAppending(CPopTemplate* dialog);
    void actInRange(CPopTemplate* dialog);
    void actInStructure(CPopTemplate* dialog);
    bool pressInBar(RecordCreatorDialog* dialog);
    bool typeInCreator(RecordCreatorDialog* dialog);

    std::unique_ptr<JournalWindow> m_window;
    const TestStore& m_store;
    QString m_login;
    std::mt19937* m_random;
    QTemporaryDir m_files;
    QStringList m_told;
    QSet<QString> m_typed;
    bool m_mayBeRefused = false;
};
