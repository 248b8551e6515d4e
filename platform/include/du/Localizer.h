// Texts for users in their language.
#pragma once

#include <du/Symbol.h>

#include <map>
#include <string>
#include <string_view>

namespace du {

/// Catalogues of texts by key. Without a catalogue every key is its own text.
class Localizer {
public:
    /// The text of `key` in the named catalogue; the key itself when there is none.
    static Symbol Find(std::string_view catalogue, std::string_view key);

    /// Installs or replaces a catalogue. Safe from any thread.
    static void SetCatalogue(std::string_view catalogue, std::map<std::string, std::string> texts);

    static void ClearCatalogues();
};

}  // namespace du
