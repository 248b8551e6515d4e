// Finds a port's appearance in a figure by the id of its kernel record.
#pragma once

#include <figrep/AbstractFigureItem.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Format.h>

#include <string>

namespace figrep {

/// For hosts that follow a net into another figure, and that make a figure's ports known.
///
/// A node on a highway counts when its highway is walked and not when a net that ends there is.
/// Ownership: keeps what it found last and the format of the figure that it searched last.
class FindFigurePortVisitor : public AbstractFigureVisitor {
public:
    FindFigurePortVisitor();
    FindFigurePortVisitor(FindFigurePortVisitor const&);
    FindFigurePortVisitor& operator=(FindFigurePortVisitor const&);
    ~FindFigurePortVisitor() override;

    /// With a name, a walk also adds every port node of the figure to `SchematicRepresentation`
    /// under that name, hidden ones too. Empty at first.
    void SetFigureName(Symbol const& name) { figureName_ = name; }
    /// Where the grid cells of those port nodes are read; `Find` sets the figure's.
    void SetFormat(SmartPtr<Format> const& format) { format_ = format; }

    /// The visible port node whose kernel record has this id; null without one, without a figure
    /// and for an empty id. Cost: a walk of all wires.
    SmartPtr<AbstractFigureItem> const& Find(SmartPtr<Figure> const& figure, Symbol const& id);

    /// The sub-net that is meant at a port node: on a net its own, whatever `name` says; on a
    /// highway the first of that name that reaches the node. Null without one.
    static SmartPtr<SubNet> FindSubNetOnPortNode(SmartPtr<PortNode> const& portNode,
                                                 std::string const& name);

    using AbstractFigureVisitor::Visit;
    bool Visit(SmartPtr<TitleBlock> const& item) override;
    bool Visit(SmartPtr<TextGraphic> const& item) override;
    bool Visit(SmartPtr<SubNet> const& item) override;
    bool Visit(SmartPtr<SubHighway> const& item) override;
    bool Visit(SmartPtr<PortNode> const& item) override;
    bool Visit(SmartPtr<Miscellaneous> const& item) override;
    bool Visit(SmartPtr<GenericGraphic> const& item) override;
    bool Visit(SmartPtr<Format> const& item) override;
    bool Visit(SmartPtr<ConnectorInstance> const& item) override;
    bool Visit(SmartPtr<CableInstance> const& item) override;
    bool Visit(SmartPtr<BlockInstance> const& item) override;

private:
    void LookAt(PortNode& node, Port const& port);
    void AddToRepresentation(PortNode& node, Port const& port, Symbol const& kernelId) const;

    SmartPtr<AbstractFigureItem> foundItem_;
    Symbol target_;
    Symbol figureName_;
    SmartPtr<Format> format_;
    bool onHighway_ = false;
};

}  // namespace figrep
