#include "VrkTableModel.h"

#include "AbstractHfnCellConversion.h"
#include "HfnTime.h"
#include "MDRValues.h"
#include "ShownText.h"
#include "TemplateText.h"

#include <algorithm>
#include <QTextCodec>

const char VrkTableModel::TemplateField[] = "html";

VrkTableModel::VrkTableModel(QObject* parent)
    : QAbstractTableModel(parent), m_plain(new AbstractHfnCellConversion(this))
{
}

VrkTableModel::~VrkTableModel() = default;

void VrkTableModel::setCMDArray(CMDArray* array)
{
    beginResetModel();
    m_array = array;
    endResetModel();
}

void VrkTableModel::setTextCodec(QTextCodec* codec)
{
    if (m_codec == codec)
        return;
    m_codec = codec;
    m_texts.clear();
    if (m_rows > 0 && !m_columns.isEmpty() && !isResetting())
        emit dataChanged(index(0, 0), index(m_rows - 1, m_columns.size() - 1));
}

int VrkTableModel::idxField(const QString& field) const
{
    const MDRField* found = m_array ? MDRFldByName(m_array->array, field.toLatin1().constData()) : nullptr;
    return found && found->ordinal < m_columns.size() ? found->ordinal : -1;
}

const MDRField* VrkTableModel::field(int column) const
{
    return column >= 0 && column < m_columns.size() ? m_columns[column].field : nullptr;
}

bool VrkTableModel::isTemplateText(int column) const
{
    return column >= 0 && column < m_columns.size() && m_columns[column].templateText;
}

void VrkTableModel::setCellConversion(const QString& field, AbstractHfnCellConversion* conversion)
{
    m_settings[field.toLower()].conversion = conversion;
    const int column = idxField(field);
    if (column < 0)
        return;
    m_columns[column].conversion = conversion;
    if (m_rows > 0 && !isResetting())
        emit dataChanged(index(0, column), index(m_rows - 1, column));
}

bool VrkTableModel::setHeaderData(const QString& field, Qt::Orientation orientation, const QVariant& value,
                                  int role)
{
    if (orientation != Qt::Horizontal)
        return false;
    m_settings[field.toLower()].header.insert(role, value);
    const int column = idxField(field);
    if (column >= 0) {
        m_columns[column].header.insert(role, value);
        if (!isResetting())
            emit headerDataChanged(Qt::Horizontal, column, column);
    }
    return true;
}

bool VrkTableModel::setHeaderData(int section, Qt::Orientation orientation, const QVariant& value, int role)
{
    const MDRField* column = field(section);
    return column && setHeaderData(QString::fromLatin1(column->name), orientation, value, role);
}

MDRData* VrkTableModel::record(int row) const
{
    return m_array && row >= 0 && row < m_rows ? MDARec(m_array->array, 0, row) : nullptr;
}

QModelIndex VrkTableModel::indexOf(const MDRData* record, int column) const
{
    const int row = m_array && record ? MDARecPos(m_array->array, 0, record) : -1;
    return row >= 0 && row < m_rows && column >= 0 && column < m_columns.size() ? createIndex(row, column)
                                                                                : QModelIndex();
}

QString VrkTableModel::storedText(const MDRData* record, int column) const
{
    const MDRField* textField = field(column);
    MDRVar value;
    if (!textField || textField->type == mdr_TBlob || !record ||
        MDRGetVal(textField, record, &value) != mdr_Ok || !MDRValue::hasText(value))
        return QString();
    const MDRVar::Text& text = value.value.text;
    return m_codec ? m_codec->toUnicode(text.data, text.length) : QString::fromUtf8(text.data, text.length);
}

QString VrkTableModel::visibleText(const MDRData* record, int column) const
{
    if (!record || column < 0 || column >= m_columns.size())
        return QString();
    QVector<QString>& texts = m_texts[record];
    if (texts.size() <= column)
        texts.resize(m_columns.size());
    QString& text = texts[column];
    if (text.isNull()) {
        text = storedText(record, column);
        if (m_columns[column].templateText)
            text = TemplateText::plain(text);
        if (text.isNull())
            text = QLatin1String("");
    }
    return text;
}

int VrkTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int VrkTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_columns.size();
}

QVariant VrkTableModel::data(const QModelIndex& index, int role) const
{
    MDRData* const cellRecord = index.isValid() && index.model() == this ? record(index.row()) : nullptr;
    if (!cellRecord || index.column() >= m_columns.size())
        return QVariant();
    const Column& column = m_columns[index.column()];
    const AbstractHfnCellData cell{m_codec, m_array, cellRecord, index.column(), role, this};
    const QVariant answer = (column.conversion ? column.conversion.data() : m_plain)->data(cell);
    if (role == Qt::ToolTipRole && answer.userType() == QMetaType::QString)
        return ShownText::tip(answer.toString());
    if (role != Qt::ToolTipRole || answer.isValid() || column.field->type != mdr_TDouble)
        return answer;
    // Cells show only the time of day; the full date is in the tool tip.
    MDRVar time;
    MDRGetVal(column.field, cellRecord, &time);
    if (!MDRValue::hasTime(time))
        return answer;
    return HfnTime_to_DateTime(time.value.real, -1).toString(QStringLiteral("dd.MM.yyyy hh:mm"));
}

QVariant VrkTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= m_columns.size())
        return QVariant();
    const Column& column = m_columns[section];
    const auto found = column.header.constFind(role);
    if (found != column.header.constEnd())
        return *found;
    return role == Qt::DisplayRole ? QVariant(QString::fromLatin1(column.field->name)) : QVariant();
}

Qt::ItemFlags VrkTableModel::flags(const QModelIndex& index) const
{
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren
                           : Qt::NoItemFlags;
}
