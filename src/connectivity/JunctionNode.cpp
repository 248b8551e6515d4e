#include <figrep/JunctionNode.h>

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/SubNet.h>

namespace figrep {

JunctionNode::JunctionNode(SmartPtr<zvk::ReadWriteLock> const& lock,
                           SmartPtr<figk::BaseConnectionNode> const& predecessor)
    : ConnectionNode(lock, predecessor) {}

JunctionNode::~JunctionNode() = default;

JunctionNode::ConnectionNodeType JunctionNode::GetNodeType() const {
    return NODE_JUNCTION;
}

bool JunctionNode::IsJunction() const {
    return true;
}

std::string JunctionNode::ToString() const {
    return "Junction";
}

void JunctionNode::Accept(AbstractFigureVisitor& visitor) {
    AcceptTree(visitor);
}

bool JunctionNode::AcceptNode(AbstractFigureVisitor& visitor) {
    return visitor.Visit(SmartPtr<JunctionNode>(this));
}

bool JunctionNode::Visit(SmartPtr<SubNet> const&) const {
    return true;
}

SmartPtr<Figure> JunctionNode::GetNodeFigure() const {
    return nullptr;
}

}  // namespace figrep
