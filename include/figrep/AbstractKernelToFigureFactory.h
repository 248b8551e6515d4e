// Where every item that stands for a kernel record is made.
#pragma once

#include <du/RefCounted.h>
#include <figrep/Fwd.h>

namespace figrep {

/// Makes figure items from kernel records. A host that wants item classes of its own gives a sheet
/// delta generator a factory that makes them.
///
/// Every operation answers a fresh item that nothing else holds and that is registered nowhere:
/// handing it to a figure is the caller's. A null record answers null, and so does a null owner
/// where the item can't stand without one. The factory takes no lock of its own.
class AbstractKernelToFigureFactory : virtual public du::RefCounted {
public:
    AbstractKernelToFigureFactory(AbstractKernelToFigureFactory const&) = default;
    AbstractKernelToFigureFactory& operator=(AbstractKernelToFigureFactory const&) = default;
    ~AbstractKernelToFigureFactory() override = default;

    /// The lock that items made from now on share; null makes items that run unlocked.
    virtual void SetLock(SmartPtr<zvk::ReadWriteLock> const& lock) = 0;

    virtual SmartPtr<BlockInstance> CreateBlockInstance(
        SmartPtr<figk::BlockInstance> const& record) = 0;
    virtual SmartPtr<CableInstance> CreateCableInstance(
        SmartPtr<figk::CableInstance> const& record) = 0;
    virtual SmartPtr<ConnectorInstance> CreateConnectorInstance(
        SmartPtr<BaseBlockInstance> const& block,
        SmartPtr<figk::ConnectorInstance> const& record) = 0;
    virtual SmartPtr<Figure> CreateFigure() = 0;
    virtual SmartPtr<Format> CreateFormat(SmartPtr<figk::Format> const& record) = 0;
    virtual SmartPtr<GenericGraphic> CreateGenericGraphic(
        SmartPtr<figk::GenericGraphic> const& record, SmartPtr<figk::Group> const& group) = 0;
    virtual SmartPtr<GraphicGroup> CreateGraphicGroup(SmartPtr<figk::Group> const& parent) = 0;
    virtual SmartPtr<HighwayNode> CreateHighwayNode(SmartPtr<figk::HighwayNode> const& record,
                                                    SmartPtr<SubHighway> const& subHighway,
                                                    SmartPtr<ConnectionNode> const& netNode) = 0;
    virtual SmartPtr<HighwaySegment> CreateHighwaySegment(
        SmartPtr<SubHighway> const& subHighway, SmartPtr<figk::HighwaySegment> const& record,
        SmartPtr<ConnectionNode> const& predecessor) = 0;
    virtual SmartPtr<Miscellaneous> CreateMiscellaneous(
        SmartPtr<figk::Miscellaneous> const& record) = 0;
    virtual SmartPtr<NetSegment> CreateNetSegment(SmartPtr<SubNet> const& subNet,
                                                  SmartPtr<figk::NetSegment> const& record,
                                                  SmartPtr<ConnectionNode> const& predecessor) = 0;
    virtual SmartPtr<Port> CreatePort(SmartPtr<figk::Port> const& record) = 0;
    virtual SmartPtr<PortNode> CreatePortNode(SmartPtr<Port> const& port,
                                              SmartPtr<SubNet> const& subNet,
                                              SmartPtr<figk::PortNode> const& record,
                                              SmartPtr<ConnectionNode> const& predecessor) = 0;
    virtual SmartPtr<PortNode> CreatePortNode(SmartPtr<Port> const& port,
                                              SmartPtr<SubHighway> const& subHighway,
                                              SmartPtr<figk::PortNode> const& record,
                                              SmartPtr<ConnectionNode> const& predecessor) = 0;
    virtual SmartPtr<SubHighway> CreateSubHighway(SmartPtr<figk::SubHighway> const& record) = 0;
    virtual SmartPtr<SubNet> CreateSubNet(SmartPtr<Figure> const& figure,
                                          SmartPtr<figk::SubNet> const& record) = 0;
    virtual SmartPtr<TableInstance> CreateTableInstance(
        SmartPtr<figk::TableInstance> const& record) = 0;
    virtual SmartPtr<TextGraphic> CreateTextGraphic(SmartPtr<figk::TextGraphic> const& record,
                                                    SmartPtr<figk::Group> const& group) = 0;
    virtual SmartPtr<TitleBlock> CreateTitleBlock(SmartPtr<figk::TitleBlock> const& record,
                                                  SmartPtr<TokenObserver> const& observer) = 0;

protected:
    AbstractKernelToFigureFactory() = default;
};

}  // namespace figrep
