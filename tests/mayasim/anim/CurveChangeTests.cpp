// MAnimCurveChange: every edit recorded in it is taken back exactly, last
// first, by undoIt, and replayed by redoIt.
#include "CurveModel.h"

#include <maya/MAnimCurveChange.h>

#include <random>
#include <vector>

using namespace curvetest;

namespace {

struct State
{
    std::vector<Key> keys;
    CurveSettings settings;
    bool operator==(const State& other) const { return keys == other.keys && settings == other.settings; }
};

const TangentType kTypes[] = {TangentType::Fixed,   TangentType::Linear,   TangentType::Flat,
                              TangentType::Smooth,  TangentType::Step,     TangentType::Clamped,
                              TangentType::Plateau, TangentType::StepNext, TangentType::Auto};

State stateOf(const AnimCurveData& curve)
{
    State state{{}, curve.settings()};
    for (std::size_t i = 0; i < curve.size(); ++i)
        state.keys.push_back(curve.key(i));
    return state;
}

// Five keys of random values and tangent types.
std::shared_ptr<AnimCurveData> randomCurve(std::mt19937& random)
{
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    auto curve = std::make_shared<AnimCurveData>(true);
    for (int k = 0; k < 5; ++k)
        curve->addKey(k, unit(random), kTypes[random() % 9], kTypes[random() % 9], nullptr);
    return curve;
}

// One edit of any kind, at a random key, mostly value edits (as drags make).
void randomEdit(std::mt19937& random, AnimCurveData& curve, EditSink* log)
{
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const std::size_t index = curve.size() ? random() % curve.size() : 0;
    const Side side = random() % 2 ? Side::In : Side::Out;
    switch (random() % 12)
    {
    case 0: curve.addKey(10 * unit(random), unit(random), kTypes[random() % 9], kTypes[random() % 9], log); break;
    case 1: curve.insertKey(10 * unit(random), random() % 2, log); break;
    case 2: curve.remove(index, log); break;
    case 3: curve.setInput(index, 10 * unit(random), log); break;
    case 4: curve.setTangent(index, side, {unit(random), unit(random) - 0.5}, log); break;
    case 5: curve.setTangentType(index, side, kTypes[random() % 9], log); break;
    case 6: curve.setWeighted(random() % 2, log); break;
    case 7: curve.setInfinity(side, static_cast<InfinityType>(random() % 2 ? 4 : 5), log); break;
    default: curve.setValue(index, unit(random), log); break;
    }
}

} // namespace

TEST(CurveChange, UndoRestoresTheCurveExactlyAfterInsertsAndRemovals)
{
    auto curve = makeCurve({{0, 0}, {1, 2}, {3, 1}, {4, 4}}, TangentType::Auto);
    const State before = stateOf(*curve);

    MAnimCurveChange change;
    EditSink* log = ChangeLog::of(&change);
    curve->insertKey(0.5, false, log);
    curve->setValue(2, 7, log);
    curve->remove(3, log);
    curve->addKey(5, -1, TangentType::Linear, TangentType::Step, log);
    curve->setTangent(1, Side::In, {1, 3}, log);
    curve->setTangentsLocked(0, false, log);
    curve->setWeighted(true, log);
    curve->setInput(0, -1, log);
    curve->setInfinity(Side::Out, InfinityType::CycleRelative, log);
    const State after = stateOf(*curve);

    EXPECT_EQ(change.undoIt(), MStatus::kSuccess);
    EXPECT_TRUE(stateOf(*curve) == before);
    EXPECT_EQ(change.redoIt(), MStatus::kSuccess);
    EXPECT_TRUE(stateOf(*curve) == after);
    change.undoIt();
    change.undoIt(); // a second undo has nothing left to take back
    EXPECT_TRUE(stateOf(*curve) == before);
}

TEST(CurveChange, OneChangeCoversSeveralCurves)
{
    auto first = makeCurve({{0, 0}, {1, 1}}, TangentType::Auto);
    auto second = makeCurve({{0, 5}, {2, 3}}, TangentType::Smooth);
    const State firstBefore = stateOf(*first);
    const State secondBefore = stateOf(*second);

    MAnimCurveChange change;
    first->setValue(1, 3, ChangeLog::of(&change));
    second->insertKey(1, false, ChangeLog::of(&change));
    first->setValue(1, 4, ChangeLog::of(&change));
    change.undoIt();
    EXPECT_TRUE(stateOf(*first) == firstBefore);
    EXPECT_TRUE(stateOf(*second) == secondBefore);
}

TEST(CurveChange, AnEditAfterUndoStartsTheRecordAfresh)
{
    auto curve = makeCurve({{0, 0}, {1, 1}}, TangentType::Auto);
    MAnimCurveChange change;
    curve->setValue(1, 3, ChangeLog::of(&change));
    change.undoIt();
    const State undone = stateOf(*curve);
    curve->setValue(0, 2, ChangeLog::of(&change));
    change.redoIt(); // nothing to redo: the new edit is the record now
    EXPECT_EQ(curve->key(0).value, 2.0);
    change.undoIt();
    EXPECT_TRUE(stateOf(*curve) == undone);
}

TEST(CurveChange, UndoAndRedoTellTheCurvesOwner)
{
    auto curve = makeCurve({{0, 0}, {1, 1}}, TangentType::Auto);
    int changes = 0;
    curve->setChangeListener([&changes] { ++changes; });
    MAnimCurveChange change;
    curve->setValue(1, 3, ChangeLog::of(&change));
    change.undoIt();
    change.redoIt();
    EXPECT_EQ(changes, 3);
}

TEST(CurveChange, RandomEditSequencesUndoExactly)
{
    std::mt19937 random(5);
    for (int trial = 0; trial < 20; ++trial)
    {
        auto curve = randomCurve(random);
        std::vector<State> states{stateOf(*curve)};
        std::vector<MAnimCurveChange> changes(60);
        for (MAnimCurveChange& change : changes)
        {
            randomEdit(random, *curve, ChangeLog::of(&change));
            states.push_back(stateOf(*curve));
        }
        for (std::size_t i = changes.size(); i-- > 0;)
        {
            changes[i].undoIt();
            ASSERT_TRUE(stateOf(*curve) == states[i]) << "trial " << trial << " undo " << i;
        }
        for (std::size_t i = 0; i < changes.size(); ++i)
        {
            changes[i].redoIt();
            ASSERT_TRUE(stateOf(*curve) == states[i + 1]) << "trial " << trial << " redo " << i;
        }
    }
}

// A drag records the same keys again at every step into one change, which
// folds them: undo must still give back each key's first state and redo its
// last, around key additions and removals and across curves, and edits
// recorded after a redo join the folds.
TEST(CurveChange, ManyEditsOfTheSameKeysInOneChangeUndoExactly)
{
    std::mt19937 random(11);
    for (int trial = 0; trial < 20; ++trial)
    {
        std::vector<std::shared_ptr<AnimCurveData>> curves{randomCurve(random), randomCurve(random),
                                                           randomCurve(random)};
        const auto states = [&curves] {
            std::vector<State> all;
            for (const auto& curve : curves)
                all.push_back(stateOf(*curve));
            return all;
        };
        const std::vector<State> before = states();
        MAnimCurveChange change;
        for (int edits : {300, 100}) // the second round is recorded after a redo
        {
            for (int i = 0; i < edits; ++i)
                randomEdit(random, *curves[random() % curves.size()], ChangeLog::of(&change));
            const std::vector<State> after = states();
            change.undoIt();
            ASSERT_TRUE(states() == before) << "trial " << trial;
            change.redoIt();
            ASSERT_TRUE(states() == after) << "trial " << trial;
        }
    }
}
