#include <persistence/DescribeDelta.h>

#include <gtest/gtest.h>

#include <persistence/ContentXml.h>

namespace fighost {
namespace {

KnownNames const NAMES{{"a", "U1"}, {"b", "R2"}, {"s", "Power"}, {"n", "/SDA"}};

/// What a component with this content does.
std::string Words(std::string const& content) {
    auto const read = ContentOfXml("<root>" + content + "</root>", "root", "f");
    EXPECT_TRUE(read.content) << content;
    return read.content ? DescribeDelta(*read.content, NAMES) : std::string();
}

std::string Typed(char const* type, std::string const& rest, int action = 3) {
    return Words("<int key=\"action\" value=\"" + std::to_string(action) +
                 "\"/><text key=\"type\" value=\"" + type + "\"/>" + rest);
}

std::string Id(char const* key, char const* id) {
    return std::string("<text key=\"") + key + "\" value=\"" + id + "\"/>";
}

std::string Visibility(bool on) {
    return std::string(
               "<text key=\"setting_type\" value=\"ITEM_VISIBILITY\"/><bool "
               "key=\"setting_value\" value=\"") +
           (on ? "true" : "false") + "\"/>";
}

TEST(DescribeDelta, EveryKindHasItsWords) {
    std::string const both = Id("id_list_entry", "a") + Id("id_list_entry", "b");
    EXPECT_EQ(Typed("sheet_delta", Id("id", "s"), 0), "show the sheet Power");
    EXPECT_EQ(Typed("sub_net_delta", Id("id", "n"), 0), "copy /SDA");
    EXPECT_EQ(Typed("sub_net_delta",
                    Id("id", "n") + "<point key=\"head_vertex\" x=\"0\" y=\"0\" z=\"0\"/>", 1),
              "draw the wires of /SDA");
    EXPECT_EQ(Typed("move_delta", both), "move U1, R2");
    EXPECT_EQ(Typed("move_delta", both + "<content key=\"transform\">" +
                                      Id("transform_type", "mirror") + "</content>"),
              "mirror and move U1, R2");
    EXPECT_EQ(Typed("setting_delta_v2", both + Visibility(false)), "hide U1, R2");
    EXPECT_EQ(Typed("setting_delta", Id("id", "a") + Visibility(true)), "show U1");
    EXPECT_EQ(Typed("publish_title_block_delta", ""), "set the texts of the title block");
    EXPECT_EQ(Words("<int key=\"action\" value=\"2\"/>" + Id("id", "b")), "delete R2");
    EXPECT_EQ(Typed("from_the_future", Id("id", "a")), "'from_the_future' on U1");
}

TEST(DescribeDelta, PartingAndRejoiningAreTwoThings) {
    std::string const record =
        "<content key=\"broken_connection\">" + Id("sub_net_id", "n") + "</content>";
    EXPECT_EQ(Typed("connections_delta", record, 1), "part connections of /SDA");
    EXPECT_EQ(Typed("connections_delta", record, 2), "rejoin connections of /SDA");
}

TEST(DescribeDelta, WhatNamesNoKindIsNotCalledADeletion) {
    for (std::string const& content :
         {std::string(), Id("id", "a"), "<int key=\"action\" value=\"0\"/>" + Id("id", "a"),
          "<int key=\"action\" value=\"2\"/><int key=\"type\" value=\"1\"/>" + Id("id", "a")})
        EXPECT_EQ(Words(content), "a change of no known kind") << content;
}

TEST(DescribeDelta, ManyTargetsAreCounted) {
    std::string ids;
    for (char const* id : {"a", "b", "c", "d", "e", "f", "g", "a"})
        ids += Id("id_list_entry", id);
    EXPECT_EQ(Typed("move_delta", ids), "move U1, R2, c, d, e and 2 more");
    EXPECT_EQ(Typed("move_delta", ""), "move nothing");
}

}  // namespace
}  // namespace fighost
