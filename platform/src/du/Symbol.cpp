#include <du/Symbol.h>

#include <deque>
#include <mutex>
#include <unordered_map>

namespace du {

/// All texts of the process. Entries never move and never go.
class Symbol::Table {
public:
    static Table& Get() {
        static Table& table = *new Table;  // outlives every static symbol
        return table;
    }

    Entry const* Intern(std::string_view text) {
        std::lock_guard const guard(mutex);
        if (auto const found = byText.find(text); found != byText.end()) return found->second;
        Entry const& added = entries.emplace_back(Entry{std::string(text), entries.size() + 1});
        byText.emplace(added.text, &added);
        return &added;
    }

private:
    std::mutex mutex;  // guards both
    std::deque<Entry> entries;
    std::unordered_map<std::string_view, Entry const*> byText;
};

Symbol::Symbol(std::string_view text)
    : entry_(text.empty() ? nullptr : Table::Get().Intern(text)) {}

std::string const& Symbol::EmptyText() {
    static std::string const& empty = *new std::string;
    return empty;
}

}  // namespace du
