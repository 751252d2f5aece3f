#include "AnswerRows.h"

#include "StoreErrors.h"

AnswerRows::AnswerRows(const AnswerShape& shape, const CodePage& codePage, std::shared_ptr<Store*> store,
                       qint64 mostBytes)
    : m_shape(shape), m_codePage(codePage), m_store(std::move(store)), m_mostBytes(mostBytes)
{
    MDACreate(&m_array, 0);
    const QVector<MDRFieldDescr> fields = shape.descriptors();
    const MDRKeyDescr orderOfEntry = {};
    MDAFldAdd(m_array, fields.size(), fields.constData());
    MDAKeyAdd(m_array, 1, &orderOfEntry);
    for (int i = 0; i < fields.size(); ++i)
        m_fields.append(MDRFldByNum(m_array, i));
}

AnswerRows::~AnswerRows()
{
    if (m_array)
        MDADestroy(m_array);
}

bool AnswerRows::isTooMuch(StoreError* error)
{
    return StoreErrors::raise(error, StoreError::TooLarge,
                              "Ответ на запрос слишком велик: сузьте период или условия.");
}

bool AnswerRows::isTooLarge(StoreError* error)
{
    return StoreErrors::raise(error, StoreError::BadRequest, "Число в ответе на запрос слишком велико.");
}
