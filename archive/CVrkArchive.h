#pragma once

#include "CVrkCliMod.h"
#include "KeyNames.h"
#include "RecordQuery.h"
#include "SearchBook.h"

#include <memory>
#include <QTimer>

class ListOutput;
class QComboBox;
namespace Ui
{
class CVrkArchive;
}

/// The window "Поиск по архиву": records of all shifts by words, equipment, department, author, period and
/// state, the newest first, with the search words marked. It searches shortly after typing and at once
/// after a choice, and changes nothing.
class CVrkArchive : public CVrkCliMod
{
    Q_OBJECT

public:
    explicit CVrkArchive(CVrkCliApp* app);
    ~CVrkArchive() override;

    /// On failure the window shows the reason in place of the list.
    bool ModuleStart() override;

    /// Number of hits shown at first, and added by "Показать ещё".
    static constexpr int hitsAtOnce = 500;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum Period { Always, Week, Month, Year, Chosen, SinceOwnShift }; // kept in settings

    void createConnections();
    KeptSearch content() const;
    void setContent(const KeptSearch& search);
    /// End of the user's last shift that is closed; 0 if there is none.
    double endOfOwnShift() const;
    void makeOutput();
    /// The query in words.
    QString caption() const;
    void fillWorkers();
    void clear();
    RecordQuery query() const;
    void searchAnew();
    void search();
    void showMore();
    /// Says why the list is empty, and what can be put out.
    void showFiltered();
    void tell(int found, qint64 milliseconds);
    /// Makes a combo box searchable by parts of names; text that is no name of the list reverts to the last
    /// choice.
    static void makeTypable(QComboBox* combo);

    std::unique_ptr<Ui::CVrkArchive> m_form;
    ListOutput* m_output = nullptr;
    KeyNames m_names;
    QTimer m_typing;
    QString m_emptyText;
    QString m_found; ///< how many records are shown, in words
    int m_limit = hitsAtOnce;
    bool m_isStarted = false;
};
