// The queue of messages to one observer.
#pragma once

#include <dom/MessageReader.h>
#include <dom/ObserverProxy.h>

#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

namespace dom {

/// One posted message. `sequence` orders the messages of the process.
struct Message {
    uint64_t sequence = 0;
    du::SmartPtr<ObserverProxy> proxy;
    std::vector<MessageReader::Value> values;
};

/// Lives as long as its observer, and a little longer while somebody dispatches.
class Mailbox {
public:
    /// A new mailbox, known to `All`.
    static std::shared_ptr<Mailbox> Make(Observer* observer);

    /// The mailboxes of all living observers, in the order of making.
    static std::vector<std::shared_ptr<Mailbox>> All();

    /// The observer is going: drops what waits and takes in nothing more.
    void Close();

    void Put(du::SmartPtr<ObserverProxy> const& proxy, std::vector<MessageReader::Value> values);
    std::deque<Message> TakeAll();

    /// The observer, held; null when it is going.
    du::SmartPtr<Observer> GetObserver();

private:
    explicit Mailbox(Observer* observer) : observer_(observer), counted_(observer) {}

    std::mutex mutex_;
    Observer* observer_;  // guarded by mutex_; null once the observer is going
    // The observer's count, to be reached without reading the observer, which may be half gone.
    du::RefCounted const* const counted_;
    std::deque<Message> queue_;  // guarded by mutex_
};

}  // namespace dom
