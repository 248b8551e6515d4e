// Takes junctions out of a figure's trees that no longer branch anything.
#pragma once

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Fwd.h>

#include <vector>

namespace figrep {

/// Removes junctions that edits of trees have left with fewer than two successors or without a
/// predecessor: `figure->Accept(visitor)` finds them, `visitor.Tidy()` takes them out.
///
/// What hung below a junction with a predecessor hangs below that predecessor then; the successors
/// of one without become heads of trees of their own. A visitor can be used again.
/// Locking: none of its own. No other walk of the figure's trees may run during `Tidy`.
class TidyJunctionsVisitor : public AbstractFigureVisitor {
public:
    TidyJunctionsVisitor();
    TidyJunctionsVisitor(TidyJunctionsVisitor const&);
    TidyJunctionsVisitor& operator=(TidyJunctionsVisitor const&);
    ~TidyJunctionsVisitor() override;

    using AbstractFigureVisitor::Visit;
    /// Walks the figure's sub-highways and then its sub-nets; false, since nothing else is looked
    /// at.
    bool Visit(SmartPtr<Figure> const& figure) override;
    bool Visit(SmartPtr<SubHighway> const& subHighway) override;
    bool Visit(SmartPtr<SubNet> const& subNet) override;
    /// Looks at the junction and at all that is below it; false, since that is done then.
    bool Visit(SmartPtr<JunctionNode> const& junction) override;

    /// Removes what was found since the last call. Cost: the junctions found.
    void Tidy();

private:
    void VisitChildren(SmartPtr<ConnectionNode> const& node);
    void NoteIfDefective(SmartPtr<JunctionNode> const& junction);

    std::vector<SmartPtr<JunctionNode>> junctions_;
    SmartPtr<SubNet> subNet_;  // whose walk is under way; null in a highway's
};

}  // namespace figrep
