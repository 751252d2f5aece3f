#include "EventParse.h"

#include <cstring>

namespace
{
/// Length of the prefix of a source text, which nobody reads: "NCI:<Table>,<number>".
constexpr int sourcePrefix = 4;

QString tableOf(const char* sourceText)
{
    const char* comma = sourceText ? std::strchr(sourceText, ',') : nullptr;
    if (!comma || comma - sourceText < sourcePrefix)
        return {};
    return QString::fromLatin1(sourceText + sourcePrefix,
                               static_cast<int>(comma - sourceText) - sourcePrefix);
}

/// Row events are 601, 602, 603 and 631; the last is known here though modules let no more than 601 to 603
/// through.
bool isRowEvent(int number)
{
    constexpr unsigned rowEvents = 0x40000007;
    const auto bit = static_cast<unsigned>(number - EventInserted);
    return bit < 32 && ((rowEvents >> bit) & 1U) != 0;
}
} // namespace

bool parseChangeEvent(HFNCliParam* block, TEventNciParse* event)
{
    if (!block)
        return false;
    int number = 0;
    MDRGetAsInt32(MDRFldByNum(block->array, 1), block, &number);
    if (number < EventInserted || number > EventDeleted)
        return false;

    event->parameterBlock = block;
    event->eventNumber = number;
    MDRGetTextPtr(MDRFldByNum(block->array, 4), block, &event->recordKey);
    MDRGetTextPtr(MDRFldByNum(block->array, 5), block, &event->sourceText);
    event->tableName = tableOf(event->sourceText);

    MDRTypInit(&event->recordType);
    MDRRecInit(&event->recordData);
    if (!isRowEvent(number) || number == EventDeleted) // a deleted row is known by its key alone
        return true;

    int length = 0;
    const char* packed = nullptr;
    MDRGetTextRef(MDRFldByNum(block->array, 7), block, &length, &packed);
    if (length != 0) {
        MDRRecSet(&event->recordData, packed, length);
        MDRTypGen(&event->recordType, "NCI", &event->recordData);
    }
    return true;
}
