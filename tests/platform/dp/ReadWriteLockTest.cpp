#include <zvk/ReadWriteLock.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

namespace {

using dp::ReadWriteLock;

/// Another thread that wants to write, from now until it goes.
class Probe {
public:
    explicit Probe(ReadWriteLock& probed)
        : writer([this, &probed] {
              probed.WriteLock();
              inside = true;
              probed.WriteUnlock();
          }) {}
    ~Probe() { writer.join(); }

    bool IsBlockedFor(int milliseconds) {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        return !inside;
    }

private:
    std::atomic<bool> inside{false};
    std::thread writer;
};

bool OtherThreadCanRead(ReadWriteLock& lock) {
    std::thread([&] {
        lock.ReadLock();
        lock.ReadUnlock();
    }).join();
    return true;
}

TEST(ReadWriteLock, SeveralReadersAreInsideTogether) {
    ReadWriteLock lock;
    lock.ReadLock();
    EXPECT_TRUE(OtherThreadCanRead(lock));
    lock.ReadUnlock();
}

TEST(ReadWriteLock, AReaderKeepsWritersOutUntilItsLastUnlock) {
    ReadWriteLock lock;
    lock.ReadLock();
    lock.ReadLock();
    lock.ReadUnlock();
    {
        Probe probe(lock);
        EXPECT_TRUE(probe.IsBlockedFor(20));
        lock.ReadUnlock();
    }
    EXPECT_FALSE(lock.IsHeldByThisThread());
}

TEST(ReadWriteLock, AWriterTakesItAgainForBoth) {
    ReadWriteLock lock;
    lock.WriteLock();
    lock.WriteLock();
    lock.ReadLock();
    EXPECT_TRUE(lock.IsWriteHeldByThisThread());
    lock.WriteUnlock();
    lock.ReadUnlock();
    EXPECT_TRUE(lock.IsWriteHeldByThisThread());
    lock.WriteUnlock();
    EXPECT_FALSE(lock.IsHeldByThisThread());
    EXPECT_TRUE(OtherThreadCanRead(lock));
}

TEST(ReadWriteLock, AReaderMayGoOnToWriteAndBack) {
    ReadWriteLock lock;
    lock.ReadLock();
    lock.WriteLock();
    EXPECT_TRUE(lock.IsWriteHeldByThisThread());
    lock.WriteUnlock();
    EXPECT_TRUE(lock.IsHeldByThisThread());
    EXPECT_TRUE(OtherThreadCanRead(lock));
    {
        Probe probe(lock);
        EXPECT_TRUE(probe.IsBlockedFor(20));
        lock.ReadUnlock();
    }
}

TEST(ReadWriteLock, AReadHoldTakenInsideAWriteOutlivesIt) {
    ReadWriteLock lock;
    lock.WriteLock();
    lock.ReadLock();
    lock.WriteUnlock();
    EXPECT_TRUE(OtherThreadCanRead(lock));
    {
        Probe probe(lock);
        EXPECT_TRUE(probe.IsBlockedFor(20));
        lock.ReadUnlock();
    }
}

TEST(ReadWriteLock, TheReadHoldMayGoBeforeTheWriteThatItBecame) {
    ReadWriteLock lock;
    lock.ReadLock();
    lock.WriteLock();
    lock.ReadUnlock();
    EXPECT_TRUE(lock.IsWriteHeldByThisThread());
    lock.WriteUnlock();
    EXPECT_FALSE(lock.IsHeldByThisThread());
    Probe probe(lock);
    EXPECT_FALSE(probe.IsBlockedFor(200));
}

TEST(ReadWriteLock, AWaitingWriterComesBeforeNewReaders) {
    ReadWriteLock lock;
    lock.ReadLock();
    std::atomic<int> order{0};
    int writerPlace = 0;
    int readerPlace = 0;
    std::thread writer([&] {
        lock.WriteLock();
        writerPlace = ++order;
        lock.WriteUnlock();
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    std::thread reader([&] {
        lock.ReadLock();
        readerPlace = ++order;
        lock.ReadUnlock();
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(order, 0);
    lock.ReadLock();  // whoever is inside may always go deeper
    lock.ReadUnlock();
    lock.ReadUnlock();
    writer.join();
    reader.join();
    EXPECT_EQ(writerPlace, 1);
    EXPECT_EQ(readerPlace, 2);
}

TEST(ReadWriteLock, OfTwoUpgradersTheLaterGivesWay) {
    ReadWriteLock lock;
    lock.ReadLock();
    std::atomic<bool> reading{false};
    int written = 0;
    int seenByLater = -1;
    std::thread first([&] {
        lock.ReadLock();
        reading = true;
        lock.WriteLock();
        written = 1;
        lock.WriteUnlock();
        lock.ReadUnlock();
    });
    while (!reading)
        std::this_thread::yield();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    lock.WriteLock();  // the other one waits already, so its write comes first
    seenByLater = written;
    lock.WriteUnlock();
    EXPECT_TRUE(lock.IsHeldByThisThread());  // the read hold is back
    EXPECT_FALSE(lock.IsWriteHeldByThisThread());
    lock.ReadUnlock();
    first.join();
    EXPECT_EQ(seenByLater, 1);
}

TEST(ReadWriteLock, GivingBackWhatIsNotHeldDoesNothing) {
    ReadWriteLock lock;
    lock.ReadUnlock();
    lock.WriteUnlock();
    lock.ReadLock();
    lock.WriteUnlock();
    EXPECT_TRUE(lock.IsHeldByThisThread());
    lock.ReadUnlock();
    EXPECT_FALSE(lock.IsHeldByThisThread());
}

TEST(ReadWriteLock, LocksHeldTogetherKeepTheirOwnCounts) {
    std::vector<std::unique_ptr<ReadWriteLock>> locks;
    for (int i = 0; i < 20; ++i)
        locks.push_back(std::make_unique<ReadWriteLock>());
    for (auto& lock : locks)
        lock->ReadLock();
    for (auto& lock : locks)
        lock->WriteLock();
    for (auto& lock : locks) {
        EXPECT_TRUE(lock->IsWriteHeldByThisThread());
        lock->WriteUnlock();
        EXPECT_TRUE(lock->IsHeldByThisThread());
        EXPECT_FALSE(lock->IsWriteHeldByThisThread());
    }
    for (auto& lock : locks)
        lock->ReadUnlock();
    for (auto& lock : locks)
        EXPECT_FALSE(lock->IsHeldByThisThread());
}

TEST(Guards, HoldTheLockForTheirScope) {
    du::SmartPtr<zvk::ReadWriteLock> const lock(new zvk::ReadWriteLock);
    {
        zvk::ReadGuard const outer(lock);
        EXPECT_TRUE(lock->IsHeldByThisThread());
        zvk::WriteGuard const inner(lock);
        EXPECT_TRUE(lock->IsWriteHeldByThisThread());
    }
    EXPECT_FALSE(lock->IsHeldByThisThread());
}

TEST(Guards, ANestedReaderRestsOnTheOuterHold) {
    du::SmartPtr<zvk::ReadWriteLock> const lock(new zvk::ReadWriteLock);
    {
        zvk::ReadGuard const outer(lock);
        { zvk::ReadGuard const inner(lock); }
        EXPECT_TRUE(lock->IsHeldByThisThread());
        {
            zvk::WriteGuard const writer(lock);
            { zvk::ReadGuard const inner(lock); }
            EXPECT_TRUE(lock->IsWriteHeldByThisThread());
        }
        EXPECT_TRUE(lock->IsHeldByThisThread());
        EXPECT_FALSE(lock->IsWriteHeldByThisThread());
    }
    EXPECT_FALSE(lock->IsHeldByThisThread());
}

TEST(Guards, AcceptANullLock) {
    du::SmartPtr<zvk::ReadWriteLock> const none;
    zvk::ReadGuard const reader(none);
    zvk::WriteGuard const writer(none);
}

}  // namespace
