// What a sheet draws of nets and highways, checked and sorted by net and highway.
#pragma once

#include <vector>

#include "BuildContext.h"
#include "HighwayPlanner.h"
#include "ItemBuilder.h"
#include "KeyedList.h"
#include "NetPlanner.h"

namespace figkernel {

/// Where the usable wires, taps, ports, pins and joins of a sheet stand on the grid. What isn't
/// usable has been reported and left out.
class SheetWires {
public:
    SheetWires(SheetSource const& source, std::vector<SheetPin> const& sheetPins,
               BuildContext& buildContext);

    /// The highways that have something on the sheet, and the nets, in the order of the source.
    std::vector<SourceIndex> Highways() const;
    std::vector<SourceIndex> Nets() const;

    HighwayDrawing DrawingOfHighway(SourceIndex highway) const;
    /// Notes where the taps of a drawing of a highway came out; reports those that lie nowhere.
    void SetPlaces(HighwayDrawing const& drawing, std::vector<HighwayPlace> const& places);
    NetDrawing DrawingOfNet(SourceIndex net) const;

    /// Notes wires (or buses) that came out of planning; the others lie wholly on them.
    void MarkWires(std::vector<Piece> const& pieces) { Mark(pieces, wireSeen); }
    void MarkBuses(std::vector<Piece> const& pieces) { Mark(pieces, busSeen); }
    void ReportCovered();

    std::span<KeyedList::Entry const> DecorationsOfNet(SourceIndex net) const {
        return netDecorations.At(net);
    }
    std::span<KeyedList::Entry const> DecorationsOfHighway(SourceIndex highway) const {
        return highwayDecorations.At(highway);
    }
    /// Decorations that belong to no net and no highway, or have no place.
    std::vector<std::uint32_t> const& FreeDecorations() const { return freeDecorations; }
    GridPoint const& AnchorOf(std::uint32_t decoration) const { return anchors[decoration]; }

private:
    struct Ends {
        GridPoint from;
        GridPoint to;
    };

    template <class Source>
    bool TakeLine(Source const& line, Ends& ends);
    bool TakePoint(dg::DPoint2D const& point, GridPoint& out, std::string const& id);
    void TakeWires();
    void TakeBuses();
    void TakeTaps();
    void TakePorts();
    void TakeJoins();
    void TakeFlowStarts();
    void TakeDecorations();
    void CheckMembers();
    void Sort();
    static void Mark(std::vector<Piece> const& pieces, std::vector<bool>& seen);
    template <class Source>
    void ReportCovered(std::vector<Source> const& lines, std::vector<bool> const& seen);

    SheetSource const& sheet;
    std::vector<SheetPin> const& pins;
    BuildContext& context;
    std::vector<Ends> wireEnds;
    std::vector<Ends> busEnds;
    std::vector<Ends> tapEnds;  ///< from the net to the bus
    std::vector<HighwayPlace> tapPlaces;
    std::vector<GridPoint> portPlaces;
    std::vector<GridPoint> joinPlaces;
    std::vector<GridPoint> startPlaces;
    std::vector<GridPoint> anchors;
    std::vector<bool> wireSeen;
    std::vector<bool> busSeen;
    KeyedList netWires;
    KeyedList netTaps;
    KeyedList netPorts;
    KeyedList netPins;
    KeyedList netJoins;
    KeyedList netStarts;
    KeyedList netDecorations;
    KeyedList highwayBuses;
    KeyedList highwayTaps;
    KeyedList highwayPorts;
    KeyedList highwayJoins;
    KeyedList highwayDecorations;
    std::vector<std::uint32_t> freeDecorations;
};

}  // namespace figkernel
