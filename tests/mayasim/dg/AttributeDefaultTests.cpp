// Defaults of the built-in attributes that a pose falls back to, in Maya's
// numbers and kinds, and pose values written through a modifier.
#include "DgTest.h"

#include <maya/MAngle.h>
#include <maya/MDGModifier.h>
#include <maya/MDistance.h>
#include <maya/MFnEnumAttribute.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnUnitAttribute.h>

using namespace dgtest;

namespace {

class AttributeDefaultTest : public DgTest
{
protected:
    void SetUp() override
    {
        DgTest::SetUp();
        ASSERT_TRUE(mel("createNode joint -n j; createNode camera -n camShape"));
    }
};

TEST_F(AttributeDefaultTest, TransformAndJointChannelsHaveMayasDefaults)
{
    MFnNumericAttribute visibility(plugNamed("j.v").attribute());
    EXPECT_EQ(visibility.unitType(), MFnNumericData::kBoolean);
    bool visible = false;
    ASSERT_TRUE(visibility.getDefault(visible));
    EXPECT_TRUE(visible);

    MFnNumericAttribute radius(plugNamed("j.radius").attribute());
    double radiusDefault = 0.0;
    ASSERT_TRUE(radius.getDefault(radiusDefault));
    EXPECT_EQ(radiusDefault, 1.0);

    ASSERT_TRUE(plugNamed("j.ro").attribute().hasFn(MFn::kEnumAttribute));
    short order = -1;
    ASSERT_TRUE(MFnEnumAttribute(plugNamed("j.ro").attribute()).getDefault(order));
    EXPECT_EQ(order, 0);

    MFnUnitAttribute orient(plugNamed("j.jox").attribute());
    EXPECT_EQ(orient.unitType(), MFnUnitAttribute::kAngle);
    MAngle angle(1.0);
    ASSERT_TRUE(orient.getDefault(angle));
    EXPECT_EQ(angle.asRadians(), 0.0);
    EXPECT_EQ(MFnUnitAttribute(plugNamed("j.tx").attribute()).unitType(), MFnUnitAttribute::kDistance);
}

TEST_F(AttributeDefaultTest, AttributeKindsHaveMaya2022TypeNumbers)
{
    EXPECT_EQ(plugNamed("j.v").attribute().apiType(), MFn::kNumericAttribute);
    EXPECT_EQ(static_cast<int>(MFn::kNumericAttribute), 566);
    EXPECT_EQ(plugNamed("j.ro").attribute().apiType(), MFn::kEnumAttribute);
    EXPECT_EQ(static_cast<int>(MFn::kEnumAttribute), 572);
    EXPECT_EQ(plugNamed("j.bnm").attribute().apiType(), MFn::kTypedAttribute);
    EXPECT_EQ(static_cast<int>(MFn::kTypedAttribute), 574);
    EXPECT_EQ(plugNamed("j.xm").attribute().apiType(), MFn::kMatrixAttribute);
    EXPECT_EQ(static_cast<int>(MFn::kMatrixAttribute), 578);
}

TEST_F(AttributeDefaultTest, DistanceDefaultsReadInAnyUnit)
{
    MFnUnitAttribute nearClip(plugNamed("camShape.ncp").attribute());
    ASSERT_EQ(nearClip.unitType(), MFnUnitAttribute::kDistance);
    MDistance distance;
    ASSERT_TRUE(nearClip.getDefault(distance));
    EXPECT_DOUBLE_EQ(distance.asCentimeters(), 0.1);
    EXPECT_DOUBLE_EQ(distance.asUnits(MDistance::kMillimeters), 1.0);
}

TEST_F(AttributeDefaultTest, ModifierSetsEnumAndBooleanPlugsFromDoublesAndTakesThemBack)
{
    ASSERT_TRUE(mel("setAttr j.ro 4; setAttr j.v off"));
    MDGModifier modifier;
    ASSERT_TRUE(modifier.newPlugValueDouble(plugNamed("j.ro"), 2.0));
    ASSERT_TRUE(modifier.newPlugValueDouble(plugNamed("j.v"), 1.0));
    ASSERT_TRUE(modifier.doIt());
    EXPECT_EQ(plugNamed("j.ro").asShort(), 2);
    EXPECT_TRUE(plugNamed("j.v").asBool());
    ASSERT_TRUE(modifier.undoIt());
    EXPECT_EQ(plugNamed("j.ro").asShort(), 4);
    EXPECT_FALSE(plugNamed("j.v").asBool());
    ASSERT_TRUE(modifier.doIt());
    EXPECT_EQ(plugNamed("j.ro").asShort(), 2);
}

} // namespace
