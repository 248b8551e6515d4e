#include <dom/Dispatch.h>
#include <dom/Observer.h>
#include <dom/ObserverProxy.h>
#include <du/SmartPtr.h>
#include <du/Symbol.h>
#include <zv2d/Attributes.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int THREADS = 4;

void InThreads(auto const& work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i)
        threads.emplace_back([&work, i] { work(i); });
    for (std::thread& thread : threads)
        thread.join();
}

struct Shared : virtual du::RefCounted {};

TEST(SharedObjects, CountsStayRightWhenThreadsShareAnObject) {
    auto const before = du::RefCounted::LiveCount();
    {
        du::SmartPtr<Shared> const object(new Shared);
        InThreads([&](int) {
            for (int i = 0; i < 20000; ++i) {
                du::SmartPtr<Shared> const copy = object;
                du::SmartPtr<du::RefCounted> const base = copy;
            }
        });
        EXPECT_EQ(object->GetRefCount(), 1u);
    }
    EXPECT_EQ(du::RefCounted::LiveCount(), before);
}

TEST(SharedObjects, TheLastThreadDeletes) {
    auto const before = du::RefCounted::LiveCount();
    for (int round = 0; round < 300; ++round) {
        std::vector<du::SmartPtr<Shared>> holders(THREADS, du::SmartPtr<Shared>(new Shared));
        InThreads([&](int i) { holders[static_cast<size_t>(i)].Reset(); });
    }
    EXPECT_EQ(du::RefCounted::LiveCount(), before);
}

TEST(SharedObjects, ThreadsThatInternEqualTextsGetOneSymbol) {
    constexpr int TEXTS = 500;
    std::vector<std::vector<du::Symbol>> found(THREADS);
    InThreads([&](int thread) {
        for (int i = 0; i < TEXTS; ++i) {
            int const which = (i * 7 + thread * 131) % TEXTS;
            du::Symbol const symbol("concurrent-" + std::to_string(which));
            EXPECT_EQ(symbol.GetString(), "concurrent-" + std::to_string(which));
        }
        for (int i = 0; i < TEXTS; ++i) {
            found[static_cast<size_t>(thread)].emplace_back("concurrent-" + std::to_string(i));
        }
    });
    for (auto const& symbols : found)
        EXPECT_EQ(symbols, found.front());
}

TEST(SharedObjects, InternedAttributesComeAndGoInManyThreads) {
    auto const before = du::RefCounted::LiveCount();
    InThreads([&](int) {
        for (int i = 0; i < 3000; ++i) {
            attrs::TextAttr const text(du::Symbol("concurrent-font"), static_cast<float>(i % 3));
            auto const one = zv2d::Attributes::Get(zv2d::Attributes(text));
            auto const two = zv2d::Attributes::Get(zv2d::Attributes(text));
            EXPECT_EQ(one, two);
        }
    });
    EXPECT_EQ(du::RefCounted::LiveCount(), before);
}

struct Counter : dom::Observer {
    void HandleEvent(unsigned char, dom::MessageReader&) override { ++handled; }
    int handled = 0;
};

TEST(SharedObjects, EventsArriveOnTheDispatchingThreadAlone) {
    constexpr int EVENTS = 500;
    du::SmartPtr<Counter> const observer(new Counter);
    std::atomic<int> posting{THREADS};
    std::vector<std::thread> posters;
    for (int i = 0; i < THREADS; ++i) {
        posters.emplace_back([&] {
            du::SmartPtr<dom::ObserverProxy> const proxy(new dom::ObserverProxy(observer));
            for (int event = 0; event < EVENTS; ++event) {
                proxy->Begin();
                proxy->PushUInt8Value(9);
                proxy->PushSmartPtr(du::SmartPtr<du::RefCounted>(new Shared));
                proxy->End();
            }
            --posting;
        });
    }
    while (posting > 0)
        dom::Dispatch();
    for (std::thread& poster : posters)
        poster.join();
    dom::Dispatch();
    EXPECT_EQ(observer->handled, THREADS * EVENTS);
}

TEST(SharedObjects, AnObserverMayGoWhileItsEventsAreDelivered) {
    auto const before = du::RefCounted::LiveCount();
    std::atomic<bool> stop{false};
    std::thread dispatcher([&] {
        while (!stop)
            dom::Dispatch();
    });
    for (int i = 0; i < 2000; ++i) {
        du::SmartPtr<Counter> const observer(new Counter);
        du::SmartPtr<dom::ObserverProxy> const proxy(new dom::ObserverProxy(observer));
        proxy->Begin();
        proxy->PushUInt8Value(9);
        proxy->End();
    }
    stop = true;
    dispatcher.join();
    EXPECT_EQ(du::RefCounted::LiveCount(), before);
}

}  // namespace
