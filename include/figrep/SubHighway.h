// The piece of a highway on one sheet: owner of one tree of highway segments.
#pragma once

#include <cstdint>
#include <vector>

#include <figrep/GraphicalFigureItem.h>
#include <figrep/SubNetList.h>

namespace figrep {

/// A shared route on one sheet, entered from `GetHead()`, with the sub-nets that run on it.
///
/// Units, ownership and locking as for `SubNet`; a walk of a highway deactivates the figure's
/// active sub-net, so that no net's wires hang in its tree.
class SubHighway : public GraphicalFigureItem {
public:
    /// A sub-highway of the figure's own; joins the figure.
    SubHighway(SmartPtr<Figure> const& figure, SmartPtr<zvk::ReadWriteLock> const& lock,
               std::string const& name);
    /// The sub-highway of a kernel record; the caller hands it to the figure.
    SubHighway(SmartPtr<zvk::ReadWriteLock> const& lock,
               SmartPtr<figk::SubHighway> const& kernelSubHighway);
    ~SubHighway() override;

    FigureItemType GetType() const override;
    /// The kernel record's name; empty without a record.
    std::string const& GetName() const override;
    SmartPtr<figk::SubHighway> GetKernelSubHighway() const;

    /// The tree's head, after making it head again and deactivating the active sub-net. Null
    /// without segments.
    SmartPtr<ConnectionNode> GetHead() const;
    /// Names the node from which the tree is entered; forgets the cached label and box.
    void SetHead(SmartPtr<ConnectionNode> const& node);

    /// Keeps a sub-net that runs on this highway, once.
    void Add(SmartPtr<SubNet> const& subNet);
    /// Fills `out` with the sub-nets in the order of adding.
    void GetSubNets(std::vector<SmartPtr<SubNet>>& out) const;

    /// The label of the first labelled segment of a walk; null when there is none.
    SmartPtr<TextGraphic> GetSingleTextLabel();

    /// As for `SubNet`.
    bool GetGraphicalUpdateNeeded() const;
    void SetGraphicalUpdateNeeded(bool needed);
    void MarkCrossingPartners();

    /// The box of all highway segments; computed at most once between changes.
    DBox2D GetExtents() override;

    void MoveItem(double dx, double dy) override;
    void RotateItem(DPoint2D const& about, double radians) override;
    void ScaleItem(DPoint2D const& about, double factor) override;
    void MirrorItem(DPoint2D const& about, bool mirrorY) override;
    void SetHighlight(bool on) override;
    void SetPreselectHighlight(bool on) override;
    void SetVisibility(bool on) override;

    /// `Visit`, then the graphics and the tree if that answered true, then `VisitComplete`.
    void Accept(AbstractFigureVisitor& visitor) override;

    /// Takes the tree apart for good. Sub-nets are cut before.
    void DestroyConnectivity();

protected:
    void DeriveId() override;
    ConstSmartPtr<figk::Setting> GetInheritedSetting(Setting::RepKey key, unsigned int& depth,
                                                     bool inheritableOnly) const override;
    void GetAllInheritedAttributes(figk::AttributeSet& out) const override;
    SmartPtr<figk::Attribute> GetInheritedAttribute(Symbol const& name) const override;
    void SettingsChanged() override;

    // Transform all nodes of the highway. The write lock is the caller's.
    void Move(double dx, double dy);
    void Rotate(DPoint2D const& about, double radians);
    void Scale(DPoint2D const& about, double factor);
    void Mirror(DPoint2D const& about, bool mirrorY);

private:
    friend class HighwayNode;
    friend class HighwaySegment;
    friend class PortNode;
    friend class Segment;
    friend class SubNet;

    bool ConnectsToSubNet(SmartPtr<SubNet> const& subNet) const;
    void Remove(SmartPtr<SubNet> const& subNet);
    void TextLabelAdded(SmartPtr<TextGraphic> const& text);
    unsigned int GetNextTextLabelId();
    unsigned int GetNextHighwaySegmentId();
    void AcquireSingleTextLabel() const;
    DBox2D GetSubHighwayExtents() const;
    void WiresChanged();
    void ForgetExtents();
    /// Turns the tree to its head without switching the active sub-net.
    void TurnToHead();

    template <class Action>
    void ForEachNode(Action const& action);
    template <class Action>
    void ForEachItem(Action const& action);

    SmartPtr<ConnectionNode> head_;
    SubNetList subNets_;
    mutable SmartPtr<TextGraphic> singleTextLabel_;
    unsigned int nextHighwaySegmentId_ = 0;
    unsigned int nextTextLabelId_ = 0;
    /// Counts the changes of what stands on the highway, for the boxes of its sub-nets.
    std::uint64_t revision_ = 0;
    mutable bool singleTextLabelAcquired_ = false;
    bool graphicalUpdateNeeded_ = true;
};

}  // namespace figrep
