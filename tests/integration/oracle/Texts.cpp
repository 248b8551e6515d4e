#include "Texts.h"

#include <cmath>
#include <cstdlib>
#include <map>
#include <memory>

namespace oracle {

namespace {

constexpr long ON_THE_SPOT = 10;     // a micrometre
constexpr long BESIDE_A_PIN = 8000;  // 0.8 mm, from a pin's line or inner end

/// Gathers the texts of one instance of a sheet.
class Gatherer {
public:
    Gatherer(Instance const& instance, std::vector<VisibleText>& texts)
        : instance_(instance), texts_(texts) {}

    void Gather(Node const& root) {
        for (Node const* text : root.All("text"))
            if (!IsHidden(*text)) Add(text->At(1), PlaceOf(text->Find("at")), ON_THE_SPOT);
        for (Node const* box : root.All("text_box"))
            AddBox(*box);
        for (Node const* table : root.All("table"))
            for (Node const* cell : table->Find("cells")->All("table_cell"))
                AddCell(*cell);
        for (char const* kind : {"label", "global_label", "hierarchical_label"})
            for (Node const* label : root.All(kind))
                if (!IsHidden(*label)) AddLabel(*label);
        for (char const* kind : {"netclass_flag", "directive_label"})
            for (Node const* flag : root.All(kind))
                AddProperties(*flag);
        for (Node const* sheet : root.All("sheet"))
            AddSheetSymbol(*sheet);
        std::size_t number = 0;
        for (Node const* symbol : root.All("symbol"))
            AddSymbol(root, *symbol, instance_.parts.at(number++));
        if (Node const* block = root.Find("title_block")) AddTitleBlock(*block);
    }

private:
    static Place PlaceOf(Node const* at) {
        return at ? Place{at->Coordinate(1), at->Coordinate(2)} : Place{};
    }

    static bool IsHidden(Node const& node) {
        Node const* effects = node.Find("effects");
        bool const byList = node.Find("hide") && node.Flag("hide");
        return byList || (effects && effects->Flag("hide"));
    }

    void Add(std::string const& text, Place const& at, long reach) {
        if (text.empty() || text == "~") return;
        texts_.push_back({instance_.path, text, true, at, reach});
    }

    // The sign of a label is as large as its letters, and the text begins beside it.
    void AddLabel(Node const& label) {
        Node const* effects = label.Find("effects");
        Node const* font = effects ? effects->Find("font") : nullptr;
        Node const* size = font ? font->Find("size") : nullptr;
        Add(Unescape(label.At(1)), PlaceOf(label.Find("at")),
            2 * (size ? size->Coordinate(1) : 12700));
    }

    void AddBox(Node const& box) {
        if (IsHidden(box)) return;
        Place const at = PlaceOf(box.Find("at"));
        Node const* size = box.Find("size");
        Node const* end = box.Find("end");
        long width = 0, height = 0;
        if (size) width = size->Coordinate(1), height = size->Coordinate(2);
        if (end) width = end->Coordinate(1) - at.x, height = end->Coordinate(2) - at.y;
        Add(box.At(1), at, std::abs(width) + std::abs(height));
    }

    void AddCell(Node const& cell) {
        Node const* span = cell.Find("span");
        if (!span || (span->At(1) != "0" && span->At(2) != "0")) AddBox(cell);
    }

    void AddProperties(Node const& node) {
        for (Node const* property : node.All("property"))
            if (!IsHidden(*property))
                Add(Unescape(property->At(2)), PlaceOf(property->Find("at")), ON_THE_SPOT);
    }

    void AddSheetSymbol(Node const& sheet) {
        for (Node const* property : sheet.All("property")) {
            if (IsHidden(*property)) continue;
            bool const isFile = property->At(1) == "Sheetfile" || property->At(1) == "Sheet file";
            Add((isFile ? "File: " : "") + Unescape(property->At(2)), PlaceOf(property->Find("at")),
                ON_THE_SPOT);
        }
        for (Node const* pin : sheet.All("pin"))
            AddLabel(*pin);
    }

    void AddSymbol(Node const& root, Node const& symbol, Part const& part) {
        for (Node const* property : symbol.All("property")) {
            bool const isReference = property->At(1) == "Reference";
            std::string text = isReference ? part.unitReference : Unescape(property->At(2));
            if (IsHidden(*property) || text.empty() || text == "~") continue;
            if (property->Flag("show_name") && property->Find("show_name"))
                text = property->At(1) + ": " + text;
            Add(text, PlaceOf(property->Find("at")), ON_THE_SPOT);
        }
        Node const* library = LibraryOf(root, symbol);
        if (!library) return;
        for (Node const* unit : PartsOf(*library, part.unit, part.body)) {
            for (Node const* text : unit->All("text"))
                if (!IsHidden(*text))
                    Add(text->At(1), Transform(symbol, *text->Find("at")), ON_THE_SPOT);
            for (Node const* pin : unit->All("pin"))
                AddPin(symbol, *library, *pin);
        }
    }

    void AddPin(Node const& symbol, Node const& library, Node const& pin) {
        if (pin.Flag("hide")) return;
        long const length = pin.Find("length") ? pin.Find("length")->Coordinate(1) : 0;
        Node const* names = library.Find("pin_names");
        Node const* numbers = library.Find("pin_numbers");
        Node const* offset = names ? names->Find("offset") : nullptr;
        long const gap = offset ? offset->Coordinate(1) : 5080;
        Place const middle = OnPin(symbol, pin, length / 2);
        // Names stand behind the pin's inner end, or beside its line where there is no gap.
        if (!names || !names->Flag("hide"))
            Add(Unescape(PinNameOf(symbol, pin)),
                gap > 0 ? OnPin(symbol, pin, length + gap) : middle, BESIDE_A_PIN);
        if (!numbers || !numbers->Flag("hide"))
            Add(pin.Find("number")->At(1), middle, BESIDE_A_PIN);
    }

    // The point so far behind the connecting end of a pin.
    static Place OnPin(Node const& symbol, Node const& pin, long distance) {
        Node at = *pin.Find("at");
        int const quarter = std::atoi(at.At(3).c_str()) / 90 % 4;
        long const x = at.Coordinate(1) + (quarter == 0 ? distance : quarter == 2 ? -distance : 0);
        long const y = at.Coordinate(2) + (quarter == 1 ? distance : quarter == 3 ? -distance : 0);
        at.items[1].text = std::to_string(static_cast<double>(x) / 1e4);
        at.items[2].text = std::to_string(static_cast<double>(y) / 1e4);
        return Transform(symbol, at);
    }

    void AddTitleBlock(Node const& block) {
        for (char const* field : {"title", "date", "rev", "company"})
            if (Node const* found = block.Find(field)) AddToFrame(found->At(1));
        for (Node const* comment : block.All("comment"))
            AddToFrame(comment->At(2));
    }

    void AddToFrame(std::string const& text) {
        if (!text.empty()) texts_.push_back({instance_.path, text, false, {}, 0});
    }

    Instance const& instance_;
    std::vector<VisibleText>& texts_;
};

}  // namespace

std::vector<VisibleText> ReadVisibleTexts(std::string const& rootFile) {
    std::vector<VisibleText> texts;
    std::map<std::string, std::unique_ptr<Node>> files;
    for (Instance const& instance : ReadDesign(rootFile).instances) {
        auto& root = files[instance.file];
        if (!root) root = std::make_unique<Node>(ReadTree(instance.file));
        Gatherer(instance, texts).Gather(*root);
    }
    return texts;
}

}  // namespace oracle
