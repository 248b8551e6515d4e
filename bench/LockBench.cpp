// What do the read lock and a counted pointer cost beside the standard's?
#include <benchmark/benchmark.h>

#include <memory>
#include <shared_mutex>
#include <thread>
#include <utility>
#include <vector>

#include <du/RefCounted.h>
#include <du/SmartPtr.h>
#include <support/CpuTimer.h>
#include <zvk/ReadWriteLock.h>

namespace {

using figbench::Best;
using figbench::Measure;

constexpr int REPEATS = 20'000;

template <class Work>
double Repeated(Work&& work) {
    return Measure([&] {
               for (int i = 0; i < REPEATS; ++i) {
                   work();
                   benchmark::ClobberMemory();
               }
           }) /
           REPEATS;
}

/// Counts without locked instructions end with the first thread.
void EndSingleThread() {
    std::thread([] {}).join();
}

void ReadLock(benchmark::State& state) {
    EndSingleThread();
    du::SmartPtr<zvk::ReadWriteLock> const lock(new zvk::ReadWriteLock());
    std::shared_mutex standard;
    Best outermost, nested, shared;
    for (auto _ : state) {
        outermost.Add(Repeated([&] { zvk::ReadGuard const guard(lock); }));
        shared.Add(Repeated([&] { std::shared_lock const guard(standard); }));
        zvk::ReadGuard const outer(lock);
        nested.Add(Repeated([&] { zvk::ReadGuard const guard(lock); }));
    }
    state.counters["nested_to_outermost"] = nested.Seconds() / outermost.Seconds();
    state.counters["outermost_to_shared_mutex"] = outermost.Seconds() / shared.Seconds();
    state.counters["ns_outermost"] = outermost.Seconds() * 1e9;
}

struct Counted : public virtual du::RefCounted {
    int value = 0;
};
struct Plain {
    virtual ~Plain() = default;
    int value = 0;
};

/// Copies one pointer over another and back.
template <class Pointer>
double CopyPointer(Pointer const& a, Pointer const& b) {
    Pointer target = a;
    return Repeated([&] {
        target = b;
        benchmark::DoNotOptimize(target);
        target = a;
        benchmark::DoNotOptimize(target);
    });
}

template <class Pointer>
double CopyVector(std::vector<Pointer> const& from) {
    return Measure([&] {
        std::vector<Pointer> const copy(from);
        benchmark::DoNotOptimize(copy.data());
    });
}

void CopyPointers(benchmark::State& state, bool threads) {
    if (threads) EndSingleThread();
    std::vector<du::SmartPtr<Counted>> ours;
    std::vector<std::shared_ptr<Plain>> standard;
    for (int i = 0; i < 1000; ++i) {
        ours.emplace_back(new Counted());
        standard.push_back(std::make_shared<Plain>());
    }
    Best one, standardOne, many, standardMany;
    for (auto _ : state) {
        one.Add(CopyPointer(ours[0], ours[1]));
        standardOne.Add(CopyPointer(standard[0], standard[1]));
        many.Add(CopyVector(ours));
        standardMany.Add(CopyVector(standard));
    }
    state.counters["to_shared_ptr"] = one.Seconds() / standardOne.Seconds();
    state.counters["vector_to_shared_ptr"] = many.Seconds() / standardMany.Seconds();
    state.counters["ns_copy"] = one.Seconds() * 1e9 / 2;
}

// In this order: there is no way back to a single thread.
BENCHMARK_CAPTURE(CopyPointers, single_thread, false);
BENCHMARK_CAPTURE(CopyPointers, threads, true);
BENCHMARK(ReadLock);

}  // namespace

BENCHMARK_MAIN();
