#pragma once

#include "CMDArray.h"
#include "RowChange.h"

#include <memory>
#include <QWidget>

class ChangeText;
class QLabel;
class QStackedLayout;
class QTableView;
class QTextEdit;
class VrkTableTool;

/// A read-only list of changes: when, who, what. Below it the current one, before and after side by side, with the
/// words that differ marked. While it is empty, a text is shown instead. Ctrl+C copies the visible text.
class ChangeTable : public QWidget
{
    Q_OBJECT

public:
    explicit ChangeTable(QWidget* parent = nullptr);
    ~ChangeTable() override;

    /// The latest change comes first and is current. \a text is not owned.
    void show(const QVector<RowChange>& changes, const ChangeText* text);
    void setEmptyText(const QString& text);
    QTableView* view() const { return m_view; }
    /// All changes as plain text, the oldest first.
    QString plainText() const;

private:
    class Cells;

    void showCurrent();

    QVector<RowChange> m_changes;
    const ChangeText* m_text = nullptr;
    CMDArray m_rows;
    QStackedLayout* m_pages;
    QTableView* m_view;
    QLabel* m_empty;
    QTextEdit* m_before;
    QTextEdit* m_after;
    std::unique_ptr<Cells> m_cells;
    std::unique_ptr<VrkTableTool> m_tool; ///< destroyed before the rows and cells that it shows
};
