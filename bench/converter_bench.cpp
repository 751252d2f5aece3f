// The conversion of an earlier journal with 2,000 parameters: the time per template should not grow with
// their number, and the memory used, including the report, should stay below four times the size of the
// texts, old and new.

#include "MDRValues.h"
#include "ParamRules.h"
#include "RecordValue.h"
#include "TableCatalog.h"
#include "TemplateRules.h"

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <memory>
#include <QTextCodec>

namespace
{
constexpr int parameters = 2000;
constexpr int templatesOfCategory = 7;

std::size_t heap()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void add(CModelTable& table, const QByteArray& key,
         std::initializer_list<std::pair<const char*, QByteArray>> fields)
{
    MDRData* row = MDARecNew(table.data.array);
    table.data.SetValF(row, "KeyLink", MDRValue::text(key));
    for (const auto& [name, bytes] : fields)
        table.data.SetValF(row, name, MDRValue::text(bytes));
    table.data.RecPost(row);
}

QByteArray numbered(const char* prefix, int number)
{
    return prefix + QByteArray::number(number);
}

/// Tables with this number of old templates, four parameters in each.
std::unique_ptr<ConverterTables> earlierJournal(int templates)
{
    auto tables = std::make_unique<ConverterTables>();
    tables->codec = QTextCodec::codecForName("Windows-1251");
    for (CModelTable* table :
         {&tables->oldCategories, &tables->oldTemplates, &tables->oldParams, &tables->categories,
          &tables->templates, &tables->paramCategories, &tables->params}) {
        const auto fields = TableCatalog::table(QByteArray::fromStdString(table->name))->descriptors();
        MDAFldAdd(table->data.array, fields.size(), fields.constData());
    }
    tables->setKeys();
    for (const char* base : {"substation", "line", "equipmentName", "employee_fio"})
        add(tables->params, numbered("$base.", 0) + base,
            {{"html", QByteArray("<a href=\"parameter:name=") + base + "\">x</a>"}});
    for (int i = 0; i < parameters; ++i) {
        const QByteArray param = i % 4 == 0   ? "Equipment=Substation;"
                                 : i % 4 == 1 ? "Enum=\"1=a,2=b,3=c\""
                                 : i % 4 == 2 ? "DateTimeFormat=ShortTime"
                                              : "";
        add(tables->oldParams, numbered("P", i),
            {{"nameLat", numbered("p", i)}, {"nameLoc", numbered("L", i)}, {"param", param}});
    }
    const QByteArray words(400, 'w');
    for (int i = 0; i < templates; ++i) {
        const int category = i / templatesOfCategory;
        if (i % templatesOfCategory == 0)
            add(tables->oldCategories, numbered("C", category),
                category % 3 == 0
                    ? std::initializer_list<std::pair<const char*, QByteArray>>{{"name_",
                                                                                 numbered("c", category)}}
                    : std::initializer_list<std::pair<const char*, QByteArray>>{
                          {"name_", numbered("c", category)},
                          {"ParentKey", numbered("C", category / 3 * 3)}});
        QByteArray text = words;
        for (int p = 0; p < 4; ++p)
            text += " <" + numbered("p", (i * 7 + p * 501) % parameters) + "> [" + words.left(20) + "]";
        add(tables->oldTemplates, numbered("T", i),
            {{"CategoryKey", numbered("C", category)}, {"name_", numbered("t", i)}, {"text_", text}});
    }
    return tables;
}

/// Bytes of all texts in all tables, old and new.
double textsOf(const ConverterTables& tables)
{
    double size = 0;
    for (const CModelTable* table :
         {&tables.oldCategories, &tables.oldTemplates, &tables.oldParams, &tables.categories,
          &tables.templates, &tables.paramCategories, &tables.params})
        for (const MDRData* row : MDARecsByEntry(table->data.array))
            for (int f = 0; f < MDAFldCount(table->data.array); ++f)
                size += MDRValue::bytes(Row(row).value(MDRFldByNum(table->data.array, f)->name)).size();
    return size;
}

void convert(benchmark::State& state)
{
    const int templates = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        const std::size_t before = heap();
        auto tables = earlierJournal(templates);
        state.ResumeTiming();
        ConversionReport report;
        ParamRules params(tables.get(), &report);
        state.PauseTiming(); // the number of parameters is the same at each size
        params.processParameters();
        state.ResumeTiming();
        TemplateRules rules(tables.get(), &params, &report);
        rules.processPublicTempaltes();
        state.PauseTiming();
        state.counters["memory per text"] = static_cast<double>(heap() - before) / textsOf(*tables);
        if (rules.count() != templates)
            state.SkipWithError("not all templates were converted");
        tables.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * templates);
}
BENCHMARK(convert)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
} // namespace

BENCHMARK_MAIN();
