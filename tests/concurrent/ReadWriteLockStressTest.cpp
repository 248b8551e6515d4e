#include <dp/ReadWriteLock.h>

#include <gtest/gtest.h>

#include <atomic>
#include <random>
#include <thread>
#include <vector>

namespace {

using dp::ReadWriteLock;

/// Two numbers that only a writer lets differ, and only while it is inside.
struct Guarded {
    ReadWriteLock lock;
    long a = 0;
    long b = 0;

    bool IsWhole() const { return a == b; }
    void Write() {
        ++a;
        ++b;
    }
};

void InThreads(int count, auto const& work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i)
        threads.emplace_back([&work, i] { work(i); });
    for (std::thread& thread : threads)
        thread.join();
}

TEST(ReadWriteLockStress, ReadersWritersAndUpgradersAtOnce) {
    Guarded guarded;
    std::atomic<int> broken{0};
    std::atomic<long> writes{0};
    InThreads(6, [&](int seed) {
        std::mt19937 random(static_cast<unsigned>(seed));
        for (int i = 0; i < 3000; ++i) {
            unsigned const what = random() % 4;
            if (what != 0) guarded.lock.ReadLock();
            if (what != 0 && !guarded.IsWhole()) ++broken;
            if (what == 0 || what == 3) {
                guarded.lock.WriteLock();
                guarded.Write();
                ++writes;
                if (random() % 8 == 0) std::this_thread::yield();
                guarded.lock.WriteUnlock();
            }
            if (what == 2) {
                guarded.lock.ReadLock();
                if (!guarded.IsWhole()) ++broken;
                guarded.lock.ReadUnlock();
            }
            if (what != 0 && !guarded.IsWhole()) ++broken;
            if (what != 0) guarded.lock.ReadUnlock();
        }
    });
    EXPECT_EQ(broken, 0);
    EXPECT_EQ(guarded.a, writes);
    EXPECT_EQ(guarded.b, writes);
}

TEST(ReadWriteLockStress, UpgradersAloneDontBlockEachOther) {
    Guarded guarded;
    InThreads(4, [&](int) {
        for (int i = 0; i < 2000; ++i) {
            guarded.lock.ReadLock();
            guarded.lock.WriteLock();
            guarded.Write();
            guarded.lock.WriteUnlock();
            guarded.lock.ReadUnlock();
        }
    });
    EXPECT_EQ(guarded.a, 8000);
}

TEST(ReadWriteLockStress, AWriterGetsInAmongReadersThatNeverPause) {
    Guarded guarded;
    std::atomic<bool> stop{false};
    std::vector<std::thread> readers;
    for (int i = 0; i < 3; ++i) {
        readers.emplace_back([&] {
            while (!stop) {
                guarded.lock.ReadLock();
                guarded.lock.ReadUnlock();
            }
        });
    }
    for (int i = 0; i < 200; ++i) {
        guarded.lock.WriteLock();
        guarded.Write();
        guarded.lock.WriteUnlock();
    }
    stop = true;
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_EQ(guarded.a, 200);
}

TEST(ReadWriteLockStress, AReaderGetsInAmongWritersThatNeverPause) {
    Guarded guarded;
    std::atomic<bool> stop{false};
    std::vector<std::thread> writers;
    for (int i = 0; i < 2; ++i) {
        writers.emplace_back([&] {
            while (!stop) {
                guarded.lock.WriteLock();
                guarded.Write();
                guarded.lock.WriteUnlock();
            }
        });
    }
    int whole = 0;
    for (int i = 0; i < 200; ++i) {
        guarded.lock.ReadLock();
        if (guarded.IsWhole()) ++whole;
        guarded.lock.ReadUnlock();
    }
    stop = true;
    for (std::thread& writer : writers)
        writer.join();
    EXPECT_EQ(whole, 200);
}

}  // namespace
