// Something that happened and that observers may want to know.
#pragma once

#include <du/SmartPtr.h>

namespace dom {

class ObserverProxy;

/// An event, which can write itself as a message.
class ObservableEvent {
public:
    virtual ~ObservableEvent() = default;

    /// Writes one message to the proxy of one observer, its first value being the event's id.
    virtual void PostEvent(du::SmartPtr<ObserverProxy> const& proxy) const = 0;

protected:
    ObservableEvent() = default;
    ObservableEvent(ObservableEvent const&) = default;
    ObservableEvent& operator=(ObservableEvent const&) = default;
};

}  // namespace dom
