#pragma once

#include "CMDArray.h"
#include "Fields.h"
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

namespace Field
{
/// Only in this list: a combination of RecordRules::Lack.
inline constexpr NumberField lacks("lacks");
/// Numbers of the record's comments and files; shown in past states.
inline constexpr NumberField comments("comments");
inline constexpr NumberField files("files");
} // namespace Field

/// A read-only table of journal records from many shifts; while it is empty, a text is shown instead. A
/// double click, or Enter, shows the record in the journal; Ctrl+C copies the visible text.
class RecordList : public QWidget
{
    Q_OBJECT

public:
    explicit RecordList(QWidget* parent = nullptr);
    ~RecordList() override;

    /// Creates the table for a module. \a names is not owned.
    void init(CVrkCliMod* module, const KeyNames* names);

    /// The fields of LogbookRecordFields, then DepartmentKey, startTime and endTime of the shift, and
    /// `lacks`, a combination of RecordRules::Lack, `comments` and `files`, whose columns are hidden at first.
    CMDArray& records() { return m_records; }
    VrkTableTool* tool() const { return m_tool.get(); }
    QTableView* view() const { return m_view; }
    void setColumnVisible(const char* field, bool visible);

    /// Replaces the rows by those of an answer, copied by position. The words of \a terms are marked. The
    /// current record stays current if it is there again, otherwise the first one becomes current.
    void replace(const MDArray* answer, const QVector<SearchWords::Term>& terms = {});
    /// A fresh record with the stored values of \a source, copied by position; \a type describes its
    /// fields. Change it and pass it to add().
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
    bool contains(const QByteArray& recordKey) const { return recordOf(recordKey) != nullptr; }
    int count() const { return m_records.RecCount(); }

    /// The text shown while there are no rows.
    void setEmptyText(const QString& text);
    QByteArray currentKey() const;
    /// Makes a record current if it is shown.
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
    std::unique_ptr<Cells> m_cells;
    std::unique_ptr<VrkTableTool> m_tool; ///< destroyed before the records and the cells that it shows
    QMenu* m_menu;
    QAction* m_showAction;
    QAction* m_copyAction;
};
