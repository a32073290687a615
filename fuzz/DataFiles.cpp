// Fuzz target: every reader of the plug-in's data files. Each input becomes
// each data file in turn, among valid others, and the commands that read it
// run on a saved rig with its controls selected.
#include "FuzzHost.h"

#include "FileBytes.h"
#include "Ui/MotionTrailBtn.h"

#include <maya/MFileIO.h>
#include <maya/MGlobal.h>
#include <mayasim/Gui.h>
#include <mayasim/Host.h>

#include <QApplication>
#include <QDir>
#include <QDirIterator>

#include <cstdlib>
#include <utility>
#include <vector>

namespace {

// A data file, by its path in the data folder, and MEL that reads it; a
// reader that no command reaches is called before the MEL. A new reader
// joins with one row. The rig's identity is 1.
struct DataFile
{
    const char* path;
    const char* readers;
    void (*read)() = nullptr;
};

// As the pie menu's motion trail entry does (the panel's button reads the
// same way): trails toggled on the selection, in the stored style.
void applyStoredTrailStyle() { Ui::applyTrailStyle(Ui::readTrailStyle()); }

const DataFile dataFiles[] = {
    // The pie menu store reads its file when the plug-in loads: unloaded
    // (from an empty scene, as Maya keeps a plug-in whose nodes are in one),
    // the next row's reset loads it again and binds every hotkey it holds.
    {"pieMenus.json", "file -f -new; unloadPlugin orvane"},
    {"default_attributes_data",
     "OVResetPose; OVResetPose -t -r; OVKeyBlending -bt 9 -bv 0.5; OVKeyBlending -bt 11 -bv -0.5; OVSnapshot"},
    {"AnimationRecovery/1/lastModified", "OVAnimationRecovery -restore"},
    {"AnimationRecovery/1/9999999999999_a", "OVAnimationRecovery -restore"},
    {"AnimationRecovery/1/l", "OVAnimationRecovery -restore"},
    // The panel reads its file when it is built: at its first opening, and
    // when Maya rebuilds its control.
    {"prefs.json", "orvane; mayasimUi -rebuild ORVANE_WORKSPACE_CONTROL"},
    // The temporary pivot reads its scene's file as it is turned on, and
    // again as it saves when turned off.
    {"TempPivot/1", "OVTempPivot -e true body_ctrl arm_L_ctrl; OVTempPivot -e false"},
    // The trail style is read as a trail is made; the trails then fill at
    // idle time and are drawn in it.
    {"motionTrail_prefs.json", "mayasimHost -idle 4; refresh -f", applyStoredTrailStyle},
};

// MEL that makes the plug-in write its data files on the rig, each valid:
// what each input starts from. A new writer joins here.
const char* const writers = "OVSnapshot; OVAnimationRecovery -enable true; setKeyframe -t 30 -v 2 body_ctrl.tx; "
                            "animLayer L1; animLayer -e -attribute arm_L_ctrl.rz L1; "
                            "OVTempPivot -e true body_ctrl; OVTempPivot -e false";

void openRig()
{
    fuzz::resetScene();
    MFileIO::open(ORVANE_TEST_DATA "/rig.ma", nullptr, true);
    MGlobal::executeCommand("createNode OVSceneId; setAttr OVSceneId.id 1; "
                            "select -r body_ctrl arm_L_ctrl arm_R_ctrl spine_jnt");
}

QString dataFolder() { return QString::fromStdString(fuzz::dataFolder()); }

// The panel's reader needs Maya's interface: one application with its main
// window for the whole run, as Maya has.
void openInterface()
{
    static int argc = 1;
    static char name[] = "orvane_fuzz";
    static char* argv[] = {name, nullptr};
    mayasim::gui::prepareEnvironment();
    new QApplication(argc, argv);
    mayasim::gui::applyLook();
    mayasim::gui::openMainWindow(800, 500);
}

using Files = std::vector<std::pair<QString, QByteArray>>;

// The files the writers leave, by path in the data folder. With
// ORVANE_FUZZ_SEEDS set to a folder they are copied there, as seeds.
const Files& validFiles()
{
    static const Files files = [] {
        openInterface();
        openRig();
        MGlobal::executeCommand(writers, false, true);
        // The trail style has no command: it is written as the panel's menu writes it.
        Ui::writeTrailStyle(Ui::TrailStyle());
        // Some writers wait for idle time, or for a timer first.
        for (int tick = 0; tick < 8; ++tick) {
            mayasim::host::advanceClock(1);
            mayasim::host::pumpIdle();
        }
        MGlobal::executeCommand("OVAnimationRecovery -enable false");
        Files found;
        for (QDirIterator it(dataFolder(), QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
            const QString path = it.next();
            found.emplace_back(QDir(dataFolder()).relativeFilePath(path), readBytes(path));
        }
        if (const char* seeds = std::getenv("ORVANE_FUZZ_SEEDS"))
            for (const auto& [path, bytes] : found)
                writeBytes(QDir(QString::fromUtf8(seeds)).filePath(QString(path).replace('/', '_')), bytes);
        return found;
    }();
    return files;
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    const QString full = QDir(dataFolder()).filePath(path);
    QDir().mkpath(QFileInfo(full).path());
    writeBytes(full, bytes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Files& valid = validFiles();
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    for (const DataFile& file : dataFiles) {
        openRig();
        QDir(dataFolder()).removeRecursively();
        for (const auto& [path, content] : valid)
            writeFile(path, content);
        writeFile(QString::fromUtf8(file.path), bytes);
        if (file.read)
            file.read();
        MGlobal::executeCommand(file.readers, false, true);
    }
    return 0;
}
