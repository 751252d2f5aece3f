#include "TemplatesModelBuilder.h"

#include "CModelTable.h"
#include "Fields.h"
#include "HtmlParser.h"
#include "MDRValues.h"
#include "TextMatch.h"

#include <algorithm>
#include <QTextCodec>

namespace
{
MDRVar value(const MDRData* record, const char* field)
{
    MDRVar result;
    if (MDRGetVal(MDRFldByName(MDARecArr(record), field), record, &result) != mdr_Ok)
        return MDRVar();
    return result;
}

bool hasText(const MDRData* record, const char* field)
{
    return MDRValue::hasText(value(record, field));
}

QString keyOf(const MDRData* record)
{
    return QString::fromUtf8(MDRValue::bytes(value(record, Field::KeyLink)));
}

QString text(const MDRData* record, const char* field, const QTextCodec* codec)
{
    const QByteArray bytes = MDRValue::bytes(value(record, field));
    return codec ? codec->toUnicode(bytes) : QString::fromUtf8(bytes);
}

std::vector<MDRData*> recordsWith(CModelTable* table, const char* field, const QString& wanted)
{
    if (!table || wanted.isEmpty())
        return {};
    const MDRRange found = MDARecsWith(table->data.array, field, wanted.toUtf8().constData());
    return {found.begin(), found.end()};
}

/// "Caption: name", or the plain caption if the name is not known.
QString levelCaption(CModelTable* table, const QString& recordKey, const QTextCodec* codec,
                     const QString& named, const QString& plain)
{
    const std::vector<MDRData*> found = recordsWith(table, Field::KeyLink, recordKey);
    const QString name = found.empty() ? QString() : text(found.front(), Field::name_, codec);
    return name.isEmpty() ? plain : named.arg(name);
}

/// A record with its sort name.
struct Named {
    MDRData* record;
    QString name;
    QString folded;
};

std::vector<Named> byName(const std::vector<MDRData*>& records, const QTextCodec* codec)
{
    std::vector<Named> result;
    result.reserve(records.size());
    for (MDRData* record : records) {
        const QString name = text(record, Field::nameLoc, codec);
        result.push_back({record, name, TextMatch::folded(name)});
    }
    std::stable_sort(result.begin(), result.end(),
                     [](const Named& left, const Named& right) { return left.folded < right.folded; });
    return result;
}
} // namespace

TemplatesModel::Builder::Builder(const TemplatesSource& source) : m_source(source)
{
    addNode(Kind::Root, -1, QString(), QString());
    if (!source.categories || !source.templates)
        return;
    const int recent = addNode(Kind::Favourites, 0, QStringLiteral("#recent"), tr("Недавние"));
    const int pinned = addNode(Kind::Favourites, 0, QStringLiteral("#pinned"), tr("Закреплённые"));
    addLevel(QStringLiteral("#department"),
             levelCaption(source.departments, source.departmentKey, source.codec, tr("Подразделение: %1"),
                          tr("Шаблоны подразделения")),
             recordsWith(source.categories, Field::DepartmentKey, source.departmentKey));
    addLevel(QStringLiteral("#orgType"),
             levelCaption(source.orgTypes, source.orgTypeKey, source.codec, tr("Тип организации: %1"),
                          tr("Шаблоны типа организации")),
             recordsWith(source.categories, Field::OrgTypeKey, source.orgTypeKey));
    addLevel(QStringLiteral("#common"), tr("Общие шаблоны"), commonCategories());
    // Last, because the department may use only the templates of the levels.
    addFavourites(recent, source.recent);
    addFavourites(pinned, source.pinned);
}

int TemplatesModel::Builder::addNode(Kind kind, int parent, const QString& key, const QString& name)
{
    Node node;
    node.kind = kind;
    node.parent = parent;
    node.key = key;
    node.name = name;
    if (kind == Kind::Category || kind == Kind::Template)
        node.folded = TextMatch::folded(name);
    nodes.push_back(node);
    return static_cast<int>(nodes.size()) - 1;
}

void TemplatesModel::Builder::addLevel(const QString& key, const QString& caption,
                                       const Records& topCategories)
{
    if (!topCategories.empty())
        addCategories(addNode(Kind::Level, 0, key, caption), topCategories);
}

void TemplatesModel::Builder::addCategories(int parent, const Records& categories)
{
    for (const Named& category : byName(categories, m_source.codec)) {
        const QString key = keyOf(category.record);
        if (m_seen.contains(key))
            continue;
        m_seen.insert(key);
        const int node = addNode(Kind::Category, parent, key, category.name);
        addCategories(node, subcategories(key));
        addTemplates(node, key);
    }
}

void TemplatesModel::Builder::addTemplates(int parent, const QString& categoryKey)
{
    for (const Named& record :
         byName(recordsWith(m_source.templates, Field::CategoryKey, categoryKey), m_source.codec)) {
        if (!isWanted(record.record))
            continue;
        const QString key = keyOf(record.record);
        places[key].push_back(addNode(Kind::Template, parent, key, record.name));
        ++templateCount;
    }
}

void TemplatesModel::Builder::addFavourites(int group, const QStringList& keys)
{
    for (const QString& key : keys) {
        const auto found = places.find(key);
        if (found == places.end())
            continue;
        const QString name = nodes[static_cast<std::size_t>(found->front())].name;
        found->push_back(addNode(Kind::Template, group, key, name));
    }
}

TemplatesModel::Builder::Records TemplatesModel::Builder::commonCategories() const
{
    Records result;
    const CMDArray& categories = m_source.categories->data;
    for (int position = 0; position < categories.RecCount(); ++position) {
        MDRData* record = MDARec(categories.array, 0, position);
        if (!hasText(record, Field::ParentKey) && !hasText(record, Field::OrgTypeKey) &&
            !hasText(record, Field::DepartmentKey))
            result.push_back(record);
    }
    return result;
}

TemplatesModel::Builder::Records TemplatesModel::Builder::subcategories(const QString& parentKey) const
{
    Records result = recordsWith(m_source.categories, Field::ParentKey, parentKey);
    // A row with a key of its own level is a top category there, even if it has a parent.
    result.erase(std::remove_if(result.begin(), result.end(),
                                [](const MDRData* record) {
                                    return hasText(record, Field::OrgTypeKey) ||
                                           hasText(record, Field::DepartmentKey);
                                }),
                 result.end());
    return result;
}

bool TemplatesModel::Builder::isWanted(const MDRData* record) const
{
    if (m_source.props.isEmpty())
        return true;
    const HtmlParser parser(MDRValue::copy(value(record, Field::html)).toStdString());
    return std::all_of(m_source.props.begin(), m_source.props.end(), [&](const QString& property) {
        return parser.isExistTemplateProperty(property.toStdString()) == m_source.propsPresent;
    });
}
