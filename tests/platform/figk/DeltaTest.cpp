// The frame of recorded changes.
#include <figk/AbstractDelta.h>
#include <figk/AbstractDeltaGenerator.h>
#include <gtest/gtest.h>
#include <zvk/SerializedContentElement.h>

namespace figktest {
namespace {

using figk::AbstractDelta;

class Receiver : public figk::AbstractDeltaReceiver {};

class Delta : public AbstractDelta {
public:
    explicit Delta(bool fits) : AbstractDelta(ACTION_CHANGE), fits_(fits) {}

    void _Apply(figk::AbstractDeltaReceiver&) override { ++applied; }
    bool _Verify(figk::AbstractDeltaReceiver&) override {
        if (!fits_) SetStatus(STATUS_TARGET_MISSING);
        return fits_;
    }
    void _Serialize(zvk::SerializedContentElement* element) override { SerializeBase(element); }
    bool _SerializeCheck() const override { return worthWriting; }

    int applied = 0;
    bool worthWriting = true;

private:
    bool fits_;
};

using DeltaPtr = du::SmartPtr<Delta>;

TEST(AbstractDelta, AppliesOnlyWhatVerifies) {
    Receiver receiver;
    DeltaPtr const good(new Delta(true));
    DeltaPtr const bad(new Delta(false));
    EXPECT_TRUE(good->Apply(receiver));
    EXPECT_EQ(good->applied, 1);
    EXPECT_FALSE(bad->Apply(receiver));
    EXPECT_EQ(bad->applied, 0);
    EXPECT_EQ(bad->GetStatus(), AbstractDelta::STATUS_TARGET_MISSING);
}

TEST(AbstractDelta, ResetPutsTheStatusBack) {
    Receiver receiver;
    DeltaPtr const bad(new Delta(false));
    bad->Apply(receiver);
    bad->Reset();
    EXPECT_EQ(bad->GetStatus(), AbstractDelta::STATUS_OK);
}

TEST(AbstractDelta, ACopyHasActionAndStatus) {
    Receiver receiver;
    DeltaPtr const bad(new Delta(false));
    bad->Apply(receiver);
    DeltaPtr const copy(new Delta(*bad));
    EXPECT_EQ(copy->GetAction(), AbstractDelta::ACTION_CHANGE);
    EXPECT_EQ(copy->GetStatus(), AbstractDelta::STATUS_TARGET_MISSING);
}

TEST(AbstractDelta, TheBaseWritesItsActionAsANumber) {
    zvk::SerializedContentElement element{du::Symbol("component")};
    DeltaPtr(new Delta(true))->Serialize(&element);
    auto const* action = element.FindProperty(du::Symbol("action"));
    ASSERT_TRUE(action);
    EXPECT_EQ(std::get<int>(*action), 3);
}

TEST(AbstractDelta, NothingIsWrittenWhenThereIsNothingToWrite) {
    zvk::SerializedContentElement element{du::Symbol("component")};
    DeltaPtr const delta(new Delta(true));
    delta->worthWriting = false;
    delta->Serialize(&element);
    EXPECT_TRUE(element.IsEmpty());
    delta->worthWriting = true;
    delta->Serialize(nullptr);
}

TEST(AbstractDelta, KeysHaveTheirAgreedTexts) {
    EXPECT_EQ(AbstractDelta::s_delta_setting_level.GetString(), "level");
    EXPECT_EQ(AbstractDelta::s_delta_id_list_entry.GetString(), "id_list_entry");
    EXPECT_EQ(AbstractDelta::s_setting_value.GetString(), "setting_value");
    EXPECT_EQ(AbstractDelta::s_delta_predecessor_not_successor.GetString(),
              "predecessor_not_successor");
}

TEST(AbstractDeltaGenerator, AppendsWhatItGenerated) {
    class Generator : public figk::AbstractDeltaGenerator {
    public:
        void Generate() override { deltas.push_back(DeltaPtr(new Delta(true))); }
    };
    du::SmartPtr<Generator> const generator(new Generator());
    generator->Generate();
    std::vector<du::SmartPtr<AbstractDelta>> deltas{DeltaPtr(new Delta(true))};
    generator->GetDeltas(deltas);
    EXPECT_EQ(deltas.size(), 2u);
    generator->Generate();
    generator->GetDeltas(deltas);
    EXPECT_EQ(deltas.size(), 4u);
}

}  // namespace
}  // namespace figktest
