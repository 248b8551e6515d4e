// The process-wide record of which figures show which ports.
#pragma once

#include <du/RefCounted.h>
#include <figrep/FigurePortNodeDetail.h>
#include <figrep/Fwd.h>

#include <map>
#include <vector>

namespace zvkapp::depiction {
class PublishOption;
}

namespace figrep {

class WorldObserver;

/// Answers where a net that leaves a figure through a port goes on in another.
///
/// A host names its figures, adds their port nodes after all of them are loaded, and takes out what
/// it closes. The record can be written as content and read back, so that a viewer without live
/// figures can answer the same. Ownership: holds the figures and nodes that were added, until
/// `ResetMap` or `RemoveFigure`. Not locked: for the host's main thread.
class SchematicRepresentation : public virtual du::RefCounted {
public:
    /// The one record of the process, made on the first call and kept for good.
    static SmartPtr<SchematicRepresentation> GetSingleton();

    /// Names a figure; a second call renames it. Null does nothing.
    void AddActiveFigure(SmartPtr<Figure> const& figure, Symbol const& name);
    /// Takes out a figure that closes, with the details of its nodes.
    void RemoveFigure(SmartPtr<Figure> const& figure);
    /// Adds a node of a figure that has a name. Nodes without a kernel record are left out. On a
    /// highway, outside the authoring application, nets that no other figure carries on are hidden
    /// from the node up to their first branch.
    void PortNodeAddFigureDetail(SmartPtr<PortNode> const& node, SmartPtr<Figure> const& figure);
    /// Adds a detail at the end of the port's list, in place of an equal one.
    void PortAddFigureDetail(Symbol const& portId, Symbol const& figureName,
                             Symbol const& portNodeId, SmartPtr<PortNode> const& node,
                             Symbol const& xGrid, Symbol const& yGrid);

    /// Appends where the node's port is shown elsewhere: all details on a plain port; on a highway
    /// those that carry the sub-net, or with a null sub-net all that are active.
    void GetFiguresForPortNode(SmartPtr<PortNode> const& node, SmartPtr<SubNet> const& subNet,
                               std::vector<FigurePortNodeDetail>& out);
    /// The same question by ids, for a viewer that has no live node to ask with: appends where the
    /// port shows, the asking node among them; on a highway only where the net is seen to pass.
    void GetFiguresForPort(Symbol const& portId, bool onHighway, Symbol const& netName,
                           std::vector<FigurePortNodeDetail>& out);
    std::vector<FigurePortNodeDetail> GetFigureDetails(
        std::vector<FigurePortNodeDetail> const& details, Symbol const& figureName) const;
    /// Appends the names of all sub-nets on the node's highway, hidden ones too.
    void GetPortNodeNetNames(SmartPtr<PortNode> const& node, std::vector<Symbol>& out) const;
    /// Removes the sub-net from the nodes between `node` and the first place where it branches.
    /// Pivots the tree.
    void HideSubNet(SmartPtr<ConnectionNode> const& node, SmartPtr<SubNet> const& subNet);

    /// Writes the record below `element`; nothing when it is empty.
    void CaptureContent(zvk::SerializedContentElement* element);
    /// With an option figures are written under their published names.
    void CaptureContent(zvk::SerializedContentElement* element,
                        SmartPtr<zvkapp::depiction::PublishOption> const& option);
    /// Replaces the record by what stands below `element`. Live details are gone then.
    void CreateFromContent(zvk::SerializedContentElement* element);
    /// Forgets all figures and details.
    void ResetMap();

    /// Whether content may have to be loaded (again): set by the world, cleared by loading.
    bool GetNeedLoading() const { return needLoading_; }
    void SetNeedLoading(bool need) { needLoading_ = need; }

    // Keys by which publication settings name their choice; the library reads neither.
    static Symbol const s_export_animation;
    static Symbol const s_export_xrscene;

private:
    SchematicRepresentation();
    ~SchematicRepresentation() override;

    void RemoveExistingFigurePortNodeDetail(std::vector<FigurePortNodeDetail>& details,
                                            FigurePortNodeDetail const& detail);
    void TidySubNetPathsOnHighway(SmartPtr<PortNode> const& node);

    FigurePortDetails portDetails_;
    SmartPtr<WorldObserver> worldObserver_;  // null in the authoring application
    std::map<SmartPtr<Figure>, Symbol> activeFigures_;
    bool needLoading_;
};

}  // namespace figrep
