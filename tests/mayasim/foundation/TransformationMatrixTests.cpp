#include <maya/MEulerRotation.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MQuaternion.h>
#include <maya/MTransformationMatrix.h>
#include <maya/MVector.h>

#include "MathTestSupport.h"

using namespace mathtest;

namespace {

// Every component set, rotation order ZXY, rotate axis (10, 20, 30) degrees.
struct Components
{
    double scale[3] = {2, 3, 4};
    double shear[3] = {0.5, 0.25, 0.1}; // xy, xz, yz
    MPoint scalePivot{1, 2, 3};
    MVector scalePivotTranslate{0.5, 0, -0.5};
    MPoint rotatePivot{-1, 0.5, 2};
    MVector rotatePivotTranslate{0.25, 0.5, 0.75};
    double rotateAxis[3] = {degrees(10), degrees(20), degrees(30)};
    double rotate[3] = {degrees(30), degrees(45), degrees(60)};
    MVector translate{5, 6, 7};
};

MTransformationMatrix build(const Components& c)
{
    MTransformationMatrix tm;
    tm.setScale(c.scale, MSpace::kTransform);
    tm.setShear(c.shear, MSpace::kTransform);
    tm.setScalePivot(c.scalePivot, MSpace::kTransform, false);
    tm.setScalePivotTranslation(c.scalePivotTranslate, MSpace::kTransform);
    tm.setRotatePivot(c.rotatePivot, MSpace::kTransform, false);
    tm.setRotatePivotTranslation(c.rotatePivotTranslate, MSpace::kTransform);
    tm.setRotationOrientation(MEulerRotation(c.rotateAxis[0], c.rotateAxis[1], c.rotateAxis[2]).asQuaternion());
    tm.setRotation(c.rotate, MTransformationMatrix::kZXY);
    tm.setTranslation(c.translate, MSpace::kTransform);
    return tm;
}

// [-Sp] * S * Sh * [Sp] * [St] * [-Rp] * Ro * R * [Rp] * [Rt] * T, each factor
// written out as the class reference documents it.
MMatrix documentedProduct(const Components& c)
{
    const MMatrix scale = rows({{c.scale[0], 0, 0, 0}, {0, c.scale[1], 0, 0}, {0, 0, c.scale[2], 0}, {0, 0, 0, 1}});
    const MMatrix shear = rows({{1, 0, 0, 0}, {c.shear[0], 1, 0, 0}, {c.shear[1], c.shear[2], 1, 0}, {0, 0, 0, 1}});
    const MMatrix rotateAxis = rotateX(c.rotateAxis[0]) * rotateY(c.rotateAxis[1]) * rotateZ(c.rotateAxis[2]);
    const MMatrix rotateZXY = rotateZ(c.rotate[2]) * rotateX(c.rotate[0]) * rotateY(c.rotate[1]);
    const MPoint& sp = c.scalePivot;
    const MPoint& rp = c.rotatePivot;
    const MVector& st = c.scalePivotTranslate;
    const MVector& rt = c.rotatePivotTranslate;
    return translate(-sp.x, -sp.y, -sp.z) * scale * shear * translate(sp.x, sp.y, sp.z) * translate(st.x, st.y, st.z) *
           translate(-rp.x, -rp.y, -rp.z) * rotateAxis * rotateZXY * translate(rp.x, rp.y, rp.z) *
           translate(rt.x, rt.y, rt.z) * translate(c.translate.x, c.translate.y, c.translate.z);
}

} // namespace

TEST(TransformationMatrix, RotationOrdersAreOneAboveEulerOrders)
{
    EXPECT_EQ(MTransformationMatrix::kInvalid, 0);
    EXPECT_EQ(MTransformationMatrix::kXYZ, MEulerRotation::kXYZ + 1);
    EXPECT_EQ(MTransformationMatrix::kYZX, MEulerRotation::kYZX + 1);
    EXPECT_EQ(MTransformationMatrix::kZXY, MEulerRotation::kZXY + 1);
    EXPECT_EQ(MTransformationMatrix::kXZY, MEulerRotation::kXZY + 1);
    EXPECT_EQ(MTransformationMatrix::kYXZ, MEulerRotation::kYXZ + 1);
    EXPECT_EQ(MTransformationMatrix::kZYX, MEulerRotation::kZYX + 1);
    EXPECT_EQ(MTransformationMatrix::kLast, 7);

    MTransformationMatrix tm;
    EXPECT_EQ(tm.rotationOrder(), MTransformationMatrix::kXYZ);
    const double r[3] = {0.1, 0.2, 0.3};
    tm.setRotation(r, MTransformationMatrix::kYXZ);
    EXPECT_EQ(tm.rotationOrder(), MTransformationMatrix::kYXZ);
    EXPECT_EQ(tm.eulerRotation().order, MEulerRotation::kYXZ);
    EXPECT_EQ(tm.setRotation(r, MTransformationMatrix::kInvalid), MS::kInvalidParameter);
}

TEST(TransformationMatrix, ComposesTheDocumentedStack)
{
    const Components c;
    EXPECT_TRUE(matricesNear(build(c).asMatrix(), documentedProduct(c)));
    EXPECT_TRUE(matricesNear(build(c).asMatrixInverse() * documentedProduct(c), MMatrix::identity));
}

TEST(TransformationMatrix, RotationTurnsAboutTheRotatePivot)
{
    MTransformationMatrix tm;
    tm.setRotatePivot(MPoint(1, 0, 0), MSpace::kTransform, false);
    tm.rotateTo(MEulerRotation(0, 0, degrees(90)));
    // The pivot stays; the origin, one unit in -x from it, swings to -y of it.
    EXPECT_TRUE((MPoint(1, 0, 0) * tm.asMatrix()).isEquivalent(MPoint(1, 0, 0), 1e-12));
    EXPECT_TRUE((MPoint::origin * tm.asMatrix()).isEquivalent(MPoint(1, -1, 0), 1e-12));
    EXPECT_TRUE(tm.rotatePivot(MSpace::kWorld).isEquivalent(MPoint(1, 0, 0), 1e-12));
}

TEST(TransformationMatrix, BalancedPivotsKeepTheMatrix)
{
    MTransformationMatrix tm = build(Components());
    const MMatrix before = tm.asMatrix();
    ASSERT_EQ(tm.setRotatePivot(MPoint(3, -2, 1), MSpace::kTransform, true), MS::kSuccess);
    ASSERT_EQ(tm.setScalePivot(MPoint(-4, 0, 2), MSpace::kTransform, true), MS::kSuccess);
    EXPECT_TRUE(matricesNear(tm.asMatrix(), before));
    EXPECT_TRUE(tm.rotatePivot(MSpace::kTransform).isEquivalent(MPoint(3, -2, 1)));
    EXPECT_TRUE(tm.scalePivot(MSpace::kTransform).isEquivalent(MPoint(-4, 0, 2)));
    EXPECT_FALSE(tm.rotatePivotTranslation(MSpace::kTransform).isEquivalent(Components().rotatePivotTranslate));

    // Unbalanced, the same move shifts the object.
    MTransformationMatrix moved = build(Components());
    moved.setRotatePivot(MPoint(3, -2, 1), MSpace::kTransform, false);
    EXPECT_FALSE(moved.asMatrix().isEquivalent(before, 1e-6));
}

TEST(TransformationMatrix, DecomposesAMatrixIntoItsComponents)
{
    const double scale[3] = {2, 0.5, 3};
    const double shear[3] = {0.3, -0.2, 0.4};
    const MEulerRotation rotation(degrees(25), degrees(-40), degrees(70));
    MTransformationMatrix source;
    source.setScale(scale, MSpace::kTransform);
    source.setShear(shear, MSpace::kTransform);
    source.rotateTo(rotation);
    source.setTranslation(MVector(1, -2, 3), MSpace::kTransform);

    const MTransformationMatrix tm(source.asMatrix());
    double s[3], sh[3], r[3];
    MTransformationMatrix::RotationOrder order;
    ASSERT_EQ(tm.getScale(s, MSpace::kTransform), MS::kSuccess);
    ASSERT_EQ(tm.getShear(sh, MSpace::kTransform), MS::kSuccess);
    ASSERT_EQ(tm.getRotation(r, order), MS::kSuccess);
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_NEAR(s[i], scale[i], 1e-9);
        EXPECT_NEAR(sh[i], shear[i], 1e-9);
        EXPECT_NEAR(r[i], rotation[static_cast<unsigned int>(i)], 1e-9);
    }
    EXPECT_EQ(order, MTransformationMatrix::kXYZ);
    EXPECT_TRUE(tm.getTranslation(MSpace::kTransform).isEquivalent(MVector(1, -2, 3)));
    EXPECT_TRUE(tm.getTranslation(MSpace::kWorld).isEquivalent(MVector(1, -2, 3)));
    double x, y, z, w;
    tm.getRotationQuaternion(x, y, z, w);
    EXPECT_TRUE(matricesNear(MQuaternion(x, y, z, w).asMatrix(), rotation.asMatrix()));
    EXPECT_TRUE(matricesNear(tm.asMatrix(), source.asMatrix()));
}

TEST(TransformationMatrix, MirrorDecomposesWithNegativeXScale)
{
    const MMatrix mirror = rows({{-2, 0, 0, 0}, {0, 3, 0, 0}, {0, 0, 4, 0}, {0, 0, 0, 1}}) * rotateY(degrees(30));
    const MTransformationMatrix tm(mirror);
    double s[3];
    tm.getScale(s, MSpace::kTransform);
    EXPECT_NEAR(s[0], -2, 1e-12);
    EXPECT_NEAR(s[1], 3, 1e-12);
    EXPECT_NEAR(s[2], 4, 1e-12);
    EXPECT_TRUE(matricesNear(tm.asMatrix(), mirror));
}

TEST(TransformationMatrix, ReorderKeepsTheRotation)
{
    MTransformationMatrix tm;
    tm.rotateTo(MEulerRotation(degrees(20), degrees(30), degrees(40)));
    const MMatrix before = tm.asMatrix();
    ASSERT_EQ(tm.reorderRotation(MTransformationMatrix::kZYX), MS::kSuccess);
    EXPECT_EQ(tm.rotationOrder(), MTransformationMatrix::kZYX);
    EXPECT_TRUE(matricesNear(tm.asMatrix(), before));
}

TEST(TransformationMatrix, RejectsInvalidSpaces)
{
    MTransformationMatrix tm;
    double s[3];
    EXPECT_EQ(tm.getScale(s, MSpace::kInvalid), MS::kInvalidParameter);
    MStatus status;
    tm.getTranslation(MSpace::kLast, &status);
    EXPECT_EQ(status, MS::kInvalidParameter);
}
