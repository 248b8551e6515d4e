#include <algorithm>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <figrep/FigureItemDeleteDelta.h>
#include <figrep/FigureSettingDelta.h>
#include <figrep/PublishTitleBlockDelta.h>
#include <persistence/ContentFields.h>
#include <persistence/SavedFigureNames.h>
#include <persistence/SavedFigures.h>
#include <zvk/ReadWriteLock.h>
#include <zvk/SerializedContentVisitor.h>

namespace fighost {

namespace {

using figrep::Figure;
using figrep::SmartPtr;
using figrep::Symbol;
using zvk::SerializedContentElement;
using Delta = figk::AbstractDelta;
using DeltaPtr = SmartPtr<figk::AbstractDelta>;
using Element = SerializedContentElement const*;
using Elements = std::vector<Element>;

void AddCopy(SerializedContentElement& to, SerializedContentElement const& child) {
    CopyContent(child, *to.StartContent(child.GetName()));
    to.EndContent();
}

void AddCopies(SerializedContentElement& to, Elements const& children) {
    for (Element const child : children)
        AddCopy(to, *child);
}

/// Goes through an element part by part, in order: copies its own properties, unless a derived
/// class writes something else for one, and leaves each child to the derived class.
class Rewriter : public zvk::SerializedContentVisitor {
public:
    void Rewrite(SerializedContentElement const& from) {
        children_ = from.GetChildren();
        next_ = 0;
        from.VisitAll(*this);
    }

    bool StartElement(Symbol const&) final {
        WriteChild(*children_[next_++]);
        return false;
    }
    void Visit(Symbol const& key, Symbol const& value) override { to_.AddProperty(key, value); }
    void Visit(Symbol const& key, bool value) override { to_.AddProperty(key, value); }
    void Visit(Symbol const& key, int value) override { to_.AddProperty(key, value); }
    void Visit(Symbol const& key, double value) override { to_.AddProperty(key, value); }
    void Visit(Symbol const& key, dg::DPoint3D const& value) override {
        to_.AddProperty(key, value);
    }

protected:
    explicit Rewriter(SerializedContentElement& to) : to_(to) {}

    virtual void WriteChild(SerializedContentElement const& child) = 0;

    SerializedContentElement& to_;

private:
    Elements children_;
    std::size_t next_ = 0;
};

Element LastOf(SerializedContentElement const& element, Symbol const& name) {
    auto const children = element.FindChildren(name);
    return children.empty() ? nullptr : children.back();
}

std::string DesignKey(SerializedContentElement const& design) {
    ContentFields fields(design);
    return fields.Text(Figure::s_design_name).GetString() + '\n' +
           fields.Text(Figure::s_design_id_prefix).GetString();
}

/// Copies what saved texts of a title block hold besides the texts.
class ExtrasCopier : public Rewriter {
public:
    explicit ExtrasCopier(SerializedContentElement& to) : Rewriter(to) {}

    using Rewriter::Visit;
    void Visit(Symbol const& key, Symbol const& value) override {
        if (!(key == Delta::s_delta_type)) Rewriter::Visit(key, value);
    }
    void Visit(Symbol const& key, int value) override {
        if (!(key == Delta::s_delta_action)) Rewriter::Visit(key, value);
    }

protected:
    void WriteChild(SerializedContentElement const& child) override {
        if (!(child.GetName() == Delta::s_delta_text_section)) AddCopy(to_, child);
    }
};

bool IsPublication(SerializedContentElement const& component) {
    return TypeOf(component) == figrep::PublishTitleBlockDelta::GetClassTypeValue();
}

/// Writes a loaded figure as it is now. What was added since stands behind what was there of its
/// kind, and what the program doesn't know stays where it was.
class FigureRewriter : public Rewriter {
public:
    FigureRewriter(Figure const& figure, SavedFigure const& saved,
                   SerializedContentElement const& live, SerializedContentElement& to)
        : Rewriter(to),
          loaded_(*saved.content),
          showGrid_(figure.GetFormatGridOn()),
          lastDesign_(LastOf(loaded_, Figure::s_figure_design)),
          lastComponent_(LastOf(loaded_, Figure::s_figure_component)) {
        SortDesigns(live);
        SortComponents(figure.GetDeltas(), saved, live);
    }

    void Write() {
        Rewrite(loaded_);
        AddNewDesigns();
        AddNewComponents();
    }

    using Rewriter::Visit;
    void Visit(Symbol const& key, bool value) override {
        to_.AddProperty(key, key == Figure::s_figure_show_grid ? showGrid_ : value);
    }
    void Visit(Symbol const& key, int value) override {
        bool const isVersion = key == Figure::s_figure_content_version;
        to_.AddProperty(key, isVersion ? static_cast<int>(Figure::s_write_content_version) : value);
    }

protected:
    void WriteChild(SerializedContentElement const& child) override {
        bool const isComponent = child.GetName() == Figure::s_figure_component;
        if (isComponent && !lastDesign_) AddNewDesigns();
        if (!isComponent || kept_.count(&child) != 0) AddCopy(to_, child);
        if (&child == lastDesign_) AddNewDesigns();
        if (&child == lastComponent_) AddNewComponents();
    }

private:
    void SortDesigns(SerializedContentElement const& live) {
        std::set<std::string> known;
        for (Element const design : loaded_.FindChildren(Figure::s_figure_design))
            known.insert(DesignKey(*design));
        for (Element const design : live.FindChildren(Figure::s_figure_design)) {
            if (known.insert(DesignKey(*design)).second) newDesigns_.push_back(design);
        }
    }

    void SortComponents(std::vector<DeltaPtr> const& deltas, SavedFigure const& saved,
                        SerializedContentElement const& live) {
        std::unordered_set<DeltaPtr> const present(deltas.begin(), deltas.end());
        std::unordered_set<DeltaPtr> loaded;
        for (auto const& component : saved.components) {
            if (component.delta && present.count(component.delta) == 0) continue;
            if (component.delta) loaded.insert(component.delta);
            kept_.insert(component.content.get());
        }
        auto const captured = live.FindChildren(Figure::s_figure_component);
        for (std::size_t i = 0; i < captured.size(); ++i) {
            bool const listed = i < deltas.size();  // else the texts of the title block
            if (listed && (loaded.count(deltas[i]) != 0 || !IsWorthSaving(*deltas[i]))) continue;
            newComponents_.push_back(captured[i]);
        }
    }

    void AddNewDesigns() {
        AddCopies(to_, newDesigns_);
        newDesigns_.clear();
    }

    // The texts of the title block are the figure's own; what else stood beside them is not.
    void AddNewComponents() {
        bool const textsAnew =
            lastComponent_ && kept_.count(lastComponent_) == 0 && IsPublication(*lastComponent_);
        for (Element const component : newComponents_) {
            auto* const copy = to_.StartContent(component->GetName());
            CopyContent(*component, *copy);
            bool const isTexts = component == newComponents_.back() && IsPublication(*component);
            if (isTexts && textsAnew) ExtrasCopier(*copy).Rewrite(*lastComponent_);
            to_.EndContent();
        }
        newComponents_.clear();
    }

    SerializedContentElement const& loaded_;
    bool showGrid_;
    Element lastDesign_;     // null: none
    Element lastComponent_;  // null: none
    std::unordered_set<Element> kept_;
    Elements newDesigns_;
    Elements newComponents_;
};

/// Writes a figure that was loaded from no file, but for what isn't worth saving.
class FreshFigureWriter : public Rewriter {
public:
    FreshFigureWriter(Figure const& figure, SerializedContentElement& to)
        : Rewriter(to), deltas_(figure.GetDeltas()) {}

protected:
    void WriteChild(SerializedContentElement const& child) override {
        bool const listed = child.GetName() == Figure::s_figure_component && at_ < deltas_.size();
        if (!listed || IsWorthSaving(*deltas_[at_++])) AddCopy(to_, child);
    }

private:
    std::vector<DeltaPtr> deltas_;
    std::size_t at_ = 0;
};

void WriteFigure(FigureToSave const& entry, SerializedContentElement& to) {
    bool const isLoaded = entry.saved && entry.saved->content;
    if (!entry.figure) {
        if (isLoaded) CopyContent(*entry.saved->content, to);
        return;
    }
    zvk::WriteGuard const guard(entry.figure->GetLock());
    SerializedContentElement live(SavedFigureName());
    entry.figure->CaptureContent(&live);
    if (isLoaded) {
        FigureRewriter(*entry.figure, *entry.saved, live, to).Write();
    } else {
        FreshFigureWriter(*entry.figure, to).Rewrite(live);
    }
}

/// Looks up the names of all items that stored content mentions.
class NameCollector : public zvk::SerializedContentVisitor {
public:
    NameCollector(SmartPtr<Figure> const& figure, KnownNames& names)
        : figure_(figure), names_(names) {
        for (auto const& sheet : figure->GetSheets()) {
            sheets_.emplace(sheet->GetId(), sheet->GetName());
        }
    }

    using zvk::SerializedContentVisitor::Visit;
    void Visit(Symbol const& key, Symbol const& value) override {
        if (key == Delta::s_delta_sheet) Note(value, NameOfSheet(value));
        if (key == Delta::s_delta_id || key == Delta::s_delta_id_list_entry ||
            key == Delta::s_delta_sub_net_id) {
            auto const item = figure_->Find(value);
            Note(value, item ? item->GetName() : NameOfSheet(value));
        }
    }

private:
    std::string NameOfSheet(Symbol const& id) const {
        auto const sheet = sheets_.find(id);
        return sheet == sheets_.end() ? std::string() : sheet->second;
    }
    void Note(Symbol const& id, std::string const& name) {
        if (!name.empty() && name != id.GetString()) names_[id.GetString()] = name;
    }

    SmartPtr<Figure> figure_;
    KnownNames& names_;
    std::unordered_map<Symbol, std::string> sheets_;
};

// What has been deleted isn't in the figure any more to be asked.
void NoteDeletedNames(Figure const& figure, KnownNames& names) {
    for (auto const& delta : figure.GetDeltas()) {
        auto const deletion = du::DynamicCast<figrep::FigureItemDeleteDelta>(delta);
        auto const item = deletion ? deletion->GetItem() : SmartPtr<figrep::AbstractFigureItem>();
        if (item && !item->GetName().empty()) names[item->GetId().GetString()] = item->GetName();
    }
}

/// Writes figures into a file, in place of those that were in it.
class FileWriter : public Rewriter {
public:
    FileWriter(std::vector<FigureToSave> const& figures, KnownNames& names,
               SerializedContentElement& to)
        : Rewriter(to), figures_(figures), names_(names) {}

    void Write(Element file) {
        lastFigure_ = file ? LastOf(*file, SavedFigureName()) : nullptr;
        if (file) Rewrite(*file);
        WriteRest();
    }

protected:
    void WriteChild(SerializedContentElement const& child) override {
        if (!(child.GetName() == SavedFigureName())) return AddCopy(to_, child);
        if (at_ < figures_.size()) WriteNext();
        if (&child == lastFigure_) WriteRest();
    }

private:
    void WriteNext() {
        FigureToSave const& entry = figures_[at_++];
        auto* const element = to_.StartContent(SavedFigureName());
        WriteFigure(entry, *element);
        to_.EndContent();
        if (!entry.figure) return;
        NameCollector collector(entry.figure, names_);
        element->VisitAll(collector);
        NoteDeletedNames(*entry.figure, names_);
    }
    void WriteRest() {
        while (at_ < figures_.size())
            WriteNext();
    }

    std::vector<FigureToSave> const& figures_;
    KnownNames& names_;
    Element lastFigure_ = nullptr;  // null: none
    std::size_t at_ = 0;
};

}  // namespace

bool IsWorthSaving(figk::AbstractDelta const& delta) {
    auto const* const setting = dynamic_cast<figrep::FigureSettingDelta const*>(&delta);
    return !setting || !setting->GetItems().empty();
}

std::string WriteSavedFigures(std::vector<FigureToSave> const& figures, KnownNames const& names,
                              SerializedContentElement const* file) {
    KnownNames all = names;
    SerializedContentElement root{Symbol(SAVED_FIGURES)};
    FileWriter(figures, all, root).Write(file);
    return ContentToXml(root, SAVED_FIGURES, all);
}

}  // namespace fighost
