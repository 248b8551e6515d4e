#include <dom/ObserverProxy.h>

#include "Mailbox.h"

#include <utility>

namespace dom {

ObserverProxy::ObserverProxy(du::SmartPtr<Observer> const& observer) {
    if (observer) mailbox_ = observer->mailbox_;
}

ObserverProxy::~ObserverProxy() = default;

void ObserverProxy::Begin() {
    message_.clear();
}

void ObserverProxy::PushUInt8Value(uint8_t value) {
    message_.emplace_back(value);
}

void ObserverProxy::PushSmartPtr(du::SmartPtr<du::RefCounted> const& object) {
    message_.emplace_back(object);
}

void ObserverProxy::End() {
    std::vector<MessageReader::Value> message = std::exchange(message_, {});
    if (closed_) return;
    if (auto const mailbox = mailbox_.lock()) mailbox->Put(this, std::move(message));
}

du::SmartPtr<Observer> ObserverProxy::GetObserver() const {
    auto const mailbox = mailbox_.lock();
    return mailbox ? mailbox->GetObserver() : nullptr;
}

bool ObserverProxy::IsFor(du::SmartPtr<Observer> const& observer) const {
    return observer && mailbox_.lock() == observer->mailbox_;
}

}  // namespace dom
