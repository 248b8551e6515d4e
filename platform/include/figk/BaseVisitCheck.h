// Decides which nodes a walk of a connection tree follows.
#pragma once

#include <du/RefCounted.h>
#include <figk/Fwd.h>

namespace figk {

/// Asked once for every node that a walk is about to enter. A node that is refused ends its own
/// branch of the walk only. A check may remember what it has seen, so each walk uses its own.
class BaseVisitCheck : public virtual du::RefCounted {
public:
    BaseVisitCheck();
    BaseVisitCheck(BaseVisitCheck const& other);
    ~BaseVisitCheck() override;

    /// Whether the walk follows `node`. The base follows every node.
    virtual bool Visit(ConstSmartPtr<BaseConnectionNode> const& node);
};

}  // namespace figk
