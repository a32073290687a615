// The move tool in the views: manipPivot, ctxEditMode, drags as one undo
// step and the "DragRelease" event.
#include "GuiTest.h"
#include "TopViewDrag.h"

#include <maya/M3dView.h>
#include <maya/MPoint.h>

#include <gmock/gmock.h>

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

double topPixelsPerUnit()
{
    M3dView top;
    M3dView::getM3dViewFromModelPanel("modelPanel1", top);
    return top.portWidth() / 30.0;
}

} // namespace

TEST_F(GuiTest, ManipPivotHoldsTheManipulatorsPlaceAndOrientation)
{
    EXPECT_THAT(numbers("manipPivot -q -o"), ElementsAre(0, 0, 0));
    EXPECT_EQ(number("manipPivot -q -valid"), 0.0) << "nothing selected";
    ASSERT_TRUE(mel("createNode transform -n ctrl; setAttr ctrl.t 1 2 3"));
    EXPECT_EQ(number("manipPivot -q -valid"), 1.0);
    EXPECT_THAT(numbers("manipPivot -q -p"), ElementsAre(1, 2, 3)) << "the selection's pivot";

    ASSERT_TRUE(mel("manipPivot -o 12.5 0 -3"));
    EXPECT_THAT(numbers("manipPivot -query -orientation"), ElementsAre(12.5, 0, -3));
    ASSERT_TRUE(mel("select -cl"));
    EXPECT_THAT(numbers("manipPivot -q -o"), ElementsAre(12.5, 0, -3)) << "kept whatever the selection";
    ASSERT_TRUE(mel("select ctrl; manipPivot -p 0 5 0"));
    EXPECT_THAT(numbers("manipPivot -q -p"), ElementsAre(0, 5, 0));
    EXPECT_FALSE(mel("manipPivot -o 1 two 3"));
    EXPECT_FALSE(mel("manipPivot -o 1e400 0 0"));
    EXPECT_THAT(numbers("manipPivot -q -o"), ElementsAre(12.5, 0, -3)) << "bad input changes nothing";
    ASSERT_TRUE(mel("manipPivot -reset"));
    EXPECT_THAT(numbers("manipPivot -q -o"), ElementsAre(0, 0, 0));
    EXPECT_THAT(numbers("manipPivot -q -p"), ElementsAre(1, 2, 3));
}

TEST_F(GuiTest, ADragMovesTheSelectionAsOneUndoStepAndRaisesDragRelease)
{
    ASSERT_TRUE(mel("createNode transform -n ctrl; setAttr ctrl.t 1 0 0"));
    const double perUnit = topPixelsPerUnit();
    EventCount releases("DragRelease");
    const std::string before = text("mayasimUi -q -refreshCount");
    ASSERT_TRUE(dragInTop(MPoint(1, 0, 0), 30, 15));
    EXPECT_EQ(releases.count, 1);
    const std::vector<double> moved = numbers("getAttr ctrl.t");
    ASSERT_EQ(moved.size(), 3u);
    EXPECT_NEAR(moved[0], 1 + 30 / perUnit, 1e-9);
    EXPECT_NEAR(moved[1], 0, 1e-9);
    EXPECT_NEAR(moved[2], 15 / perUnit, 1e-9) << "down on the top view is +Z";
    EXPECT_NE(text("mayasimUi -q -refreshCount"), before) << "the views follow";

    ASSERT_TRUE(mel("undo"));
    EXPECT_THAT(numbers("getAttr ctrl.t"), ElementsAre(1, 0, 0)) << "the whole drag in one step";
    ASSERT_TRUE(mel("redo"));
    EXPECT_THAT(numbers("getAttr ctrl.t"), ElementsAre(DoubleNear(moved[0], 1e-9), 0, DoubleNear(moved[2], 1e-9)));

    // A click moves nothing and raises nothing; with nothing selected a drag
    // is no move either.
    ASSERT_TRUE(mel("mayasimUi -click modelPanel1"));
    EXPECT_EQ(releases.count, 1);
    ASSERT_TRUE(mel("select -cl; mayasimUi -drag 10 10 40 40 modelPanel1"));
    EXPECT_EQ(releases.count, 1);
}

TEST_F(GuiTest, InPivotEditModeADragMovesThePivotAndLeavesTheObject)
{
    ASSERT_TRUE(mel("createNode transform -n ctrl; setAttr ctrl.t 2 0 0; setAttr ctrl.ry 90"));
    ASSERT_TRUE(mel("ctxEditMode"));
    const double perUnit = topPixelsPerUnit();
    EventCount releases("DragRelease");
    const std::vector<double> placed = numbers("getAttr ctrl.worldMatrix");
    ASSERT_TRUE(dragInTop(MPoint(2, 0, 0), 30, 0));
    EXPECT_EQ(releases.count, 1);
    EXPECT_THAT(numbers("getAttr ctrl.t"), ElementsAre(2, 0, 0));
    const std::vector<double> pivot = numbers("xform -q -ws -t ctrl");
    const std::vector<double> after = numbers("getAttr ctrl.worldMatrix");
    ASSERT_EQ(after.size(), placed.size());
    for (size_t i = 0; i < after.size(); ++i)
        EXPECT_NEAR(after[i], placed[i], 1e-9) << "the object stays put, element " << i;
    EXPECT_THAT(numbers("manipPivot -q -p"), ElementsAre(DoubleNear(2 + 30 / perUnit, 1e-9), DoubleNear(0, 1e-9),
                                                          DoubleNear(0, 1e-9)))
        << "the manipulator stands at the moved pivot";
    EXPECT_THAT(pivot, ElementsAre(2, 0, 0));
    ASSERT_TRUE(mel("undo"));
    EXPECT_THAT(numbers("manipPivot -q -p"), ElementsAre(2, 0, 0));
    ASSERT_TRUE(mel("ctxEditMode"));
}
