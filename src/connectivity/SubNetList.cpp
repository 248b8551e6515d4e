#include <figrep/SubNetList.h>

#include <figrep/SubNet.h>

#include <algorithm>
#include <functional>

namespace figrep {

SubNetList::SubNetList() = default;
SubNetList::SubNetList(SubNetList const&) = default;
SubNetList& SubNetList::operator=(SubNetList const&) = default;
SubNetList::~SubNetList() = default;

void SubNetList::Add(SmartPtr<SubNet> const& subNet) {
    items_.push_back(subNet);
    if (index_.empty()) {
        if (items_.size() >= INDEX_FROM) RebuildIndex();
        return;
    }
    SubNet const* const added = subNet.Get();
    index_.insert(std::upper_bound(index_.begin(), index_.end(), added, std::less<>()), added);
}

void SubNetList::Insert(SmartPtr<SubNet> const& subNet) {
    if (!Contains(subNet)) Add(subNet);
}

void SubNetList::Remove(SmartPtr<SubNet> const& subNet) {
    if (!Contains(subNet)) return;
    SmartPtr<SubNet> const held = subNet;  // the argument may be an entry of this list
    std::erase_if(items_, [&](SmartPtr<SubNet> const& item) { return item == held; });
    auto const [first, last] =
        std::equal_range(index_.begin(), index_.end(), held.Get(), std::less<>());
    index_.erase(first, last);
}

void SubNetList::Clear() {
    items_.clear();
    index_.clear();
}

bool SubNetList::Contains(SmartPtr<SubNet> const& subNet) const {
    if (!index_.empty()) {
        return std::binary_search(index_.begin(), index_.end(), subNet.Get(), std::less<>());
    }
    return std::find(items_.begin(), items_.end(), subNet) != items_.end();
}

void SubNetList::RebuildIndex() {
    index_.clear();
    for (SmartPtr<SubNet> const& item : items_)
        index_.push_back(item.Get());
    std::sort(index_.begin(), index_.end(), std::less<>());
}

}  // namespace figrep
