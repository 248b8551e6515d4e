#include <dom/Dispatch.h>
#include <zvk/Observable.h>
#include <zvk/Observer.h>
#include <zvk/World.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Payload : virtual du::RefCounted {};

class NumberEvent : public dom::ObservableEvent {
public:
    explicit NumberEvent(unsigned char number, du::SmartPtr<Payload> const& carried = nullptr)
        : id(static_cast<unsigned char>(zvk::Observable::GetNextEventId() + number)),
          payload(carried) {}

    void PostEvent(du::SmartPtr<dom::ObserverProxy> const& proxy) const override {
        proxy->Begin();
        proxy->PushUInt8Value(id);
        if (payload) proxy->PushSmartPtr(payload);
        proxy->End();
    }

private:
    unsigned char id;
    du::SmartPtr<Payload> payload;
};

class Source : public zvk::Observable {
public:
    Source() : Observable(nullptr) {}

    bool Register(du::SmartPtr<zvk::Observer> const& observer) {
        return _RegisterObserver(observer, new dom::ObserverProxy(observer));
    }
    bool RegisterWithoutProxy(du::SmartPtr<zvk::Observer> const& observer) {
        return _RegisterObserver(observer, nullptr);
    }
    bool Unregister(du::SmartPtr<zvk::Observer> const& observer) {
        return DoUnregisterObserver(observer);
    }
    void Post(dom::ObservableEvent const& event) { PostObservableEvent(event, false); }
};

using Lines = std::vector<std::string>;

class Recorder : public zvk::Observer {
public:
    explicit Recorder(std::string const& recorderName, Lines* book)
        : name(recorderName), lines(book) {}

    void HandleEvent(unsigned char id, dom::MessageReader& reader) override {
        if (id < zvk::Observable::GetNextEventId()) return Observer::HandleEvent(id, reader);
        std::string line = name + std::to_string(id - zvk::Observable::GetNextEventId());
        if (readsPayload && reader.GetSmartPtr<Payload>()) line += "+";
        lines->push_back(line);
        if (next) next->Post(NumberEvent(9));
    }
    void OnDestroy() override { lines->push_back(name + "destroyed"); }

    std::string name;
    Lines* lines;
    bool readsPayload = true;
    Source* next = nullptr;
};

class Events : public testing::Test {
protected:
    Events() { first->Register(a); }

    Lines lines;
    du::SmartPtr<Source> first{new Source};
    du::SmartPtr<Source> second{new Source};
    du::SmartPtr<Recorder> a{new Recorder("a", &lines)};
    du::SmartPtr<Recorder> b{new Recorder("b", &lines)};
};

TEST_F(Events, NothingArrivesBeforeTheHostDispatches) {
    first->Post(NumberEvent(1));
    EXPECT_EQ(lines, Lines());
    EXPECT_EQ(dom::Dispatch(), 1u);
    EXPECT_EQ(lines, Lines{"a1"});
    EXPECT_EQ(dom::Dispatch(), 0u);
}

TEST_F(Events, ArriveInTheOrderOfPostingOverAllObserversAndObservables) {
    second->Register(b);
    second->Register(a);
    second->Post(NumberEvent(1));
    first->Post(NumberEvent(2));
    second->Post(NumberEvent(3));
    dom::Dispatch();
    EXPECT_EQ(lines, (Lines{"b1", "a1", "a2", "b3", "a3"}));
}

TEST_F(Events, OneObserverCanBeServedAlone) {
    first->Register(b);
    first->Post(NumberEvent(1));
    EXPECT_EQ(dom::Dispatch(b), 1u);
    EXPECT_EQ(lines, Lines{"b1"});
    EXPECT_EQ(dom::Dispatch(nullptr), 0u);
    dom::Dispatch();
    EXPECT_EQ(lines, (Lines{"b1", "a1"}));
}

TEST_F(Events, WhatAHandlerPostsWaitsForTheNextDispatch) {
    a->next = first.Get();
    first->Post(NumberEvent(1));
    EXPECT_EQ(dom::Dispatch(), 1u);
    a->next = nullptr;
    EXPECT_EQ(dom::Dispatch(), 1u);
    EXPECT_EQ(lines, (Lines{"a1", "a9"}));
}

TEST_F(Events, EachObserverGetsAReferenceOfItsOwn) {
    first->Register(b);
    du::SmartPtr<Payload> const payload(new Payload);
    first->Post(NumberEvent(2, payload));
    EXPECT_EQ(payload->GetRefCount(), 3u);
    dom::Dispatch(a);
    EXPECT_EQ(payload->GetRefCount(), 2u);
    dom::Dispatch(b);
    EXPECT_EQ(payload->GetRefCount(), 1u);
    EXPECT_EQ(lines, (Lines{"a2+", "b2+"}));
}

TEST_F(Events, ReferencesThatNobodyReadsComeBack) {
    du::SmartPtr<Payload> const payload(new Payload);
    a->readsPayload = false;
    first->Post(NumberEvent(2, payload));
    dom::Dispatch();
    EXPECT_EQ(payload->GetRefCount(), 1u);

    first->Post(NumberEvent(3, payload));
    EXPECT_EQ(payload->GetRefCount(), 2u);
    a.Reset();  // the observer goes with its queue
    EXPECT_EQ(payload->GetRefCount(), 1u);
    dom::Dispatch();
    EXPECT_EQ(lines, Lines{"a2"});
}

TEST_F(Events, RegisteringNullsOrTwiceFails) {
    EXPECT_FALSE(first->Register(a));
    EXPECT_FALSE(first->Register(nullptr));
    EXPECT_FALSE(first->RegisterWithoutProxy(b));
    first->Post(NumberEvent(1));
    dom::Dispatch();
    EXPECT_EQ(lines, Lines{"a1"});
}

TEST_F(Events, NothingArrivesAfterUnregistering) {
    first->Post(NumberEvent(1));
    EXPECT_TRUE(first->Unregister(a));
    EXPECT_FALSE(first->Unregister(a));
    EXPECT_FALSE(first->Unregister(b));
    first->Post(NumberEvent(2));
    dom::Dispatch();
    EXPECT_EQ(lines, Lines());
    EXPECT_TRUE(first->Register(a));
}

TEST_F(Events, AnObservableSaysGoodbyeAfterItsLastEvents) {
    first->Post(NumberEvent(1));
    first.Reset();
    dom::Dispatch();
    EXPECT_EQ(lines, (Lines{"a1", "adestroyed"}));
}

TEST_F(Events, AnObservableDoesntHoldItsObservers) {
    EXPECT_EQ(a->GetRefCount(), 1u);
    first->Post(NumberEvent(1));
    EXPECT_EQ(a->GetRefCount(), 1u);
}

TEST(MessageReader, AnswersNothingForValuesOfAnotherKindAndPastTheEnd) {
    du::SmartPtr<Payload> const payload(new Payload);
    dom::MessageReader reader({uint8_t{7}, du::SmartPtr<du::RefCounted>(payload)});
    EXPECT_EQ(reader.GetRawPtr(), nullptr);
    EXPECT_EQ(reader.GetUInt8Value(), 7);
    EXPECT_EQ(reader.GetUInt8Value(), 0);
    EXPECT_FALSE(reader.AtEnd());
    du::SmartPtr<du::RefCounted> const read = du::Adopt(reader.GetRawPtr());
    EXPECT_EQ(read, payload);
    EXPECT_EQ(payload->GetRefCount(), 2u);
    EXPECT_TRUE(reader.AtEnd());
    EXPECT_EQ(reader.GetRawPtr(), nullptr);
    EXPECT_EQ(reader.GetUInt8Value(), 0);
}

class WorldRecorder : public zvk::WorldObserver {
public:
    void OnPreferencesChanged() override { lines.emplace_back("preferences"); }
    void OnContentMayHaveChanged() override { lines.emplace_back("content"); }
    void OnSetDisabledUserInput(bool disabled) override {
        lines.emplace_back(disabled ? "disabled" : "enabled");
    }
    Lines lines;
};

TEST(World, IsNullUntilAHostMakesOne) {
    EXPECT_FALSE(zvk::World::GetWorld());
    du::SmartPtr<zvk::World> const world(new zvk::World);
    zvk::World::SetWorld(world);
    EXPECT_EQ(zvk::World::GetWorld(), world);
    zvk::World::SetWorld(nullptr);
    EXPECT_FALSE(zvk::World::GetWorld());
}

TEST(World, TellsDirectObserversAtOnceAndTheOthersByDispatch) {
    du::SmartPtr<zvk::World> const world(new zvk::World);
    du::SmartPtr<WorldRecorder> const direct(new WorldRecorder);
    du::SmartPtr<WorldRecorder> const patient(new WorldRecorder);
    EXPECT_TRUE(world->RegisterObserver(direct, true));
    EXPECT_FALSE(world->RegisterObserver(direct, true));
    EXPECT_TRUE(world->RegisterObserver(patient, false));
    EXPECT_FALSE(world->RegisterObserver(nullptr, true));
    world->NotifyContentMayHaveChanged();
    world->NotifySetDisabledUserInput(true);
    EXPECT_EQ(direct->lines, (Lines{"content", "disabled"}));
    EXPECT_EQ(patient->lines, Lines());
    dom::Dispatch();
    EXPECT_EQ(direct->lines, (Lines{"content", "disabled"}));
    EXPECT_EQ(patient->lines, (Lines{"content", "disabled"}));
    EXPECT_TRUE(world->DeregisterObserver(direct));
    EXPECT_FALSE(world->DeregisterObserver(direct));
    world->NotifyPreferencesChanged();
    EXPECT_EQ(direct->lines.size(), 2u);
}

TEST(World, HoldsWhatItManages) {
    du::SmartPtr<zvk::World> world(new zvk::World);
    du::SmartPtr<WorldRecorder> const observer(new WorldRecorder);
    world->ManageObject(observer);
    world->ManageObject(observer);
    world->ManageObject(nullptr);
    EXPECT_EQ(observer->GetRefCount(), 2u);
    EXPECT_TRUE(world->UnmanageObject(observer));
    EXPECT_FALSE(world->UnmanageObject(observer));
    world->ManageObject(observer);
    world.Reset();
    EXPECT_EQ(observer->GetRefCount(), 1u);
}

}  // namespace
