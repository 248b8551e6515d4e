#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <optional>
#include <set>

#include <figk/BlockInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/ConnectorInstanceNode.h>
#include <figk/Highway.h>
#include <figk/HighwaySegment.h>
#include <figk/Net.h>
#include <figk/NetSegment.h>
#include <figk/Port.h>
#include <figk/PortNode.h>
#include <figk/Sheet.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <support/KernelGuarantees.h>

namespace figrep::test {

namespace {

using dg::DPoint2D;
using figkernel::NO_INDEX;
using figkernel::SourceIndex;

constexpr double TOUCH = 1e-4;

struct Line {
    DPoint2D from;
    DPoint2D to;
};

double LengthOf(Line const& line) {
    return dg::Norm(line.to - line.from);
}

bool LiesOn(DPoint2D const& p, Line const& line) {
    double const length = LengthOf(line);
    if (length == 0) return dg::Norm(p - line.from) <= TOUCH;
    dg::DVec2 const along = (line.to - line.from) * (1 / length);
    double const at = dg::Dot(p - line.from, along);
    if (at < -TOUCH || at > length + TOUCH) return false;
    return std::fabs(dg::Cross(along, p - line.from)) <= TOUCH;
}

bool Same(DPoint2D const& a, DPoint2D const& b) {
    return dg::Norm(a - b) <= TOUCH;
}

/// The length that lines cover, what lies on top of each other counted once: every line is cut at
/// the ends of all others, and each part counts for the first line that covers its middle.
double CoveredLength(std::vector<Line> const& lines) {
    double total = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        Line const& line = lines[i];
        double const length = LengthOf(line);
        if (length == 0) continue;
        std::vector<double> cuts{0, length};
        for (Line const& other : lines) {
            for (DPoint2D const& p : {other.from, other.to}) {
                if (LiesOn(p, line)) cuts.push_back(dg::Norm(p - line.from));
            }
        }
        std::sort(cuts.begin(), cuts.end());
        for (std::size_t c = 0; c + 1 < cuts.size(); ++c) {
            double const part = cuts[c + 1] - cuts[c];
            if (part <= TOUCH) continue;
            double const middle = (cuts[c] + cuts[c + 1]) / 2;
            DPoint2D const p = line.from + (line.to - line.from) * (middle / length);
            auto const covers = [&](Line const& other) {
                return LengthOf(other) > 0 && LiesOn(p, other) &&
                       LiesOn(line.from + (line.to - line.from) * (cuts[c] / length), other);
            };
            bool const isFirst = std::find_if(lines.begin(), lines.end(), covers) ==
                                 lines.begin() + static_cast<std::ptrdiff_t>(i);
            if (isFirst) total += part;
        }
    }
    return total;
}

/// Sets that are joined pair by pair.
class Sets {
public:
    std::size_t Add() {
        parents.push_back(parents.size());
        return parents.size() - 1;
    }
    std::size_t Find(std::size_t i) {
        while (parents[i] != i)
            i = parents[i] = parents[parents[i]];
        return i;
    }
    void Join(std::size_t a, std::size_t b) { parents[Find(a)] = Find(b); }

private:
    std::vector<std::size_t> parents;
};

/// Something drawn that can touch: a line, or a point.
struct Thing {
    Line line;
    std::size_t set = 0;
    bool isWire = false;  ///< a thing that has a length; others touch it with their point
};

bool Touch(Thing const& a, Thing const& b, std::vector<DPoint2D> const& joins) {
    for (auto const& [one, other] : {std::pair(&a, &b), std::pair(&b, &a)}) {
        if (LiesOn(one->line.from, other->line) || LiesOn(one->line.to, other->line)) return true;
    }
    return std::any_of(joins.begin(), joins.end(), [&](DPoint2D const& join) {
        return LiesOn(join, a.line) && LiesOn(join, b.line);
    });
}

void JoinTouching(std::vector<Thing> const& things, std::vector<DPoint2D> const& joins,
                  Sets& sets) {
    for (std::size_t i = 0; i < things.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (Touch(things[i], things[j], joins)) sets.Join(things[i].set, things[j].set);
        }
    }
}

/// One highway on one sheet: which place of it belongs to which of its pieces.
class HighwayTruth {
public:
    HighwayTruth(figkernel::DesignSource const& source, figkernel::SheetSource const& sheet,
                 SourceIndex highway) {
        for (auto const& bus : sheet.buses) {
            if (bus.highway != highway || bus.from == bus.to) continue;
            things.push_back({{bus.from, bus.to}, sets.Add(), true});
            lines.push_back({bus.from, bus.to});
        }
        for (auto const& node : sheet.portNodes) {
            if (source.ports[node.port].highway != highway) continue;
            things.push_back({{node.position, node.position}, sets.Add(), false});
        }
        std::vector<DPoint2D> joins;
        for (auto const& join : sheet.joins) {
            if (join.highway == highway) joins.push_back(join.point);
        }
        for (auto const& tap : sheet.taps) {
            if (tap.highway == highway) joins.push_back(tap.busPoint);
        }
        JoinTouching(things, joins, sets);
    }

    std::optional<std::size_t> PieceAt(DPoint2D const& point) {
        for (Thing const& thing : things) {
            if (LiesOn(point, thing.line)) return sets.Find(thing.set);
        }
        return std::nullopt;
    }
    std::vector<Line> const& Lines() const { return lines; }

private:
    Sets sets;
    std::vector<Thing> things;
    std::vector<Line> lines;
};

std::string PinName(std::string const& block, std::string const& pin) {
    return block + ":" + pin;
}

/// One net on one sheet, worked out from the drawing: groups of pins and port nodes by name, where
/// each wire's presence makes a group too.
class NetTruth {
public:
    NetTruth(figkernel::DesignSource const& designSource, figkernel::SheetSource const& sheetSource,
             SourceIndex netIndex, std::map<SourceIndex, HighwayTruth>& highwayTruths)
        : source(designSource), sheet(sheetSource), net(netIndex), highways(highwayTruths) {
        CollectWires();
        CollectPoints();
        CollectTaps();
        JoinTouching(things, JoinPoints(), sets);
        JoinOverHighways();
    }

    /// The pins of each group that needs a sub-net, sorted.
    std::multiset<std::vector<std::string>> Groups() {
        std::map<std::size_t, std::vector<std::string>> members;
        std::map<std::size_t, std::size_t> counts;
        for (Thing const& thing : things)
            ++counts[sets.Find(thing.set)];
        for (auto const& [name, set] : names)
            members[sets.Find(set)].push_back(name);
        std::multiset<std::vector<std::string>> groups;
        for (auto const& [set, count] : counts) {
            std::vector<std::string>& pins = members[set];
            if (count == 1 && pins.size() == 1) continue;
            std::sort(pins.begin(), pins.end());
            groups.insert(pins);
        }
        return groups;
    }
    std::vector<Line> const& Lines() const { return lines; }

private:
    void CollectWires() {
        for (auto const& wire : sheet.wires) {
            if (wire.net != net || wire.from == wire.to) continue;
            things.push_back({{wire.from, wire.to}, sets.Add(), true});
            lines.push_back({wire.from, wire.to});
        }
    }

    void CollectPoints() {
        for (auto const& block : sheet.blocks) {
            for (auto const& pin : block.pins) {
                if (pin.net != net) continue;
                things.push_back({{pin.position, pin.position}, sets.Add(), false});
                names.emplace(PinName(block.name, pin.name), things.back().set);
            }
        }
        for (auto const& node : sheet.portNodes) {
            if (source.ports[node.port].net != net) continue;
            things.push_back({{node.position, node.position}, sets.Add(), false});
        }
    }

    /// A tap is a point where its wire begins; what it does at the bus is told apart.
    void CollectTaps() {
        for (auto const& tap : sheet.taps) {
            if (tap.net != net) continue;
            things.push_back({{tap.netPoint, tap.netPoint}, sets.Add(), false});
            taps.emplace_back(&tap, things.back().set);
        }
    }

    std::vector<DPoint2D> JoinPoints() const {
        std::vector<DPoint2D> points;
        for (auto const& join : sheet.joins) {
            if (join.net == net) points.push_back(join.point);
        }
        // A point thing joins the wires that pass it.
        for (Thing const& thing : things) {
            if (!thing.isWire) points.push_back(thing.line.from);
        }
        return points;
    }

    void JoinOverHighways() {
        for (std::size_t i = 0; i < taps.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j) {
                auto const& [a, setA] = taps[i];
                auto const& [b, setB] = taps[j];
                if (a->highway != b->highway) continue;
                if (Same(a->busPoint, b->busPoint) || OnOnePiece(*a, *b)) sets.Join(setA, setB);
            }
        }
    }

    bool OnOnePiece(figkernel::TapSource const& a, figkernel::TapSource const& b) {
        auto const at = highways.find(a.highway);
        if (at == highways.end()) return false;
        auto const pieceA = at->second.PieceAt(a.busPoint);
        return pieceA && pieceA == at->second.PieceAt(b.busPoint);
    }

    figkernel::DesignSource const& source;
    figkernel::SheetSource const& sheet;
    SourceIndex net;
    std::map<SourceIndex, HighwayTruth>& highways;
    Sets sets;
    std::vector<Thing> things;
    std::vector<Line> lines;
    std::vector<std::pair<figkernel::TapSource const*, std::size_t>> taps;
    std::map<std::string, std::size_t> names;
};

/// What the kernel made of one sub-net.
struct BuiltNet {
    std::vector<std::string> pins;
    std::vector<Line> lines;  ///< with length, ways onto highways included
};

template <class Segment>
void TakeSegment(figk::BaseConnectionNode& node, std::vector<Line>& lines) {
    auto const segment = du::DynamicCast<Segment>(&node);
    if (!segment) return;
    Line line;
    segment->GetEnds(line.from, line.to);
    if (LengthOf(line) > 0) lines.push_back(line);
}

BuiltNet Read(figk::SubNet const& subNet) {
    BuiltNet built;
    if (!subNet.GetHead()) return built;
    for (auto at = subNet.GetHead()->Begin(); !(at == subNet.GetHead()->End()); ++at) {
        TakeSegment<figk::NetSegment>(**at, built.lines);
        auto const node = du::DynamicCast<figk::ConnectorInstanceNode>(*at);
        if (!node) continue;
        auto const pin = node->GetConnectorInstance();
        built.pins.push_back(PinName(pin->GetBlockInstance()->GetName(), pin->GetName()));
    }
    std::sort(built.pins.begin(), built.pins.end());
    return built;
}

class TruthChecker {
public:
    TruthChecker(figkernel::DesignSource const& designSource, figk::Design const& builtDesign)
        : source(designSource), design(builtDesign) {}

    std::vector<std::string> Check() {
        auto const sheets = design.GetSheets();
        for (std::size_t i = 0; i < sheets.size(); ++i)
            CheckSheet(source.sheets[i], *sheets[i]);
        return std::move(problems);
    }

private:
    void CheckSheet(figkernel::SheetSource const& drawn, figk::Sheet const& sheet) {
        std::map<SourceIndex, HighwayTruth> highways;
        for (SourceIndex i = 0; i < source.highways.size(); ++i) {
            highways.emplace(i, HighwayTruth(source, drawn, i));
            CheckHighway(highways.at(i), source.highways[i].id, sheet);
        }
        std::map<std::string, std::vector<BuiltNet>> built;
        for (auto const& subNet : sheet.GetSubNets()) {
            built[subNet->GetName()].push_back(Read(*subNet));
        }
        for (SourceIndex i = 0; i < source.nets.size(); ++i) {
            NetTruth truth(source, drawn, i, highways);
            CheckNet(truth, source.nets[i].name, TapLines(drawn, i), built[source.nets[i].name]);
        }
    }

    static std::vector<Line> TapLines(figkernel::SheetSource const& drawn, SourceIndex net) {
        std::vector<Line> lines;
        for (auto const& tap : drawn.taps) {
            if (tap.net == net) lines.push_back({tap.netPoint, tap.busPoint});
        }
        return lines;
    }

    void CheckHighway(HighwayTruth const& truth, std::string const& id, figk::Sheet const& sheet) {
        std::vector<Line> pieces;
        for (auto const& subHighway : sheet.GetSubHighways()) {
            if (subHighway->GetHighway()->GetId().GetString() != id) continue;
            auto const head = subHighway->GetHead();
            for (auto at = head->Begin(); !(at == head->End()); ++at) {
                TakeSegment<figk::HighwaySegment>(**at, pieces);
            }
        }
        CheckLength("highway " + id, truth.Lines(), pieces);
        CheckPlaces("highway " + id, truth.Lines(), pieces);
    }

    void CheckNet(NetTruth& truth, std::string const& name, std::vector<Line> const& taps,
                  std::vector<BuiltNet> const& built) {
        std::multiset<std::vector<std::string>> groups;
        std::vector<Line> pieces;
        for (BuiltNet const& subNet : built) {
            groups.insert(subNet.pins);
            pieces.insert(pieces.end(), subNet.lines.begin(), subNet.lines.end());
        }
        if (groups != truth.Groups()) {
            problems.push_back("net " + name + ": joins " + Text(groups) + " and not " +
                               Text(truth.Groups()));
        }
        RemoveTaps(name, taps, pieces);
        CheckLength("net " + name, truth.Lines(), pieces);
        CheckPlaces("net " + name, truth.Lines(), pieces);
    }

    /// Every tap is drawn once, also where it lies on a wire.
    void RemoveTaps(std::string const& name, std::vector<Line> const& taps,
                    std::vector<Line>& pieces) {
        for (Line const& tap : taps) {
            if (LengthOf(tap) == 0) continue;
            auto const at = std::find_if(pieces.begin(), pieces.end(), [&](Line const& piece) {
                return (Same(piece.from, tap.from) && Same(piece.to, tap.to)) ||
                       (Same(piece.from, tap.to) && Same(piece.to, tap.from));
            });
            if (at == pieces.end()) {
                problems.push_back("net " + name + ": a way onto a highway isn't drawn");
            } else {
                pieces.erase(at);
            }
        }
    }

    void CheckLength(std::string const& what, std::vector<Line> const& drawn,
                     std::vector<Line> const& pieces) {
        double sum = 0;
        for (Line const& piece : pieces)
            sum += LengthOf(piece);
        double const expected = CoveredLength(drawn);
        if (std::fabs(sum - expected) > 1e-6 * (1 + expected)) {
            problems.push_back(what + ": draws " + std::to_string(sum) + " mm in place of " +
                               std::to_string(expected));
        }
    }

    void CheckPlaces(std::string const& what, std::vector<Line> const& drawn,
                     std::vector<Line> const& pieces) {
        for (Line const& piece : pieces) {
            bool const covered = std::any_of(drawn.begin(), drawn.end(), [&](Line const& line) {
                return LiesOn(piece.from, line) && LiesOn(piece.to, line);
            });
            if (!covered) problems.push_back(what + ": draws a piece where there is none");
        }
    }

    static std::string Text(std::multiset<std::vector<std::string>> const& groups) {
        std::string text;
        for (auto const& group : groups) {
            text += "{";
            for (std::string const& pin : group)
                text += pin + " ";
            text += "}";
        }
        return text;
    }

    figkernel::DesignSource const& source;
    figk::Design const& design;
    std::vector<std::string> problems;
};

}  // namespace

std::vector<std::string> FindFalseConnections(figkernel::DesignSource const& source,
                                              figk::Design const& design) {
    return TruthChecker(source, design).Check();
}

}  // namespace figrep::test
