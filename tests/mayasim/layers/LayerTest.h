#pragma once
// Shared set-up for the animation layer tests: a new scene per test holding
// a transform "cube", and the layer queries the plug-in makes.
#include "../dg/DgTest.h"

#include <maya/MAnimUtil.h>
#include <maya/MFileIO.h>
#include <maya/MObjectArray.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>

class LayerTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(MFileIO::newFile(true));
        mayasim::host::clearOutput();
        ASSERT_TRUE(dgtest::mel("createNode transform -n cube"));
    }

    static std::string nameOf(const MObject& node) { return MFnDependencyNode(node).name().asChar(); }

    static std::vector<std::string> nodesOfType(MFn::Type type)
    {
        std::vector<std::string> names;
        for (MItDependencyNodes it(type); !it.isDone(); it.next())
            names.push_back(nameOf(it.thisNode()));
        return names;
    }

    // findAnimationLayers as names: "layer -> curve driving its input"
    // ("" for an input no curve drives).
    static std::vector<std::string> layerCurves(const std::string& plug)
    {
        MObjectArray layers;
        MPlugArray inputs;
        MAnimUtil::findAnimationLayers(dgtest::plugNamed(plug), layers, inputs);
        std::vector<std::string> found;
        for (unsigned int i = 0; i < layers.length(); ++i)
        {
            const MPlug source = inputs[i].source();
            found.push_back(nameOf(layers[i]) + " -> " + (source.isNull() ? "" : nameOf(source.node())));
        }
        return found;
    }

    // findAnimation as curve names.
    static std::vector<std::string> curvesOf(const std::string& plug)
    {
        MObjectArray curves;
        MAnimUtil::findAnimation(dgtest::plugNamed(plug), curves);
        std::vector<std::string> names;
        for (unsigned int i = 0; i < curves.length(); ++i)
            names.push_back(nameOf(curves[i]));
        return names;
    }

    static std::string bestLayer(const std::string& plug)
    {
        return dgtest::melString("animLayer -q -bestLayer -attribute \"" + plug + "\"");
    }

    // Two layers above the base animation, both holding cube.tx, which the
    // base animation keys from 2 at frame 1 to 20 at frame 10.
    static void twoLayersOnTranslateX()
    {
        ASSERT_TRUE(dgtest::mel("setKeyframe -t 1 -v 2 cube.tx; setKeyframe -t 10 -v 20 cube.tx"));
        ASSERT_TRUE(dgtest::mel("animLayer L1; animLayer L2"));
        ASSERT_TRUE(dgtest::mel("animLayer -e -attribute cube.translateX L1; animLayer -e -attribute cube.tx L2"));
    }
};
