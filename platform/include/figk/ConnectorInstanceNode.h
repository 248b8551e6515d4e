// A connection of a net to a connector, as a node of the net's tree.
#pragma once

#include <figk/ConnectionNode.h>

namespace figk {

class ConnectorInstanceNode : public ConnectionNode {
public:
    ~ConnectorInstanceNode() override;

    virtual SmartPtr<ConnectorInstance> GetConnectorInstance() const = 0;

    ConnectionNodeType GetNodeType() const override;
    std::string ToString() const override;

protected:
    ConnectorInstanceNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                          SmartPtr<BaseConnectionNode> const& predecessor);

    bool VisitNode(AbstractVisitor& visitor) override;
};

}  // namespace figk
