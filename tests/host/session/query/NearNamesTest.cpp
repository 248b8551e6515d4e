#include <session/query/NearNames.h>

#include <gtest/gtest.h>

namespace fighost {
namespace {

using Names = std::vector<std::string>;

TEST(NearNames, CaseAndMarkupDontCount) {
    EXPECT_EQ(NearNames({"GND", "/A/~{RESET}", "VCC"}, "/a/reset"), Names{"/A/~{RESET}"});
}

TEST(NearNames, SheetsInFrontOfTheNameDontCount) {
    EXPECT_EQ(NearNames({"/Power/EN", "GND", "/A/B/EN"}, "EN"), (Names{"/Power/EN", "/A/B/EN"}));
    EXPECT_EQ(NearNames({"EN", "GND"}, "/Power/EN"), Names{"EN"});
}

TEST(NearNames, TypingMistakesAreForgiven) {
    EXPECT_EQ(NearNames({"/UART_TX", "/SPI_CLK", "GND"}, "UATR_TX"), Names{"/UART_TX"});
}

TEST(NearNames, LikeliestComesFirst) {
    Names const names = {"UART_TX2", "/x/UART_TX", "UART_RX", "uart_tx"};
    EXPECT_EQ(NearNames(names, "UART_TX"), (Names{"uart_tx", "/x/UART_TX", "UART_TX2", "UART_RX"}));
    EXPECT_EQ(NearNames(names, "UART_TX", 2), (Names{"uart_tx", "/x/UART_TX"}));
}

TEST(NearNames, NothingIsLikeAStrangeName) {
    EXPECT_TRUE(NearNames({"GND", "VCC"}, "oscillator").empty());
    EXPECT_TRUE(NearNames({"GND", "VCC"}, "").empty());
    EXPECT_TRUE(NearNames({"GND"}, "/").empty());
    EXPECT_TRUE(NearNames({}, "GND").empty());
}

TEST(NearNames, VeryLongNamesAreComparedAsAWholeOnly) {
    std::string const longName(5000, 'a');
    EXPECT_EQ(NearNames({longName, longName + "b"}, longName), (Names{longName, longName + "b"}));
    EXPECT_TRUE(NearNames({longName}, longName + "b").empty());
}

}  // namespace
}  // namespace fighost
