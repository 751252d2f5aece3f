#include "TEventNciParse.h"

#include <cstring>

namespace
{
enum BlockField { FieldNumber = 1, FieldKey = 4, FieldSource = 5, FieldRow = 7 };
constexpr int sourcePrefix = 4; ///< "NCI:", never read

/// Numbers of row events, as bits from 601. Bit 30 is 631, which modules do not accept. Deliberate: it is
/// still known here.
bool isRowEvent(int number)
{
    constexpr std::uint32_t numbers = 0x40000007;
    const std::int64_t bit = std::int64_t(number) - EventInserted;
    return bit >= 0 && bit < 32 && ((numbers >> bit) & 1u) != 0;
}

QString tableOf(const char* source)
{
    const char* comma = std::strchr(source, ',');
    if (!comma || comma - source < sourcePrefix)
        return QString();
    return QString::fromUtf8(source + sourcePrefix, static_cast<int>(comma - source) - sourcePrefix);
}
} // namespace

TEventNciParse::TEventNciParse(HFNCliParam* block) : parameterBlock(block)
{
    MDRTypInit(&recordType);
    MDRRecInit(&recordData);
    if (!block)
        return;
    MDRGetAsInt32(MDRFldByNum(block->array, FieldNumber), block, &eventNumber);
    if (!isRowEvent(eventNumber))
        return;
    MDRGetTextPtr(MDRFldByNum(block->array, FieldKey), block, &recordKey);
    MDRGetTextPtr(MDRFldByNum(block->array, FieldSource), block, &sourceText);
    if (sourceText)
        tableName = tableOf(sourceText);
    if (eventNumber == EventDeleted)
        return;

    int length = 0;
    const char* row = nullptr;
    MDRGetTextRef(MDRFldByNum(block->array, FieldRow), block, &length, &row);
    if (length > 0 && MDRRecSet(&recordData, row, length) == mdr_Ok)
        MDRTypGen(&recordType, "NCI", &recordData);
}
