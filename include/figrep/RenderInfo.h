// How one graphic is to be drawn right now; what a painter reads.
#pragma once

#include <dg/Color.h>
#include <du/RefCounted.h>
#include <figrep/Fwd.h>

namespace zv2d {
class TextureList;
}

namespace figrep {

/// The draw state of one graphic: its picture, colours and flags. Plain data with a lock.
///
/// Ownership: shares the picture with the graphic it belongs to; a clone has a picture of its own.
/// Locking: getters take the lock for reading, setters for writing; a null lock is skipped.
class RenderInfo : public virtual du::RefCounted {
public:
    explicit RenderInfo(SmartPtr<zvk::ReadWriteLock> const& lock);
    RenderInfo(RenderInfo const& other);
    RenderInfo& operator=(RenderInfo const& other);
    ~RenderInfo() override;

    /// A copy whose picture can be transformed without touching this one's.
    SmartPtr<RenderInfo> Clone() const;

    /// The picture in figure coordinates; null when there is nothing to draw.
    SmartPtr<figk::Zv2dGraphics> GetZv2dGraphics() const;
    Color GetColor() const;
    Color GetBackgroundColor() const;
    /// The colour to stroke with: the plain colour, or pulled three quarters towards `background`
    /// when dimmed. The answer is kept until colour, highlight or dimming changes, so a later call
    /// with another background gives the first answer. Takes the lock for writing.
    Color GetDisplayColor(Color const& background) const;
    /// Null: the entity's own, else the painter's hairline.
    ConstSmartPtr<zv2d::LineAttributes> GetLineAttributes() const;
    /// Null: the entities' own fills count.
    ConstSmartPtr<attrs::FillAttr> GetFillAttributes() const;
    /// Null: plain strokes.
    ConstSmartPtr<zv2d::Texture> GetTexture() const;
    /// Whether the background colour is painted behind the graphic.
    bool GetFillBackground() const;
    bool GetHighlight() const;
    bool GetDim() const;
    bool IsVisible() const;

    void SetZv2dGraphics(SmartPtr<figk::Zv2dGraphics> const& graphics);
    void SetColor(Color const& color);
    void SetBackgroundColor(Color const& color);
    void SetLineAttributes(ConstSmartPtr<zv2d::LineAttributes> const& attributes);
    void SetFillAttributes(ConstSmartPtr<attrs::FillAttr> const& attributes);
    /// Textures are interned: equal textures end up as one object.
    void SetTexture(ConstSmartPtr<zv2d::Texture> const& texture);
    void SetFillBackground(bool fill);
    void SetHighlight(bool on);
    void SetDim(bool on);
    void SetVisibility(bool visible);

private:
    static Color GetLowlightColor(Color const& color, Color const& background);
    void CopyFields(RenderInfo const& other);

    static zv2d::TextureList s_texture_list;

    SmartPtr<figk::Zv2dGraphics> graphics_;
    mutable Color displayColor_ = Color::BLACK;
    Color color_ = Color::BLACK;
    Color backgroundColor_ = Color::WHITE;
    mutable bool displayColorDirty_ = false;
    bool visible_ = true;
    bool highlight_ = false;
    bool dim_ = false;
    bool fillBackground_ = false;
    ConstSmartPtr<zv2d::LineAttributes> lineAttributes_;
    ConstSmartPtr<attrs::FillAttr> fillAttributes_;
    SmartPtr<zvk::ReadWriteLock> lock_;
    ConstSmartPtr<zv2d::Texture> texture_;
};

}  // namespace figrep
