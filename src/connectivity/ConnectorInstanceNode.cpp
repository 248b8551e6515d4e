#include <figrep/ConnectorInstanceNode.h>

#include <dg/Close.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/SubNet.h>
#include <zvk/ReadWriteLock.h>

namespace figrep {

ConnectorInstanceNode::ConnectorInstanceNode(SmartPtr<ConnectorInstance> const& connector,
                                             SmartPtr<SubNet> const& subNet,
                                             SmartPtr<zvk::ReadWriteLock> const& lock,
                                             ConnectionNode* predecessor)
    : ConnectionNode(lock, SmartPtr<ConnectionNode>(predecessor)),
      connectorInstance_(connector),
      subNet_(subNet) {}

ConnectorInstanceNode::ConnectorInstanceNode(ConnectorInstanceNode const& other) = default;

ConnectorInstanceNode::~ConnectorInstanceNode() = default;

SmartPtr<ConnectorInstance> ConnectorInstanceNode::GetConnectorInstance() const {
    zvk::ReadGuard const guard(GetTreeLock());
    return connectorInstance_;
}

ConnectorInstanceNode::ConnectionNodeType ConnectorInstanceNode::GetNodeType() const {
    return NODE_CONNECTOR_INSTANCE;
}

std::string ConnectorInstanceNode::ToString() const {
    auto const connector = GetConnectorInstance();
    return connector ? "ConnectorInstanceNode on " + connector->ToString()
                     : std::string("ConnectorInstanceNode");
}

void ConnectorInstanceNode::Disconnect() {
    SmartPtr<ConnectorInstanceNode> const self(this);  // the connector may hold the last reference
    ConnectionNode::Disconnect();
    if (connectorInstance_) connectorInstance_->Disconnect(self);
}

void ConnectorInstanceNode::Accept(AbstractFigureVisitor& visitor) {
    AcceptTree(visitor);
}

bool ConnectorInstanceNode::AcceptNode(AbstractFigureVisitor& visitor) {
    return visitor.Visit(SmartPtr<ConnectorInstanceNode>(this));
}

SmartPtr<SubNet> ConnectorInstanceNode::GetSubNet() const {
    zvk::ReadGuard const guard(GetTreeLock());
    return subNet_;
}

void ConnectorInstanceNode::Remove(SmartPtr<SubNet> const& subNet) {
    zvk::WriteGuard const guard(GetTreeLock());
    if (subNet_ == subNet) subNet_ = nullptr;
}

bool ConnectorInstanceNode::Visit(SmartPtr<SubNet> const& subNet) const {
    zvk::ReadGuard const guard(GetTreeLock());
    return subNet_ == subNet;
}

SmartPtr<Figure> ConnectorInstanceNode::GetNodeFigure() const {
    zvk::ReadGuard const guard(GetTreeLock());
    return connectorInstance_ ? connectorInstance_->GetFigure() : nullptr;
}

bool ConnectorInstanceNode::Contacts(SmartPtr<ConnectionNode> const& other, DPoint2D& at) const {
    zvk::ReadGuard const guard(GetTreeLock());
    if (!other || !connectorInstance_ || !other->Contacts(connectorInstance_->GetPosition())) {
        return false;
    }
    at = connectorInstance_->GetPosition();
    return true;
}

bool ConnectorInstanceNode::Contacts(DPoint2D const& point) const {
    zvk::ReadGuard const guard(GetTreeLock());
    return connectorInstance_ && dg::Close(point, connectorInstance_->GetPosition());
}

}  // namespace figrep
