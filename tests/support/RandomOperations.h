// What a person does in a viewer, at random, with undo and redo.
#pragma once

#include <figrep/Fwd.h>
#include <support/Random.h>
#include <zvk/Operation.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace figrep::test {

/// Hides, shows, isolates, moves, scales, turns and colours a figure by operations, and keeps them
/// for undo and redo as a viewer does. The same seed does the same.
class RandomOperations {
public:
    RandomOperations(SmartPtr<Figure> const& figure, std::uint64_t seed);
    ~RandomOperations();

    /// A new operation, or the undo or redo of one.
    void Step();
    void UndoAll();
    void RedoAll();

    /// What was done so far, for messages.
    std::string const& GetLog() const { return log_; }

private:
    using Items = std::vector<SmartPtr<AbstractFigureItem>>;
    using Operation = SmartPtr<zvk::Operation>;

    void Undo();
    void Redo();
    void DoSomething();
    void Isolate(Operation const& operation);
    void Fit(Operation const& operation);
    SmartPtr<TransformAction> RandomTransform();
    void SetItems(Operation const& operation);
    void TakeSettingsBack(Operation const& operation);
    void ColorBackground(Operation const& operation);
    void AddAndDo(Operation const& operation, SmartPtr<zvk::OperationStep> const& step);
    Items All(bool subItems) const;
    Items PortNodes() const;
    Items Some(Items items, std::size_t most);
    double Length();

    SmartPtr<Figure> figure_;
    Random random_;
    std::vector<Operation> done_;
    std::vector<Operation> undone_;
    std::string log_;
};

/// All that the figure's items and the figure itself say of themselves, whatever they inherit: one
/// line for each own setting.
std::vector<std::string> OwnSettingsOf(SmartPtr<Figure> const& figure);

/// The first line in which two dumps differ by more than rounding, from both; empty when there is
/// none. Numbers count as equal when they differ by less than `tolerance`, for large ones in
/// proportion.
std::string FirstDifference(std::vector<std::string> const& a, std::vector<std::string> const& b,
                            double tolerance);

/// Does random operations on a loaded figure, takes them back, does them again and takes them back
/// once more. Dumps, own settings and the list of deltas must be what they were each time; answers
/// where they aren't, empty when all is well.
std::string CheckUndo(SmartPtr<Figure> const& figure, std::uint64_t seed, int steps);

/// How many objects each round of operations done and undone leaves alive on a figure that stays.
std::ptrdiff_t ObjectsAddedByEveryRound(SmartPtr<Figure> const& figure, std::uint64_t seed,
                                        int steps);

}  // namespace figrep::test
