#include "SheetText.h"

#include <sstream>

namespace sheettext {

namespace {

std::string Number(double value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

std::string At(double x, double y) {
    return Number(x) + " " + Number(y);
}

/// Ids that differ within a test and are the same on every run.
std::string NextId() {
    static int count = 0;
    return "(uuid \"id-" + std::to_string(++count) + "\")";
}

std::string Line(char const* kind, double x1, double y1, double x2, double y2) {
    return std::string("(") + kind + " (pts (xy " + At(x1, y1) + ") (xy " + At(x2, y2) +
           ")) (stroke (width 0) (type default)) " + NextId() + ")\n";
}

std::string LabelOf(char const* kind, std::string const& text, double x, double y,
                    std::string const& shape = "input") {
    return std::string("(") + kind + " \"" + text + "\" (shape " + shape + ") (at " + At(x, y) +
           " 0) (effects (font (size 1.27 1.27)) (justify left)) " + NextId() + ")\n";
}

std::string const& Library() {
    static std::string const text =
        OnePin("T:pin", "passive", "~") + OnePin("T:lonely", "no_connect", "NC") +
        OnePin("T:hidden", "power_in", "VHID", "", "hide") +
        OnePin("T:visible", "power_in", "VVIS") +
        OnePin("T:power", "power_in", "PWR", "(power)", "hide") +
        OnePin("T:localpower", "power_in", "PWR", "(power local)") +
        OnePin("T:output", "output", "~") + OnePin("T:powerout", "power_out", "~") +
        OnePin("T:opencollector", "open_collector", "~") +
        OnePin("T:openemitter", "open_emitter", "~") + OnePin("T:tristate", "tri_state", "~") +
        OnePin("T:input", "input", "~") + OnePin("T:powerflag", "power_out", "pwr", "(power)") +
        "(symbol \"T:two\" (symbol \"two_1_1\""
        " (pin input line (at 0 0 0) (length 0) (name \"IN\") (number \"1\"))"
        " (pin output line (at 10 5 0) (length 0) (name \"OUT\") (number \"2\"))))\n"
        "(symbol \"T:units\""
        " (symbol \"units_0_0\" (pin passive line (at 0 20 0) (length 0) (name \"ALL\") (number "
        "\"9\")))"
        " (symbol \"units_1_1\" (pin input line (at 0 0 0) (length 0) (name \"A\") (number \"1\")))"
        " (symbol \"units_2_1\" (pin input line (at 0 0 0) (length 0) (name \"B\") (number \"2\")))"
        " (symbol \"units_2_2\" (pin input line (at 0 0 0) (length 0) (name \"C\") (number "
        "\"3\"))))\n";
    return text;
}

}  // namespace

std::string OnePin(std::string const& library, std::string const& type, std::string const& name,
                   std::string const& symbolWords, std::string const& pinWords) {
    std::string const unit = library.substr(library.find(':') + 1) + "_1_1";
    return "(symbol \"" + library + "\" " + symbolWords + " (symbol \"" + unit + "\" (pin " + type +
           " line (at 0 0 0) (length 0) " + pinWords + " (name \"" + name +
           "\") (number \"1\"))))\n";
}

std::string File(std::string const& content, int version, std::string const& uuid) {
    return "(kicad_sch (version " + std::to_string(version) + ") (generator test) (uuid \"" + uuid +
           "\") (paper \"A4\")\n(lib_symbols " + Library() + ")\n" + content + ")\n";
}

std::string Wire(double x1, double y1, double x2, double y2) {
    return Line("wire", x1, y1, x2, y2);
}
std::string Bus(double x1, double y1, double x2, double y2) {
    return Line("bus", x1, y1, x2, y2);
}

std::string Entry(double x, double y, double dx, double dy) {
    return "(bus_entry (at " + At(x, y) + ") (size " + At(dx, dy) +
           ") (stroke (width 0) (type default)) " + NextId() + ")\n";
}

std::string Junction(double x, double y) {
    return "(junction (at " + At(x, y) + ") (diameter 0) (color 0 0 0 0) " + NextId() + ")\n";
}
std::string NoConnect(double x, double y) {
    return "(no_connect (at " + At(x, y) + ") " + NextId() + ")\n";
}

std::string Local(std::string const& text, double x, double y) {
    return LabelOf("label", text, x, y);
}
std::string Global(std::string const& text, double x, double y, std::string const& shape) {
    return LabelOf("global_label", text, x, y, shape);
}
std::string Hierarchical(std::string const& text, double x, double y, std::string const& shape) {
    return LabelOf("hierarchical_label", text, x, y, shape);
}
std::string Flag(double x, double y) {
    return LabelOf("netclass_flag", "", x, y);
}

std::string Alias(std::string const& name, std::string const& members) {
    return "(bus_alias \"" + name + "\" (members " + members + "))\n";
}

std::string Symbol(std::string const& library, std::string const& reference,
                   std::string const& value, double x, double y, int angle,
                   std::string const& more) {
    return "(symbol (lib_id \"" + library + "\") (at " + At(x, y) + " " + std::to_string(angle) +
           ") " + more + " " + NextId() + " (property \"Reference\" \"" + reference + "\" (at " +
           At(x, y) + " 0)) (property \"Value\" \"" + value + "\" (at " + At(x, y) + " 0)))\n";
}

std::string Pin(std::string const& reference, double x, double y) {
    return Symbol("T:pin", reference, "pin", x, y);
}
std::string Power(std::string const& value, double x, double y) {
    return Symbol("T:power", "#PWR1", value, x, y);
}

std::string Sheet(std::string const& name, std::string const& file, std::string const& pins,
                  std::string const& more) {
    return "(sheet (at 100 100) (size 20 20) (uuid \"sheet-" + name + "\") " + more +
           " (property \"Sheetname\" \"" + name + "\" (at 100 99 0)) (property \"Sheetfile\" \"" +
           file + "\" (at 100 121 0)) " + pins + ")\n";
}

std::string SheetPin(std::string const& name, double x, double y, std::string const& type) {
    return "(pin \"" + name + "\" " + type + " (at " + At(x, y) + " 180) " + NextId() + ")";
}

fighost::kicad::ReadResult Read(std::string const& file) {
    return Read(std::map<std::string, std::string>{{"root.kicad_sch", file}});
}

fighost::kicad::ReadResult Read(std::map<std::string, std::string> const& files) {
    fighost::MemoryFiles source;
    for (auto const& [name, text] : files)
        source.Add(name, text);
    return fighost::kicad::ReadDesign(source, "root.kicad_sch");
}

std::string NetOf(fighost::kicad::ReadResult const& result, std::string const& pin) {
    for (auto const& sheet : result.design.sheets) {
        for (auto const& block : sheet.blocks) {
            for (auto const& connector : block.pins) {
                if (block.name + ":" + connector.name != pin) continue;
                return result.design.nets.at(connector.net).name;
            }
        }
    }
    return {};
}

bool Joined(fighost::kicad::ReadResult const& result, std::string const& a, std::string const& b) {
    std::string const net = NetOf(result, a);
    return !net.empty() && net == NetOf(result, b);
}

std::set<std::set<std::string>> PinSets(figkernel::DesignSource const& design) {
    std::map<figkernel::SourceIndex, std::set<std::string>> nets;
    for (auto const& sheet : design.sheets) {
        for (auto const& block : sheet.blocks) {
            if (block.name.rfind('#', 0) == 0) continue;
            for (auto const& pin : block.pins)
                nets[pin.net].insert(block.name + ":" + pin.name);
        }
    }
    std::set<std::set<std::string>> result;
    for (auto& [net, pins] : nets)
        result.insert(std::move(pins));
    return result;
}

std::size_t Warnings(fighost::kicad::ReadResult const& result, std::string const& kind) {
    for (auto const& warning : result.findings.GetWarnings()) {
        if (warning.kind == kind) return warning.count;
    }
    return 0;
}

}  // namespace sheettext
