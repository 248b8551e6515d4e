#include <support/GeneratedDesign.h>

#include <numeric>
#include <string>
#include <vector>

#include <support/Drawing.h>
#include <support/Random.h>
#include <zv2d/TexPolyline.h>

namespace figrep::test {

namespace {

using figkernel::NO_INDEX;
using figkernel::SourceIndex;

constexpr double STEP = 2.54;

/// Lays out one design, sheet by sheet, row by row, channel by channel.
class Grid {
public:
    explicit Grid(GridOptions const& gridOptions) : options(gridOptions), random(gridOptions.seed) {
        width = options.pinsPerSide + 4;
        outline = new zv2d::Definition;
        double const side = 4 * STEP;
        double const height = (options.pinsPerSide + 1) * STEP;
        outline->Add(
            new zv2d::TexPolyline({{0, 0}, {side, 0}, {side, height}, {0, height}}, nullptr, true));
    }

    figkernel::DesignSource Generate() {
        design.id = "generated";
        design.name = "generated";
        AddNet("COMMON");
        design.ports.push_back({"COMMON", "COMMON", 0, NO_INDEX, {}, NO_INDEX});
        std::size_t const sheets = options.sheets == 0 ? 1 : options.sheets;
        for (std::size_t i = 0; i < sheets; ++i) {
            design.sheets.emplace_back();
            sheet = &design.sheets.back();
            sheet->id = "/" + std::to_string(i);
            sheet->name = "Sheet " + std::to_string(i);
            highwayOnSheet = 0;
            FillSheet((i + 1) * options.segments / sheets);
            if (options.oddments) AddOddments();
        }
        return std::move(design);
    }

private:
    SourceIndex AddNet(std::string const& name) {
        design.nets.push_back({name, {}, NO_INDEX});
        return static_cast<SourceIndex>(design.nets.size() - 1);
    }

    void FillSheet(std::size_t until) {
        for (unsigned row = 0; made < until; ++row) {
            blockY = row * (options.pinsPerSide + 3) * STEP;
            for (unsigned column = 0; column <= options.blocksPerRow; ++column) {
                blockX = column * (width + 4) * STEP;
                AddBlock();
                if (column == 0) AddCommon();
                if (column == options.blocksPerRow || made >= until) break;
                if (options.highways && column % 4 == 3) {
                    AddBusChannel();
                } else {
                    AddWireChannel();
                }
            }
            left.clear();
        }
    }

    /// A block takes the nets of the channel to its left; those to its right come later.
    void AddBlock() {
        figkernel::BlockSource block;
        block.name = "U" + std::to_string(++blockCount);
        block.id = "block-" + std::to_string(blockCount);
        for (unsigned i = 0; i < 2 * options.pinsPerSide; ++i) {
            bool const isLeft = i < options.pinsPerSide;
            figkernel::PinSource pin;
            pin.name = std::to_string(i + 1);
            pin.position = {isLeft ? blockX : RightX(), PinY(i % options.pinsPerSide)};
            if (isLeft && i < left.size()) pin.net = left[i];
            block.pins.push_back(pin);
        }
        if (options.graphics) {
            figkernel::GraphicSource shape;
            shape.instances.push_back(
                new zv2d::Instance(outline, dg::DMat33::Translation({blockX, blockY - STEP})));
            block.graphics.graphics.push_back(shape);
            block.labels.texts.push_back({"reference", block.name,
                                          Drawing::MakeText(block.name, blockX, blockY - 2 * STEP),
                                          NO_INDEX});
        }
        sheet->blocks.push_back(std::move(block));
        left.clear();
    }

    double RightX() const { return blockX + 4 * STEP; }
    double PinY(std::size_t pin) const { return blockY + static_cast<double>(pin) * STEP; }
    figkernel::PinSource& RightPin(std::size_t i) {
        return sheet->blocks.back().pins[options.pinsPerSide + i];
    }

    void AddCommon() {
        double const x = blockX - 2 * STEP;
        AddWire(0, {blockX, PinY(0)}, {x, PinY(0)});
        sheet->blocks.back().pins.front().net = 0;
        figkernel::PortNodeSource port;
        port.id = "port-" + std::to_string(sheet->portNodes.size());
        port.port = 0;
        port.position = {x, PinY(0)};
        sheet->portNodes.push_back(port);
    }

    void AddWire(SourceIndex net, dg::DPoint2D const& from, dg::DPoint2D const& to) {
        if (from == to) return;
        sheet->wires.push_back({"wire-" + std::to_string(++made), net, from, to, NO_INDEX});
    }

    std::vector<std::size_t> Shuffled() {
        std::vector<std::size_t> order(options.pinsPerSide);
        std::iota(order.begin(), order.end(), std::size_t{0});
        random.Shuffle(order);
        return order;
    }

    /// Each right pin goes to some left pin of the next block, by a column of its own.
    void AddWireChannel() {
        std::vector<std::size_t> const targets = Shuffled();
        std::vector<std::size_t> const columns = Shuffled();
        left.assign(options.pinsPerSide, NO_INDEX);
        double const nextX = blockX + (width + 4) * STEP;
        for (std::size_t i = 0; i < options.pinsPerSide; ++i) {
            SourceIndex const net = AddNet("N" + std::to_string(design.nets.size()));
            RightPin(i).net = net;
            left[targets[i]] = net;
            double const x = RightX() + static_cast<double>(columns[i] + 1) * STEP;
            AddWire(net, {RightX(), PinY(i)}, {x, PinY(i)});
            AddWire(net, {x, PinY(i)}, {x, PinY(targets[i])});
            AddWire(net, {x, PinY(targets[i])}, {nextX, PinY(targets[i])});
        }
    }

    /// The n-th bus of a sheet carries the same nets as the n-th bus of every other sheet.
    figkernel::SourceIndex NextHighway() {
        if (highwayOnSheet == design.highways.size()) {
            figkernel::HighwaySource highway;
            highway.name = "B" + std::to_string(highwayOnSheet);
            highway.id = highway.name;
            for (unsigned i = 0; i < options.pinsPerSide; ++i) {
                highway.nets.push_back(AddNet(highway.name + "." + std::to_string(i)));
            }
            design.highways.push_back(highway);
            design.ports.push_back({highway.id,
                                    highway.name,
                                    NO_INDEX,
                                    static_cast<SourceIndex>(highwayOnSheet),
                                    {},
                                    NO_INDEX});
        }
        return static_cast<SourceIndex>(highwayOnSheet++);
    }

    void AddTap(SourceIndex highway, SourceIndex net, dg::DPoint2D const& bus,
                dg::DPoint2D const& wire) {
        sheet->taps.push_back({"tap-" + std::to_string(++made), highway, net, bus, wire, NO_INDEX});
    }

    void AddBusChannel() {
        SourceIndex const highway = NextHighway();
        std::vector<SourceIndex> const nets = design.highways[highway].nets;
        std::vector<std::size_t> const targets = Shuffled();
        left.assign(options.pinsPerSide, NO_INDEX);
        double const busX = RightX() + 4 * STEP;
        double const nextX = blockX + (width + 4) * STEP;
        double const top = PinY(options.pinsPerSide);
        for (std::size_t i = 0; i < options.pinsPerSide; ++i) {
            SourceIndex const net = nets[i];
            RightPin(i).net = net;
            left[targets[i]] = net;
            AddWire(net, {RightX(), PinY(i)}, {busX - STEP, PinY(i)});
            AddTap(highway, net, {busX, PinY(i) + STEP}, {busX - STEP, PinY(i)});
            // Off the grid of the other side, so that a net leaves where no net enters.
            double const y = PinY(targets[i]);
            AddTap(highway, net, {busX, y + STEP / 2}, {busX + STEP, y});
            AddWire(net, {busX + STEP, y}, {nextX, y});
        }
        sheet->buses.push_back({"bus-" + std::to_string(++made),
                                highway,
                                {busX, blockY - STEP},
                                {busX, top + STEP},
                                NO_INDEX});
        figkernel::PortNodeSource port;
        port.id = "port-" + std::to_string(sheet->portNodes.size());
        port.port = highway + 1;
        port.position = {busX, top + STEP};
        sheet->portNodes.push_back(port);
    }

    void AddOddments() {
        sheet->format =
            figkernel::FormatSource{"frame", "A4", 297, 210, 6, 4, {}, {}, LineAndText("frame", 0)};
        figkernel::TitleBlockSource block;
        block.id = "title";
        for (unsigned id = 0; id < 2; ++id) {
            figkernel::TitleBlockSectionSource section;
            section.id = id;
            section.segments = {{0, "", true, "plain"}, {1, "token", true, "resolved"}};
            block.sections.push_back(section);
        }
        sheet->titleBlock = block;
        sheet->labels = LineAndText("note", -2);
        auto& wire = sheet->wires.front();
        sheet->decorations.push_back({wire.from, wire.net, NO_INDEX, LineAndText("label", -3)});
        sheet->tables.emplace_back();
        Name(sheet->tables.back(), "table", -10);
        sheet->miscellaneous.emplace_back();
        Name(sheet->miscellaneous.back(), "odd", -20);
        AddNest();
    }

    // A cable that carries the net of the first wire, and a block with another one inside.
    void AddNest() {
        figkernel::CableSource cable;
        Name(cable, "cable", -30);
        cable.nets = {sheet->wires.front().net};
        sheet->cables.push_back(cable);
        figkernel::BlockSource inner;
        Name(inner, "inner", -40);
        figkernel::BlockSource outer;
        Name(outer, "outer", -41);
        outer.children = {static_cast<SourceIndex>(sheet->blocks.size())};
        sheet->blocks.push_back(inner);
        sheet->blocks.push_back(outer);
    }

    static void Name(figkernel::ItemSource& item, std::string const& name, double y) {
        item.id = name;
        item.name = name;
        item.graphics = LineAndText(name, y);
        item.labels = LineAndText(name + " label", y - 1);
    }

    static figkernel::GroupSource LineAndText(std::string const& text, double y) {
        figkernel::GraphicSource line;
        line.id = text + "-line";
        line.instances.push_back(Drawing::MakeLine({{0, y}, {5, y}, {5, y - 3}}));
        figkernel::GroupSource group;
        group.graphics.push_back(line);
        group.texts.push_back({text, text, Drawing::MakeText(text, 1, y), NO_INDEX});
        return group;
    }

    GridOptions options;
    Random random;
    double width = 0;
    du::SmartPtr<zv2d::Definition> outline;
    figkernel::DesignSource design;
    figkernel::SheetSource* sheet = nullptr;
    std::size_t made = 0;
    std::size_t blockCount = 0;
    std::size_t highwayOnSheet = 0;
    double blockX = 0;
    double blockY = 0;
    std::vector<SourceIndex> left;  ///< the nets that come to the next block from its left
};

/// Draws a tangle on a small lattice, where most things meet something.
class Tangle {
public:
    explicit Tangle(std::uint64_t seed) : random(seed), drawing("tangle") {
        size = 3 + random.Below(6);
        nets = 1 + random.Below(4);
        highways = random.Below(3);
    }

    figkernel::DesignSource Generate() {
        for (std::size_t i = random.Below(14); i > 0; --i)
            AddWire();
        if (highways > 0) AddHighways();
        for (std::size_t i = random.Below(10); i > 0; --i)
            AddPin(i);
        for (std::size_t i = random.Below(4); i > 0; --i) {
            std::string const net = Net();
            drawing.NetPort("P" + net, net, At(), At());
        }
        for (std::size_t i = random.Below(4); i > 0; --i)
            drawing.Join(Net(), At(), At());
        for (std::size_t i = random.Below(4); i > 0; --i)
            drawing.Label(Net(), "label", At(), At());
        return drawing.Source();
    }

private:
    double At() { return static_cast<double>(random.Below(size)) * STEP; }
    std::string Net() { return "N" + std::to_string(random.Below(nets)); }
    std::string Highway() { return "H" + std::to_string(random.Below(highways)); }

    void AddWire() {
        double const x = At();
        double const y = At();
        std::size_t const kind = random.Below(8);
        bool const isLevel = kind < 3;
        bool const isUpright = kind >= 3 && kind < 6;
        double const x2 = isUpright ? x : At();
        double const y2 = isLevel ? y : At();
        drawing.Wire(Net(), x, y, x2, y2);
        if (random.OneIn(10)) drawing.Wire(Net(), x, y, x2, y2);
    }

    void AddHighways() {
        for (std::size_t i = random.Below(9); i > 0; --i) {
            double const x = At();
            double const y = At();
            bool const isLevel = random.OneIn(2);
            drawing.Bus(Highway(), x, y, isLevel ? At() : x, isLevel ? y : At());
        }
        for (std::size_t i = random.Below(9); i > 0; --i)
            AddTap();
        if (random.OneIn(3)) drawing.JoinBuses(Highway(), At(), At());
        for (std::size_t i = random.Below(3); i > 0; --i) {
            std::string const highway = Highway();
            drawing.BusPort("P" + highway, highway, At(), At());
        }
    }

    void AddTap() {
        double const x = At();
        double const y = At();
        std::size_t const kind = random.Below(4);
        double const dx = kind == 0 ? 0 : STEP;
        double const dy = kind < 2 ? 0 : STEP;
        drawing.Tap(Net(), Highway(), x, y, x + dx, y + dy);
    }

    void AddPin(std::size_t number) {
        std::string const block = "U" + std::to_string(random.Below(3));
        drawing.Pin(random.OneIn(8) ? "" : Net(), block, std::to_string(number), At(), At());
    }

    Random random;
    Drawing drawing;
    std::size_t size = 0;
    std::size_t nets = 0;
    std::size_t highways = 0;
};

}  // namespace

figkernel::DesignSource GenerateGrid(GridOptions const& options) {
    return Grid(options).Generate();
}

figkernel::DesignSource GenerateTangle(std::uint64_t seed) {
    return Tangle(seed).Generate();
}

void AddFlowStarts(figkernel::DesignSource& design, std::uint64_t seed) {
    Random random(seed);
    for (figkernel::SheetSource& sheet : design.sheets) {
        auto const add = [&](SourceIndex net, dg::DPoint2D const& at) {
            if (net != NO_INDEX && random.OneIn(3)) sheet.flowStarts.push_back({at, net});
        };
        for (figkernel::BlockSource const& block : sheet.blocks) {
            for (figkernel::PinSource const& pin : block.pins)
                add(pin.net, pin.position);
        }
        for (figkernel::PortNodeSource const& node : sheet.portNodes)
            add(design.ports[node.port].net, node.position);
    }
}

}  // namespace figrep::test
