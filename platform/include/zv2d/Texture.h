// Patterns that fill areas.
#pragma once

#include <du/SmartPtr.h>
#include <du/Symbol.h>

#include <mutex>
#include <vector>

namespace zv2d {

/// A named pattern with its size and turn. What a name looks like is the painter's.
class Texture : public virtual du::RefCounted {
public:
    explicit Texture(du::Symbol const& name, double scale = 1.0, double radians = 0.0)
        : name_(name), scale_(scale), radians_(radians) {}

    du::Symbol const& GetName() const { return name_; }
    double GetScale() const { return scale_; }
    double GetAngle() const { return radians_; }

    friend bool operator==(Texture const& a, Texture const& b) {
        return a.name_ == b.name_ && a.scale_ == b.scale_ && a.radians_ == b.radians_;
    }

private:
    du::Symbol name_;
    double scale_;
    double radians_;
};

/// Textures of which equal ones exist once. Safe from any thread.
class TextureList {
public:
    /// The texture of the list that equals `texture`. When there is none, the texture itself joins
    /// the list if `add` is set, else the answer is null. Null for null. Cost: the list's length.
    du::ConstSmartPtr<Texture> FindTexture(du::ConstSmartPtr<Texture> const& texture, bool add);

private:
    std::mutex mutex_;
    std::vector<du::ConstSmartPtr<Texture>> textures_;  // guarded by mutex_
};

}  // namespace zv2d
