// The base of what can be observed.
#pragma once

#include <dom/Observable.h>
#include <du/SmartPtr.h>
#include <zvk/Object.h>
#include <zvk/Observer.h>

namespace zvk {

/// An object with a shared lock that posts events to observers.
///
/// Posting only puts messages into queues (`dom::Dispatch` delivers them), so it may be done under
/// any lock. At its end it tells its observers by their `OnDestroy`.
class Observable : public ObjectWithRWLock, public dom::Observable {
public:
    ~Observable() override;

    /// The first event id that isn't the platform's own: the base of a derived class's events.
    static constexpr unsigned char GetNextEventId() { return FIRST_FREE_EVENT; }

    static constexpr unsigned char DESTROY_EVENT = 0;

protected:
    explicit Observable(du::SmartPtr<ReadWriteLock> const& lock);

    /// False for nulls and for an observer that is registered already. Holds neither the observer
    /// nor, once it is unregistered, the proxy. `flag` has no meaning here.
    bool _RegisterObserver(du::SmartPtr<Observer> const& observer,
                           du::SmartPtr<dom::ObserverProxy> const& proxy, bool flag = false);
    /// False for an observer that isn't registered.
    bool DoUnregisterObserver(du::SmartPtr<Observer> const& observer);

    /// Posts to all observers. `flag` is for derived classes.
    virtual void PostObservableEvent(dom::ObservableEvent const& event, bool flag);

private:
    static constexpr unsigned char FIRST_FREE_EVENT = 8;
};

}  // namespace zvk
