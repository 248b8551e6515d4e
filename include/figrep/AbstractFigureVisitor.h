// The interface of everything that walks a figure.
#pragma once

#include <figrep/Fwd.h>

namespace figrep {

/// A walk over a figure's content. A `Visit` that answers true has the walk go on into what the
/// item holds, false leaves it out. By default everything is visited and nothing is done, so a
/// visitor overrides only what it cares about. Arguments are never null.
///
/// A walk pivots the trees of the wires that it enters, so it runs under the figure's write lock,
/// and two walks of one figure never run at once.
class AbstractFigureVisitor {
public:
    AbstractFigureVisitor(AbstractFigureVisitor const&);
    virtual ~AbstractFigureVisitor();

    /// False leaves out the group's members; `EndGroupVisit` follows in any case.
    virtual bool StartGroupVisit(SmartPtr<figk::Group> const& group);
    virtual bool EndGroupVisit(SmartPtr<figk::Group> const& group);

    virtual bool Visit(SmartPtr<UnroutedConnection> const& item);
    virtual bool Visit(SmartPtr<TitleBlock> const& item);
    virtual bool Visit(SmartPtr<TextGraphic> const& item);
    virtual bool Visit(SmartPtr<TableInstance> const& item);
    virtual bool Visit(SmartPtr<SubNet> const& item);
    virtual bool Visit(SmartPtr<SubHighway> const& item);
    virtual bool Visit(SmartPtr<PortNode> const& item);
    virtual bool Visit(SmartPtr<Port> const& item);
    virtual bool Visit(SmartPtr<PickGraphicProxy> const& item);
    virtual bool Visit(SmartPtr<NetSegment> const& item);
    virtual bool Visit(SmartPtr<Miscellaneous> const& item);
    virtual bool Visit(SmartPtr<HighwaySegment> const& item);
    virtual bool Visit(SmartPtr<HighwayNode> const& item);
    virtual bool Visit(SmartPtr<JunctionNode> const& item);
    virtual bool Visit(SmartPtr<GenericGraphic> const& item);
    virtual bool Visit(SmartPtr<Format> const& item);
    virtual bool Visit(SmartPtr<Figure> const& item);
    virtual bool Visit(SmartPtr<ConnectorInstanceNode> const& item);
    virtual bool Visit(SmartPtr<ConnectorInstance> const& item);
    virtual bool Visit(SmartPtr<CableInstance> const& item);
    virtual bool Visit(SmartPtr<BlockInstance> const& item);

    /// Called after all that the item holds, also when its `Visit` answered false.
    virtual void VisitComplete(SmartPtr<TitleBlock> const& item);
    virtual void VisitComplete(SmartPtr<SubNet> const& item);
    virtual void VisitComplete(SmartPtr<SubHighway> const& item);
    virtual void VisitComplete(SmartPtr<Figure> const& item);
    virtual void VisitComplete(SmartPtr<ConnectorInstance> const& item);

    /// False leaves out the container's labels.
    virtual bool VisitTextLabelContainer(SmartPtr<TextLabelContainer> const& container);

protected:
    AbstractFigureVisitor();
    AbstractFigureVisitor& operator=(AbstractFigureVisitor const&);
};

}  // namespace figrep
