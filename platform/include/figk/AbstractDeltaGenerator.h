// Makes deltas for others to apply.
#pragma once

#include <du/RefCounted.h>
#include <figk/AbstractDelta.h>
#include <figk/Fwd.h>

#include <vector>

namespace figk {

class AbstractDeltaGenerator : public virtual du::RefCounted {
public:
    /// A copy shares the deltas made so far.
    AbstractDeltaGenerator(AbstractDeltaGenerator const& other);
    AbstractDeltaGenerator& operator=(AbstractDeltaGenerator const& other);
    ~AbstractDeltaGenerator() override;

    /// Adds to the generator's deltas. Each call adds anew.
    virtual void Generate() = 0;
    /// Appends all deltas generated so far.
    virtual void GetDeltas(std::vector<SmartPtr<AbstractDelta>>& deltas);

protected:
    AbstractDeltaGenerator();

    std::vector<SmartPtr<AbstractDelta>> deltas;
};

}  // namespace figk
