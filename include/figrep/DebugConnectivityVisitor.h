// Writes the trees of a figure's wires down, for developers.
#pragma once

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Fwd.h>

#include <iosfwd>
#include <string>

namespace figrep {

/// One paragraph for each node of each tree: what it is, and what hangs left and right below it.
///
/// Objects are told apart by their addresses. A host that compares two runs derives from this and
/// names them by something that stays. Texts are written as they stand in the design. The same node
/// is met once for its highway and again for each sub-net that passes it.
class DebugConnectivityVisitor : public AbstractFigureVisitor {
public:
    /// Writes to the standard output.
    DebugConnectivityVisitor();
    /// Writes to `out`, which must outlive the visitor.
    explicit DebugConnectivityVisitor(std::ostream& out);
    ~DebugConnectivityVisitor() override;

    /// Leaves out all sub-nets but this one; with null, all. Sub-highways are written anyway.
    void SetSubNet(SmartPtr<SubNet> const& subNet);
    void UnsetSubNet();

    using AbstractFigureVisitor::Visit;
    bool Visit(SmartPtr<TextGraphic> const& item) override;
    bool Visit(SmartPtr<SubNet> const& item) override;
    bool Visit(SmartPtr<SubHighway> const& item) override;
    bool Visit(SmartPtr<PortNode> const& item) override;
    bool Visit(SmartPtr<NetSegment> const& item) override;
    bool Visit(SmartPtr<Miscellaneous> const& item) override;
    bool Visit(SmartPtr<HighwaySegment> const& item) override;
    bool Visit(SmartPtr<HighwayNode> const& item) override;
    bool Visit(SmartPtr<JunctionNode> const& item) override;
    bool Visit(SmartPtr<Format> const& item) override;
    bool Visit(SmartPtr<ConnectorInstanceNode> const& item) override;
    bool Visit(SmartPtr<ConnectorInstance> const& item) override;
    bool Visit(SmartPtr<BlockInstance> const& item) override;

protected:
    /// What stands in brackets behind an object: here its address in hexadecimal. The object is a
    /// sub-net, a sub-highway or a `ConnectionNode`.
    virtual std::string NameOf(du::RefCounted const& object);

private:
    bool Report(SmartPtr<ConnectionNode> const& node, std::string const& more = {});
    void ReportChildren(ConnectionNode const& node);
    void ReportChild(char const* side, SmartPtr<ConnectionNode> const& child);

    std::ostream& out_;
    SmartPtr<SubNet> subNet_;
    bool onlySubNet_ = false;
};

}  // namespace figrep
