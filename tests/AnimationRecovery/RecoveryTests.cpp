// OVAnimationRecovery end to end: curves edited while recording are saved at
// idle time into the scene's folder, and -restore rebuilds them exactly, in
// one undo step, on the scene as it was last saved.
#include "DataFolderTest.h"

#include "AnimationRecovery/FileManager.h"

#include <maya/MAngle.h>
#include <maya/MFileIO.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MItDependencyNodes.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <QCborArray>
#include <QCborMap>
#include <QCborValue>
#include <QRegularExpression>

#include <map>
#include <sstream>

using ::testing::HasSubstr;

namespace {

// Every fact of the scene's curves that a restore must bring back, curve by curve.
std::string describeCurves()
{
    std::map<std::string, std::string> curves;
    for (MItDependencyNodes it(MFn::kAnimCurve); !it.isDone(); it.next()) {
        MFnAnimCurve fn(it.thisNode());
        std::ostringstream text;
        MPlugArray destinations;
        fn.findPlug("output", false).destinations(destinations);
        text << "-> " << (destinations.length() ? destinations[0].name().asChar() : "") << " type "
             << fn.animCurveType() << " weighted " << fn.isWeighted() << " inf " << fn.preInfinityType() << "/"
             << fn.postInfinityType() << "\n";
        for (unsigned int i = 0; i < fn.numKeys(); ++i) {
            MAngle inAngle, outAngle;
            double inWeight = 0, outWeight = 0;
            fn.getTangent(i, inAngle, inWeight, true);
            fn.getTangent(i, outAngle, outWeight, false);
            text << "  " << fn.time(i).value() << " = " << fn.value(i) << " types " << fn.inTangentType(i) << "/"
                 << fn.outTangentType(i) << " in " << inAngle.asRadians() << "," << inWeight << " out "
                 << outAngle.asRadians() << "," << outWeight << " locks " << fn.tangentsLocked(i) << "/"
                 << fn.weightsLocked(i) << "\n";
        }
        curves[fn.name().asChar()] = text.str();
    }
    std::string all;
    for (const auto& [name, text] : curves)
        all += name + " " + text;
    return all;
}

class Recovery : public DataFolderTest
{
protected:
    void SetUp() override
    {
        DataFolderTest::SetUp();
        fScripts = scriptsDir();
        ASSERT_TRUE(mel("createNode transform -n obj; createNode transform -n other"));
    }

    QString scenePath() const { return workFile(QStringLiteral("shot.ma")); }
    static void save(const QString& path)
    {
        ASSERT_TRUE(MFileIO::saveAs(path.toUtf8().constData(), "mayaAscii", true));
    }
    static void reopen(const QString& path)
    {
        ASSERT_TRUE(MFileIO::open(path.toUtf8().constData(), nullptr, true));
    }
    // Idle ticks enough for every waiting curve to be encoded and written.
    static void idle(int ticks = 40)
    {
        for (int i = 0; i < ticks; ++i)
            mayasim::host::pumpIdle();
    }
    QString recoveryRoot() const { return QDir(fScripts).filePath(QStringLiteral("Orvane/AnimationRecovery")); }
    // The curve files under the recovery folders, as "<id>/<number>_a".
    QStringList curveFiles() const { return entriesUnder(recoveryRoot()).filter(QRegularExpression("/\\d+_a$")); }

    // Curves of several kinds, made while recording: spline, linear, flat,
    // clamped and stepped keys; a weighted curve with a broken tangent and
    // free weights; cycling and oscillating infinities; an angle curve.
    static void animate()
    {
        ASSERT_TRUE(mel("setKeyframe -t 1 -v 0 obj.tx; setKeyframe -t 5 -v 4 obj.tx; setKeyframe -t 9 -v 1 obj.tx"));
        ASSERT_TRUE(mel("keyTangent -e -t 1 -itt linear -ott flat obj.tx; keyTangent -e -t 5 -ott step obj.tx"));
        ASSERT_TRUE(mel("keyTangent -e -t 9 -itt clamped -ott spline obj.tx"));
        ASSERT_TRUE(mel("setKeyframe -t 0 -v 2 obj.ty; setKeyframe -t 10 -v -3 obj.ty; setKeyframe -t 20 -v 5 obj.ty"));
        ASSERT_TRUE(mel("setKeyframe -t 2 -v 30 obj.rz; setKeyframe -t 12 -v -45 obj.rz"));
        ASSERT_TRUE(mel("keyTangent -e -t 2 -itt plateau -ott auto obj.rz"));
        MFnAnimCurve ty(nodeNamed("obj_translateY"));
        ASSERT_TRUE(ty.setIsWeighted(true));
        ASSERT_TRUE(ty.setTangentsLocked(1, false));
        ASSERT_TRUE(ty.setWeightsLocked(1, false));
        ASSERT_TRUE(ty.setTangent(1, MAngle(0.7, MAngle::kRadians), 2.5, true));
        ASSERT_TRUE(ty.setTangent(1, MAngle(-0.3, MAngle::kRadians), 4.0, false));
        ASSERT_TRUE(ty.setPreInfinityType(MFnAnimCurve::kCycle));
        ASSERT_TRUE(ty.setPostInfinityType(MFnAnimCurve::kOscillate));
        MFnAnimCurve rz(nodeNamed("obj_rotateZ"));
        ASSERT_TRUE(rz.setPostInfinityType(MFnAnimCurve::kLinear));
    }

    QString fScripts;
};

TEST_F(Recovery, SavedCurvesComeBackExactlyOnTheReopenedSceneInOneUndoStep)
{
    ASSERT_TRUE(mel("OVAnimationRecovery -enable true"));
    save(scenePath());
    animate();
    idle();
    const std::string edited = describeCurves();
    ASSERT_THAT(edited, HasSubstr("obj_translateY -> obj.translateY type 1 weighted 1 inf 3/5"));
    // One burst of edits, one file beside "lastModified", in CBOR.
    const QStringList files = curveFiles();
    ASSERT_EQ(files.size(), 1) << files.join(' ').toStdString();
    const QString folder = QFileInfo(QDir(recoveryRoot()).filePath(files[0])).path();
    EXPECT_TRUE(QFileInfo::exists(QDir(folder).filePath(QStringLiteral("lastModified"))));
    const QCborMap saved = QCborValue::fromCbor(readBytes(QDir(recoveryRoot()).filePath(files[0]))).toMap();
    EXPECT_EQ(saved.size(), 3);
    EXPECT_EQ(saved.value(QStringLiteral("obj_translateX")).toMap().value(QStringLiteral("p")).toString(),
              QStringLiteral("tx"));

    // The crash: the scene as last saved has no curves at all.
    reopen(scenePath());
    ASSERT_EQ(describeCurves(), "");
    expectOneUndoStep([] { ASSERT_TRUE(mel("OVAnimationRecovery -restore")); });
    EXPECT_EQ(describeCurves(), edited);
    EXPECT_TRUE(reports().empty()) << reports().front();

    // The files stay: a second restore over the first gives the same curves.
    ASSERT_TRUE(mel("OVAnimationRecovery -restore"));
    EXPECT_EQ(describeCurves(), edited);

    // A curve deleted while recording stays deleted.
    ASSERT_TRUE(mel("delete obj_rotateZ"));
    idle();
    reopen(scenePath());
    ASSERT_TRUE(mel("OVAnimationRecovery -restore"));
    EXPECT_TRUE(nodeNamed("obj_rotateZ").isNull());
    EXPECT_FALSE(nodeNamed("obj_translateY").isNull());
}

// Found by the kill test: a curve gone by the time its turn came wrote an
// empty record under a name that a live curve bore by then, and the restore
// deleted that curve.
TEST_F(Recovery, ACurveGoneBeforeItsTurnLeavesTheCurveNowOfItsNameAlone)
{
    ASSERT_TRUE(mel("OVAnimationRecovery -enable true"));
    keyPlug("obj.tx", {{1, 1}, {5, 3}});
    save(scenePath());
    // Keys whose messages arrive only after the scene is opened again.
    ASSERT_TRUE(mel("setKeyframe -t 9 -v 7 obj.tx; file -f -o \"" + scenePath().toStdString() + "\""));
    // A curve deleted and keyed anew in one run: the new one is what counts.
    ASSERT_TRUE(mel("delete obj_translateX; setKeyframe -t 2 -v 4 obj.ty; setKeyframe -t 2 -v 6 obj.tx"));
    idle();
    const std::string edited = describeCurves();
    ASSERT_THAT(edited, HasSubstr("obj_translateX -> obj.translateX"));
    reopen(scenePath());
    ASSERT_TRUE(mel("OVAnimationRecovery -restore"));
    EXPECT_EQ(describeCurves(), edited);
}

// Found by the kill test: a change of locks alone is no key edit, and was
// saved only with the curve's next one.
TEST_F(Recovery, AChangeOfLocksAloneIsSaved)
{
    ASSERT_TRUE(mel("OVAnimationRecovery -enable true"));
    save(scenePath());
    keyPlug("obj.tx", {{1, 1}, {5, 3}});
    idle();
    ASSERT_TRUE(mel("keyTangent -e -t 5 -lock 0 obj.tx; setAttr obj_translateX.kwl[0] 0"));
    idle();
    const std::string edited = describeCurves();
    ASSERT_THAT(edited, HasSubstr("locks 0/1"));
    ASSERT_THAT(edited, HasSubstr("locks 1/0"));
    reopen(scenePath());
    ASSERT_TRUE(mel("OVAnimationRecovery -restore"));
    EXPECT_EQ(describeCurves(), edited);
}

// A tick's write stays small however many curves one edit touched.
TEST_F(Recovery, ABurstOfManyCurvesIsSavedInFilesOfFiftyEachCurveWhole)
{
    ASSERT_TRUE(mel("OVAnimationRecovery -enable true"));
    std::string nodes, keys;
    for (int i = 0; i < 6; ++i) {
        const std::string node = "c" + std::to_string(i);
        nodes += "createNode transform -n " + node + ";";
        for (const char* channel : {"tx", "ty", "tz", "rx", "ry", "rz", "sx", "sy", "sz", "v"})
            keys += "setKeyframe -t 1 -v " + std::to_string(i) + " " + node + "." + channel + ";";
    }
    ASSERT_TRUE(mel(nodes));
    save(scenePath());
    ASSERT_TRUE(mel(keys)); // one run: one burst of sixty curves
    idle(200);
    const std::string edited = describeCurves();
    EXPECT_EQ(curveFiles().size(), 2);
    reopen(scenePath());
    ASSERT_TRUE(mel("OVAnimationRecovery -restore"));
    EXPECT_EQ(describeCurves(), edited);
}

TEST_F(Recovery, OnlyFilesNewerThanTheSceneFileCount)
{
    ASSERT_TRUE(mel("OVAnimationRecovery -enable true"));
    save(scenePath());
    keyPlug("obj.tx", {{1, 1}, {2, 2}});
    idle();
    // The user saved after the files were written: they are past.
    QFile scene(scenePath());
    ASSERT_TRUE(scene.open(QIODevice::ReadWrite));
    ASSERT_TRUE(scene.setFileTime(QDateTime::currentDateTime().addSecs(3600), QFileDevice::FileModificationTime));
    scene.close();
    reopen(scenePath());
    mayasim::host::clearOutput();
    ASSERT_TRUE(mel("OVAnimationRecovery -restore"));
    EXPECT_TRUE(nodeNamed("obj_translateX").isNull());
}

TEST_F(Recovery, WritesWithinOneMillisecondEachGetAFileOfTheirOwn)
{
    ASSERT_TRUE(mel("OVAnimationRecovery -enable true"));
    save(scenePath());
    const AnimationRecovery::FileManager files;
    for (int i = 0; i < 20; ++i)
        ASSERT_TRUE(files.writeCurves(QJsonObject{{QString::number(i), QJsonObject()}}));
    EXPECT_EQ(curveFiles().size(), 20);
    // Every one of them is read back.
    const QJsonObject merged = files.readCurves(files.sceneFolder(), 0);
    EXPECT_EQ(merged.size(), 20);
}

TEST_F(Recovery, PausesOnNewSceneAndResumesOnOpenOrImport)
{
    save(scenePath());
    const size_t before = mayasim::host::callbackCount();
    ASSERT_TRUE(mel("OVAnimationRecovery -enable true"));
    save(scenePath()); // with its identity node
    const size_t recording = mayasim::host::callbackCount();
    EXPECT_GT(recording, before);

    ASSERT_TRUE(MFileIO::newFile(true));
    // The key callback and the four layer event callbacks go.
    const size_t paused = recording - 5;
    EXPECT_EQ(mayasim::host::callbackCount(), paused);
    ASSERT_TRUE(mel("createNode transform -n obj"));
    save(workFile(QStringLiteral("other.ma")));
    ASSERT_TRUE(mel("OVAnimationRecovery -enable true")); // on already: starts nothing
    EXPECT_EQ(mayasim::host::callbackCount(), paused);
    keyPlug("obj.ty", {{1, 1}});
    idle();
    EXPECT_TRUE(curveFiles().isEmpty()) << "paused: nothing saved";

    reopen(scenePath());
    EXPECT_EQ(mayasim::host::callbackCount(), recording);
    keyPlug("obj.tz", {{1, 1}});
    idle();
    EXPECT_EQ(curveFiles().size(), 1);

    // An import pauses while it reads and resumes after.
    ASSERT_TRUE(MFileIO::importFile(workFile(QStringLiteral("other.ma")).toUtf8().constData()));
    EXPECT_EQ(mayasim::host::callbackCount(), recording);
    idle();
    EXPECT_EQ(curveFiles().size(), 1) << "what a file brings in isn't an edit";

    ASSERT_TRUE(mel("OVAnimationRecovery -enable false"));
    EXPECT_EQ(mayasim::host::callbackCount(), before);
}

TEST_F(Recovery, UntitledSceneSavesNothingAndRestoreSaysSo)
{
    const size_t off = mayasim::host::callbackCount();
    ASSERT_TRUE(mel("OVAnimationRecovery -enable true"));
    const size_t on = mayasim::host::callbackCount();
    EXPECT_FALSE(nodeNamed("OVSceneId").isNull()) << "the identity is there before the first save";
    keyPlug("obj.tx", {{1, 1}, {5, 3}});
    idle();
    EXPECT_TRUE(curveFiles().isEmpty());
    const std::string scene = sceneText();
    ASSERT_TRUE(mel("OVAnimationRecovery -restore"));
    EXPECT_EQ(sceneText(), scene);
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: faile to find last modified\n"));
    // A restore leaves recording as it found it, on or off.
    EXPECT_EQ(mayasim::host::callbackCount(), on);
    ASSERT_TRUE(mel("OVAnimationRecovery -enable false; OVAnimationRecovery -restore"));
    EXPECT_EQ(mayasim::host::callbackCount(), off);
    EXPECT_FALSE(mel("OVAnimationRecovery -enable")) << "the flag needs its boolean";
}

TEST_F(Recovery, CorruptFilesAndRecordsAreSkippedWithAReport)
{
    ASSERT_TRUE(mel("OVAnimationRecovery -enable true"));
    save(scenePath());
    keyPlug("obj.tx", {{1, 1}, {5, 3}});
    keyPlug("obj.ty", {{1, 2}});
    idle();
    const std::string edited = describeCurves();
    const QStringList files = curveFiles();
    ASSERT_EQ(files.size(), 1);
    const QString folder = QFileInfo(QDir(recoveryRoot()).filePath(files[0])).path();
    const qint64 number = QFileInfo(files[0]).fileName().chopped(2).toLongLong();
    // Later files: random bytes, and a map whose record of one curve is cut short.
    ASSERT_TRUE(writeBytes(QDir(folder).filePath(QString::number(number + 1) + "_a"), "\xff\x13garbage"));
    QCborMap broken;
    broken.insert(QStringLiteral("obj_translateX"),
                  QCborMap{{QStringLiteral("d"), QStringLiteral("x")}, {QStringLiteral("k"), 3}});
    ASSERT_TRUE(writeBytes(QDir(folder).filePath(QString::number(number + 2) + "_a"), QCborValue(broken).toCbor()));

    reopen(scenePath());
    ASSERT_TRUE(mel("OVAnimationRecovery -restore"));
    EXPECT_EQ(describeCurves(), edited);
    ASSERT_EQ(reports().size(), 2u);
    EXPECT_THAT(reports()[0], HasSubstr("failed to read recovery file: "));
    EXPECT_THAT(reports()[1], HasSubstr("bad curve record: obj_translateX"));
}

// A curve is rebuilt whole or not at all: one bad key in a later record
// leaves the curve as the earlier record had it; a "lastModified" that isn't
// one restores nothing.
TEST_F(Recovery, ARecordWithOneBadKeyNeverHalfRestoresItsCurve)
{
    ASSERT_TRUE(mel("OVAnimationRecovery -enable true"));
    save(scenePath());
    keyPlug("obj.tx", {{1, 1}, {5, 3}, {9, 2}});
    idle();
    const std::string edited = describeCurves();
    const QStringList files = curveFiles();
    ASSERT_EQ(files.size(), 1);
    const QString path = QDir(recoveryRoot()).filePath(files[0]);
    const QString folder = QFileInfo(path).path();
    const qint64 number = QFileInfo(path).fileName().chopped(2).toLongLong();
    // Each a copy of the good record, new values on every key, one key spoilt.
    const QCborMap good = QCborValue::fromCbor(readBytes(path)).toMap();
    const auto spoilt = [&good](int field, const QCborValue& value) {
        QCborMap record = good.value(QStringLiteral("obj_translateX")).toMap();
        QCborMap keys = record.value(QStringLiteral("k")).toMap();
        for (auto it = keys.begin(); it != keys.end(); ++it) {
            QCborArray key = it.value().toArray();
            key[4] = 100.0;
            if (it.key().toString() == QStringLiteral("5"))
                key[field] = value;
            it.value() = key;
        }
        record.insert(QStringLiteral("k"), keys);
        return QCborValue(QCborMap{{QStringLiteral("obj_translateX"), record}}).toCbor();
    };
    ASSERT_TRUE(writeBytes(QDir(folder).filePath(QString::number(number + 1) + "_a"), spoilt(5, 99)));
    ASSERT_TRUE(writeBytes(QDir(folder).filePath(QString::number(number + 2) + "_a"), spoilt(4, qInf())));
    ASSERT_TRUE(writeBytes(QDir(folder).filePath(QString::number(number + 3) + "_a"), spoilt(8, 1)));

    reopen(scenePath());
    ASSERT_TRUE(mel("OVAnimationRecovery -restore"));
    EXPECT_EQ(describeCurves(), edited);
    ASSERT_EQ(reports().size(), 3u);
    for (const std::string& report : reports())
        EXPECT_THAT(report, HasSubstr("bad curve record: obj_translateX"));

    ASSERT_TRUE(writeBytes(QDir(folder).filePath(QStringLiteral("lastModified")), "\xa1\x61l\x61x"));
    reopen(scenePath());
    mayasim::host::clearOutput();
    ASSERT_TRUE(mel("OVAnimationRecovery -restore"));
    EXPECT_EQ(describeCurves(), "");
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("faile to find last modified"));
}

TEST_F(Recovery, SceneWithoutItsIdentityNodeFindsItsFolderByTheNodesItsCurvesDrive)
{
    save(scenePath()); // saved before recording began: the file has no identity node
    ASSERT_TRUE(mel("OVAnimationRecovery -enable true"));
    keyPlug("obj.tx", {{1, 1}, {5, 3}});
    idle();
    const std::string edited = describeCurves();
    reopen(scenePath());
    ASSERT_TRUE(nodeNamed("OVSceneId").isNull());
    mayasim::host::clearOutput();
    ASSERT_TRUE(mel("OVAnimationRecovery -restore"));
    EXPECT_EQ(describeCurves(), edited);
    bool said = false;
    for (const auto& line : mayasim::host::output())
        said = said || line.text.find("restoring from") != std::string::npos;
    EXPECT_TRUE(said);
}

} // namespace

namespace {

class RecoveryLayers : public Recovery
{
protected:
    static std::string query(const std::string& text)
    {
        MString result;
        MGlobal::executeCommand(text.c_str(), result);
        return result.asChar();
    }
    static double number(const std::string& text)
    {
        double result = 0;
        MGlobal::executeCommand(text.c_str(), result);
        return result;
    }
};

TEST_F(RecoveryLayers, TheLayerTreeIsSavedOneSecondAfterItsLastEventAndRebuiltBeforeTheCurves)
{
    ASSERT_TRUE(mel("OVAnimationRecovery -enable true"));
    save(scenePath());
    ASSERT_TRUE(mel("animLayer L1; animLayer -parent L1 L2; animLayer -e -weight 0.1234567 -mute 1 L1"));
    ASSERT_TRUE(mel("animLayer -e -attribute obj.tx -attribute obj.ry L2; animLayer -e -lock 1 -override 1 L2"));
    double id = 0;
    ASSERT_TRUE(MGlobal::executeCommand("getAttr OVSceneId.id", id));
    const QString folder = QDir(recoveryRoot()).filePath(QString::number(id, 'f', 0));
    const QString layerFile = QDir(folder).filePath(QStringLiteral("l"));
    mayasim::host::advanceClock(0.9);
    idle();
    EXPECT_FALSE(QFileInfo::exists(layerFile)) << "not within a second of the last event";
    mayasim::host::advanceClock(0.2);
    idle();
    ASSERT_TRUE(QFileInfo::exists(layerFile));
    const QCborArray saved = QCborValue::fromCbor(readBytes(layerFile)).toArray();
    ASSERT_EQ(saved.size(), 2) << "the root isn't saved";
    EXPECT_EQ(saved[0].toMap().value(QStringLiteral("n")).toString(), QStringLiteral("L1"));
    EXPECT_EQ(saved[0].toMap().value(QStringLiteral("p")).toString(), QStringLiteral("BaseAnimation"));
    EXPECT_EQ(saved[1].toMap().value(QStringLiteral("p")).toString(), QStringLiteral("L1"));
    EXPECT_EQ(saved[1].toMap().value(QStringLiteral("a")).toArray().size(), 2);

    // The saved scene has no layers: they come back, the first at the top.
    reopen(scenePath());
    expectOneUndoStep([] { ASSERT_TRUE(mel("OVAnimationRecovery -restore")); });
    EXPECT_EQ(query("animLayer -q -parent L1"), "BaseAnimation");
    EXPECT_EQ(query("animLayer -q -parent L2"), "L1");
    EXPECT_DOUBLE_EQ(number("animLayer -q -weight L1"), 0.123457);
    EXPECT_EQ(number("animLayer -q -mute L1"), 1.0);
    EXPECT_EQ(number("animLayer -q -lock L2"), 1.0);
    EXPECT_EQ(number("animLayer -q -override L2"), 1.0);
    MStringArray members;
    MGlobal::executeCommand("animLayer -q -attribute L2", members);
    EXPECT_EQ(members.length(), 2u);
    EXPECT_TRUE(reports().empty()) << reports().front();

    // Edited in place a second time, not duplicated; names that would be MEL are refused.
    QCborArray hostile = saved;
    QCborMap bad = saved[1].toMap();
    bad.insert(QStringLiteral("n"), QStringLiteral("L3\"; delete obj; \""));
    hostile.append(bad);
    ASSERT_TRUE(writeBytes(layerFile, QCborValue(hostile).toCbor()));
    ASSERT_TRUE(mel("OVAnimationRecovery -restore"));
    EXPECT_FALSE(nodeNamed("obj").isNull());
    EXPECT_TRUE(nodeNamed("L3").isNull());
    EXPECT_TRUE(nodeNamed("L4").isNull() && nodeNamed("L11").isNull());
    ASSERT_FALSE(reports().empty());
    EXPECT_THAT(reports().back(), HasSubstr("bad layer record: "));
}

} // namespace
