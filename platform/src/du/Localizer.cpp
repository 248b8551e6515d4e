#include <du/Localizer.h>

#include <mutex>
#include <utility>

namespace du {

namespace {

using Catalogue = std::map<std::string, std::string>;

struct Catalogues {
    std::mutex mutex;
    std::map<std::string, Catalogue, std::less<>> byName;  // guarded by mutex

    static Catalogues& Get() {
        static Catalogues& all = *new Catalogues;
        return all;
    }
};

}  // namespace

Symbol Localizer::Find(std::string_view catalogue, std::string_view key) {
    Catalogues& all = Catalogues::Get();
    std::lock_guard const guard(all.mutex);
    auto const found = all.byName.find(catalogue);
    if (found == all.byName.end()) return Symbol(key);
    auto const text = found->second.find(std::string(key));
    return text == found->second.end() ? Symbol(key) : Symbol(text->second);
}

void Localizer::SetCatalogue(std::string_view catalogue, Catalogue texts) {
    Catalogues& all = Catalogues::Get();
    std::lock_guard const guard(all.mutex);
    all.byName.insert_or_assign(std::string(catalogue), std::move(texts));
}

void Localizer::ClearCatalogues() {
    Catalogues& all = Catalogues::Get();
    std::lock_guard const guard(all.mutex);
    all.byName.clear();
}

}  // namespace du
