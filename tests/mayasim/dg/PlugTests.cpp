// Plugs: names and their option flags, structure, metadata and channel
// filters (B20, B21), connections and pull evaluation, internal attributes
// (B26), evaluation at another time (B13) and values set on driven plugs (B14).
#include "DgTest.h"
#include "TestNodes.h"

#include <maya/MAngle.h>
#include <maya/MAnimControl.h>
#include <maya/MDGContext.h>
#include <maya/MDGContextGuard.h>
#include <maya/MDGModifier.h>
#include <maya/MFnAttribute.h>
#include <maya/MFnEnumAttribute.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnUnitAttribute.h>
#include <maya/MIntArray.h>
#include <maya/MNodeMessage.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MPxNode.h>
#include <maya/MTime.h>

#include <cmath>

using namespace dgtest;

namespace {

class PlugTest : public DgTest
{
protected:
    void SetUp() override
    {
        DgTest::SetUp();
        loadTestNodes();
        ASSERT_TRUE(mel("createNode transform -n n"));
    }
};

TEST_F(PlugTest, PartialNameFlags)
{
    const MPlug tx = plugNamed("n.tx");
    EXPECT_EQ(tx.partialName(), MString("tx"));
    EXPECT_EQ(tx.partialName(false, false, false, false, false, true), MString("translateX"));
    EXPECT_EQ(tx.partialName(true), MString("n.tx"));
    EXPECT_EQ(tx.partialName(false, false, false, false, true), MString("t.tx"));
    EXPECT_EQ(tx.partialName(true, false, false, false, true, true), MString("n.translate.translateX"));
    EXPECT_EQ(tx.name(), MString("n.translateX"));
    const MPlug wm = plugNamed("n.worldMatrix").elementByLogicalIndex(0);
    EXPECT_EQ(wm.partialName(), MString("wm[0]"));
    EXPECT_EQ(wm.name(), MString("n.worldMatrix[0]"));
}

TEST_F(PlugTest, StructureOfCompoundAndArrayPlugs)
{
    const MPlug t = plugNamed("n.t");
    EXPECT_TRUE(t.isCompound());
    EXPECT_EQ(t.numChildren(), 3u);
    EXPECT_EQ(t.child(1), plugNamed("n.ty"));
    EXPECT_EQ(plugNamed("n.tz").parent(), t);
    EXPECT_TRUE(plugNamed("n.tz").isChild());

    const MPlug wm = plugNamed("n.wm");
    EXPECT_TRUE(wm.isArray());
    const MPlug element = wm.elementByLogicalIndex(0);
    EXPECT_TRUE(element.isElement());
    EXPECT_EQ(element.logicalIndex(), 0u);
    EXPECT_EQ(element.array(), wm);

    ASSERT_TRUE(mel("addAttr -ln weights -at double -m n; setAttr n.weights[3] 1.5; setAttr n.weights[7] 2"));
    MPlug weights = plugNamed("n.weights");
    EXPECT_TRUE(weights.isDynamic());
    EXPECT_EQ(weights.numElements(), 2u);
    EXPECT_EQ(weights.elementByPhysicalIndex(1).logicalIndex(), 7u);
    MIntArray indices;
    weights.getExistingArrayAttributeIndices(indices);
    EXPECT_EQ(indices.length(), 2u);
    EXPECT_EQ(melNumbers("getAttr n.weights"), (std::vector<double>{1.5, 2.0}));
    EXPECT_EQ(melNumber("getAttr -s n.weights"), 2.0);
}

TEST_F(PlugTest, MetadataAndChannelFlags)
{
    EXPECT_TRUE(plugNamed("n.tx").isKeyable());
    EXPECT_FALSE(plugNamed("n.ro").isKeyable());
    EXPECT_FALSE(plugNamed("n.ro").isChannelBoxFlagSet());
    EXPECT_TRUE(MFnAttribute(plugNamed("n.msg").attribute()).isHidden());
    ASSERT_TRUE(mel("setAttr -k off n.tx; setAttr -cb on n.tx; setAttr -l on n.ty"));
    EXPECT_FALSE(plugNamed("n.tx").isKeyable());
    EXPECT_TRUE(plugNamed("n.tx").isChannelBoxFlagSet());
    EXPECT_TRUE(plugNamed("n.ty").isLocked());
    EXPECT_EQ(melNumber("getAttr -l n.ty"), 1.0);
    EXPECT_FALSE(mel("setAttr n.ty 3"));
    EXPECT_EQ(lastError(), "The attribute 'n.translateY' is locked or connected and cannot be modified.");
    ASSERT_TRUE(mel("setAttr -l on n.r"));
    EXPECT_TRUE(plugNamed("n.rx").isLocked()) << "a locked compound locks its children";
}

TEST_F(PlugTest, AttributeKindsCarryMayasFunctionSetTypes)
{
    EXPECT_TRUE(plugNamed("n.tx").attribute().hasFn(MFn::kUnitAttribute));
    EXPECT_EQ(static_cast<int>(MFn::kUnitAttribute), 573);
    EXPECT_EQ(plugNamed("n.sx").attribute().apiType(), 566);
    EXPECT_EQ(plugNamed("n.ro").attribute().apiType(), 572);
    EXPECT_EQ(plugNamed("n.wm").attribute().apiType(), 578);
    EXPECT_EQ(plugNamed("n.bnm").attribute().apiType(), 574);

    MAngle angle;
    MFnUnitAttribute(plugNamed("n.rx").attribute()).getDefault(angle);
    EXPECT_EQ(angle.asRadians(), 0.0);
    EXPECT_EQ(MFnUnitAttribute(plugNamed("n.rx").attribute()).unitType(), MFnUnitAttribute::kAngle);
    double scaleDefault = 0.0;
    MFnNumericAttribute(plugNamed("n.sx").attribute()).getDefault(scaleDefault);
    EXPECT_EQ(scaleDefault, 1.0);
    EXPECT_EQ(MFnNumericAttribute(plugNamed("n.sx").attribute()).unitType(), MFnNumericData::kDouble);
    EXPECT_EQ(MFnEnumAttribute(plugNamed("n.ro").attribute()).fieldName(5), MString("zyx"));
}

TEST_F(PlugTest, UnitPlugsHoldInternalUnitsAndCommandsSpeakUiUnits)
{
    ASSERT_TRUE(mel("setAttr n.rx 90"));
    EXPECT_NEAR(plugNamed("n.rx").asDouble(), M_PI / 2.0, 1e-12);
    EXPECT_NEAR(plugNamed("n.rx").asMAngle().asDegrees(), 90.0, 1e-12);
    plugNamed("n.ry").setMAngle(MAngle(45.0, MAngle::kDegrees));
    EXPECT_NEAR(melNumber("getAttr n.ry"), 45.0, 1e-12);
}

TEST_F(PlugTest, ConnectionsPullTheirSourceIncludingThroughCompounds)
{
    ASSERT_TRUE(mel("createNode transform -n src; setAttr src.t 1 2 3; connectAttr src.t n.t"));
    EXPECT_EQ(plugNamed("n.ty").asDouble(), 2.0);
    EXPECT_TRUE(plugNamed("n.t").isDestination());
    EXPECT_FALSE(plugNamed("n.ty").isDestination()) << "the connection is on the compound";
    MPlugArray destinations;
    EXPECT_TRUE(plugNamed("src.t").destinations(destinations));
    ASSERT_EQ(destinations.length(), 1u);
    EXPECT_EQ(destinations[0], plugNamed("n.t"));
    ASSERT_TRUE(mel("setAttr src.ty 7"));
    EXPECT_EQ(plugNamed("n.ty").asDouble(), 7.0);
    EXPECT_FALSE(mel("setAttr n.tx 1"));
    EXPECT_FALSE(mel("connectAttr src.rx n.t"));
    EXPECT_EQ(lastError(), "'n.translate' already has an incoming connection from 'src.translate'.");
    ASSERT_TRUE(mel("connectAttr -f src.s n.t"));
    EXPECT_EQ(plugNamed("n.tx").asDouble(), 1.0);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(plugNamed("n.t").source(), plugNamed("src.t"));
}

TEST_F(PlugTest, ValueSetOnADrivenPlugHoldsAtTheCurrentTime)
{
    const double now = MAnimControl::currentTime().as(MTime::kFilm);
    ASSERT_TRUE(mel("createNode dgClock -n clock; setAttr clock.input 5; connectAttr clock.output n.tx"));
    EXPECT_EQ(plugNamed("n.tx").asDouble(), 5.0 + 2.0 * now);
    MDGModifier modifier;
    modifier.newPlugValueDouble(plugNamed("n.tx"), 9.0);
    ASSERT_TRUE(modifier.doIt());
    EXPECT_EQ(plugNamed("n.tx").asDouble(), 9.0) << "held at the current time";
    {
        MDGContextGuard guard(MDGContext(MTime(3.0, MTime::kFilm)));
        EXPECT_EQ(plugNamed("n.tx").asDouble(), 11.0) << "another time evaluates the source";
    }
    EXPECT_EQ(plugNamed("n.tx").asDouble(), 9.0);
    ASSERT_TRUE(MAnimControl::setCurrentTime(MTime(now + 1.0, MTime::kFilm)));
    EXPECT_EQ(plugNamed("n.tx").asDouble(), 5.0 + 2.0 * (now + 1.0)) << "a time change re-evaluates";
    MAnimControl::setCurrentTime(MTime(now, MTime::kFilm));
}

TEST_F(PlugTest, ReadsInsideAContextGuardHappenAtItsTime)
{
    ASSERT_TRUE(mel("createNode dgClock -n clock; setAttr clock.input 1; connectAttr clock.output n.ty"));
    ASSERT_TRUE(mel("createNode transform -n child -p n"));
    const MPlug world = plugNamed("child.worldMatrix[0]");
    const double now = MAnimControl::currentTime().as(MTime::kFilm);
    EXPECT_EQ(matrixOf(world)(3, 1), 1.0 + 2.0 * now);
    {
        MDGContextGuard guard(MDGContext(MTime(10.0, MTime::kFilm)));
        EXPECT_EQ(plugNamed("clock.output").asDouble(), 21.0);
        EXPECT_EQ(matrixOf(world)(3, 1), 21.0) << "the parent's driven channel evaluates at the guard's time";
        EXPECT_FALSE(MDGContext::current().isNormal());
    }
    EXPECT_TRUE(MDGContext::current().isNormal());
    EXPECT_EQ(matrixOf(world)(3, 1), 1.0 + 2.0 * now);
    // The deprecated overload taking a context still reads at its time.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    EXPECT_EQ(plugNamed("clock.output").asDouble(MDGContext(MTime(2.0, MTime::kFilm))), 5.0);
#pragma GCC diagnostic pop
    EXPECT_EQ(melNumber("getAttr -t 4 clock.output"), 9.0);
}

void clearHide(MObject&, MDGModifier& modifier, void* clientData)
{
    modifier.newPlugValueBool(*static_cast<MPlug*>(clientData), false);
}

TEST_F(PlugTest, EveryWriteOfAnInternalAttributeReachesTheNode)
{
    nodeRecord().hideWrites.clear();
    ASSERT_TRUE(mel("createNode dgHider -n hider"));
    MPlug hide = plugNamed("hider.hide");
    MDGModifier modifier;
    modifier.newPlugValueBool(hide, true);
    ASSERT_TRUE(modifier.doIt());
    ASSERT_TRUE(modifier.undoIt());
    ASSERT_TRUE(mel("setAttr hider.hide 1"));
    ASSERT_TRUE(mel("undo"));
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(nodeRecord().hideWrites, (std::vector<bool>{true, false, true, false, true}));
    EXPECT_TRUE(hide.asBool()) << "read back through getInternalValue";

    // The about-to-delete callback's modifier runs before the node goes.
    MObject node = nodeNamed("hider");
    MCallbackId id = MNodeMessage::addNodeAboutToDeleteCallback(node, clearHide, &hide);
    nodeRecord().hideWrites.clear();
    ASSERT_TRUE(mel("delete hider"));
    EXPECT_EQ(nodeRecord().hideWrites, (std::vector<bool>{false}));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(nodeRecord().hideWrites, (std::vector<bool>{false, true}));
    MMessage::removeCallback(id);
}

TEST_F(PlugTest, PluginNodesAreCreatedByNameOrIdAndKnowTheirUserNode)
{
    MFnDependencyNode fn;
    MObject node = fn.create(MTypeId(0x7f001));
    ASSERT_FALSE(node.isNull());
    EXPECT_EQ(fn.typeName(), MString("dgHider"));
    EXPECT_EQ(fn.typeId(), MTypeId(0x7f001));
    EXPECT_TRUE(node.hasFn(MFn::kPluginDependNode));
    ASSERT_NE(fn.userNode(), nullptr);
    EXPECT_EQ(fn.userNode()->thisMObject(), node);
    EXPECT_FALSE(fn.isFromReferencedFile());
    EXPECT_EQ(fn.attribute(fn.attributeCount() - 1), fn.attribute("content"));

    EXPECT_EQ(melString("createNode dgLocator"), "dgLocator1");
    EXPECT_TRUE(nodeNamed("dgLocator1").hasFn(MFn::kLocator));
    EXPECT_EQ(melString("listRelatives -s transform1"), "dgLocator1");
}

} // namespace
