// Motion trails in the GUI host: the idle fill, tick by tick; what the
// trail locator draws into each view, checked in pixels against cameras
// worked out by hand; the styles; camera space; the scene events; unload.
#include "GuiApplication.h"
#include "PluginTest.h"

#include "MotionTrail/Manager.h"

#include <maya/M3dView.h>
#include <maya/MAnimMessage.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MObjectHandle.h>
#include <mayasim/Gui.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <QApplication>

#include <cmath>
#include <sstream>

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

// A drawn primitive read back from the draw list.
struct Drawn
{
    std::string kind;
    std::vector<double> at;    // position and size
    bool filled = false;
    std::vector<double> color; // r g b a
    double width = -1.0;
};

Drawn parse(const std::string& line)
{
    std::istringstream in(line);
    Drawn drawn;
    in >> drawn.kind;
    std::string word;
    while (in >> word && word != "color") {
        if (word == "filled")
            drawn.filled = true;
        else if (word != "size")
            drawn.at.push_back(std::stod(word));
    }
    for (int i = 0; i < 4 && in >> word; ++i)
        drawn.color.push_back(std::stod(word));
    if (in >> word && word == "width")
        in >> drawn.width;
    return drawn;
}

std::vector<Drawn> drawnIn(const std::string& panel)
{
    std::vector<Drawn> drawn;
    for (const std::string& line : strings("mayasimUi -q -drawList " + panel))
        drawn.push_back(parse(line));
    return drawn;
}

void expectNear(const std::vector<double>& actual, std::initializer_list<double> expected, const std::string& what)
{
    ASSERT_EQ(actual.size(), expected.size()) << what;
    size_t i = 0;
    for (double value : expected) {
        EXPECT_NEAR(actual[i], value, 1e-4) << what << " number " << i;
        ++i;
    }
}

std::pair<double, double> portOf(const char* panel)
{
    M3dView view;
    EXPECT_TRUE(M3dView::getM3dViewFromModelPanel(panel, view));
    return {double(view.portWidth()), double(view.portHeight())};
}

unsigned int idOf(const std::string& name) { return MObjectHandle(nodeNamed(name)).hashCode(); }

const MotionTrail::Trail* trailOf(const std::string& name)
{
    return MotionTrail::Manager::instance().trail(idOf(name));
}

// The frames of the object's trail that hold a value, in frame order.
std::vector<int> filledFrames(const std::string& name, int first, int last)
{
    std::vector<int> frames;
    const MotionTrail::Trail* trail = trailOf(name);
    for (int f = first; f <= last && trail; ++f)
        if (trail->frame(f))
            frames.push_back(f);
    return frames;
}

// Key edits reach the trails at the next idle tick, before anything else
// it does: the frames dirty as that tick starts.
std::vector<int> dirtyFrames(const std::string& name, int first, int last)
{
    MAnimMessage::flushAnimKeyframeEditedCallbacks();
    std::vector<int> frames;
    const MotionTrail::Trail* trail = trailOf(name);
    for (int f = first; f <= last && trail; ++f)
        if (trail->dirtyFrames().contains(f))
            frames.push_back(f);
    return frames;
}

// Idle ticks until the trails' work is done; the number of ticks it took.
int fillAll()
{
    MAnimMessage::flushAnimKeyframeEditedCallbacks();
    int ticks = 0;
    while (MotionTrail::Manager::instance().hasPendingWork() && ticks < 100000) {
        mayasim::host::pumpIdle();
        ++ticks;
    }
    return ticks;
}

// The fade of the frame at v, now 5 in the range 1 to 10.
double fade(double v)
{
    return v >= 5.0 ? 1.0 - std::sqrt((v - 5.0) / 5.0) : 1.0 - std::sqrt((5.0 - v) / 4.0);
}

class MotionTrailTest : public PluginTest
{
protected:
    void SetUp() override
    {
        PluginTest::SetUp();
        mayasim::gui::openMainWindow(1000, 800);
        QApplication::processEvents();
        // ball moves along x, one unit a frame, from 1 at frame 1, its pivot
        // one unit up, under a parent two units to the left: its trail runs
        // along (t - 2, 1, 0).
        ASSERT_TRUE(mel("playbackOptions -min 1 -max 10; createNode transform -n root; setAttr root.tx -2; "
                        "createNode transform -n ball -p root; setAttr ball.rotatePivot 0 1 0"));
        std::vector<std::pair<double, double>> keys;
        for (int f = 1; f <= 10; ++f)
            keys.emplace_back(f, f);
        keyPlug("ball.tx", keys);
        ASSERT_TRUE(mel("currentTime 5; select -r ball"));
    }
    void TearDown() override
    {
        mayasim::gui::closeMainWindow();
        PluginTest::TearDown();
    }
};

TEST_F(MotionTrailTest, FillsOutwardFromTheCurrentFrameOneFramePerTick)
{
    const size_t callbacksBefore = mayasim::host::callbackCount();
    ASSERT_TRUE(mel("OVMotionTrail"));
    EXPECT_THAT(strings("ls -type OVMotionTrailNode"), ElementsAre("OVMotionTrailNode"));
    EXPECT_THAT(strings("ls -l -type OVMotionTrailNode"), ElementsAre("|transform1|OVMotionTrailNode"));
    ASSERT_NE(trailOf("ball"), nullptr);
    EXPECT_THAT(filledFrames("ball", -5, 20), IsEmpty());
    EXPECT_THAT(dirtyFrames("ball", -5, 20), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10));

    // 5, 6, 4, 7, 3, 8, 2, 9, 1, 10: one frame each tick.
    const int order[] = {5, 6, 4, 7, 3, 8, 2, 9, 1, 10};
    std::vector<int> expected;
    for (int frame : order) {
        ASSERT_TRUE(MotionTrail::Manager::instance().hasPendingWork());
        mayasim::host::pumpIdle();
        expected.push_back(frame);
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(filledFrames("ball", -5, 20), expected) << "after frame " << frame;
    }
    // Done: the idle callback is gone with the queue.
    EXPECT_FALSE(MotionTrail::Manager::instance().hasPendingWork());
    for (int f = 1; f <= 10; ++f) {
        const MotionTrail::TrailFrame* frame = trailOf("ball")->frame(f);
        EXPECT_NEAR(frame->point.x, f - 2.0, 1e-12);
        EXPECT_NEAR(frame->point.y, 1.0, 1e-12);
        EXPECT_NEAR(frame->point.z, 0.0, 1e-12);
        EXPECT_NEAR(frame->matrix(3, 0), -2.0, 1e-12);
        EXPECT_NEAR(frame->matrix(3, 1), 1.0, 1e-12);
    }

    // A change of time recomputes nothing.
    ASSERT_TRUE(mel("currentTime 8"));
    EXPECT_FALSE(MotionTrail::Manager::instance().hasPendingWork());

    // At the range start the walk spends one tick before it, then goes on
    // forward alone.
    ASSERT_TRUE(mel("currentTime 1; setAttr ball.rotatePivot 0 2 0"));
    EXPECT_THAT(dirtyFrames("ball", -5, 20), SizeIs(10));
    EXPECT_EQ(trailOf("ball")->mode(), MotionTrail::RecomputeMode::Full);
    EXPECT_EQ(fillAll(), 11);
    EXPECT_NEAR(trailOf("ball")->frame(4)->point.y, 2.0, 1e-12);

    // A current time outside the range starts at the range start.
    ASSERT_TRUE(mel("currentTime 30; setAttr ball.rotatePivot 0 1 0"));
    EXPECT_EQ(fillAll(), 11);

    // Toggling again takes the trail, the node and every callback away.
    ASSERT_TRUE(mel("OVMotionTrail ball"));
    EXPECT_EQ(trailOf("ball"), nullptr);
    EXPECT_THAT(strings("ls -type OVMotionTrailNode"), IsEmpty());
    EXPECT_THAT(strings("ls -type transform"), ElementsAre("persp", "top", "front", "side", "root", "ball"));
    EXPECT_EQ(mayasim::host::callbackCount(), callbacksBefore);
}

TEST_F(MotionTrailTest, DrawsTheCachedPointsInViewportPixels)
{
    ASSERT_TRUE(mel("OVMotionTrail"));
    fillAll();

    // A refresh while the fill runs draws the frames done so far: after 5,
    // 6 and 4, two segments and the mark.
    ASSERT_TRUE(mel("OVMotionTrail -deleteAll; OVMotionTrail ball"));
    for (int tick = 0; tick < 3; ++tick)
        mayasim::host::pumpIdle();
    ASSERT_TRUE(mel("refresh -f"));
    const std::vector<Drawn> partial = drawnIn("modelPanel1");
    ASSERT_THAT(partial, SizeIs(3));
    EXPECT_EQ(partial[0].kind, "line2d");
    EXPECT_EQ(partial[1].kind, "line2d");
    EXPECT_EQ(partial[2].kind, "circle2d");
    fillAll();

    // Top: orthographic, 30 units across the port, centred on the origin,
    // -Z up on screen: (t - 2, 1, 0) lands at (cx + (t - 2) u, cy).
    {
        const auto [width, height] = portOf("modelPanel1");
        const double u = width / 30.0, cx = width / 2.0, cy = height / 2.0;
        const std::vector<Drawn> drawn = drawnIn("modelPanel1");
        ASSERT_THAT(drawn, SizeIs(10));
        for (int i = 0; i < 9; ++i) {
            const int f = i + 1;
            EXPECT_EQ(drawn[i].kind, "line2d");
            expectNear(drawn[i].at, {cx + (f - 2) * u, cy, cx + (f - 1) * u, cy}, "segment");
            // Red, faded by the segment's first frame, 2 pixels wide.
            expectNear(drawn[i].color, {1, 0, 0, fade(f)}, "segment colour");
            EXPECT_EQ(drawn[i].width, 2.0);
        }
        // The current frame: a filled green disc of radius 5 at frame 5.
        EXPECT_EQ(drawn[9].kind, "circle2d");
        EXPECT_TRUE(drawn[9].filled);
        expectNear(drawn[9].at, {cx + 3 * u, cy, 5}, "mark");
        expectNear(drawn[9].color, {0, 1, 0, 1}, "mark colour");
        // The screenshot shows it: opaque red near frame 5, green at the mark.
        ASSERT_TRUE(mel("mayasimUi -screenshot \"" + std::string(ORVANE_BINARY_DIR) + "/motion_trail_top.png\" modelPanel1"));
    }

    // Perspective: a camera 30 units back on +Z looking down -Z, 35 mm on
    // the 1.41732 inch film, horizontal fit: x = cx + X / (D tan) * w / 2
    // with tan = 1.41732 * 25.4 / 2 / 35 and D the depth, 30 here.
    ASSERT_TRUE(mel("createNode transform -n cam; createNode camera -n camShape -p cam; setAttr cam.tz 30; "
                    "modelEditor -e -camera cam modelPanel4"));
    {
        const auto [width, height] = portOf("modelPanel4");
        const double tangent = 1.41732 * 25.4 / 2.0 / 35.0, scale = width / 2.0 / (30.0 * tangent);
        const double cx = width / 2.0, cy = height / 2.0;
        const std::vector<Drawn> drawn = drawnIn("modelPanel4");
        ASSERT_THAT(drawn, SizeIs(10));
        for (int i = 0; i < 9; ++i) {
            const int f = i + 1;
            expectNear(drawn[i].at, {cx + (f - 2) * scale, cy + scale, cx + (f - 1) * scale, cy + scale}, "segment");
            expectNear(drawn[i].color, {1, 0, 0, fade(f)}, "segment colour");
        }
        expectNear(drawn[9].at, {cx + 3 * scale, cy + scale, 5}, "mark");
        ASSERT_TRUE(mel("mayasimUi -screenshot \"" + std::string(ORVANE_BINARY_DIR) + "/motion_trail_persp.png\" modelPanel4"));
    }
}

TEST_F(MotionTrailTest, EveryStyleAsTheFlagsSetIt)
{
    ASSERT_TRUE(mel("OVMotionTrail; currentTime 10"));
    fillAll();
    const auto [width, height] = portOf("modelPanel1");
    const double u = width / 30.0, cx = width / 2.0, cy = height / 2.0;
    auto x = [&](int f) { return cx + (f - 2) * u; };
    const double y = cy;
    const std::string shots = std::string(ORVANE_BINARY_DIR) + "/motion_trail_";

    // At the last frame nothing after now fades; before it, 9 frames fade.
    // Alternating dashes, thick, points as circles in their colour over them.
    for (const char* flags : {"-lineStyle 0", "-lineSize 4", "-mainLineColor 1 1 0", "-secondaryLineColor 0 1 1",
                              "-showPoints 1", "-pointsStyle 1", "-pointsSize 8", "-pointsColor 1 0 1",
                              "-currentFrameColor 1 1 1", "-currentFrameSize 7"})
        ASSERT_TRUE(mel(std::string("OVMotionTrail ") + flags + " ball")) << flags;
    std::vector<Drawn> drawn = drawnIn("modelPanel1");
    ASSERT_THAT(drawn, SizeIs(9 + 10 + 1));
    for (int i = 0; i < 9; ++i) {
        const int f = i + 1;
        const double alpha = 1.0 - std::sqrt((10.0 - f) / 9.0);
        expectNear(drawn[i].at, {x(f), y, x(f + 1), y}, "dash");
        if (i % 2 == 0)
            expectNear(drawn[i].color, {1, 1, 0, alpha}, "main dash");
        else
            expectNear(drawn[i].color, {0, 1, 1, alpha}, "secondary dash");
        EXPECT_EQ(drawn[i].width, 4.0);
    }
    for (int i = 0; i < 10; ++i) {
        const int f = i + 1;
        const Drawn& point = drawn[9 + i];
        EXPECT_EQ(point.kind, "circle2d");
        EXPECT_TRUE(point.filled);
        expectNear(point.at, {x(f), y, 4}, "circle point");
        expectNear(point.color, {1, 0, 1, f == 10 ? 1.0 : 1.0 - std::sqrt((10.0 - f) / 9.0)}, "circle colour");
    }
    expectNear(drawn[19].at, {x(10), y, 7}, "mark");
    expectNear(drawn[19].color, {1, 1, 1, 1}, "mark colour");
    ASSERT_TRUE(mel("mayasimUi -screenshot \"" + shots + "dashes_circles.png\" modelPanel1"));

    // Plain points, each its own list and colour; no fade; no line, no mark.
    for (const char* flags : {"-pointsStyle 0", "-transparencyFalloff 0", "-showLine 0", "-showCurrentFrame 0"})
        ASSERT_TRUE(mel(std::string("OVMotionTrail ") + flags + " ball")) << flags;
    drawn = drawnIn("modelPanel1");
    ASSERT_THAT(drawn, SizeIs(10));
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(drawn[i].kind, "point2d");
        expectNear(drawn[i].at, {x(i + 1), y, 8}, "point");
        expectNear(drawn[i].color, {1, 0, 1, 1}, "point colour");
    }
    ASSERT_TRUE(mel("mayasimUi -screenshot \"" + shots + "points.png\" modelPanel1"));

    // A fractional time marks no frame, though the fade follows it.
    ASSERT_TRUE(mel("OVMotionTrail -showLine 1 ball; OVMotionTrail -showPoints 0 ball; "
                    "OVMotionTrail -showCurrentFrame 1 ball; OVMotionTrail -transparencyFalloff 1 ball; "
                    "OVMotionTrail -lineStyle 1 ball; currentTime 5.5"));
    drawn = drawnIn("modelPanel1");
    ASSERT_THAT(drawn, SizeIs(9));
    expectNear(drawn[0].color, {1, 1, 0, 1.0 - std::sqrt(4.5 / 4.5)}, "first segment");
    expectNear(drawn[5].color, {1, 1, 0, 1.0 - std::sqrt(0.5 / 4.5)}, "segment from 6");

    // A style flag on an object without a trail changes nothing; a new
    // trail starts from the defaults.
    ASSERT_TRUE(mel("createNode transform -n other; OVMotionTrail -lineSize 9 other; OVMotionTrail other"));
    const MotionTrail::TrailStyle defaults;
    EXPECT_EQ(trailOf("other")->style.lineSize, defaults.lineSize);
    EXPECT_EQ(trailOf("other")->style.visibleParts, 10u);
    EXPECT_EQ(trailOf("ball")->style.lineSize, 4.0);
}

TEST_F(MotionTrailTest, OneSettingPerCallAndReports)
{
    ASSERT_TRUE(mel("OVMotionTrail"));
    // -deleteAll wins over anything else, -showLine over -showPoints.
    ASSERT_TRUE(mel("OVMotionTrail -showLine 0 -showPoints 1 ball"));
    EXPECT_EQ(trailOf("ball")->style.visibleParts, unsigned(MotionTrail::CurrentFrame));
    ASSERT_TRUE(mel("OVMotionTrail -lineSize 7 -deleteAll ball"));
    EXPECT_EQ(MotionTrail::Manager::instance().trailCount(), 0u);
    EXPECT_THAT(strings("ls -type OVMotionTrailNode"), IsEmpty());

    // Bad arguments and numbers that aren't finite change nothing.
    ASSERT_TRUE(mel("OVMotionTrail ball"));
    mayasim::host::clearOutput();
    EXPECT_FALSE(mel("OVMotionTrail -lineSize abc ball"));
    EXPECT_FALSE(mel("OVMotionTrail -mainLineColor 1 1e999 0 ball"));
    ASSERT_THAT(reports(), SizeIs(1));
    EXPECT_THAT(reports()[0], HasSubstr("Message: [, -mainLineColor] flag needs a finite number\n"));
    EXPECT_THAT(reports()[0], HasSubstr("Function: doIt\n"));
    EXPECT_EQ(trailOf("ball")->style.mainLineColor, MColor(1.0F, 0.0F, 0.0F, 1.0F));

    // An empty selection toggles nothing and leaves the trails as they are;
    // camera space without a cache stays on.
    ASSERT_TRUE(mel("select -cl; OVMotionTrail"));
    EXPECT_EQ(MotionTrail::Manager::instance().trailCount(), 1u);
    ASSERT_TRUE(mel("OVMotionTrail -cameraSpace 1"));
    EXPECT_TRUE(MotionTrail::Manager::instance().cameraSpaceActive());
    EXPECT_EQ(MotionTrail::Manager::instance().cameraCacheCount(), 1u); // persp, the one perspective view
    ASSERT_TRUE(mel("OVMotionTrail -cameraSpace 0"));
    EXPECT_FALSE(MotionTrail::Manager::instance().cameraSpaceActive());
    // Sent right after a trail is made, -cameraSpace 0 leaves it queued.
    ASSERT_TRUE(mel("OVMotionTrail -deleteAll; OVMotionTrail ball; OVMotionTrail -cameraSpace 1; "
                    "OVMotionTrail -cameraSpace 0"));
    EXPECT_EQ(MotionTrail::Manager::instance().cameraCacheCount(), 0u);
    EXPECT_EQ(fillAll(), 10);
    EXPECT_THAT(filledFrames("ball", -5, 20), SizeIs(10));
    ASSERT_TRUE(mel("OVMotionTrail -cameraSpace 1; OVMotionTrail -deleteAll; OVMotionTrail -cameraSpace 0"));
    EXPECT_TRUE(MotionTrail::Manager::instance().cameraSpaceActive());
    // With no trail, camera space doesn't start.
    ASSERT_TRUE(mel("OVMotionTrail -cameraSpace 1"));
    EXPECT_EQ(MotionTrail::Manager::instance().cameraCacheCount(), 0u);
    EXPECT_THAT(reports(), SizeIs(1));
}

TEST_F(MotionTrailTest, OnlyInPanelsShowingMotionTrailsAndNeverInAPlayblast)
{
    ASSERT_TRUE(mel("OVMotionTrail"));
    fillAll();
    ASSERT_THAT(drawnIn("modelPanel1"), SizeIs(10));
    ASSERT_THAT(drawnIn("modelPanel2"), SizeIs(10));

    // Motion trails off in the top view: nothing there, the others draw.
    ASSERT_TRUE(mel("modelEditor -e -motionTrails 0 modelPanel1"));
    EXPECT_THAT(drawnIn("modelPanel1"), IsEmpty());
    EXPECT_THAT(drawnIn("modelPanel2"), SizeIs(10));
    // The set holds cameras: a panel that shows trails through top draws
    // them in both.
    ASSERT_TRUE(mel("modelEditor -e -camera top modelPanel2; refresh -f"));
    EXPECT_THAT(drawnIn("modelPanel1"), SizeIs(10));
    ASSERT_TRUE(mel("modelEditor -e -camera front modelPanel2; refresh -f"));
    EXPECT_THAT(drawnIn("modelPanel1"), IsEmpty());
    // Locators hidden: the trails stay.
    ASSERT_TRUE(mel("modelEditor -e -locators 0 modelPanel2"));
    EXPECT_THAT(drawnIn("modelPanel2"), SizeIs(10));

    // While a playblast runs nothing is drawn: its frames show no red.
    mayasim::host::setCondition("playblasting", true);
    ASSERT_TRUE(mel("refresh -f"));
    EXPECT_THAT(drawnIn("modelPanel2"), IsEmpty());
    mayasim::host::setCondition("playblasting", false);
    ASSERT_TRUE(mel("refresh -f"));
    EXPECT_THAT(drawnIn("modelPanel2"), SizeIs(10));
}

TEST_F(MotionTrailTest, ANewSceneRemovesEveryTrailAndCallback)
{
    const size_t callbacksBefore = mayasim::host::callbackCount();
    ASSERT_TRUE(mel("createNode transform -n other; OVMotionTrail ball other; OVMotionTrail -cameraSpace 1"));
    EXPECT_GT(mayasim::host::callbackCount(), callbacksBefore);
    ASSERT_TRUE(mel("file -f -new"));
    EXPECT_EQ(MotionTrail::Manager::instance().trailCount(), 0u);
    EXPECT_EQ(MotionTrail::Manager::instance().cameraCacheCount(), 0u);
    EXPECT_FALSE(MotionTrail::Manager::instance().hasPendingWork());
    EXPECT_EQ(mayasim::host::callbackCount(), callbacksBefore);
    EXPECT_THAT(strings("ls -type transform"), ElementsAre("persp", "top", "front", "side"));
}

TEST_F(MotionTrailTest, EditsMarkOnlyWhatTheyTouchAndUndoMarksThemAgain)
{
    ASSERT_TRUE(mel("OVMotionTrail"));
    fillAll();
    // The key at 7 marks from the key before it to the key after; the
    // edit changed the auto tangents of its neighbours as well, whose own
    // spans reach 5 and 9.
    ASSERT_TRUE(mel("setKeyframe -t 7 -v 20 ball.tx"));
    EXPECT_THAT(dirtyFrames("ball", -5, 20), ElementsAre(5, 6, 7, 8, 9));
    EXPECT_EQ(fillAll(), 8); // 5, 6, 4, 7, 3, 8, 2, 9: clean frames cost a tick
    EXPECT_NEAR(trailOf("ball")->frame(7)->point.x, 18.0, 1e-12);
    ASSERT_TRUE(mel("undo"));
    EXPECT_THAT(dirtyFrames("ball", -5, 20), ElementsAre(5, 6, 7, 8, 9));
    fillAll();
    EXPECT_NEAR(trailOf("ball")->frame(7)->point.x, 5.0, 1e-12);
    ASSERT_TRUE(mel("redo"));
    fillAll();
    EXPECT_NEAR(trailOf("ball")->frame(7)->point.x, 18.0, 1e-12);

    // The first key marks to the next one; the last from the one before it.
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 1 ball.tx"));
    EXPECT_THAT(dirtyFrames("ball", -5, 20), ElementsAre(1, 2));
    fillAll();
    ASSERT_TRUE(mel("setKeyframe -t 10 -v 10 ball.tx"));
    EXPECT_THAT(dirtyFrames("ball", -5, 20), ElementsAre(9, 10));
    fillAll();

    // Shortened, the range keeps its frames, even as the scene changes
    // outside it; lengthened again, they are drawn at once and only the
    // missing are computed.
    ASSERT_TRUE(mel("playbackOptions -max 5"));
    fillAll();
    ASSERT_TRUE(mel("setKeyframe -t 8 -v 30 ball.tx"));
    EXPECT_THAT(dirtyFrames("ball", -5, 20), IsEmpty());
    fillAll();
    ASSERT_TRUE(mel("playbackOptions -max 10"));
    EXPECT_EQ(trailOf("ball")->mode(), MotionTrail::RecomputeMode::MissingOnly);
    fillAll();
    EXPECT_NEAR(trailOf("ball")->frame(8)->point.x, 6.0, 1e-12);
    // In the front view frame 7, at x 18, lies outside the port: the line
    // joins 6 to 8 directly.
    const auto [width, height] = portOf("modelPanel2");
    const double u = width / 30.0, cx = width / 2.0, cy = height / 2.0;
    const std::vector<Drawn> front = drawnIn("modelPanel2");
    ASSERT_THAT(front, SizeIs(9));
    expectNear(front[5].at, {cx + 4 * u, cy + u, cx + 6 * u, cy + u}, "segment over the gap");

    // A deleted object's trail goes at the next draw.
    ASSERT_TRUE(mel("delete ball"));
    fillAll();
    EXPECT_THAT(drawnIn("modelPanel2"), IsEmpty());
    EXPECT_EQ(MotionTrail::Manager::instance().trailCount(), 0u);
}

TEST_F(MotionTrailTest, CameraSpaceFollowsAMovingCamera)
{
    // A camera riding along with the ball, 30 units in front of its line:
    // seen from it, the ball stands still, so in camera space the whole
    // trail lies where the ball is now; in world space it runs across.
    ASSERT_TRUE(mel("createNode transform -n cam; createNode camera -n camShape -p cam; setAttr cam.tz 30"));
    std::vector<std::pair<double, double>> keys;
    for (int f = 1; f <= 10; ++f)
        keys.emplace_back(f, f);
    keyPlug("cam.tx", keys);
    ASSERT_TRUE(mel("modelEditor -e -camera cam modelPanel4; currentTime 5; select -r ball; OVMotionTrail; "
                    "OVMotionTrail -cameraSpace 1"));
    EXPECT_EQ(MotionTrail::Manager::instance().cameraCacheCount(), 1u);
    fillAll();
    const auto [width, height] = portOf("modelPanel4");
    const double tangent = 1.41732 * 25.4 / 2.0 / 35.0, scale = width / 2.0 / (30.0 * tangent);
    const double cx = width / 2.0, cy = height / 2.0;
    const std::vector<Drawn> drawn = drawnIn("modelPanel4");
    ASSERT_THAT(drawn, SizeIs(10));
    for (int i = 0; i < 9; ++i)
        expectNear(drawn[i].at, {cx - 2 * scale, cy + scale, cx - 2 * scale, cy + scale}, "segment");
    // An orthographic view draws the world-space trail.
    const auto [topWidth, topHeight] = portOf("modelPanel1");
    const std::vector<Drawn> top = drawnIn("modelPanel1");
    ASSERT_THAT(top, SizeIs(10));
    expectNear(top[0].at, {topWidth / 2 - topWidth / 30, topHeight / 2, topWidth / 2, topHeight / 2}, "top segment");

    // Camera space off: the world-space trail again.
    ASSERT_TRUE(mel("OVMotionTrail -cameraSpace 0"));
    const std::vector<Drawn> world = drawnIn("modelPanel4");
    ASSERT_THAT(world, SizeIs(10));
    expectNear(world[0].at, {cx - 6 * scale, cy + scale, cx - 5 * scale, cy + scale}, "world segment");
}

TEST_F(MotionTrailTest, UnloadIsRefusedWhileTrailsExist)
{
    const size_t callbacksBefore = mayasim::host::callbackCount();
    ASSERT_TRUE(mel("OVMotionTrail"));
    EXPECT_FALSE(mel("unloadPlugin orvane"));
    EXPECT_NE(MotionTrail::Manager::instance().trailCount(), 0u);
    ASSERT_TRUE(mel("OVMotionTrail -deleteAll; flushUndo"));
    ASSERT_TRUE(mel("unloadPlugin orvane"));
    EXPECT_LE(mayasim::host::callbackCount(), callbacksBefore);
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
}

TEST_F(MotionTrailTest, AFailedOverrideRegistrationNamesIt)
{
    ASSERT_TRUE(mel("unloadPlugin orvane"));
    mayasim::host::clearRegistrations();
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    int at = 0;
    for (const auto& entry : mayasim::host::registrations()) {
        ++at;
        if (entry.call == "registerDrawOverrideCreator")
            break;
    }
    EXPECT_EQ(mayasim::host::registrations()[size_t(at - 1)].name, "drawdb/geometry/MotionTrail");
    EXPECT_EQ(mayasim::host::registrations()[size_t(at - 2)].name, "OVMotionTrailNode");
    ASSERT_TRUE(mel("unloadPlugin orvane"));
    mayasim::host::clearOutput();
    mayasim::host::failRegistrationAt(at);
    EXPECT_FALSE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    ASSERT_THAT(reports(), SizeIs(1));
    EXPECT_THAT(reports()[0], HasSubstr("Message: Failed to register MotionTrailOverride\n"));
    EXPECT_THAT(reports()[0], HasSubstr("Function: Register\n"));
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
}

} // namespace
