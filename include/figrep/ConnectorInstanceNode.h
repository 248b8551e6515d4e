// The part that a connector takes in one sub-net's tree.
#pragma once

#include <figrep/ConnectionNode.h>

namespace figrep {

/// A connector's node in the tree of one sub-net. It is no item; the connector is.
class ConnectorInstanceNode : public ConnectionNode {
public:
    ConnectorInstanceNode(SmartPtr<ConnectorInstance> const& connector,
                          SmartPtr<SubNet> const& subNet, SmartPtr<zvk::ReadWriteLock> const& lock,
                          ConnectionNode* predecessor);
    /// Copies what the node stands for, never its links.
    ConnectorInstanceNode(ConnectorInstanceNode const& other);
    ~ConnectorInstanceNode() override;

    SmartPtr<ConnectorInstance> GetConnectorInstance() const;

    ConnectionNodeType GetNodeType() const override;
    std::string ToString() const override;

    /// Takes the node out of the tree and off its connector.
    void Disconnect() override;
    using ConnectionNode::Disconnect;

    void Accept(AbstractFigureVisitor& visitor) override;
    SmartPtr<SubNet> GetSubNet() const override;
    void Remove(SmartPtr<SubNet> const& subNet) override;
    bool Visit(SmartPtr<SubNet> const& subNet) const override;
    SmartPtr<Figure> GetNodeFigure() const override;
    bool Contacts(SmartPtr<ConnectionNode> const& other, DPoint2D& at) const override;
    bool Contacts(DPoint2D const& point) const override;

protected:
    bool AcceptNode(AbstractFigureVisitor& visitor) override;

private:
    SmartPtr<ConnectorInstance> connectorInstance_;
    SmartPtr<SubNet> subNet_;
};

}  // namespace figrep
