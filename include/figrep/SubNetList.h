// A list of sub-nets that keeps its order and knows its members at once.
#pragma once

#include <cstddef>
#include <vector>

#include <figrep/Fwd.h>

namespace figrep {

/// Sub-nets in the order of adding. Membership is found by bisection, so that a bus of many nets
/// doesn't pay nets times segments; the order by address behind it is never shown.
/// Has no lock of its own.
class SubNetList {
public:
    SubNetList();
    SubNetList(SubNetList const&);
    SubNetList& operator=(SubNetList const&);
    ~SubNetList();

    /// Appends, also what is in the list already.
    void Add(SmartPtr<SubNet> const& subNet);
    /// Appends unless the sub-net is in the list already.
    void Insert(SmartPtr<SubNet> const& subNet);
    /// Takes every entry of the sub-net out; the others keep their order.
    void Remove(SmartPtr<SubNet> const& subNet);
    void Clear();

    bool Contains(SmartPtr<SubNet> const& subNet) const;
    std::vector<SmartPtr<SubNet>> const& GetItems() const { return items_; }

private:
    /// Up to this many entries are compared one by one, and no index is kept.
    static constexpr std::size_t INDEX_FROM = 9;

    void RebuildIndex();

    std::vector<SmartPtr<SubNet>> items_;
    std::vector<SubNet const*> index_;
};

}  // namespace figrep
