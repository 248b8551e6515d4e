#include <figrep/AttributeList.h>
#include <figrep/ItemAttrInfo.h>

#include <gtest/gtest.h>

#include <utility>

namespace {

using du::Symbol;
using figk::Attribute;
using figrep::AttributeList;

class Holder : public AttributeList {
public:
    explicit Holder(Holder const* above = nullptr)
        : AttributeList(new zvk::ReadWriteLock), parent(above) {}
    virtual ~Holder() = default;

    void Add(char const* name, char const* value) {
        AddAttribute(new Attribute(Symbol(name), Symbol(value)));
    }
    void AddNull() { AddAttribute(nullptr); }

protected:
    du::SmartPtr<Attribute> GetInheritedAttribute(Symbol const& name) const override {
        return parent ? parent->GetAttribute(name, true) : nullptr;
    }

private:
    Holder const* parent;
};

TEST(AttributeList, ALowerCaseNameFindsAnUpperCaseAttribute) {
    Holder holder;
    holder.Add("VALUE", "10k");
    ASSERT_TRUE(holder.GetAttribute(Symbol("value"), false));
    EXPECT_EQ(holder.GetAttribute(Symbol("vAlUe"), false)->GetValue(), Symbol("10k"));
    EXPECT_FALSE(holder.GetAttribute(Symbol("valu"), false));
}

TEST(AttributeList, AParentsAttributeIsFoundOnlyWhenAskedFor) {
    Holder parent;
    parent.Add("Voltage", "5V");
    Holder const child(&parent);
    EXPECT_FALSE(child.GetAttribute(Symbol("Voltage"), false));
    EXPECT_TRUE(child.GetAttribute(Symbol("Voltage"), true));
}

TEST(AttributeList, InheritedAttributesArentCounted) {
    Holder parent;
    parent.Add("Voltage", "5V");
    Holder child(&parent);
    EXPECT_EQ(child.NumAttributes(), 0u);
    EXPECT_TRUE(child.Empty());
    child.Add("Current", "1A");
    EXPECT_EQ(child.NumAttributes(), 1u);
    EXPECT_FALSE(child.Empty());
}

TEST(AttributeList, CopiesCanBeChangedWithNoEffectOnTheList) {
    Holder holder;
    holder.Add("Value", "10k");
    figk::AttributeSet copies;
    holder.GetAttributeCopies(copies);
    ASSERT_EQ(copies.size(), 1u);
    (*copies.begin())->SetValue(Symbol("22k"));
    EXPECT_EQ(holder.GetAttribute(Symbol("Value"), false)->GetValue(), Symbol("10k"));
}

TEST(AttributeList, AllAttributesAreShared) {
    Holder holder;
    holder.Add("Value", "10k");
    figk::AttributeSet all;
    holder.GetAllAttributes(all);
    EXPECT_EQ(*all.begin(), holder.GetAttribute(Symbol("Value"), false));
}

TEST(AttributeList, WhatTheCallersSetHoldsAlreadyStays) {
    Holder holder;
    holder.Add("Value", "10k");
    du::SmartPtr<Attribute> const present(new Attribute(Symbol("VALUE"), Symbol("mine")));
    figk::AttributeSet all{present};
    holder.GetAllAttributes(all);
    holder.GetAttributeCopies(all);
    ASSERT_EQ(all.size(), 1u);
    EXPECT_EQ(*all.begin(), present);
}

TEST(AttributeList, TheFirstOfEqualNamesStays) {
    Holder holder;
    holder.Add("Value", "first");
    holder.Add("VALUE", "second");
    holder.AddNull();
    EXPECT_EQ(holder.NumAttributes(), 1u);
    EXPECT_EQ(holder.GetAttribute(Symbol("value"), false)->GetValue(), Symbol("first"));
}

TEST(AttributeList, AttributesComeInTheOrderOfTheirNames) {
    Holder holder;
    EXPECT_EQ(holder.BeginAttribute(), holder.EndAttribute());
    holder.Add("zeta", "1");
    holder.Add("Alpha", "2");
    EXPECT_EQ((*holder.BeginAttribute())->GetName(), Symbol("Alpha"));
    EXPECT_EQ(std::distance(holder.BeginAttribute(), holder.EndAttribute()), 2);
}

TEST(ItemAttrInfo, StartsEmptyAndCanBeCopied) {
    du::SmartPtr<figrep::ItemAttrInfo> const info(new figrep::ItemAttrInfo);
    EXPECT_TRUE(info->label.IsEmpty());
    EXPECT_TRUE(info->attributes.empty());
    info->label = Symbol("N1");
    info->attributes.emplace_back(new Attribute(Symbol("a"), Symbol("b")));
    figrep::ItemAttrInfo copy(*info);
    figrep::ItemAttrInfo const moved(std::move(copy));
    EXPECT_EQ(moved.label, Symbol("N1"));
    EXPECT_EQ(moved.attributes, info->attributes);
}

}  // namespace
