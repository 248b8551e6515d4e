#include <zvk/World.h>

#include <dom/Dispatch.h>

namespace zvk {

namespace {

enum WorldEvent : unsigned char {
    PREFERENCES_CHANGED = Observable::DESTROY_EVENT + 1,
    CONTENT_MAY_HAVE_CHANGED,
    SET_DISABLED_USER_INPUT
};
static_assert(SET_DISABLED_USER_INPUT < Observable::GetNextEventId());

class WorldChangedEvent : public dom::ObservableEvent {
public:
    WorldChangedEvent(unsigned char id, bool flag) : id_(id), flag_(flag) {}

    void PostEvent(du::SmartPtr<dom::ObserverProxy> const& proxy) const override {
        proxy->Begin();
        proxy->PushUInt8Value(id_);
        proxy->PushUInt8Value(flag_ ? 1 : 0);
        proxy->End();
    }

private:
    unsigned char id_;
    bool flag_;
};

struct TheWorld {
    std::mutex mutex;
    du::SmartPtr<World> world;  // guarded by mutex

    static TheWorld& Get() {
        static TheWorld& the = *new TheWorld;
        return the;
    }
};

}  // namespace

WorldObserver::WorldObserver() = default;

WorldObserver::~WorldObserver() = default;

void WorldObserver::OnPreferencesChanged() {}

void WorldObserver::OnContentMayHaveChanged() {}

void WorldObserver::OnSetDisabledUserInput(bool /*disabled*/) {}

void WorldObserver::HandleEvent(unsigned char id, dom::MessageReader& reader) {
    switch (id) {
        case PREFERENCES_CHANGED:
            return OnPreferencesChanged();
        case CONTENT_MAY_HAVE_CHANGED:
            return OnContentMayHaveChanged();
        case SET_DISABLED_USER_INPUT:
            return OnSetDisabledUserInput(reader.GetUInt8Value() != 0);
        default:
            return Observer::HandleEvent(id, reader);
    }
}

World::World() : Observable(nullptr) {}

World::~World() = default;

du::SmartPtr<World> World::GetWorld() {
    TheWorld& the = TheWorld::Get();
    std::lock_guard const guard(the.mutex);
    return the.world;
}

void World::SetWorld(du::SmartPtr<World> const& world) {
    du::SmartPtr<World> before = world;  // goes after the mutex is free
    TheWorld& the = TheWorld::Get();
    std::lock_guard const guard(the.mutex);
    before.Swap(the.world);
}

bool World::RegisterObserver(du::SmartPtr<WorldObserver> const& observer, bool direct) {
    if (!observer) return false;
    du::SmartPtr<dom::ObserverProxy> const proxy = new dom::ObserverProxy(observer);
    if (!_RegisterObserver(observer, proxy)) return false;
    std::lock_guard const guard(mutex_);
    if (direct) directProxies_.push_back(proxy);
    return true;
}

bool World::DeregisterObserver(du::SmartPtr<WorldObserver> const& observer) {
    {
        std::lock_guard const guard(mutex_);
        std::erase_if(directProxies_, [&](auto const& proxy) { return proxy->IsFor(observer); });
    }
    return DoUnregisterObserver(observer);
}

void World::NotifyPreferencesChanged() {
    Notify(PREFERENCES_CHANGED, false);
}

void World::NotifyContentMayHaveChanged() {
    Notify(CONTENT_MAY_HAVE_CHANGED, false);
}

void World::NotifySetDisabledUserInput(bool disabled) {
    Notify(SET_DISABLED_USER_INPUT, disabled);
}

void World::Notify(unsigned char id, bool flag) {
    PostObservableEvent(WorldChangedEvent(id, flag), false);
    std::vector<du::SmartPtr<dom::ObserverProxy>> direct;
    {
        std::lock_guard const guard(mutex_);
        std::erase_if(directProxies_, [](auto const& proxy) { return proxy->IsOrphan(); });
        direct = directProxies_;
    }
    for (auto const& proxy : direct)
        dom::Dispatch(proxy->GetObserver());
}

}  // namespace zvk
