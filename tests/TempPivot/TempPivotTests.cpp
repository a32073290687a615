// The temporary pivot end to end in the host: where it is placed, how its
// moves carry the targets, how it follows them, undo, and its file per scene.
#include "DataFolderTest.h"
#include "GuiApplication.h"
#include "TopViewDrag.h"

#include "TempPivot/Manager.h"
#include "Utils/File/IO.h"

#include <maya/MDoubleArray.h>
#include <maya/MEulerRotation.h>
#include <maya/MFnTransform.h>
#include <maya/MGlobal.h>
#include <maya/MMatrix.h>
#include <maya/MNodeMessage.h>
#include <maya/MPlug.h>
#include <maya/MStringArray.h>
#include <maya/MVector.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <mayasim/Gui.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <QCborValue>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <string>
#include <vector>

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

std::vector<double> numbers(const std::string& command)
{
    MDoubleArray values;
    MGlobal::executeCommand(command.c_str(), values);
    return std::vector<double>(values.begin(), values.end());
}

MMatrix worldMatrix(const std::string& node)
{
    const std::vector<double> v = numbers("getAttr " + node + ".worldMatrix");
    MMatrix m;
    if (v.size() == 16)
        for (unsigned int i = 0; i < 16; ++i)
            m[i / 4][i % 4] = v[i];
    return m;
}

void expectMatrixNear(const MMatrix& actual, const MMatrix& expected, const std::string& what)
{
    for (unsigned int i = 0; i < 16; ++i)
        EXPECT_NEAR(actual[i / 4][i % 4], expected[i / 4][i % 4], 1e-9) << what << ", element " << i;
}

MPoint worldPivot(const std::string& node)
{
    return MFnTransform(nodeNamed(node)).rotatePivot(MSpace::kWorld);
}

std::string pivotName()
{
    MStringArray selected;
    MGlobal::executeCommand("ls -sl", selected);
    return selected.length() == 1 ? selected[0].asChar() : std::string();
}

bool isEnabled()
{
    int on = 0;
    MGlobal::executeCommand("OVTempPivot -isEnabled", on);
    return on != 0;
}

} // namespace

class TempPivotTest : public DataFolderTest
{
protected:
    void SetUp() override
    {
        DataFolderTest::SetUp();
        scriptsDir();
        mayasim::gui::openMainWindow(1000, 600);
        // A hand under a rotated parent (its own pivot, rotate axis and
        // order, at 270 degrees in y) and a foot at the top.
        ASSERT_TRUE(mel("createNode transform -n rig; setAttr rig.t 1 2 3; setAttr rig.r 20 35 -10; "
                        "createNode transform -n hand -p rig; setAttr hand.t 2 0.5 -1; setAttr hand.r 10 270 5; "
                        "setAttr hand.rotateOrder 2; setAttr hand.rotatePivot 0.3 -0.2 0.1; "
                        "setAttr hand.rotateAxis 5 10 0; "
                        "createNode transform -n foot; setAttr foot.t -3 0 4; setAttr foot.ry 45; select -cl"));
        // The manipulator is tool state, which outlives scenes.
        ASSERT_TRUE(mel("manipPivot -reset"));
    }
    void TearDown() override
    {
        mayasim::gui::closeMainWindow();
        DataFolderTest::TearDown();
    }

    // Where each target must be after the pivot went from `from` to `to`:
    // carried rigidly, as a rotation about the pivot carries it.
    static void expectCarried(const std::vector<std::string>& targets, const std::vector<MMatrix>& before,
                              const MMatrix& from, const MMatrix& to)
    {
        for (size_t i = 0; i < targets.size(); ++i)
            expectMatrixNear(worldMatrix(targets[i]), before[i] * from.inverse() * to, targets[i]);
    }
};

TEST_F(TempPivotTest, PlacesThePivotAtTheFirstOrLastObjectOrTheCentre)
{
    const MMatrix hand = worldMatrix("hand");
    const MPoint handPivot = worldPivot("hand");
    const MPoint footPivot = worldPivot("foot");

    // No mode: the first object's place and orientation.
    ASSERT_TRUE(mel("OVTempPivot -e true hand foot"));
    EXPECT_TRUE(isEnabled());
    const std::string pivot = pivotName();
    ASSERT_FALSE(pivot.empty()) << "the pivot alone is selected";
    MMatrix expected = hand;
    for (int c = 0; c < 3; ++c)
        expected[3][c] = handPivot[c];
    expectMatrixNear(worldMatrix(pivot), expected, "at the first object");
    EXPECT_EQ(mayasim::host::timeSliderObjects(), (std::vector<std::string>{"hand", "foot"}))
        << "the time slider shows the targets' keys";
    EXPECT_FALSE(mel("OVTempPivot -e true foot"));
    ASSERT_FALSE(reports().empty());
    EXPECT_THAT(reports().back(), HasSubstr("its already enabled"));
    ASSERT_TRUE(mel("OVTempPivot -e false"));
    EXPECT_FALSE(isEnabled());
    EXPECT_TRUE(nodeNamed(pivot).isNull()) << "the pivot node goes";
    EXPECT_EQ(mayasim::host::timeSliderObjects(), std::vector<std::string>{}) << "back to the selection";

    ASSERT_TRUE(mel("OVTempPivot -e true -lastObject hand foot"));
    expected = worldMatrix("foot");
    for (int c = 0; c < 3; ++c)
        expected[3][c] = footPivot[c];
    expectMatrixNear(worldMatrix(pivotName()), expected, "at the last object");
    ASSERT_TRUE(mel("OVTempPivot -e false"));

    for (const char* mode : {"-center", "-worldSpace"}) {
        ASSERT_TRUE(mel(std::string("OVTempPivot -e true ") + mode + " hand foot"));
        expected = MMatrix();
        for (int c = 0; c < 3; ++c)
            expected[3][c] = (handPivot[c] + footPivot[c]) / 2;
        expectMatrixNear(worldMatrix(pivotName()), expected, mode);
        ASSERT_TRUE(mel("OVTempPivot -e false"));
    }

    // Bad calls: each with its words, the tool staying off.
    mayasim::host::clearOutput();
    EXPECT_FALSE(mel("OVTempPivot hand"));
    EXPECT_FALSE(mel("OVTempPivot -e true -center -lastObject hand"));
    EXPECT_FALSE(mel("OVTempPivot -e true -c -ws hand"));
    ASSERT_TRUE(mel("setKeyframe foot.tx"));
    int result = 1;
    ASSERT_TRUE(MGlobal::executeCommand("OVTempPivot -e true foot_translateX", result));
    EXPECT_EQ(result, 0);
    ASSERT_TRUE(MGlobal::executeCommand("OVTempPivot -toggleEdit", result));
    EXPECT_EQ(result, 0) << "off: false, with no message";
    ASSERT_TRUE(MGlobal::executeCommand("OVTempPivot -reset", result));
    EXPECT_EQ(result, 0);
    const std::vector<std::string> blocks = reports();
    ASSERT_EQ(blocks.size(), 4u);
    EXPECT_THAT(blocks[0], HasSubstr("need flag -enable"));
    EXPECT_THAT(blocks[1], HasSubstr("cant use -center -worldSpace -lastObject at the same time"));
    EXPECT_THAT(blocks[2], HasSubstr("cant use -center -worldSpace -lastObject at the same time"));
    EXPECT_THAT(blocks[3], HasSubstr("no transfrom/s is selected"));
    EXPECT_FALSE(isEnabled());
}

// The pivot's moves carry both targets rigidly, whatever the scene's units.
class TempPivotUnitsTest : public TempPivotTest, public ::testing::WithParamInterface<const char*>
{
};

TEST_P(TempPivotUnitsTest, MovingAndRotatingThePivotCarriesTheTargets)
{
    const std::vector<std::string> targets{"hand", "foot"};
    ASSERT_TRUE(mel(std::string("currentUnit ") + GetParam()));
    const bool radians = std::string(GetParam()).find("rad") != std::string::npos;
    const auto angle = [radians](double degrees) {
        return std::to_string(radians ? degrees * M_PI / 180.0 : degrees);
    };
    ASSERT_TRUE(mel("OVTempPivot -e true hand foot"));
    const std::string pivot = pivotName();
    // The user puts the pivot's own pivot elsewhere first.
    MFnTransform(nodeNamed(pivot)).setRotatePivot(MPoint(0.5, -0.25, 1), MSpace::kTransform, true);
    MFnTransform(nodeNamed(pivot)).setScalePivot(MPoint(0.5, -0.25, 1), MSpace::kTransform, true);
    mayasim::host::pumpIdle();
    for (const std::string& move :
         {"setAttr " + pivot + ".ry " + angle(40), "setAttr " + pivot + ".r " + angle(-15) + " " + angle(60) + " "
                                                        + angle(25),
          "setAttr " + pivot + ".t 0.75 -2 1.5", "setAttr " + pivot + ".tx 3"}) {
        std::vector<MMatrix> before;
        for (const std::string& target : targets)
            before.push_back(worldMatrix(target));
        const MMatrix from = worldMatrix(pivot);
        const std::vector<double> handRotate = numbers("getAttr hand.r");
        ASSERT_TRUE(mel(move)) << move;
        SCOPED_TRACE(move);
        expectCarried(targets, before, from, worldMatrix(pivot));
        // The hand's channels move on from where they were: no turn by 360.
        const std::vector<double> after = numbers("getAttr hand.r");
        ASSERT_EQ(after.size(), 3u);
        for (int c = 0; c < 3; ++c)
            EXPECT_LT(std::abs(after[c] - handRotate[c]), radians ? M_PI / 2 : 90.0) << "channel " << c;
        mayasim::host::pumpIdle();
    }
    EXPECT_THAT(numbers("getAttr hand.rotateAxis"), ElementsAre(DoubleNear(radians ? 5 * M_PI / 180 : 5, 1e-12),
                                                                DoubleNear(radians ? 10 * M_PI / 180 : 10, 1e-12),
                                                                0))
        << "the target keeps its rotate axis";
    ASSERT_TRUE(mel("OVTempPivot -e false"));
}

INSTANTIATE_TEST_SUITE_P(Units, TempPivotUnitsTest,
                         ::testing::Values("-l cm -a deg", "-l m -a deg", "-l mm -a rad", "-l in -a deg"));

namespace {

// Counts the values set on a node's attributes.
struct AttributeSets
{
    explicit AttributeSets(const std::string& node)
    {
        MObject object = nodeNamed(node);
        id = MNodeMessage::addAttributeChangedCallback(
            object,
            [](MNodeMessage::AttributeMessage message, MPlug&, MPlug&, void* data) {
                if (message & MNodeMessage::kAttributeSet)
                    ++*static_cast<int*>(data);
            },
            &count);
    }
    ~AttributeSets() { MMessage::removeCallback(id); }
    int count = 0;
    MCallbackId id = 0;
};

} // namespace

TEST_F(TempPivotTest, ADragOfThePivotIsOneUndoStep)
{
    ASSERT_TRUE(mel("OVTempPivot -e true -center hand foot"));
    const std::string pivot = pivotName();
    const std::vector<MMatrix> before{worldMatrix("hand"), worldMatrix("foot")};
    const MMatrix from = worldMatrix(pivot);
    // Out of edit mode, the move tool moves the pivot itself.
    ASSERT_TRUE(mel("OVTempPivot -toggleEdit"));
    expectOneUndoStep([&] {
        ASSERT_TRUE(dragInTop(worldPivot(pivot), 40, 20));
        EXPECT_GT((worldPivot(pivot) - MPoint(from[3][0], from[3][1], from[3][2])).length(), 0.5) << "it moved";
        expectCarried({"hand", "foot"}, before, from, worldMatrix(pivot));
        mayasim::host::pumpIdle();
    });
    // After the undo and redo the pivot takes new matrices at idle, and the
    // next move carries the targets from where they are.
    mayasim::host::pumpIdle();
    const std::vector<MMatrix> now{worldMatrix("hand"), worldMatrix("foot")};
    const MMatrix at = worldMatrix(pivot);
    ASSERT_TRUE(mel("setAttr " + pivot + ".rz 30"));
    expectCarried({"hand", "foot"}, now, at, worldMatrix(pivot));
    ASSERT_TRUE(mel("OVTempPivot -e false"));
}

TEST_F(TempPivotTest, FollowsTheTargetsAfterTimeChangesAndKeyEditsOncePerIdle)
{
    keyPlug("foot.tx", {{1, -3}, {10, 5}});
    ASSERT_TRUE(mel("OVTempPivot -e true -lastObject hand foot"));
    const std::string pivot = pivotName();
    const MMatrix hand = worldMatrix("hand");
    ASSERT_TRUE(mel("currentTime 10"));
    EXPECT_NEAR(worldPivot(pivot).x, -3, 1e-9) << "nothing moves before the idle tick";
    mayasim::host::pumpIdle();
    EXPECT_NEAR(worldPivot(pivot).x, 5, 1e-9);
    ASSERT_TRUE(mel("keyframe -e -t 10 -r -vc 2 foot.tx"));
    mayasim::host::pumpIdle();
    EXPECT_NEAR(worldPivot(pivot).x, 7, 1e-9);
    expectMatrixNear(worldMatrix("hand"), hand, "a follow moves no target");

    // A burst of changes runs one follow: as many sets on the pivot as one change.
    int single = 0;
    {
        AttributeSets sets(pivot);
        ASSERT_TRUE(mel("currentTime 5"));
        mayasim::host::pumpIdle();
        single = sets.count;
    }
    ASSERT_GT(single, 0);
    {
        AttributeSets sets(pivot);
        ASSERT_TRUE(mel("currentTime 6; currentTime 7; keyframe -e -t 1 -r -vc 1 foot.tx; currentTime 9"));
        mayasim::host::pumpIdle();
        EXPECT_EQ(sets.count, single);
    }
    expectMatrixNear(worldMatrix(pivot), worldMatrix("foot"), "the pivot stands on the foot");

    // Selecting a target ends the tool; the target stays selected.
    ASSERT_TRUE(mel("select foot"));
    EXPECT_FALSE(isEnabled());
    EXPECT_TRUE(nodeNamed(pivot).isNull());
    EXPECT_EQ(pivotName(), "foot");
}

namespace {

QJsonObject readPivots(const QString& path) { return File::IO::readValue(path, File::Format::Cbor).toObject(); }

QJsonValue three(double x, double y, double z) { return QJsonArray{x, y, z}; }

} // namespace

class TempPivotSceneTest : public TempPivotTest
{
protected:
    void SetUp() override
    {
        TempPivotTest::SetUp();
        fScene = workFile(QStringLiteral("shot.ma")).toStdString();
        ASSERT_TRUE(mel("file -rename \"" + fScene + "\"; file -save"));
    }

    // The user's pivot: its own pivot point moved and the manipulator turned.
    void placePivot(const std::string& pivot)
    {
        MFnTransform transform(nodeNamed(pivot));
        transform.setRotatePivot(MPoint(0.5, 1, -2), MSpace::kTransform, true);
        transform.setScalePivot(MPoint(0.5, 1, -2), MSpace::kTransform, true);
        ASSERT_TRUE(mel("manipPivot -o 12.7 -30.5 0"));
        mayasim::host::raiseEvent("DragRelease");
    }

    std::string fScene;
};

TEST_F(TempPivotSceneTest, ThePivotComesBackAfterSaveAndReopen)
{
    ASSERT_TRUE(mel("OVTempPivot -e true hand foot"));
    const std::string pivot = pivotName();
    placePivot(pivot);
    ASSERT_TRUE(mel("OVTempPivot -e false"));
    const QString path = TempPivot::Manager::pivotFilePath();
    ASSERT_FALSE(path.isEmpty());
    EXPECT_EQ(QFileInfo(path).dir().dirName(), QStringLiteral("TempPivot"));
    const QJsonObject entry = readPivots(path).value(QString::fromStdString(pivot)).toObject();
    EXPECT_EQ(entry.value(QStringLiteral("r")), three(0.5, 1, -2));
    EXPECT_EQ(entry.value(QStringLiteral("m")), three(12.7, -30.5, 0));

    ASSERT_TRUE(mel("file -save; file -f -new; manipPivot -reset"));
    ASSERT_TRUE(mel("file -f -open \"" + fScene + "\""));
    ASSERT_TRUE(mel("OVTempPivot -e true hand foot"));
    ASSERT_EQ(pivotName(), pivot) << "the same default name finds the entry";
    const MPoint own = MFnTransform(nodeNamed(pivot)).rotatePivot(MSpace::kTransform);
    EXPECT_THAT(std::vector<double>({own.x, own.y, own.z}), ElementsAre(0.5, 1, -2));
    EXPECT_THAT(numbers("manipPivot -q -o"), ElementsAre(12, -30, 0)) << "whole degrees, cut toward zero";
    ASSERT_TRUE(mel("OVTempPivot -e false"));
    // Turned on in another scene with the manipulator turned otherwise, then
    // here again without a drag, it keeps the orientation it found here.
    ASSERT_TRUE(mel("file -f -new; createNode transform -n other; OVTempPivot -e true other; manipPivot -o 1 2 3"));
    mayasim::host::raiseEvent("DragRelease");
    ASSERT_TRUE(mel("OVTempPivot -e false; file -f -open \"" + fScene + "\""));
    ASSERT_TRUE(mel("OVTempPivot -e true hand foot; OVTempPivot -e false"));
    EXPECT_EQ(readPivots(path).value(QString::fromStdString(pivot)).toObject().value(QStringLiteral("m")),
              three(12.7, -30.5, 0));
}

TEST_F(TempPivotSceneTest, ANewSceneTurnsItOffAndSavesUnderTheOldScene)
{
    const size_t callbacks = mayasim::host::callbackCount();
    ASSERT_TRUE(mel("OVTempPivot -e true -worldSpace hand foot"));
    const QString path = TempPivot::Manager::pivotFilePath();
    const std::string pivot = pivotName();
    placePivot(pivot);
    ASSERT_TRUE(mel("file -f -new"));
    EXPECT_FALSE(isEnabled());
    EXPECT_EQ(mayasim::host::callbackCount(), callbacks) << "every callback of the activation is gone";
    EXPECT_EQ(mayasim::host::timeSliderObjects(), std::vector<std::string>{});
    EXPECT_EQ(readPivots(path).value(QString::fromStdString(pivot)).toObject().value(QStringLiteral("r")),
              three(0.5, 1, -2));
    EXPECT_TRUE(TempPivot::Manager::pivotFilePath().isEmpty()) << "an untitled scene has no memory of pivots";
}

TEST_F(TempPivotSceneTest, AMissingOrDamagedFileIsIgnoredAndOtherEntriesStay)
{
    ASSERT_TRUE(mel("OVTempPivot -e true hand foot"));
    const QString path = TempPivot::Manager::pivotFilePath();
    const std::string pivot = pivotName();
    ASSERT_TRUE(mel("OVTempPivot -e false"));
    const QJsonObject otherEntry{{QStringLiteral("r"), three(1, 2, 3)}, {QStringLiteral("m"), three(0, 0, 0)}};
    const QJsonObject other{{QStringLiteral("transform7"), otherEntry}};
    const std::vector<QByteArray> damaged{
        QByteArray("\xff\x00garbage", 9),
        QJsonDocument(QJsonObject{{QString::fromStdString(pivot), QStringLiteral("x")}}).toJson(),
        QCborValue::fromJsonValue(QJsonObject{{QString::fromStdString(pivot),
                                               QJsonObject{{QStringLiteral("r"), three(1, 2, 3)},
                                                           {QStringLiteral("m"), QJsonArray{1, 2}}}}})
            .toCbor(),
        QCborValue::fromJsonValue(QJsonArray{1, 2, 3}).toCbor(),
    };
    for (const QByteArray& bytes : damaged) {
        writeBytes(path, bytes);
        const std::string before = sceneText();
        ASSERT_TRUE(mel("OVTempPivot -e true hand foot"));
        const MPoint own = MFnTransform(nodeNamed(pivot)).rotatePivot(MSpace::kTransform);
        EXPECT_EQ(own, MPoint::origin) << "no entry: the pivot starts at its default";
        EXPECT_THAT(numbers("manipPivot -q -o"), ElementsAre(0, 0, 0));
        ASSERT_TRUE(mel("OVTempPivot -e false"));
        EXPECT_EQ(sceneText(), before) << "the scene is as it was";
        EXPECT_EQ(readPivots(path).value(QString::fromStdString(pivot)).toObject().value(QStringLiteral("r")),
                  three(0, 0, 0))
            << "the next save writes a sound file";
    }
    // A sound file keeps the entries of other pivots.
    ASSERT_TRUE(File::IO::writeValue(other, path, File::Format::Cbor));
    ASSERT_TRUE(mel("OVTempPivot -e true hand foot"));
    ASSERT_TRUE(mel("OVTempPivot -e false"));
    EXPECT_EQ(readPivots(path).value(QStringLiteral("transform7")), other.value(QStringLiteral("transform7")));
    EXPECT_TRUE(readPivots(path).contains(QString::fromStdString(pivot)));
    // Without the file the pivot starts at its default too.
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(mel("OVTempPivot -e true hand foot"));
    EXPECT_EQ(MFnTransform(nodeNamed(pivot)).rotatePivot(MSpace::kTransform), MPoint::origin);
    ASSERT_TRUE(mel("OVTempPivot -e false"));
}

TEST_F(TempPivotTest, UnloadTurnsThePivotOffFirst)
{
    const size_t callbacks = mayasim::host::callbackCount();
    ASSERT_TRUE(mel("OVTempPivot -e true hand foot"));
    const std::string pivot = pivotName();
    ASSERT_TRUE(mel("setAttr " + pivot + ".tx 2"));
    ASSERT_TRUE(mel("unloadPlugin orvane"));
    EXPECT_TRUE(nodeNamed(pivot).isNull());
    EXPECT_EQ(mayasim::host::timeSliderObjects(), std::vector<std::string>{});
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    EXPECT_EQ(mayasim::host::callbackCount(), callbacks) << "nothing of the activation is left";
    mayasim::host::pumpIdle();
    EXPECT_FALSE(isEnabled());
}

TEST_F(TempPivotTest, ADeletedTargetIsLeftBehind)
{
    ASSERT_TRUE(mel("OVTempPivot -e true foot hand"));
    const std::string pivot = pivotName();
    ASSERT_TRUE(mel("delete foot; currentTime 4"));
    mayasim::host::pumpIdle();
    EXPECT_TRUE(isEnabled()) << "the pivot alone is still selected";
    const MPoint handPivot = worldPivot("hand");
    EXPECT_NEAR(worldPivot(pivot).distanceTo(handPivot), 0, 1e-9) << "it follows the first target left";
    const MMatrix hand = worldMatrix("hand");
    const MMatrix from = worldMatrix(pivot);
    ASSERT_TRUE(mel("setAttr " + pivot + ".rx 20"));
    expectCarried({"hand"}, {hand}, from, worldMatrix(pivot));
    ASSERT_TRUE(mel("delete hand; currentTime 5"));
    mayasim::host::pumpIdle();
    ASSERT_TRUE(mel("setAttr " + pivot + ".ty 1"));
    EXPECT_TRUE(mel("OVTempPivot -e false"));
}

TEST_F(TempPivotTest, APivotScaledToNothingOrFlungAwayLosesNothing)
{
    // In world space a time change takes the matrices anew where the pivot
    // stands; flattened, it keeps those it had.
    ASSERT_TRUE(mel("OVTempPivot -e true -worldSpace hand foot"));
    const std::string pivot = pivotName();
    const MMatrix hand = worldMatrix("hand");
    ASSERT_TRUE(mel("setAttr " + pivot + ".sx 0; currentTime 2"));
    mayasim::host::pumpIdle();
    ASSERT_TRUE(mel("setAttr " + pivot + ".sx 1"));
    mayasim::host::pumpIdle();
    expectMatrixNear(worldMatrix("hand"), hand, "scaled back, the hand is back");

    // A move that takes a target beyond the double range writes nothing of
    // it and says so.
    mayasim::host::clearOutput();
    ASSERT_TRUE(mel("setAttr " + pivot + ".t 1.7e308 1.7e308 1.7e308"));
    mayasim::host::pumpIdle();
    const std::string text = sceneText();
    EXPECT_EQ(text.find("nan"), std::string::npos) << text;
    EXPECT_EQ(text.find("inf"), std::string::npos) << text;
    ASSERT_FALSE(reports().empty());
    EXPECT_THAT(reports().front(), HasSubstr("cannot move hand: its position is not a finite number"));
    ASSERT_TRUE(mel("OVTempPivot -e false"));
}
