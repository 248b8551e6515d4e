#include "HighwayPaths.h"

#include <figrep/HighwaySegment.h>
#include <figrep/SubNet.h>

#include <algorithm>
#include <iterator>

namespace figrep {

namespace {

using Segments = std::vector<SmartPtr<HighwaySegment>>;

/// One contact on its way to the head.
struct Climber {
    SmartPtr<HighwaySegment> at;
    Segments path;
    bool joinedAnother = false;
};

SmartPtr<HighwaySegment> SegmentAbove(HighwaySegment const& segment) {
    return du::DynamicCast<HighwaySegment>(segment.GetNonJunctionPredecessor());
}

/// Counts the climber's present segment and goes on to the next, unless somebody was there before.
void Step(Climber& climber) {
    HighwaySegment& segment = *climber.at;
    unsigned int const count = segment.GetVisitCount();
    segment.SetVisitCount(count + 1);
    if (count != 0) {
        climber.joinedAnother = true;
        return;
    }
    climber.path.push_back(climber.at);
    climber.at = SegmentAbove(segment);
}

/// Lets the climbers go on until all have met, or for `toHead` until all are at the top.
void Climb(std::vector<Climber>& climbers, bool toHead) {
    std::vector<Climber*> climbing;
    climbing.reserve(climbers.size());
    for (Climber& climber : climbers)
        climbing.push_back(&climber);
    std::size_t apart = climbers.size();
    while (!climbing.empty() && (toHead || apart > 1)) {
        for (Climber* const climber : climbing) {
            Step(*climber);
            if (climber->joinedAnother) --apart;
        }
        std::erase_if(climbing, [](Climber const* climber) {
            return climber->joinedAnother || !climber->at;
        });
    }
}

/// How much of the path of a climber that joined nobody lies below the place where the last other
/// one joined it.
std::size_t LengthBelowMeeting(Segments const& path) {
    for (std::size_t i = path.size(); i > 0; --i) {
        if (path[i - 1]->GetVisitCount() > 1) return i - 1;
    }
    return 0;
}

}  // namespace

Segments FindHighwayPaths(Segments const& contacts, bool fromHead) {
    std::vector<Climber> climbers;
    for (auto const& contact : contacts) {
        if (contact) climbers.push_back({contact, {}, false});
    }
    Climb(climbers, fromHead);
    Segments joined;
    for (Climber const& climber : climbers) {
        bool const whole = fromHead || climber.joinedAnother;
        auto const length = whole ? climber.path.size() : LengthBelowMeeting(climber.path);
        std::copy_n(climber.path.begin(), length, std::back_inserter(joined));
    }
    for (Climber const& climber : climbers) {
        for (auto const& segment : climber.path)
            segment->SetVisitCount(0);
    }
    return joined;
}

}  // namespace figrep
