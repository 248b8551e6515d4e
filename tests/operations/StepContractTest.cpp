// What holds for every step: undone, all is as before; done again, as after the first time.
#include <dg/Color.h>
#include <figrep/BackgroundColorOperationStep.h>
#include <figrep/FigureItemSettingDelta.h>
#include <figrep/FigureItemsVisitor.h>
#include <figrep/FitContentOperationStep.h>
#include <figrep/MirrorAction.h>
#include <figrep/ScaleAction.h>
#include <figrep/SettingOperationStep.h>
#include <figrep/UnhideAllOperationStep.h>
#include <operations/OperationTestSupport.h>
#include <support/LiveObjects.h>
#include <support/RandomOperations.h>

#include <functional>

namespace figrep::testing {
namespace {

using FigurePtr = SmartPtr<Figure>;
using Operation = SmartPtr<zvk::Operation>;

Items AllOf(FigurePtr const& figure, bool subItems) {
    Items items;
    FigureItemsVisitor visitor(items);
    visitor.SetCollectSubItems(subItems);
    figure->Accept(visitor);
    return items;
}

/// Every other item, so that some say something and some don't.
Items SomeOf(FigurePtr const& figure) {
    Items items;
    for (auto const& item : AllOf(figure, true)) {
        if (items.size() % 3 != 1 || item->GetId().GetString().size() % 2) items.push_back(item);
    }
    return items;
}

Figure::Deltas HidingDeltas(FigurePtr const& figure) {
    Figure::Deltas deltas;
    FigureItemSettingDelta::CreateDeltas(SomeOf(figure), deltas, Visibility(false));
    return deltas;
}

SmartPtr<Setting> Background(Color const& color) {
    ConstSmartPtr<figk::BaseSettingValue> const value = new figk::SettingValue<Color>(color);
    return new Setting(Setting::BACKGROUND_COLOR, value, figk::Setting::LEVEL_FIGURE, true);
}

Operation Done(SmartPtr<zvk::OperationStep> const& step) {
    step->Redo();
    Operation const operation = NewOperation();
    operation->AddStep(step);
    return operation;
}

template <typename Action>
Operation Recorded(Action const& action) {
    Operation const operation = NewOperation();
    action(operation);
    return operation;
}

/// One kind of step: what the figure is like before, and how the step is made and done.
struct StepCase {
    char const* name;
    std::function<void(FigurePtr const&)> prepare;
    std::function<Operation(FigurePtr const&)> act;
};

void Nothing(FigurePtr const&) {}

void HideSome(FigurePtr const& figure) {
    figure->HideItems(SomeOf(figure), nullptr);
}

Operation Fit(FigurePtr const& figure, FitContentOperationStep::Transforms const& transforms) {
    // Whole numbers come back exactly.
    return Recorded([&](Operation const& operation) {
        operation->AddStep(new FitContentOperationStep(figure, AllOf(figure, false), transforms,
                                                       DPoint2D(8, -16)));
    });
}

std::vector<StepCase> const& Cases() {
    static std::vector<StepCase> const cases{
        {"Hide", Nothing,
         [](FigurePtr const& figure) {
             return Recorded([&](auto const& to) { figure->HideItems(SomeOf(figure), to); });
         }},
        {"HideWhatIsHidden", HideSome,
         [](FigurePtr const& figure) {
             return Recorded([&](auto const& to) { figure->HideItems(SomeOf(figure), to); });
         }},
        {"Show", HideSome,
         [](FigurePtr const& figure) {
             return Recorded([&](auto const& to) { figure->UnHideItems(AllOf(figure, true), to); });
         }},
        {"Isolate", HideSome,
         [](FigurePtr const& figure) {
             return Recorded([&](auto const& to) { figure->IsolateItems(SomeOf(figure), to); });
         }},
        {"IsolateNothing", Nothing,
         [](FigurePtr const& figure) {
             return Recorded([&](auto const& to) { figure->IsolateItems({}, to); });
         }},
        {"ShowAll", HideSome,
         [](FigurePtr const& figure) {
             return Recorded([&](auto const& to) { figure->UnhideAll(to); });
         }},
        {"Move", Nothing, [](FigurePtr const& figure) { return Fit(figure, {}); }},
        {"ScaleAndMirror", Nothing,
         [](FigurePtr const& figure) {
             return Fit(figure,
                        {new ScaleAction(DPoint2D(), 2), new MirrorAction(DPoint2D(4, 8), false),
                         new ScaleAction(DPoint2D(), 0.5)});
         }},
        {"SetItems", Nothing,
         [](FigurePtr const& figure) {
             return Done(new SettingOperationStep(figure, HidingDeltas(figure)));
         }},
        {"TakeSettingsBack",
         [](FigurePtr const& figure) { figure->AddAndApplyDeltas(HidingDeltas(figure), false); },
         [](FigurePtr const& figure) {
             auto deltas = figure->GetDeltas();
             std::erase_if(deltas, [](auto const& delta) {
                 return !du::DynamicCast<FigureItemSettingDelta>(delta);
             });
             return Done(new UnhideAllOperationStep(figure, deltas));
         }},
        {"FirstBackground", Nothing,
         [](FigurePtr const& figure) {
             return Done(new BackgroundColorOperationStep(figure, Background(Color::RED)));
         }},
        {"OtherBackground",
         [](FigurePtr const& figure) { figure->AddSetting(Background(Color::BLUE), false); },
         [](FigurePtr const& figure) {
             return Done(new BackgroundColorOperationStep(figure, Background(Color::RED)));
         }},
    };
    return cases;
}

/// What a figure shows, and which settings make it so.
Strings StateOf(FigurePtr const& figure) {
    figure->UpdateContent();
    Strings state = DumpOf(figure);
    Strings const settings = test::OwnSettingsOf(figure);
    state.insert(state.end(), settings.begin(), settings.end());
    return state;
}

class StepContract : public ::testing::TestWithParam<StepCase> {
protected:
    FigurePtr Prepared() const {
        FigurePtr const figure = test::FramedFigure(installed.Sheet());
        GetParam().prepare(figure);
        return figure;
    }
    static std::string Difference(Strings const& a, Strings const& b) {
        return test::FirstDifference(a, b, 1e-9);
    }

    InstalledDesign installed{test::DrawingOfAll().Source()};
};

TEST_P(StepContract, ChangesTheFigureAndUndoBringsEverythingBack) {
    auto const figure = Prepared();
    auto const before = StateOf(figure);
    auto const deltas = figure->GetDeltas();
    auto const operation = GetParam().act(figure);
    EXPECT_TRUE(StateOf(figure) != before || figure->GetDeltas() != deltas);
    operation->Undo();
    EXPECT_EQ(Difference(StateOf(figure), before), "");
    EXPECT_EQ(figure->GetDeltas(), deltas);
}

TEST_P(StepContract, RedoneAnyNumberOfTimesItIsAsAfterTheFirst) {
    auto const figure = Prepared();
    auto const before = StateOf(figure);
    auto const deltas = figure->GetDeltas();
    auto const operation = GetParam().act(figure);
    auto const after = StateOf(figure);
    auto const count = figure->GetDeltas().size();
    for (int i = 0; i < 3; ++i) {
        operation->Undo();
        EXPECT_EQ(Difference(StateOf(figure), before), "");
        EXPECT_EQ(figure->GetDeltas(), deltas);
        operation->Redo();
        EXPECT_EQ(Difference(StateOf(figure), after), "");
        EXPECT_EQ(figure->GetDeltas().size(), count);
    }
}

TEST_P(StepContract, LeavesNothingBehindOnAFigureThatStays) {
    auto const figure = Prepared();
    auto const left = test::ObjectsLeftBy([&] {
        auto const operation = GetParam().act(figure);
        figure->UpdateContent();
        operation->Undo();
        operation->Redo();
        operation->Undo();
        figure->UpdateContent();
        Figure::Deltas failures;
        figure->TakeDeltaFailures(failures);
    });
    EXPECT_EQ(left, 0);
}

TEST_P(StepContract, LeavesNothingBehindWhenItHoldsTheFigureLast) {
    auto const left = test::ObjectsLeftBy([&] {
        auto figure = Prepared();
        auto const operation = GetParam().act(figure);
        figure.Reset();
        operation->Undo();
    });
    EXPECT_EQ(left, 0);
}

INSTANTIATE_TEST_SUITE_P(Steps, StepContract, ::testing::ValuesIn(Cases()),
                         [](auto const& step) { return step.param.name; });

}  // namespace
}  // namespace figrep::testing
