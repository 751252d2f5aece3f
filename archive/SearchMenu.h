#pragma once

#include "SearchBook.h"

#include <functional>
#include <QToolButton>

/// The button "Поиски" beside the words of the search: the saved searches and the last ones, and what can be done
/// with them.
class SearchMenu : public QToolButton
{
    Q_OBJECT

public:
    /// Asks for a name; empty if the user cancelled. Tests replace it.
    using AskName = std::function<QString(QWidget* parent, const QString& title, const QString& proposed)>;
    static AskName& askName();

    explicit SearchMenu(QWidget* parent = nullptr);

    /// \a current returns what the form contains. The settings are not owned.
    void init(UserSettings* settings, std::function<KeptSearch()> current);
    SearchBook& book() { return *m_book; }

signals:
    /// The form shall contain this.
    void chosen(const KeptSearch& search);

private:
    void fill();
    void saveCurrent();
    void addSearches(const QVector<KeptSearch>& searches, const QString& name);

    std::unique_ptr<SearchBook> m_book;
    std::function<KeptSearch()> m_current;
};
