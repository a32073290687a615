// hide and showHidden as Maya documents them: objects go invisible through
// their visibility, components through their object's display state; both
// undo, and testVisibility answers 1 hidden, 2 visible, 3 partly.
#include "DgTest.h"

using namespace dgtest;

namespace {

class VisibilityCommandTest : public DgTest
{
};

TEST_F(VisibilityCommandTest, HideAndShowObjectsAndComponentsUndoably)
{
    ASSERT_TRUE(mel("createNode transform -n grp; createNode transform -n ball -p grp;"
                    " createNode mesh -n ballShape -p ball; createNode transform -n box"));
    ASSERT_TRUE(mel("select -r ball box"));
    ASSERT_TRUE(mel("hide"));
    EXPECT_EQ(melNumber("getAttr ball.visibility"), 0.0);
    EXPECT_EQ(melNumber("getAttr box.visibility"), 0.0);
    EXPECT_EQ(melNumber("hide -tv ball box"), 1.0);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(melNumber("hide -tv ball box"), 2.0);

    EXPECT_EQ(melStrings("hide -rh grp ball.f[2] ball.f[2]"), (std::vector<std::string>{"grp", "ball.f[2]"}));
    EXPECT_EQ(melNumber("hide -tv ball.f[2]"), 1.0);
    EXPECT_EQ(melNumber("hide -tv ball.f[3]"), 2.0);
    EXPECT_EQ(melNumber("hide -tv ball.f[2] ball.f[3]"), 3.0);
    EXPECT_EQ(melNumber("getAttr ball.visibility"), 1.0) << "a component leaves its object's visibility alone";
    ASSERT_TRUE(mel("showHidden \"ball.f[2]\""));
    EXPECT_EQ(melNumber("hide -tv ball.f[2]"), 2.0);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(melNumber("hide -tv ball.f[2]"), 1.0);
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(melNumber("hide -tv ball.f[2]"), 2.0);

    // Invisibility is inherited: -above shows the hidden parent too.
    ASSERT_TRUE(mel("hide ball"));
    ASSERT_TRUE(mel("showHidden ball"));
    EXPECT_EQ(melNumber("getAttr grp.visibility"), 0.0);
    ASSERT_TRUE(mel("hide ball; showHidden -above ball"));
    EXPECT_EQ(melNumber("getAttr grp.visibility"), 1.0);
    EXPECT_EQ(melNumber("getAttr ball.visibility"), 1.0);
    ASSERT_TRUE(mel("hide ball ballShape; showHidden -below grp"));
    EXPECT_EQ(melNumber("hide -tv grp ball ballShape"), 2.0);
    ASSERT_TRUE(mel("hide -all"));
    EXPECT_EQ(melNumber("hide -tv grp box"), 1.0);
    EXPECT_EQ(melNumber("getAttr ball.visibility"), 1.0) << "only the top-level objects";
    ASSERT_TRUE(mel("showHidden -all"));
    EXPECT_EQ(melNumber("hide -tv grp box"), 2.0);

    ASSERT_TRUE(mel("select -r box; hide -cs"));
    EXPECT_TRUE(melStrings("ls -sl").empty());
    ASSERT_TRUE(mel("select -cl"));
    EXPECT_FALSE(mel("hide"));
    EXPECT_EQ(lastError(), "hide: Not enough objects or values.");
    EXPECT_FALSE(mel("showHidden nothere"));
    EXPECT_EQ(lastError(), "No object matches name: nothere");
}

} // namespace
