#pragma once

#include "AnswerShape.h"
#include "CodePage.h"
#include "StoreBlobSource.h"

#include <utility>

/// The answer of a select, to which an engine adds its rows.
class AnswerRows
{
public:
    /// All types of the shape must be known. \a store fetches the blobs that stay there; \a mostBytes is the
    /// memory guard.
    AnswerRows(const AnswerShape& shape, const CodePage& codePage, std::shared_ptr<Store*> store,
               qint64 mostBytes);
    ~AnswerRows();
    AnswerRows(const AnswerRows&) = delete;
    AnswerRows& operator=(const AnswerRows&) = delete;

    /// Adds the row of a reader (EngineStore). False with the reason if a value does not fit.
    template <class Reader>
    bool add(const Reader& row, StoreError* error)
    {
        MDRData* record = MDARecNew(m_array);
        m_held += 64 + 8 * m_fields.size();
        for (int i = 0; i < m_fields.size(); ++i) {
            if (!row.isNull(i) && !set(row, i, record, error)) {
                MDARecDel(record);
                return false;
            }
        }
        MDARecPost(record, nullptr);
        return true;
    }
    /// The array, which belongs to the caller from now on.
    MDArray* take() { return std::exchange(m_array, nullptr); }

    /// Whether a whole number fits a field.
    static bool fits(qint64 number)
    {
        return number >= std::numeric_limits<std::int32_t>::min() &&
               number <= std::numeric_limits<std::int32_t>::max();
    }

private:
    template <class Reader>
    bool set(const Reader& row, int index, MDRData* record, StoreError* error)
    {
        const AnswerShape::Column& column = m_shape.columns.at(index);
        MDRVar value;
        value.type = column.field.type;
        switch (column.field.type) {
        case mdr_TDouble:
            value.value.real = row.real(index);
            break;
        case mdr_TChar:
        case mdr_TMemo: {
            const char* utf8 = row.data(index);
            m_recoded.resize(0);
            m_codePage.fromUtf8(utf8, row.size(index), &m_recoded);
            value.value.text = {int32_t(m_recoded.size()), m_recoded.constData()};
            m_held += m_recoded.size() + 1;
            break;
        }
        case mdr_TBlob:
            if (column.keyColumn >= 0) {
                auto source = std::make_shared<StoreBlobSource>(m_store, column.table, column.field.name,
                                                                row.bytes(column.keyColumn));
                const auto length = static_cast<std::int32_t>(row.integer(index));
                return isSet(MDRSetBlobSource(m_fields.at(index), record, length, std::move(source)), error);
            }
            value.value.text.data = row.data(index);
            value.value.text.length = row.size(index);
            m_held += value.value.text.length;
            break;
        default: {
            const qint64 number = row.integer(index);
            if (!fits(number))
                return isTooLarge(error);
            value.value.number = static_cast<std::int32_t>(number);
        }
        }
        return isSet(MDRSetVal(m_fields.at(index), record, &value), error);
    }
    bool isSet(int code, StoreError* error) const
    {
        return (code == mdr_Ok && m_held <= m_mostBytes) || isTooMuch(error);
    }
    static bool isTooMuch(StoreError* error);
    static bool isTooLarge(StoreError* error);

    const AnswerShape& m_shape;
    const CodePage& m_codePage;
    std::shared_ptr<Store*> m_store;
    const qint64 m_mostBytes;
    qint64 m_held = 0;
    MDArray* m_array = nullptr;
    QVector<const MDRField*> m_fields;
    QByteArray m_recoded; ///< kept between fields, so that texts of an answer need no allocation
};
