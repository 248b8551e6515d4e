// The factory of this library's own item classes.
#pragma once

#include <figrep/AbstractKernelToFigureFactory.h>

namespace figrep {

/// Makes the classes of this library. Its only state is the lock that new items share: null until
/// `SetLock` or, where that was never called, the first `CreateFigure`.
class KernelToFigureFactory : public AbstractKernelToFigureFactory {
public:
    KernelToFigureFactory();
    KernelToFigureFactory(KernelToFigureFactory const&);
    KernelToFigureFactory& operator=(KernelToFigureFactory const&);
    ~KernelToFigureFactory() override;

    void SetLock(SmartPtr<zvk::ReadWriteLock> const& lock) override;

    SmartPtr<BlockInstance> CreateBlockInstance(
        SmartPtr<figk::BlockInstance> const& record) override;
    SmartPtr<CableInstance> CreateCableInstance(
        SmartPtr<figk::CableInstance> const& record) override;
    SmartPtr<ConnectorInstance> CreateConnectorInstance(
        SmartPtr<BaseBlockInstance> const& block,
        SmartPtr<figk::ConnectorInstance> const& record) override;
    SmartPtr<Figure> CreateFigure() override;
    SmartPtr<Format> CreateFormat(SmartPtr<figk::Format> const& record) override;
    SmartPtr<GenericGraphic> CreateGenericGraphic(SmartPtr<figk::GenericGraphic> const& record,
                                                  SmartPtr<figk::Group> const& group) override;
    SmartPtr<GraphicGroup> CreateGraphicGroup(SmartPtr<figk::Group> const& parent) override;
    SmartPtr<HighwayNode> CreateHighwayNode(SmartPtr<figk::HighwayNode> const& record,
                                            SmartPtr<SubHighway> const& subHighway,
                                            SmartPtr<ConnectionNode> const& netNode) override;
    SmartPtr<HighwaySegment> CreateHighwaySegment(
        SmartPtr<SubHighway> const& subHighway, SmartPtr<figk::HighwaySegment> const& record,
        SmartPtr<ConnectionNode> const& predecessor) override;
    SmartPtr<Miscellaneous> CreateMiscellaneous(
        SmartPtr<figk::Miscellaneous> const& record) override;
    SmartPtr<NetSegment> CreateNetSegment(SmartPtr<SubNet> const& subNet,
                                          SmartPtr<figk::NetSegment> const& record,
                                          SmartPtr<ConnectionNode> const& predecessor) override;
    SmartPtr<Port> CreatePort(SmartPtr<figk::Port> const& record) override;
    SmartPtr<PortNode> CreatePortNode(SmartPtr<Port> const& port, SmartPtr<SubNet> const& subNet,
                                      SmartPtr<figk::PortNode> const& record,
                                      SmartPtr<ConnectionNode> const& predecessor) override;
    SmartPtr<PortNode> CreatePortNode(SmartPtr<Port> const& port,
                                      SmartPtr<SubHighway> const& subHighway,
                                      SmartPtr<figk::PortNode> const& record,
                                      SmartPtr<ConnectionNode> const& predecessor) override;
    SmartPtr<SubHighway> CreateSubHighway(SmartPtr<figk::SubHighway> const& record) override;
    SmartPtr<SubNet> CreateSubNet(SmartPtr<Figure> const& figure,
                                  SmartPtr<figk::SubNet> const& record) override;
    SmartPtr<TableInstance> CreateTableInstance(
        SmartPtr<figk::TableInstance> const& record) override;
    SmartPtr<TextGraphic> CreateTextGraphic(SmartPtr<figk::TextGraphic> const& record,
                                            SmartPtr<figk::Group> const& group) override;
    SmartPtr<TitleBlock> CreateTitleBlock(SmartPtr<figk::TitleBlock> const& record,
                                          SmartPtr<TokenObserver> const& observer) override;

private:
    SmartPtr<zvk::ReadWriteLock> lock_;
};

}  // namespace figrep
