#include <du/Localizer.h>
#include <du/Symbol.h>
#include <du/Utf8.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <type_traits>

namespace {

using du::Symbol;

TEST(Symbol, EqualTextsAreOneSymbol) {
    std::string const text = "symbol-test-a";
    EXPECT_EQ(Symbol(text), Symbol("symbol-test-a"));
    EXPECT_EQ(&Symbol(text).GetString(), &Symbol("symbol-test-a").GetString());
    EXPECT_FALSE(Symbol("symbol-test-a") == Symbol("symbol-test-A"));
}

TEST(Symbol, TheEmptyTextIsTheEmptySymbol) {
    EXPECT_TRUE(Symbol("").IsEmpty());
    EXPECT_EQ(Symbol(""), Symbol::EMPTY);
    EXPECT_EQ(Symbol(static_cast<char const*>(nullptr)), Symbol());
    EXPECT_EQ(Symbol::EMPTY.GetString(), "");
}

TEST(Symbol, OrderIsThatOfInterning) {
    Symbol const late("symbol-test-zzz");
    Symbol const later("symbol-test-aaa");
    EXPECT_LT(late, later);
    EXPECT_LT(Symbol::EMPTY, late);
    std::set<Symbol> const ordered{later, late};
    EXPECT_EQ(*ordered.begin(), late);
}

TEST(Symbol, TextsMayHoldAnyByte) {
    std::string const odd("a\0b", 3);
    EXPECT_EQ(Symbol(odd).GetString(), odd);
    EXPECT_FALSE(Symbol(odd) == Symbol("a"));
}

TEST(Symbol, LiteralsDontBecomeSymbolsSilently) {
    EXPECT_FALSE((std::is_convertible_v<char const*, Symbol>));
    EXPECT_FALSE((std::is_convertible_v<std::string, Symbol>));
}

TEST(Utf8, ValidTextGoesThereAndBack) {
    std::string const text = "R1 \xC2\xB5\xE2\x82\xAC\xF0\x9F\x98\x80";
    std::wstring const wide = du::Utf8ToWideStr(text);
    EXPECT_EQ(wide, L"R1 \u00B5\u20AC\U0001F600");
    EXPECT_EQ(du::WideStrToUtf8(wide), text);
}

TEST(Utf8, EachBadByteBecomesAReplacement) {
    EXPECT_EQ(du::Utf8ToWideStr("a\xFFz"), L"a\uFFFDz");
    EXPECT_EQ(du::Utf8ToWideStr("\xC3"), L"\uFFFD");            // cut short
    EXPECT_EQ(du::Utf8ToWideStr("\xC0\x80"), L"\uFFFD\uFFFD");  // a longer form than needed
    EXPECT_EQ(du::Utf8ToWideStr("\xED\xA0\x80"), L"\uFFFD\uFFFD\uFFFD");  // half of a pair
    EXPECT_EQ(du::Utf8ToWideStr("\xF5\x80\x80\x80").size(), 4u);  // beyond the last code point
    EXPECT_EQ(du::Utf8ToWideStr("\xE2\x82x"), L"\uFFFD\uFFFDx");
}

TEST(Utf8, ValuesThatAreNoCodePointsAreReplaced) {
    EXPECT_EQ(du::WideStrToUtf8(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xEF\xBF\xBD");
    EXPECT_EQ(du::WideStrToUtf8(std::wstring(1, static_cast<wchar_t>(0x110000))), "\xEF\xBF\xBD");
}

TEST(Localizer, AnUnknownKeyIsItsOwnText) {
    EXPECT_EQ(du::Localizer::Find("no such catalogue", "Key"), Symbol("Key"));
    du::Localizer::SetCatalogue("test", {{"Fit", "Einpassen"}});
    EXPECT_EQ(du::Localizer::Find("test", "Fit"), Symbol("Einpassen"));
    EXPECT_EQ(du::Localizer::Find("test", "Other"), Symbol("Other"));
    du::Localizer::ClearCatalogues();
    EXPECT_EQ(du::Localizer::Find("test", "Fit"), Symbol("Fit"));
}

}  // namespace
