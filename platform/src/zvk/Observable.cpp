#include <zvk/Observable.h>

namespace zvk {

namespace {

class DestroyEvent : public dom::ObservableEvent {
public:
    void PostEvent(du::SmartPtr<dom::ObserverProxy> const& proxy) const override {
        proxy->Begin();
        proxy->PushUInt8Value(Observable::DESTROY_EVENT);
        proxy->End();
    }
};

}  // namespace

Observable::Observable(du::SmartPtr<ReadWriteLock> const& lock) : ObjectWithRWLock(lock) {}

Observable::~Observable() {
    PostToProxies(DestroyEvent());
}

bool Observable::_RegisterObserver(du::SmartPtr<Observer> const& observer,
                                   du::SmartPtr<dom::ObserverProxy> const& proxy, bool /*flag*/) {
    return AddProxy(observer, proxy);
}

bool Observable::DoUnregisterObserver(du::SmartPtr<Observer> const& observer) {
    return RemoveProxy(observer);
}

void Observable::PostObservableEvent(dom::ObservableEvent const& event, bool /*flag*/) {
    PostToProxies(event);
}

}  // namespace zvk
