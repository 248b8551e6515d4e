#include <zvk/Depiction.h>
#include <zvk/Operation.h>
#include <zvkapp/OrbitApp.h>
#include <zvkapp/PublishOption.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace {

class Step : public zvk::OperationStep {
public:
    Step(std::string const& stepName, std::string* diary, bool undoable = true)
        : name(stepName), log(diary), hasUndo(undoable) {}

    bool HasUndo() const override { return hasUndo; }
    void Undo() override { *log += "-" + name; }
    void Redo() override { *log += "+" + name; }

    std::string name;
    std::string* log;
    bool hasUndo;
};

TEST(Operation, UndoesFromLastToFirstAndRedoesFromFirstToLast) {
    std::string log;
    zvk::Operation operation(du::Symbol("Fit"), nullptr, true);
    operation.AddStep(new Step("a", &log));
    operation.AddStep(nullptr);
    operation.AddStep(new Step("b", &log, false));
    operation.AddStep(new Step("c", &log));
    operation.Undo();
    operation.Redo();
    EXPECT_EQ(log, "-c-a+a+b+c");
    EXPECT_EQ(operation.GetSteps().size(), 3u);
    EXPECT_EQ(operation.GetName(), du::Symbol("Fit"));
}

// Does as it is told in the middle of its undo or redo.
class MeddlingStep : public zvk::OperationStep {
public:
    explicit MeddlingStep(std::function<void()> doing) : meddle(std::move(doing)) {}
    void Undo() override { meddle(); }
    void Redo() override { meddle(); }

    std::function<void()> meddle;
};

TEST(Operation, StepsAddedInTheMiddleOfAReplayWaitForTheNext) {
    std::string log;
    du::SmartPtr<zvk::Operation> const operation(
        new zvk::Operation(du::Symbol("Fit"), nullptr, true));
    operation->AddStep(new Step("a", &log));
    operation->AddStep(new MeddlingStep([&] {
        for (int i = 0; i < 20; ++i)
            operation->AddStep(new Step("x", &log));
    }));
    operation->AddStep(new Step("b", &log));
    operation->Undo();
    EXPECT_EQ(log, "-b-a");
    EXPECT_EQ(operation->GetSteps().size(), 23u);
    log.clear();
    operation->Redo();
    EXPECT_EQ(log.substr(0, 6), "+a+b+x");
    EXPECT_EQ(operation->GetSteps().size(), 43u);
}

TEST(Operation, MayGoInTheMiddleOfItsUndo) {
    std::string log;
    du::SmartPtr<zvk::Operation> operation(new zvk::Operation(du::Symbol("Fit"), nullptr, true));
    operation->AddStep(new Step("a", &log));
    operation->AddStep(new MeddlingStep([&] { operation.Reset(); }));
    (*operation).Undo();
    EXPECT_EQ(log, "-a");
}

TEST(Operation, SinkThatRemovesItselfRunsToItsEnd) {
    bool alive = false;
    zvk::SetOperationSink([held = std::make_shared<int>(7), &alive](auto const&) {
        std::weak_ptr<int> const inside = held;
        bool& lives = alive;
        zvk::SetOperationSink(nullptr);
        lives = !inside.expired();
    });
    zvk::RecordOperation(new zvk::Operation(du::Symbol("Fit"), nullptr, true));
    EXPECT_TRUE(alive);
}

TEST(Operation, StepsAreRecordableAndHaveNoTypeByDefault) {
    std::string log;
    Step const step("a", &log);
    EXPECT_TRUE(step.Recordable());
    EXPECT_TRUE(step.Type().IsEmpty());
}

TEST(Operation, RecordingReachesTheSinkOfTheHost) {
    du::SmartPtr<zvk::Operation> recorded;
    zvk::SetOperationSink([&](auto const& operation) { recorded = operation; });
    du::SmartPtr<zvk::Operation> const operation(
        new zvk::Operation(du::Symbol("Fit"), nullptr, true));
    zvk::RecordOperation(nullptr);
    EXPECT_FALSE(recorded);
    zvk::RecordOperation(operation);
    EXPECT_EQ(recorded, operation);
    recorded.Reset();
    zvk::SetOperationSink(nullptr);
    zvk::RecordOperation(operation);
    EXPECT_FALSE(recorded);
}

TEST(ProcessSwitches, CanBeSet) {
    EXPECT_FALSE(zvk::depiction::IsRunningDepict());
    zvk::depiction::SetRunningDepict(true);
    EXPECT_TRUE(zvk::depiction::IsRunningDepict());
    zvk::depiction::SetRunningDepict(false);

    using zvkapp::depiction::OrbitApp;
    EXPECT_FALSE(OrbitApp::GetOrbitApp());
    OrbitApp::SetOrbitApp(new OrbitApp);
    OrbitApp::GetOrbitApp()->SetPublishBatchMode(4);
    EXPECT_EQ(OrbitApp::GetOrbitApp()->GetPublishBatchMode(), 4);
    OrbitApp::SetOrbitApp(nullptr);
}

TEST(PublishOption, NamesStayUnlessSetOtherwise) {
    zvkapp::depiction::PublishOption option;
    option.SetPublishName(du::Symbol("a"), du::Symbol("b"));
    EXPECT_EQ(option.GetPublishName(du::Symbol("a")), du::Symbol("b"));
    EXPECT_EQ(option.GetPublishName(du::Symbol("c")), du::Symbol("c"));
}

}  // namespace
