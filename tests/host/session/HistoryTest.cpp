#include <session/History.h>

#include <du/Localizer.h>
#include <figrep/Figure.h>
#include <gtest/gtest.h>
#include <host/session/ExampleSession.h>
#include <support/LiveObjects.h>
#include <zvk/Operation.h>
#include <zvk/OperationStep.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace fighost {
namespace {

using du::SmartPtr;

// Writes what happens to it into a diary.
class DiaryStep : public zvk::OperationStep {
public:
    DiaryStep(std::string name, std::string* diary) : name_(std::move(name)), diary_(diary) {}
    void Undo() override { *diary_ += "-" + name_; }
    void Redo() override { *diary_ += "+" + name_; }

private:
    std::string name_;
    std::string* diary_;
};

class FinalStep : public DiaryStep {
public:
    using DiaryStep::DiaryStep;
    bool HasUndo() const override { return false; }
};

class UnrecordableStep : public DiaryStep {
public:
    using DiaryStep::DiaryStep;
    bool Recordable() const override { return false; }
};

// Does something else in the middle of a replay.
class MeddlingStep : public zvk::OperationStep {
public:
    explicit MeddlingStep(std::function<void()> meddle) : meddle_(std::move(meddle)) {}
    void Undo() override { meddle_(); }
    void Redo() override { meddle_(); }

private:
    std::function<void()> meddle_;
};

class HistoryTest : public testing::Test {
protected:
    template <class Step = DiaryStep>
    void Record(History& recorder, std::string const& name) {
        SmartPtr<zvk::Operation> const operation(
            new zvk::Operation(du::Symbol(name), recorder.GetScene(), true));
        operation->AddStep(new Step(name, &diary));
        zvk::RecordOperation(operation);
    }

    std::string diary;
    History history;
};

using Names = std::vector<std::string>;

TEST_F(HistoryTest, BeginsWithNothingToUndoOrRedo) {
    EXPECT_FALSE(history.CanUndo());
    EXPECT_FALSE(history.CanRedo());
    EXPECT_FALSE(history.Undo());
    EXPECT_FALSE(history.Redo());
    EXPECT_EQ(history.GetUndoName(), "");
    EXPECT_EQ(history.GetRedoName(), "");
}

TEST_F(HistoryTest, UndoesTheLastAndRedoesWhatWasUndoneLast) {
    Record(history, "a");
    Record(history, "b");
    EXPECT_EQ(history.GetUndoNames(), (Names{"b", "a"}));
    EXPECT_TRUE(history.Undo());
    EXPECT_TRUE(history.Undo());
    EXPECT_FALSE(history.Undo());
    EXPECT_EQ(history.GetRedoNames(), (Names{"a", "b"}));
    EXPECT_TRUE(history.Redo());
    EXPECT_EQ(history.GetUndoName(), "a");
    EXPECT_EQ(history.GetRedoName(), "b");
    EXPECT_TRUE(history.Redo());
    EXPECT_FALSE(history.Redo());
    EXPECT_EQ(diary, "-b-a+a+b");
}

TEST_F(HistoryTest, RecordingForgetsWhatCouldBeRedone) {
    Record(history, "a");
    Record(history, "b");
    history.Undo();
    Record(history, "c");
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(history.GetUndoNames(), (Names{"c", "a"}));
}

TEST_F(HistoryTest, WhatCantBeUndoneIsNotKeptButEndsRedo) {
    Record(history, "a");
    Record(history, "b");
    history.Undo();
    Record<FinalStep>(history, "final");
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(history.GetUndoNames(), (Names{"a"}));
}

TEST_F(HistoryTest, AnOperationWithoutStepsIsNoChange) {
    Record(history, "a");
    history.Undo();
    zvk::RecordOperation(history.NewOperation(operation_key::HIDE));
    zvk::RecordOperation(nullptr);
    EXPECT_FALSE(history.CanUndo());
    EXPECT_TRUE(history.CanRedo());
}

TEST_F(HistoryTest, StepsThatArentWorthStoringCanBeUndone) {
    Record<UnrecordableStep>(history, "a");
    EXPECT_TRUE(history.Undo());
    EXPECT_EQ(diary, "-a");
}

TEST_F(HistoryTest, OperationsGoToTheHistoryOfTheirScene) {
    History other;
    Record(history, "here");
    Record(other, "there");
    SmartPtr<zvk::Operation> const nobodys(new zvk::Operation(du::Symbol("x"), nullptr, true));
    nobodys->AddStep(new DiaryStep("x", &diary));
    zvk::RecordOperation(nobodys);
    EXPECT_EQ(history.GetUndoNames(), (Names{"here"}));
    EXPECT_EQ(other.GetUndoNames(), (Names{"there"}));
}

TEST_F(HistoryTest, ClosingOneDesignLeavesTheHistoryOfTheOthers) {
    SmartPtr<zvk::Scene> closed;
    {
        History other;
        closed = other.GetScene();
    }
    SmartPtr<zvk::Operation> const late(new zvk::Operation(du::Symbol("late"), closed, true));
    late->AddStep(new DiaryStep("late", &diary));
    zvk::RecordOperation(late);
    Record(history, "a");
    EXPECT_EQ(history.GetUndoNames(), (Names{"a"}));
}

TEST_F(HistoryTest, WhatIsRecordedDuringAReplayIsPartOfIt) {
    SmartPtr<zvk::Operation> const operation = history.NewOperation(operation_key::MOVE);
    operation->AddStep(new MeddlingStep([&] {
        Record(history, "nested");
        EXPECT_FALSE(history.Undo());
        EXPECT_FALSE(history.Redo());
    }));
    zvk::RecordOperation(operation);
    EXPECT_TRUE(history.Undo());
    EXPECT_EQ(history.CountUndo(), 0u);
    EXPECT_EQ(history.CountRedo(), 1u);
    EXPECT_TRUE(history.Redo());
    EXPECT_EQ(history.CountUndo(), 1u);
    EXPECT_EQ(history.CountRedo(), 0u);
}

TEST_F(HistoryTest, TellsWhetherContentChanged) {
    EXPECT_FALSE(history.ChangesContent());
    Record(history, "a");
    EXPECT_TRUE(history.ChangesContent());
    history.Undo();
    EXPECT_FALSE(history.ChangesContent());
}

TEST_F(HistoryTest, ClearForgetsBothStacks) {
    Record(history, "a");
    Record(history, "b");
    history.Undo();
    history.Clear();
    EXPECT_FALSE(history.CanUndo());
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(diary, "-b") << "what was done stays done";
}

TEST_F(HistoryTest, OperationsAreNamedInTheUsersLanguage) {
    du::Localizer::ClearCatalogues();
    EXPECT_EQ(history.NewOperation(operation_key::HIDE)->GetName().GetString(), "UndoRedoHide");
    InstallOperationNames();
    EXPECT_EQ(history.NewOperation(operation_key::HIDE)->GetName().GetString(), "Hide");
    EXPECT_EQ(du::Localizer::Find("zvecad:depecadStrings", "UndoRedoFitContent").GetString(),
              "Fit Content");
    du::Localizer::SetCatalogue(
        OPERATION_CATALOGUE, {{"UndoRedoHide", "Ausblenden"}, {"UndoRedoFitContent", "Einpassen"}});
    InstallOperationNames();
    EXPECT_EQ(history.NewOperation(operation_key::HIDE)->GetName().GetString(), "Ausblenden")
        << "a translation stays";
    du::Localizer::ClearCatalogues();
}

TEST(History, OperationsThatHoldFiguresGoWithTheSession) {
    EXPECT_EQ(figrep::test::ObjectsLeftBy([] {
                  std::string diary;
                  auto const session = test::OpenExample();
                  ASSERT_TRUE(session);
                  class Holder : public DiaryStep {
                  public:
                      Holder(SmartPtr<figrep::Figure> const& held, std::string* diary)
                          : DiaryStep("hold", diary), figure(held) {}
                      SmartPtr<figrep::Figure> figure;
                  };
                  auto& history = session->GetHistory();
                  for (SessionSheet const& sheet : session->GetSheets()) {
                      auto const operation = history.NewOperation(operation_key::HIDE);
                      operation->AddStep(new Holder(sheet.figure, &diary));
                      zvk::RecordOperation(operation);
                  }
                  history.Undo();
                  EXPECT_EQ(history.CountUndo() + history.CountRedo(), session->GetSheets().size());
                  EXPECT_EQ(history.GetRedoName(), "Hide");
              }),
              0);
}

}  // namespace
}  // namespace fighost
