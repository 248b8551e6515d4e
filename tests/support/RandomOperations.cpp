#include <support/RandomOperations.h>

#include <dg/Color.h>
#include <du/RefCounted.h>
#include <figk/SettingValue.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/BackgroundColorOperationStep.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/Figure.h>
#include <figrep/FigureItemSettingDelta.h>
#include <figrep/FigureItemsVisitor.h>
#include <figrep/FitContentOperationStep.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/HighwaySegment.h>
#include <figrep/MirrorAction.h>
#include <figrep/Miscellaneous.h>
#include <figrep/NetSegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>
#include <figrep/SettingOperationStep.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>
#include <figrep/TitleBlock.h>
#include <figrep/UnhideAllOperationStep.h>
#include <support/FigureDump.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <limits>

namespace figrep::test {

namespace {

template <typename Value>
SmartPtr<Setting> MakeSetting(Setting::RepKey key, Value const& value, figk::Setting::Level level) {
    ConstSmartPtr<figk::BaseSettingValue> const held = new figk::SettingValue<Value>(value);
    return new Setting(key, held, level, true);
}

bool IsInForce(FigureItemSettingDelta const& delta) {
    unsigned depth = 0;
    return delta.GetItem() &&
           delta.GetItem()->SettingList::GetSetting(Setting::ITEM_VISIBILITY, depth).Get() ==
               delta.GetSetting().Get();
}

}  // namespace

RandomOperations::RandomOperations(SmartPtr<Figure> const& figure, std::uint64_t seed)
    : figure_(figure), random_(seed) {}
RandomOperations::~RandomOperations() = default;

void RandomOperations::Step() {
    if (!done_.empty() && random_.OneIn(5)) {
        Undo();
    } else if (!undone_.empty() && random_.OneIn(3)) {
        Redo();
    } else {
        DoSomething();
    }
    if (random_.OneIn(3)) figure_->UpdateContent();
}

void RandomOperations::UndoAll() {
    while (!done_.empty())
        Undo();
}

void RandomOperations::RedoAll() {
    while (!undone_.empty())
        Redo();
}

void RandomOperations::Undo() {
    log_ += " undo";
    done_.back()->Undo();
    undone_.push_back(done_.back());
    done_.pop_back();
}

void RandomOperations::Redo() {
    log_ += " redo";
    undone_.back()->Redo();
    done_.push_back(undone_.back());
    undone_.pop_back();
}

void RandomOperations::DoSomething() {
    Operation const operation = new zvk::Operation(Symbol("random"), {}, true);
    switch (random_.Below(12)) {
        case 0:
        case 1:
            log_ += " hide";
            figure_->HideItems(Some(All(true), 4), operation);
            break;
        case 2:
            log_ += " show";
            figure_->UnHideItems(Some(All(true), 4), operation);
            break;
        case 3:
            Isolate(operation);
            break;
        case 4:
            log_ += " unhide-all";
            figure_->UnhideAll(operation);
            break;
        case 5:
            log_ += " port-nodes";
            figure_->ShowHideNodes(Some(PortNodes(), 2), random_.OneIn(2), operation);
            break;
        case 6:
            SetItems(operation);
            break;
        case 7:
            TakeSettingsBack(operation);
            break;
        case 8:
            ColorBackground(operation);
            break;
        default:
            Fit(operation);
    }
    done_.push_back(operation);
    undone_.clear();
}

void RandomOperations::Isolate(Operation const& operation) {
    log_ += " isolate";
    figure_->IsolateItems(Some(All(true), 3), operation);
}

void RandomOperations::Fit(Operation const& operation) {
    log_ += " fit";
    FitContentOperationStep::Transforms transforms;
    for (std::size_t i = random_.Below(3); i > 0; --i)
        transforms.push_back(RandomTransform());
    auto const items = random_.OneIn(2) ? All(false) : Some(All(false), 3);
    operation->AddStep(
        new FitContentOperationStep(figure_, items, transforms, DPoint2D(Length(), Length())));
}

SmartPtr<TransformAction> RandomOperations::RandomTransform() {
    DPoint2D const about(Length(), Length());
    switch (random_.Below(4)) {
        case 0:
            return new RotateAction(about, Length() / 10);
        case 1:
            return new MirrorAction(about, random_.OneIn(2));
        default:
            return new ScaleAction(about, 0.5 + random_.Unit());
    }
}

void RandomOperations::AddAndDo(Operation const& operation,
                                SmartPtr<zvk::OperationStep> const& step) {
    step->Redo();
    operation->AddStep(step);
}

void RandomOperations::SetItems(Operation const& operation) {
    log_ += " set-items";
    Figure::Deltas deltas;
    auto const setting =
        MakeSetting(Setting::ITEM_VISIBILITY, random_.OneIn(2), figk::Setting::LEVEL_FIGURE);
    FigureItemSettingDelta::CreateDeltas(Some(All(true), 3), deltas, setting);
    AddAndDo(operation, new SettingOperationStep(figure_, deltas));
}

// A setting that something else has replaced since isn't the delta's to take away.
void RandomOperations::TakeSettingsBack(Operation const& operation) {
    log_ += " take-settings-back";
    Figure::Deltas inForce;
    for (auto const& entry : figure_->GetDeltas()) {
        auto const delta = du::DynamicCast<FigureItemSettingDelta>(entry);
        if (delta && IsInForce(*delta)) inForce.push_back(delta);
    }
    AddAndDo(operation, new UnhideAllOperationStep(figure_, inForce));
}

void RandomOperations::ColorBackground(Operation const& operation) {
    log_ += " background";
    auto const level =
        random_.OneIn(2) ? figk::Setting::LEVEL_FIGURE : figk::Setting::LEVEL_PROFILE;
    Color const color(static_cast<float>(random_.Unit()), 0, 1, 1);
    AddAndDo(operation, new BackgroundColorOperationStep(
                            figure_, MakeSetting(Setting::BACKGROUND_COLOR, color, level)));
}

RandomOperations::Items RandomOperations::All(bool subItems) const {
    Items items;
    FigureItemsVisitor visitor(items);
    visitor.SetCollectSubItems(subItems);
    visitor.SetCollectPorts(subItems);
    figure_->Accept(visitor);
    return items;
}

RandomOperations::Items RandomOperations::PortNodes() const {
    Items items;
    for (auto const& port : figure_->GetPorts()) {
        auto const nodes = port->GetPortNodes();
        items.insert(items.end(), nodes.begin(), nodes.end());
    }
    return items;
}

RandomOperations::Items RandomOperations::Some(Items items, std::size_t most) {
    random_.Shuffle(items);
    items.resize(std::min(items.size(), random_.Below(most + 1)));
    return items;
}

double RandomOperations::Length() {
    return random_.Unit() * 40 - 20;
}

namespace {

/// Writes the own settings of what it is handed.
class SettingWriter : public SettingListVisitor {
public:
    explicit SettingWriter(std::vector<std::string>& lines) : lines_(lines) {}

    void Write(std::string const& title, SettingList const& list) {
        title_ = title;
        list.Visit(*this, false, figk::Setting::LEVEL_ALL);
    }
    bool Visit(ConstSmartPtr<figk::Setting> const& setting) override {
        lines_.push_back(title_ + " " + setting->ToString());
        return true;
    }
    bool Visit(Setting::RepKey const&, ConstSmartPtr<figk::Setting> const& setting) override {
        return Visit(setting);
    }

private:
    std::vector<std::string>& lines_;
    std::string title_;
};

class OwnSettings : public AbstractFigureVisitor {
public:
    std::vector<std::string> lines;

    using AbstractFigureVisitor::Visit;
    bool Visit(SmartPtr<Figure> const& figure) override {
        SettingWriter(lines).Write("figure", *figure);
        return true;
    }
    bool Visit(SmartPtr<TitleBlock> const& item) override { return Add(*item); }
    bool Visit(SmartPtr<TextGraphic> const& item) override { return Add(*item); }
    bool Visit(SmartPtr<TableInstance> const& item) override { return Add(*item); }
    bool Visit(SmartPtr<SubNet> const& item) override { return Add(*item); }
    bool Visit(SmartPtr<SubHighway> const& item) override { return Add(*item); }
    bool Visit(SmartPtr<PortNode> const& item) override { return Add(*item); }
    bool Visit(SmartPtr<Port> const& item) override { return Add(*item); }
    bool Visit(SmartPtr<NetSegment> const& item) override { return Add(*item); }
    bool Visit(SmartPtr<Miscellaneous> const& item) override { return Add(*item); }
    bool Visit(SmartPtr<HighwaySegment> const& item) override { return Add(*item); }
    bool Visit(SmartPtr<GenericGraphic> const& item) override { return Add(*item); }
    bool Visit(SmartPtr<Format> const& item) override { return Add(*item); }
    bool Visit(SmartPtr<CableInstance> const& item) override { return Add(*item); }
    bool Visit(SmartPtr<BlockInstance> const& item) override { return Add(*item); }

private:
    bool Add(AbstractFigureItem const& item) {
        SettingWriter(lines).Write(item.GetTypeName() + " " + item.GetId().GetString(), item);
        return true;
    }
};

bool StartsNumber(char const* text) {
    if (*text == '-') ++text;
    return std::isdigit(static_cast<unsigned char>(*text)) != 0;
}

bool SameWithin(std::string const& a, std::string const& b, double tolerance) {
    char const* l = a.c_str();
    char const* r = b.c_str();
    while (*l && *r) {
        if (StartsNumber(l) && StartsNumber(r)) {
            char* lEnd = nullptr;
            char* rEnd = nullptr;
            double const left = std::strtod(l, &lEnd);
            double const right = std::strtod(r, &rEnd);
            // Parts of ids may read as infinite.
            bool const same = left == right ||
                              std::abs(left - right) <= tolerance * std::max(1.0, std::abs(left));
            if (!same) return false;
            l = lEnd;
            r = rEnd;
        } else if (*l++ != *r++) {
            return false;
        }
    }
    return *l == *r;
}

/// Of what a figure is now: what it shows, and which settings make it so.
struct State {
    explicit State(SmartPtr<Figure> const& figure) {
        figure->UpdateContent();
        lines = DumpOf(figure);
        settings = OwnSettingsOf(figure);
        deltas = figure->GetDeltas();
    }

    std::vector<std::string> lines;
    std::vector<std::string> settings;
    Figure::Deltas deltas;
};

constexpr double ROUNDING = 1e-7;

std::string Difference(State const& a, State const& b) {
    if (auto const text = FirstDifference(a.lines, b.lines, ROUNDING); !text.empty()) return text;
    return FirstDifference(a.settings, b.settings, 0);
}

void DropFailures(SmartPtr<Figure> const& figure) {
    Figure::Deltas failures;
    figure->TakeDeltaFailures(failures);
}

}  // namespace

std::vector<std::string> OwnSettingsOf(SmartPtr<Figure> const& figure) {
    OwnSettings visitor;
    if (figure) figure->Accept(visitor);
    return visitor.lines;
}

std::string FirstDifference(std::vector<std::string> const& a, std::vector<std::string> const& b,
                            double tolerance) {
    auto const same = [tolerance](auto const& l, auto const& r) {
        return SameWithin(l, r, tolerance);
    };
    auto const [l, r] = std::mismatch(a.begin(), a.end(), b.begin(), b.end(), same);
    if (l == a.end() && r == b.end()) return {};
    return (l == a.end() ? "nothing" : *l) + "\n" + (r == b.end() ? "nothing" : *r);
}

std::string CheckUndo(SmartPtr<Figure> const& figure, std::uint64_t seed, int steps) {
    State const before(figure);
    RandomOperations operations(figure, seed);
    for (int i = 0; i < steps; ++i)
        operations.Step();
    operations.RedoAll();
    State const last(figure);
    auto const compare = [&](State const& wanted, std::string const& what) -> std::string {
        State const now(figure);
        auto const difference = Difference(wanted, now);
        auto const after = "\nafter" + operations.GetLog();
        if (!difference.empty()) return what + ": " + difference + after;
        bool const sameList = now.deltas.size() == wanted.deltas.size();
        return sameList ? "" : what + ": another number of deltas" + after;
    };
    operations.UndoAll();
    auto found = compare(before, "undone");
    if (figure->GetDeltas() != before.deltas) found += " other deltas than before";
    operations.RedoAll();
    found += compare(last, "redone");
    operations.UndoAll();
    found += compare(before, "undone again");
    DropFailures(figure);
    return found;
}

std::ptrdiff_t ObjectsAddedByEveryRound(SmartPtr<Figure> const& figure, std::uint64_t seed,
                                        int steps) {
    auto const round = [&] {
        RandomOperations operations(figure, seed);
        for (int i = 0; i < steps; ++i)
            operations.Step();
        operations.UndoAll();
        figure->UpdateContent();
        DropFailures(figure);
    };
    // The first round makes pictures of their own for what is moved, which stay. Wires that touch
    // come back crossing or not, by rounding, so a round may have an object more or less.
    round();
    auto const objects = du::RefCounted::LiveCount();
    auto fewest = std::numeric_limits<std::ptrdiff_t>::max();
    for (int i = 0; i < 3; ++i) {
        round();
        fewest = std::min<std::ptrdiff_t>(fewest, du::RefCounted::LiveCount() - objects);
    }
    return std::max<std::ptrdiff_t>(fewest, 0);
}

}  // namespace figrep::test
