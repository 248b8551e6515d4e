#include "NetOracle.h"

#include "Sheets.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <tuple>

namespace oracle {

namespace {

class Sets {
public:
    int Make() {
        parents_.push_back(static_cast<int>(parents_.size()));
        return parents_.back();
    }
    int Find(int x) {
        while (parents_[static_cast<std::size_t>(x)] != x) {
            int& parent = parents_[static_cast<std::size_t>(x)];
            parent = parents_[static_cast<std::size_t>(parent)];
            x = parent;
        }
        return x;
    }
    void Join(int a, int b) { parents_[static_cast<std::size_t>(Find(a))] = Find(b); }

private:
    std::vector<int> parents_;
};

/// Why a net has a name; lower wins.
enum Strength {
    GLOBAL_LABEL,
    POWER_PIN,
    BUS_MEMBER,
    LOCAL_POWER,
    LOCAL_LABEL,
    HIERARCHICAL_LABEL,
    SHEET_OUTPUT,
    SHEET_PIN,
    PIN
};

struct Candidate {
    Strength strength = PIN;
    int depth = 0;
    std::string name;
    auto operator<=>(Candidate const&) const = default;
};

/// Something that spells the members of a bus on one sheet.
struct BusLabel {
    int instance = 0;
    Candidate rank;
    BusName name;
    int element = 0;
};

class Computation {
public:
    explicit Computation(Design const& design) : design_(design) {}
    std::vector<Net> Run();

private:
    using At = std::map<Place, std::vector<int>>;

    void ConnectInstance(int index);
    void ConnectWires(int index, At& points, std::vector<int> const& wires);
    void ConnectBuses(int index);
    void ConnectPins(int index, At& points);
    void ConnectLabels(int index, At& points, std::vector<int> const& wires);
    void ConnectSheetPins();
    void ConnectBusMembers();
    void JoinMembers(std::vector<BusLabel> const& labels);
    bool MayNameBus(BusLabel const& pin, std::vector<BusLabel> const& all);

    int Named(int instance, std::string const& text);
    int GlobalName(std::string const& text);
    int Element(int instance);
    void Suggest(int element, Strength strength, int depth, std::string name);
    bool IsBus(std::string const& text, BusName& out) const;
    std::string PinNetName(Pin const& pin, bool lonely) const;

    Design const& design_;
    Sets nets_, buses_;
    std::map<std::pair<int, std::string>, int> names_;
    std::map<std::string, int> globals_;
    std::map<std::string, int> globalBuses_;
    std::map<std::pair<int, std::string>, int> busNames_;
    std::vector<BusLabel> busLabels_, busPins_;
    std::vector<int> elementInstance_;
    std::vector<std::pair<int, Candidate>> candidates_;
    std::map<std::pair<int, int>, int> pinElements_;  ///< (instance, pin index).
    std::map<std::pair<int, std::string>, int> scalarPins_;
    std::map<std::pair<int, std::string>, std::vector<int>> sheetPinElements_, busPinElements_;
    std::set<int> marked_;  ///< Elements under a no-connect mark.
};

int Computation::Element(int instance) {
    int const element = nets_.Make();
    elementInstance_.push_back(instance);
    return element;
}

int Computation::Named(int instance, std::string const& text) {
    auto const [at, added] = names_.try_emplace({instance, text}, 0);
    if (added) at->second = Element(-1);
    return at->second;
}

int Computation::GlobalName(std::string const& text) {
    auto const [at, added] = globals_.try_emplace(text, 0);
    if (added) at->second = Element(-1);
    return at->second;
}

void Computation::Suggest(int element, Strength strength, int depth, std::string name) {
    candidates_.push_back({element, {strength, depth, std::move(name)}});
}

bool Computation::IsBus(std::string const& text, BusName& out) const {
    return ParseBus(text, design_.aliases, out);
}

void Computation::ConnectWires(int index, At& points, std::vector<int> const& wires) {
    Instance const& sheet = design_.instances[static_cast<std::size_t>(index)];
    for (std::size_t i = 0; i < sheet.wires.size(); ++i) {
        points[sheet.wires[i].from].push_back(wires[i]);
        points[sheet.wires[i].to].push_back(wires[i]);
    }
    for (Line const& entry : sheet.entries) {
        auto const onBus = [&](Place const& p) {
            return std::any_of(sheet.buses.begin(), sheet.buses.end(),
                               [&](Line const& bus) { return bus.Holds(p); });
        };
        int const element = Element(index);
        for (Place const& end : {entry.from, entry.to})
            if (!onBus(end)) points[end].push_back(element);
    }
    for (Place const& dot : sheet.dots)
        for (std::size_t i = 0; i < sheet.wires.size(); ++i)
            if (sheet.wires[i].Holds(dot)) points[dot].push_back(wires[i]);
}

void Computation::ConnectPins(int index, At& points) {
    Instance const& sheet = design_.instances[static_cast<std::size_t>(index)];
    for (std::size_t i = 0; i < sheet.pins.size(); ++i) {
        Pin const& pin = sheet.pins[i];
        int const element = Element(index);
        pinElements_[{index, static_cast<int>(i)}] = element;
        if (!pin.connectable) continue;
        points[pin.at].push_back(element);
        if (pin.powerName.empty()) continue;
        nets_.Join(element, Named(index, pin.powerName));
        if (pin.powerIsLocal) {
            Suggest(element, LOCAL_POWER, sheet.depth, sheet.path + pin.powerName);
        } else {
            nets_.Join(element, GlobalName(pin.powerName));
            Suggest(element, POWER_PIN, 0, pin.powerName);
        }
    }
}

void Computation::ConnectLabels(int index, At& points, std::vector<int> const& wires) {
    Instance const& sheet = design_.instances[static_cast<std::size_t>(index)];
    std::map<Place, int> things;  // what stands at a place besides wires
    for (Pin const& pin : sheet.pins)
        things[pin.at] += pin.connectable;
    for (SheetPin const& pin : sheet.sheetPins)
        ++things[pin.at];
    for (Place const& mark : sheet.noConnects)
        ++things[mark];
    for (Label const& label : sheet.labels)
        ++things[label.at];

    for (Label const& label : sheet.labels) {
        BusName bus;
        if (label.kind != LabelKind::Flag && IsBus(label.text, bus)) continue;
        int const element = Element(index);
        std::vector<int> here;
        for (std::size_t i = 0; i < sheet.wires.size(); ++i)
            if (sheet.wires[i].Holds(label.at)) here.push_back(wires[i]);
        if (here.size() > 1 || things[label.at] == 1)
            for (int const wire : here)
                nets_.Join(element, wire);
        points[label.at].push_back(element);
        if (label.kind == LabelKind::Flag) continue;
        nets_.Join(element, Named(index, label.text));
        if (label.kind == LabelKind::Global) {
            nets_.Join(element, GlobalName(label.text));
            Suggest(element, GLOBAL_LABEL, 0, label.text);
        } else {
            bool const local = label.kind == LabelKind::Local;
            Suggest(element, local ? LOCAL_LABEL : HIERARCHICAL_LABEL, sheet.depth,
                    sheet.path + label.text);
            if (!local) scalarPins_[{index, label.text}] = element;
        }
    }
}

void Computation::ConnectInstance(int index) {
    Instance const& sheet = design_.instances[static_cast<std::size_t>(index)];
    std::vector<int> wires;
    for (std::size_t i = 0; i < sheet.wires.size(); ++i)
        wires.push_back(Element(index));
    At points;
    ConnectWires(index, points, wires);
    ConnectPins(index, points);
    ConnectLabels(index, points, wires);
    for (SheetPin const& pin : sheet.sheetPins) {
        BusName bus;
        if (IsBus(pin.text, bus)) continue;
        int const element = Element(index);
        points[pin.at].push_back(element);
        Suggest(element, pin.direction == "output" ? SHEET_OUTPUT : SHEET_PIN, sheet.depth,
                sheet.path + pin.text);
        sheetPinElements_[{pin.child, pin.text}].push_back(element);
    }
    for (auto const& [place, elements] : points)
        for (int const element : elements)
            nets_.Join(element, elements.front());
    for (Place const& mark : sheet.noConnects)
        if (points.contains(mark)) marked_.insert(points[mark].front());
    ConnectBuses(index);
}

void Computation::ConnectBuses(int index) {
    Instance const& sheet = design_.instances[static_cast<std::size_t>(index)];
    std::map<Place, std::vector<int>> points;
    std::vector<int> lines;
    for (Line const& bus : sheet.buses) {
        lines.push_back(buses_.Make());
        points[bus.from].push_back(lines.back());
        points[bus.to].push_back(lines.back());
    }
    auto const joinAllAt = [&](Place const& place) {
        for (std::size_t i = 0; i < sheet.buses.size(); ++i)
            if (sheet.buses[i].Holds(place)) points[place].push_back(lines[i]);
    };
    for (Place const& dot : sheet.dots)
        joinAllAt(dot);
    for (Label const& label : sheet.labels) {
        BusLabel read{index, {}, {}, 0};
        if (label.kind == LabelKind::Flag || !IsBus(label.text, read.name)) continue;
        read.element = buses_.Make();
        joinAllAt(label.at);
        points[label.at].push_back(read.element);
        auto const [at, added] = busNames_.try_emplace({index, label.text}, read.element);
        buses_.Join(at->second, read.element);
        bool const global = label.kind == LabelKind::Global;
        read.rank = {global                           ? GLOBAL_LABEL
                     : label.kind == LabelKind::Local ? LOCAL_LABEL
                                                      : HIERARCHICAL_LABEL,
                     sheet.depth, global ? label.text : sheet.path + label.text};
        if (global)
            buses_.Join(globalBuses_.try_emplace(label.text, read.element).first->second,
                        read.element);
        if (label.kind == LabelKind::Hierarchical)
            busPinElements_[{index, label.text}].push_back(read.element);
        busLabels_.push_back(read);
    }
    for (SheetPin const& pin : sheet.sheetPins) {
        BusLabel read{index, {}, {}, 0};
        if (!IsBus(pin.text, read.name)) continue;
        read.element = buses_.Make();
        read.rank = {pin.direction == "output" ? SHEET_OUTPUT : SHEET_PIN, sheet.depth,
                     sheet.path + pin.text};
        points[pin.at].push_back(read.element);
        busPinElements_[{pin.child, pin.text}].push_back(read.element);
        busPins_.push_back(read);
    }
    for (auto const& [place, elements] : points)
        for (int const element : elements)
            buses_.Join(element, elements.front());
}

void Computation::ConnectSheetPins() {
    for (auto const& [key, elements] : sheetPinElements_) {
        auto const label = scalarPins_.find(key);
        if (label == scalarPins_.end()) continue;
        for (int const element : elements)
            nets_.Join(element, label->second);
    }
}

/// A bus without a label takes the name of its sheet pin unless another bus of the sheet has it.
bool Computation::MayNameBus(BusLabel const& pin, std::vector<BusLabel> const& all) {
    for (BusLabel const& label : all) {
        if (label.instance != pin.instance) continue;
        if (label.name.members == pin.name.members) return false;
        if (label.name.vector && pin.name.vector && label.name.prefix == pin.name.prefix)
            return false;
    }
    return true;
}

void Computation::ConnectBusMembers() {
    // Buses on one sheet are told apart before sheets are joined: only a bus without a label of its
    // own sheet may take a pin's name.
    std::map<int, bool> labelled;
    for (BusLabel const& label : busLabels_)
        labelled[buses_.Find(label.element)] = true;
    std::vector<BusLabel> all = busLabels_;
    for (BusLabel const& pin : busPins_)
        if (!labelled[buses_.Find(pin.element)] && MayNameBus(pin, busLabels_)) all.push_back(pin);
    for (auto const& [key, elements] : busPinElements_)
        for (int const element : elements)
            buses_.Join(element, elements.front());
    std::map<int, std::vector<BusLabel>> clusters;
    for (BusLabel const& label : all)
        clusters[buses_.Find(label.element)].push_back(label);
    for (auto& [root, labels] : clusters)
        JoinMembers(labels);
}

void Computation::JoinMembers(std::vector<BusLabel> const& labels) {
    BusLabel const& naming = *std::min_element(
        labels.begin(), labels.end(), [](auto const& a, auto const& b) { return a.rank < b.rank; });
    Instance const& sheet = design_.instances[static_cast<std::size_t>(naming.instance)];
    bool const global = naming.rank.strength == GLOBAL_LABEL;
    for (std::size_t i = 0; i < naming.name.members.size(); ++i) {
        std::string const& member = naming.name.members[i];
        int const element = Named(naming.instance, member);
        if (global) nets_.Join(element, GlobalName(member));
        Suggest(element, BUS_MEMBER, sheet.depth, global ? member : sheet.path + member);
        for (BusLabel const& other : labels) {
            std::optional<std::size_t> place;
            if (naming.name.vector) {
                if (i < other.name.members.size()) place = i;
            } else {
                auto const& names = other.name.shortNames;
                auto const at = std::find(names.begin(), names.end(), naming.name.shortNames[i]);
                if (at != names.end()) place = static_cast<std::size_t>(at - names.begin());
            }
            if (place) nets_.Join(element, Named(other.instance, other.name.members[*place]));
        }
    }
}

std::string Computation::PinNetName(Pin const& pin, bool lonely) const {
    bool const old = design_.version < 20220101;
    std::string const head =
        (lonely ? "unconnected-(" : "Net-(") + (old ? pin.reference : pin.unitReference);
    if (pin.name.empty() || old) return head + "-Pad" + pin.number + ")";
    if (lonely || pin.nameIsShared) return head + "-" + pin.name + "-Pad" + pin.number + ")";
    return head + "-" + pin.name + ")";
}

std::vector<Net> Computation::Run() {
    for (std::size_t i = 0; i < design_.instances.size(); ++i)
        ConnectInstance(static_cast<int>(i));
    ConnectSheetPins();
    ConnectBusMembers();

    std::map<int, Net> found;
    std::map<int, std::set<std::string>> pinCount;
    std::set<int> marked;
    for (int const element : marked_)
        marked.insert(nets_.Find(element));
    for (auto const& [key, element] : pinElements_) {
        Pin const& pin = design_.instances[static_cast<std::size_t>(key.first)]
                             .pins[static_cast<std::size_t>(key.second)];
        if (pin.reference.empty() || pin.reference[0] == '#') continue;
        found[nets_.Find(element)].pins.insert(pin.reference + ":" + pin.number);
    }
    for (auto const& [key, element] : pinElements_) {
        Pin const& pin = design_.instances[static_cast<std::size_t>(key.first)]
                             .pins[static_cast<std::size_t>(key.second)];
        if (pin.reference.empty() || pin.reference[0] == '#') continue;
        int const root = nets_.Find(element);
        bool const lonely = found[root].pins.size() == 1 || marked.contains(root);
        Suggest(element, PIN, 0, PinNetName(pin, lonely));
    }
    std::map<int, Candidate> best;
    for (auto const& [element, candidate] : candidates_) {
        auto const [at, added] = best.try_emplace(nets_.Find(element), candidate);
        if (!added && candidate < at->second) at->second = candidate;
    }
    for (std::size_t i = 0; i < elementInstance_.size(); ++i) {
        int const root = nets_.Find(static_cast<int>(i));
        if (elementInstance_[i] >= 0 && found.contains(root))
            found[root].sheets.insert(
                design_.instances[static_cast<std::size_t>(elementInstance_[i])].path);
    }
    std::vector<Net> result;
    for (auto& [root, net] : found) {
        net.name = best[root].name;
        result.push_back(std::move(net));
    }
    std::sort(result.begin(), result.end(), [](Net const& a, Net const& b) {
        return std::tie(a.name, a.pins) < std::tie(b.name, b.pins);
    });
    return result;
}

}  // namespace

std::vector<Net> ComputeNets(std::string const& rootFile) {
    Design const design = ReadDesign(rootFile);
    return Computation(design).Run();
}

}  // namespace oracle
