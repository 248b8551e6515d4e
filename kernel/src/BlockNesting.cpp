#include "BlockNesting.h"

namespace figkernel {

namespace {

/// Collects one parent per child, the first named.
class Collector {
public:
    Collector(SheetSource const& source, BuildContext& buildContext)
        : sheet(source), context(buildContext), taken(source.blocks.size()) {}

    std::vector<Nesting> Collect() {
        for (SourceIndex i = 0; i < sheet.blocks.size(); ++i) {
            AddAll(i, sheet.blocks[i].children, false, sheet.blocks[i].id);
        }
        for (SourceIndex i = 0; i < sheet.cables.size(); ++i) {
            AddAll(i, sheet.cables[i].children, true, sheet.cables[i].id);
        }
        return std::move(nestings);
    }

private:
    void AddAll(SourceIndex parent, std::vector<SourceIndex> const& children, bool isCable,
                std::string const& id) {
        for (SourceIndex const child : children) {
            if (!context.IsUsable(child, sheet.blocks.size(), "block", id)) continue;
            if (taken[child]) {
                context.Report(BuildFinding::BAD_NESTING, sheet.blocks[child].id,
                               "The block would stand inside two others.");
                continue;
            }
            taken[child] = true;
            nestings.push_back({parent, child, isCable});
        }
    }

    SheetSource const& sheet;
    BuildContext& context;
    std::vector<bool> taken;
    std::vector<Nesting> nestings;
};

/// The blocks from which going up comes back to them, one for each such ring.
std::vector<bool> RingBreakers(std::vector<SourceIndex> const& parents) {
    std::vector<bool> breakers(parents.size());
    std::vector<SourceIndex> seenFrom(parents.size(), NO_INDEX);
    for (SourceIndex start = 0; start < parents.size(); ++start) {
        SourceIndex at = start;
        while (at != NO_INDEX && seenFrom[at] == NO_INDEX) {
            seenFrom[at] = start;
            at = parents[at];
        }
        if (at != NO_INDEX && seenFrom[at] == start) breakers[at] = true;
    }
    return breakers;
}

}  // namespace

std::vector<Nesting> FindNesting(SheetSource const& sheet, BuildContext& context) {
    std::vector<Nesting> nestings = Collector(sheet, context).Collect();
    std::vector<SourceIndex> parents(sheet.blocks.size(), NO_INDEX);
    for (Nesting const& nesting : nestings) {
        if (!nesting.isCable) parents[nesting.child] = nesting.parent;
    }
    std::vector<bool> const breakers = RingBreakers(parents);
    std::erase_if(nestings, [&](Nesting const& nesting) {
        bool const isBad = !nesting.isCable && breakers[nesting.child];
        if (isBad) {
            context.Report(BuildFinding::BAD_NESTING, sheet.blocks[nesting.child].id,
                           "The block would stand inside itself.");
        }
        return isBad;
    });
    return nestings;
}

}  // namespace figkernel
