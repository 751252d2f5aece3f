#pragma once

#include "CMDArray.h"
#include "SearchWords.h"

#include <memory>
#include <QWidget>

class CVrkCliMod;
class KeyNames;
class QAction;
class QLabel;
class QMenu;
class QStackedLayout;
class QTableView;
class VrkTableTool;

/// A read-only table of journal records out of many shifts, and in its place a text while there is none. A double click, or
/// Enter, shows the record in the journal; Ctrl+C copies what is to be read.
class RecordList : public QWidget
{
    Q_OBJECT

public:
    explicit RecordList(QWidget* parent = nullptr);
    ~RecordList() override;

    /// Makes the table of a module. \a names is not owned.
    void init(CVrkCliMod* module, const KeyNames* names);

    /// The fields of LogbookRecordFields, then DepartmentKey, startTime and endTime of the shift, and lacks, a sum of
    /// RecordRules::Lack.
    CMDArray& records() { return m_records; }
    VrkTableTool* tool() const { return m_tool; }
    QTableView* view() const { return m_view; }
    void setColumnVisible(const char* field, bool visible);

    /// Takes the rows of an answer over, by position, in place of those that are there. The words of \a terms are marked.
    /// The current record stays current when it is there again, otherwise the first becomes it.
    void replace(const MDArray* answer, const QVector<SearchWords::Term>& terms = {});
    /// A fresh record with the stored values of \a source, whose fields \a type tells, by position, to be changed and given to add().
    template <class Type>
    MDRData* made(const Type* type, const MDRData* source)
    {
        MDRData* record = MDARecNew(m_records.array);
        for (int number = 0; MDRFldByNum(type, number) && number < recordFields; ++number) {
            MDRVar value;
            MDRGetVal(MDRFldByNum(type, number), source, &value);
            MDRSetVal(MDRFldByNum(m_records.array, number), record, &value);
        }
        return record;
    }
    void add(MDRData* record);
    void remove(const QByteArray& recordKey);
    bool contains(const QByteArray& recordKey) const;
    int count() const;

    /// What stands in place of the table while no row is shown.
    void setEmptyText(const QString& text);
    QByteArray currentKey() const;
    /// Makes a record current when it is shown.
    void makeCurrent(const QByteArray& recordKey);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Cells;
    static constexpr int recordFields = 15;

    void openCurrent();
    void copyCurrent();
    void showMenu(const QPoint& place);
    void showWhatIsThere();
    MDRData* recordOf(const QByteArray& key) const;

    CVrkCliMod* m_module = nullptr;
    CMDArray m_records;
    QVector<SearchWords::Term> m_terms;
    QStackedLayout* m_pages;
    QTableView* m_view;
    QLabel* m_empty;
    VrkTableTool* m_tool = nullptr;
    std::unique_ptr<Cells> m_cells;
    QMenu* m_menu;
    QAction* m_showAction;
    QAction* m_copyAction;
};
