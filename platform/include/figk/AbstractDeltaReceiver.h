// Whatever a delta acts on.
#pragma once

namespace figk {

/// Empty: a delta finds out by a dynamic cast what it really has.
class AbstractDeltaReceiver {
public:
    AbstractDeltaReceiver();
    AbstractDeltaReceiver(AbstractDeltaReceiver const& other);
    AbstractDeltaReceiver& operator=(AbstractDeltaReceiver const& other);
    virtual ~AbstractDeltaReceiver();
};

}  // namespace figk
