// The writing end of the way to one observer.
#pragma once

#include <dom/MessageReader.h>
#include <dom/Observer.h>
#include <du/SmartPtr.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

namespace dom {

/// Puts messages into an observer's queue without holding the observer.
///
/// A message is written between `Begin` and `End` by one thread at a time. Messages to an observer
/// that is gone, or through a proxy that is closed, go nowhere.
class ObserverProxy : public virtual du::RefCounted {
public:
    explicit ObserverProxy(du::SmartPtr<Observer> const& observer);
    ~ObserverProxy() override;

    void Begin();
    void PushUInt8Value(uint8_t value);
    /// Adds a reference, which whoever reads the message takes over.
    void PushSmartPtr(du::SmartPtr<du::RefCounted> const& object);
    void End();

    bool IsFor(du::SmartPtr<Observer> const& observer) const;
    /// Null when the observer is gone or going.
    du::SmartPtr<Observer> GetObserver() const;

    /// Whether the observer is gone.
    bool IsOrphan() const { return mailbox_.expired(); }

    /// From now on nothing arrives, not even what waits in the queue.
    void Close() { closed_ = true; }
    bool IsClosed() const { return closed_; }

private:
    std::weak_ptr<Mailbox> mailbox_;
    std::vector<MessageReader::Value> message_;
    std::atomic<bool> closed_{false};
};

}  // namespace dom
