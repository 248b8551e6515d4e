#include <persistence/ContentXml.h>

#include <limits>

#include <gtest/gtest.h>
#include <support/ContentLines.h>

namespace fighost {
namespace {

using du::Symbol;
using zvk::SerializedContentElement;

std::vector<std::string> RoundTrip(SerializedContentElement const& element) {
    auto const read = ContentOfXml(ContentToXml(element, "root", {}), "root", "f");
    EXPECT_FALSE(read.error) << read.error->ToString();
    return read.content ? figrep::test::LinesOf(*read.content) : std::vector<std::string>();
}

TEST(ContentXml, KeepsTypesOrderAndRepeatedKeys) {
    SerializedContentElement element{Symbol("root")};
    Symbol const key("k");
    element.AddProperty(key, true);
    element.AddProperty(key, -7);
    element.AddProperty(key, 0.1);
    auto* const child = element.StartContent(Symbol("c"));
    child->AddProperty(Symbol("p"), dg::DPoint3D(1.0 / 3, -0.0, 1e300));
    element.AddProperty(key, Symbol("text"));
    element.StartContent(Symbol("c"));
    element.AddProperty(key, false);
    EXPECT_EQ(RoundTrip(element), figrep::test::LinesOf(element));
}

TEST(ContentXml, NumbersComeBackExactly) {
    SerializedContentElement element{Symbol("root")};
    for (double const value :
         {std::numeric_limits<double>::denorm_min(), 1.0 / 3, 2.5e-17,
          std::numeric_limits<double>::max(), -0.0, std::numeric_limits<double>::infinity()}) {
        element.AddProperty(Symbol("d"), value);
    }
    element.AddProperty(Symbol("i"), std::numeric_limits<int>::min());
    EXPECT_EQ(RoundTrip(element), figrep::test::LinesOf(element));
}

TEST(ContentXml, AnyTextComesBack) {
    SerializedContentElement element{Symbol("root")};
    for (std::string const& text :
         {std::string("<&\"'>"), std::string("a\n\t b  "), std::string("\0x", 2),
          std::string("\xFF\xC3"), std::string("Größe 北"), std::string("\x01"), std::string(),
          std::string("\xED\xA0\x80")}) {
        element.AddProperty(Symbol(text), Symbol(text));
        element.StartContent(Symbol(text));
    }
    EXPECT_EQ(RoundTrip(element), figrep::test::LinesOf(element));
}

TEST(ContentXml, NamesStandBesideTheIds) {
    SerializedContentElement element{Symbol("root")};
    element.AddProperty(Symbol("id"), Symbol("uuid"));
    std::string const xml = ContentToXml(element, "root", {{"uuid", "U1"}, {"other", "U2"}});
    EXPECT_NE(xml.find("name=\"U1\""), std::string::npos);
    auto const read = ContentOfXml(xml, "root", "f");
    EXPECT_EQ(read.names, (KnownNames{{"uuid", "U1"}}));
}

TEST(ContentXml, TheSameContentGivesTheSameBytes) {
    SerializedContentElement element{Symbol("root")};
    element.AddProperty(Symbol("n"), 1);
    EXPECT_EQ(ContentToXml(element, "root", {}),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root>\n  <int key=\"n\" value=\"1\" "
              "/>\n</root>\n");
}

}  // namespace
}  // namespace fighost
