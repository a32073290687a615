// Edits on a curve: non-fixed tangents keep following their neighbours,
// written tangents become fixed, and refused edits leave the curve alone.
#include "CurveModel.h"

#include <vector>

using namespace curvetest;

namespace {

std::vector<Key> keysOf(const AnimCurveData& curve)
{
    std::vector<Key> keys;
    for (std::size_t i = 0; i < curve.size(); ++i)
        keys.push_back(curve.key(i));
    return keys;
}

std::vector<double> samples(const AnimCurveData& curve)
{
    std::vector<double> values;
    for (int i = -10; i <= 40; ++i)
        values.push_back(curve.evaluate(i * 0.1));
    return values;
}

void expectSameShape(const std::vector<double>& before, const AnimCurveData& curve)
{
    const std::vector<double> after = samples(curve);
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_NEAR(after[i], before[i], 1e-9) << "at " << (static_cast<int>(i) - 10) * 0.1;
}

} // namespace

TEST(CurveEdits, NewValuesMoveTheNeighboursTangentsButNotFixedOnes)
{
    for (bool weighted : {false, true})
    {
        auto curve = makeCurve({{0, 0}, {1, 2}, {3, 1}}, TangentType::Smooth, weighted);
        auto check = weighted ? expectTangent : expectDirection;
        curve->setValue(2, 4, nullptr);
        check(curve->key(0).out, 1, 2);             // points at key 1, unchanged
        check(curve->key(1).in, 1, 4.0 / 3.0);      // (4 - 0) / 3
        check(curve->key(1).out, 2, 8.0 / 3.0);
        check(curve->key(2).in, 2, 2);              // the end points at key 1

        curve->setTangentType(1, Side::In, TangentType::Fixed, nullptr);
        curve->setTangentType(1, Side::Out, TangentType::Fixed, nullptr);
        curve->setValue(0, 3, nullptr);
        check(curve->key(1).in, 1, 4.0 / 3.0);
        check(curve->key(1).out, 2, 8.0 / 3.0);
        check(curve->key(0).out, 1, -1);
    }
}

TEST(CurveEdits, MovingAKeyOntoOrPastAnotherIsRefused)
{
    auto curve = makeCurve({{0, 0}, {1, 2}, {3, 1}}, TangentType::Auto);
    const std::vector<Key> before = keysOf(*curve);
    EXPECT_FALSE(curve->setInput(1, 3, nullptr));
    EXPECT_FALSE(curve->setInput(1, 3.5, nullptr));
    EXPECT_FALSE(curve->setInput(1, 0, nullptr));
    EXPECT_FALSE(curve->setInput(1, -1, nullptr));
    EXPECT_FALSE(curve->setInput(3, 5, nullptr));
    EXPECT_FALSE(curve->setValue(3, 5, nullptr));
    EXPECT_FALSE(curve->remove(3, nullptr));
    EXPECT_FALSE(curve->setTangent(3, Side::In, {1, 1}, nullptr));
    EXPECT_TRUE(keysOf(*curve) == before);

    EXPECT_TRUE(curve->setInput(1, 2, nullptr));
    EXPECT_EQ(curve->key(1).input, 2.0);
    EXPECT_TRUE(curve->setInput(1, 2, nullptr));
}

TEST(CurveEdits, AddingAtAnOccupiedTimeReplacesTheKey)
{
    auto curve = makeCurve({{0, 0}, {1, 2}, {3, 1}}, TangentType::Smooth);
    EXPECT_EQ(curve->addKey(1, 5, TangentType::Linear, TangentType::Linear, nullptr), 1u);
    ASSERT_EQ(curve->size(), 3u);
    EXPECT_EQ(curve->key(1).value, 5.0);
    EXPECT_EQ(curve->key(1).outType, TangentType::Linear);
    expectDirection(curve->key(1).out, 2, -4);
    expectDirection(curve->key(0).out, 1, 5);

    EXPECT_EQ(curve->addKey(2, 0, TangentType::Auto, TangentType::Auto, nullptr), 2u);
    EXPECT_EQ(curve->key(3).input, 3.0);
    EXPECT_EQ(curve->addKey(-1, 0, TangentType::Auto, TangentType::Auto, nullptr), 0u);
    EXPECT_EQ(curve->size(), 5u);
}

TEST(CurveEdits, RemovingAKeyRecomputesItsNeighbours)
{
    auto curve = makeCurve({{0, 0}, {1, 2}, {3, 1}}, TangentType::Smooth);
    EXPECT_TRUE(curve->remove(1, nullptr));
    ASSERT_EQ(curve->size(), 2u);
    expectDirection(curve->key(0).out, 3, 1);
    expectDirection(curve->key(1).in, 3, 1);
}

TEST(CurveEdits, InsertedKeysTakeTheCurvesValueAndSlope)
{
    // On the spline's first span v(t) = 2t + 5/3 t^2 - 5/3 t^3: 29/24 at 0.5,
    // slope 2 + 5/3 - 5/4 = 29/12.
    auto curve = makeCurve({{0, 0}, {1, 2}, {3, 1}}, TangentType::Smooth);
    EXPECT_EQ(curve->insertKey(0.5, false, nullptr), 1u);
    const Key& added = curve->key(1);
    EXPECT_NEAR(added.value, 29.0 / 24.0, 1e-12);
    EXPECT_EQ(added.inType, TangentType::Fixed);
    EXPECT_EQ(added.outType, TangentType::Fixed);
    expectDirection(added.in, 1, 29.0 / 12.0);
    expectDirection(added.out, 1, 29.0 / 12.0);
    // The neighbours keep their own types and now follow the new key.
    EXPECT_EQ(curve->key(0).outType, TangentType::Smooth);
    expectDirection(curve->key(0).out, 0.5, 29.0 / 24.0);

    // At a key nothing changes.
    const std::vector<Key> before = keysOf(*curve);
    EXPECT_EQ(curve->insertKey(1.0, true, nullptr), 2u);
    EXPECT_TRUE(keysOf(*curve) == before);
}

TEST(CurveEdits, InsertingWithAdjustedTangentsKeepsTheShape)
{
    for (bool weighted : {false, true})
        for (TangentType type : {TangentType::Smooth, TangentType::Auto, TangentType::Plateau})
        {
            auto curve = makeCurve({{0, 0}, {1, 2}, {1.5, 2.5}, {3, 1}}, type, weighted);
            curve->setTangentsLocked(2, false, nullptr);
            curve->setTangent(2, Side::Out, {1.2, -0.4}, nullptr);
            const std::vector<double> before = samples(*curve);
            for (double at : {0.25, 0.7, 1.2, 2.0, 2.9})
                curve->insertKey(at, true, nullptr);
            EXPECT_EQ(curve->size(), 9u);
            expectSameShape(before, *curve);
        }
}

TEST(CurveEdits, InsertingIntoStepsAndStraightSpansKeepsTheirKind)
{
    auto step = makeCurve({{0, 0}, {2, 4}}, TangentType::Step);
    step->insertKey(1, false, nullptr);
    EXPECT_EQ(step->key(1).value, 0.0);
    EXPECT_EQ(step->key(1).outType, TangentType::Step);
    EXPECT_EQ(step->evaluate(1.5), 0.0);

    auto linear = makeCurve({{0, 0}, {2, 4}}, TangentType::Linear, true);
    linear->insertKey(0.5, false, nullptr);
    EXPECT_EQ(linear->key(1).inType, TangentType::Linear);
    EXPECT_NEAR(linear->evaluate(1.5), 3.0, 1e-12);

    // Past the end the constant infinity gives the value and a flat tangent.
    auto tail = makeCurve({{0, 0}, {2, 4}}, TangentType::Auto);
    EXPECT_EQ(tail->insertKey(3, false, nullptr), 2u);
    EXPECT_EQ(tail->key(2).value, 4.0);
    expectDirection(tail->key(2).in, 1, 0);
}

TEST(CurveEdits, WritingATangentFixesItAndLockedTangentsTurnTogether)
{
    auto curve = makeCurve({{0, 0}, {1, 2}, {3, 1}}, TangentType::Auto, true);
    curve->setTangent(1, Side::In, {1, 1}, nullptr);
    EXPECT_EQ(curve->key(1).inType, TangentType::Fixed);
    EXPECT_EQ(curve->key(1).outType, TangentType::Fixed);
    expectTangent(curve->key(1).in, 1, 1);
    expectTangent(curve->key(1).out, std::sqrt(2.0), std::sqrt(2.0)); // keeps its length of 2

    curve->setTangentsLocked(1, false, nullptr);
    curve->setTangent(1, Side::Out, {2, -1}, nullptr);
    expectTangent(curve->key(1).in, 1, 1);
    expectTangent(curve->key(1).out, 2, -1);

    // A fixed tangent stays when its neighbours move.
    curve->setValue(0, 5, nullptr);
    expectTangent(curve->key(1).in, 1, 1);
}

TEST(CurveEdits, TangentsNeverRunBackwardsOrVertical)
{
    auto curve = makeCurve({{0, 0}, {1, 1}}, TangentType::Auto);
    curve->setTangent(0, Side::Out, {-1, 1}, nullptr);
    const Tangent& t = curve->key(0).out;
    EXPECT_GT(t.x, 0.0);
    EXPECT_NEAR(t.y / t.x, 5729577.9485111479, 1e-3);
}

TEST(CurveEdits, ChangingTheTypeBackToAComputedOneRecomputes)
{
    auto curve = makeCurve({{0, 0}, {1, 2}, {3, 1}}, TangentType::Smooth);
    curve->setTangentType(1, Side::Out, TangentType::Fixed, nullptr);
    curve->setValue(2, 4, nullptr);
    expectDirection(curve->key(1).out, 3, 1); // still the old slope of 1/3
    curve->setTangentType(1, Side::Out, TangentType::Smooth, nullptr);
    expectDirection(curve->key(1).out, 3, 4);
}

TEST(CurveEdits, WeightingGivesFixedTangentsHandlesAtAThirdOfTheirSpans)
{
    auto curve = makeCurve({{0, 0}, {1, 2}, {3, 1}}, TangentType::Smooth);
    curve->setTangentsLocked(1, false, nullptr);
    curve->setTangent(1, Side::Out, {1, 1}, nullptr);
    curve->setWeighted(true, nullptr);
    expectTangent(curve->key(1).out, 2, 2);           // same angle, reaching key 2
    expectTangent(curve->key(1).in, 1, 1.0 / 3.0);    // computed as before
    curve->setWeighted(false, nullptr);
    expectDirection(curve->key(1).out, 1, 1);
}
