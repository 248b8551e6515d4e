#include <gtest/gtest.h>

#include "SheetText.h"

namespace {

using namespace sheettext;

std::vector<std::string> References(fighost::kicad::ReadResult const& result) {
    std::vector<std::string> names;
    for (auto const& sheet : result.design.sheets) {
        for (auto const& block : sheet.blocks) {
            if (!block.pins.empty()) names.push_back(block.name);
        }
    }
    return names;
}

using Names = std::vector<std::string>;

std::string Instance(std::string const& project, std::string const& path,
                     std::string const& reference, int unit = 1) {
    return "(project \"" + project + "\" (path \"" + path + "\" (reference \"" + reference +
           "\") (unit " + std::to_string(unit) + ")))";
}

std::map<std::string, std::string> UsedTwice(std::string const& instances) {
    return {
        {"root.kicad_sch", File(Sheet("one", "sub.kicad_sch") + Sheet("two", "sub.kicad_sch"))},
        {"sub.kicad_sch", File(Symbol("T:pin", "R?", "x", 0, 0, 0, "(instances " + instances + ")"),
                               20231120, "sub")}};
}

TEST(Instances, TheReferenceIsThatOfThePlaceInTheHierarchy) {
    auto const result = Read(UsedTwice(Instance("root", "/top/sheet-one", "R1") +
                                       Instance("root", "/top/sheet-two", "R2")));
    EXPECT_EQ(References(result), (Names{"R1", "R2"}));
}

TEST(Instances, OtherProjectsDoNotCount) {
    auto const result = Read(UsedTwice(Instance("stale", "/top/sheet-one", "R8") +
                                       Instance("root", "/top/sheet-one", "R1") +
                                       Instance("", "/top/sheet-two", "R2")));
    EXPECT_EQ(References(result), (Names{"R1", "R2"}));
}

TEST(Instances, WithoutAFittingOneTheFieldCounts) {
    auto const result = Read(UsedTwice(Instance("stale", "/top/sheet-one", "R8") +
                                       Instance("root", "/other/sheet-two", "R9")));
    EXPECT_EQ(References(result), (Names{"R?", "R?"}));
}

TEST(Instances, TheUnitIsThatOfTheInstance) {
    auto const result =
        Read(File(Symbol("T:units", "U?", "x", 0, 0, 0,
                         "(unit 1) (instances " + Instance("root", "/top", "U7", 2) + ")")));
    EXPECT_FALSE(NetOf(result, "U7:2").empty());
    EXPECT_TRUE(NetOf(result, "U7:1").empty());
}

TEST(Instances, UnitZeroBelongsToAllAndBodyStylesAreChosen) {
    auto const first = Read(File(Symbol("T:units", "U1", "x", 0, 0, 0, "(unit 2)")));
    EXPECT_FALSE(NetOf(first, "U1:9").empty());
    EXPECT_FALSE(NetOf(first, "U1:2").empty());
    EXPECT_TRUE(NetOf(first, "U1:3").empty());
    for (char const* word : {"(unit 2) (convert 2)", "(unit 2) (body_style 2)"}) {
        auto const second = Read(File(Symbol("T:units", "U1", "x", 0, 0, 0, word)));
        EXPECT_FALSE(NetOf(second, "U1:9").empty());
        EXPECT_FALSE(NetOf(second, "U1:3").empty());
        EXPECT_TRUE(NetOf(second, "U1:2").empty());
    }
}

TEST(Instances, Version6KeepsThemInATableOfTheRoot) {
    std::map<std::string, std::string> const files{
        {"root.kicad_sch",
         File(Sheet("one", "sub.kicad_sch") + Sheet("two", "sub.kicad_sch") +
                  "(symbol_instances (path \"/sheet-one/s\" (reference \"R1\") (unit 1))"
                  " (path \"/sheet-two/s\" (reference \"R2\") (unit 1)))",
              20211123)},
        {"sub.kicad_sch",
         File("(symbol (lib_id \"T:pin\") (at 0 0 0) (uuid s) (property \"Reference\" \"R?\" (at 0 "
              "0 0)))",
              20211123, "sub")}};
    EXPECT_EQ(References(Read(files)), (Names{"R1", "R2"}));
}

TEST(Instances, TextsCanNameFieldsOfOtherSymbols) {
    auto const result = Read(File(
        "(text \"see ${other:REFERENCE} ${other:VALUE}\" (at 0 0 0))"
        "(symbol (lib_id \"T:pin\") (at 0 0 0) (uuid other) (property \"Reference\" \"R?\" (at 0 "
        "0 0)) (property \"Value\" \"10k\" (at 0 0 0)) (instances " +
        Instance("root", "/top", "R5") + "))"));
    EXPECT_EQ(result.design.sheets[0].labels.texts.at(0).text, "see R5 10k");
}

TEST(Instances, TheLibraryNameComesBeforeTheLibraryId) {
    auto const result =
        Read(File(Symbol("T:none", "U1", "x", 0, 0, 0, "(lib_name \"T:two\")") + Pin("A", 0, 0)));
    EXPECT_TRUE(Joined(result, "U1:1", "A:1"));
}

TEST(Instances, ASymbolThatExtendsAnotherShowsItsUnits) {
    std::string text = File(Symbol("T:derived", "U1", "x", 0, 0));
    text.insert(text.find("(lib_symbols ") + 13, "(symbol \"T:derived\" (extends \"two\"))");
    EXPECT_FALSE(NetOf(Read(text), "U1:2").empty());
}

TEST(Instances, SymbolsThatExtendEachOtherEnd) {
    std::string text = File(Symbol("T:a", "U1", "x", 0, 0));
    text.insert(text.find("(lib_symbols ") + 13,
                "(symbol \"T:a\" (extends \"b\")) (symbol \"T:b\" (extends \"a\"))");
    EXPECT_TRUE(Read(text).IsGood());
}

TEST(Instances, AMissingLibrarySymbolIsABoxAndAWarning) {
    auto const result = Read(File(Symbol("T:gone", "U1", "x", 0, 0)));
    EXPECT_EQ(Warnings(result, "missing-symbol"), 1u);
    ASSERT_EQ(result.design.sheets[0].blocks.size(), 1u);
    EXPECT_FALSE(result.design.sheets[0].blocks[0].graphics.IsEmpty());
}

TEST(Instances, SheetPropertiesOfVersion6AreKnown) {
    std::map<std::string, std::string> const files{
        {"root.kicad_sch",
         File("(sheet (at 0 0) (size 9 9) (uuid u) (property \"Sheet name\" \"old\" (id 0) (at 0 0 "
              "0)) (property \"Sheet file\" \"sub/a.kicad_sch\" (id 1) (at 0 0 0)))",
              20211123)},
        {"sub/a.kicad_sch", File(Sheet("inner", "../b.kicad_sch"), 20211123, "a")},
        {"b.kicad_sch", File("", 20211123, "b")}};
    auto const result = Read(files);
    ASSERT_EQ(result.design.sheets.size(), 3u);
    EXPECT_EQ(result.design.sheets[2].path, "/old/inner/");
}

}  // namespace
