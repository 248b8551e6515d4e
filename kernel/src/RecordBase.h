// What all records of the embedded kernel share.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include <figk/Attribute.h>
#include <figk/Design.h>
#include <figk/Fwd.h>
#include <figk/SettingList.h>
#include <figk/Sheet.h>

#include "Links.h"

namespace figkernel {

using AttributeVector = std::vector<du::SmartPtr<figk::Attribute>>;
using SettingsPtr = du::ConstSmartPtr<figk::SettingList>;

std::string const& EmptyName();
void CopyAttributes(AttributeVector const& from, figk::AttributeSet& to);

/// A record with an id and shared settings; lean, since every segment and every shape is one.
template <class Base>
class Record : public Base {
public:
    du::Symbol const& GetId() const override { return id; }
    std::string const& GetName() const override { return EmptyName(); }
    figk::ConstSmartPtr<figk::SettingList> GetSettingList() const override { return settings; }

    void SetId(du::Symbol const& symbol) { id = symbol; }
    void SetSettings(SettingsPtr const& list) { settings = list; }

protected:
    template <class... Args>
    explicit Record(Args&&... args) : Base(std::forward<Args>(args)...) {}

private:
    du::Symbol id;
    SettingsPtr settings;
};

/// A record that a user knows by name, with attributes.
template <class Base>
class NamedRecord : public Record<Base> {
public:
    std::string const& GetName() const override { return name; }
    void GetAttributes(figk::AttributeSet& set) const override { CopyAttributes(attributes, set); }

    void SetName(std::string text) { name = std::move(text); }
    void SetAttributes(AttributeVector list) { attributes = std::move(list); }

protected:
    using Record<Base>::Record;

private:
    std::string name;
    AttributeVector attributes;
};

/// A named record that stands on a sheet and may carry a group of labels.
template <class Base>
class SheetItemRecord : public NamedRecord<Base> {
public:
    figk::SmartPtr<figk::Design> GetDesign() const override { return link->GetDesign(); }
    figk::SmartPtr<figk::Group> GetTextLabelContainerGroup() const override { return labels; }

    du::SmartPtr<SheetLink> const& GetLink() const { return link; }
    void SetLabels(du::SmartPtr<figk::Group> const& group) { labels = group; }

protected:
    explicit SheetItemRecord(du::SmartPtr<SheetLink> const& sheet) : link(sheet) {}

private:
    du::SmartPtr<SheetLink> link;
    du::SmartPtr<figk::Group> labels;
};

}  // namespace figkernel
