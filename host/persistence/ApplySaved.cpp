#include <persistence/ApplySaved.h>

#include <utility>

#include <figk/AbstractDeltaGenerator.h>
#include <figk/GetSheetVisitor.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figk/SubNet.h>
#include <figrep/AbstractFigureDelta.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <figrep/FigureConnectionsDelta.h>
#include <figrep/FigureItemDeleteDelta.h>
#include <figrep/FigureSettingDelta.h>
#include <figrep/FigureSheetDelta.h>
#include <figrep/FigureSubNetDelta.h>
#include <figrep/Format.h>
#include <figrep/PublishTitleBlockDelta.h>
#include <figrep/SubNet.h>
#include <figrep/TitleBlock.h>
#include <persistence/ContentFields.h>
#include <persistence/Deletable.h>
#include <persistence/DescribeDelta.h>
#include <persistence/PublishedTexts.h>
#include <zvk/ReadWriteLock.h>

namespace fighost {

namespace {

using figrep::Figure;
using figrep::SmartPtr;
using figrep::Symbol;
using zvk::SerializedContentElement;
using Delta = figk::AbstractDelta;
using DeltaPtr = SmartPtr<figk::AbstractDelta>;

/// Hands ready deltas to a figure's list.
class ReadyDeltas : public figk::AbstractDeltaGenerator {
public:
    explicit ReadyDeltas(std::vector<DeltaPtr> ready) { deltas = std::move(ready); }
    void Generate() override {}
};

bool IsOfType(SerializedContentElement const& element, Symbol const& type) {
    return TypeOf(element) == type;
}

class SavedRun {
public:
    SavedRun(SmartPtr<Figure> const& figure, SavedFigure& saved, DeltaTypes const& types,
             KnownNames const& names)
        : figure_(figure), saved_(saved), types_(types), names_(names) {}

    std::vector<DeltaReport> Run() {
        zvk::WriteGuard const guard(figure_->GetLock());
        if (saved_.showGrid != figure_->GetFormatGridOn()) {
            figure_->SetFormatGridOn(saved_.showGrid);
        }
        for (std::size_t i = 0; i < saved_.components.size(); ++i)
            ApplyComponent(i);
        DropPublishedTexts();
        ReadyDeltas generator(listed_);
        figure_->GenerateDeltas(generator);
        figure_->ProcessNewContent();
        figure_->SetLoaded();
        figure_->Refresh();
        figure_->ResetHasChanged();
        return std::move(reports_);
    }

private:
    void ApplyComponent(std::size_t index) {
        auto& component = saved_.components[index];
        auto const& content = *component.content;
        reports_.emplace_back();
        DeltaReport& report = reports_.back();
        report.number = index + 1;
        report.what = DescribeDelta(content, names_);
        if (IsTrailingPublication(index) && HasTitleBlock() && !HoldsPublishedTexts(content)) {
            published_ = true;
            return;
        }
        LoadedDelta const loaded = types_.Load(content, figure_);
        if (!loaded.delta) {
            report.outcome = DeltaReport::NOT_UNDERSTOOD;
            report.why = "this program can't use it: " + loaded.problem;
            return;
        }
        auto const missing = MissingTargets(content);
        std::string const mistake = MistakeOf(content);
        DesignTexts const designTexts(IsTrailingPublication(index) ? figure_ : nullptr);
        bool const applied = mistake.empty() && loaded.delta->Apply(*figure_);
        ForgetChangedItems(loaded.delta);
        Judge(report, content, missing, applied);
        if (!mistake.empty()) report.why = mistake;
        if (loaded.delta->GetStatus() == Delta::STATUS_TARGET_MISSING) return;
        if (IsTrailingPublication(index)) {
            published_ = applied;
            if (applied) return designTexts.PutBack();
        }
        component.delta = loaded.delta;
        listed_.push_back(loaded.delta);
    }

    void Judge(DeltaReport& report, SerializedContentElement const& content,
               std::vector<Symbol> const& missing, bool applied) const {
        if (applied && missing.empty()) return;
        report.outcome = applied ? DeltaReport::PARTLY : DeltaReport::FAILED;
        report.why = missing.empty() ? WhyRefused(content) : GoneText(missing);
    }

    std::string GoneText(std::vector<Symbol> const& missing) const {
        constexpr std::size_t NAMED = 5;
        std::string text;
        for (std::size_t i = 0; i < missing.size() && i < NAMED; ++i)
            text += (i == 0 ? "" : ", ") + NameWithId(missing[i], names_);
        if (missing.size() > NAMED) {
            text += " and " + std::to_string(missing.size() - NAMED) + " more";
        }
        return text + (missing.size() == 1 ? " is gone" : " are gone");
    }

    std::string WhyRefused(SerializedContentElement const& content) const {
        if (IsOfType(content, figrep::PublishTitleBlockDelta::GetClassTypeValue())) {
            return "the title block is gone or has other sections";
        }
        if (IsOfType(content, figrep::FigureConnectionsDelta::GetClassTypeValue())) {
            return "what it names is no net";
        }
        return TargetsOf(content).empty() ? "it names no target" : "it doesn't fit the figure";
    }

    // A target can be there and yet be nothing that the change works on.
    std::string MistakeOf(SerializedContentElement const& content) const {
        if (!IsDeletion(content)) return {};
        for (auto const& id : TargetsOf(content)) {
            auto const item = figure_->Find(id);
            if (item && !CanBeDeleted(*item)) {
                return NameWithId(id, names_) + " is of a kind that can't be deleted";
            }
        }
        return {};
    }

    std::vector<Symbol> MissingTargets(SerializedContentElement const& content) const {
        if (IsOfType(content, figrep::FigureSheetDelta::GetClassTypeValue())) {
            return MissingRecords(content, false);
        }
        if (IsOfType(content, figrep::FigureSubNetDelta::GetClassTypeValue())) {
            return MissingRecords(content, true);
        }
        std::vector<Symbol> missing;
        for (auto const& id : TargetsOf(content)) {
            if (!figure_->Find(id)) missing.push_back(id);
        }
        return missing;
    }

    // Sheets and the sub-nets of a copy are looked for in the design, not in the figure.
    static std::vector<Symbol> MissingRecords(SerializedContentElement const& content,
                                              bool subNet) {
        ContentFields fields(content);
        Symbol const sheetId = fields.Text(Delta::s_delta_sheet);
        figk::GetSheetVisitor visitor(fields.Text(Delta::s_delta_design_id), sheetId);
        figk::SchematicKernel::GetSchematicKernel()->Accept(visitor);
        auto const sheet = visitor.GetSheet();
        if (!sheet) return {sheetId};
        Symbol const id = fields.Text(Delta::s_delta_id);
        if (subNet && !sheet->GetSubNetByID(id)) return {id};
        return {};
    }

    bool IsTrailingPublication(std::size_t index) const {
        return index + 1 == saved_.components.size() &&
               IsOfType(*saved_.components[index].content,
                        figrep::PublishTitleBlockDelta::GetClassTypeValue());
    }

    bool HasTitleBlock() const {
        auto const format = figure_->GetFormat();
        return format && format->GetTitleBlock();
    }

    // The figure writes its texts itself from now on.
    void DropPublishedTexts() {
        if (published_) saved_.components.pop_back();
    }

    static void ForgetChangedItems(DeltaPtr const& delta) {
        Figure::Items items;
        if (auto const figureDelta = du::DynamicCast<figrep::AbstractFigureDelta>(delta)) {
            figureDelta->TakeChangedItems(items);
        }
    }

    SmartPtr<Figure> figure_;
    SavedFigure& saved_;
    DeltaTypes const& types_;
    KnownNames const& names_;
    std::vector<DeltaPtr> listed_;
    std::vector<DeltaReport> reports_;
    bool published_ = false;
};

}  // namespace

std::string DeltaReport::ToString() const {
    std::string const text = std::to_string(number) + ": " + what;
    switch (outcome) {
        case APPLIED:
            return text + ": applied";
        case PARTLY:
            return text + ": applied in part: " + why;
        case FAILED:
            return text + ": not applied: " + why;
        case NOT_UNDERSTOOD:
            break;
    }
    return text + ": kept: " + why;
}

std::vector<DeltaReport> ApplySavedFigure(SmartPtr<Figure> const& figure, SavedFigure& saved,
                                          DeltaTypes const& types, KnownNames const& names) {
    if (!figure) return {};
    return SavedRun(figure, saved, types, names).Run();
}

std::vector<std::string> DescribeSavedFigure(SavedFigure const& saved, KnownNames const& names) {
    std::vector<std::string> lines;
    for (auto const& component : saved.components)
        lines.push_back(DescribeDelta(*component.content, names));
    return lines;
}

}  // namespace fighost
