#include <zvk/SerializedContentElement.h>

#include <gtest/gtest.h>

#include <concepts>
#include <memory>
#include <sstream>
#include <string>

namespace {

using du::Symbol;
using zvk::SerializedContentElement;

template <class T>
concept TakesProperty = requires(SerializedContentElement& element, T value) {
    element.AddProperty(Symbol("key"), value);
};

/// Writes what it sees as one line of text.
class Writer : public zvk::SerializedContentVisitor {
public:
    bool StartElement(Symbol const& name) override {
        if (name == skipped) return false;
        out << "<" << name.GetString() << ">";
        return true;
    }
    void EndElement(Symbol const& name) override { out << "</" << name.GetString() << ">"; }
    void Visit(Symbol const& key, Symbol const& v) override {
        out << key.GetString() << "='" << v.GetString() << "' ";
    }
    void Visit(Symbol const& key, bool v) override {
        out << key.GetString() << (v ? "=true " : "=false ");
    }
    void Visit(Symbol const& key, int v) override { out << key.GetString() << "=" << v << "i "; }
    void Visit(Symbol const& key, double v) override { out << key.GetString() << "=" << v << "d "; }
    void Visit(Symbol const& key, dg::DPoint3D const& v) override {
        out << key.GetString() << "=(" << v.x << "," << v.y << "," << v.z << ") ";
    }

    Symbol skipped;
    std::ostringstream out;
};

TEST(SerializedContent, KeepsTypesOrderAndRepeatedKeys) {
    SerializedContentElement root(Symbol("root"));
    root.AddProperty(Symbol("own"), 1);
    SerializedContentElement* child = root.StartContent(Symbol("child"));
    child->AddProperty(Symbol("k"), Symbol("text"));
    child->AddProperty(Symbol("k"), true);
    child->StartContent(Symbol("inner"))->AddProperty(Symbol("p"), dg::DPoint2D(1, 2));
    child->EndContent();
    child->AddProperty(Symbol("k"), 3);
    child->AddProperty(Symbol("k"), 0.5);
    root.EndContent();
    root.StartContent(Symbol("child"));
    root.EndContent();

    Writer writer;
    root.Visit(writer, true);
    EXPECT_EQ(writer.out.str(),
              "<child>k='text' k=true <inner>p=(1,2,0) </inner>k=3i k=0.5d </child>"
              "<child></child>");
}

TEST(SerializedContent, AShallowVisitStaysAboveTheGrandchildren) {
    SerializedContentElement root(Symbol("root"));
    SerializedContentElement* child = root.StartContent(Symbol("child"));
    child->AddProperty(Symbol("k"), 1);
    child->StartContent(Symbol("inner"))->AddProperty(Symbol("p"), 2);
    Writer writer;
    root.Visit(writer, false);
    EXPECT_EQ(writer.out.str(), "<child>k=1i </child>");
}

TEST(SerializedContent, ARefusedElementIsPassedOverWithItsEnd) {
    SerializedContentElement root(Symbol("root"));
    root.StartContent(Symbol("no"))->AddProperty(Symbol("k"), 1);
    root.StartContent(Symbol("yes"));
    Writer writer;
    writer.skipped = Symbol("no");
    root.Visit(writer, true);
    EXPECT_EQ(writer.out.str(), "<yes></yes>");
}

TEST(SerializedContent, OwnPropertiesAreShownAlone) {
    SerializedContentElement root(Symbol("root"));
    root.AddProperty(Symbol("k"), 1);
    root.StartContent(Symbol("child"))->AddProperty(Symbol("hidden"), 2);
    root.AddProperty(Symbol("k"), false);
    Writer writer;
    root.VisitProperties(writer);
    EXPECT_EQ(writer.out.str(), "k=1i k=false ");
    ASSERT_NE(root.FindProperty(Symbol("k")), nullptr);
    EXPECT_EQ(std::get<int>(*root.FindProperty(Symbol("k"))), 1);
    EXPECT_EQ(root.FindProperty(Symbol("hidden")), nullptr);
}

TEST(SerializedContent, OtherTypesDontSilentlyBecomeProperties) {
    EXPECT_TRUE(TakesProperty<bool>);
    EXPECT_TRUE(TakesProperty<int>);
    EXPECT_TRUE(TakesProperty<double>);
    EXPECT_TRUE(TakesProperty<Symbol>);
    EXPECT_TRUE(TakesProperty<dg::DPoint3D>);
    EXPECT_FALSE(TakesProperty<char const*>);
    EXPECT_FALSE(TakesProperty<float>);
    EXPECT_FALSE(TakesProperty<unsigned>);
    enum Kind { KIND };
    EXPECT_FALSE(TakesProperty<Kind>);
}

TEST(SerializedContent, DeepContentNeedsNoStack) {
    auto root = std::make_unique<SerializedContentElement>(Symbol("root"));
    constexpr int DEPTH = 300000;
    SerializedContentElement* at = root.get();
    for (int i = 0; i < DEPTH; ++i)
        at = at->StartContent(Symbol("e"));
    struct Count : zvk::SerializedContentVisitor {
        void EndElement(Symbol const&) override { ++ends; }
        int ends = 0;
    } count;
    root->Visit(count, true);
    EXPECT_EQ(count.ends, DEPTH);
    root.reset();
}

}  // namespace
