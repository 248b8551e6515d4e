#include <figrep/FigureMoveDelta.h>

#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <figrep/MirrorAction.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>
#include <zvk/SerializedContentElement.h>

namespace figrep {

Symbol const FigureMoveDelta::s_delta_type_value("move_delta");

FigureMoveDelta::FigureMoveDelta(Items const& items, Transforms const& transforms,
                                 DPoint2D const& offset, bool moveBeforeTransforms)
    : AbstractFigureDelta(ACTION_CHANGE, false),
      items_(items),
      transforms_(transforms),
      offset_(offset),
      moveBeforeTransforms_(moveBeforeTransforms) {}

FigureMoveDelta::FigureMoveDelta(std::vector<Symbol> const& ids, Transforms const& transforms,
                                 DPoint2D const& offset)
    : AbstractFigureDelta(ACTION_CHANGE, false),
      ids_(ids),
      transforms_(transforms),
      offset_(offset),
      moveBeforeTransforms_(false) {}

FigureMoveDelta::~FigureMoveDelta() = default;

Symbol FigureMoveDelta::GetClassTypeValue() {
    return s_delta_type_value;
}

bool FigureMoveDelta::_Verify(figk::AbstractDeltaReceiver& receiver) {
    SmartPtr<Figure> const figure = dynamic_cast<Figure*>(&receiver);
    if (!figure) return false;
    if (!items_.empty()) return true;
    for (auto const& id : ids_) {
        auto const item = figure->Find(id);
        if (!item) {
            items_.clear();
            return false;
        }
        items_.push_back(item);
    }
    return true;
}

void FigureMoveDelta::_Apply(figk::AbstractDeltaReceiver& receiver) {
    auto* const target = dynamic_cast<FigureDeltaReceiverInterface*>(&receiver);
    if (!target) return;
    for (auto const& item : items_)
        ApplyTransforms(*target, item);
    if (auto* const figure = dynamic_cast<Figure*>(target)) figure->SetExtents(DBox2D::EMPTY);
}

// A forward move ends with the offset, so its inverse begins with it.
void FigureMoveDelta::ApplyTransforms(FigureDeltaReceiverInterface& receiver,
                                      SmartPtr<AbstractFigureItem> const& item) const {
    if (moveBeforeTransforms_) receiver.MoveItem(item, offset_.x, offset_.y);
    for (auto const& transform : transforms_) {
        if (auto const mirror = du::DynamicCast<MirrorAction>(transform)) {
            receiver.MirrorItem(item, mirror->GetAbout(), mirror->GetMirrorInXNotY());
        } else if (auto const rotation = du::DynamicCast<RotateAction>(transform)) {
            receiver.RotateItem(item, rotation->GetAbout(), rotation->GetAngleInRadians());
        } else if (auto const scaling = du::DynamicCast<ScaleAction>(transform)) {
            receiver.ScaleItem(item, scaling->GetAbout(), scaling->GetScale());
        }
    }
    if (!moveBeforeTransforms_) receiver.MoveItem(item, offset_.x, offset_.y);
}

void FigureMoveDelta::_Serialize(zvk::SerializedContentElement* element) {
    SerializeBase(element);
    AcquireFigureItemIds();
    element->AddProperty(s_delta_type, s_delta_type_value);
    element->AddProperty(s_delta_offset, dg::DPoint3D(offset_));
    for (auto const& id : ids_)
        element->AddProperty(s_delta_id_list_entry, id);
    SerializeTransforms(*element);
}

void FigureMoveDelta::AcquireFigureItemIds() {
    if (!ids_.empty()) return;
    for (auto const& item : items_) {
        if (item && !item->GetId().IsEmpty()) ids_.push_back(item->GetId());
    }
}

void FigureMoveDelta::SerializeTransforms(zvk::SerializedContentElement& element) const {
    for (auto const& transform : transforms_) {
        if (!transform) continue;
        auto* const child = element.StartContent(s_delta_transform);
        dg::DPoint3D const about(transform->GetAbout());
        if (auto const mirror = du::DynamicCast<MirrorAction>(transform)) {
            child->AddProperty(s_delta_transform_type, s_delta_mirror);
            child->AddProperty(s_delta_about, about);
            child->AddProperty(s_delta_mirror_in_x_not_y, mirror->GetMirrorInXNotY());
        } else if (auto const rotation = du::DynamicCast<RotateAction>(transform)) {
            child->AddProperty(s_delta_transform_type, s_delta_rotate);
            child->AddProperty(s_delta_about, about);
            child->AddProperty(s_delta_angle_in_radians, rotation->GetAngleInRadians());
        } else if (auto const scaling = du::DynamicCast<ScaleAction>(transform)) {
            child->AddProperty(s_delta_transform_type, s_delta_scale);
            child->AddProperty(s_delta_about, about);
            child->AddProperty(s_delta_scale_factor, scaling->GetScale());
        }
        element.EndContent();
    }
}

}  // namespace figrep
