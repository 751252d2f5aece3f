#include "ArrayTools.h"

#include <algorithm>
#include <optional>
#include <QTest>
#include <random>
#include <string_view>

/// Long seeded runs of all operations, compared step by step with a model that is too simple to be wrong: a
/// vector of rows in order of entry, sorted again for every query.
class ArrayModel_test : public QObject
{
    Q_OBJECT

private slots:
    void arraysBehaveAsTheSimpleModel_data();
    void arraysBehaveAsTheSimpleModel();
};

namespace
{
struct Row {
    std::optional<QByteArray> key;
    std::optional<int> number;
    std::optional<double> time;
    std::optional<QByteArray> text;
    bool marked = false; // the field text_
    int flags = 0;
    MDRData* address = nullptr;
};

template <typename T>
int compare(const T& a, const T& b)
{
    return a < b ? -1 : (b < a ? 1 : 0);
}
template <>
int compare(const std::optional<QByteArray>& a, const std::optional<QByteArray>& b)
{
    if (!a || !b)
        return int(a.has_value()) - int(b.has_value());
    const auto bytes = [](const QByteArray& t) { return std::string_view(t.data(), std::size_t(t.size())); };
    return bytes(*a).compare(bytes(*b)); // characters compare as unsigned here
}

struct Part {
    QByteArray field;
    bool falling;
};

QVector<Part> partsOf(const QByteArray& key)
{
    QVector<Part> parts;
    for (const QByteArray& part : key.isEmpty() ? QList<QByteArray>() : key.split(';'))
        parts.append({part.split(':').first(), part.endsWith(":0x4")});
    return parts;
}

int compareBy(const QVector<Part>& parts, const Row& a, const Row& b)
{
    for (const Part& part : parts) {
        const int order = part.field == "KeyLink"  ? compare(a.key, b.key)
                          : part.field == "number" ? compare(a.number, b.number)
                          : part.field == "time"   ? compare(a.time, b.time)
                                                   : compare(a.text, b.text);
        if (order != 0)
            return part.falling ? -order : order;
    }
    return 0;
}

const QByteArray keyChoices[] = {
    "",          "KeyLink",           "number",         "time:0x4",        "text_;number:0x4",
    "text_:0x4", "number;time;text_", "KeyLink;number", "time;KeyLink:0x4"};

class Run
{
public:
    Run(unsigned seed, int size) : m_random(seed), m_size(size), m_array({}) {}

    void step(bool growing)
    {
        const int dice = below(100);
        if (dice < (growing ? 55 : 12))
            add();
        else if (dice < (growing ? 65 : 60))
            remove();
        else if (dice < 78)
            edit();
        else if (dice < 88)
            setPosted();
        else if (dice < 90)
            changeKeys();
        else if (dice < 91)
            copy();
        else
            ask();
    }

    void checkAll()
    {
        std::vector<MDRData*> byEntry;
        for (const Row& row : m_rows)
            byEntry.push_back(row.address);
        QCOMPARE(MDARecsByEntry(m_array.array), byEntry);
        QCOMPARE(MDAKeyCount(m_array.array), m_keys.size());
        for (int key = 0; key < m_keys.size(); ++key) {
            const std::vector<const Row*> rows = sorted(m_keys[key]);
            QCOMPARE(MDAKeyRecCount(m_array.array, key), int(rows.size()));
            for (int i = 0; i < int(rows.size()); ++i) {
                const MDRData* record = MDARec(m_array.array, key, i);
                QCOMPARE(record, rows[std::size_t(i)]->address);
                if (i % 17 == 0)
                    QCOMPARE(MDARecPos(m_array.array, key, record), i);
            }
        }
        for (const Row& row : m_rows)
            checkValues(m_array.array, row.address, row);
    }

private:
    int below(int limit) { return int(m_random() % unsigned(limit)); }
    std::size_t anyRow() { return std::size_t(below(int(m_rows.size()))); }
    QByteArray anyText()
    {
        const int kind = below(12);
        return kind == 0   ? QByteArray()
               : kind == 1 ? QByteArray(below(400), char('a' + below(3)))
                           : QByteArray("t") + QByteArray::number(below(40)) + (kind == 2 ? "\xd0" : "");
    }

    void randomize(Row& row)
    {
        if (below(2) == 0)
            row.key = below(15) == 0 ? std::nullopt : std::make_optional(QByteArray::number(below(m_size)));
        if (below(2) == 0)
            row.number = below(6) == 0 ? std::nullopt : std::make_optional(below(20) - 10);
        if (below(2) == 0)
            row.time = below(6) == 0 ? std::nullopt : std::make_optional(below(50) * 0.5);
        if (below(2) == 0)
            row.text = below(6) == 0 ? std::nullopt : std::make_optional(anyText());
    }

    void setText(MDRData* record, const char* name, const std::optional<QByteArray>& text)
    {
        QCOMPARE(m_array.set(record, name, text ? MDRValue::text(*text) : MDRValue::null()), int(mdr_Ok));
    }
    void write(MDRData* record, const Row& row)
    {
        setText(record, "KeyLink", row.key);
        setText(record, "text_", row.text);
        m_array.set(record, "number", row.number ? MDRValue::number(*row.number) : MDRValue::null());
        m_array.set(record, "time", row.time ? MDRValue::real(*row.time) : MDRValue::null());
        MDRSetUser(m_array.field("text_"), record, row.marked ? 1 : 0);
        MDRSetFlags(record, row.flags);
    }

    void add()
    {
        Row row;
        randomize(row);
        row.marked = below(2) == 0;
        row.flags = below(8);
        row.address = MDARecNew(m_array.array);
        write(row.address, row);
        QCOMPARE(m_array.post(row.address), row.address);
        m_rows.push_back(row);
    }
    void remove()
    {
        if (below(8) == 0)
            MDARecDel(m_array.fresh("discarded"));
        if (m_rows.empty())
            return;
        const std::size_t i = anyRow();
        if (below(4) == 0)
            MDARecEdit(m_rows[i].address);
        QCOMPARE(MDARecDel(m_rows[i].address), int(mdr_Ok));
        QVERIFY(MDARecArr(m_rows[i].address) == nullptr);
        m_rows.erase(m_rows.begin() + std::ptrdiff_t(i));
    }
    void edit()
    {
        if (m_rows.empty())
            return;
        Row& row = m_rows[anyRow()];
        MDRData* edited = MDARecEdit(row.address);
        checkValues(m_array.array, edited, row);
        Row changed = row;
        randomize(changed);
        changed.flags = below(8);
        changed.marked = below(2) == 0;
        write(edited, changed);
        checkValues(m_array.array, row.address, row);
        if (below(3) == 0)
            return; // abandoned
        QCOMPARE(m_array.post(edited), row.address);
        row = changed;
    }
    void setPosted()
    {
        if (m_rows.empty())
            return;
        Row& row = m_rows[anyRow()];
        randomize(row);
        write(row.address, row);
    }
    void changeKeys()
    {
        if (m_keys.size() >= 4 || (!m_keys.isEmpty() && below(3) == 0)) {
            const int key = below(m_keys.size());
            QCOMPARE(MDAKeyDel(m_array.array, key), int(mdr_Ok));
            m_keys.removeAt(key);
        } else {
            m_keys.append(keyChoices[below(int(std::size(keyChoices)))]);
            QCOMPARE(m_array.KeyAdd(m_keys.last().constData(), 0), int(mdr_Ok));
        }
    }
    void copy()
    {
        if (below(4) != 0)
            return;
        MixedArray other({});
        const bool ownKey = below(2) == 0;
        if (ownKey)
            other.KeyAdd("number;time:0x4", 0);
        other.add("what it held before");
        const QByteArray packed = HFNArrayPack(m_array.array);
        if (below(2) == 0) {
            QCOMPARE(MDACopy(other.array, m_array.array, 1), int(mdr_Ok));
        } else {
            QCOMPARE(HFNArrayUnPack(other.array, packed.constData(), 1), int(mdr_Ok));
            QCOMPARE(HFNArrayPack(other.array), packed);
        }
        const std::vector<MDRData*> copies = MDARecsByEntry(other.array);
        QCOMPARE(copies.size(), m_rows.size());
        for (std::size_t i = 0; i < copies.size(); ++i)
            checkValues(other.array, copies[i], m_rows[i]);
    }
    void ask()
    {
        const QByteArray text = anyText();
        std::vector<MDRData*> with;
        for (const Row& row : m_rows) {
            if (row.text == text)
                with.push_back(row.address);
        }
        const MDRRange found = MDARecsWith(m_array.array, "text_", text.constData());
        QCOMPARE(std::vector<MDRData*>(found.begin(), found.end()), with);

        for (int key = 0; key < m_keys.size(); ++key) {
            Row wanted;
            wanted.key = QByteArray::number(below(m_size));
            wanted.number = below(20) - 10;
            wanted.time = below(50) * 0.5;
            wanted.text = text;
            std::vector<MDRVar> values;
            const QVector<Part> parts = partsOf(m_keys[key]);
            for (const Part& part : parts) {
                values.push_back(part.field == "KeyLink"  ? MDRValue::text(*wanted.key)
                                 : part.field == "number" ? MDRValue::number(*wanted.number)
                                 : part.field == "time"   ? MDRValue::real(*wanted.time)
                                                          : MDRValue::text(*wanted.text));
            }
            const auto first = std::find_if(m_rows.begin(), m_rows.end(), [&](const Row& row) {
                return !parts.isEmpty() && compareBy(parts, row, wanted) == 0;
            });
            QCOMPARE(MDARecSeekV(m_array.array, key, values.data(), 0),
                     first != m_rows.end() ? first->address : nullptr);
        }
        if (!m_keys.isEmpty() && !m_rows.empty()) {
            const int key = below(m_keys.size());
            const std::vector<const Row*> rows = sorted(m_keys[key]);
            const int position = below(int(rows.size()));
            QCOMPARE(MDARec(m_array.array, key, position), rows[std::size_t(position)]->address);
        }
    }

    std::vector<const Row*> sorted(const QByteArray& key) const
    {
        std::vector<const Row*> rows;
        for (const Row& row : m_rows)
            rows.push_back(&row);
        const QVector<Part> parts = partsOf(key);
        std::stable_sort(rows.begin(), rows.end(),
                         [&](const Row* a, const Row* b) { return compareBy(parts, *a, *b) < 0; });
        return rows;
    }

    void checkValues(const MDArray* array, const MDRData* record, const Row& row)
    {
        const auto text = [&](const char* name) -> std::optional<QByteArray> {
            MDRVar value;
            MDRGetVal(MDRFldByName(array, name), record, &value);
            if (value.isNull)
                return std::nullopt;
            return QByteArray(value.value.text.data, value.value.text.length);
        };
        QVERIFY(text("KeyLink") == row.key);
        QVERIFY(text("text_") == row.text);
        MDRVar value;
        MDRGetVal(MDRFldByName(array, "number"), record, &value);
        QVERIFY((value.isNull ? std::nullopt : std::make_optional(value.value.number)) == row.number);
        MDRGetVal(MDRFldByName(array, "time"), record, &value);
        QVERIFY((value.isNull ? std::nullopt : std::make_optional(value.value.real)) == row.time);
        bool mark = false;
        MDRIsUser(MDRFldByName(array, "text_"), record, &mark);
        QCOMPARE(mark, row.marked);
        QCOMPARE(int(record->flags), row.flags);
    }

    std::mt19937 m_random;
    int m_size;
    MixedArray m_array;
    std::vector<Row> m_rows; // in order of entry
    QList<QByteArray> m_keys;
};
} // namespace

void ArrayModel_test::arraysBehaveAsTheSimpleModel_data()
{
    QTest::addColumn<unsigned>("seed");
    QTest::addColumn<int>("size");
    for (unsigned seed = 1; seed <= 20; ++seed)
        QTest::addRow("small, seed %u", seed) << seed << 60;
    for (unsigned seed = 1; seed <= 3; ++seed)
        QTest::addRow("large, seed %u", seed) << seed << 2000;
}

void ArrayModel_test::arraysBehaveAsTheSimpleModel()
{
    QFETCH(unsigned, seed);
    QFETCH(int, size);
    Run run(seed, size);
    for (int round = 0; round < (size < 100 ? 2 : 1); ++round) {
        for (bool growing : {true, false}) {
            for (int i = 0; i < 3 * size; ++i) {
                run.step(growing);
                if (i % (size / 2) == 0)
                    run.checkAll();
                if (QTest::currentTestFailed())
                    QFAIL(qPrintable(QStringLiteral("at step %1").arg(i)));
            }
            run.checkAll();
        }
    }
}

QTEST_APPLESS_MAIN(ArrayModel_test)
#include "ArrayModel_test.moc"
