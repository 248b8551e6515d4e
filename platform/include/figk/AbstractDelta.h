// A recorded change: it can verify that its targets still exist, apply itself and write itself.
#pragma once

#include <du/RefCounted.h>
#include <figk/AbstractDeltaReceiver.h>
#include <figk/Fwd.h>

namespace figk {

/// The frame of every delta; derived classes fill in the underscored steps.
class AbstractDelta : public virtual du::RefCounted {
public:
    /// What the delta does, as far as one number can tell. Saved as a number; what it means beyond
    /// the usual reading given by the name is each delta's own.
    enum Action : int { ACTION_COPY = 0, ACTION_CREATE = 1, ACTION_DELETE = 2, ACTION_CHANGE = 3 };
    enum Status : int { STATUS_OK = 0, STATUS_TARGET_MISSING = 1, STATUS_REFRESHED = 4 };

    /// A copy has the action and the status of its source.
    AbstractDelta(AbstractDelta const& other);
    ~AbstractDelta() override;

    /// Called for a delta whose receiver has changed since it was applied. The base does nothing.
    virtual void Refresh();

protected:
    virtual void _Apply(AbstractDeltaReceiver& receiver) = 0;
    /// Whether the delta fits the receiver. Finds the targets of a delta made from ids.
    virtual bool _Verify(AbstractDeltaReceiver& receiver) = 0;
    /// `element` is never null.
    virtual void _Serialize(zvk::SerializedContentElement* element) = 0;
    /// Whether there is anything to write; true by default.
    virtual bool _SerializeCheck() const;

public:
    /// Verifies and, when that succeeds, applies. Answers whether it did.
    bool Apply(AbstractDeltaReceiver& receiver);
    /// Writes the delta, unless its check says that there is nothing to write. Null does nothing.
    void Serialize(zvk::SerializedContentElement* element);

    Action GetAction() const { return action_; }
    Status GetStatus() const { return status_; }
    /// Puts the status back to `STATUS_OK`.
    void Reset();

    // Keys of the saved form, shared by those who write and those who load.
    static Symbol const s_delta_type;
    static Symbol const s_delta_id;
    static Symbol const s_delta_sheet;
    static Symbol const s_delta_design_id;
    static Symbol const s_delta_sub_net_id;
    static Symbol const s_delta_setting_level;
    static Symbol const s_setting_type;
    static Symbol const s_setting_value;
    static Symbol const s_delta_transform;
    static Symbol const s_delta_transform_type;
    static Symbol const s_delta_offset;
    static Symbol const s_delta_about;
    static Symbol const s_delta_rotate;
    static Symbol const s_delta_angle_in_radians;
    static Symbol const s_delta_scale;
    static Symbol const s_delta_scale_factor;
    static Symbol const s_delta_mirror;
    static Symbol const s_delta_mirror_in_x_not_y;
    static Symbol const s_delta_id_list_entry;
    static Symbol const s_delta_start_pos;
    static Symbol const s_delta_end_pos;
    static Symbol const s_delta_static_pos;
    static Symbol const s_delta_predecessor_not_successor;
    static Symbol const s_delta_broken_connection;
    static Symbol const s_delta_head_vertex;
    static Symbol const s_delta_label;
    static Symbol const s_delta_original;
    static Symbol const s_delta_text;
    static Symbol const s_delta_text_section;
    static Symbol const s_delta_text_segment;
    static Symbol const s_delta_text_type;
    static Symbol const s_delta_text_value;
    static Symbol const s_delta_attributes;
    static Symbol const s_delta_attribute;
    static Symbol const s_delta_attr_name;
    static Symbol const s_delta_attr_value;
    /// The action, written by `SerializeBase` as an int.
    static Symbol const s_delta_action;

protected:
    explicit AbstractDelta(Action const& action);

    /// Writes what the base holds; every `_Serialize` calls it first. Null does nothing.
    void SerializeBase(zvk::SerializedContentElement* element);
    void SetStatus(Status status);

private:
    Action action_;
    Status status_ = STATUS_OK;
};

}  // namespace figk
