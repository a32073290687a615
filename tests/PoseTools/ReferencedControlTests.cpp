// The tools on a control of a referenced rig, as animators meet it: in a
// namespace, read-only, keyed by curves of the scene's own.
#include "PoseTest.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MStringArray.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

using ::testing::DoubleEq;
using ::testing::ElementsAre;

namespace {

using ReferencedControl = PoseTest;

std::string outTangent(const std::string& curve, int frame)
{
    MStringArray types;
    MGlobal::executeCommand(("keyTangent -q -t " + std::to_string(frame) + " -ott " + curve).c_str(), types);
    return types.length() == 1 ? types[0].asChar() : "";
}

TEST_F(ReferencedControl, BlendsTangentsAndPosesWorkOnANamespacedReferencedControl)
{
    ASSERT_TRUE(mel("file -r -ns \"rig\" \"" ORVANE_TEST_DATA "/referenced_rig.ma\""));
    ASSERT_TRUE(MFnDependencyNode(nodeNamed("rig:ctrl")).isFromReferencedFile());

    // A default pose taken off the referenced control is stored under its
    // namespaced plug names; its locked scales are left out.
    ASSERT_TRUE(mel("setAttr rig:ctrl.tx 2; setAttr rig:ctrl.ry 30; OVSnapshot rig:ctrl"));
    const QJsonObject stored = storedPoses();
    EXPECT_EQ(stored.value(QStringLiteral("rig:ctrl.translateX")).toDouble(), 2.0);
    EXPECT_TRUE(stored.contains(QStringLiteral("rig:ctrl.blend")));
    EXPECT_FALSE(stored.contains(QStringLiteral("rig:ctrl.scaleX")));

    // Keys on its channels live in the scene's own curves.
    keyPlug("rig:ctrl.tx", {{1, 0}, {5, 10}, {9, 40}});
    keyPlug("rig:ctrl.blend", {{1, 0}, {9, 1}});
    ASSERT_TRUE(mayasim::host::selectKeys("ctrl_translateX", {1}));
    ASSERT_TRUE(mel("select -add rig:ctrl"));

    // Tween Machine halfway: the picked key goes to its neighbours' mean.
    expectOneUndoStep([] {
        ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv 0"));
        EXPECT_THAT(keyValues("rig:ctrl.tx"), ElementsAre(0, 20, 40));
        EXPECT_THAT(keyValues("rig:ctrl.blend"), ElementsAre(0, 1));
    });

    // A tangent type on the picked key.
    expectOneUndoStep([] {
        ASSERT_TRUE(mel("OVTangent -bt 2"));
        EXPECT_EQ(outTangent("ctrl_translateX", 5), "flat");
        EXPECT_NE(outTangent("ctrl_translateX", 1), "flat");
    });

    // The default pose back on the picked key.
    expectOneUndoStep([] {
        ASSERT_TRUE(mel("OVResetPose -t"));
        EXPECT_THAT(keyValues("rig:ctrl.tx"), ElementsAre(0, 2, 40));
    });

    // And on the current values of an unkeyed channel.
    ASSERT_TRUE(mel("setAttr rig:ctrl.ry 90"));
    expectOneUndoStep([] {
        ASSERT_TRUE(mel("OVResetPose -r rig:ctrl"));
        EXPECT_THAT(value("rig:ctrl.ry"), DoubleEq(30.0 / 180.0 * M_PI));
    });

    EXPECT_TRUE(reports().empty());
    EXPECT_TRUE(MFnDependencyNode(nodeNamed("rig:ctrl")).isFromReferencedFile());
    EXPECT_FALSE(MFnDependencyNode(nodeNamed("ctrl_translateX")).isFromReferencedFile());
}

} // namespace
