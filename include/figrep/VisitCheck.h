// What confines a walk of a tree to one sub-net.
#pragma once

#include <figk/BaseVisitCheck.h>

#include <figrep/Fwd.h>

namespace figrep {

/// Accepts the nodes of the sub-net of the node that it was made from. Made from a node without a
/// sub-net, such as a highway segment, it accepts what a highway's own walk enters.
class VisitCheck : public figk::BaseVisitCheck {
public:
    explicit VisitCheck(ConstSmartPtr<figk::BaseConnectionNode> const& node);
    ~VisitCheck() override;

    bool Visit(ConstSmartPtr<figk::BaseConnectionNode> const& node) override;

private:
    SmartPtr<SubNet> subNet_;
};

}  // namespace figrep
