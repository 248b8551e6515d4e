// What the tests of all deltas need.
#pragma once

#include <figk/AbstractDelta.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/BlockInstance.h>
#include <figrep/ConnectionNode.h>
#include <figrep/Figure.h>
#include <figrep/Segment.h>
#include <figrep/SubNet.h>
#include <gtest/gtest.h>
#include <support/ContentLines.h>
#include <support/Drawing.h>
#include <support/FigureDump.h>
#include <zvk/SerializedContentElement.h>

#include <string>
#include <vector>

#include "Drawings.h"

namespace figrep::testing {

using Strings = std::vector<std::string>;
using test::DumpOf;

/// What a delta writes, line by line.
inline Strings Written(SmartPtr<figk::AbstractDelta> const& delta) {
    zvk::SerializedContentElement element(Symbol("component"));
    delta->Serialize(&element);
    return test::LinesOf(element);
}

inline Strings WrittenFigure(SmartPtr<Figure> const& figure) {
    zvk::SerializedContentElement element(Symbol("figure"));
    figure->CaptureContent(&element);
    return test::LinesOf(element);
}

inline SmartPtr<BlockInstance> BlockOf(SmartPtr<Figure> const& figure, std::string const& name) {
    for (auto const& block : figure->GetBlockInstances()) {
        if (block->GetName() == name) return block;
    }
    return {};
}

inline SmartPtr<SubNet> NetOf(SmartPtr<Figure> const& figure, std::string const& name) {
    for (auto const& subNet : figure->GetSubNets()) {
        if (subNet->GetName() == name) return subNet;
    }
    return {};
}

/// The nodes of a sub-net's walk of one kind.
template <typename Kind>
std::vector<SmartPtr<Kind>> NodesOf(SmartPtr<SubNet> const& subNet) {
    std::vector<SmartPtr<Kind>> nodes;
    auto const head = subNet->GetHead();
    if (!head) return nodes;
    for (auto it = head->Begin(); it != head->End(); ++it) {
        if (auto const node = du::DynamicCast<Kind>(*it)) nodes.push_back(node);
    }
    return nodes;
}

inline std::string EndsOf(Segment const& segment) {
    DPoint2D start;
    DPoint2D end;
    segment.GetEnds(start, end);
    auto const text = [](DPoint2D const& p) {
        return std::to_string(static_cast<int>(p.x)) + "," + std::to_string(static_cast<int>(p.y));
    };
    return text(start) + " " + text(end);
}

/// The wires of a sub-net as "x,y x,y", in the order of the walk.
template <typename Kind>
Strings WiresOf(SmartPtr<SubNet> const& subNet) {
    Strings wires;
    for (auto const& wire : NodesOf<Kind>(subNet))
        wires.push_back(EndsOf(*wire));
    return wires;
}

/// Applies a delta that has lost its target: it fails with status 0, nothing changes, it is listed.
inline void ExpectLost(SmartPtr<Figure> const& figure, SmartPtr<figk::AbstractDelta> const& delta) {
    Strings const before = DumpOf(figure);
    figure->AddAndApplyDelta(delta, false, false);
    EXPECT_EQ(DumpOf(figure), before);
    EXPECT_EQ(delta->GetStatus(), figk::AbstractDelta::STATUS_OK);
    Figure::Deltas failures;
    figure->TakeDeltaFailures(failures);
    EXPECT_EQ(failures, Figure::Deltas{delta});
    EXPECT_EQ(figure->GetDeltas().back(), delta);
}

/// A receiver that is no figure.
class OtherReceiver : public figk::AbstractDeltaReceiver {};

}  // namespace figrep::testing
