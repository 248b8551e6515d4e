#include <zv2d/Attributes.h>

#include <functional>
#include <mutex>
#include <unordered_map>

namespace zv2d {

namespace {

template <class T>
void Mix(size_t& hash, T const& value) {
    hash = hash * 1099511628211u + std::hash<T>()(value);
}

void Mix(size_t& hash, dg::Color const& color) {
    for (float const channel : {color.r, color.g, color.b, color.a})
        Mix(hash, channel);
}

template <class T>
bool SameContent(du::ConstSmartPtr<T> const& a, du::ConstSmartPtr<T> const& b) {
    return a == b || (a && b && *a == *b);
}

}  // namespace

/// The interned attributes. Holds no references: who goes takes its entry out.
class Attributes::Table {
public:
    static Table& Get() {
        static Table& table = *new Table;
        return table;
    }

    du::ConstSmartPtr<Attributes> Intern(Attributes const& wanted) {
        size_t const hash = wanted.Hash();
        std::lock_guard const guard(mutex_);
        auto const [first, last] = byHash_.equal_range(hash);
        for (auto at = first; at != last; ++at) {
            // An entry whose last reference is just going can't be raised; it is passed over.
            if (*at->second == wanted && at->second->TryAddRef()) return du::Adopt(at->second);
        }
        auto* const added = new Attributes(wanted);
        added->interned_ = true;
        byHash_.emplace(hash, added);
        return added;
    }

    void Remove(Attributes const* gone) {
        size_t const hash = gone->Hash();
        std::lock_guard const guard(mutex_);
        auto const [first, last] = byHash_.equal_range(hash);
        for (auto at = first; at != last; ++at) {
            if (at->second != gone) continue;
            byHash_.erase(at);
            return;
        }
    }

private:
    std::mutex mutex_;
    std::unordered_multimap<size_t, Attributes const*> byHash_;  // guarded by mutex_
};

Attributes::~Attributes() = default;

du::ConstSmartPtr<Attributes> Attributes::Get(Attributes const& attributes) {
    if (attributes.interned_) return &attributes;
    return Table::Get().Intern(attributes);
}

void Attributes::ZeroReferenceCountHook() {
    if (interned_) Table::Get().Remove(this);
    delete this;
}

size_t Attributes::Hash() const {
    size_t hash = 0;
    if (line_) {
        Mix(hash, line_->GetWeight());
        Mix(hash, line_->GetLineStyle()->GetIndex());
        Mix(hash, line_->GetColor());
    }
    if (fill_) {
        Mix(hash, fill_->GetKind());
        Mix(hash, fill_->GetColor());
    }
    if (text_) {
        Mix(hash, text_->GetFont());
        Mix(hash, text_->GetHeight());
    }
    return hash;
}

bool operator==(Attributes const& a, Attributes const& b) {
    return a.text_ == b.text_ && SameContent(a.line_, b.line_) && SameContent(a.fill_, b.fill_);
}

}  // namespace zv2d
