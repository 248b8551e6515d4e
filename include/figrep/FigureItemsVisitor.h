// Collects the items of a figure that can be hidden, isolated and moved as a whole.
#pragma once

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Fwd.h>

#include <vector>

namespace figrep {

/// Appends, in the order of the walk: blocks, cables, tables, miscellaneous items, sub-nets,
/// sub-highways, and the graphics and texts that stand on the figure itself, also in groups.
/// What these are made of (segments, connectors, labels of an item) is never listed.
///
/// Ownership: writes into the caller's vector, which must outlive the visitor.
class FigureItemsVisitor : public AbstractFigureVisitor {
public:
    using Items = std::vector<SmartPtr<AbstractFigureItem>>;

    explicit FigureItemsVisitor(Items& items);
    ~FigureItemsVisitor() override;

    /// Whether blocks inside other blocks, and sub-nets of cables, are listed too. On at first.
    void SetCollectSubItems(bool collect) { collectSubItems_ = collect; }
    /// Whether ports are listed too. Off at first.
    void SetCollectPorts(bool collect) { collectPorts_ = collect; }

    using AbstractFigureVisitor::Visit;
    bool Visit(SmartPtr<UnroutedConnection> const& item) override;
    bool Visit(SmartPtr<TitleBlock> const& item) override;
    bool Visit(SmartPtr<TextGraphic> const& item) override;
    bool Visit(SmartPtr<TableInstance> const& item) override;
    bool Visit(SmartPtr<SubNet> const& item) override;
    bool Visit(SmartPtr<SubHighway> const& item) override;
    bool Visit(SmartPtr<PortNode> const& item) override;
    bool Visit(SmartPtr<Port> const& item) override;
    bool Visit(SmartPtr<NetSegment> const& item) override;
    bool Visit(SmartPtr<Miscellaneous> const& item) override;
    bool Visit(SmartPtr<HighwaySegment> const& item) override;
    bool Visit(SmartPtr<GenericGraphic> const& item) override;
    bool Visit(SmartPtr<Format> const& item) override;
    bool Visit(SmartPtr<ConnectorInstance> const& item) override;
    bool Visit(SmartPtr<CableInstance> const& item) override;
    bool Visit(SmartPtr<BlockInstance> const& item) override;
    bool VisitTextLabelContainer(SmartPtr<TextLabelContainer> const& container) override;

private:
    Items& items_;
    bool collectSubItems_ = true;
    bool collectPorts_ = false;
};

}  // namespace figrep
