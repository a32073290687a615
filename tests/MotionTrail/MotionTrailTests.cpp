// Motion trails in the GUI host: the idle fill, tick by tick; what the
// trail locator draws into each view, checked in pixels against cameras
// worked out by hand; the styles; camera space; the scene events; unload.
#include "GuiApplication.h"
#include "PluginTest.h"

#include "MotionTrail/Manager.h"

#include <maya/M3dView.h>
#include <maya/MGlobal.h>
#include <maya/MObjectHandle.h>
#include <maya/MStringArray.h>
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

std::vector<std::string> strings(const std::string& command)
{
    MStringArray result;
    EXPECT_TRUE(MGlobal::executeCommand(command.c_str(), result)) << command;
    std::vector<std::string> texts;
    for (unsigned int i = 0; i < result.length(); ++i)
        texts.push_back(result[i].asChar());
    return texts;
}

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
        else
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

std::vector<int> dirtyFrames(const std::string& name, int first, int last)
{
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
        mayasim::gui::openMainWindow(1000, 600);
        QApplication::processEvents();
        // ball moves along x, one unit a frame, from 1 at frame 1, its pivot
        // one unit up, under a parent two units back: its trail runs along
        // (t, 1, -2).
        ASSERT_TRUE(mel("playbackOptions -min 1 -max 10; createNode transform -n root; setAttr root.tz -2; "
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
        EXPECT_NEAR(frame->point.x, f, 1e-12);
        EXPECT_NEAR(frame->point.y, 1.0, 1e-12);
        EXPECT_NEAR(frame->point.z, -2.0, 1e-12);
        EXPECT_NEAR(frame->matrix(3, 1), 1.0, 1e-12);
        EXPECT_NEAR(frame->matrix(3, 2), -2.0, 1e-12);
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

    // Top: orthographic, 30 units across the port, centred on the origin,
    // -Z up on screen: (t, 1, -2) lands at (cx + t u, cy + 2 u).
    {
        const auto [width, height] = portOf("modelPanel1");
        const double u = width / 30.0, cx = width / 2.0, cy = height / 2.0;
        const std::vector<Drawn> drawn = drawnIn("modelPanel1");
        ASSERT_THAT(drawn, SizeIs(10));
        for (int i = 0; i < 9; ++i) {
            const int f = i + 1;
            EXPECT_EQ(drawn[i].kind, "line2d");
            expectNear(drawn[i].at, {cx + f * u, cy + 2 * u, cx + (f + 1) * u, cy + 2 * u}, "segment");
            // Red, faded by the segment's first frame, 2 pixels wide.
            expectNear(drawn[i].color, {1, 0, 0, fade(f)}, "segment colour");
            EXPECT_EQ(drawn[i].width, 2.0);
        }
        // The current frame: a filled green disc of radius 5 at frame 5.
        EXPECT_EQ(drawn[9].kind, "circle2d");
        EXPECT_TRUE(drawn[9].filled);
        expectNear(drawn[9].at, {cx + 5 * u, cy + 2 * u, 5}, "mark");
        expectNear(drawn[9].color, {0, 1, 0, 1}, "mark colour");
        // The screenshot shows it: opaque red near frame 5, green at the mark.
        ASSERT_TRUE(mel("mayasimUi -screenshot \"" + std::string(ORVANE_BINARY_DIR) + "/motion_trail_top.png\" modelPanel1"));
    }

    // Perspective: a camera 30 units back on +Z looking down -Z, 35 mm on
    // the 1.41732 inch film, horizontal fit: x = cx + X / (D tan) * w / 2
    // with tan = 1.41732 * 25.4 / 2 / 35 and D the depth, 32 here.
    ASSERT_TRUE(mel("createNode transform -n cam; createNode camera -n camShape -p cam; setAttr cam.tz 30; "
                    "modelEditor -e -camera cam modelPanel4"));
    {
        const auto [width, height] = portOf("modelPanel4");
        const double tangent = 1.41732 * 25.4 / 2.0 / 35.0, scale = width / 2.0 / (32.0 * tangent);
        const double cx = width / 2.0, cy = height / 2.0;
        const std::vector<Drawn> drawn = drawnIn("modelPanel4");
        ASSERT_THAT(drawn, SizeIs(10));
        for (int i = 0; i < 9; ++i) {
            const int f = i + 1;
            expectNear(drawn[i].at, {cx + f * scale, cy + scale, cx + (f + 1) * scale, cy + scale}, "segment");
            expectNear(drawn[i].color, {1, 0, 0, fade(f)}, "segment colour");
        }
        expectNear(drawn[9].at, {cx + 5 * scale, cy + scale, 5}, "mark");
        ASSERT_TRUE(mel("mayasimUi -screenshot \"" + std::string(ORVANE_BINARY_DIR) + "/motion_trail_persp.png\" modelPanel4"));
    }
}

} // namespace
