// Changes as users make them, at random.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <figk/AbstractDelta.h>
#include <figrep/Fwd.h>

#include <support/Random.h>

namespace figrep::test {

/// Makes recorded changes of all kinds on a figure, such that each can be saved and made again; the
/// same seed makes the same ones. Targets are all items that have an id of their own.
class RandomEdits {
public:
    enum Kind {
        SET,      ///< a setting on several items
        SET_ONE,  ///< the visibility of items with what belongs to them, each as a change
        MOVE,     ///< several items through transforms
        DELETE,   ///< an item of a kind that can go
        COPY,     ///< a net from the kernel, whether it is there already or not
        DRAW,     ///< wires along a chain of positions
        PART,     ///< a block or a port moves and its connections break
        REJOIN,   ///< the last one moves back
        PUBLISH,  ///< texts of the title block
        KINDS
    };

    RandomEdits(SmartPtr<Figure> const& figure, std::uint64_t seed);
    ~RandomEdits();

    /// One change of a random kind; none where the figure has nothing for it.
    void Edit();
    void Edit(Kind kind);

private:
    using Deltas = std::vector<SmartPtr<figk::AbstractDelta>>;
    using Items = std::vector<SmartPtr<AbstractFigureItem>>;
    using Records = std::vector<SmartPtr<BrokenConnectionRecord>>;

    Deltas Make(Kind kind);
    Deltas SetSeveral();
    Deltas SetOne();
    Deltas MoveSeveral();
    Deltas DeleteOne();
    Deltas CopyNet();
    Deltas DrawNet();
    Deltas Part();
    Deltas Rejoin();
    Deltas Publish();

    Items SomeTargets(std::size_t atMost);
    Records RecordsOf(SmartPtr<AbstractFigureItem> const& moved, double dx, double dy);
    SmartPtr<figk::SubNet> SomeKernelNet();
    SmartPtr<TransformAction> SomeTransform();
    SmartPtr<ItemAttrInfo> SomeLabel();
    double Length();

    SmartPtr<Figure> figure_;
    Random random_;
    /// What the last parting did.
    SmartPtr<AbstractFigureItem> parted_;
    Records records_;
    double dx_ = 0;
    double dy_ = 0;
};

}  // namespace figrep::test
