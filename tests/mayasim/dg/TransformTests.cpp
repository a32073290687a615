// World matrices against Maya's documented transform stack, composed here
// from elementary matrices (row vectors):
//   SP^-1 * S * SH * SP * ST * RP^-1 * RA * R * RP * RT * T
// with R in the node's rotate order and, for joints, R followed by JO.
#include "DgTest.h"

#include <maya/MEulerRotation.h>
#include <maya/MFnTransform.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

#include <cmath>

using namespace dgtest;

namespace {

const double kDegree = M_PI / 180.0;

MMatrix translate(double x, double y, double z)
{
    MMatrix m;
    m[3][0] = x;
    m[3][1] = y;
    m[3][2] = z;
    return m;
}

MMatrix scale(double x, double y, double z)
{
    MMatrix m;
    m[0][0] = x;
    m[1][1] = y;
    m[2][2] = z;
    return m;
}

MMatrix shear(double xy, double xz, double yz)
{
    MMatrix m;
    m[1][0] = xy;
    m[2][0] = xz;
    m[2][1] = yz;
    return m;
}

MMatrix rotateX(double degrees)
{
    const double c = std::cos(degrees * kDegree), s = std::sin(degrees * kDegree);
    MMatrix m;
    m[1][1] = c;
    m[1][2] = s;
    m[2][1] = -s;
    m[2][2] = c;
    return m;
}

MMatrix rotateY(double degrees)
{
    const double c = std::cos(degrees * kDegree), s = std::sin(degrees * kDegree);
    MMatrix m;
    m[0][0] = c;
    m[0][2] = -s;
    m[2][0] = s;
    m[2][2] = c;
    return m;
}

MMatrix rotateZ(double degrees)
{
    const double c = std::cos(degrees * kDegree), s = std::sin(degrees * kDegree);
    MMatrix m;
    m[0][0] = c;
    m[0][1] = s;
    m[1][0] = -s;
    m[1][1] = c;
    return m;
}

// Maya's rotateOrder values 0..5: xyz, yzx, zxy, xzy, yxz, zyx; the first
// axis named turns first.
MMatrix rotation(int order, double x, double y, double z)
{
    const MMatrix rx = rotateX(x), ry = rotateY(y), rz = rotateZ(z);
    switch (order)
    {
    case 0: return rx * ry * rz;
    case 1: return ry * rz * rx;
    case 2: return rz * rx * ry;
    case 3: return rx * rz * ry;
    case 4: return ry * rx * rz;
    default: return rz * ry * rx;
    }
}

MMatrix worldMatrix(const std::string& node)
{
    return matrixOf(plugNamed(node + ".worldMatrix[0]"));
}

class TransformTest : public DgTest
{
};

TEST_F(TransformTest, EveryRotateOrderWithPivotsShearAndRotateAxisComposesAsDocumented)
{
    for (int order = 0; order < 6; ++order)
    {
        SCOPED_TRACE("rotateOrder " + std::to_string(order));
        clearScene();
        ASSERT_TRUE(mel("createNode transform -n n"));
        ASSERT_TRUE(mel("setAttr n.translate 1 2 3; setAttr n.rotate 30 -45 60; setAttr n.scale 2 0.5 1.5"));
        ASSERT_TRUE(mel("setAttr n.shear 0.1 0.2 0.3; setAttr n.rotateOrder " + std::to_string(order)));
        ASSERT_TRUE(mel("setAttr n.rotatePivot 0.5 -1 2; setAttr n.rotatePivotTranslate 0.25 0 -0.5"));
        ASSERT_TRUE(mel("setAttr n.scalePivot -1 0.5 0.75; setAttr n.scalePivotTranslate 0 1 0"));
        ASSERT_TRUE(mel("setAttr n.rotateAxis 10 20 -30"));
        const MMatrix expected = translate(1, -0.5, -0.75) * scale(2, 0.5, 1.5) * shear(0.1, 0.2, 0.3) *
                                 translate(-1, 0.5, 0.75) * translate(0, 1, 0) * translate(-0.5, 1, -2) *
                                 rotation(0, 10, 20, -30) * rotation(order, 30, -45, 60) * translate(0.5, -1, 2) *
                                 translate(0.25, 0, -0.5) * translate(1, 2, 3);
        expectMatrixNear(worldMatrix("n"), expected);
        expectMatrixNear(matrixOf(plugNamed("n.matrix")), expected);
        expectMatrixNear(matrixOf(plugNamed("n.worldInverseMatrix[0]")), expected.inverse(), 1e-8);
    }
}

TEST_F(TransformTest, RotatingAboutAPivotKeepsThePivotInPlace)
{
    // 90 degrees about z around (1, 0, 0): the origin goes to (1, -1, 0).
    ASSERT_TRUE(mel("createNode transform -n p; setAttr p.rz 90; setAttr p.rp 1 0 0"));
    const MMatrix m = worldMatrix("p");
    const MPoint origin = MPoint(0, 0, 0) * m;
    EXPECT_NEAR(origin.x, 1.0, 1e-12);
    EXPECT_NEAR(origin.y, -1.0, 1e-12);
    const MPoint pivot = MPoint(1, 0, 0) * m;
    EXPECT_NEAR(pivot.x, 1.0, 1e-12);
    EXPECT_NEAR(pivot.y, 0.0, 1e-12);
}

TEST_F(TransformTest, JointOrientFollowsRotateAndTheParentChainMultipliesOnTheRight)
{
    ASSERT_TRUE(mel("createNode transform -n root; setAttr root.t 0 5 0; setAttr root.r 0 90 0; setAttr root.s 2 2 2"));
    ASSERT_TRUE(mel("createNode joint -n j -p root; setAttr j.t 1 0 0; setAttr j.r 0 0 45"));
    ASSERT_TRUE(mel("setAttr j.jointOrient 90 0 0; setAttr j.rotateAxis 0 10 0; setAttr j.rotateOrder 2"));
    ASSERT_TRUE(mel("createNode transform -n leaf -p j; setAttr leaf.t 0 3 0"));
    const MMatrix root = scale(2, 2, 2) * rotation(0, 0, 90, 0) * translate(0, 5, 0);
    const MMatrix joint = rotation(0, 0, 10, 0) * rotation(2, 0, 0, 45) * rotation(0, 90, 0, 0) * translate(1, 0, 0);
    expectMatrixNear(worldMatrix("root"), root);
    expectMatrixNear(worldMatrix("j"), joint * root);
    expectMatrixNear(worldMatrix("leaf"), translate(0, 3, 0) * joint * root);
    expectMatrixNear(matrixOf(plugNamed("leaf.parentMatrix[0]")), joint * root);
    expectMatrixNear(matrixOf(plugNamed("leaf.parentInverseMatrix[0]")), (joint * root).inverse(), 1e-8);
}

TEST_F(TransformTest, InheritsTransformOffIgnoresTheParent)
{
    ASSERT_TRUE(mel("createNode transform -n a; setAttr a.t 5 0 0"));
    ASSERT_TRUE(mel("createNode transform -n b -p a; setAttr b.t 0 1 0; setAttr b.inheritsTransform 0"));
    expectMatrixNear(worldMatrix("b"), translate(0, 1, 0));
}

TEST_F(TransformTest, ParentKeepsTheWorldPositionUnlessRelative)
{
    ASSERT_TRUE(mel("createNode transform -n p; setAttr p.t 1 2 3; setAttr p.r 0 0 90; setAttr p.s 2 2 2"));
    ASSERT_TRUE(mel("createNode transform -n c; setAttr c.t 4 0 0; setAttr c.r 10 20 30; setAttr c.ro 3"));
    const MMatrix before = worldMatrix("c");
    ASSERT_TRUE(mel("parent c p"));
    EXPECT_EQ(melString("listRelatives -p c"), "p");
    expectMatrixNear(worldMatrix("c"), before, 1e-9);

    ASSERT_TRUE(mel("createNode transform -n r; setAttr r.t 4 0 0"));
    ASSERT_TRUE(mel("parent -r r p"));
    expectMatrixNear(worldMatrix("r"), translate(4, 0, 0) * worldMatrix("p"));
    ASSERT_TRUE(mel("undo"));
    expectMatrixNear(worldMatrix("r"), translate(4, 0, 0));
}

TEST_F(TransformTest, RotationOrderOfTheFunctionSetIsOneAboveTheEulerOrder)
{
    ASSERT_TRUE(mel("createNode transform -n t; setAttr t.ro 4"));
    MFnTransform fn(nodeNamed("t"));
    EXPECT_EQ(fn.rotationOrder(), MTransformationMatrix::kYXZ);
    MEulerRotation euler;
    fn.getRotation(euler);
    EXPECT_EQ(euler.order, MEulerRotation::kYXZ);
}

TEST_F(TransformTest, PivotSettersWithBalanceDoNotMoveTheNode)
{
    ASSERT_TRUE(mel("createNode transform -n t; setAttr t.t 1 2 3; setAttr t.r 30 40 50; setAttr t.s 1 2 3"));
    MFnTransform fn(nodeNamed("t"));
    const MMatrix before = worldMatrix("t");
    ASSERT_TRUE(fn.setRotatePivot(MPoint(1, -2, 0.5), MSpace::kTransform, true));
    ASSERT_TRUE(fn.setScalePivot(MPoint(-1, 0.5, 2), MSpace::kTransform, true));
    expectMatrixNear(worldMatrix("t"), before, 1e-9);
    EXPECT_NEAR(fn.rotatePivot(MSpace::kTransform).y, -2.0, 1e-12);

    // Back to the origin, balanced: still no move.
    ASSERT_TRUE(fn.setRotatePivot(MPoint(0, 0, 0), MSpace::kTransform, true));
    ASSERT_TRUE(fn.setScalePivot(MPoint(0, 0, 0), MSpace::kTransform, true));
    expectMatrixNear(worldMatrix("t"), before, 1e-9);

    // Without balance the node moves.
    ASSERT_TRUE(fn.setRotatePivot(MPoint(1, 0, 0), MSpace::kTransform, false));
    EXPECT_GT(std::abs(worldMatrix("t")(3, 0) - before(3, 0)) + std::abs(worldMatrix("t")(3, 1) - before(3, 1)), 1e-6);
}

TEST_F(TransformTest, WorldRotatePivotIsThePivotCarriedByTranslateAndParents)
{
    ASSERT_TRUE(mel("createNode transform -n p; setAttr p.t 10 0 0; setAttr p.rz 90"));
    ASSERT_TRUE(mel("createNode transform -n c -p p; setAttr c.t 1 0 0; setAttr c.rp 0 2 0; setAttr c.rpt 0 0 1"));
    const MPoint pivot = MFnTransform(nodeNamed("c")).rotatePivot(MSpace::kWorld);
    // (rp + rpt + t) = (1, 2, 1) in the parent, turned 90 degrees about z
    // and moved by 10 in x: (10 - 2, 1, 1).
    EXPECT_NEAR(pivot.x, 8.0, 1e-12);
    EXPECT_NEAR(pivot.y, 1.0, 1e-12);
    EXPECT_NEAR(pivot.z, 1.0, 1e-12);
}

TEST_F(TransformTest, WorldTranslationSetterPlacesTheNodeInTheWorld)
{
    ASSERT_TRUE(mel("createNode transform -n p; setAttr p.t 0 5 0; setAttr p.s 2 2 2"));
    ASSERT_TRUE(mel("createNode transform -n c -p p"));
    MFnTransform fn(nodeNamed("c"));
    ASSERT_TRUE(fn.setTranslation(MVector(4, 1, 0), MSpace::kWorld));
    EXPECT_NEAR(worldMatrix("c")(3, 0), 4.0, 1e-12);
    EXPECT_NEAR(worldMatrix("c")(3, 1), 1.0, 1e-12);
    EXPECT_NEAR(fn.getTranslation(MSpace::kTransform).x, 2.0, 1e-12);
    EXPECT_NEAR(fn.getTranslation(MSpace::kTransform).y, -2.0, 1e-12);
}

} // namespace
