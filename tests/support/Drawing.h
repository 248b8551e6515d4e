// Small known drawings in a line or two.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include <figk/Design.h>
#include <figk/Sheet.h>
#include <figkernel/DesignBuilder.h>
#include <figkernel/DesignSource.h>

namespace figrep::test {

/// A drawing written call by call; nets, highways, blocks and ports come into being when they are
/// first named.
///
///     Drawing drawing;
///     drawing.Pin("A", "U1", "1", 0, 0).Wire("A", 0, 0, 10, 0).Pin("A", "U2", "1", 10, 0);
///     auto const sheet = drawing.BuildSheet();
///
/// Ids: the design is "D", the first sheet "S1", wires "w1", "w2"..., buses "b1"..., taps "t1"...,
/// port nodes "p1"... on each sheet, unless a call gives another one. A block's id and name are the
/// same. An empty net name leaves a pin unconnected.
class Drawing {
public:
    explicit Drawing(std::string const& id = "D");

    /// Begins a further sheet.
    Drawing& Sheet(std::string const& id);

    Drawing& Wire(std::string const& net, double x1, double y1, double x2, double y2,
                  std::string const& id = {});
    Drawing& Bus(std::string const& highway, double x1, double y1, double x2, double y2,
                 std::string const& id = {});
    Drawing& Tap(std::string const& net, std::string const& highway, double busX, double busY,
                 double netX, double netY, std::string const& id = {});
    Drawing& Pin(std::string const& net, std::string const& block, std::string const& pin, double x,
                 double y);
    /// A port of that name; its nodes on all sheets are one port.
    Drawing& NetPort(std::string const& name, std::string const& net, double x, double y);
    Drawing& BusPort(std::string const& name, std::string const& highway, double x, double y);
    /// All wires of the net that pass the point are joined there.
    Drawing& Join(std::string const& net, double x, double y);
    Drawing& JoinBuses(std::string const& highway, double x, double y);
    /// The flow of the net starts at the point.
    Drawing& Start(std::string const& net, double x, double y);
    /// A text that labels the net's wire at the point.
    Drawing& Label(std::string const& net, std::string const& text, double x, double y);
    Drawing& BusLabel(std::string const& highway, std::string const& text, double x, double y);
    /// The outline of a block, with its name as a text.
    Drawing& Box(std::string const& block, double x1, double y1, double x2, double y2);
    /// A text on the sheet itself.
    Drawing& Text(std::string const& text, double x, double y);
    Drawing& Format(double width, double height, unsigned columns = 0, unsigned rows = 0);
    Drawing& Cable(std::string const& name, std::string const& net);
    Drawing& Miscellaneous(std::string const& name);
    Drawing& Table(std::string const& name);
    Drawing& Child(std::string const& block, std::string const& child);

    /// For what has no call above; the last sheet is the one being drawn.
    figkernel::DesignSource& Source() { return source; }
    figkernel::SheetSource& Current() { return source.sheets.back(); }
    figkernel::BlockSource& Block(std::string const& name);
    figkernel::SourceIndex NetIndex(std::string const& name);
    figkernel::SourceIndex HighwayIndex(std::string const& name);

    /// Builds with the kernel lock.
    figkernel::BuildResult Build() const;
    /// The design alone; its sheets live as long as it does.
    du::SmartPtr<figk::Design> BuildDesign() const { return Build().design; }

    /// A polyline, and a text 2 mm high, as readers make them.
    static du::SmartPtr<zv2d::Instance> MakeLine(std::vector<dg::DPoint2D> const& points);
    static du::SmartPtr<zv2d::Instance> MakeText(std::string_view text, double x, double y);

private:
    Drawing& Decorate(figkernel::SourceIndex net, figkernel::SourceIndex highway,
                      std::string const& text, double x, double y);
    Drawing& AddPortNode(std::string const& name, figkernel::SourceIndex net,
                         figkernel::SourceIndex highway, double x, double y);

    figkernel::DesignSource source;
    std::map<std::string, figkernel::SourceIndex> nets;
    std::map<std::string, figkernel::SourceIndex> highways;
    std::map<std::string, figkernel::SourceIndex> ports;
    std::map<std::string, std::size_t> blocks;  ///< of the sheet being drawn
};

}  // namespace figrep::test
