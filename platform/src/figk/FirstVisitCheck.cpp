#include <figk/BaseConnectionNode.h>
#include <figk/FirstVisitCheck.h>

namespace figk {

FirstVisitCheck::FirstVisitCheck() = default;
FirstVisitCheck::~FirstVisitCheck() = default;

bool FirstVisitCheck::Visit(ConstSmartPtr<BaseConnectionNode> const& node) {
    return node && seen_.insert(node.Get()).second;
}

}  // namespace figk
