// The receiving end of events.
#pragma once

#include <du/SmartPtr.h>

#include <memory>

namespace dom {

class Mailbox;
class MessageReader;

/// Receives events in the order in which they were posted, when the host calls `Dispatch`.
///
/// Its queue goes with it: messages that it never read give back what they hold.
class Observer : public virtual du::RefCounted {
public:
    ~Observer() override;

    /// `id` is the first value of the message; the reader gives the others.
    virtual void HandleEvent(unsigned char id, MessageReader& reader) = 0;

protected:
    Observer();
    /// A copy has a queue of its own.
    Observer(Observer const&);
    Observer& operator=(Observer const&) { return *this; }

private:
    friend class ObserverProxy;
    friend class Dispatcher;

    std::shared_ptr<Mailbox> mailbox_;
};

}  // namespace dom
