// A view of a picture made of pixels.
#pragma once

#include <zvk/View2D.h>

namespace zvk {

/// Shows a plane whose y axis points down, as the rows of an image do.
class ImageView : public View2D {
public:
    using View2D::View2D;
    ~ImageView() override;

protected:
    bool IsYUpward() const override;
};

}  // namespace zvk
