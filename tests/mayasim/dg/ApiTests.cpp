// The function sets and paths plug-ins use on scene content: attribute and
// data function sets, MFnDagNode, MDagPath, MFnTransform round trips.
#include "DgTest.h"

#include <maya/MDagPath.h>
#include <maya/MEulerRotation.h>
#include <maya/MFnCompoundAttribute.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnEnumAttribute.h>
#include <maya/MFnMessageAttribute.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnNumericData.h>
#include <maya/MFnStringData.h>
#include <maya/MFnTransform.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MFnUnitAttribute.h>
#include <maya/MPlug.h>
#include <maya/MQuaternion.h>

#include <cmath>

using namespace dgtest;

namespace {

class ApiTest : public DgTest
{
protected:
    void SetUp() override
    {
        DgTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n n"));
        node = nodeNamed("n");
    }
    MObject node;
};

TEST_F(ApiTest, DynamicAttributesOfEachKindHoldTheirValues)
{
    MFnDependencyNode fn(node);
    MFnNumericAttribute numeric;
    MObject weight = numeric.create("weight", "w", MFnNumericData::kDouble, 0.25);
    numeric.setKeyable(true);
    numeric.setMin(0.0);
    MObject point = numeric.create("point", "pt", MFnNumericData::k3Double);
    MFnUnitAttribute unit;
    MObject angle = unit.create("spin", "spn", MFnUnitAttribute::kAngle, M_PI);
    MFnTypedAttribute typed;
    MFnStringData stringData;
    MObject text = typed.create("note", "nt", MFnData::kString, stringData.create("hello"));
    MFnEnumAttribute enumeration;
    MObject mode = enumeration.create("mode", "md", 1);
    enumeration.addField("off", 0);
    enumeration.addField("on", 1);
    MFnMessageAttribute message;
    MObject link = message.create("link", "lk");
    MFnCompoundAttribute compound;
    MObject group = compound.create("group", "grp");
    MObject inner = numeric.create("inner", "inr", MFnNumericData::kInt, 7);
    compound.addChild(inner);
    for (const MObject& attribute : {weight, point, angle, text, mode, link, group})
        ASSERT_TRUE(fn.addAttribute(attribute));
    EXPECT_FALSE(fn.addAttribute(weight)) << "the name is taken";

    EXPECT_EQ(fn.findPlug("weight", true).asDouble(), 0.25);
    EXPECT_TRUE(fn.findPlug("w", true).isKeyable());
    EXPECT_EQ(fn.findPlug("point", true).numChildren(), 3u);
    EXPECT_TRUE(point.hasFn(MFn::kNumericAttribute) && point.hasFn(MFn::kCompoundAttribute));
    EXPECT_EQ(point.apiType(), MFn::kAttribute3Double);
    EXPECT_NEAR(melNumber("getAttr n.spin"), 180.0, 1e-12);
    EXPECT_EQ(fn.findPlug("note", true).asString(), MString("hello"));
    EXPECT_EQ(melString("getAttr -as n.mode"), "on");
    EXPECT_EQ(link.apiType(), MFn::kMessageAttribute);
    EXPECT_EQ(fn.findPlug("inner", true).asInt(), 7);
    EXPECT_EQ(fn.findPlug("group", true).child(0), fn.findPlug("inner", true));
    EXPECT_EQ(fn.attributeClass(weight), MFnDependencyNode::kLocalDynamicAttr);
    EXPECT_EQ(fn.attributeClass(fn.attribute("tx")), MFnDependencyNode::kNormalAttr);

    ASSERT_TRUE(fn.removeAttribute(weight));
    EXPECT_TRUE(fn.findPlug("weight", true).isNull());
}

TEST_F(ApiTest, DataObjectsCarryValuesInAndOutOfPlugs)
{
    MFnNumericData numbers;
    MObject triple = numbers.create(MFnNumericData::k3Double);
    numbers.setData(1.0, 2.0, 3.0);
    MPlug t = plugNamed("n.t");
    ASSERT_TRUE(t.setMObject(triple));
    EXPECT_EQ(melNumbers("getAttr n.t"), (std::vector<double>{1, 2, 3}));
    double x = 0, y = 0, z = 0;
    MFnNumericData(t.asMObject()).getData(x, y, z);
    EXPECT_EQ(y, 2.0);

    MMatrix m;
    m[3][0] = 4.0;
    MFnMatrixData matrices;
    ASSERT_TRUE(mel("addAttr -ln offset -at matrix n"));
    ASSERT_TRUE(plugNamed("n.offset").setMObject(matrices.create(m)));
    EXPECT_EQ(matrixOf(plugNamed("n.offset")), m);
    EXPECT_EQ(MFnMatrixData(plugNamed("n.wm[0]").asMObject()).matrix()(3, 2), 3.0);
}

TEST_F(ApiTest, DagPathsWalkParentsAndShapes)
{
    ASSERT_TRUE(mel("createNode mesh -n nShape -p n; createNode transform -n kid -p n"));
    MDagPath path;
    ASSERT_TRUE(MDagPath::getAPathTo(node, path));
    EXPECT_EQ(path.childCount(), 2u);
    EXPECT_EQ(path.child(1), nodeNamed("kid"));
    ASSERT_TRUE(path.extendToShape());
    EXPECT_EQ(path.partialPathName(), MString("nShape"));
    EXPECT_EQ(path.transform(), node);
    EXPECT_EQ(path.length(), 2u);
    ASSERT_TRUE(path.pop());
    ASSERT_TRUE(path.push(nodeNamed("kid")));
    EXPECT_EQ(path.fullPathName(), MString("|n|kid"));
    EXPECT_FALSE(path.push(node)) << "not a child of the path's node";
    EXPECT_FALSE(path.extendToShape()) << "kid has no shape";

    ASSERT_TRUE(mel("setAttr n.tx 2; setAttr kid.ty 3"));
    EXPECT_EQ(path.inclusiveMatrix()(3, 1), 3.0);
    EXPECT_EQ(path.inclusiveMatrix()(3, 0), 2.0);
    EXPECT_EQ(path.exclusiveMatrix()(3, 1), 0.0);

    MDagPath none;
    EXPECT_FALSE(none.isValid());
    MFnDependencyNode dg;
    dg.create("transform");
    EXPECT_TRUE(MDagPath::getAPathTo(dg.object(), path)) << "transforms are DAG nodes";
    MFnDependencyNode plugin;
    ASSERT_TRUE(mel("delete kid"));
    EXPECT_FALSE(MDagPath::getAPathTo(nodeNamed("kid"), path));
}

TEST_F(ApiTest, DagNodeFunctionSetParentsAndCreates)
{
    MFnDagNode fn;
    MObject child = fn.create("transform", "child", node);
    EXPECT_EQ(fn.fullPathName(), MString("|n|child"));
    MFnDagNode parent(node);
    EXPECT_EQ(parent.childCount(), 1u);
    EXPECT_TRUE(parent.isParentOf(child));
    EXPECT_EQ(fn.parent(0), node);
    ASSERT_TRUE(parent.removeChild(child));
    EXPECT_EQ(MFnDagNode(child).parentCount(), 0u);
    ASSERT_TRUE(parent.addChild(child));
    EXPECT_TRUE(MFnDagNode(child).hasParent(node));
    MObject shape = fn.create("locator");
    EXPECT_TRUE(shape.hasFn(MFn::kLocator));
    EXPECT_TRUE(MFnDagNode(shape).parent(0).hasFn(MFn::kTransform));
    EXPECT_TRUE(fn.create("noSuchType").isNull());
}

TEST_F(ApiTest, TransformFunctionSetRoundTrips)
{
    MFnTransform fn(node);
    ASSERT_TRUE(mel("setAttr n.t 1 2 3; setAttr n.r 10 20 30; setAttr n.s 1 2 3; setAttr n.ro 5"));
    ASSERT_TRUE(mel("setAttr n.rp 0.5 0 0; setAttr n.ra 0 0 15"));
    const MMatrix before = matrixOf(plugNamed("n.wm[0]"));
    const MTransformationMatrix parts = fn.transformation();
    expectMatrixNear(parts.asMatrix(), before, 1e-9);

    ASSERT_TRUE(mel("createNode transform -n copy"));
    MFnTransform copy(nodeNamed("copy"));
    ASSERT_TRUE(copy.set(parts));
    expectMatrixNear(matrixOf(plugNamed("copy.wm[0]")), before, 1e-9);
    EXPECT_EQ(copy.rotationOrder(), MTransformationMatrix::kZYX);

    // Reordering keeps the orientation.
    ASSERT_TRUE(fn.setRotationOrder(MTransformationMatrix::kYXZ, true));
    EXPECT_EQ(melNumber("getAttr n.ro"), 4.0);
    expectMatrixNear(matrixOf(plugNamed("n.wm[0]")), before, 1e-9);

    // A rotate axis set with balance keeps the orientation too.
    ASSERT_TRUE(fn.setRotateOrientation(MEulerRotation(0.3, 0.0, 0.1).asQuaternion(), MSpace::kTransform, true));
    expectMatrixNear(matrixOf(plugNamed("n.wm[0]")), before, 1e-9);

    MQuaternion q;
    fn.getRotation(q);
    ASSERT_TRUE(copy.setRotation(q));
    MEulerRotation euler;
    copy.getRotation(euler);
    EXPECT_EQ(euler.order, MEulerRotation::kZYX) << "a quaternion keeps the node's order";
}

} // namespace
