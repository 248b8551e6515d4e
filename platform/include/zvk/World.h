// What the process shows, as a whole.
#pragma once

#include <du/SmartPtr.h>
#include <zvk/Observable.h>
#include <zvk/Observer.h>

#include <mutex>
#include <vector>

namespace zvk {

/// Hears of changes that concern everything that is shown.
class WorldObserver : public Observer {
public:
    ~WorldObserver() override;

    virtual void OnPreferencesChanged();
    /// Stored content may have to be loaded again.
    virtual void OnContentMayHaveChanged();
    virtual void OnSetDisabledUserInput(bool disabled);

    void HandleEvent(unsigned char id, dom::MessageReader& reader) override;

protected:
    WorldObserver();
};

/// The one world of a process, if its host has one.
///
/// It holds what it manages (`ManageObject`), observers among it, and doesn't hold those that are
/// only registered.
class World : public Observable, public dom::ManagedObject {
public:
    World();
    ~World() override;

    /// Null when the host made none.
    static du::SmartPtr<World> GetWorld();
    static void SetWorld(du::SmartPtr<World> const& world);

    /// `direct` observers are told at once by whoever notifies; the others by `dom::Dispatch`.
    /// False for null and for an observer that is registered already.
    bool RegisterObserver(du::SmartPtr<WorldObserver> const& observer, bool direct);
    bool DeregisterObserver(du::SmartPtr<WorldObserver> const& observer);

    void NotifyPreferencesChanged();
    void NotifyContentMayHaveChanged();
    void NotifySetDisabledUserInput(bool disabled);

private:
    void Notify(unsigned char id, bool flag);

    std::mutex mutex_;
    std::vector<du::SmartPtr<dom::ObserverProxy>> directProxies_;  // guarded by mutex_
};

}  // namespace zvk
