// Each tangent type's tangents at the first, a middle and the last key, as
// Maya computes them from the neighbouring keys. Unweighted curves keep the
// direction only; weighted ones reach the neighbour's time on that side (an
// end key borrows the span on its other side).
#include "CurveModel.h"

using namespace curvetest;

namespace {

// Keys (0, 0), (1, 2), (3, 1): up, then down.
std::shared_ptr<AnimCurveData> peak(TangentType type, bool weighted)
{
    return makeCurve({{0, 0}, {1, 2}, {3, 1}}, type, weighted);
}

} // namespace

TEST(TangentRules, LinearPointsAtTheNeighboursAndEndsContinueTheirSegment)
{
    for (bool weighted : {false, true})
    {
        auto curve = peak(TangentType::Linear, weighted);
        auto check = weighted ? expectTangent : expectDirection;
        check(curve->key(0).in, 1, 2);
        check(curve->key(0).out, 1, 2);
        check(curve->key(1).in, 1, 2);
        check(curve->key(1).out, 2, -1);
        check(curve->key(2).in, 2, -1);
        check(curve->key(2).out, 2, -1);
    }
}

TEST(TangentRules, FlatStepAndStepNextAreLevel)
{
    for (TangentType type : {TangentType::Flat, TangentType::Step, TangentType::StepNext})
    {
        auto flat = peak(type, false);
        for (std::size_t i = 0; i < 3; ++i)
        {
            expectDirection(flat->key(i).in, 1, 0);
            expectDirection(flat->key(i).out, 1, 0);
        }
        auto weighted = peak(type, true);
        expectTangent(weighted->key(0).in, 1, 0);
        expectTangent(weighted->key(0).out, 1, 0);
        expectTangent(weighted->key(1).in, 1, 0);
        expectTangent(weighted->key(1).out, 2, 0);
        expectTangent(weighted->key(2).in, 2, 0);
        expectTangent(weighted->key(2).out, 2, 0);
    }
}

TEST(TangentRules, SmoothTakesTheSlopeBetweenTheNeighbours)
{
    // Middle: (1 - 0) / (3 - 0) = 1/3. Ends point at their only neighbour.
    for (bool weighted : {false, true})
    {
        auto curve = peak(TangentType::Smooth, weighted);
        auto check = weighted ? expectTangent : expectDirection;
        check(curve->key(0).in, 1, 2);
        check(curve->key(0).out, 1, 2);
        check(curve->key(1).in, 1, 1.0 / 3.0);
        check(curve->key(1).out, 2, 2.0 / 3.0);
        check(curve->key(2).in, 2, -1);
        check(curve->key(2).out, 2, -1);
    }
}

TEST(TangentRules, AutoIsFlatAtExtremesAndEnds)
{
    auto curve = peak(TangentType::Auto, true);
    expectTangent(curve->key(0).in, 1, 0);
    expectTangent(curve->key(0).out, 1, 0);
    expectTangent(curve->key(1).in, 1, 0);
    expectTangent(curve->key(1).out, 2, 0);
    expectTangent(curve->key(2).in, 2, 0);
    expectTangent(curve->key(2).out, 2, 0);
}

TEST(TangentRules, AutoKeepsTheSplineSlopeWithinThreeTimesEitherNeighboursSlope)
{
    // Rising: spline 4/3; limits 3 * 1/1 and 3 * 3/2 leave it alone.
    auto free = makeCurve({{0, 0}, {1, 1}, {3, 4}}, TangentType::Auto, true);
    expectTangent(free->key(1).in, 1, 4.0 / 3.0);
    expectTangent(free->key(1).out, 2, 8.0 / 3.0);
    // Rising: spline 3.3/2 = 1.65 is cut to 3 * 0.3/1 = 0.9 towards the near next key.
    auto rising = makeCurve({{0, 0}, {1, 3}, {2, 3.3}}, TangentType::Auto, false);
    expectDirection(rising->key(1).in, 1, 0.9);
    expectDirection(rising->key(1).out, 1, 0.9);
    // Falling the same way: cut to -0.9 towards the near previous key.
    auto falling = makeCurve({{0, 3.3}, {1, 3}, {2, 0}}, TangentType::Auto, true);
    expectTangent(falling->key(1).in, 1, -0.9);
    expectTangent(falling->key(1).out, 1, -0.9);
    // A key level with a neighbour is flat.
    auto hold = makeCurve({{0, 0}, {1, 1}, {2, 1}}, TangentType::Auto, false);
    expectDirection(hold->key(1).out, 1, 0);
}

TEST(TangentRules, ClampedGoesFlatNextToAKeyOfNearlyTheSameValue)
{
    // Keys 1 and 2 differ by 0.04: both flat. The ends are splines towards
    // their neighbours, which differ by more than 0.05.
    for (bool weighted : {false, true})
    {
        auto curve = makeCurve({{0, 0}, {1, 2}, {2, 2.04}, {3, 5}}, TangentType::Clamped, weighted);
        auto check = weighted ? expectTangent : expectDirection;
        check(curve->key(0).in, 1, 2);
        check(curve->key(0).out, 1, 2);
        check(curve->key(1).in, 1, 0);
        check(curve->key(1).out, 1, 0);
        check(curve->key(2).in, 1, 0);
        check(curve->key(2).out, 1, 0);
        check(curve->key(3).in, 1, 2.96);
        check(curve->key(3).out, 1, 2.96);
    }
    // Otherwise a middle key is a spline: (3 - 0) / 2.
    auto spline = makeCurve({{0, 0}, {1, 1}, {2, 3}}, TangentType::Clamped, false);
    expectDirection(spline->key(1).in, 1, 1.5);
}

TEST(TangentRules, PlateauIsFlatWhereASplineWouldOvershoot)
{
    // Ends and extremes are flat.
    auto extreme = makeCurve({{0, 0}, {1, 2}, {2, 0}}, TangentType::Plateau, true);
    expectTangent(extreme->key(0).out, 1, 0);
    expectTangent(extreme->key(1).in, 1, 0);
    expectTangent(extreme->key(1).out, 1, 0);
    expectTangent(extreme->key(2).in, 1, 0);
    // Evenly rising: the spline's handles stay within the neighbours.
    auto even = makeCurve({{0, 0}, {1, 1}, {4, 2}}, TangentType::Plateau, true);
    expectTangent(even->key(1).in, 1, 0.5);
    expectTangent(even->key(1).out, 3, 1.5);
    // Levelling off: the spline (slope 0.55) would rise past the next key's
    // 0.1 within a third of the span, so both sides go flat.
    auto levelling = makeCurve({{0, 0}, {1, 1}, {2, 1.1}}, TangentType::Plateau, false);
    expectDirection(levelling->key(1).in, 1, 0);
    expectDirection(levelling->key(1).out, 1, 0);
}

TEST(TangentRules, LoneKeyIsFlat)
{
    for (TangentType type : {TangentType::Linear, TangentType::Smooth, TangentType::Auto, TangentType::Clamped})
    {
        auto curve = makeCurve({{5, 3}}, type, true);
        expectTangent(curve->key(0).in, 1, 0);
        expectTangent(curve->key(0).out, 1, 0);
    }
}

TEST(TangentRules, GlobalStandsForTheHostDefaultTypes)
{
    auto curve = makeCurve({{0, 0}, {1, 1}}, TangentType::Global);
    EXPECT_EQ(curve->key(0).inType, TangentType::Auto);
    EXPECT_EQ(curve->key(0).outType, TangentType::Auto);

    defaultTangentTypes() = {TangentType::Linear, TangentType::Step};
    curve->addKey(2, 0, TangentType::Global, TangentType::Global, nullptr);
    defaultTangentTypes() = {};
    EXPECT_EQ(curve->key(2).inType, TangentType::Linear);
    EXPECT_EQ(curve->key(2).outType, TangentType::Step);
}

TEST(TangentRules, EveryTypeOfTheEnumIsKept)
{
    EXPECT_TRUE(isTangentType(11));
    EXPECT_TRUE(isTangentType(19));
    EXPECT_TRUE(isTangentType(26));
    EXPECT_TRUE(isTangentType(64));
    EXPECT_FALSE(isTangentType(12));
    EXPECT_FALSE(isTangentType(27));
    EXPECT_FALSE(isTangentType(-1));

    auto curve = makeCurve({{0, 0}, {1, 1}, {2, 3}}, TangentType::Smooth);
    EXPECT_TRUE(curve->setTangentType(1, Side::In, static_cast<TangentType>(21), nullptr));
    EXPECT_EQ(static_cast<int>(curve->key(1).inType), 21);
    EXPECT_FALSE(curve->setTangentType(1, Side::Out, static_cast<TangentType>(15), nullptr));
    EXPECT_EQ(curve->key(1).outType, TangentType::Smooth);
}

TEST(TangentRules, UnitsScaleTheAngleAndWeight)
{
    // (1 s, 1 cm) at 24 fps: a slope of 1/24 per frame.
    const AngleWeight seen = angleWeightOf({1, 1}, true, 24, 1);
    EXPECT_NEAR(seen.angle, std::atan2(1.0, 24.0), 1e-15);
    EXPECT_NEAR(seen.weight, std::hypot(24.0, 1.0) / 3.0, 1e-12);
    EXPECT_EQ(angleWeightOf({1, 1}, false, 24, 1).weight, 1.0);
    const Tangent back = tangentOf(seen, 24, 1);
    EXPECT_NEAR(back.x, 1, 1e-12);
    EXPECT_NEAR(back.y, 1, 1e-12);
}
