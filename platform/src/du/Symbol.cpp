#include <du/Symbol.h>

#include <deque>
#include <mutex>
#include <vector>

namespace du {

/// All texts of the process. Entries never move and never go.
class Symbol::Table {
public:
    static Table& Get() {
        static Table& table = *new Table;  // outlives every static symbol
        return table;
    }

    Entry const* Intern(std::string_view text) {
        size_t const hash = std::hash<std::string_view>()(text);
        std::lock_guard const guard(mutex);
        if (2 * entries.size() >= slots.size()) Grow();
        Slot& slot = FindSlot(hash, text);
        if (!slot.entry) {
            slot = {hash, &entries.emplace_back(Entry{std::string(text), entries.size() + 1})};
        }
        return slot.entry;
    }

private:
    /// A place of the open hash table; at least half of them stay empty. Kept beside the texts, so
    /// that looking up a new text costs one cache miss and no allocation.
    struct Slot {
        size_t hash = 0;
        Entry const* entry = nullptr;
    };

    Slot& FindSlot(size_t hash, std::string_view text) {
        size_t const mask = slots.size() - 1;
        size_t at = hash & mask;
        while (slots[at].entry && (slots[at].hash != hash || slots[at].entry->text != text)) {
            at = (at + 1) & mask;
        }
        return slots[at];
    }

    void Grow() {
        std::vector<Slot> former(slots.empty() ? 1024 : 2 * slots.size());
        former.swap(slots);
        size_t const mask = slots.size() - 1;
        for (Slot const& slot : former) {
            if (!slot.entry) continue;
            size_t at = slot.hash & mask;
            while (slots[at].entry)
                at = (at + 1) & mask;
            slots[at] = slot;
        }
    }

    std::mutex mutex;  // guards all below
    std::deque<Entry> entries;
    std::vector<Slot> slots;
};

Symbol::Symbol(std::string_view text)
    : entry_(text.empty() ? nullptr : Table::Get().Intern(text)) {}

std::string const& Symbol::EmptyText() {
    static std::string const& empty = *new std::string;
    return empty;
}

}  // namespace du
