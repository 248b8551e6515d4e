// The sending end of events.
#pragma once

#include <dom/ObservableEvent.h>
#include <dom/ObserverProxy.h>
#include <du/SmartPtr.h>

#include <mutex>
#include <vector>

namespace dom {

/// Keeps the proxies of the observers that registered. It doesn't hold the observers.
class Observable : public virtual du::RefCounted {
public:
    ~Observable() override;

protected:
    Observable();
    Observable(Observable const&) = delete;
    Observable& operator=(Observable const&) = delete;

    /// False for nulls and for an observer that is registered already.
    bool AddProxy(du::SmartPtr<Observer> const& observer, du::SmartPtr<ObserverProxy> const& proxy);
    /// Nothing that was posted before reaches the observer any more. False for an unknown observer.
    bool RemoveProxy(du::SmartPtr<Observer> const& observer);
    bool HasProxies() const;

    /// Has the event write a message to each proxy, in the order of registering. Forgets the
    /// proxies of observers that are gone.
    void PostToProxies(ObservableEvent const& event);

private:
    mutable std::recursive_mutex mutex_;
    std::vector<du::SmartPtr<ObserverProxy>> proxies_;  // guarded by mutex_
};

}  // namespace dom
