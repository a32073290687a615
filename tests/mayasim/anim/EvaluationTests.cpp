// How a curve evaluates between, at and beyond its keys: Hermite spans on
// unweighted curves, Bezier spans on weighted ones, steps, and the five
// infinity types. Expected values are worked out by hand from the rules.
#include "CurveModel.h"

#include <random>

using namespace curvetest;

TEST(Evaluation, UnweightedSpansAreHermiteCubics)
{
    // Flat ends from 0 to 4 over 2 s: v(t) = 3t^2 - t^3.
    auto flat = makeCurve({{0, 0}, {2, 4}}, TangentType::Flat);
    EXPECT_NEAR(flat->evaluate(0.5), 0.625, 1e-12);
    EXPECT_NEAR(flat->evaluate(1.0), 2.0, 1e-12);
    EXPECT_NEAR(flat->evaluate(1.5), 3.375, 1e-12);

    // Leaving along the chord (slope 2), arriving flat: v(t) = 2t + t^2 - t^3/2.
    auto mixed = makeCurve({{0, 0}, {2, 4}}, TangentType::Flat);
    mixed->setTangentType(0, Side::Out, TangentType::Linear, nullptr);
    EXPECT_NEAR(mixed->evaluate(1.0), 2.5, 1e-12);

    // Spline through (0,0), (1,2), (3,1): slopes 2 and 1/3 on the first span
    // give 29/24 at 0.5; slopes 1/3 and -1/2 on the second give 41/24 at 2.
    auto smooth = makeCurve({{0, 0}, {1, 2}, {3, 1}}, TangentType::Smooth);
    EXPECT_NEAR(smooth->evaluate(0.5), 29.0 / 24.0, 1e-12);
    EXPECT_NEAR(smooth->evaluate(2.0), 41.0 / 24.0, 1e-12);
    EXPECT_EQ(smooth->evaluate(1.0), 2.0);
}

TEST(Evaluation, LinearStepAndStepNextSpans)
{
    auto linear = makeCurve({{0, 0}, {2, 4}}, TangentType::Linear);
    EXPECT_NEAR(linear->evaluate(0.5), 1.0, 1e-15);

    auto step = makeCurve({{0, 0}, {2, 4}}, TangentType::Step);
    EXPECT_EQ(step->evaluate(1.0), 0.0);
    EXPECT_EQ(step->evaluate(1.999), 0.0);
    EXPECT_EQ(step->evaluate(2.0), 4.0);

    auto next = makeCurve({{0, 0}, {2, 4}}, TangentType::StepNext);
    EXPECT_EQ(next->evaluate(0.0), 0.0);
    EXPECT_EQ(next->evaluate(0.001), 4.0);
}

TEST(Evaluation, WeightedSpansAreBeziersSolvedForTheTime)
{
    // Flat keys (0,0) and (3,3) with both handles at time 2: control points
    // (0,0) (2,0) (2,3) (3,3). At u = 1/2, x = 1.875 and y = 1.5.
    auto curve = makeCurve({{0, 0}, {3, 3}}, TangentType::Flat, true);
    curve->setTangent(0, Side::Out, {6, 0}, nullptr);
    EXPECT_NEAR(curve->evaluate(1.875), 1.5, 1e-12);
    // At u = 1/3: x = 13/9, y = 7/9.
    EXPECT_NEAR(curve->evaluate(13.0 / 9.0), 7.0 / 9.0, 1e-12);

    // Handles at the thirds make the same curve as the Hermite one.
    auto thirds = makeCurve({{0, 0}, {3, 3}}, TangentType::Flat, true);
    auto hermite = makeCurve({{0, 0}, {3, 3}}, TangentType::Flat, false);
    for (double x : {0.3, 1.0, 2.2, 2.9})
        EXPECT_NEAR(thirds->evaluate(x), hermite->evaluate(x), 1e-12);
}

TEST(Evaluation, WeightedHandlePastTheNextKeyIsPulledBack)
{
    // An out handle reaching 4/3 of the span would fold time back; it is
    // pulled back to just inside 4/3, with the other handle at 2/3:
    // x(1/2) = 3 (4/8 + 2/8 + 1/8) = 2.625, y(1/2) = 1.5.
    auto curve = makeCurve({{0, 0}, {3, 3}}, TangentType::Flat, true);
    curve->setTangentsLocked(0, false, nullptr);
    curve->setTangent(0, Side::Out, {12, 0}, nullptr);
    EXPECT_NEAR(curve->evaluate(2.625), 1.5, 1e-9);
    double previous = curve->evaluate(0.0);
    for (int i = 1; i <= 300; ++i)
    {
        const double value = curve->evaluate(i * 0.01);
        EXPECT_GE(value, previous - 1e-12);
        previous = value;
    }
}

TEST(Evaluation, ConstantAndLinearInfinity)
{
    auto curve = makeCurve({{0, 0}, {2, 4}}, TangentType::Linear);
    EXPECT_EQ(curve->evaluate(-1), 0.0);
    EXPECT_EQ(curve->evaluate(5), 4.0);

    // Along the end tangents: the first key's in side continues its segment.
    curve->setInfinity(Side::In, InfinityType::Linear, nullptr);
    curve->setInfinity(Side::Out, InfinityType::Linear, nullptr);
    EXPECT_NEAR(curve->evaluate(-1), -2.0, 1e-12);
    EXPECT_NEAR(curve->evaluate(3), 6.0, 1e-12);

    // Flat end tangents extend flat.
    auto flat = makeCurve({{0, 0}, {2, 4}}, TangentType::Auto);
    flat->setInfinity(Side::In, InfinityType::Linear, nullptr);
    EXPECT_EQ(flat->evaluate(-1), 0.0);
}

TEST(Evaluation, CycleOscillateAndCycleWithOffset)
{
    auto curve = makeCurve({{0, 0}, {2, 4}}, TangentType::Linear);
    auto both = [&](InfinityType type) {
        curve->setInfinity(Side::In, type, nullptr);
        curve->setInfinity(Side::Out, type, nullptr);
    };

    both(InfinityType::Cycle);
    EXPECT_NEAR(curve->evaluate(2.5), 1.0, 1e-12);
    EXPECT_NEAR(curve->evaluate(-0.5), 3.0, 1e-12);
    EXPECT_NEAR(curve->evaluate(100.5), 1.0, 1e-12);

    // Each cycle is offset by the value change over the keys (4): the line goes on.
    both(InfinityType::CycleRelative);
    EXPECT_NEAR(curve->evaluate(2.5), 5.0, 1e-12);
    EXPECT_NEAR(curve->evaluate(4.5), 9.0, 1e-12);
    EXPECT_NEAR(curve->evaluate(4.0), 8.0, 1e-12);
    EXPECT_NEAR(curve->evaluate(-0.5), -1.0, 1e-12);
    EXPECT_NEAR(curve->evaluate(-2.5), -5.0, 1e-12);
    EXPECT_NEAR(curve->evaluate(-2.0), -4.0, 1e-12);

    // Every other cycle runs backwards.
    both(InfinityType::Oscillate);
    EXPECT_NEAR(curve->evaluate(2.5), 3.0, 1e-12);
    EXPECT_NEAR(curve->evaluate(4.5), 1.0, 1e-12);
    EXPECT_NEAR(curve->evaluate(-0.5), 1.0, 1e-12);
    EXPECT_NEAR(curve->evaluate(-2.5), 3.0, 1e-12);
}

TEST(Evaluation, OneKeyCyclingWithOffsetStaysAtItsValue)
{
    auto curve = makeCurve({{1, 7}}, TangentType::Auto);
    curve->setInfinity(Side::In, InfinityType::CycleRelative, nullptr);
    curve->setInfinity(Side::Out, InfinityType::CycleRelative, nullptr);
    EXPECT_EQ(curve->evaluate(-10), 7.0);
    EXPECT_EQ(curve->evaluate(10), 7.0);
}

TEST(Evaluation, FoldedTimesAreWholeTicksOnTimeCurves)
{
    // 2.5 s + 1e-10 folds to 0.5 s + 1e-10, read back as the tick at 0.5 s.
    auto timed = makeCurve({{0, 0}, {2, 4}}, TangentType::Linear, false, true);
    auto unitless = makeCurve({{0, 0}, {2, 4}}, TangentType::Linear, false, false);
    for (auto& curve : {timed, unitless})
        curve->setInfinity(Side::Out, InfinityType::Cycle, nullptr);
    EXPECT_EQ(timed->evaluate(2.5 + 1e-10), 1.0);
    EXPECT_NEAR(unitless->evaluate(2.5 + 1e-10), 1.0 + 2e-10, 1e-13);
}

// An independent reading of a weighted span: de Casteljau's construction,
// with the parameter found by halving on its time.
TEST(Evaluation, RandomWeightedSpansMatchDeCasteljau)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    for (int trial = 0; trial < 200; ++trial)
    {
        const double span = 0.1 + 3 * unit(random);
        const double rise = 10 * (unit(random) - 0.5);
        auto curve = makeCurve({{0, 0}, {span, rise}}, TangentType::Flat, true);
        curve->setTangentsLocked(0, false, nullptr);
        curve->setTangentsLocked(1, false, nullptr);
        // Handles anywhere within the span, so no pulling back is needed.
        const Tangent out{3 * span * unit(random), 20 * (unit(random) - 0.5)};
        const Tangent in{3 * span * unit(random), 20 * (unit(random) - 0.5)};
        curve->setTangent(0, Side::Out, out, nullptr);
        curve->setTangent(1, Side::In, in, nullptr);

        const double px[4] = {0, out.x / 3, span - in.x / 3, span};
        const double py[4] = {0, out.y / 3, rise - in.y / 3, rise};
        auto bezier = [](const double* p, double u) {
            const double a = p[0] + u * (p[1] - p[0]), b = p[1] + u * (p[2] - p[1]), c = p[2] + u * (p[3] - p[2]);
            const double d = a + u * (b - a), e = b + u * (c - b);
            return d + u * (e - d);
        };
        const double x = span * unit(random);
        double lo = 0, hi = 1;
        for (int i = 0; i < 200; ++i)
            (bezier(px, 0.5 * (lo + hi)) < x ? lo : hi) = 0.5 * (lo + hi);
        const bool thirds = std::fabs(px[1] / span - 1.0 / 3) <= 1e-6 && std::fabs(px[2] / span - 2.0 / 3) <= 1e-6;
        if (!thirds)
        {
            EXPECT_NEAR(curve->evaluate(x), bezier(py, 0.5 * (lo + hi)), 1e-9) << "trial " << trial;
        }
    }
}

// Hermite spans meet their keys with the keys' tangent slopes.
TEST(Evaluation, RandomHermiteSpansLeaveAndArriveAlongTheTangents)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const TangentType types[] = {TangentType::Smooth, TangentType::Auto, TangentType::Clamped,
                                 TangentType::Plateau, TangentType::Flat};
    for (int trial = 0; trial < 50; ++trial)
    {
        auto curve = std::make_shared<AnimCurveData>(false);
        double input = 0;
        for (int k = 0; k < 6; ++k)
        {
            const TangentType type = types[random() % 5];
            curve->addKey(input, 10 * unit(random), type, type, nullptr);
            input += 0.2 + unit(random);
        }
        // One-sided differences of second order.
        const double h = 1e-5;
        for (std::size_t i = 0; i + 1 < curve->size(); ++i)
        {
            const Key& a = curve->key(i);
            const Key& b = curve->key(i + 1);
            const double leaving =
                (4 * curve->evaluate(a.input + h) - curve->evaluate(a.input + 2 * h) - 3 * a.value) / (2 * h);
            const double arriving =
                (3 * b.value - 4 * curve->evaluate(b.input - h) + curve->evaluate(b.input - 2 * h)) / (2 * h);
            EXPECT_NEAR(leaving, a.out.y / a.out.x, 1e-4 * (1 + std::fabs(leaving)));
            EXPECT_NEAR(arriving, b.in.y / b.in.x, 1e-4 * (1 + std::fabs(arriving)));
        }
    }
}

// Auto tangents never carry a rising or falling run of keys past its keys.
TEST(Evaluation, RandomAutoCurvesDoNotOvershootMonotonicKeys)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    for (int trial = 0; trial < 50; ++trial)
    {
        for (bool weighted : {false, true})
        {
            auto curve = std::make_shared<AnimCurveData>(false);
            curve->setWeighted(weighted, nullptr);
            double input = 0, value = 0;
            for (int k = 0; k < 6; ++k)
            {
                curve->addKey(input, value, TangentType::Auto, TangentType::Auto, nullptr);
                input += 0.1 + unit(random);
                value += 5 * unit(random) * unit(random);
            }
            for (std::size_t i = 0; i + 1 < curve->size(); ++i)
                for (int s = 1; s < 20; ++s)
                {
                    const double x = curve->key(i).input + s * (curve->key(i + 1).input - curve->key(i).input) / 20;
                    EXPECT_GE(curve->evaluate(x), curve->key(i).value - 1e-12);
                    EXPECT_LE(curve->evaluate(x), curve->key(i + 1).value + 1e-12);
                }
        }
    }
}
