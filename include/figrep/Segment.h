// One straight piece of wire.
#pragma once

#include <memory>
#include <vector>

#include <figrep/ConnectionNode.h>
#include <figrep/GraphicalFigureItem.h>
#include <figrep/TextLabelContainer.h>

namespace figrep {

/// A straight wire between two points: a figure item and a node of a connection tree at once.
///
/// Units: figure units (millimetres), y upward. A segment holds its ends, its crossing points and
/// its arrows; the pictures are made from these by `SegmentGraphicsGenerator` when its owner is
/// marked, which every change here does. Wires touch at their ends only, never in the middle.
class Segment : public GraphicalFigureItem, public ConnectionNode, public TextLabelContainer {
public:
    using ConnectionNode::Visit;
    using SettingList::Visit;

    // The item.
    void SetHighlight(bool on) override;
    void SetPreselectHighlight(bool on) override;
    void SetVisibility(bool on) override;
    void MoveItem(double dx, double dy) override;
    void RotateItem(DPoint2D const& about, double radians) override;
    void MirrorItem(DPoint2D const& about, bool mirrorY) override;
    void Accept(AbstractFigureVisitor& visitor) override;
    /// The box of the two ends, without the width of the line.
    DBox2D GetExtents() override;

    /// Marks the owner, so that its pictures are made again.
    virtual void GraphicalUpdateNeeded() = 0;

    // The node.
    std::string ToString() const override;
    bool Contacts(SmartPtr<ConnectionNode> const& other, DPoint2D& at) const override;
    bool Contacts(DPoint2D const& point) const override;
    void Move(double dx, double dy) override;
    void Rotate(DPoint2D const& about, double radians) override;
    void Scale(DPoint2D const& about, double factor) override;
    void Mirror(DPoint2D const& about, bool mirrorY) override;

    // Geometry.
    void GetEnds(DPoint2D& start, DPoint2D& end) const;
    /// The end away from `p`; the start when `p` is at neither end.
    DPoint2D GetOtherEnd(DPoint2D const& p) const;
    /// Takes the end at `from` to `to`; without an end there only the boxes are forgotten.
    void MoveEnd(DPoint2D const& from, DPoint2D const& to);
    double GetLength() const;
    /// False when the ends touch.
    bool HasLength() const;
    /// A segment without length is vertical and horizontal.
    bool IsVertical() const;
    bool IsHorizontal() const;
    bool IsNormal() const;
    bool IsAJunction() const { return false; }
    /// Whether a vertical and a horizontal segment cross, both strictly inside; `at` is where.
    bool Crosses(SmartPtr<Segment> const& other, DPoint2D& at) const;
    /// The same ends in either order, compared exactly.
    bool operator==(Segment const& other) const;

    // Crossing points.
    /// Keeps a crossing unless there is one at the same place.
    void Add(SmartPtr<CrossingPoint> const& crossing);
    /// Fills `out` with the crossings from left to right, and downward on one x.
    void GetCrossingPoints(std::vector<SmartPtr<CrossingPoint>>& out) const;
    bool HasCrossingPoints() const;
    /// Takes every crossing off this segment and off the one that it crosses.
    void RemoveAllCrossingPoints();
    /// Marks the owners of the wires that cross this one.
    void MarkCrossingPartners();

    // Arrows.
    void Add(ArrowInfo const& arrow);
    std::vector<ArrowInfo> GetArrows() const;
    bool HasArrows() const;
    void RemoveAllArrows();

    // Labels.
    /// Adds a label, and tells the owner when it is a text.
    void Add(SmartPtr<GraphicGroupMember> const& member) override;

    // Look.
    /// Highlighted or preselected.
    bool GetHighlight() const;
    bool GetVisible() const { return visible_; }
    /// The line attributes by settings; null when nothing sets them.
    ConstSmartPtr<zv2d::LineAttributes> GetLineAttributes() const;
    /// The stored line width where the settings say that it counts, else 0.
    float GetWidth() const;

protected:
    /// A segment whose ends the derived class reads from the kernel record.
    Segment(SmartPtr<zvk::ReadWriteLock> const& lock, SmartPtr<figk::AbstractItem> const& item,
            SmartPtr<ConnectionNode> const& predecessor);
    Segment(SmartPtr<zvk::ReadWriteLock> const& lock, DPoint2D const& start, DPoint2D const& end,
            SmartPtr<ConnectionNode> const& predecessor);
    Segment(Segment const&) = delete;
    Segment& operator=(Segment const&) = delete;
    ~Segment() override;

    using ConnectionNode::Remove;
    void Remove(SmartPtr<CrossingPoint> const& crossing);
    void ScaleArrows(DPoint2D const& about, double factor);

    /// A dying segment takes its crossings off the segments that it crosses.
    void ZeroReferenceCountHook() override;

    /// A changed setting can change this wire's picture and those of the wires that it crosses.
    void SettingsChanged() override;

    /// Tells the owner that its wires have other ends.
    virtual void OwnerWiresChanged() = 0;
    /// Tells the owner of a new label.
    virtual void OwnerTextLabelAdded(SmartPtr<TextGraphic> const& text) = 0;

    /// Sets the ends and the box from the kernel's segment; null leaves them.
    void ReadEnds(figk::Segment const* kernelSegment);
    /// The part of `AcceptNode` behind the visitor's own `Visit`: graphics, then labels.
    void AcceptContents(AbstractFigureVisitor& visitor);

private:
    friend class CrossingPoint;
    struct Extras;

    Extras& GetExtras();
    template <class Transform>
    void TransformEnds(Transform const& transform);
    void GeometryChanged();

    DPoint2D start_;
    DPoint2D end_;
    /// Crossings and arrows; most wires have neither.
    std::unique_ptr<Extras> extras_;
    bool visible_ = true;
    bool highlighted_ = false;
    bool preselected_ = false;
};

}  // namespace figrep
