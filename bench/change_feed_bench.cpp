// From the acknowledged write to the delivered change, within one process and from another connection.

#include "BenchStore.h"
#include "ChangeFeed.h"

#include <benchmark/benchmark.h>
#include <QCoreApplication>

namespace
{
void deliver(benchmark::State& state, Store* writer, BenchStore& store, bool own)
{
    const auto reader = own ? nullptr : store.open();
    ChangeFeed feed(own ? writer : reader.get());
    StoreError error;
    bool arrived = false;
    QObject::connect(&feed, &ChangeFeed::arrived, [&arrived] { arrived = true; });
    feed.start(&error);
    int number = 0;
    for (auto _ : state) {
        state.PauseTiming();
        CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
        batch.RecPost(BenchStore::newRecord(batch, ++number));
        arrived = false;
        store.write("LogbookRecords", batch);
        state.ResumeTiming();
        if (own)
            feed.wake();
        while (!arrived)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void ownChange(benchmark::State& state)
{
    BenchStore store;
    deliver(state, store.loader(), store, true);
}
BENCHMARK(ownChange)->Unit(benchmark::kMicrosecond)->UseRealTime();

void changeOfAnother(benchmark::State& state)
{
    BenchStore store;
    deliver(state, store.loader(), store, false);
}
BENCHMARK(changeOfAnother)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

/// The cost of a write, including rules, log and chain.
void writeOneRecord(benchmark::State& state)
{
    BenchStore store;
    int number = 0;
    for (auto _ : state) {
        CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
        batch.RecPost(BenchStore::newRecord(batch, ++number));
        store.write("LogbookRecords", batch);
    }
}
BENCHMARK(writeOneRecord)->Unit(benchmark::kMicrosecond)->UseRealTime();

void quietPoll(benchmark::State& state)
{
    BenchStore store;
    store.loader()->hasNews();
    for (auto _ : state)
        benchmark::DoNotOptimize(store.loader()->hasNews());
}
BENCHMARK(quietPoll)->Unit(benchmark::kMicrosecond);
} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
