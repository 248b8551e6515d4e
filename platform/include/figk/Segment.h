// A straight piece of a wire or of a highway.
#pragma once

#include <dg/Box.h>
#include <dg/Point.h>
#include <figk/AbstractItem.h>
#include <figk/Group.h>
#include <figk/TextLabelContainer.h>

namespace figk {

class Segment : public AbstractItem, public Group, public TextLabelContainer {
public:
    ~Segment() override;

    /// The two ends in figure units; `start` is the one nearer to the head of the tree.
    virtual void GetEnds(dg::DPoint2D& start, dg::DPoint2D& end) const = 0;
    /// The box of the two ends.
    dg::DBox2D GetExtents() const;
};

}  // namespace figk
