#pragma once

#include "CMDArray.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QPointer>
#include <QVector>

class AbstractHfnCellConversion;
class QTextCodec;

/// Item model over a record array: a row a record, in the order of the array's first key; a column a field.
/// The array belongs to the caller and is changed by the caller between the begin and end operations below.
///
/// Decoded texts and the visible text of templates are kept for each record until updateRecord(), the
/// record's removal or a reset; so a record that changes must be announced.
class VRK_EXPORT VrkTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// The field whose text is that of a template.
    static const char TemplateField[];

    explicit VrkTableModel(QObject* parent = nullptr);
    ~VrkTableModel() override;

    /// The data; null for none. Resets the model.
    void setCMDArray(CMDArray* array);
    CMDArray* cmdArray() const { return m_array; }
    /// Code page of the texts; UTF-8 when it is null.
    void setTextCodec(QTextCodec* codec);
    QTextCodec* textCodec() const { return m_codec; }

    /// Bracket a full reload: between them the array may be cleared, refilled and given other fields.
    /// Brackets may stand within brackets; only the outermost pair counts.
    void beginResetModel();
    void endResetModel();
    bool isResetting() const { return m_resets > 0; }
    /// Bracket \a count records that are posted at the end of the array. If another number came, or they came
    /// elsewhere, the model is reset. Within a reset, or with a count below 1, they do nothing.
    void beginAppendRows(int count);
    void endAppendRows();
    /// Bracket the removal of a posted record. Nothing happens for a record of another array or within a
    /// reset.
    void beginRemoveRecord(MDRData* record);
    void endRemoveRecord();
    /// Tells that a record has changed, in these columns; an empty list means all.
    void updateRecord(MDRData* record, const QVector<int>& columns = {});

    /// Column of a field, -1 when there is none. ASCII case is ignored, as in the array.
    int idxField(const QString& field) const;
    /// Description of a column's field, or null.
    const MDRField* field(int column) const;
    /// True for the column whose text is that of a template.
    bool isTemplateText(int column) const;
    /// Lets the conversion answer every question about cells of this field; null takes it back. Not owned.
    /// May be called before the array has the field.
    void setCellConversion(const QString& field, AbstractHfnCellConversion* conversion);
    /// Header of a field's column, kept by the field's name over resets. The orientation must be horizontal.
    bool setHeaderData(const QString& field, Qt::Orientation orientation, const QVariant& value, int role);
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant& value, int role) override;

    /// The record of a row or index, or null.
    MDRData* record(int row) const;
    MDRData* record(const QModelIndex& index) const { return record(index.row()); }
    /// The index of a posted record of the array, or an invalid one.
    QModelIndex indexOf(const MDRData* record, int column = 0) const;
    /// The stored text of a field, decoded; empty when absent.
    QString storedText(const MDRData* record, int column) const;
    /// What a reader sees of the text: for template text its visible part, kept for each record.
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
    AbstractHfnCellConversion* m_plain;        ///< answers for columns without a conversion
    int m_rows = 0;                            ///< as announced
    int m_resets = 0;
    int m_appending = 0;
    const MDRData* m_last = nullptr; ///< the last record before the rows that are being appended
    const MDRData* m_removing = nullptr;
    mutable QHash<const MDRData*, QVector<QString>>
        m_texts; ///< visible texts by column, null when not asked yet
};
