#include <support/Drawing.h>

#include <du/Utf8.h>
#include <figk/SchematicKernel.h>
#include <zv2d/TexPolyline.h>
#include <zv2d/Text.h>

namespace figrep::test {

using figkernel::NO_INDEX;
using figkernel::SourceIndex;

namespace {

std::string IdOr(std::string const& id, char kind, std::size_t count) {
    return id.empty() ? kind + std::to_string(count + 1) : id;
}

}  // namespace

Drawing::Drawing(std::string const& id) {
    source.id = id;
    source.name = id;
    Sheet("S1");
}

Drawing& Drawing::Sheet(std::string const& id) {
    source.sheets.emplace_back();
    Current().id = id;
    Current().name = id;
    blocks.clear();
    return *this;
}

SourceIndex Drawing::NetIndex(std::string const& name) {
    if (name.empty()) return NO_INDEX;
    auto const [at, isNew] = nets.try_emplace(name, static_cast<SourceIndex>(source.nets.size()));
    if (isNew) {
        source.nets.emplace_back();
        source.nets.back().name = name;
    }
    return at->second;
}

SourceIndex Drawing::HighwayIndex(std::string const& name) {
    if (name.empty()) return NO_INDEX;
    auto const [at, isNew] =
        highways.try_emplace(name, static_cast<SourceIndex>(source.highways.size()));
    if (isNew) {
        source.highways.emplace_back();
        source.highways.back().id = name;
        source.highways.back().name = name;
    }
    return at->second;
}

figkernel::BlockSource& Drawing::Block(std::string const& name) {
    auto const [at, isNew] = blocks.try_emplace(name, Current().blocks.size());
    if (isNew) {
        Current().blocks.emplace_back();
        Current().blocks.back().id = name;
        Current().blocks.back().name = name;
    }
    return Current().blocks[at->second];
}

Drawing& Drawing::Wire(std::string const& net, double x1, double y1, double x2, double y2,
                       std::string const& id) {
    auto& wires = Current().wires;
    wires.push_back({IdOr(id, 'w', wires.size()), NetIndex(net), {x1, y1}, {x2, y2}, NO_INDEX});
    return *this;
}

Drawing& Drawing::Bus(std::string const& highway, double x1, double y1, double x2, double y2,
                      std::string const& id) {
    auto& buses = Current().buses;
    buses.push_back(
        {IdOr(id, 'b', buses.size()), HighwayIndex(highway), {x1, y1}, {x2, y2}, NO_INDEX});
    return *this;
}

Drawing& Drawing::Tap(std::string const& net, std::string const& highway, double busX, double busY,
                      double netX, double netY, std::string const& id) {
    auto& taps = Current().taps;
    SourceIndex const netIndex = NetIndex(net);
    SourceIndex const highwayIndex = HighwayIndex(highway);
    taps.push_back(
        {IdOr(id, 't', taps.size()), highwayIndex, netIndex, {busX, busY}, {netX, netY}, NO_INDEX});
    if (highwayIndex != NO_INDEX) source.highways[highwayIndex].nets.push_back(netIndex);
    return *this;
}

Drawing& Drawing::Pin(std::string const& net, std::string const& block, std::string const& pin,
                      double x, double y) {
    SourceIndex const netIndex = NetIndex(net);
    auto& pins = Block(block).pins;
    pins.emplace_back();
    pins.back().name = pin;
    pins.back().position = {x, y};
    pins.back().net = netIndex;
    return *this;
}

Drawing& Drawing::AddPortNode(std::string const& name, SourceIndex net, SourceIndex highway,
                              double x, double y) {
    auto const [at, isNew] = ports.try_emplace(name, static_cast<SourceIndex>(source.ports.size()));
    if (isNew) source.ports.push_back({name, name, net, highway, {}, NO_INDEX});
    auto& nodes = Current().portNodes;
    nodes.emplace_back();
    nodes.back().id = IdOr({}, 'p', nodes.size() - 1);
    nodes.back().port = at->second;
    nodes.back().position = {x, y};
    return *this;
}

Drawing& Drawing::NetPort(std::string const& name, std::string const& net, double x, double y) {
    return AddPortNode(name, NetIndex(net), NO_INDEX, x, y);
}

Drawing& Drawing::BusPort(std::string const& name, std::string const& highway, double x, double y) {
    return AddPortNode(name, NO_INDEX, HighwayIndex(highway), x, y);
}

Drawing& Drawing::Join(std::string const& net, double x, double y) {
    Current().joins.push_back({{x, y}, NetIndex(net), NO_INDEX});
    return *this;
}

Drawing& Drawing::JoinBuses(std::string const& highway, double x, double y) {
    Current().joins.push_back({{x, y}, NO_INDEX, HighwayIndex(highway)});
    return *this;
}

Drawing& Drawing::Start(std::string const& net, double x, double y) {
    Current().flowStarts.push_back({{x, y}, NetIndex(net)});
    return *this;
}

Drawing& Drawing::Decorate(SourceIndex net, SourceIndex highway, std::string const& text, double x,
                           double y) {
    auto& decorations = Current().decorations;
    decorations.emplace_back();
    decorations.back().anchor = {x, y};
    decorations.back().net = net;
    decorations.back().highway = highway;
    decorations.back().graphics.texts.push_back({{}, text, MakeText(text, x, y), NO_INDEX});
    return *this;
}

Drawing& Drawing::Label(std::string const& net, std::string const& text, double x, double y) {
    return Decorate(NetIndex(net), NO_INDEX, text, x, y);
}

Drawing& Drawing::BusLabel(std::string const& highway, std::string const& text, double x,
                           double y) {
    return Decorate(NO_INDEX, HighwayIndex(highway), text, x, y);
}

Drawing& Drawing::Box(std::string const& block, double x1, double y1, double x2, double y2) {
    figkernel::BlockSource& drawn = Block(block);
    figkernel::GraphicSource outline;
    outline.instances.push_back(MakeLine({{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}, {x1, y1}}));
    drawn.graphics.graphics.push_back(outline);
    drawn.labels.texts.push_back({"reference", block, MakeText(block, x1, y2), NO_INDEX});
    return *this;
}

Drawing& Drawing::Text(std::string const& text, double x, double y) {
    Current().labels.texts.push_back({{}, text, MakeText(text, x, y), NO_INDEX});
    return *this;
}

Drawing& Drawing::Format(double width, double height, unsigned columns, unsigned rows) {
    figkernel::FormatSource& format = Current().format.emplace();
    format.id = "format";
    format.name = "frame";
    format.width = width;
    format.height = height;
    format.columns = columns;
    format.rows = rows;
    return *this;
}

Drawing& Drawing::Cable(std::string const& name, std::string const& net) {
    SourceIndex const index = NetIndex(net);
    Current().cables.emplace_back();
    Current().cables.back().id = name;
    Current().cables.back().name = name;
    Current().cables.back().nets.push_back(index);
    return *this;
}

Drawing& Drawing::Miscellaneous(std::string const& name) {
    Current().miscellaneous.emplace_back();
    Current().miscellaneous.back().id = name;
    Current().miscellaneous.back().name = name;
    return *this;
}

Drawing& Drawing::Table(std::string const& name) {
    Current().tables.emplace_back();
    Current().tables.back().id = name;
    Current().tables.back().name = name;
    return *this;
}

Drawing& Drawing::Child(std::string const& block, std::string const& child) {
    Block(child);
    auto const index = static_cast<SourceIndex>(blocks.at(child));
    Block(block).children.push_back(index);
    return *this;
}

figkernel::BuildResult Drawing::Build() const {
    return figkernel::Build(source, figk::SchematicKernel::GetKernelLock());
}

du::SmartPtr<zv2d::Instance> Drawing::MakeLine(std::vector<dg::DPoint2D> const& points) {
    du::SmartPtr<zv2d::Definition> const shape(new zv2d::Definition);
    shape->Add(new zv2d::TexPolyline(points));
    return new zv2d::Instance(shape);
}

du::SmartPtr<zv2d::Instance> Drawing::MakeText(std::string_view text, double x, double y) {
    du::SmartPtr<zv2d::Definition> const shape(new zv2d::Definition);
    auto const attributes =
        zv2d::Attributes::Get(zv2d::Attributes(attrs::TextAttr(du::Symbol::EMPTY, 2.0f)));
    shape->Add(new zv2d::Text({x, y}, du::Utf8ToWideStr(text), true, zv2d::Text::BOTTOM_LEFT, false,
                              attributes));
    return new zv2d::Instance(shape);
}

}  // namespace figrep::test
