// The walk of what a figure shows by itself, for visitors that collect some of it.
#pragma once

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Fwd.h>

#include <vector>

namespace figrep {

/// Sees blocks, cables, tables, sub-nets, sub-highways, the nodes of ports, the format, and the
/// graphics and texts that stand on the figure outside of groups; nothing inside of these.
class TopLevelContentVisitor : public AbstractFigureVisitor {
public:
    using Items = std::vector<SmartPtr<AbstractFigureItem>>;

    ~TopLevelContentVisitor() override;

    using AbstractFigureVisitor::Visit;
    /// True only for the labels of a figure.
    bool StartGroupVisit(SmartPtr<figk::Group> const& group) override;
    bool Visit(SmartPtr<TitleBlock> const& item) override;
    bool Visit(SmartPtr<TextGraphic> const& item) override;
    bool Visit(SmartPtr<TableInstance> const& item) override;
    bool Visit(SmartPtr<SubNet> const& item) override;
    bool Visit(SmartPtr<SubHighway> const& item) override;
    bool Visit(SmartPtr<PortNode> const& item) override;
    /// Goes on to the port's nodes.
    bool Visit(SmartPtr<Port> const& item) override;
    bool Visit(SmartPtr<GenericGraphic> const& item) override;
    bool Visit(SmartPtr<Format> const& item) override;
    bool Visit(SmartPtr<CableInstance> const& item) override;
    bool Visit(SmartPtr<BlockInstance> const& item) override;

protected:
    TopLevelContentVisitor();
    TopLevelContentVisitor(TopLevelContentVisitor const&);
    TopLevelContentVisitor& operator=(TopLevelContentVisitor const&);

    /// Whether an item that is met belongs to the content that is asked for.
    virtual bool IsWanted(AbstractFigureItem const& item) const = 0;

    Items& GetCollected() { return items_; }

private:
    bool Collect(SmartPtr<AbstractFigureItem> const& item);

    Items items_;
};

}  // namespace figrep
