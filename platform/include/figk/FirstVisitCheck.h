// A visit check that lets a walk see every node once.
#pragma once

#include <figk/BaseVisitCheck.h>

#include <unordered_set>

namespace figk {

/// Answers true the first time that it is asked for a node, and false from then on. Null is
/// refused. The check doesn't keep the nodes alive: it is for walks of trees that stay as they are.
class FirstVisitCheck : public BaseVisitCheck {
public:
    FirstVisitCheck();
    ~FirstVisitCheck() override;

    bool Visit(ConstSmartPtr<BaseConnectionNode> const& node) override;

private:
    std::unordered_set<BaseConnectionNode const*> seen_;
};

}  // namespace figk
