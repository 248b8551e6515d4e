#include <zv2d/Texture.h>

namespace zv2d {

du::ConstSmartPtr<Texture> TextureList::FindTexture(du::ConstSmartPtr<Texture> const& texture,
                                                    bool add) {
    if (!texture) return nullptr;
    std::lock_guard const guard(mutex_);
    for (auto const& known : textures_) {
        if (*known == *texture) return known;
    }
    if (!add) return nullptr;
    textures_.push_back(texture);
    return texture;
}

}  // namespace zv2d
