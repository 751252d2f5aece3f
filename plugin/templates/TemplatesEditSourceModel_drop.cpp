#include "Fields.h"
#include "RecordValue.h"
#include "TemplatesEditSourceModel.h"
#include "TemplateTables.h"

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

namespace
{
QString categoryFormat()
{
    return QStringLiteral("application/category/KeyLink");
}

QString templateFormat()
{
    return QStringLiteral("application/template/KeyLink");
}
} // namespace

Qt::DropActions TemplatesEditSourceModel::supportedDropActions() const
{
    return m_level.takesMoves ? Qt::MoveAction : QAbstractItemModel::supportedDropActions();
}

QStringList TemplatesEditSourceModel::mimeTypes() const
{
    return m_level.takesMoves ? QStringList{categoryFormat(), templateFormat()}
                              : QAbstractItemModel::mimeTypes();
}

QMimeData* TemplatesEditSourceModel::mimeData(const QModelIndexList& indexes) const
{
    if (!m_level.takesMoves)
        return QAbstractItemModel::mimeData(indexes);
    auto* mime = new QMimeData;
    if (!isReady() || indexes.isEmpty())
        return mime;
    const MDRData* record = recordByIndex(indexes.first());
    const bool isCategory = TemplateTables::isContains(m_categories, record);
    if (!isCategory && !TemplateTables::isContains(m_templates, record))
        return mime;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << text(record, Field::KeyLink);
    mime->setData(isCategory ? categoryFormat() : templateFormat(), bytes);
    return mime;
}

bool TemplatesEditSourceModel::canDropMimeData(const QMimeData* data, Qt::DropAction action, int row,
                                               int column, const QModelIndex& parent) const
{
    if (!m_level.takesMoves)
        return QAbstractItemModel::canDropMimeData(data, action, row, column, parent);
    if (action != Qt::MoveAction || !isReady() || !data)
        return false;
    const bool isTemplate = data->hasFormat(templateFormat());
    if (!isTemplate && !data->hasFormat(categoryFormat()))
        return false;
    const MDRData* target = recordByIndex(parent);
    if (TemplateTables::isContains(m_categories, target))
        return true; // deliberate: also the category itself and its descendants, which the store refuses
    const bool atTop =
        target ? TemplateTables::isContains(m_roots, target) : m_level.roots == TemplateLevel::NoRoots;
    return atTop && !isTemplate;
}

bool TemplatesEditSourceModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                            const QModelIndex& parent)
{
    if (!m_level.takesMoves)
        return QAbstractItemModel::dropMimeData(data, action, row, column, parent);
    if (!data)
        return false;
    const MDRData* target = recordByIndex(parent);
    if (data->hasFormat(templateFormat()) && !TemplateTables::isContains(m_categories, target))
        return false;
    QByteArray bytes = data->data(data->hasFormat(categoryFormat()) ? categoryFormat() : templateFormat());
    QDataStream stream(&bytes, QIODevice::ReadOnly);
    QString key;
    stream >> key;
    if (key.isEmpty())
        return false;
    emit moveToCategory(key, parent);
    return true;
}
