// Takes a kernel tree apart when its owner goes.
#pragma once

#include <vector>

#include <figk/ConnectionNode.h>

namespace figkernel {

/// Shows `forget` every node below and including `head`, then cuts all links, so that what nobody
/// else holds dies. Doesn't recurse; null does nothing.
template <class Forget>
void TearDown(du::SmartPtr<figk::ConnectionNode> const& head, Forget forget) {
    if (!head) return;
    std::vector<figk::SmartPtr<figk::ConnectionNode>> open{head};
    while (!open.empty()) {
        figk::SmartPtr<figk::ConnectionNode> const node = open.back();
        open.pop_back();
        forget(*node);
        if (auto left = node->GetLeftSuccessor()) open.push_back(left);
        if (auto right = node->GetRightSuccessor()) open.push_back(right);
    }
    head->CutTree();
}

}  // namespace figkernel
