// Small stand-ins for the tests of the figure's core.
#pragma once

#include <dom/Dispatch.h>
#include <figk/AbstractVisitor.h>
#include <figk/BlockInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/Sheet.h>
#include <figrep/AbstractFigureDelta.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/FigureObserver.h>
#include <figrep/SchematicFigureItemsContainer.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace figrep::testing {

/// A kernel block that has an id and a name and nothing else.
class FakeBlockRecord : public figk::BlockInstance {
public:
    FakeBlockRecord(std::string const& id, std::string name) : id_(id), name_(std::move(name)) {}

    Symbol const& GetId() const override { return id_; }
    std::string const& GetName() const override { return name_; }
    SmartPtr<figk::Sheet> GetSheet() const override { return {}; }
    std::vector<SmartPtr<figk::BaseBlockInstance>> GetChildren() const override { return {}; }
    bool IsChild() const override { return false; }
    bool IsParent() const override { return false; }
    std::vector<SmartPtr<figk::ConnectorInstance>> GetConnectorInstances() const override {
        return {};
    }
    SmartPtr<figk::Group> GetTextLabelContainerGroup() const override { return {}; }

private:
    Symbol id_;
    std::string name_;
};

/// An item of any type, which counts what is done to it.
class FakeItem : public AbstractFigureItem {
public:
    FakeItem(SmartPtr<zvk::ReadWriteLock> const& lock, SmartPtr<figk::AbstractItem> const& record,
             FigureItemType type = ITEM_MISCELLANEOUS)
        : AbstractFigureItem(lock, record), type_(type) {
        DeriveId();
    }
    FakeItem(SmartPtr<zvk::ReadWriteLock> const& lock, std::string const& name,
             FigureItemType type = ITEM_MISCELLANEOUS)
        : AbstractFigureItem(lock, name), type_(type) {
        DeriveId();
    }

    FigureItemType GetType() const override { return type_; }
    void SetHighlight(bool) override { calls.emplace_back("highlight"); }
    void SetPreselectHighlight(bool) override { calls.emplace_back("preselect"); }
    void SetVisibility(bool) override { calls.emplace_back("visibility"); }
    void MoveItem(double, double) override { calls.emplace_back("move"); }
    void RotateItem(DPoint2D const&, double) override { calls.emplace_back("rotate"); }
    void ScaleItem(DPoint2D const&, double) override { calls.emplace_back("scale"); }
    void MirrorItem(DPoint2D const&, bool) override { calls.emplace_back("mirror"); }
    void Accept(AbstractFigureVisitor&) override {}

    using AbstractFigureItem::SetFigure;
    using AbstractFigureItem::SetName;

    std::vector<std::string> calls;

protected:
    void DeriveId() override {
        if (auto const record = GetKernelItem()) SetId(record->GetId());
    }

private:
    FigureItemType type_;
};

/// A delta that does what the test says.
class FakeDelta : public AbstractFigureDelta {
public:
    explicit FakeDelta(bool fits = true, Status failure = STATUS_OK)
        : AbstractFigureDelta(ACTION_COPY, false), fits_(fits), failure_(failure) {}

    bool IsAppearanceOnly() const override { return appearanceOnly; }
    void Refresh() override { calls.emplace_back("refresh"); }

    std::vector<SmartPtr<AbstractFigureItem>> touches;
    std::function<void(figk::AbstractDeltaReceiver&)> action;
    std::vector<std::string> calls;
    bool appearanceOnly = false;

protected:
    bool _Verify(figk::AbstractDeltaReceiver&) override {
        calls.emplace_back("verify");
        if (fits_) return true;
        for (auto const& item : touches)
            NoteChangedItem(item);
        SetStatus(failure_);
        return false;
    }
    void _Apply(figk::AbstractDeltaReceiver& receiver) override {
        calls.emplace_back("apply");
        for (auto const& item : touches)
            NoteChangedItem(item);
        if (action) action(receiver);
    }
    void _Serialize(zvk::SerializedContentElement* element) override { SerializeBase(element); }

private:
    bool fits_;
    Status failure_;
};

/// Writes down every event in the order of delivery.
class Recorder : public FigureObserver {
public:
    void OnDestroy() override { lines.emplace_back("destroy"); }
    void OnFigureContentChanged() override { lines.emplace_back("content"); }
    void OnFigureAppearanceChanged() override { lines.emplace_back("appearance"); }
    void OnFigureItemHighlighted() override { lines.emplace_back("highlighted"); }
    void OnFigureItemsChanged(SmartPtr<SchematicFigureItemsContainer> const& items) override {
        Note("items", items);
    }
    void OnFigureItemsVisibility(SmartPtr<SchematicFigureItemsContainer> const& items) override {
        Note("visibility", items);
    }

    /// Delivers what waits and answers all lines so far, forgetting them.
    std::vector<std::string> Take() {
        dom::Dispatch();
        return std::exchange(lines, {});
    }

    std::vector<std::string> lines;
    SmartPtr<SchematicFigureItemsContainer> last;

private:
    void Note(std::string const& what, SmartPtr<SchematicFigureItemsContainer> const& items) {
        last = items;
        std::string line = what + (items->GetFlag() ? " on" : " off");
        for (auto const& item : *items)
            line += " " + item->GetId().GetString();
        lines.push_back(line);
    }
};

using Lines = std::vector<std::string>;

}  // namespace figrep::testing
