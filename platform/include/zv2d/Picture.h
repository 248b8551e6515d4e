// Images of a picture.
#pragma once

#include <dg/Box.h>
#include <zv2d/Entity.h>

#include <memory>
#include <string>

namespace zv2d {

/// An image file shown in a box. The bytes are shared and never decoded here.
class Picture : public Entity {
public:
    /// `mimeType` such as "image/png". Null bytes stand for an image that can't be shown: painters
    /// draw the frame.
    Picture(dg::DBox2D const& box, std::string mimeType, std::shared_ptr<std::string const> bytes,
            du::ConstSmartPtr<Attributes> const& attributes = nullptr);
    ~Picture() override;

    dg::DBox2D const& GetBox() const { return box_; }
    std::string const& GetMimeType() const { return mimeType_; }
    std::shared_ptr<std::string const> const& GetBytes() const { return bytes_; }

    using Entity::GetExtents;
    void Accept(EntityVisitor& visitor) const override;
    dg::DBox2D GetExtents(dg::DMat33 const& matrix) const override;
    bool Overlaps(dg::DBox2D const& box, dg::DMat33 const& matrix) const override;

private:
    dg::DBox2D box_;
    std::string mimeType_;
    std::shared_ptr<std::string const> bytes_;
};

}  // namespace zv2d
