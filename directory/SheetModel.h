#pragma once

#include "SheetRow.h"

#include <QAbstractTableModel>

class QUndoStack;

/// One row of a sheet that is edited. A cell of a reference has the key of the row that it refers to, or the typed text
/// if there is no such row; all other cells have the texts of the sheet's file.
struct EditedRow {
    QByteArray key; ///< of a new row, too
    QStringList cells;
    QStringList stored; ///< as the store has them; empty for a new row

    bool isNew() const { return stored.isEmpty(); }
    bool isChanged() const { return cells != stored; }
};

/// The rows of one sheet as a table. The user's edits go to an undo stack, whose commands call put(), insert() and
/// remove(). The columns are those of the sheet without its code.
class SheetModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Role { StateRole = Qt::UserRole, FaultRole };
    enum State { Same, Added, Changed, Retired };

    /// \a sheet and \a undo must outlive the model.
    SheetModel(const Sheet& sheet, QUndoStack* undo, QObject* parent);

    const Sheet& sheet() const { return m_sheet; }
    const QVector<EditedRow>& rows() const { return m_rows; }
    void setRows(const QVector<EditedRow>& rows);
    int find(const QByteArray& key) const;
    /// The cells of a row of the store.
    static EditedRow stored(const Directory& directory, const Sheet& sheet, const DirectoryRow& row);

    /// \name Called by the commands of the undo stack
    /// @{
    void put(const QByteArray& key, int column, const QString& cell);
    void insert(int at, const EditedRow& row);
    void remove(const QByteArray& key);
    /// @}
    /// Appends a new row; its key.
    QByteArray append();
    /// New rows disappear, rows of the store are retired. False if a row of the store cannot be retired, because its
    /// sheet knows no such rows; nothing happens then.
    bool discard(const QVector<QByteArray>& keys);
    /// The column that says whether a row is retired, -1 if there is none.
    int retirement() const { return m_retirement; }
    /// Whether the store says that the row is retired, and the user did not touch it.
    bool isFormer(int row) const;

    /// The rows with their names as they will be after the edits; the directory must outlive the model.
    void setDirectory(const Directory* directory);
    const Directory* directory() const { return m_directory; }
    void setFaults(const QHash<QByteArray, QVector<CellFault>>& faults);
    State state(int row) const;
    /// The full name of a row, as the user knows it.
    QString label(const EditedRow& row) const;
    /// A cell as the user sees it.
    QString shown(const EditedRow& row, int column, bool former = false) const;
    /// The department that restricts the references of a row, or empty.
    QByteArray scope(const EditedRow& row) const;
    /// The cell for a typed text: the key of the row to which it refers, otherwise the text.
    QString cell(const EditedRow& row, int column, const QString& typed) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    /// The user's rows differ from those before.
    void edited();

private:
    QString faultText(const EditedRow& row, int column) const;

    const Sheet& m_sheet;
    QUndoStack* m_undo;
    QVector<EditedRow> m_rows;
    QHash<QByteArray, int> m_places;
    QHash<QByteArray, QVector<CellFault>> m_faults;
    const Directory* m_directory = nullptr;
    mutable QHash<QString, QString> m_names; ///< of rows that are referred to
    int m_retirement = -1;
};
