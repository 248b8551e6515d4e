// Changes as users make them, at random.
#pragma once

#include <cstdint>
#include <vector>

#include <figk/AbstractDelta.h>
#include <figrep/Fwd.h>

#include <support/Random.h>

namespace figrep::test {

/// Makes recorded changes of all kinds on a figure; the same seed makes the same ones.
class RandomEdits {
public:
    RandomEdits(SmartPtr<Figure> const& figure, std::uint64_t seed);
    ~RandomEdits();

    /// One change of a block or a net; none on a figure that has neither.
    void Edit();

private:
    std::vector<SmartPtr<AbstractFigureItem>> Targets() const;
    SmartPtr<figk::AbstractDelta> CopyOfSomeNet();
    SmartPtr<figk::AbstractDelta> Move(SmartPtr<AbstractFigureItem> const& item);
    double Length();

    SmartPtr<Figure> figure_;
    Random random_;
};

}  // namespace figrep::test
