#pragma once

/// Helpers for the tests of record arrays: they make arrays, fill and read records.

#include "MDRValues.h"

#include <QVector>

/// One field of each kind.
inline const MDRFieldDescr mixedFields[7] = {
    {"KeyLink", 32, mdr_TChar}, {"flag", 0, mdr_TBool},  {"small", 0, mdr_TByte}, {"number", 0, mdr_TInt32},
    {"time", 0, mdr_TDouble},   {"text_", 0, mdr_TMemo}, {"data", 0, mdr_TBlob},
};
constexpr int mixedCount = 7;

/// An array of mixedFields with these keys.
class MixedArray : public CMDArray
{
public:
    explicit MixedArray(std::initializer_list<const char*> keys = {""})
    {
        MDACreate(&array, 0);
        MDAFldAdd(array, mixedCount, mixedFields);
        for (const char* key : keys)
            KeyAdd(key, 0);
    }

    const MDRField* field(const char* name) const { return MDRFldByName(array, name); }
    int set(MDRData* record, const char* name, const MDRVar& value) const
    {
        return MDRSetVal(field(name), record, &value);
    }
    MDRVar get(const MDRData* record, const char* name) const
    {
        MDRVar value;
        GetVal(record, name, value);
        return value;
    }
    QByteArray text(const MDRData* record, const char* name = "KeyLink") const
    {
        return MDRValue::copy(get(record, name));
    }
    bool isNull(const MDRData* record, const char* name) const
    {
        bool null = false;
        MDRIsNull(field(name), record, &null);
        return null;
    }
    bool isMarked(const MDRData* record, const char* name) const
    {
        bool mark = false;
        MDRIsUser(field(name), record, &mark);
        return mark;
    }

    /// A fresh record with this KeyLink.
    MDRData* fresh(const QByteArray& keyLink) const
    {
        MDRData* record = MDARecNew(array);
        set(record, "KeyLink", MDRValue::text(keyLink));
        return record;
    }
    MDRData* post(MDRData* record) const
    {
        MDRData* posted = nullptr;
        MDARecPost(record, &posted);
        return posted;
    }
    MDRData* add(const QByteArray& keyLink) const { return post(fresh(keyLink)); }
    MDRData* add(const QByteArray& keyLink, const char* name, const MDRVar& value) const
    {
        MDRData* record = fresh(keyLink);
        set(record, name, value);
        return post(record);
    }
    MDRData* seek(int key, const QByteArray& text) const
    {
        const MDRVar value = MDRValue::text(text);
        return MDARecSeekV(array, key, &value, 0);
    }

    /// The KeyLinks in a key's order, joined by blanks.
    QByteArray order(int key = 0) const { return orderOf(array, key); }
    static QByteArray orderOf(const MDArray* array, int key = 0)
    {
        QByteArray texts;
        for (int i = 0; i < MDAKeyRecCount(array, key); ++i) {
            MDRVar value;
            MDRGetVal(MDRFldByName(array, "KeyLink"), MDARec(array, key, i), &value);
            texts += (i > 0 ? " " : "") + MDRValue::copy(value);
        }
        return texts;
    }
};

/// A blob in a store of the test.
class TestBlob : public MDRBlobSource
{
public:
    explicit TestBlob(const QByteArray& bytes, bool reachable = true) : m_bytes(bytes), m_reachable(reachable)
    {
    }

    bool read(QByteArray& bytes) const override
    {
        ++reads;
        if (m_reachable)
            bytes = m_bytes;
        return m_reachable;
    }
    void setReachable(bool reachable) { m_reachable = reachable; }

    mutable int reads = 0;

private:
    QByteArray m_bytes;
    bool m_reachable;
};
