#include <persistence/DeltaTypes.h>

#include <utility>
#include <vector>

#include <figk/Attribute.h>
#include <figk/SchematicKernel.h>
#include <figk/SubNet.h>
#include <figrep/BrokenConnectionRecord.h>
#include <figrep/DeltaVertexNode.h>
#include <figrep/Figure.h>
#include <figrep/FigureConnectionsDelta.h>
#include <figrep/FigureItemDeleteDelta.h>
#include <figrep/FigureItemSettingDelta.h>
#include <figrep/FigureMoveDelta.h>
#include <figrep/FigureSettingDelta.h>
#include <figrep/FigureSheetDelta.h>
#include <figrep/FigureSubNetDelta.h>
#include <figrep/ItemAttrInfo.h>
#include <figrep/MirrorAction.h>
#include <figrep/PublishTitleBlockDelta.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>
#include <figrep/SubNet.h>
#include <figrep/TitleBlockTextSection.h>
#include <persistence/ContentFields.h>

namespace fighost {

namespace {

using figrep::SmartPtr;
using figrep::Symbol;
using zvk::SerializedContentElement;
using Delta = figk::AbstractDelta;
using DeltaPtr = SmartPtr<figk::AbstractDelta>;
using FigurePtr = SmartPtr<figrep::Figure>;

Delta::Action ActionOf(ContentFields& fields) {
    return static_cast<Delta::Action>(fields.Whole(Delta::s_delta_action));
}

// Each of these makes one type. What it makes from an element with a problem is dropped unseen.

DeltaPtr MakeSheetDelta(ContentFields& fields, FigurePtr const&) {
    Symbol const design = fields.Text(Delta::s_delta_design_id);
    Symbol const sheet = fields.Text(Delta::s_delta_sheet);
    return new figrep::FigureSheetDelta(design, sheet, ActionOf(fields));
}

// The saved list doesn't tell branches: what is drawn is a chain from its first position on.
SmartPtr<figrep::DeltaVertexNode> MakeVertices(std::vector<dg::DPoint2D> const& points) {
    SmartPtr<figrep::DeltaVertexNode> head;
    SmartPtr<figrep::DeltaVertexNode> last;
    for (auto const& point : points) {
        last = new figrep::DeltaVertexNode(figk::SchematicKernel::GetKernelLock(), point, last);
        if (!head) head = last;
    }
    return head;
}

SmartPtr<figrep::ItemAttrInfo> MakeAttributes(ContentFields& fields) {
    SmartPtr<figrep::ItemAttrInfo> info;
    fields.Children(Delta::s_delta_attributes, [&](ContentFields& attributes) {
        info = new figrep::ItemAttrInfo();
        info->label = attributes.Text(Delta::s_delta_label);
        attributes.Children(Delta::s_delta_attribute, [&](ContentFields& attribute) {
            Symbol const name = attribute.Text(Delta::s_delta_attr_name);
            Symbol const value = attribute.Text(Delta::s_delta_attr_value);
            info->attributes.push_back(new figk::Attribute(name, value));
        });
    });
    return info;
}

DeltaPtr MakeSubNetDelta(ContentFields& fields, FigurePtr const&) {
    Symbol const design = fields.Text(Delta::s_delta_design_id);
    Symbol const sheet = fields.Text(Delta::s_delta_sheet);
    Symbol const subNet = fields.Text(Delta::s_delta_id);
    auto const vertices = MakeVertices(fields.Points(Delta::s_delta_head_vertex));
    auto const attributes = MakeAttributes(fields);
    return new figrep::FigureSubNetDelta(design, sheet, subNet, vertices, attributes,
                                         ActionOf(fields));
}

SmartPtr<figrep::TransformAction> MakeTransform(ContentFields& fields) {
    Symbol const type = fields.Text(Delta::s_delta_transform_type);
    dg::DPoint2D const about = fields.Point(Delta::s_delta_about);
    if (type == Delta::s_delta_mirror) {
        return new figrep::MirrorAction(about, fields.Flag(Delta::s_delta_mirror_in_x_not_y));
    }
    if (type == Delta::s_delta_rotate) {
        return new figrep::RotateAction(about, fields.Real(Delta::s_delta_angle_in_radians));
    }
    if (type == Delta::s_delta_scale) {
        return new figrep::ScaleAction(about, fields.Real(Delta::s_delta_scale_factor));
    }
    fields.Complain("it holds the unknown transform '" + type.GetString() + "'");
    return {};
}

DeltaPtr MakeMoveDelta(ContentFields& fields, FigurePtr const&) {
    figrep::FigureMoveDelta::Transforms transforms;
    fields.Children(Delta::s_delta_transform, [&](ContentFields& transform) {
        transforms.push_back(MakeTransform(transform));
    });
    auto const ids = fields.Texts(Delta::s_delta_id_list_entry);
    return new figrep::FigureMoveDelta(ids, transforms, fields.Point(Delta::s_delta_offset));
}

Symbol SettingTypeOf(ContentFields& fields) {
    Symbol const type = fields.Text(Delta::s_setting_type);
    if (figrep::Setting::SymbolToRepKey(type) == figrep::Setting::UNKNOWN_REP_KEY) {
        fields.Complain("it holds the unknown setting '" + type.GetString() + "'");
    }
    return type;
}

DeltaPtr MakeSettingDelta(ContentFields& fields, FigurePtr const&) {
    auto const ids = fields.Texts(Delta::s_delta_id_list_entry);
    Symbol const type = SettingTypeOf(fields);
    bool const value = fields.Flag(Delta::s_setting_value);
    int const level = fields.Whole(Delta::s_delta_setting_level);
    if (level < figk::Setting::LEVEL_DEFAULT || level > figk::Setting::LEVEL_FIGURE) {
        fields.Complain("it has the unknown level " + std::to_string(level));
    }
    return new figrep::FigureSettingDelta(ids, type, value,
                                          static_cast<figk::Setting::Level>(level));
}

DeltaPtr MakeItemSettingDelta(ContentFields& fields, FigurePtr const&) {
    Symbol const id = fields.Text(Delta::s_delta_id);
    Symbol const type = SettingTypeOf(fields);
    return new figrep::FigureItemSettingDelta(id, type, fields.Flag(Delta::s_setting_value));
}

DeltaPtr MakeConnectionsDelta(ContentFields& fields, FigurePtr const&) {
    figrep::FigureConnectionsDelta::Records records;
    fields.Children(Delta::s_delta_broken_connection, [&](ContentFields& record) {
        Symbol const subNet = record.Text(Delta::s_delta_sub_net_id);
        auto const stays = record.Point(Delta::s_delta_static_pos);
        auto const start = record.Point(Delta::s_delta_start_pos);
        auto const end = record.Point(Delta::s_delta_end_pos);
        bool const upper = record.Flag(Delta::s_delta_predecessor_not_successor);
        records.push_back(new figrep::BrokenConnectionRecord(subNet, stays, start, end, upper));
    });
    return new figrep::FigureConnectionsDelta(records, ActionOf(fields));
}

DeltaPtr MakePublishDelta(ContentFields& fields, FigurePtr const&) {
    figrep::PublishTitleBlockDelta::Sections sections;
    fields.Children(Delta::s_delta_text_section, [&](ContentFields& section) {
        std::vector<figrep::TitleBlockTextSection::TextSegment> text;
        section.Children(Delta::s_delta_text_segment, [&](ContentFields& segment) {
            text.push_back({segment.Whole(Delta::s_delta_text_type),
                            segment.Text(Delta::s_delta_text).GetString(),
                            segment.Flag(Delta::s_delta_original),
                            segment.Text(Delta::s_delta_text_value).GetString()});
        });
        auto const number = static_cast<unsigned>(sections.size());
        sections.push_back(new figrep::TitleBlockTextSection(number, text));
    });
    return new figrep::PublishTitleBlockDelta(sections);
}

DeltaPtr MakeDeleteDelta(ContentFields& fields, FigurePtr const& figure) {
    return new figrep::FigureItemDeleteDelta(figure, fields.Text(Delta::s_delta_id));
}

using Make = DeltaPtr (*)(ContentFields& fields, FigurePtr const& figure);

LoadedDelta MakeChecked(SerializedContentElement const& element, FigurePtr const& figure,
                        Make make) {
    ContentFields fields(element);
    LoadedDelta loaded;
    loaded.delta = make(fields, figure);
    loaded.problem = fields.GetProblem();
    if (!loaded.problem.empty()) loaded.delta.Reset();
    return loaded;
}

DeltaTypes::Maker Checked(Make make) {
    return [make](SerializedContentElement const& element, FigurePtr const& figure) {
        return MakeChecked(element, figure, make);
    };
}

}  // namespace

DeltaTypes::DeltaTypes() {
    Add(figrep::FigureSheetDelta::GetClassTypeValue(), Checked(MakeSheetDelta));
    Add(figrep::FigureSubNetDelta::GetClassTypeValue(), Checked(MakeSubNetDelta));
    Add(figrep::FigureMoveDelta::GetClassTypeValue(), Checked(MakeMoveDelta));
    Add(figrep::FigureSettingDelta::GetClassTypeValue(), Checked(MakeSettingDelta));
    Add(figrep::FigureItemSettingDelta::GetClassTypeValue(), Checked(MakeItemSettingDelta));
    Add(figrep::FigureConnectionsDelta::GetClassTypeValue(), Checked(MakeConnectionsDelta));
    Add(figrep::PublishTitleBlockDelta::GetClassTypeValue(), Checked(MakePublishDelta));
}

void DeltaTypes::Add(Symbol const& type, Maker maker) {
    makers_[type] = std::move(maker);
}

LoadedDelta DeltaTypes::Load(SerializedContentElement const& element,
                             FigurePtr const& figure) const {
    if (IsDeletion(element)) return MakeChecked(element, figure, MakeDeleteDelta);
    Symbol const type = TypeOf(element);
    auto const maker = makers_.find(type);
    if (maker != makers_.end()) return maker->second(element, figure);
    LoadedDelta unknown;
    unknown.problem =
        type.IsEmpty() ? "it says nothing of its type" : "its type is '" + type.GetString() + "'";
    return unknown;
}

bool IsDeletion(SerializedContentElement const& element) {
    ContentFields fields(element);
    return fields.Has(Delta::s_delta_id) && !fields.Has(Delta::s_delta_type) &&
           fields.Whole(Delta::s_delta_action) == Delta::ACTION_DELETE;
}

Symbol TypeOf(SerializedContentElement const& element) {
    ContentFields fields(element);
    return fields.Has(Delta::s_delta_type) ? fields.Text(Delta::s_delta_type) : Symbol::EMPTY;
}

}  // namespace fighost
