// Delivering events.
#pragma once

#include <dom/Observer.h>
#include <du/SmartPtr.h>

#include <cstddef>

namespace dom {

/// Hands the messages that wait now to their observers, over all observers in the order of posting,
/// on the calling thread and under no lock. What the handlers post waits for the next call. Answers
/// how many messages were handled. One thread at a time may dispatch.
size_t Dispatch();

/// The same for one observer; 0 for null.
size_t Dispatch(du::SmartPtr<Observer> const& observer);

}  // namespace dom
