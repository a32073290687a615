#include <maya/MColor.h>
#include <maya/MFloatMatrix.h>
#include <maya/MFloatPoint.h>
#include <maya/MFloatVector.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

#include "MathTestSupport.h"

#include <sstream>

using namespace mathtest;

TEST(Matrix, DefaultIsIdentityAndTranslationIsTheFourthRow)
{
    EXPECT_EQ(MMatrix(), MMatrix::identity);
    const MMatrix t = translate(5, 6, 7);
    EXPECT_EQ(t[3][0], 5.0);
    EXPECT_EQ(t(3, 2), 7.0);
    EXPECT_TRUE((MPoint(1, 2, 3) * t).isEquivalent(MPoint(6, 8, 10)));
    // Directions ignore translation.
    EXPECT_EQ(MVector(1, 2, 3) * t, MVector(1, 2, 3));
}

TEST(Matrix, ProductAppliesTheLeftMatrixFirst)
{
    const MMatrix moveThenTurn = translate(1, 0, 0) * rotateZ(degrees(90));
    const MMatrix turnThenMove = rotateZ(degrees(90)) * translate(1, 0, 0);
    EXPECT_TRUE((MPoint::origin * moveThenTurn).isEquivalent(MPoint(0, 1, 0), 1e-12));
    EXPECT_TRUE((MPoint::origin * turnThenMove).isEquivalent(MPoint(1, 0, 0), 1e-12));
    MMatrix product;
    product.setToProduct(translate(1, 0, 0), rotateZ(degrees(90)));
    EXPECT_EQ(product, moveThenTurn);
    // M * p is the column-vector product: the same as p * transpose(M).
    EXPECT_TRUE((moveThenTurn * MPoint(1, 2, 3)).isEquivalent(MPoint(1, 2, 3) * moveThenTurn.transpose()));
}

TEST(Matrix, InverseDeterminantAndAdjoint)
{
    const MMatrix m = rows({{2, 0, 0, 0}, {1, 3, 0, 0}, {0, 0, 4, 0}, {5, 6, 7, 1}});
    EXPECT_DOUBLE_EQ(m.det4x4(), 24.0);
    EXPECT_DOUBLE_EQ(m.det3x3(), 24.0);
    EXPECT_TRUE(matricesNear(m * m.inverse(), MMatrix::identity));
    EXPECT_TRUE(matricesNear(m.adjoint(), m.inverse() * 24.0));
    EXPECT_FALSE(m.isSingular());
    EXPECT_TRUE(rows({{1, 2, 0, 0}, {2, 4, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}).isSingular());
    EXPECT_TRUE(matricesNear((m * 2.0).homogenize(), m));
    EXPECT_TRUE(matricesNear(m + m - m, m));
}

TEST(Matrix, FloatMatrixFollowsTheSameRules)
{
    float values[4][4];
    translate(1, 2, 3).get(values);
    const MFloatMatrix m(values);
    EXPECT_EQ(m[3][1], 2.0F);
    EXPECT_TRUE((MFloatPoint(1, 1, 1) * m).isEquivalent(MFloatPoint(2, 3, 4)));
    EXPECT_TRUE((m * m.inverse()).isEquivalent(MFloatMatrix()));
}

TEST(Vector, ProductsAndLength)
{
    EXPECT_EQ(MVector::xAxis ^ MVector::yAxis, MVector::zAxis);
    EXPECT_EQ(MVector(1, 2, 3) * MVector(4, 5, 6), 32.0);
    EXPECT_EQ(MVector(3, 4, 0).length(), 5.0);
    EXPECT_TRUE(MVector(3, 4, 0).normal().isEquivalent(MVector(0.6, 0.8, 0)));
    EXPECT_NEAR(MVector::xAxis.angle(MVector(1, 1, 0)), degrees(45), 1e-12);
    EXPECT_TRUE(MVector(1, 2, 3).isParallel(MVector(-2, -4, -6)));
    // The plug-in's lerp: a + (b - a) * t.
    const MVector a(1, 2, 3), b(3, 6, 11);
    EXPECT_EQ(a + (b - a) * 0.25, MVector(1.5, 3, 5));
    EXPECT_EQ(2 * a, a * 2.0);
    EXPECT_EQ(MFloatVector(a) * 2, MFloatVector(2, 4, 6));
}

TEST(Point, DifferencesAndHomogeneousForms)
{
    EXPECT_EQ(MPoint(4, 5, 6) - MPoint(1, 1, 1), MVector(3, 4, 5));
    EXPECT_EQ(MPoint(1, 1, 1) + MVector(1, 2, 3), MPoint(2, 3, 4));
    EXPECT_EQ(MPoint().w, 1.0);
    EXPECT_EQ(MPoint(MVector(1, 2, 3)), MPoint(1, 2, 3, 1));
    EXPECT_EQ(MPoint(2, 4, 6, 2).cartesianize(), MPoint(1, 2, 3, 1));
    EXPECT_EQ(MPoint(2, 4, 6, 2).rationalize(), MPoint(1, 2, 3, 2));
    EXPECT_EQ(MPoint(1, 2, 3, 2).homogenize(), MPoint(2, 4, 6, 2));
    EXPECT_EQ(MPoint(3, 0, 4).distanceTo(MPoint::origin), 5.0);
    EXPECT_EQ(MPoint(1, 2, 3) * 2.0, MPoint(2, 4, 6, 1));
    EXPECT_EQ(MFloatPoint(MPoint(2, 4, 6, 2)).cartesianize(), MFloatPoint(1, 2, 3));
}

TEST(Color, ChannelsAndArithmetic)
{
    const MColor c(0.5F, 0.25F, 1.0F, 0.75F);
    EXPECT_EQ(c[0], 0.5F);
    EXPECT_EQ(c[3], 0.75F);
    EXPECT_EQ(MColor().a, 1.0F);
    EXPECT_EQ(MColor(1.0F, 0.0F).b, 0.0F);
    EXPECT_EQ(c * 2.0F, MColor(1.0F, 0.5F, 2.0F, 1.5F));
    EXPECT_EQ(c + c, 2.0F * c);
    EXPECT_EQ(c * MColor(2.0F, 2.0F, 2.0F, 2.0F), c * 2.0F);
}

TEST(MathText, PrintsNumbersAsMayaTextDoes)
{
    std::ostringstream text;
    text << MVector(1, 0.5, -2) << " " << MPoint(1, 2, 3);
    EXPECT_EQ(text.str(), "[1, 0.5, -2] [1, 2, 3, 1]");
}
