#include "MDArrayInside.h"

#include <algorithm>

namespace
{
constexpr std::size_t maxKeys = 255;

bool enteredBefore(const MDRData* a, const MDRData* b)
{
    return a->entry < b->entry;
}
} // namespace

void MDArray::replaceFields(const FieldSet& fields)
{
    if (m_fields->sameAs(fields))
        return;
    const auto former = std::find_if(m_formerFields.begin(), m_formerFields.end(),
                                     [&](const auto& known) { return known->sameAs(fields); });
    if (former != m_formerFields.end()) {
        m_fields.swap(*former);
    } else {
        m_formerFields.push_back(std::move(m_fields));
        m_fields = fields.clone();
    }
    for (const auto& order : m_keys)
        order->key.resolve(*m_fields);
    watchFields();
}

int MDArray::addKey(const MDRKeyDescr& descriptor)
{
    if (m_keys.size() == maxKeys)
        return mdr_Full;
    auto order = std::make_unique<RecordOrder>();
    const int code = order->key.parse(descriptor, *m_fields);
    if (code != mdr_Ok)
        return code;
    order->assign(recordsByEntry());
    m_keys.push_back(std::move(order));
    watchFields();
    return mdr_Ok;
}

void MDArray::removeKey(int key)
{
    m_keys.erase(m_keys.begin() + key);
    watchFields();
}

void MDArray::removeKeys()
{
    m_keys.clear();
    watchFields();
}

const RecordOrder* MDArray::key(int key) const
{
    return key >= 0 && key < keyCount() ? m_keys[static_cast<std::size_t>(key)].get() : nullptr;
}

void MDArray::copyKeys(const MDArray& source)
{
    for (const auto& order : source.m_keys) {
        m_keys.push_back(std::make_unique<RecordOrder>());
        m_keys.back()->key = order->key;
    }
    watchFields();
}

MDRData* MDArray::makeRecord()
{
    return m_pool.make(this);
}

MDRData* MDArray::edit(MDRData* posted)
{
    MDRData* edited = posted->partner;
    if (edited == nullptr) {
        edited = m_pool.make(this);
        if (edited == nullptr)
            return nullptr;
        edited->partner = posted;
        posted->partner = edited;
    }
    MDRData::Body* body = nullptr;
    if (posted->body != nullptr) {
        body = MDRData::Body::clone(posted->body, fields().count());
        if (body == nullptr)
            return nullptr;
    }
    MDRData::Body::destroy(edited->body);
    edited->body = body;
    edited->owner = this;
    edited->flags = posted->flags;
    edited->state = RecordEdited;
    return edited;
}

void MDArray::post(MDRData* fresh)
{
    MDRData::Body::trim(fresh->body);
    const std::size_t used = fresh->body != nullptr ? fresh->body->textUsed : 0;
    m_textHint = m_textHint == 0 ? used + used / 4 : (7 * m_textHint + used + used / 4) / 8;
    fresh->entry = ++m_lastEntry;
    fresh->state = RecordPosted;
    for (const auto& order : m_keys)
        order->insert(fresh);
    for (const auto& index : m_indexes)
        index->insert(fresh);
    for (const auto& index : m_nullIndexes)
        index->insert(fresh);
}

MDRData* MDArray::postEdited(MDRData* edited)
{
    MDRData* posted = edited->partner;
    MDRData::Body::trim(edited->body);
    std::bitset<maxKeys> moved;
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        moved[i] = m_keys[i]->key.compare(posted->body, edited->body) != 0;
        if (moved[i])
            m_keys[i]->erase(posted);
    }
    for (const auto& index : m_indexes)
        index->erase(posted);
    for (const auto& index : m_nullIndexes)
        index->erase(posted);
    std::swap(posted->body, edited->body);
    posted->flags = edited->flags;
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        if (moved[i])
            m_keys[i]->insert(posted);
    }
    for (const auto& index : m_indexes)
        index->insert(posted);
    for (const auto& index : m_nullIndexes)
        index->insert(posted);
    RecordPool::kill(edited);
    edited->partner = posted; // the header is used again by the next edit of this record
    return posted;
}

void MDArray::remove(MDRData* record)
{
    MDRData* partner = record->partner;
    if (record->state == RecordPosted) {
        for (const auto& order : m_keys)
            order->erase(record);
        for (const auto& index : m_indexes)
            index->erase(record);
        for (const auto& index : m_nullIndexes)
            index->erase(record);
        if (partner != nullptr)
            RecordPool::kill(partner);
        RecordPool::kill(record);
    } else {
        RecordPool::kill(record);
        record->partner = partner; // of an abandoned edit: the next edit uses it again
    }
}

void MDArray::removeAll()
{
    for (const auto& order : m_keys)
        order->clear();
    m_indexes.clear();
    m_nullIndexes.clear();
    watchFields();
    m_pool.killAll();
}

std::vector<MDRData*> MDArray::recordsByEntry() const
{
    std::vector<MDRData*> records = m_pool.all(RecordPosted);
    if (!std::is_sorted(records.begin(), records.end(), enteredBefore))
        std::sort(records.begin(), records.end(), enteredBefore);
    return records;
}

int MDArray::copyRecords(const MDArray& source)
{
    std::vector<MDRData*> copies;
    for (const MDRData* record : source.recordsByEntry()) {
        MDRData* copy = m_pool.make(this);
        if (copy != nullptr && record->body != nullptr)
            copy->body = MDRData::Body::clone(record->body, fields().count());
        if (copy == nullptr || (record->body != nullptr && copy->body == nullptr)) {
            removeAll();
            return mdr_Full;
        }
        copy->flags = record->flags;
        copy->entry = ++m_lastEntry;
        copy->state = RecordPosted;
        copies.push_back(copy);
    }
    for (const auto& order : m_keys)
        order->assign(copies);
    return mdr_Ok;
}

int MDArray::append(const MDRData& record)
{
    constexpr std::size_t spare = 32; // for a text in a field that the other array does not have
    MDRData* copy = m_pool.make(this);
    if (copy == nullptr)
        return mdr_Full;
    if (record.body != nullptr) {
        copy->body = MDRData::Body::clone(record.body, fields().count(), spare);
        if (copy->body == nullptr) {
            RecordPool::kill(copy);
            return mdr_Full;
        }
        copy->body->clearMarks();
    }
    post(copy);
    return mdr_Ok;
}

MDRRange MDArray::recordsWith(int ordinal, const char* text)
{
    for (const auto& index : m_indexes) {
        if (index->ordinal() == ordinal)
            return index->find(text);
    }
    m_indexes.push_back(std::make_unique<FieldIndex>(ordinal, recordsByEntry()));
    watchFields();
    return m_indexes.back()->find(text);
}

MDRRange MDArray::recordsWithout(const std::vector<int>& ordinals)
{
    for (const auto& index : m_nullIndexes) {
        if (index->ordinals() == ordinals)
            return index->all();
    }
    m_nullIndexes.push_back(std::make_unique<NullIndex>(ordinals, recordsByEntry()));
    watchFields();
    return m_nullIndexes.back()->all();
}

int MDArray::ensureBody(MDRData* record)
{
    return MDRData::Body::ensure(record->body, fields().count(), m_textHint);
}

void MDArray::leave(MDRData* record, int ordinal)
{
    for (const auto& order : m_keys) {
        if (order->key.uses(ordinal))
            order->erase(record);
    }
    for (const auto& index : m_indexes) {
        if (index->ordinal() == ordinal)
            index->erase(record);
    }
    for (const auto& index : m_nullIndexes) {
        if (index->uses(ordinal))
            index->erase(record);
    }
}

void MDArray::enter(MDRData* record, int ordinal)
{
    for (const auto& order : m_keys) {
        if (order->key.uses(ordinal))
            order->insert(record);
    }
    for (const auto& index : m_indexes) {
        if (index->ordinal() == ordinal)
            index->insert(record);
    }
    for (const auto& index : m_nullIndexes) {
        if (index->uses(ordinal))
            index->insert(record);
    }
}

void MDArray::watchFields()
{
    m_watched.reset();
    for (int i = 0; i < fields().count(); ++i) {
        const bool inKey =
            std::any_of(m_keys.begin(), m_keys.end(), [=](const auto& order) { return order->key.uses(i); });
        const bool inIndex = std::any_of(m_indexes.begin(), m_indexes.end(),
                                         [=](const auto& index) { return index->ordinal() == i; });
        const bool inNullIndex = std::any_of(m_nullIndexes.begin(), m_nullIndexes.end(),
                                             [=](const auto& index) { return index->uses(i); });
        m_watched[static_cast<std::size_t>(i)] = inKey || inIndex || inNullIndex;
    }
}
