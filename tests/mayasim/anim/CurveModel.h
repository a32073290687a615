#pragma once
// Builds curves on mayasim's curve model for the tests that pin Maya's
// tangent and evaluation rules on it directly.
#include "../../../mayasim/src/openmayaanim/AnimCurveData.h"
#include "../../../mayasim/src/openmayaanim/ChangeLog.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <memory>
#include <utility>

namespace curvetest {

using namespace mayasim::anim;

struct Point
{
    double input;
    double value;
};

// Keys on an unweighted or weighted curve, all of one tangent type.
inline std::shared_ptr<AnimCurveData> makeCurve(std::initializer_list<Point> keys, TangentType type,
                                                bool weighted = false, bool timeInput = false)
{
    auto curve = std::make_shared<AnimCurveData>(timeInput);
    curve->setWeighted(weighted, nullptr);
    for (const Point& key : keys)
        curve->addKey(key.input, key.value, type, type, nullptr);
    return curve;
}

// An unweighted tangent is kept as a unit vector in the direction given.
inline void expectDirection(const Tangent& tangent, double x, double y)
{
    const double length = std::hypot(x, y);
    EXPECT_NEAR(tangent.x, x / length, 1e-12);
    EXPECT_NEAR(tangent.y, y / length, 1e-12);
}

inline void expectTangent(const Tangent& tangent, double x, double y)
{
    EXPECT_NEAR(tangent.x, x, 1e-12);
    EXPECT_NEAR(tangent.y, y, 1e-12);
}

} // namespace curvetest
