#include <dom/Observable.h>

#include <algorithm>

namespace dom {

Observable::Observable() = default;

Observable::~Observable() = default;

bool Observable::AddProxy(du::SmartPtr<Observer> const& observer,
                          du::SmartPtr<ObserverProxy> const& proxy) {
    if (!observer || !proxy) return false;
    std::lock_guard const guard(mutex_);
    bool const known = std::ranges::any_of(
        proxies_, [&](auto const& present) { return present->IsFor(observer); });
    if (!known) proxies_.push_back(proxy);
    return !known;
}

bool Observable::RemoveProxy(du::SmartPtr<Observer> const& observer) {
    std::lock_guard const guard(mutex_);
    auto const found = std::ranges::find_if(
        proxies_, [&](auto const& present) { return present->IsFor(observer); });
    if (found == proxies_.end()) return false;
    (*found)->Close();
    proxies_.erase(found);
    return true;
}

bool Observable::HasProxies() const {
    std::lock_guard const guard(mutex_);
    return !proxies_.empty();
}

void Observable::PostToProxies(ObservableEvent const& event) {
    std::lock_guard const guard(mutex_);
    std::erase_if(proxies_, [](auto const& proxy) { return proxy->IsOrphan(); });
    for (auto const& proxy : proxies_)
        event.PostEvent(proxy);
}

}  // namespace dom
