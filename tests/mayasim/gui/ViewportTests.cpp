// The default cameras, the four model panels and their views: getPanel,
// modelEditor, refresh and M3dView, through Maya's camera model.
#include "GuiTest.h"

#include <maya/M3dView.h>
#include <maya/MDagPath.h>
#include <maya/MFileIO.h>
#include <maya/MFnCamera.h>
#include <maya/MPoint.h>
#include <maya/MQtUtil.h>
#include <maya/MSelectionList.h>
#include <maya/MVector.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <cmath>

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

MDagPath pathOf(const char* name)
{
    MSelectionList list;
    list.add(name);
    MDagPath path;
    list.getDagPath(0, path);
    return path;
}

M3dView viewOf(const char* panel)
{
    M3dView view;
    EXPECT_TRUE(M3dView::getM3dViewFromModelPanel(panel, view)) << panel;
    return view;
}

std::string cameraOf(M3dView view)
{
    MDagPath camera;
    EXPECT_TRUE(view.getCamera(camera));
    return camera.partialPathName().asChar();
}

} // namespace

TEST_F(GuiTest, EveryNewSceneHasMayasDefaultCamerasWhichFilesLeaveOut)
{
    EXPECT_THAT(strings("ls -type camera"), ElementsAre("perspShape", "topShape", "frontShape", "sideShape"));
    MFnCamera persp(pathOf("perspShape"));
    EXPECT_FALSE(persp.isOrtho());
    EXPECT_DOUBLE_EQ(persp.focalLength(), 35.0);
    EXPECT_DOUBLE_EQ(persp.horizontalFilmAperture(), 1.41732);
    EXPECT_DOUBLE_EQ(persp.verticalFilmAperture(), 0.94488);
    EXPECT_EQ(persp.filmFit(), MFnCamera::kHorizontalFilmFit);
    EXPECT_DOUBLE_EQ(persp.overscan(), 1.0);
    EXPECT_NEAR(persp.horizontalFieldOfView(), 2 * std::atan(1.41732 * 12.7 / 35), 1e-12);
    const MPoint eye = persp.eyePoint(MSpace::kWorld);
    EXPECT_NEAR(eye.x, 28, 1e-9);
    EXPECT_NEAR(eye.y, 21, 1e-9);
    EXPECT_NEAR(eye.z, 28, 1e-9);
    // Maya's persp camera looks at the origin, 44.82 units away.
    const MPoint interest = persp.centerOfInterestPoint(MSpace::kWorld);
    EXPECT_NEAR(interest.distanceTo(MPoint()), 0.0, 1e-6);

    MFnCamera top(pathOf("topShape"));
    EXPECT_TRUE(top.isOrtho());
    EXPECT_DOUBLE_EQ(top.orthoWidth(), 30.0);
    const MVector down = top.viewDirection(MSpace::kWorld);
    EXPECT_NEAR(down.y, -1.0, 1e-12);
    EXPECT_EQ(text("getAttr top.visibility"), "0");
    EXPECT_FALSE(MFnCamera(pathOf("persp")).setFocalLength(1.0)) << "below Maya's 2.5 mm";

    // A scene saved and opened again starts from the default cameras anew.
    ASSERT_TRUE(mel("setAttr perspShape.focalLength 50; createNode transform -n ctrl"));
    const std::string file = QDir::temp().filePath("mayasim_cameras.ma").toStdString();
    ASSERT_TRUE(mel("file -rename \"" + file + "\"; file -save"));
    QFile saved(QString::fromStdString(file));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    const std::string written = saved.readAll().toStdString();
    EXPECT_THAT(written, Not(HasSubstr("persp")));
    EXPECT_THAT(written, HasSubstr("\"ctrl\""));
    ASSERT_TRUE(MFileIO::open(file.c_str(), nullptr, true));
    EXPECT_EQ(number("getAttr perspShape.focalLength"), 35.0);
    EXPECT_THAT(strings("ls -type transform"), ElementsAre("persp", "top", "front", "side", "ctrl"));
    QFile::remove(QString::fromStdString(file));
}

TEST_F(GuiTest, FourModelPanelsLookThroughTheDefaultCameras)
{
    EXPECT_THAT(strings("getPanel -type \"modelPanel\""),
                ElementsAre("modelPanel1", "modelPanel2", "modelPanel3", "modelPanel4"));
    EXPECT_THAT(strings("getPanel -type \"graphEditor\""), ElementsAre());
    EXPECT_EQ(text("getPanel -withFocus"), "modelPanel4");
    EXPECT_EQ(text("getPanel -typeOf modelPanel2"), "modelPanel");
    EXPECT_EQ(text("modelEditor -q -camera modelPanel1"), "top");
    EXPECT_EQ(text("modelEditor -q -camera modelPanel2"), "front");
    EXPECT_EQ(text("modelEditor -q -camera modelPanel3"), "side");
    EXPECT_EQ(text("modelEditor -q -camera modelPanel4"), "persp");
    EXPECT_EQ(number("modelEditor -q -motionTrails modelPanel4"), 1.0) << "Maya shows motion trails by default";

    ASSERT_EQ(M3dView::numberOf3dViews(), 4u);
    M3dView active = M3dView::active3dView();
    EXPECT_EQ(cameraOf(active), "perspShape");
    EXPECT_EQ(active.widget(), MQtUtil::findControl("modelPanel4"));
    EXPECT_GT(active.portWidth(), 100);
    M3dView second;
    ASSERT_TRUE(M3dView::get3dView(1, second));
    EXPECT_EQ(cameraOf(second), "frontShape");
    M3dView none;
    EXPECT_FALSE(M3dView::get3dView(4, none));
    EXPECT_FALSE(M3dView::getM3dViewFromModelPanel("graphEditor1", none));
    MDagPath nothing;
    EXPECT_FALSE(none.getCamera(nothing));

    // A click in a view gives it the focus.
    ASSERT_TRUE(mel("mayasimUi -click modelPanel3"));
    EXPECT_EQ(text("getPanel -withFocus"), "modelPanel3");
    EXPECT_EQ(cameraOf(M3dView::active3dView()), "sideShape");
    ASSERT_TRUE(mel("mayasimUi -cursor 10 10 modelPanel2"));
    EXPECT_EQ(text("getPanel -underPointer"), "modelPanel2");

    // The perspective view alone, then the four again.
    const int fourViewWidth = active.portWidth();
    ASSERT_TRUE(mel("setNamedPanelLayout \"Single Perspective View\""));
    EXPECT_THAT(strings("getPanel -visiblePanels"), ElementsAre("modelPanel4", "graphEditor1"));
    EXPECT_GT(active.portWidth(), fourViewWidth);
    ASSERT_TRUE(mel("setNamedPanelLayout \"Four View\""));
    EXPECT_THAT(strings("getPanel -visiblePanels"),
                ElementsAre("modelPanel1", "modelPanel2", "modelPanel3", "modelPanel4", "graphEditor1"));
    EXPECT_FALSE(mel("setNamedPanelLayout \"Five View\""));

    // A new scene's cameras are new nodes; the panels look through them.
    ASSERT_TRUE(mel("file -f -new"));
    EXPECT_EQ(cameraOf(viewOf("modelPanel4")), "perspShape");
}

TEST_F(GuiTest, ModelEditorEditsAPanelAndRaisesModelEditorChanged)
{
    EventCount events("modelEditorChanged");
    ASSERT_TRUE(mel("modelEditor -e -camera side modelPanel4"));
    EXPECT_EQ(events.count, 1);
    EXPECT_EQ(text("modelEditor -q -camera modelPanel4"), "side");
    EXPECT_EQ(cameraOf(viewOf("modelPanel4")), "sideShape");
    ASSERT_TRUE(mel("modelEditor -e -camera topShape modelPanel4")) << "the shape names it too";
    EXPECT_EQ(text("modelEditor -q -camera modelPanel4"), "top");

    ASSERT_TRUE(mel("modelEditor -e -motionTrails false -locators off modelPanel2"));
    EXPECT_EQ(events.count, 3);
    EXPECT_EQ(number("modelEditor -q -motionTrails modelPanel2"), 0.0);
    EXPECT_EQ(number("modelEditor -q -locators modelPanel2"), 0.0);

    // Bad input changes nothing and raises nothing.
    ASSERT_TRUE(mel("createNode transform -n notACamera"));
    EXPECT_FALSE(mel("modelEditor -e -camera notACamera -motionTrails true modelPanel2"));
    EXPECT_THAT(lastError(), HasSubstr("'notACamera' is not a camera"));
    EXPECT_FALSE(mel("modelEditor -e -camera nowhere modelPanel2"));
    EXPECT_FALSE(mel("modelEditor -e -motionTrails maybe modelPanel2"));
    EXPECT_FALSE(mel("modelEditor -q -camera modelPanel9"));
    EXPECT_EQ(number("modelEditor -q -motionTrails modelPanel2"), 0.0);
    EXPECT_EQ(text("modelEditor -q -camera modelPanel2"), "front");
    EXPECT_EQ(events.count, 3);

    // Through the API as well.
    M3dView view = viewOf("modelPanel1");
    MDagPath persp = pathOf("persp");
    ASSERT_TRUE(view.setCamera(persp));
    EXPECT_EQ(cameraOf(view), "perspShape");
    EXPECT_EQ(events.count, 4);
    MDagPath transform = pathOf("notACamera");
    EXPECT_FALSE(view.setCamera(transform));
}

TEST_F(GuiTest, ViewsProjectThroughMayasCameraModel)
{
    // Top: orthographic, 30 units across the port's width, -Z up on screen.
    M3dView top = viewOf("modelPanel1");
    const int width = top.portWidth(), height = top.portHeight();
    const double perUnit = width / 30.0;
    short x = 0, y = 0;
    EXPECT_TRUE(top.worldToView(MPoint(3, 0, -2), x, y));
    EXPECT_EQ(x, static_cast<short>(std::floor(width / 2.0 + 3 * perUnit)));
    EXPECT_EQ(y, static_cast<short>(std::floor(height / 2.0 + 2 * perUnit)));
    EXPECT_FALSE(top.worldToView(MPoint(100, 0, 0), x, y)) << "outside the port";
    MPoint nearPoint, farPoint;
    ASSERT_TRUE(top.viewToWorld(static_cast<short>(width / 2), static_cast<short>(height / 2), nearPoint, farPoint));
    MPoint eye;
    MVector direction;
    ASSERT_TRUE(top.viewToWorld(0, 0, eye, direction));
    EXPECT_NEAR(direction.y, -1.0, 1e-9);
    EXPECT_NEAR(eye.x, -15.0, 1e-9) << "the left edge is half the orthographic width out";

    // A perspective camera 10 units back on +Z: the horizontal half angle's
    // tangent is the half film width over the focal length.
    ASSERT_TRUE(mel("createNode transform -n cam; createNode camera -n camShape -p cam; setAttr cam.tz 10"));
    ASSERT_TRUE(mel("modelEditor -e -camera cam modelPanel4"));
    M3dView persp = viewOf("modelPanel4");
    const int w = persp.portWidth(), h = persp.portHeight();
    const double tangent = 1.41732 * 25.4 / 2 / 35;
    EXPECT_TRUE(persp.worldToView(MPoint(1, 0.5, 0), x, y));
    EXPECT_EQ(x, static_cast<short>(std::floor((1 / (10 * tangent) + 1) / 2 * w)));
    EXPECT_EQ(y, static_cast<short>(std::floor((0.5 / (10 * tangent * h / w) + 1) / 2 * h)));
    EXPECT_FALSE(persp.worldToView(MPoint(0, 0, 20), x, y)) << "behind the camera";

    // Vertical fit keeps the film's height across the port.
    ASSERT_TRUE(mel("setAttr camShape.filmFit 2"));
    EXPECT_TRUE(persp.worldToView(MPoint(0, 0.5, 0), x, y));
    EXPECT_EQ(y, static_cast<short>(std::floor((0.5 / (10 * 0.94488 * 25.4 / 2 / 35) + 1) / 2 * h)));
}

TEST_F(GuiTest, ViewsDrawAgainWhenTheSceneChangesOrWhenAsked)
{
    const auto count = [] { return number("mayasimUi -q -refreshCount"); };
    const double start = count();
    EXPECT_EQ(count(), start) << "nothing changed, nothing drawn";
    ASSERT_TRUE(mel("refresh -f"));
    EXPECT_EQ(count(), start + 4);
    ASSERT_TRUE(mel("createNode transform -n ctrl"));
    EXPECT_EQ(count(), start + 8);
    ASSERT_TRUE(mel("currentTime 5"));
    EXPECT_EQ(count(), start + 12);
    ASSERT_TRUE(M3dView::scheduleRefreshAllViews());
    EXPECT_EQ(count(), start + 16);
    ASSERT_TRUE(viewOf("modelPanel2").scheduleRefresh());
    EXPECT_EQ(count(), start + 17);
    EXPECT_EQ(number("mayasimUi -q -refreshCount modelPanel2"), number("mayasimUi -q -refreshCount modelPanel1") + 1);
    ASSERT_TRUE(mel("refresh -currentView -force"));
    EXPECT_EQ(count(), start + 18);
    EXPECT_THAT(strings("mayasimUi -q -drawList modelPanel1"), ElementsAre()) << "no plug-in draws";
    EXPECT_FALSE(mel("mayasimUi -q -drawList timeControl1"));
}

TEST(BatchViews, WithoutTheInterfaceThereAreNoPanelsOrViews)
{
    EXPECT_EQ(M3dView::numberOf3dViews(), 0u);
    MStatus status;
    M3dView::active3dView(&status);
    EXPECT_FALSE(status);
    EXPECT_TRUE(M3dView::scheduleRefreshAllViews());
    MStringArray panels;
    EXPECT_TRUE(MGlobal::executeCommand("getPanel -type \"modelPanel\"", panels));
    EXPECT_EQ(panels.length(), 0u);
    EXPECT_TRUE(MGlobal::executeCommand("refresh -f"));
    EXPECT_FALSE(MGlobal::executeCommand("modelEditor -q -camera modelPanel4"));
    EXPECT_FALSE(MGlobal::executeCommand("playblast -st 1 -et 2"));
}
