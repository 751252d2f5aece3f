#pragma once

#include "FieldSet.h"

/// A blob whose bytes stay in the store until they are read.
struct StoredBlob {
    std::uint8_t ordinal = 0;
    std::int32_t length = 0;                     ///< as the store reported it, later of the fetched bytes
    std::shared_ptr<const MDRBlobSource> source; ///< null once the bytes are fetched
    QByteArray bytes;
    std::unique_ptr<StoredBlob> next;
};

/// The values of one record in one allocation: three bit sets (the field has a value, has the user mark, has its text
/// in this body), a slot of eight bytes for each field, then the texts, each NUL-terminated. A record without a body
/// is all null and without marks; fields beyond a body's count (added later to the array) are null.
///
/// Operations that may move the body take the pointer by reference. They return mdr_Full if memory or the 4 GiB of
/// one record run out, and then change nothing.
struct MDRData::Body {
    union Slot {
        std::int32_t number;
        double real;
        struct {
            std::uint32_t offset; ///< in the texts
            std::int32_t length;
        } text;
    };
    static void destroy(Body* body);
    /// A compact copy with room for \a count fields, without \a fields; null when memory runs out. Stored
    /// blobs stay unfetched.
    static Body* clone(const Body* body, int count, std::size_t spare = 0);
    /// Makes sure that a body with at least \a count fields exists. \a hint is the expected size of its texts.
    static int ensure(Body*& body, int count, std::size_t hint = 0);
    /// Copies the text, which may be in this very body. The field must exist.
    static int setText(Body*& body, int ordinal, const char* data, std::int32_t length);
    /// Frees the memory that a finished record does not need.
    static void trim(Body*& body);

    bool has(int ordinal) const { return test(Present, ordinal); }
    bool isMarked(int ordinal) const { return test(Marked, ordinal); }
    /// The text of the field is in this body. A blob with a value and without this bit is a stored one.
    bool holdsText(int ordinal) const { return test(Text, ordinal); }
    const Slot& slot(int ordinal) const { return slotTable()[ordinal]; }
    const char* text(int ordinal) const { return texts() + slot(ordinal).text.offset; }
    StoredBlob* blob(int ordinal) const;

    void setNull(int ordinal);
    void setNumber(int ordinal, std::int32_t number)
    {
        put(Present, ordinal, true);
        slotTable()[ordinal].number = number;
    }
    void setReal(int ordinal, double real)
    {
        put(Present, ordinal, true);
        slotTable()[ordinal].real = real;
    }
    void setBlob(int ordinal, std::unique_ptr<StoredBlob> blob);
    void setMark(int ordinal, bool mark) { put(Marked, ordinal, mark); }
    void clearMarks();

    std::uint32_t textUsed = 0;
    std::uint32_t textCapacity = 0;
    int count = 0;
    StoredBlob* blobs = nullptr; ///< owned list
    FieldSet* fields = nullptr;  ///< owned; only of a stand-alone record

private:
    enum Bits { Present, Marked, Text };

    static Body* create(int count, std::size_t textCapacity);
    static std::size_t wordCount(int count) { return (static_cast<std::size_t>(count) + 63) / 64; }
    static std::size_t headBytes(int count)
    {
        return sizeof(Body) + 3 * wordCount(count) * sizeof(std::uint64_t) +
               static_cast<std::size_t>(count) * sizeof(Slot);
    }

    // The bit sets, the slots and the texts follow the object in its allocation.
    std::uint64_t* words(Bits set)
    {
        return reinterpret_cast<std::uint64_t*>(this + 1) + set * wordCount(count);
    }
    const std::uint64_t* words(Bits set) const
    {
        return reinterpret_cast<const std::uint64_t*>(this + 1) + set * wordCount(count);
    }
    Slot* slotTable()
    {
        return reinterpret_cast<Slot*>(reinterpret_cast<char*>(this) + headBytes(count)) - count;
    }
    const Slot* slotTable() const
    {
        return reinterpret_cast<const Slot*>(reinterpret_cast<const char*>(this) + headBytes(count)) - count;
    }
    char* texts() { return reinterpret_cast<char*>(this) + headBytes(count); }
    const char* texts() const { return reinterpret_cast<const char*>(this) + headBytes(count); }

    bool test(Bits set, int ordinal) const
    {
        return ordinal < count && (words(set)[ordinal / 64] >> (ordinal % 64) & 1U) != 0;
    }
    void put(Bits set, int ordinal, bool value)
    {
        std::uint64_t& word = words(set)[ordinal / 64];
        const std::uint64_t bit = std::uint64_t(1) << (ordinal % 64);
        word = value ? word | bit : word & ~bit;
    }
    /// Copies the text to the end of the texts; there must be room for it and its NUL.
    void append(int ordinal, const char* data, std::int32_t length);
    void dropBlob(int ordinal);
};
