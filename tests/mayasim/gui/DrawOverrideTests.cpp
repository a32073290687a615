// Viewport 2.0 for plug-in locators: the test plug-in's override draws a
// line and a circle through worldToViewport; the draw lists, the pixels,
// the panels' filters, playblasts and the overrides' lifetimes.
#include "DrawTestPlugin.h"
#include "GuiTest.h"

#include <maya/M3dView.h>
#include <maya/MDrawRegistry.h>
#include <maya/MPxDrawOverride.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtGui/QImage>

#include <sstream>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

class DrawOverrideTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        drawtest::record() = {};
        ASSERT_TRUE(mayasim::host::loadLinkedPlugin("drawTest", drawtest::initializePlugin,
                                                    drawtest::uninitializePlugin));
    }
    void TearDown() override
    {
        EXPECT_TRUE(mel("file -f -new; unloadPlugin drawTest"));
        GuiTest::TearDown();
    }

    static std::vector<std::string> drawList(const std::string& panel)
    {
        return strings("mayasimUi -q -drawList " + panel);
    }
    static std::pair<int, int> portOf(const char* panel)
    {
        M3dView view;
        EXPECT_TRUE(M3dView::getM3dViewFromModelPanel(panel, view));
        return {view.portWidth(), view.portHeight()};
    }
    // The colour at a point given from the view's bottom left, as "r g b a".
    static std::string pixel(const std::string& panel, double x, double yFromBottom, int height)
    {
        return text("mayasimUi -q -pixel " + std::to_string(static_cast<int>(x)) + " " +
                    std::to_string(static_cast<int>(height - yFromBottom)) + " " + panel);
    }
};

// An override that keeps the base class's answer: the legacy OpenGL device.
class LegacyOverride : public MHWRender::MPxDrawOverride
{
public:
    explicit LegacyOverride(const MObject& node) : MPxDrawOverride(node, nullptr) {}
    MUserData* prepareForDraw(const MDagPath&, const MDagPath&, const MHWRender::MFrameContext&, MUserData*) override
    {
        ++drawtest::record().prepares;
        return nullptr;
    }
};

// A drawn primitive's words, with its numbers read back.
struct Drawn
{
    std::string kind;
    std::vector<double> numbers; // the position and size, before "color"
    std::string rest;            // from "color" on
};

Drawn parse(const std::string& line)
{
    std::istringstream in(line);
    Drawn drawn;
    in >> drawn.kind;
    std::string word;
    while (in >> word && word != "color" && word != "filled")
        drawn.numbers.push_back(std::stod(word));
    std::getline(in, drawn.rest);
    drawn.rest = word + drawn.rest;
    return drawn;
}

void expectNumbers(const Drawn& drawn, std::initializer_list<double> expected)
{
    ASSERT_EQ(drawn.numbers.size(), expected.size()) << drawn.kind;
    size_t i = 0;
    for (double value : expected)
        EXPECT_NEAR(drawn.numbers[i++], value, 1e-6) << drawn.kind << " number " << i;
}

} // namespace

TEST_F(DrawOverrideTest, DrawablesLandWhereWorldToViewportPutsThem)
{
    ASSERT_TRUE(mel("createNode drawTestLocator -n trailShape"));
    // Top: orthographic, 30 units across, -Z up on screen.
    const auto [width, height] = portOf("modelPanel1");
    const double perUnit = width / 30.0, cx = width / 2.0, cy = height / 2.0;
    const std::vector<std::string> top = drawList("modelPanel1");
    ASSERT_THAT(top, SizeIs(2));
    const Drawn line = parse(top[0]), circle = parse(top[1]);
    EXPECT_EQ(line.kind, "line2d");
    expectNumbers(line, {cx, cy, cx + 2 * perUnit, cy});
    EXPECT_EQ(line.rest, "color 1 0 0 1 width 3 style 0");
    EXPECT_EQ(circle.kind, "circle2d");
    expectNumbers(circle, {cx, cy + 2 * perUnit, 6});
    EXPECT_EQ(circle.rest, "filled color 0 1 0 0.5");

    // The screenshot has them: pure red along the line, the half-transparent
    // green blended over the view at the circle.
    EXPECT_EQ(pixel("modelPanel1", cx + perUnit, cy, height), "255 0 0 255");
    const std::string green = pixel("modelPanel1", cx + 3, cy + 2 * perUnit, height);
    int r = 0, g = 0, b = 0;
    std::istringstream(green) >> r >> g >> b;
    EXPECT_GT(g, 127) << green;
    EXPECT_LT(r, 100) << green;
    ASSERT_TRUE(mel("mayasimUi -screenshot \"" + std::string(ORVANE_BINARY_DIR) + "/draw_override.png\""));

    // Perspective: a camera 10 units back on +Z, horizontal fit.
    ASSERT_TRUE(mel("createNode transform -n cam; createNode camera -n camShape -p cam; setAttr cam.tz 10"));
    ASSERT_TRUE(mel("modelEditor -e -camera cam modelPanel4"));
    const auto [w, h] = portOf("modelPanel4");
    const double tangent = 1.41732 * 25.4 / 2 / 35;
    const std::vector<std::string> persp = drawList("modelPanel4");
    ASSERT_THAT(persp, SizeIs(2));
    expectNumbers(parse(persp[0]), {w / 2.0, h / 2.0, (2 / (10 * tangent) + 1) / 2 * w, h / 2.0});
    expectNumbers(parse(persp[1]), {w / 2.0, h / 2.0, 6});
    EXPECT_EQ(pixel("modelPanel4", w / 2.0 + 20, h / 2.0, h), "255 0 0 255");
}

TEST_F(DrawOverrideTest, PanelsWithMotionTrailsOffAndPlayblastsDrawNothingOfIt)
{
    ASSERT_TRUE(mel("createNode drawTestLocator"));
    ASSERT_TRUE(mel("modelEditor -e -motionTrails false modelPanel1"));
    EXPECT_THAT(drawList("modelPanel1"), IsEmpty());
    EXPECT_THAT(drawList("modelPanel2"), SizeIs(2));
    ASSERT_TRUE(mel("modelEditor -e -motionTrails true modelPanel1"));
    EXPECT_THAT(drawList("modelPanel1"), SizeIs(2));
    // Locators filtered out: this locator doesn't count as one.
    ASSERT_TRUE(mel("modelEditor -e -locators false modelPanel1"));
    EXPECT_THAT(drawList("modelPanel1"), SizeIs(2));
    // Hidden, it isn't drawn at all.
    ASSERT_TRUE(mel("setAttr transform1.visibility 0"));
    EXPECT_THAT(drawList("modelPanel1"), IsEmpty());
    EXPECT_EQ(drawtest::record().overridesMade, 1);
    ASSERT_TRUE(mel("setAttr transform1.visibility 1"));

    // Each playblast frame is drawn without it; afterwards it is back.
    const auto [width, height] = portOf("modelPanel4");
    const std::string base = QDir::temp().filePath("mayasim_blast").toStdString();
    EXPECT_EQ(text("playblast -st 1 -et 2 -v false -fo -f \"" + base + "\""), base + ".####.png");
    for (const char* frame : {".0001.png", ".0002.png"})
    {
        const QString file = QString::fromStdString(base + frame);
        const QImage image(file);
        ASSERT_FALSE(image.isNull()) << file.toStdString();
        EXPECT_EQ(image.size(), QSize(width, height));
        double x0 = 0, y0 = 0;
        M3dView view;
        ASSERT_TRUE(M3dView::getM3dViewFromModelPanel("modelPanel4", view));
        short sx = 0, sy = 0;
        view.worldToView(MPoint(1, 0, 0), sx, sy);
        x0 = sx;
        y0 = sy;
        EXPECT_NE(image.pixelColor(static_cast<int>(x0), height - 1 - static_cast<int>(y0)), QColor(255, 0, 0));
        QFile::remove(file);
    }
    EXPECT_THAT(drawList("modelPanel4"), SizeIs(2));
    EXPECT_EQ(number("currentTime -q"), 1.0);
    EXPECT_FALSE(mel("playblast -st 5 -et 2"));
    EXPECT_FALSE(mel("playblast -fmt qt"));
}

TEST_F(DrawOverrideTest, OverridesAreMadeOncePerNodeAndDroppedWithTheNodeOrTheirCreator)
{
    ASSERT_TRUE(mel("createNode drawTestLocator"));
    ASSERT_TRUE(mel("refresh -f"));
    const drawtest::Record& seen = drawtest::record();
    EXPECT_EQ(seen.overridesMade, 1);
    const int prepares = seen.prepares;
    EXPECT_GE(prepares, 4);
    ASSERT_TRUE(mel("refresh -f"));
    EXPECT_EQ(seen.prepares, prepares + 4) << "prepareForDraw in each of the four views";
    EXPECT_EQ(seen.overridesMade, 1);
    EXPECT_EQ(seen.userDataDestroyed, 0) << "the data handed back is kept";

    // The node dies: its override and data go; undo brings a new override.
    ASSERT_TRUE(mel("delete transform1"));
    ASSERT_TRUE(mel("refresh -f"));
    EXPECT_EQ(seen.overridesDestroyed, 1);
    EXPECT_EQ(seen.userDataDestroyed, 1);
    EXPECT_THAT(drawList("modelPanel2"), IsEmpty());
    ASSERT_TRUE(mel("undo"));
    EXPECT_THAT(drawList("modelPanel2"), SizeIs(2));
    EXPECT_EQ(seen.overridesMade, 2);

    // The creator goes: so does the override, at once.
    ASSERT_TRUE(MHWRender::MDrawRegistry::deregisterDrawOverrideCreator(drawtest::kClassification, "drawTestPlugin"));
    EXPECT_EQ(seen.overridesDestroyed, 2);
    ASSERT_TRUE(mel("refresh -f"));
    EXPECT_THAT(drawList("modelPanel2"), IsEmpty());
    EXPECT_FALSE(MHWRender::MDrawRegistry::deregisterDrawOverrideCreator(drawtest::kClassification, "drawTestPlugin"));

    // Registration counts among the plug-in calls Maya can fail.
    const auto creator = [](const MObject& node) -> MHWRender::MPxDrawOverride* { return new LegacyOverride(node); };
    mayasim::host::clearRegistrations();
    mayasim::host::failRegistrationAt(1);
    EXPECT_FALSE(MHWRender::MDrawRegistry::registerDrawOverrideCreator(drawtest::kClassification, "other", creator));
    ASSERT_TRUE(MHWRender::MDrawRegistry::registerDrawOverrideCreator(drawtest::kClassification, "other", creator));
    EXPECT_FALSE(MHWRender::MDrawRegistry::registerDrawOverrideCreator(drawtest::kClassification, "again", creator))
        << "one creator per classification";
    const auto& calls = mayasim::host::registrations();
    ASSERT_THAT(calls, SizeIs(3));
    EXPECT_EQ(calls[1].call, "registerDrawOverrideCreator");
    EXPECT_EQ(calls[1].name, drawtest::kClassification);
    EXPECT_TRUE(calls[1].succeeded);
    // An override for the legacy device only is made but never drawn, as
    // Maya says.
    mayasim::host::clearOutput();
    const int preparesBefore = seen.prepares;
    ASSERT_TRUE(mel("refresh -f"));
    EXPECT_THAT(drawList("modelPanel2"), IsEmpty());
    EXPECT_EQ(seen.prepares, preparesBefore);
    EXPECT_EQ(lastError(), "line 0: Failed to create evaluator for \"drawdb/geometry/drawTest\" classification "
                           "because the current drawing API isn't supported.");
    ASSERT_TRUE(MHWRender::MDrawRegistry::deregisterDrawOverrideCreator(drawtest::kClassification, "other"));
}
