// Which curve of a layered channel the collection picks: the selected,
// unlocked layers, else Maya's best layer.
#include "PluginTest.h"

#include "CollectAnimation/DataBase.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include <gmock/gmock.h>

using ::testing::UnorderedElementsAre;

namespace {

class LayeredChannel : public PluginTest
{
protected:
    void SetUp() override
    {
        PluginTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n obj"));
        keyPlug("obj.tx", {{1, 0}, {10, 10}});
        for (const char* layer : {"L1", "L2"}) {
            ASSERT_TRUE(mel(std::string("animLayer ") + layer));
            ASSERT_TRUE(mel(std::string("animLayer -e -attribute obj.tx ") + layer));
        }
        // Key each layer while it alone is selected: keys go to the best layer.
        keyInLayer("L1", 100);
        keyInLayer("L2", 200);
        ASSERT_TRUE(mel("select -r obj"));
    }

    void keyInLayer(const std::string& layer, double value)
    {
        ASSERT_TRUE(mel("animLayer -e -selected true " + layer));
        keyPlug("obj.tx", {{1, value}, {10, value}});
        ASSERT_TRUE(mel("animLayer -e -selected false " + layer));
    }

    // The names of the curves the collection gives for obj.tx.
    static std::vector<std::string> collectedCurves()
    {
        MSelectionList selection;
        MGlobal::getActiveSelectionList(selection);
        CollectAnimation::CtxAnim collection;
        std::vector<std::string> names;
        for (const auto& record : collection.Ctx::collect(selection))
            for (const auto& plug : record.plugs)
                for (const auto& curve : plug.curves)
                    names.push_back(MFnDependencyNode(curve.curve).name().asChar());
        return names;
    }

    // Maya names a layer's curve after the channel, the layer and the blend input.
    static std::string layerCurve(const std::string& layer) { return "obj_translateX_" + layer + "_inputB"; }
};

TEST_F(LayeredChannel, TwoSelectedLayersGiveTwoCurves)
{
    ASSERT_TRUE(mel("animLayer -e -selected true L1"));
    ASSERT_TRUE(mel("animLayer -e -selected true L2"));
    EXPECT_THAT(collectedCurves(), UnorderedElementsAre(layerCurve("L1"), layerCurve("L2")));
}

TEST_F(LayeredChannel, LockedLayerCountsAsNotSelected)
{
    ASSERT_TRUE(mel("animLayer -e -selected true L1"));
    ASSERT_TRUE(mel("animLayer -e -selected true L2"));
    ASSERT_TRUE(mel("animLayer -e -lock true L2"));
    EXPECT_THAT(collectedCurves(), UnorderedElementsAre(layerCurve("L1")));
}

TEST_F(LayeredChannel, WithoutSelectedLayersTheBestLayerAloneIsTaken)
{
    MString best;
    ASSERT_TRUE(MGlobal::executeCommand("animLayer -q -bestLayer -attribute \"obj.translateX\"", best));
    EXPECT_THAT(collectedCurves(), UnorderedElementsAre(layerCurve(best.asChar())));
}

TEST_F(LayeredChannel, BlendWritesEverySelectedLayersCurve)
{
    ASSERT_TRUE(mel("animLayer -e -selected true L1"));
    ASSERT_TRUE(mel("animLayer -e -selected true L2"));
    ASSERT_TRUE(mel("currentTime 10"));
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv -1"));
    // At the last key the left neighbour is the first key: both layers move to it.
    EXPECT_EQ(keyValues(layerCurve("L1")), (std::vector<double>{100, 100}));
    EXPECT_EQ(keyValues(layerCurve("L2")), (std::vector<double>{200, 200}));
}

} // namespace
