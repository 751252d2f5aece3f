#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QTableView;
class SheetDelegate;
class SheetFilter;
class SheetModel;

/// The page of one sheet: a search line and the table.
class SheetPage : public QWidget
{
    Q_OBJECT

public:
    /// The model must outlive the page.
    explicit SheetPage(SheetModel* model, QWidget* parent = nullptr);

    SheetModel* model() const { return m_model; }
    QTableView* table() const { return m_table; }
    /// What is being typed into a cell gets into the model.
    void commit();
    /// Adds a row and opens its first cell.
    void addRow();
    /// The keys of the selected rows.
    QVector<QByteArray> selected() const;
    /// Makes a cell current; shows its row if the search hides it. \a column -1: the first one.
    void showCell(const QByteArray& key, int column);
    void focusSearch();
    void fitColumns();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void search();
    /// The rows are read again: the current one stays current.
    void remember();
    void restore();
    void count();

    SheetModel* m_model;
    SheetFilter* m_filter;
    SheetDelegate* m_delegate;
    QLineEdit* m_search;
    QLabel* m_count;
    QTableView* m_table;
    QByteArray m_currentKey;
    int m_currentColumn = 0;
};
