// What an entity is drawn with.
#pragma once

#include <attrs/FillAttr.h>
#include <attrs/TextAttr.h>
#include <du/SmartPtr.h>
#include <zv2d/LineAttributes.h>

#include <cstddef>
#include <optional>

namespace zv2d {

/// Line, fill and text attributes, each of which may be missing. Immutable.
///
/// `Get` makes equal attributes one object, so that the thousands of entities of a drawing share a
/// few. An interned object goes with its last holder.
class Attributes : public virtual du::RefCounted {
public:
    Attributes() = default;
    explicit Attributes(du::ConstSmartPtr<LineAttributes> const& line) : line_(line) {}
    explicit Attributes(LineAttributes const& line) : line_(new LineAttributes(line)) {}
    explicit Attributes(du::ConstSmartPtr<attrs::FillAttr> const& fill) : fill_(fill) {}
    explicit Attributes(attrs::FillAttr const& fill) : fill_(new attrs::FillAttr(fill)) {}
    Attributes(du::ConstSmartPtr<LineAttributes> const& line,
               du::ConstSmartPtr<attrs::FillAttr> const& fill)
        : line_(line), fill_(fill) {}
    explicit Attributes(attrs::TextAttr const& text) : text_(text) {}
    /// A copy isn't interned.
    Attributes(Attributes const& other)
        : du::RefCounted(), line_(other.line_), fill_(other.fill_), text_(other.text_) {}
    Attributes& operator=(Attributes const&) = delete;
    ~Attributes() override;

    /// The one object with these contents. Safe from any thread.
    static du::ConstSmartPtr<Attributes> Get(Attributes const& attributes);

    /// Null when there are none.
    du::ConstSmartPtr<LineAttributes> const& GetLineAttributes() const { return line_; }
    /// Null when the entity isn't filled.
    du::ConstSmartPtr<attrs::FillAttr> const& GetFillAttr() const { return fill_; }
    /// Null when there are none; valid as long as this object.
    attrs::TextAttr const* GetTextAttr() const { return text_ ? &*text_ : nullptr; }

    /// Whether there is a fill of a kind other than none.
    bool IsFilled() const { return fill_ && fill_->GetKind() != attrs::FillAttr::NONE; }

    /// By contents.
    friend bool operator==(Attributes const& a, Attributes const& b);

protected:
    void ZeroReferenceCountHook() override;

private:
    class Table;

    size_t Hash() const;

    du::ConstSmartPtr<LineAttributes> line_;
    du::ConstSmartPtr<attrs::FillAttr> fill_;
    std::optional<attrs::TextAttr> text_;
    bool interned_ = false;
};

}  // namespace zv2d
