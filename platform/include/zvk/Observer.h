// The base of observers.
#pragma once

#include <dom/ManagedObject.h>
#include <dom/MessageReader.h>
#include <dom/Observer.h>

namespace zvk {

/// Receives the events of `zvk::Observable`s.
class Observer : public dom::Observer, public dom::ManagedObject {
public:
    ~Observer() override;

    /// An observable that this observer was registered with is gone.
    virtual void OnDestroy();

    /// Handles the platform's own events, whose ids lie below `Observable::GetNextEventId()`.
    void HandleEvent(unsigned char id, dom::MessageReader& reader) override;

protected:
    Observer();
    Observer(Observer const&) = default;
};

}  // namespace zvk
