#include "RecordBody.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

using Body = MDRData::Body;

namespace
{
constexpr std::size_t maxSpare = 4096; // room for later texts; above this, moving is cheaper
}

Body* Body::create(int count, std::size_t textCapacity)
{
    if (textCapacity > std::numeric_limits<std::uint32_t>::max())
        return nullptr;
    void* memory = std::malloc(headBytes(count) + textCapacity);
    if (memory == nullptr)
        return nullptr;
    std::memset(memory, 0, headBytes(count));
    Body* body = new (memory) Body;
    body->count = count;
    body->textCapacity = static_cast<std::uint32_t>(textCapacity);
    return body;
}

void Body::destroy(Body* body)
{
    if (body == nullptr)
        return;
    while (body->blobs != nullptr)
        delete std::exchange(body->blobs, body->blobs->next.release());
    delete body->fields;
    std::free(body);
}

Body* Body::clone(const Body* body, int count, std::size_t spare)
{
    std::size_t live = 0;
    for (int i = 0; i < body->count; ++i) {
        if (body->holdsText(i))
            live += static_cast<std::size_t>(body->slot(i).text.length) + 1;
    }
    Body* copy = create(std::max(count, body->count), live + spare);
    if (copy == nullptr)
        return nullptr;
    for (const Bits set : {Present, Marked, Text})
        std::copy_n(body->words(set), wordCount(body->count), copy->words(set));
    std::copy_n(body->slotTable(), body->count, copy->slotTable());
    if (live == body->textUsed) { // the texts are contiguous already
        std::copy_n(body->texts(), live, copy->texts());
        copy->textUsed = body->textUsed;
    } else {
        for (int i = 0; i < body->count; ++i) {
            if (body->holdsText(i))
                copy->append(i, body->text(i), body->slot(i).text.length);
        }
    }
    for (const StoredBlob* blob = body->blobs; blob != nullptr; blob = blob->next.get()) {
        auto twin = std::make_unique<StoredBlob>();
        twin->length = blob->length;
        twin->source = blob->source;
        twin->bytes = blob->bytes;
        copy->setBlob(blob->ordinal, std::move(twin));
    }
    return copy;
}

int Body::ensure(Body*& body, int count, std::size_t hint)
{
    if (body != nullptr && body->count >= count)
        return mdr_Ok;
    Body* larger = body == nullptr ? create(count, hint) : clone(body, count);
    if (larger == nullptr)
        return mdr_Full;
    destroy(std::exchange(body, larger));
    return mdr_Ok;
}

int Body::setText(Body*& body, int ordinal, const char* data, std::int32_t length)
{
    const std::size_t need = static_cast<std::size_t>(length) + 1;
    if (body->holdsText(ordinal) && body->slot(ordinal).text.length >= length) {
        // In place; the bytes may come from this very text.
        char* text = body->texts() + body->slot(ordinal).text.offset;
        std::memmove(text, data, static_cast<std::size_t>(length));
        text[length] = 0;
        body->slotTable()[ordinal].text.length = length;
        return mdr_Ok;
    }
    if (body->textCapacity - body->textUsed >= need) {
        body->dropBlob(ordinal);
        body->append(ordinal, data, length);
        return mdr_Ok;
    }
    const bool hadText = body->holdsText(ordinal);
    body->put(Text, ordinal, false); // do not copy the old text
    Body* larger = clone(body, body->count, need + std::min((body->textUsed + need) / 2, maxSpare));
    if (larger == nullptr) {
        body->put(Text, ordinal, hadText);
        return mdr_Full;
    }
    larger->dropBlob(ordinal);
    larger->fields = std::exchange(body->fields, nullptr);
    larger->append(ordinal, data, length); // before the old body is freed: the bytes may be inside it
    destroy(std::exchange(body, larger));
    return mdr_Ok;
}

void Body::trim(Body*& body)
{
    const std::size_t bearable =
        body != nullptr ? 64 + std::min<std::size_t>(body->textUsed / 2, maxSpare) : 0;
    if (body == nullptr || body->textCapacity - body->textUsed <= bearable)
        return;
    void* smaller = std::realloc(static_cast<void*>(body), headBytes(body->count) + body->textUsed);
    if (smaller == nullptr)
        return;
    body = static_cast<Body*>(smaller);
    body->textCapacity = body->textUsed;
}

StoredBlob* Body::blob(int ordinal) const
{
    for (StoredBlob* blob = blobs; blob != nullptr; blob = blob->next.get()) {
        if (blob->ordinal == ordinal)
            return blob;
    }
    return nullptr;
}

void Body::setNull(int ordinal)
{
    dropBlob(ordinal);
    put(Present, ordinal, false);
    put(Text, ordinal, false);
}

void Body::setBlob(int ordinal, std::unique_ptr<StoredBlob> blob)
{
    setNull(ordinal);
    put(Present, ordinal, true);
    blob->ordinal = static_cast<std::uint8_t>(ordinal);
    blob->next.reset(blobs);
    blobs = blob.release();
}

void Body::clearMarks()
{
    std::fill_n(words(Marked), wordCount(count), 0);
}

void Body::append(int ordinal, const char* data, std::int32_t length)
{
    char* text = texts() + textUsed;
    if (length > 0)
        std::memcpy(text, data, static_cast<std::size_t>(length));
    text[length] = 0;
    slotTable()[ordinal].text.offset = textUsed;
    slotTable()[ordinal].text.length = length;
    textUsed += static_cast<std::uint32_t>(length) + 1;
    put(Present, ordinal, true);
    put(Text, ordinal, true);
}

void Body::dropBlob(int ordinal)
{
    StoredBlob* previous = nullptr;
    for (StoredBlob* blob = blobs; blob != nullptr; previous = blob, blob = blob->next.get()) {
        if (blob->ordinal != ordinal)
            continue;
        if (previous != nullptr) {
            previous->next = std::move(blob->next);
        } else {
            blobs = blob->next.release();
            delete blob;
        }
        return;
    }
}
