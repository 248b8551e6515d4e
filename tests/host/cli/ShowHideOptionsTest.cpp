#include <gtest/gtest.h>
#include <host/cli/RunProgram.h>
#include <host/session/ExampleSession.h>

#include <string>
#include <vector>

namespace fighost::test {
namespace {

Outcome Render(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(),
                     {"render", EXAMPLE_FILE, "-o", "-", "--sheet", "Controller"});
    return RunProgram("figrep", arguments);
}

bool Has(std::string const& text, std::string const& part) {
    return text.find(part) != std::string::npos;
}

TEST(ShowHideOptions, WhatIsHiddenIsNotPainted) {
    std::string const all = Render({}).out;
    ASSERT_TRUE(Has(all, "data-net=\"UART_TX\""));
    ASSERT_TRUE(Has(all, ">U2<"));
    Outcome const outcome = Render({"--hide", "UART_TX", "--hide", "U2"});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_FALSE(Has(outcome.out, "data-net=\"UART_TX\""));
    EXPECT_FALSE(Has(outcome.out, ">U2<"));
    EXPECT_TRUE(Has(outcome.out, "data-net=\"UART_RX\""));
}

TEST(ShowHideOptions, OnlyWhatIsIsolatedIsPaintedInItsFrame) {
    Outcome const outcome = Render({"--isolate", "UART_TX"});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_TRUE(Has(outcome.out, "data-net=\"UART_TX\""));
    EXPECT_FALSE(Has(outcome.out, "data-net=\"UART_RX\""));
    EXPECT_FALSE(Has(outcome.out, "BlockInstance"));
    EXPECT_TRUE(Has(outcome.out, "data-type=\"Format\""));
}

TEST(ShowHideOptions, AnUnknownNamePaintsNothing) {
    for (char const* option : {"--hide", "--isolate"}) {
        Outcome const outcome = Render({"--hide", "U2", option, "U2000"});
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_TRUE(Has(outcome.err, "'U2000'")) << outcome.err;
    }
}

}  // namespace
}  // namespace fighost::test
