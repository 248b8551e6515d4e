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
#include <zvk/ReadWriteLock.h>

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
    du::Symbol const& GetId() const override { return recordId; }
    std::string const& GetName() const override { return EmptyName(); }
    figk::ConstSmartPtr<figk::SettingList> GetSettingList() const override {
        return recordSettings;
    }

    void SetId(du::Symbol const& symbol) { recordId = symbol; }
    void SetSettings(SettingsPtr const& list) { recordSettings = list; }

protected:
    template <class... Args>
    explicit Record(Args&&... args) : Base(std::forward<Args>(args)...) {}

private:
    du::Symbol recordId;
    SettingsPtr recordSettings;
};

/// A record that a user knows by name, with attributes.
template <class Base>
class NamedRecord : public Record<Base> {
public:
    std::string const& GetName() const override { return recordName; }
    void GetAttributes(figk::AttributeSet& set) const override {
        CopyAttributes(recordAttributes, set);
    }

    void SetName(std::string text) { recordName = std::move(text); }
    void SetAttributes(AttributeVector list) { recordAttributes = std::move(list); }

protected:
    using Record<Base>::Record;

private:
    std::string recordName;
    AttributeVector recordAttributes;
};

/// A named record that stands on a sheet and may carry a group of labels.
template <class Base>
class SheetItemRecord : public NamedRecord<Base> {
public:
    figk::SmartPtr<figk::Design> GetDesign() const override { return sheetLink->GetDesign(); }
    figk::SmartPtr<figk::Group> GetTextLabelContainerGroup() const override { return recordLabels; }

    du::SmartPtr<SheetLink> const& GetLink() const { return sheetLink; }
    void SetLabels(du::SmartPtr<figk::Group> const& group) { recordLabels = group; }

protected:
    explicit SheetItemRecord(du::SmartPtr<SheetLink> const& sheet) : sheetLink(sheet) {}

private:
    du::SmartPtr<SheetLink> sheetLink;
    du::SmartPtr<figk::Group> recordLabels;
};

}  // namespace figkernel
