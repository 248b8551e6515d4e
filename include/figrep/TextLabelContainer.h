// What can carry text labels: blocks, connectors, wires, formats, a figure itself.
#pragma once

#include <du/RefCounted.h>
#include <figrep/Fwd.h>

namespace figrep {

/// Mix-in of everything that holds labels.
///
/// Most wires carry no label, so the group is made when it is first asked for; until then the
/// container costs two words, and walks and transforms pass it by.
/// Locking: the lock given at construction; null is skipped.
class TextLabelContainer : public virtual du::RefCounted {
public:
    /// The id that labels of this container are known by; empty when labels stand for themselves
    /// and take their text as their name.
    virtual Symbol GetTextOwnerId() const = 0;
    /// The next number for a label of this container; 0 always where labels aren't numbered.
    virtual unsigned GetNextTextLabelId();
    /// Puts a label into the group. Null does nothing.
    virtual void Add(SmartPtr<GraphicGroupMember> const& member);

    /// The labels' group, made on the first call. Null only after `DisownText`.
    SmartPtr<TextLabelContainerGroup> GetTextLabelContainerGroup() const;
    /// Whether any label is there; makes no group.
    bool HasTextLabels() const;

    /// Empties the group.
    void ClearTextContainer();
    /// Empties the group and lets go of it for good, without a lock: for teardown.
    void DisownText();

    /// `VisitTextLabelContainer`, then the group's members if that answered true.
    void Accept(AbstractFigureVisitor& visitor);

    void MoveText(double dx, double dy);
    void RotateText(DPoint2D const& centre, double radians);
    void ScaleText(DPoint2D const& centre, double factor);
    void MirrorText(DPoint2D const& point, bool axis);
    void SetTextHighlight(bool on);
    void SetTextPreselectHighlight(bool on);
    void SetTextVisibility(bool on);

protected:
    explicit TextLabelContainer(SmartPtr<zvk::ReadWriteLock> const& lock);
    /// A copy starts without labels.
    TextLabelContainer(TextLabelContainer const& other);
    TextLabelContainer& operator=(TextLabelContainer const& other);
    ~TextLabelContainer() override;

private:
    SmartPtr<TextLabelContainerGroup> ExistingGroup() const;

    mutable SmartPtr<TextLabelContainerGroup> textGroup_;
    SmartPtr<zvk::ReadWriteLock> labelLock_;
    bool disowned_ = false;
};

}  // namespace figrep
