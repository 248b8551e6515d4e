// The one way to walk the kernel's records.
#pragma once

#include <figk/Fwd.h>

namespace figk {

/// Overridden where somebody cares. True means go on into what the record holds. Every default
/// answers true, but for `EndGroupVisit`, whose answer nobody asks.
class AbstractVisitor {
public:
    AbstractVisitor(AbstractVisitor const& other);
    virtual ~AbstractVisitor();

    virtual bool EndGroupVisit(SmartPtr<Group> const& group);
    virtual bool StartGroupVisit(SmartPtr<Group> const& group);
    virtual bool Visit(SmartPtr<TitleBlock> const& titleBlock);
    virtual bool Visit(SmartPtr<TextGraphic> const& text);
    virtual bool Visit(SmartPtr<TableInstance> const& table);
    virtual bool Visit(SmartPtr<SubNet> const& subNet);
    virtual bool Visit(SmartPtr<SubHighway> const& subHighway);
    virtual bool Visit(SmartPtr<Sheet> const& sheet);
    virtual bool Visit(SmartPtr<SchematicKernel> const& kernel);
    virtual bool Visit(SmartPtr<PortNode> const& portNode);
    virtual bool Visit(SmartPtr<Port> const& port);
    virtual bool Visit(SmartPtr<NetSegment> const& segment);
    virtual bool Visit(SmartPtr<Net> const& net);
    virtual bool Visit(SmartPtr<Miscellaneous> const& miscellaneous);
    virtual bool Visit(SmartPtr<HighwaySegment> const& segment);
    virtual bool Visit(SmartPtr<HighwayNode> const& node);
    virtual bool Visit(SmartPtr<JunctionNode> const& node);
    virtual bool Visit(SmartPtr<Highway> const& highway);
    virtual bool Visit(SmartPtr<GenericGraphic> const& graphic);
    virtual bool Visit(SmartPtr<Format> const& format);
    virtual bool Visit(SmartPtr<Design> const& design);
    virtual bool Visit(SmartPtr<ConnectorInstanceNode> const& node);
    virtual bool Visit(SmartPtr<ConnectorInstance> const& connector);
    virtual bool Visit(SmartPtr<CableInstance> const& cable);
    virtual bool Visit(SmartPtr<BlockInstance> const& block);
    virtual bool VisitTextLabelContainer(SmartPtr<TextLabelContainer> const& container);

protected:
    AbstractVisitor();
};

}  // namespace figk
