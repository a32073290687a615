#include <maya/MEulerRotation.h>
#include <maya/MMatrix.h>
#include <maya/MQuaternion.h>
#include <maya/MVector.h>

#include "MathTestSupport.h"

using namespace mathtest;

namespace {

const MEulerRotation::RotationOrder kOrders[] = {MEulerRotation::kXYZ, MEulerRotation::kYZX, MEulerRotation::kZXY,
                                                 MEulerRotation::kXZY, MEulerRotation::kYXZ, MEulerRotation::kZYX};

// Within a quarter turn, so every order reads them back as the principal solution.
const double kAngles[][3] = {{10, 20, 30}, {-45, 30, 80}, {60, -60, -15}, {0, 0, 0}, {89, -1, 5}, {-80, 5, 60}};

// The documented axis matrix for an axis index.
MMatrix axisRotation(int axis, double angle)
{
    return axis == 0 ? rotateX(angle) : axis == 1 ? rotateY(angle) : rotateZ(angle);
}

// The three axes of each order, first applied first.
const int kAxes[][3] = {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {0, 2, 1}, {1, 0, 2}, {2, 1, 0}};

MEulerRotation euler(const double (&a)[3], MEulerRotation::RotationOrder order)
{
    return MEulerRotation(degrees(a[0]), degrees(a[1]), degrees(a[2]), order);
}

} // namespace

TEST(EulerRotation, MatrixComposesTheAxesInOrderWithRowVectors)
{
    for (MEulerRotation::RotationOrder order : kOrders)
        for (const auto& a : kAngles)
        {
            const MEulerRotation e = euler(a, order);
            MMatrix expected;
            for (int axis : kAxes[order])
                expected *= axisRotation(axis, e[static_cast<unsigned int>(axis)]);
            EXPECT_TRUE(matricesNear(e.asMatrix(), expected)) << "order " << order;
        }
}

TEST(EulerRotation, HandComputedQuarterTurnsForYXZ)
{
    // Ry(90) * Rx(90): x goes to -z then to y; y stays then goes to z; z goes to x.
    const MEulerRotation e(degrees(90), degrees(90), 0.0, MEulerRotation::kYXZ);
    EXPECT_TRUE(matricesNear(e.asMatrix(), rows({{0, 1, 0, 0}, {0, 0, 1, 0}, {1, 0, 0, 0}, {0, 0, 0, 1}})));
    // The same angles in XYZ order are a different rotation.
    const MEulerRotation xyz(degrees(90), degrees(90), 0.0, MEulerRotation::kXYZ);
    EXPECT_TRUE(matricesNear(xyz.asMatrix(), rows({{0, 0, -1, 0}, {1, 0, 0, 0}, {0, -1, 0, 0}, {0, 0, 0, 1}})));
}

TEST(EulerRotation, PositiveAnglesTurnRightHanded)
{
    const MVector y = MVector::yAxis.rotateBy(MEulerRotation(degrees(90), 0.0, 0.0));
    EXPECT_TRUE(y.isEquivalent(MVector::zAxis, 1e-12)) << y;
    const MVector x = MVector::xAxis.rotateBy(MVector::kZaxis, degrees(90));
    EXPECT_TRUE(x.isEquivalent(MVector::yAxis, 1e-12)) << x;
}

TEST(EulerRotation, RoundTripsThroughMatrixAndQuaternionInEveryOrder)
{
    for (MEulerRotation::RotationOrder order : kOrders)
        for (const auto& a : kAngles)
        {
            const MEulerRotation e = euler(a, order);
            EXPECT_TRUE(MEulerRotation::decompose(e.asMatrix(), order).isEquivalent(e, 1e-9))
                << e << " came back as " << MEulerRotation::decompose(e.asMatrix(), order);
            EXPECT_TRUE(matricesNear(e.asQuaternion().asMatrix(), e.asMatrix()));
            MEulerRotation back = e.asQuaternion().asEulerRotation();
            EXPECT_EQ(back.order, MEulerRotation::kXYZ);
            back.reorderIt(order);
            EXPECT_TRUE(back.isEquivalent(e, 1e-9)) << e << " came back as " << back;
            EXPECT_TRUE(back.asVector().isEquivalent(MVector(e.x, e.y, e.z), 1e-9));
        }
}

TEST(EulerRotation, ReorderKeepsTheRotation)
{
    const MEulerRotation e(degrees(-170), degrees(120), degrees(100), MEulerRotation::kXYZ);
    for (MEulerRotation::RotationOrder order : kOrders)
    {
        const MEulerRotation r = e.reorder(order);
        EXPECT_EQ(r.order, order);
        EXPECT_TRUE(matricesNear(r.asMatrix(), e.asMatrix()));
    }
}

TEST(EulerRotation, GimbalLockStillGivesTheRotation)
{
    const MEulerRotation e(degrees(30), degrees(90), degrees(40), MEulerRotation::kXYZ);
    const MEulerRotation back = MEulerRotation::decompose(e.asMatrix(), MEulerRotation::kXYZ);
    EXPECT_TRUE(matricesNear(back.asMatrix(), e.asMatrix()));
    EXPECT_NEAR(back.y, degrees(90), 1e-9);
}

TEST(EulerRotation, AlternateAndClosestSolutions)
{
    const MEulerRotation e(degrees(10), degrees(20), degrees(30), MEulerRotation::kZXY);
    const MEulerRotation alt = e.alternateSolution();
    EXPECT_TRUE(matricesNear(alt.asMatrix(), e.asMatrix()));
    EXPECT_FALSE(alt.isEquivalent(e, 1e-6));

    const MEulerRotation wound(degrees(370), degrees(-350), degrees(725));
    EXPECT_TRUE(wound.bound().isEquivalent(MEulerRotation(degrees(10), degrees(10), degrees(5)), 1e-9));
    // Near a target far along the winding, the closest solution follows it.
    const MEulerRotation target(degrees(350), 0.0, degrees(-355));
    const MEulerRotation closest = MEulerRotation(degrees(-10), 0.0, degrees(5)).closestSolution(target);
    EXPECT_TRUE(closest.isEquivalent(MEulerRotation(degrees(350), 0.0, degrees(-355)), 1e-9)) << closest;
}

TEST(EulerRotation, InverseUndoesTheRotationInReverseOrder)
{
    for (MEulerRotation::RotationOrder order : kOrders)
    {
        const MEulerRotation e = euler(kAngles[2], order);
        EXPECT_TRUE(matricesNear(e.asMatrix() * e.inverse().asMatrix(), MMatrix::identity));
    }
    EXPECT_EQ(MEulerRotation(1, 2, 3, MEulerRotation::kYZX).inverse().order, MEulerRotation::kXZY);
}

TEST(Quaternion, ProductComposesLikeRowVectorMatrices)
{
    const MQuaternion a = euler(kAngles[0], MEulerRotation::kXYZ).asQuaternion();
    const MQuaternion b = euler(kAngles[2], MEulerRotation::kZYX).asQuaternion();
    EXPECT_TRUE(matricesNear((a * b).asMatrix(), a.asMatrix() * b.asMatrix()));
    EXPECT_FALSE((a * b).isEquivalent(b * a, 1e-6));
}

TEST(Quaternion, InverseConjugateAndNormal)
{
    const MQuaternion q = euler(kAngles[1], MEulerRotation::kYXZ).asQuaternion();
    EXPECT_TRUE((q * q.inverse()).isEquivalent(MQuaternion::identity, 1e-12));
    EXPECT_TRUE(q.conjugate().isEquivalent(q.inverse(), 1e-12));

    const MQuaternion scaled = MQuaternion(q).scaleIt(3.0);
    EXPECT_TRUE(scaled.normal().isEquivalent(q, 1e-12));
    EXPECT_TRUE((scaled * scaled.inverse()).isEquivalent(MQuaternion::identity, 1e-12));
    EXPECT_TRUE(matricesNear(scaled.asMatrix(), q.asMatrix()));
}

TEST(Quaternion, AxisAngleAndMatrixReadBack)
{
    const MQuaternion q(degrees(120), MVector(1, 1, 1));
    MVector axis;
    double angle = 0.0;
    ASSERT_TRUE(q.getAxisAngle(axis, angle));
    EXPECT_NEAR(angle, degrees(120), 1e-12);
    EXPECT_TRUE(axis.isEquivalent(MVector(1, 1, 1).normal(), 1e-12));
    // A third of a turn about the diagonal cycles the axes: x to y.
    EXPECT_TRUE(MVector::xAxis.rotateBy(q).isEquivalent(MVector::yAxis, 1e-12));

    MQuaternion fromMatrix;
    fromMatrix = q.asMatrix();
    EXPECT_TRUE(fromMatrix.isEquivalent(q, 1e-12) || fromMatrix.isEquivalent(-q, 1e-12)) << fromMatrix;
}

TEST(Quaternion, BetweenTwoDirections)
{
    const MVector a(1, 2, 0), b(0, -1, 3);
    EXPECT_TRUE(a.rotateBy(MQuaternion(a, b)).normal().isEquivalent(b.normal(), 1e-12));
    EXPECT_TRUE(a.rotateBy(MQuaternion(a, -a)).normal().isEquivalent(-a.normal(), 1e-12));
    EXPECT_TRUE(MQuaternion(a, 2.0 * a).isEquivalent(MQuaternion::identity, 1e-12));
}

TEST(Quaternion, SlerpMidpointAndEnds)
{
    const MQuaternion p = MQuaternion::identity;
    const MQuaternion q = MQuaternion().setToZAxis(degrees(90));
    EXPECT_TRUE(slerp(p, q, 0.5).isEquivalent(MQuaternion().setToZAxis(degrees(45)), 1e-12));
    EXPECT_TRUE(slerp(p, q, 0.0).isEquivalent(p, 1e-12));
    EXPECT_TRUE(slerp(p, q, 1.0).isEquivalent(q, 1e-12));
    // The shorter arc, whichever sign q has.
    EXPECT_TRUE(matricesNear(slerp(p, -q, 0.5).asMatrix(), MQuaternion().setToZAxis(degrees(45)).asMatrix()));
    // One extra half turn of spin goes the long way round.
    EXPECT_TRUE(matricesNear(slerp(p, q, 0.5, 1).asMatrix(), MQuaternion().setToZAxis(degrees(225)).asMatrix()));
}

TEST(Quaternion, LogAndExpAreInverse)
{
    const MQuaternion q = euler(kAngles[2], MEulerRotation::kXYZ).asQuaternion();
    EXPECT_TRUE(q.log().exp().isEquivalent(q, 1e-12));
    EXPECT_NEAR(MQuaternion().setToXAxis(degrees(60)).log().x, degrees(30), 1e-12);
}
