#include <figk/AbstractDelta.h>
#include <figk/AbstractDeltaGenerator.h>
#include <zvk/SerializedContentElement.h>

namespace figk {

AbstractDeltaReceiver::AbstractDeltaReceiver() = default;
AbstractDeltaReceiver::AbstractDeltaReceiver(AbstractDeltaReceiver const&) = default;
AbstractDeltaReceiver& AbstractDeltaReceiver::operator=(AbstractDeltaReceiver const&) = default;
AbstractDeltaReceiver::~AbstractDeltaReceiver() = default;

AbstractDelta::AbstractDelta(Action const& action) : action_(action) {}
AbstractDelta::AbstractDelta(AbstractDelta const& other)
    : du::RefCounted(other), action_(other.action_), status_(other.status_) {}
AbstractDelta::~AbstractDelta() = default;

void AbstractDelta::Refresh() {}

bool AbstractDelta::_SerializeCheck() const {
    return true;
}

bool AbstractDelta::Apply(AbstractDeltaReceiver& receiver) {
    if (!_Verify(receiver)) return false;
    _Apply(receiver);
    return true;
}

void AbstractDelta::Serialize(zvk::SerializedContentElement* element) {
    if (element && _SerializeCheck()) _Serialize(element);
}

void AbstractDelta::Reset() {
    status_ = STATUS_OK;
}

void AbstractDelta::SerializeBase(zvk::SerializedContentElement* element) {
    if (element) element->AddProperty(s_delta_action, static_cast<int>(action_));
}

void AbstractDelta::SetStatus(Status status) {
    status_ = status;
}

Symbol const AbstractDelta::s_delta_type("type");
Symbol const AbstractDelta::s_delta_id("id");
Symbol const AbstractDelta::s_delta_sheet("sheet");
Symbol const AbstractDelta::s_delta_design_id("design_id");
Symbol const AbstractDelta::s_delta_sub_net_id("sub_net_id");
Symbol const AbstractDelta::s_delta_setting_level("level");
Symbol const AbstractDelta::s_setting_type("setting_type");
Symbol const AbstractDelta::s_setting_value("setting_value");
Symbol const AbstractDelta::s_delta_transform("transform");
Symbol const AbstractDelta::s_delta_transform_type("transform_type");
Symbol const AbstractDelta::s_delta_offset("offset");
Symbol const AbstractDelta::s_delta_about("about");
Symbol const AbstractDelta::s_delta_rotate("rotate");
Symbol const AbstractDelta::s_delta_angle_in_radians("angle_in_radians");
Symbol const AbstractDelta::s_delta_scale("scale");
Symbol const AbstractDelta::s_delta_scale_factor("scale_factor");
Symbol const AbstractDelta::s_delta_mirror("mirror");
Symbol const AbstractDelta::s_delta_mirror_in_x_not_y("mirror_in_x_not_y");
Symbol const AbstractDelta::s_delta_id_list_entry("id_list_entry");
Symbol const AbstractDelta::s_delta_start_pos("start_pos");
Symbol const AbstractDelta::s_delta_end_pos("end_pos");
Symbol const AbstractDelta::s_delta_static_pos("static_pos");
Symbol const AbstractDelta::s_delta_predecessor_not_successor("predecessor_not_successor");
Symbol const AbstractDelta::s_delta_broken_connection("broken_connection");
Symbol const AbstractDelta::s_delta_head_vertex("head_vertex");
Symbol const AbstractDelta::s_delta_label("label");
Symbol const AbstractDelta::s_delta_original("original");
Symbol const AbstractDelta::s_delta_text("text");
Symbol const AbstractDelta::s_delta_text_section("text_section");
Symbol const AbstractDelta::s_delta_text_segment("text_segment");
Symbol const AbstractDelta::s_delta_text_type("text_type");
Symbol const AbstractDelta::s_delta_text_value("text_value");
Symbol const AbstractDelta::s_delta_attributes("attributes");
Symbol const AbstractDelta::s_delta_attribute("attribute");
Symbol const AbstractDelta::s_delta_attr_name("attr_name");
Symbol const AbstractDelta::s_delta_attr_value("attr_value");
Symbol const AbstractDelta::s_delta_action("action");

AbstractDeltaGenerator::AbstractDeltaGenerator() = default;
AbstractDeltaGenerator::AbstractDeltaGenerator(AbstractDeltaGenerator const& other)
    : du::RefCounted(other), deltas(other.deltas) {}
AbstractDeltaGenerator& AbstractDeltaGenerator::operator=(AbstractDeltaGenerator const&) = default;
AbstractDeltaGenerator::~AbstractDeltaGenerator() = default;

void AbstractDeltaGenerator::GetDeltas(std::vector<SmartPtr<AbstractDelta>>& out) {
    out.insert(out.end(), deltas.begin(), deltas.end());
}

}  // namespace figk
