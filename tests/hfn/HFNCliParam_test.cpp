#include "ArrayTools.h"
#include "HFNCliParam.h"

#include <QTest>

class HFNCliParam_test : public QObject
{
    Q_OBJECT

private slots:
    void blocksHaveTheirAgreedFields();
    void answersHoldCodeAndPackedArray();
    void eventsHoldNumberKeySourceAndRow();
    void aDeletionCarriesNoRow();
    void readersGiveNothingRatherThanNull();
    void distinguishesNumbersAndTexts();
    void anEmptyBlockHasNoFields();
};

static const MDRField* field(const HFNCliParam* block, int number)
{
    return MDRFldByNum(block->array, number);
}

void HFNCliParam_test::blocksHaveTheirAgreedFields()
{
    const auto kinds = [](HFNCliParam* made) {
        const std::unique_ptr<HFNCliParam> block(made);
        QVector<int> types;
        for (int i = 0; i < MDAFldCount(block->array); ++i) {
            types.append(field(made, i)->type);
            if (field(made, i)->width != 0)
                types.append(-field(made, i)->width); // none has a maximum
        }
        return types;
    };
    QCOMPARE(kinds(HFNCliParam::answer(0, "")), (QVector<int>{mdr_TInt32, mdr_TInt32, mdr_TMemo}));
    QCOMPARE(kinds(HFNCliParam::event(601, "", "", "")),
             (QVector<int>{mdr_TInt32, mdr_TInt32, mdr_TInt32, mdr_TInt32, mdr_TMemo, mdr_TMemo, mdr_TInt32,
                           mdr_TBlob}));
}

void HFNCliParam_test::answersHoldCodeAndPackedArray()
{
    MixedArray array;
    array.add("a");
    const std::unique_ptr<HFNCliParam> block(HFNCliParam::answer(5, HFNArrayPack(array.array)));
    int code = 0;
    QCOMPARE(MDRGetAsInt32(field(block.get(), 0), block.get(), &code), int(mdr_Ok));
    QCOMPARE(code, 5);
    char* packed = nullptr;
    QCOMPARE(MDRGetTextPtr(field(block.get(), 2), block.get(), &packed), int(mdr_Ok));
    MixedArray copy;
    QCOMPARE(HFNArrayUnPack(copy.array, packed, 1), int(mdr_Ok));
    QCOMPARE(copy.text(MDARecsByEntry(copy.array)[0]), QByteArray("a"));
}

void HFNCliParam_test::eventsHoldNumberKeySourceAndRow()
{
    MixedArray array;
    MDRData* row = array.add("a");
    const QByteArray packed = MDRRecPack(row);
    const std::unique_ptr<HFNCliParam> block(HFNCliParam::event(602, "a", "NCI:Table,17", packed));
    int number = 0;
    QCOMPARE(MDRGetAsInt32(field(block.get(), 1), block.get(), &number), int(mdr_Ok));
    QCOMPARE(number, 602);
    char* key = nullptr;
    QCOMPARE(MDRGetTextPtr(field(block.get(), 4), block.get(), &key), int(mdr_Ok));
    QCOMPARE(QByteArray(key), QByteArray("a"));
    char* source = nullptr;
    QCOMPARE(MDRGetTextPtr(field(block.get(), 5), block.get(), &source), int(mdr_Ok));
    QCOMPARE(QByteArray(source), QByteArray("NCI:Table,17"));
    int length = 0;
    const char* data = nullptr;
    QCOMPARE(MDRGetTextRef(field(block.get(), 7), block.get(), &length, &data), int(mdr_Ok));
    QCOMPARE(QByteArray(data, length), packed); // with all its NULs
    MDRData record;
    QCOMPARE(MDRRecSet(&record, data, length), int(mdr_Ok));
    QCOMPARE(array.text(&record), QByteArray("a"));
}

void HFNCliParam_test::aDeletionCarriesNoRow()
{
    const std::unique_ptr<HFNCliParam> block(HFNCliParam::event(603, "a", "NCI:Table,17", QByteArray()));
    int length = 9;
    const char* data = nullptr;
    QCOMPARE(MDRGetTextRef(field(block.get(), 7), block.get(), &length, &data), int(mdr_Ok));
    QCOMPARE(length, 0);
    QVERIFY(data != nullptr);
}

void HFNCliParam_test::readersGiveNothingRatherThanNull()
{
    const std::unique_ptr<HFNCliParam> block(HFNCliParam::event(601, "a", "s", QByteArray()));
    int number = 9;
    int length = 9;
    char* text = nullptr;
    const char* data = nullptr;
    const auto verifyNothing = [&](const MDRField* from, const HFNCliParam* of, int expected) {
        number = 9;
        length = 9;
        text = nullptr;
        data = nullptr;
        QCOMPARE(MDRGetAsInt32(from, of, &number), expected);
        QCOMPARE(number, 0);
        QCOMPARE(MDRGetTextPtr(from, of, &text), expected);
        QVERIFY(text != nullptr && *text == 0);
        QCOMPARE(MDRGetTextRef(from, of, &length, &data), expected);
        QCOMPARE(length, 0);
        QVERIFY(data != nullptr && *data == 0);
    };
    verifyNothing(nullptr, block.get(), mdr_Invalid);
    verifyNothing(field(block.get(), 8), block.get(), mdr_Invalid);
    verifyNothing(field(block.get(), 4), nullptr, mdr_Invalid);
    // Fields that are null.
    QCOMPARE(MDRGetAsInt32(field(block.get(), 0), block.get(), &number), int(mdr_Ok));
    QCOMPARE(number, 0);
    const MDRVar null = MDRValue::null();
    MDRSetVal(field(block.get(), 4), block->record, &null);
    QCOMPARE(MDRGetTextPtr(field(block.get(), 4), block.get(), &text), int(mdr_Ok));
    QVERIFY(text != nullptr && *text == 0);
    QCOMPARE(MDRGetAsInt32(field(block.get(), 1), block.get(), nullptr), int(mdr_Invalid));
    QCOMPARE(MDRGetTextPtr(field(block.get(), 4), block.get(), nullptr), int(mdr_Invalid));
    QCOMPARE(MDRGetTextRef(field(block.get(), 7), block.get(), nullptr, &data), int(mdr_Invalid));
    QCOMPARE(MDRGetTextRef(field(block.get(), 7), block.get(), &length, nullptr), int(mdr_Invalid));
}

void HFNCliParam_test::distinguishesNumbersAndTexts()
{
    const std::unique_ptr<HFNCliParam> block(HFNCliParam::event(601, "12", "s", "row"));
    int number = 9;
    QCOMPARE(MDRGetAsInt32(field(block.get(), 4), block.get(), &number), int(mdr_TypeMismatch));
    QCOMPARE(number, 0);
    char* text = nullptr;
    QCOMPARE(MDRGetTextPtr(field(block.get(), 1), block.get(), &text), int(mdr_TypeMismatch));
    QCOMPARE(*text, char(0));
    int length = 9;
    const char* data = nullptr;
    QCOMPARE(MDRGetTextRef(field(block.get(), 1), block.get(), &length, &data), int(mdr_TypeMismatch));
    QCOMPARE(length, 0);
}

void HFNCliParam_test::anEmptyBlockHasNoFields()
{
    const HFNCliParam block;
    QVERIFY(block.array != nullptr);
    QVERIFY(block.record == nullptr);
    QVERIFY(field(&block, 0) == nullptr);
    int number = 9;
    QCOMPARE(MDRGetAsInt32(field(&block, 0), &block, &number), int(mdr_Invalid));
    // Handles of another block find no record here.
    const std::unique_ptr<HFNCliParam> other(HFNCliParam::event(601, "a", "s", QByteArray()));
    QCOMPARE(MDRGetAsInt32(field(other.get(), 1), &block, &number), int(mdr_Invalid));
}

QTEST_APPLESS_MAIN(HFNCliParam_test)
#include "HFNCliParam_test.moc"
