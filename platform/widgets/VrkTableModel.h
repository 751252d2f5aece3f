#pragma once

#include "CMDArray.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QPointer>
#include <QVector>

class AbstractHfnCellConversion;
class QTextCodec;

/// Item model of a record array: one row for each record, in the order of the array's first key, and one
/// column for each field. The caller owns the array and changes it between the begin and end functions
/// below.
///
/// Decoded texts and the visible text of templates are cached for each record until updateRecord(), the
/// record's removal or a reset; so every change of a record must be announced.
class VRK_EXPORT VrkTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// The field that contains template text.
    static const char TemplateField[];

    explicit VrkTableModel(QObject* parent = nullptr);
    ~VrkTableModel() override;

    /// Sets the data; null for none. Resets the model.
    void setCMDArray(CMDArray* array);
    CMDArray* cmdArray() const { return m_array; }
    /// Code page of the texts; null means UTF-8.
    void setTextCodec(QTextCodec* codec);

    /// Enclose a full reload: between them the array may be cleared, refilled and given other fields. Calls
    /// may be nested; only the outermost pair has an effect.
    void beginResetModel();
    void endResetModel();
    bool isResetting() const { return m_resets > 0; }
    /// Enclose the posting of \a count records at the end of the array. If the number or the position
    /// differs, the model is reset. During a reset, or with a count below 1, they do nothing.
    void beginAppendRows(int count);
    void endAppendRows();
    /// Enclose the removal of a posted record. They do nothing for a record of another array or during a
    /// reset.
    void beginRemoveRecord(MDRData* record);
    void endRemoveRecord();
    /// Announces a change of a record in these columns; an empty list means all.
    void updateRecord(MDRData* record, const QVector<int>& columns = {});

    /// Column of a field, -1 if there is none. Ignores ASCII case, like the array.
    int idxField(const QString& field) const;
    /// Description of a column's field, or null.
    const MDRField* field(int column) const;
    /// True for the column with template text.
    bool isTemplateText(int column) const;
    /// Sets the conversion that provides all data of this field's cells; null removes it. Not owned. May be
    /// called before the array has the field.
    void setCellConversion(const QString& field, AbstractHfnCellConversion* conversion);
    /// Sets the header of a field's column, kept by the field's name across resets. The orientation must be
    /// horizontal.
    bool setHeaderData(const QString& field, Qt::Orientation orientation, const QVariant& value, int role);
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant& value, int role) override;

    /// The record of a row or index, or null.
    MDRData* record(int row) const;
    MDRData* record(const QModelIndex& index) const { return record(index.row()); }
    /// The index of a posted record of the array, or an invalid one.
    QModelIndex indexOf(const MDRData* record, int column = 0) const;
    /// The stored text of a field, decoded; empty if absent.
    QString storedText(const MDRData* record, int column) const;
    /// The visible text: for template text its visible part, cached for each record.
    QString visibleText(const MDRData* record, int column) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Column {
        const MDRField* field = nullptr;
        QPointer<AbstractHfnCellConversion> conversion;
        QHash<int, QVariant> header;
        bool templateText = false;
    };
    struct ColumnSettings {
        QPointer<AbstractHfnCellConversion> conversion;
        QHash<int, QVariant> header;
    };

    void readFields();
    void resetQuietly();

    CMDArray* m_array = nullptr;
    QTextCodec* m_codec = nullptr;
    QVector<Column> m_columns;
    QHash<QString, ColumnSettings> m_settings; ///< by the field's name in lower case
    AbstractHfnCellConversion* m_plain;        ///< used for columns without a conversion
    int m_rows = 0;                            ///< number of announced rows
    int m_resets = 0;
    int m_appending = 0;
    const MDRData* m_last = nullptr; ///< the last record before the rows being appended
    const MDRData* m_removing = nullptr;
    mutable QHash<const MDRData*, QVector<QString>>
        m_texts; ///< visible texts by column, null until requested
};
