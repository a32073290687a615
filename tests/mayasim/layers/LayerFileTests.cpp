// Layers and blend nodes are ordinary nodes and connections in a .ma file:
// saved and read back, and as Maya writes them (set members by -na).
#include "LayerTest.h"

#include <filesystem>
#include <fstream>

namespace {

using namespace dgtest;

using Strings = std::vector<std::string>;

std::string scratchFile(const std::string& name)
{
    const auto folder = std::filesystem::path(ORVANE_BINARY_DIR) / "layer_tests";
    std::filesystem::create_directories(folder);
    return (folder / name).generic_string();
}

TEST_F(LayerTest, LayeredSceneSurvivesSaveAndOpen)
{
    ASSERT_TRUE(mel("setAttr cube.tx 3; setAttr cube.rx 30"));
    ASSERT_TRUE(mel("animLayer -override 1 -weight 0.25 -lock 1 L1; animLayer P; animLayer -parent P -weight 0.5 C"));
    ASSERT_TRUE(mel("animLayer -e -attribute cube.tx L1; animLayer -e -attribute cube.tx -attribute cube.r C"));
    ASSERT_TRUE(mel("setAttr cube_translateX_L1.inputB 11; setAttr cube_translateX_C.inputB 4"));
    ASSERT_TRUE(mel("setAttr cube_rotate_C.inputBX 10; animLayer -e -selected true C"));
    const double tx = melNumber("getAttr cube.tx");
    const double rx = melNumber("getAttr cube.rx");
    const Strings holders = layerCurves("cube.tx");

    const std::string path = scratchFile("layered.ma");
    ASSERT_TRUE(MFileIO::saveAs(path.c_str()));
    ASSERT_TRUE(MFileIO::newFile(true));
    ASSERT_TRUE(MFileIO::open(path.c_str(), nullptr, true));

    for (const auto& line : mayasim::host::output())
        EXPECT_NE(line.kind, mayasim::host::OutputLine::Kind::Error) << line.text;
    EXPECT_EQ(melStrings("animLayer -q -children BaseAnimation"), (Strings{"L1", "P"}));
    EXPECT_EQ(melStrings("animLayer -q -children P"), (Strings{"C"}));
    EXPECT_EQ(melNumber("animLayer -q -lock L1"), 1.0);
    EXPECT_DOUBLE_EQ(melNumber("animLayer -q -weight L1"), 0.25);
    EXPECT_EQ(melStrings("animLayer -q -attribute C"), (Strings{"cube.translateX", "cube.rotateX", "cube.rotateY", "cube.rotateZ"}));
    EXPECT_EQ(layerCurves("cube.tx"), holders);
    EXPECT_EQ(bestLayer("cube.tx"), "C");
    EXPECT_DOUBLE_EQ(melNumber("getAttr cube.tx"), tx);
    EXPECT_NEAR(melNumber("getAttr cube.rx"), rx, 1e-9);
}

TEST_F(LayerTest, LayersAsMayaWritesThemLoad)
{
    const std::string path = scratchFile("maya_layers.ma");
    std::ofstream(path) << R"(//Maya ASCII 2022 scene
requires maya "2022";
currentUnit -l centimeter -a degree -t film;
createNode transform -n "ball";
createNode animLayer -n "BaseAnimation";
	setAttr -s 2 ".cdly";
	setAttr -s 2 ".chsl";
	setAttr ".ovrd" yes;
createNode animLayer -n "AnimLayer1";
	setAttr -s 1 ".dsm";
	setAttr -s 1 ".bnds";
	setAttr ".slct" yes;
createNode animLayer -n "AnimLayer2";
	setAttr ".lo" yes;
createNode animBlendNodeAdditiveDL -n "ball_translateY_AnimLayer1";
	setAttr ".ia" 2.5;
	setAttr ".ib" 1.5;
	setAttr ".o" 4;
connectAttr "ball_translateY_AnimLayer1.o" "ball.ty";
connectAttr "AnimLayer1.sl" "BaseAnimation.chsl[1]";
connectAttr "AnimLayer1.play" "BaseAnimation.cdly[1]";
connectAttr "BaseAnimation.csol" "AnimLayer1.sslo";
connectAttr "BaseAnimation.fgwt" "AnimLayer1.pwth";
connectAttr "BaseAnimation.omte" "AnimLayer1.pmte";
connectAttr "AnimLayer2.sl" "BaseAnimation.chsl[2]";
connectAttr "AnimLayer2.play" "BaseAnimation.cdly[2]";
connectAttr "ball.ty" "AnimLayer1.dsm" -na;
connectAttr "ball_translateY_AnimLayer1.msg" "AnimLayer1.bnds[0]";
connectAttr "AnimLayer1.bgwt" "ball_translateY_AnimLayer1.wa";
connectAttr "AnimLayer1.fgwt" "ball_translateY_AnimLayer1.wb";
)";
    ASSERT_TRUE(MFileIO::open(path.c_str(), nullptr, true));
    for (const auto& line : mayasim::host::output())
        EXPECT_NE(line.kind, mayasim::host::OutputLine::Kind::Error) << line.text;
    EXPECT_EQ(melStrings("animLayer -q -children BaseAnimation"), (Strings{"AnimLayer1", "AnimLayer2"}));
    EXPECT_EQ(melStrings("animLayer -q -attribute AnimLayer1"), (Strings{"ball.translateY"}));
    EXPECT_EQ(layerCurves("ball.ty"), (Strings{"BaseAnimation -> ", "AnimLayer1 -> "}));
    EXPECT_EQ(bestLayer("ball.ty"), "AnimLayer1");
    EXPECT_DOUBLE_EQ(melNumber("getAttr ball.ty"), 4.0);
}

} // namespace
