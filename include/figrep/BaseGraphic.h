// A figure item that is drawn: what texts, generic graphics and pick proxies share.
#pragma once

#include <figrep/AbstractFigureItem.h>
#include <figrep/Fwd.h>
#include <figrep/GraphicGroupMember.h>
#include <figrep/RenderInfo.h>

#include <string>

namespace figrep {

/// A graphic standing in a group, with its draw state.
///
/// It shows the picture of its kernel record until the first transform, which makes a private copy;
/// the kernel's picture is never changed. Without a kernel record it makes a picture when first
/// asked. Draw state is brought up to date by whoever paints, through `UpdateRenderInfoBase`.
/// Locking: the lock given at construction, for writing wherever a cache is filled.
class BaseGraphic : public AbstractFigureItem, public GraphicGroupMember {
public:
    ~BaseGraphic() override;

    using GraphicGroupMember::GetOwner;

    /// With a group: hands on to the whole group, a label to itself alone. Without: nothing.
    void SetHighlight(bool on) override;
    void SetPreselectHighlight(bool on) override;
    void SetVisibility(bool on) override;
    std::string const& GetName() const override;
    void MoveItem(double dx, double dy) override;
    void RotateItem(DPoint2D const& centre, double radians) override;
    void ScaleItem(DPoint2D const& centre, double factor) override;
    void MirrorItem(DPoint2D const& point, bool axis) override;
    void Accept(AbstractFigureVisitor& visitor) override = 0;
    /// The figure of the item that the graphic belongs to; null outside a figure.
    SmartPtr<Figure> GetFigure() const override;
    /// The picture; made on the first call where there is neither a private nor a kernel one. May
    /// be null.
    SmartPtr<figk::Zv2dGraphics> GetZv2dGraphics() const override;

    virtual void Move(double dx, double dy);
    virtual void Rotate(DPoint2D const& centre, double radians);
    virtual void Scale(DPoint2D const& centre, double factor);
    virtual void Mirror(DPoint2D const& point, bool axis);
    /// The part of the draw state that the kind of graphic settles for itself.
    virtual void UpdateRenderInfo() = 0;
    virtual bool GetColorFromSettings(Color& out) const;

    DBox2D GetMemberExtents() override;
    SettingList const* GetMemberSettings() const override { return this; }
    void SetMemberHighlight(bool on) override;
    void SetMemberPreselectHighlight(bool on) override;
    void SetMemberVisibility(bool on) override;
    void MoveGraphics(double dx, double dy) override;
    void RotateGraphics(DPoint2D const& centre, double radians) override;
    void ScaleGraphics(DPoint2D const& centre, double factor) override;
    void MirrorGraphics(DPoint2D const& point, bool axis) override;

    /// The draw state as it was last brought up to date; lives as long as the graphic. Made when
    /// first asked for or written to, since most pick proxies never need one.
    RenderInfo const& GetRenderInfo() const;
    /// The draw state with a picture of its own, free to be transformed.
    SmartPtr<RenderInfo> CloneRenderInfo() const;

    bool GetFillBackground() const;
    void SetFillBackground(bool fill);
    /// With selection and preselection both on: whether selection came last.
    bool GetHighlight() const;
    bool GetPreselectHighlight() const;
    bool GetVisible() const;

protected:
    BaseGraphic(SmartPtr<zvk::ReadWriteLock> const& lock,
                SmartPtr<figk::AbstractItem> const& kernelItem);
    BaseGraphic(SmartPtr<zvk::ReadWriteLock> const& lock, std::string const& name);

    /// Joins `group`; null does nothing.
    void Initialise(SmartPtr<figk::Group> const& group);
    /// Makes the private picture of a graphic that has no kernel record; may leave it null.
    virtual void GenerateZv2dGraphics() const = 0;

public:
    /// Resolves the settings into the draw state. For whoever paints, item by item.
    virtual void UpdateRenderInfoBase();

protected:
    ConstSmartPtr<figk::Setting> GetInheritedSetting(Setting::RepKey key, unsigned& depth,
                                                     bool inheritableOnly) const override;

    /// The private picture, without making one.
    SmartPtr<figk::Zv2dGraphics> const& GetOwnGraphics() const { return graphics_; }
    void SetOwnGraphics(SmartPtr<figk::Zv2dGraphics> const& graphics) const;
    RenderInfo& GetRenderInfoForUpdate();
    /// Drops the cached boxes of the graphic and of the groups that hold it.
    void InvalidateExtents();

private:
    void CopyKernelZv2dGraphics();
    void UpdateHighlight();
    template <typename Transform>
    void TransformGraphics(Transform const& transform);

    mutable SmartPtr<figk::Zv2dGraphics> graphics_;  // made on demand, under the write lock
    bool highlight_ = false;
    bool preselectHighlight_ = false;
    bool highlightIsSelection_ = false;
    bool visible_ = true;
    bool fillBackground_ = false;
    mutable SmartPtr<RenderInfo> renderInfo_;  // null: as a new one is
};

}  // namespace figrep
