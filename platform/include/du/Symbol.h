// Interned text: cheap to copy and to compare.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace du {

/// A text that exists once in the process; the type of every id and key.
///
/// Two symbols are equal when their texts are, and the test is one comparison of pointers. The
/// order is that in which texts were first met and doesn't depend on addresses, so ordered maps of
/// symbols come out the same on every run. Interning is safe from any thread, reading takes no
/// lock, and texts live as long as the process.
class Symbol {
public:
    static Symbol const EMPTY;

    constexpr Symbol() noexcept = default;
    explicit Symbol(std::string_view text);
    explicit Symbol(std::string const& text) : Symbol(std::string_view(text)) {}
    /// Null makes the empty symbol.
    explicit Symbol(char const* text)
        : Symbol(text ? std::string_view(text) : std::string_view()) {}

    /// The text; the reference stays valid for good.
    std::string const& GetString() const { return entry_ ? entry_->text : EmptyText(); }
    constexpr bool IsEmpty() const noexcept { return entry_ == nullptr; }

    /// The place of the text in the order of interning; 0 for the empty symbol.
    uint64_t GetOrder() const noexcept { return entry_ ? entry_->order : 0; }

    friend constexpr bool operator==(Symbol a, Symbol b) noexcept { return a.entry_ == b.entry_; }
    friend std::strong_ordering operator<=>(Symbol a, Symbol b) noexcept {
        return a.GetOrder() <=> b.GetOrder();
    }

private:
    struct Entry {
        std::string text;
        uint64_t order;
    };
    class Table;

    static std::string const& EmptyText();

    Entry const* entry_ = nullptr;  // null for the empty text
};

inline constexpr Symbol Symbol::EMPTY{};

}  // namespace du

template <>
struct std::hash<du::Symbol> {
    size_t operator()(du::Symbol symbol) const noexcept {
        return static_cast<size_t>(symbol.GetOrder() * 0x9E3779B97F4A7C15u);
    }
};
