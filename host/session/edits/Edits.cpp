#include <session/edits/Edits.h>

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include <figrep/BaseBlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/Figure.h>
#include <figrep/FigureItemsVisitor.h>
#include <figrep/FigureMoveDelta.h>
#include <figrep/FitContentOperationStep.h>
#include <figrep/GetHiddenContentVisitor.h>
#include <figrep/MirrorAction.h>
#include <figrep/PortNode.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <persistence/Deletable.h>
#include <session/Failures.h>
#include <session/edits/EditSteps.h>
#include <session/items/ForEachItem.h>
#include <session/query/FindItems.h>
#include <zvk/Operation.h>

namespace fighost {

namespace {

using figrep::AbstractFigureItem;
using figrep::Figure;
using figrep::SmartPtr;
using Item = SmartPtr<AbstractFigureItem>;
using Items = std::vector<Item>;

// What a saved change calls by its id: it has one, and the figure finds it by that and nothing
// else.
bool CanBeNamed(Figure& figure, Item const& item) {
    return !item->GetId().IsEmpty() && figure.Find(item->GetId()) == item;
}

std::string Quoted(AbstractFigureItem const& item) {
    std::string const name = DisplayNameOf(item);
    return "'" + (name.empty() ? item.GetId().GetString() : name) + "' (" + item.GetTypeName() +
           ")";
}

std::string WhyUnnamed(AbstractFigureItem const& item) {
    if (item.GetId().IsEmpty()) return Quoted(item) + " has no id, so no change of it can be saved";
    return Quoted(item) + " isn't found by its id alone, so no change of it can be saved";
}

bool IsTransform(Edit::Kind kind) {
    return kind == Edit::MOVE || kind == Edit::ROTATE || kind == Edit::SCALE ||
           kind == Edit::MIRROR;
}

// Items of other kinds, and blocks inside blocks, stay where they are when they are told to move.
bool CanBeTransformed(AbstractFigureItem const& item, Edit::Kind kind) {
    switch (item.GetType()) {
        case AbstractFigureItem::ITEM_BLOCK_INSTANCE:
        case AbstractFigureItem::ITEM_CABLE_INSTANCE:
        case AbstractFigureItem::ITEM_TABLE_INSTANCE:
            return !dynamic_cast<figrep::BaseBlockInstance const&>(item).GetParent();
        case AbstractFigureItem::ITEM_FORMAT:
        case AbstractFigureItem::ITEM_GENERIC_GRAPHIC:
        case AbstractFigureItem::ITEM_SUB_HIGHWAY:
        case AbstractFigureItem::ITEM_SUB_NET:
        case AbstractFigureItem::ITEM_TEXT_GRAPHIC:
            return true;
        case AbstractFigureItem::ITEM_PORT_NODE:
            return kind != Edit::SCALE;
        case AbstractFigureItem::ITEM_TITLE_BLOCK:
            return kind == Edit::MOVE;
        default:
            return false;
    }
}

std::optional<std::string> Complaint(Edit::Kind kind, Figure& figure, Item const& item) {
    if (!CanBeNamed(figure, item)) return WhyUnnamed(*item);
    if (kind == Edit::DELETE_ITEMS && !CanBeDeleted(*item)) {
        return Quoted(*item) + " can't be deleted by itself";
    }
    if (IsTransform(kind) && !CanBeTransformed(*item, kind)) {
        return Quoted(*item) + " has no place or size of its own to change";
    }
    return {};
}

// The nets and blocks that an item is part of.
std::vector<AbstractFigureItem const*> WholesOf(Item const& item) {
    std::vector<AbstractFigureItem const*> wholes;
    if (auto const node = du::DynamicCast<figrep::PortNode>(item)) {
        wholes.push_back(node->GetSubNet().Get());
        wholes.push_back(node->GetSubHighway().Get());
    }
    if (auto const block = du::DynamicCast<figrep::BaseBlockInstance>(item)) {
        for (auto above = block->GetParent(); above; above = above->GetParent())
            wholes.push_back(above.Get());
    }
    return wholes;
}

// A net and its ports can go by one name; what is part of another item moves and goes with it.
Items WithoutParts(Items const& items) {
    std::unordered_set<AbstractFigureItem const*> all;
    for (Item const& item : items) {
        all.insert(item.Get());
        if (auto const cable = du::DynamicCast<figrep::CableInstance>(item)) {
            for (auto const& subNet : cable->GetSubNets())
                all.insert(subNet.Get());
        }
    }
    Items wholes;
    for (Item const& item : items) {
        auto const above = WholesOf(item);
        bool const isPart = std::any_of(above.begin(), above.end(), [&](auto const* whole) {
            return whole && all.count(whole) != 0;
        });
        if (!isPart) wholes.push_back(item);
    }
    return wholes;
}

dg::DPoint2D MiddleOf(Items const& items) {
    dg::DBox2D box = dg::DBox2D::EMPTY;
    for (Item const& item : items)
        box.Enclose(item->GetExtents());
    return box.Centre();
}

// What reaches beyond all numbers has no middle, and no saved change could name it.
bool HasMiddle(Items const& items) {
    dg::DPoint2D const middle = MiddleOf(items);
    return std::isfinite(middle.x) && std::isfinite(middle.y);
}

figrep::FigureMoveDelta::Transforms TransformsOf(Edit const& edit, Items const& items) {
    if (edit.kind == Edit::MOVE) return {};
    dg::DPoint2D const about = edit.about ? *edit.about : MiddleOf(items);
    if (edit.kind == Edit::ROTATE) return {new figrep::RotateAction(about, edit.number)};
    if (edit.kind == Edit::SCALE) return {new figrep::ScaleAction(about, edit.number)};
    return {new figrep::MirrorAction(about, edit.mirrorY)};
}

// The operations of figures that hide others don't ask whether these can be named when saved.
Items UnnamedItemsOf(Figure& figure) {
    Items all;
    figrep::FigureItemsVisitor visitor(all);
    visitor.SetCollectPorts(true);
    figure.Accept(visitor);
    all.erase(std::remove_if(all.begin(), all.end(),
                             [&](Item const& item) { return CanBeNamed(figure, item); }),
              all.end());
    return all;
}

// Ports hide their nodes, and no saved change can name a port; it can name the nodes.
Items PortNodesBeside(SmartPtr<Figure> const& figure, Items const& items) {
    Items nodes;
    ForEachItem(figure, [&](Item const& item) {
        if (item->GetType() == AbstractFigureItem::ITEM_PORT_NODE) nodes.push_back(item);
    });
    std::unordered_set<Item> const kept(items.begin(), items.end());
    nodes.erase(std::remove_if(nodes.begin(), nodes.end(),
                               [&](Item const& node) {
                                   return kept.count(node) != 0 || !CanBeNamed(*figure, node);
                               }),
                nodes.end());
    return nodes;
}

// What no saved change can name stays as it is, so that the saved figure looks like this one.
void Isolate(SmartPtr<Figure> const& figure, Items const& items,
             SmartPtr<zvk::Operation> const& operation) {
    Items const nodes = PortNodesBeside(figure, items);
    Items kept = items;
    for (Item const& item : UnnamedItemsOf(*figure))
        kept.push_back(item);
    figure->IsolateItems(kept, operation);
    if (!nodes.empty()) figure->HideItems(nodes, operation);
}

void ShowAll(Figure& figure, SmartPtr<zvk::Operation> const& operation) {
    figrep::GetHiddenContentVisitor visitor;
    figure.Accept(visitor);
    Items hidden;
    visitor.TakeHiddenContent(hidden);
    hidden.erase(std::remove_if(hidden.begin(), hidden.end(),
                                [&](Item const& item) { return !CanBeNamed(figure, item); }),
                 hidden.end());
    figure.UnHideItems(hidden, operation);
}

std::string_view KeyOf(Edit::Kind kind) {
    switch (kind) {
        case Edit::HIDE:
            return operation_key::HIDE;
        case Edit::SHOW:
            return operation_key::SHOW;
        case Edit::ISOLATE:
            return operation_key::ISOLATE;
        case Edit::MOVE:
            return operation_key::MOVE;
        case Edit::ROTATE:
            return operation_key::ROTATE;
        case Edit::SCALE:
            return operation_key::SCALE;
        case Edit::MIRROR:
            return operation_key::MIRROR;
        case Edit::COLOR:
        case Edit::FILL:
            return operation_key::COLOR;
        case Edit::DELETE_ITEMS:
            return operation_key::DELETE_ITEMS;
        case Edit::BACKGROUND:
            return operation_key::BACKGROUND_COLOR;
        default:
            return operation_key::SHOW_ALL;
    }
}

}  // namespace

std::optional<std::string> Editor::Do(Edit const& edit) {
    if (edit.kind == Edit::SHEET) return ChooseSheet(edit.names);
    if (edit.kind == Edit::UNDO || edit.kind == Edit::REDO) return Replay(edit.kind == Edit::REDO);
    std::vector<Part> parts;
    if (Problem const problem = FindParts(edit, parts)) return problem;
    auto const operation = session_.GetHistory().NewOperation(KeyOf(edit.kind));
    Perform(edit, parts, operation);
    zvk::RecordOperation(operation);
    bool const failed = std::count_if(parts.begin(), parts.end(), [](Part const& part) {
                            return TakeFailures(*part.sheet->figure);
                        }) != 0;
    if (!failed) return {};
    session_.GetHistory().Undo();
    return "the change doesn't fit the figure";
}

Editor::Problem Editor::ChooseSheet(std::vector<std::string> const& names) {
    if (names.empty()) {
        sheet_ = nullptr;
        return {};
    }
    auto const found = session_.FindSheets(names[0]);
    if (found.empty()) return "no sheet is called '" + names[0] + "'";
    if (found.size() > 1) {
        return std::to_string(found.size()) + " sheets are called '" + names[0] +
               "'; name one by its path";
    }
    sheet_ = found[0];
    return {};
}

Editor::Problem Editor::Replay(bool redo) {
    History& history = session_.GetHistory();
    if (!(redo ? history.Redo() : history.Undo())) {
        return std::string("there is nothing to ") + (redo ? "redo" : "undo");
    }
    // What was done once fits; what is done again without any item is no failure.
    for (SessionSheet const& sheet : session_.GetSheets())
        TakeFailures(*sheet.figure);
    return {};
}

std::vector<Editor::Part> Editor::WholeSheets() const {
    std::vector<Part> parts;
    for (SessionSheet const& sheet : session_.GetSheets()) {
        if (!sheet_ || sheet_ == &sheet) parts.push_back({&sheet, {}});
    }
    return parts;
}

Editor::Problem Editor::FindParts(Edit const& edit, std::vector<Part>& parts) const {
    parts = WholeSheets();
    if (edit.kind == Edit::SHOW_ALL || edit.kind == Edit::BACKGROUND) return {};
    NamedItems const named = FindNamedItems(session_, edit.names, sheet_);
    if (auto const complaint = ComplaintAbout(named)) return complaint;
    bool const withoutParts = IsTransform(edit.kind) || edit.kind == Edit::DELETE_ITEMS;
    for (Part& part : parts) {
        Items const items = named.On(*part.sheet);
        part.items = withoutParts ? WithoutParts(items) : items;
        for (Item const& item : part.items) {
            auto const complaint = Complaint(edit.kind, *part.sheet->figure, item);
            if (complaint) return complaint;
        }
        bool const aboutMiddle = IsTransform(edit.kind) && edit.kind != Edit::MOVE && !edit.about;
        if (aboutMiddle && !HasMiddle(part.items)) {
            return Quoted(*part.items.front()) +
                   " reaches too far to have a middle; name a fixed point with @X,Y";
        }
    }
    // A sheet without an isolated item has nothing left to show but its frame.
    if (edit.kind == Edit::ISOLATE) return {};
    parts.erase(std::remove_if(parts.begin(), parts.end(),
                               [](Part const& part) { return part.items.empty(); }),
                parts.end());
    return {};
}

void Editor::Perform(Edit const& edit, std::vector<Part> const& parts,
                     SmartPtr<zvk::Operation> const& operation) const {
    for (Part const& part : parts) {
        SmartPtr<Figure> const& figure = part.sheet->figure;
        auto const color = [&](ColorDelta::Part what) {
            operation->AddStep(new ColorStep(figure, new ColorDelta(what, edit.color, part.items)));
        };
        switch (edit.kind) {
            case Edit::HIDE:
                figure->HideItems(part.items, operation);
                break;
            case Edit::SHOW:
                figure->UnHideItems(part.items, operation);
                break;
            case Edit::ISOLATE:
                Isolate(figure, part.items, operation);
                break;
            case Edit::SHOW_ALL:
                ShowAll(*figure, operation);
                break;
            case Edit::COLOR:
                color(ColorDelta::LINES_AND_TEXTS);
                break;
            case Edit::FILL:
                color(ColorDelta::FILLS);
                break;
            case Edit::BACKGROUND:
                color(ColorDelta::PAPER);
                break;
            case Edit::DELETE_ITEMS:
                operation->AddStep(new DeleteStep(figure, part.items));
                break;
            default:
                operation->AddStep(new figrep::FitContentOperationStep(
                    figure, part.items, TransformsOf(edit, part.items),
                    {edit.offset.x, edit.offset.y}));
        }
    }
}

}  // namespace fighost
