#include <figrep/KernelToFigureFactory.h>

#include <figk/BlockInstance.h>
#include <figk/CableInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/Format.h>
#include <figk/GenericGraphic.h>
#include <figk/HighwayNode.h>
#include <figk/HighwaySegment.h>
#include <figk/Miscellaneous.h>
#include <figk/NetSegment.h>
#include <figk/Port.h>
#include <figk/PortNode.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <figk/TableInstance.h>
#include <figk/TextGraphic.h>
#include <figk/TitleBlock.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/GraphicGroup.h>
#include <figrep/HighwayNode.h>
#include <figrep/HighwaySegment.h>
#include <figrep/Miscellaneous.h>
#include <figrep/NetSegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>
#include <figrep/TitleBlock.h>
#include <figrep/TokenObserver.h>
#include <zvk/ReadWriteLock.h>

namespace figrep {

namespace {

/// The plain case: an item made from the lock and its record.
template <typename Item, typename Record>
SmartPtr<Item> Make(SmartPtr<zvk::ReadWriteLock> const& lock, SmartPtr<Record> const& record) {
    if (!record) return {};
    return new Item(lock, record);
}

template <typename Owner>
SmartPtr<PortNode> MakePortNode(SmartPtr<Port> const& port, SmartPtr<Owner> const& owner,
                                SmartPtr<zvk::ReadWriteLock> const& lock,
                                SmartPtr<figk::PortNode> const& record,
                                SmartPtr<ConnectionNode> const& predecessor) {
    if (!port || !owner || !record) return {};
    return new PortNode(port, owner, lock, record, predecessor);
}

}  // namespace

using Factory = KernelToFigureFactory;

Factory::KernelToFigureFactory() = default;
Factory::KernelToFigureFactory(Factory const&) = default;
Factory& Factory::operator=(Factory const&) = default;
Factory::~KernelToFigureFactory() = default;

void Factory::SetLock(SmartPtr<zvk::ReadWriteLock> const& lock) {
    lock_ = lock;
}

SmartPtr<BlockInstance> Factory::CreateBlockInstance(SmartPtr<figk::BlockInstance> const& record) {
    return Make<BlockInstance>(lock_, record);
}

SmartPtr<CableInstance> Factory::CreateCableInstance(SmartPtr<figk::CableInstance> const& record) {
    return Make<CableInstance>(lock_, record);
}

SmartPtr<ConnectorInstance> Factory::CreateConnectorInstance(
    SmartPtr<BaseBlockInstance> const& block, SmartPtr<figk::ConnectorInstance> const& record) {
    if (!block || !record) return {};
    return new ConnectorInstance(block, lock_, record);
}

SmartPtr<Figure> Factory::CreateFigure() {
    SmartPtr<Figure> figure = new Figure();
    if (!lock_) lock_ = figure->GetLock();
    return figure;
}

SmartPtr<Format> Factory::CreateFormat(SmartPtr<figk::Format> const& record) {
    return Make<Format>(lock_, record);
}

SmartPtr<GenericGraphic> Factory::CreateGenericGraphic(SmartPtr<figk::GenericGraphic> const& record,
                                                       SmartPtr<figk::Group> const& group) {
    if (!record) return {};
    return GenericGraphic::Create(lock_, record, group);
}

SmartPtr<GraphicGroup> Factory::CreateGraphicGroup(SmartPtr<figk::Group> const& parent) {
    return new GraphicGroup(parent);
}

SmartPtr<HighwayNode> Factory::CreateHighwayNode(SmartPtr<figk::HighwayNode> const& record,
                                                 SmartPtr<SubHighway> const& subHighway,
                                                 SmartPtr<ConnectionNode> const& netNode) {
    if (!record || !subHighway) return {};
    return new HighwayNode(lock_, record, subHighway, netNode);
}

SmartPtr<HighwaySegment> Factory::CreateHighwaySegment(
    SmartPtr<SubHighway> const& subHighway, SmartPtr<figk::HighwaySegment> const& record,
    SmartPtr<ConnectionNode> const& predecessor) {
    if (!subHighway || !record) return {};
    return new HighwaySegment(subHighway, lock_, record, predecessor);
}

SmartPtr<Miscellaneous> Factory::CreateMiscellaneous(SmartPtr<figk::Miscellaneous> const& record) {
    return Make<Miscellaneous>(lock_, record);
}

SmartPtr<NetSegment> Factory::CreateNetSegment(SmartPtr<SubNet> const& subNet,
                                               SmartPtr<figk::NetSegment> const& record,
                                               SmartPtr<ConnectionNode> const& predecessor) {
    if (!subNet || !record) return {};
    return new NetSegment(subNet, lock_, record, predecessor);
}

SmartPtr<Port> Factory::CreatePort(SmartPtr<figk::Port> const& record) {
    return Make<Port>(lock_, record);
}

SmartPtr<PortNode> Factory::CreatePortNode(SmartPtr<Port> const& port,
                                           SmartPtr<SubNet> const& subNet,
                                           SmartPtr<figk::PortNode> const& record,
                                           SmartPtr<ConnectionNode> const& predecessor) {
    return MakePortNode(port, subNet, lock_, record, predecessor);
}

SmartPtr<PortNode> Factory::CreatePortNode(SmartPtr<Port> const& port,
                                           SmartPtr<SubHighway> const& subHighway,
                                           SmartPtr<figk::PortNode> const& record,
                                           SmartPtr<ConnectionNode> const& predecessor) {
    return MakePortNode(port, subHighway, lock_, record, predecessor);
}

SmartPtr<SubHighway> Factory::CreateSubHighway(SmartPtr<figk::SubHighway> const& record) {
    return Make<SubHighway>(lock_, record);
}

SmartPtr<SubNet> Factory::CreateSubNet(SmartPtr<Figure> const& figure,
                                       SmartPtr<figk::SubNet> const& record) {
    if (!record) return {};
    return new SubNet(figure, lock_, record);
}

SmartPtr<TableInstance> Factory::CreateTableInstance(SmartPtr<figk::TableInstance> const& record) {
    return Make<TableInstance>(lock_, record);
}

SmartPtr<TextGraphic> Factory::CreateTextGraphic(SmartPtr<figk::TextGraphic> const& record,
                                                 SmartPtr<figk::Group> const& group) {
    if (!record) return {};
    return TextGraphic::Create(lock_, record, group);
}

SmartPtr<TitleBlock> Factory::CreateTitleBlock(SmartPtr<figk::TitleBlock> const& record,
                                               SmartPtr<TokenObserver> const& observer) {
    if (!record) return {};
    return new TitleBlock(lock_, record, observer);
}

}  // namespace figrep
