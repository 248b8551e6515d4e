#include <figrep/VisitCheck.h>

#include <figrep/ConnectionNode.h>
#include <figrep/SubNet.h>

namespace figrep {

VisitCheck::VisitCheck(ConstSmartPtr<figk::BaseConnectionNode> const& node) {
    if (auto const connection = du::DynamicCast<ConnectionNode>(node)) {
        subNet_ = connection->GetSubNet();
    }
}

VisitCheck::~VisitCheck() = default;

bool VisitCheck::Visit(ConstSmartPtr<figk::BaseConnectionNode> const& node) {
    auto const connection = du::DynamicCast<ConnectionNode>(node);
    return connection && connection->Visit(subNet_);
}

}  // namespace figrep
