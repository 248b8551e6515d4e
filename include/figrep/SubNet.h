// The piece of a net on one sheet: owner of one tree of wire nodes.
#pragma once

#include <cstdint>
#include <vector>

#include <figrep/GraphicalFigureItem.h>

namespace figrep {

/// A net's wires on one sheet, entered from `GetHead()`. Pieces of the net beyond a highway belong
/// to the same sub-net.
///
/// Units: figure units (millimetres), y upward. Ownership: the figure holds the sub-net, the
/// sub-net its tree; `DestroyConnectivity` cuts the cycles between them. Locking: queries take the
/// shared lock for reading; whatever walks the tree takes it for writing, because the walk makes
/// this sub-net the active one of its figure.
class SubNet : public GraphicalFigureItem {
public:
    /// The sub-net of a kernel record; the caller hands it to the figure.
    SubNet(SmartPtr<Figure> const& figure, SmartPtr<zvk::ReadWriteLock> const& lock,
           SmartPtr<figk::SubNet> const& kernelSubNet);
    /// A sub-net of the figure's own; joins the figure, which must not be null for it to be shown.
    SubNet(SmartPtr<Figure> const& figure, SmartPtr<zvk::ReadWriteLock> const& lock,
           std::string const& name);
    ~SubNet() override;

    FigureItemType GetType() const override;
    /// The kernel net's name, so that all sub-nets of a net have one; else the item's own.
    std::string const& GetName() const override;
    SmartPtr<figk::SubNet> GetKernelSubNet() const;

    /// The tree's head, after making it head again: activates this sub-net on its highways. Null
    /// without wires. Cost: the length of the path turned round.
    SmartPtr<ConnectionNode> GetHead() const;
    /// Names the node from which the tree is entered; forgets the cached label and box.
    void SetHead(SmartPtr<ConnectionNode> const& node);

    /// Where the arrows start; null lets them start where the kernel or the tree says.
    SmartPtr<ConnectionNode> GetStartNode() const;
    void SetStartNode(SmartPtr<ConnectionNode> const& node);
    SmartPtr<NetSegment> GetStartSegment() const;
    void SetStartSegment(SmartPtr<NetSegment> const& segment);

    /// The label of the first labelled segment of a walk; null when there is none. Kept until a
    /// label is added or the head changes.
    SmartPtr<TextGraphic> GetSingleTextLabel();

    /// The cable that carries the sub-net; null for none.
    SmartPtr<CableInstance> GetCable() const;

    /// The sub-net's places on highways, in the order of adding.
    std::vector<SmartPtr<HighwayNode>> GetHighwayNodes() const;
    /// Splice all highway nodes in, or take them out. `Figure::PrePivot` is the one to call, which
    /// keeps at most one sub-net spliced.
    void Activate(bool suspendPrePivot);
    /// Without `turnHighwaysBack` the highways stay turned towards this sub-net, so that another
    /// one near by is activated at the cost of the way between the two.
    void Deactivate(bool turnHighwaysBack = true);

    /// Whether the node is a junction in a highway, seen through other junctions.
    static bool NodeIsHighwayJunction(SmartPtr<ConnectionNode> const& node);

    /// Whether the wires' pictures have to be made again. Raised by every change of a wire or a
    /// setting here; lowered by `Figure::UpdateContent` when it has drawn them.
    bool GetGraphicalUpdateNeeded() const;
    void SetGraphicalUpdateNeeded(bool needed);
    /// Marks every sub-net whose wires cross one of this sub-net's, since a setting here can
    /// decide how the crossing looks. Turns no tree; nothing outside a figure.
    void MarkCrossingPartners();

    /// The box of all wires, labels of the item excluded; computed at most once between changes.
    DBox2D GetExtents() override;

    void MoveItem(double dx, double dy) override;
    void RotateItem(DPoint2D const& about, double radians) override;
    void ScaleItem(DPoint2D const& about, double factor) override;
    void MirrorItem(DPoint2D const& about, bool mirrorY) override;
    void SetHighlight(bool on) override;
    void SetPreselectHighlight(bool on) override;
    void SetVisibility(bool on) override;

    /// `Visit`, then the graphics and the tree if that answered true, then `VisitComplete`. The
    /// tree's walk enters only those segments of highways that carry this sub-net.
    void Accept(AbstractFigureVisitor& visitor) override;

    /// Takes the tree apart for good, and the sub-net off the highways, which stay whole for the
    /// others. For content that has left its figure, or leaves with it.
    void DestroyConnectivity();

protected:
    void DeriveId() override;
    ConstSmartPtr<figk::Setting> GetInheritedSetting(Setting::RepKey key, unsigned int& depth,
                                                     bool inheritableOnly) const override;
    void GetAllInheritedAttributes(figk::AttributeSet& out) const override;
    SmartPtr<figk::Attribute> GetInheritedAttribute(Symbol const& name) const override;
    void SettingsChanged() override;

    // Transform the wires of the net and its port nodes, but nothing that stands on a highway.
    // The write lock is the caller's.
    void Move(double dx, double dy);
    void Rotate(DPoint2D const& about, double radians);
    void Scale(DPoint2D const& about, double factor);
    void Mirror(DPoint2D const& about, bool mirrorY);

private:
    friend class CableInstance;
    friend class HighwayNode;
    friend class NetSegment;
    friend class PortNode;
    friend class Segment;
    friend class SubNetSegment;

    void Add(SmartPtr<HighwayNode> const& node);
    void Remove(SmartPtr<HighwayNode> const& node);
    void Add(SmartPtr<CableInstance> const& cable);
    void Remove(SmartPtr<CableInstance> const& cable);

    void TextLabelAdded(SmartPtr<TextGraphic> const& text);
    unsigned int GetNextTextLabelId();
    unsigned int GetNextNetSegmentId();
    void AcquireSingleTextLabel() const;
    DBox2D GetSubNetExtents() const;
    /// Another number whenever a highway on which the sub-net runs has changed.
    std::uint64_t HighwayRevision() const;
    bool ExtentsAreCurrent() const;

    /// The wires have other ends: forgets the box and asks for pictures.
    void WiresChanged();
    /// The box alone, for what stands on the net without being a wire.
    void ForgetExtents();

    template <class Action>
    void ForEachOwnNode(Action const& action);
    template <class Action>
    void ForEachItem(Action const& action);
    void DestroyTreeFrom(SmartPtr<ConnectionNode> const& start);
    void DestroyNode(SmartPtr<ConnectionNode> const& node);
    void LeaveHighways();

    SmartPtr<ConnectionNode> head_;
    mutable SmartPtr<TextGraphic> singleTextLabel_;
    SmartPtr<CableInstance> cable_;
    SmartPtr<NetSegment> startSegment_;
    SmartPtr<ConnectionNode> startNode_;
    std::vector<SmartPtr<HighwayNode>> highwayNodes_;
    unsigned int nextNetSegmentId_ = 0;
    unsigned int nextTextLabelId_ = 0;
    /// The highways' state for which the cached box holds.
    std::uint64_t extentsRevision_ = 0;
    mutable bool singleTextLabelAcquired_ = false;
    bool graphicalUpdateNeeded_ = true;
};

}  // namespace figrep
