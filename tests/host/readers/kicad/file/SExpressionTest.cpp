#include <gtest/gtest.h>

#include <readers/kicad/file/SExpression.h>

namespace {

using fighost::Finding;
using fighost::Findings;
using fighost::kicad::Limits;
using fighost::kicad::SExpression;

struct Parsed {
    SExpression tree;
    Findings findings;
    std::optional<Finding> error;
};

Parsed Parse(std::string text, Limits const& limits = Limits()) {
    Parsed parsed;
    parsed.error = parsed.tree.Parse("file", std::move(text), limits, parsed.findings);
    return parsed;
}

std::string ErrorOf(std::string text, Limits const& limits = Limits()) {
    auto const parsed = Parse(std::move(text), limits);
    return parsed.error ? parsed.error->ToString() : std::string();
}

TEST(SExpression, TellsListsWordsAndTextsApart) {
    auto const parsed = Parse("(a (b 1 \"two words\") c)");
    ASSERT_FALSE(parsed.error);
    auto const root = parsed.tree.Root();
    EXPECT_EQ(root.Keyword(), "a");
    auto const inner = root.Find("b");
    ASSERT_TRUE(inner.IsList());
    EXPECT_EQ(inner.At(1).Raw(), "1");
    EXPECT_TRUE(inner.At(2).IsQuoted());
    EXPECT_EQ(inner.At(2).Text(), "two words");
    EXPECT_FALSE(inner.At(3));
    EXPECT_EQ(root.At(2).Raw(), "c");
}

TEST(SExpression, NextSkipsAWholeList) {
    auto const parsed = Parse("(a (b (c (d))) (e))");
    EXPECT_EQ(parsed.tree.Root().At(1).Next().Keyword(), "e");
}

TEST(SExpression, WorksOutEscapes) {
    auto const parsed = Parse(R"((a "x\n\"\\\t\x41\101y"))");
    EXPECT_EQ(parsed.tree.Root().At(1).Text(), "x\n\"\\\tAAy");
}

TEST(SExpression, TellsLineAndColumnInCharacters) {
    auto const parsed = Parse("(a\n  (\xC3\xA9\xC3\xA9 b))");
    auto const place = parsed.tree.Root().At(1).At(1).GetPlace();
    EXPECT_EQ(place.line, 2u);
    EXPECT_EQ(place.column, 7u);
}

TEST(SExpression, AnEmptyListHasNoKeyword) {
    auto const parsed = Parse("(())");
    EXPECT_EQ(parsed.tree.Root().Keyword(), "");
    EXPECT_TRUE(parsed.tree.Root().FirstChild().IsList());
    EXPECT_FALSE(parsed.tree.Root().FirstChild().FirstChild());
}

TEST(SExpression, AMissingEndIsAnErrorAtTheEndOfTheFile) {
    EXPECT_EQ(ErrorOf("(a\n(b"), "file:2:3: The file ends inside a list: 2 ')' are missing");
}

TEST(SExpression, ATextWithoutClosingQuoteIsAnErrorAtItsBeginning) {
    EXPECT_EQ(ErrorOf("(a \"b\nc"), "file:1:4: The text that begins here has no closing quote");
    EXPECT_EQ(ErrorOf("(a \"b\\"), "file:1:4: The text that begins here has no closing quote");
}

TEST(SExpression, WhatStandsBehindTheEndIsAnError) {
    EXPECT_EQ(ErrorOf("(a) b"), "file:1:5: There is text behind the end of the outermost list");
    EXPECT_EQ(ErrorOf("(a))"), "file:1:4: There is text behind the end of the outermost list");
}

TEST(SExpression, AFileThatIsNoListIsAnError) {
    EXPECT_EQ(ErrorOf("EESchema Schematic"),
              "file:1:1: The file doesn't begin with a list; it is no KiCad schematic");
    EXPECT_EQ(ErrorOf(")"), "file:1:1: A ')' closes nothing");
    EXPECT_EQ(ErrorOf(""), "file:1:1: The file is empty");
}

TEST(SExpression, NestingOfAHundredThousandEndsAtTheLimit) {
    EXPECT_EQ(ErrorOf(std::string(100'000, '(')),
              "file:1:1001: Lists are nested more than 1000 deep");
}

TEST(SExpression, NestingOfAHundredThousandIsReadWhenAllowed) {
    Limits limits;
    limits.depth = 200'000;
    auto const parsed = Parse(std::string(100'000, '(') + std::string(100'000, ')'), limits);
    EXPECT_FALSE(parsed.error);
    EXPECT_EQ(parsed.tree.GetNodeCount(), 100'000u);
}

TEST(SExpression, AWordOf200MegabytesEndsAtTheLimit) {
    std::string text = "(a \"";
    text.append(std::size_t(200) << 20, 'x');
    text += "\")";
    EXPECT_EQ(ErrorOf(std::move(text)),
              "file:1:4: The text that begins here is longer than 134217728 bytes");
}

TEST(SExpression, TooManyWordsEndAtTheLimit) {
    Limits limits;
    limits.tokens = 10;
    EXPECT_EQ(ErrorOf("(a b c d e f g h i j k)", limits), "file:1:21: The file has too many words");
}

TEST(SExpression, ALargeFileEndsAtTheLimit) {
    Limits limits;
    limits.fileBytes = 10;
    EXPECT_EQ(ErrorOf("(a b c d e f g h i j k)", limits), "file: The file is too large");
}

TEST(SExpression, BytesThatAreNoUtf8AreReplacedAndCounted) {
    for (std::string const bad : {"\xFF", "\xC3", "\xC0\xAF", "\xED\xA0\x80", "\x01"}) {
        auto const parsed = Parse("(a \"x" + bad + "y\")");
        ASSERT_FALSE(parsed.error);
        std::string const text = parsed.tree.Root().At(1).Text();
        EXPECT_EQ(text.substr(0, 4), "x\xEF\xBF\xBD");
        EXPECT_EQ(text.back(), 'y');
        ASSERT_EQ(parsed.findings.GetWarningCount(), 1u);
        EXPECT_EQ(parsed.findings.GetWarnings()[0].first.place.column, 6u);
    }
}

TEST(SExpression, AByteOrderMarkIsNoText) {
    auto const parsed = Parse("\xEF\xBB\xBF(a)");
    EXPECT_FALSE(parsed.error);
    EXPECT_EQ(parsed.findings.GetWarningCount(), 0u);
}

}  // namespace
