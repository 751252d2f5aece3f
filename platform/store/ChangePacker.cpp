#include "ChangePacker.h"

#include "ChangeRow.h"
#include "CodePage.h"
#include "MDRValues.h"

#include <cmath>

bool ChangePacker::append(qint64 number, qint64 event, const QByteArray& table, const QByteArray& key,
                          const QByteArray& oldRow, const QByteArray& newRow, QVector<StoreChange>* changes)
{
    const CatalogTable* known = TableCatalog::table(table);
    if (known)
        changes->append({number, static_cast<int>(event), known->name, key, pack(*known, oldRow, newRow)});
    return known != nullptr;
}

QByteArray ChangePacker::pack(const CatalogTable& table, const QByteArray& oldRow, const QByteArray& newRow)
{
    if (newRow.isEmpty())
        return QByteArray();
    std::unique_ptr<CMDArray>& slot = m_arrays[&table];
    if (!slot) {
        slot = std::make_unique<CMDArray>();
        MDACreate(&slot->array, 0);
        const QVector<MDRFieldDescr> fields = table.descriptors();
        MDAFldAdd(slot->array, fields.size(), fields.constData());
    }
    const ChangeRow before(oldRow);
    const ChangeRow after(newRow);
    MDRData* record = MDARecNew(slot->array);
    QByteArray bytes;
    for (int i = 0; i < table.fields.size() && i < after.count(); ++i) {
        const MDRField* field = MDRFldByNum(slot->array, i);
        MDRVar value = MDRValue::null();
        if (!after.isNull(i) && !after.isBlob(i)) {
            switch (field->type) {
            case mdr_TDouble:
                value = MDRValue::real(after.number(i));
                break;
            case mdr_TChar:
            case mdr_TMemo: {
                const QByteArray text = after.text(i);
                bytes.resize(0);
                m_codePage->fromUtf8(text.constData(), text.size(), &bytes);
                value = MDRValue::text(bytes);
                break;
            }
            default:
                value = MDRValue::number(static_cast<std::int32_t>(std::lround(after.number(i))));
            }
        }
        MDRSetVal(field, record, &value);
        if (before.raw(i) != after.raw(i))
            MDRSetUser(field, record, 1);
    }
    QByteArray packed = MDRRecPack(record);
    MDARecDel(record);
    return packed;
}
