// What a search finds against the visible texts read a second time from the files.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <vector>

#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <integration/oracle/Texts.h>
#include <session/Session.h>
#include <session/query/Find.h>
#include <support/Corpus.h>

namespace fighost {
namespace {

/// As texts compare: without the signs of mark-up, white space as one blank.
std::string Plain(std::string const& text) {
    std::string plain;
    std::vector<bool> braces;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char const c = text[i];
        bool const opens = i + 1 < text.size() && text[i + 1] == '{';
        if (opens && (c == '~' || c == '_' || c == '^')) {
            braces.push_back(true);
            ++i;
        } else if (c == '}' && !braces.empty()) {
            if (!braces.back()) plain += c;
            braces.pop_back();
        } else if (c == ' ' || c == '\n' || c == '\t' || c == '\r') {
            if (plain.empty() || plain.back() != ' ') plain += ' ';
        } else {
            if (c == '{') braces.push_back(false);
            plain += c;
        }
    }
    return plain;
}

/// What a text is certain to hold: the pieces between its variables.
std::vector<std::string> Pieces(std::string const& text) {
    std::vector<std::string> pieces;
    std::size_t at = 0;
    for (;;) {
        std::size_t const begin = text.find("${", at);
        pieces.push_back(Plain(text.substr(at, begin - at)));
        std::size_t const end = begin == std::string::npos ? begin : text.find('}', begin);
        if (end == std::string::npos) return pieces;
        at = end + 1;
    }
}

bool HoldsAll(std::string const& plain, std::vector<std::string> const& pieces) {
    return std::all_of(pieces.begin(), pieces.end(), [&](std::string const& piece) {
        return plain.find(piece) != std::string::npos;
    });
}

/// How far the place is from where the file has the text, in millimetres.
double DistanceTo(SheetPlace const& place, oracle::VisibleText const& text) {
    return std::max(std::abs(place.x - static_cast<double>(text.at.x) / 1e4),
                    std::abs(place.y - static_cast<double>(text.at.y) / 1e4));
}

/// The cell that the sheet's frame itself gives the place.
std::string CellOf(Session const& session, SheetPlace const& place) {
    auto const sheets = session.FindSheets(place.sheet);
    auto const format = sheets.empty() ? nullptr : sheets[0]->figure->GetFormat();
    if (!format) return {};
    du::Symbol column, row;
    format->CalculateGridLocation({place.x, format->GetHeight() - place.y}, column, row);
    return row.GetString() + column.GetString();
}

/// A text that the search found, as texts compare.
struct FoundText {
    std::string plain;
    SheetPlace place;
};
using BySheet = std::map<std::string, std::vector<FoundText>>;

/// Whether one of the texts found is this one; takes the nearest one out.
bool Take(std::vector<FoundText>& found, oracle::VisibleText const& text) {
    std::vector<std::string> const pieces = Pieces(text.text);
    bool const whole = pieces.size() == 1 && text.placed;
    auto nearest = found.end();
    double distance = static_cast<double>(text.reach) / 1e4;
    for (auto it = found.begin(); it != found.end(); ++it) {
        if (!HoldsAll(it->plain, pieces) || (whole && it->plain != pieces[0])) continue;
        if (!text.placed) return true;  // the frame shows several fields in one text
        if (DistanceTo(it->place, text) > distance) continue;
        distance = DistanceTo(it->place, text);
        nearest = it;
    }
    if (nearest == found.end()) return false;
    found.erase(nearest);
    return true;
}

/// Those whose place is known best first, so that equal texts don't take each other's place.
std::vector<oracle::VisibleText> TextsOf(std::string const& root) {
    std::vector<oracle::VisibleText> texts = oracle::ReadVisibleTexts(root);
    std::stable_sort(texts.begin(), texts.end(),
                     [](auto const& a, auto const& b) { return a.reach < b.reach; });
    return texts;
}

TEST(CorpusTexts, EveryVisibleTextOfTheFilesIsFoundWhereItStands) {
    SKIP_WITHOUT_CORPUS();
    std::size_t total = 0;
    for (std::string const& root : corpus::RootSheets()) {
        SCOPED_TRACE(root);
        Session::Opened const opened = Session::Open(root);
        ASSERT_TRUE(opened.session);
        BySheet bySheet;
        for (Match const& match : FindMatches(*opened.session, "")) {
            EXPECT_EQ(match.place.GetCell(), CellOf(*opened.session, match.place)) << match.text;
            if (match.kind != Match::TEXT) continue;
            bySheet[match.place.sheet].push_back({Plain(match.text), match.place});
        }
        std::vector<oracle::VisibleText> const texts = TextsOf(root);
        EXPECT_FALSE(texts.empty());
        std::size_t missing = 0;
        for (oracle::VisibleText const& text : texts) {
            if (Take(bySheet[text.sheet], text)) continue;
            if (++missing <= 5) {
                ADD_FAILURE() << text.sheet << " lacks '" << text.text << "' at "
                              << static_cast<double>(text.at.x) / 1e4 << ", "
                              << static_cast<double>(text.at.y) / 1e4;
            }
        }
        EXPECT_EQ(missing, 0u) << "of " << texts.size();
        total += texts.size();
    }
    RecordProperty("texts", std::to_string(total));
}

/// Some words of the texts, spread over all of them.
std::vector<std::string> SomeWords(std::vector<oracle::VisibleText> const& texts) {
    constexpr std::size_t WORDS = 4;
    std::vector<std::string> words;
    for (std::size_t i = 0; i < WORDS && !texts.empty(); ++i) {
        std::string const plain = Plain(Pieces(texts[i * texts.size() / WORDS].text).back());
        words.push_back(plain.substr(0, plain.find(' ', 1)));
    }
    return words;
}

std::string Described(Match const& match) {
    return match.place.sheet + " " + match.place.GetCell() + " " + match.type + " " + match.id +
           " '" + match.text + "'";
}

TEST(CorpusTexts, AWordIsFoundInEveryTextThatHoldsItAndInNoOther) {
    SKIP_WITHOUT_CORPUS();
    for (std::string const& root : corpus::RootSheets()) {
        SCOPED_TRACE(root);
        Session::Opened const opened = Session::Open(root);
        ASSERT_TRUE(opened.session);
        std::vector<Match> const all = FindMatches(*opened.session, "");
        for (std::string const& word : SomeWords(oracle::ReadVisibleTexts(root))) {
            SCOPED_TRACE(word);
            std::vector<std::string> expected, found;
            for (Match const& match : all)
                if (Plain(match.text).find(word) != std::string::npos)
                    expected.push_back(Described(match));
            for (Match const& match : FindMatches(*opened.session, word))
                found.push_back(Described(match));
            EXPECT_EQ(found, expected);
        }
    }
}

}  // namespace
}  // namespace fighost
