#include "AbstractHfnCellConversion.h"

#include "MDRValues.h"
#include "TemplateText.h"
#include "VrkTableModel.h"

#include <QTextCodec>

namespace
{
QString decoded(const QTextCodec* codec, const MDRVar& value)
{
    if (!MDRValue::hasText(value))
        return QString();
    const MDRVar::Text& text = value.value.text;
    return codec ? codec->toUnicode(text.data, text.length) : QString::fromUtf8(text.data, text.length);
}

QVariant number(const MDRVar& value)
{
    if (value.isNull)
        return QVariant();
    switch (value.type) {
    case mdr_TBool:
        return value.value.number != 0;
    case mdr_TByte:
    case mdr_TInt32:
        return value.value.number;
    case mdr_TDouble:
        return value.value.real;
    default:
        return QVariant();
    }
}
} // namespace

AbstractHfnCellConversion::AbstractHfnCellConversion(QObject* parent) : QObject(parent) {}

AbstractHfnCellConversion::~AbstractHfnCellConversion() = default;

QVariant AbstractHfnCellConversion::data(const AbstractHfnCellData& cell) const
{
    for (const Redirect& redirect : m_redirects) {
        if (redirect.role == cell.role && redirect.target)
            return redirect.target->data(cell);
    }
    if (cell.role != Qt::DisplayRole && cell.role != Qt::UserRole)
        return QVariant();
    const MDRField* field = cell.array ? MDRFldByNum(cell.array->array, cell.field) : nullptr;
    if (!field || !cell.record || field->type == mdr_TBlob)
        return QVariant();
    MDRVar value;
    if (MDRGetVal(field, cell.record, &value) != mdr_Ok || value.isNull)
        return QVariant();
    if (!MDRValue::isText(value))
        return number(value);
    if (cell.role == Qt::UserRole)
        return decoded(cell.codec, value);
    if (cell.model)
        return cell.model->visibleText(cell.record, cell.field);
    const bool isTemplate = qstricmp(field->name, VrkTableModel::TemplateField) == 0;
    const QString text = decoded(cell.codec, value);
    return isTemplate ? TemplateText::plain(text) : text;
}

void AbstractHfnCellConversion::setRoleRedirect(int role, AbstractHfnCellConversion* other)
{
    for (Redirect& redirect : m_redirects) {
        if (redirect.role == role) {
            redirect.target = other == this ? nullptr : other;
            return;
        }
    }
    if (other && other != this)
        m_redirects.append({role, other});
}
