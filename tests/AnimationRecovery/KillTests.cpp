// Recovery against crashes: mayasim-batch edits curves with recording on and
// is killed with SIGKILL at a random moment; then every recovery file must
// parse, and a restore in a fresh process must give back every curve as of
// the last completed save, key for key. ORVANE_KILL_COUNT sets the number of
// kills (20 by default), ORVANE_KILL_SEED the seed of their moments.
#include "BatchRun.h"
#include "FileBytes.h"

#include <gtest/gtest.h>

#include <QCborMap>
#include <QCborValue>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>

#include <fcntl.h>
#include <iostream>
#include <random>
#include <signal.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace {

const char* const childScript = ORVANE_TEST_DATA "/../AnimationRecovery/KillChild.py";
const char* const kinds[] = {"identity", "noidentity", "reference"};

int environmentNumber(const char* name, int fallback)
{
    const QByteArray value = qgetenv(name);
    bool ok = false;
    const int number = value.toInt(&ok);
    return ok && number > 0 ? number : fallback;
}

// The environment of a child: this one, with the settings given.
std::vector<std::string> childEnvironment(const std::vector<std::string>& settings)
{
    std::vector<std::string> environment(settings);
    for (char** entry = environ; *entry; ++entry) {
        const std::string text = *entry;
        const std::string name = text.substr(0, text.find('='));
        bool overridden = false;
        for (const std::string& setting : settings)
            overridden = overridden || setting.compare(0, name.size() + 1, name + "=") == 0;
        if (!overridden)
            environment.push_back(text);
    }
    return environment;
}

// Starts mayasim-batch with its output in a file; the process id, or -1.
pid_t spawnBatch(const std::vector<std::string>& arguments, const std::vector<std::string>& environment,
                 const QString& output)
{
    std::vector<std::string> words{batchProgram()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv, envp;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    std::vector<std::string> environmentCopy = environment;
    for (std::string& entry : environmentCopy)
        envp.push_back(entry.data());
    envp.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    const std::string outputPath = output.toStdString();
    posix_spawn_file_actions_addopen(&actions, 1, outputPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    posix_spawn_file_actions_adddup2(&actions, 1, 2);
    pid_t pid = -1;
    const int failed = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    return failed ? -1 : pid;
}

// Why a file of the recovery folder doesn't hold what its name says, or
// empty when it does: "lastModified" a map with the time "l", "l" the layer
// array, "<number>_a" a map of curves.
std::string unreadable(const QString& path)
{
    QCborParserError error;
    const QCborValue value = QCborValue::fromCbor(readBytes(path), &error);
    if (error.error != QCborError::NoError)
        return "not CBOR: " + error.errorString().toStdString();
    const QString name = QFileInfo(path).fileName();
    if (name == QStringLiteral("lastModified"))
        return value.isMap() && value.toMap().value(QStringLiteral("l")).isInteger() ? "" : "no time in it";
    if (name == QStringLiteral("l"))
        return value.isArray() ? "" : "not a layer array";
    if (name.endsWith(QStringLiteral("_a")))
        return value.isMap() ? "" : "not a curve map";
    return "a file recovery doesn't write";
}

// A write's temporary file, left by the kill before it took its name: the
// name of a recovery file and QSaveFile's six characters. No reader lists it.
bool isLeftOverWrite(const QString& path)
{
    static const QRegularExpression pattern(QStringLiteral("^(lastModified|l|\\d+_a)\\.[A-Za-z0-9]{6}$"));
    return pattern.match(QFileInfo(path).fileName()).hasMatch();
}

struct Figures
{
    int kills = 0;
    int savesCompleted = 0;  // over all runs
    int filesChecked = 0;    // recovery files that parsed after a kill
    int killsDuringSave = 0; // a save under way when the kill came
    int ofThoseWritten = 0;  // ... whose file was complete nonetheless
    int killsBeforeFirstSave = 0;
    int leftOverWrites = 0; // temporary files of writes the kill cut short
};

} // namespace

TEST(RecoveryKill, EveryKillLeavesWholeFilesAndARestoreGivesBackTheLastCompletedSave)
{
    const int kills = environmentNumber("ORVANE_KILL_COUNT", 20);
    std::mt19937 random(static_cast<unsigned int>(environmentNumber("ORVANE_KILL_SEED", 1)));
    // Kills land anywhere in the first second and a half of editing: in
    // edits, encoding, writes and between them.
    std::uniform_int_distribution<int> delay(0, 1500);
    Figures figures;
    QElapsedTimer clock;
    clock.start();
    for (int kill = 0; kill < kills; ++kill) {
        // Kept when something fails, to look into.
        QTemporaryDir dir;
        ASSERT_TRUE(dir.isValid());
        dir.setAutoRemove(false);
        const QDir folder(dir.path());
        ASSERT_TRUE(QDir().mkpath(folder.filePath(QStringLiteral("home/Documents/maya/scripts"))));
        // Each statement of a script is its own MEL run, after which the edits' key messages arrive.
        QByteArray loop;
        for (int i = 0; i < 5000; ++i)
            loop += "python(\"edit()\");\npython(\"save()\");\n";
        ASSERT_TRUE(writeBytes(folder.filePath(QStringLiteral("loop.mel")), loop));
        const std::string kind = kinds[kill % 3];
        const std::vector<std::string> environment = childEnvironment(
            {"HOME=" + folder.filePath(QStringLiteral("home")).toStdString(), "KILL_DIR=" + dir.path().toStdString(),
             "KILL_KIND=" + kind, "KILL_SEED=" + std::to_string(kill + 1), "ASAN_OPTIONS=detect_leaks=0",
             "QT_QPA_PLATFORM=offscreen"});
        const std::string context = "kill " + std::to_string(kill) + " (" + kind + ") in " + dir.path().toStdString();
        const QString log = folder.filePath(QStringLiteral("log"));

        const pid_t child = spawnBatch({"-plugin", ORVANE_PLUGIN_MODULE, "-python", childScript, "-script",
                                        folder.filePath(QStringLiteral("loop.mel")).toStdString()},
                                       environment, folder.filePath(QStringLiteral("child.txt")));
        ASSERT_GT(child, 0) << context;
        // Ready once the scene is built and recording: the first line of the log.
        bool ready = false;
        for (int wait = 0; wait < 6000 && !ready; ++wait) {
            ready = QFileInfo(log).size() > 0;
            if (!ready)
                QThread::msleep(10);
        }
        if (ready)
            QThread::msleep(static_cast<unsigned long>(delay(random)));
        ::kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(ready) << context << ": the child never got ready";
        ASSERT_TRUE(WIFSIGNALED(status)) << context << ": the child ended before the kill";
        ++figures.kills;

        // Every file recovery left parses.
        const QString recovery = folder.filePath(QStringLiteral("home/Documents/maya/scripts/Orvane/AnimationRecovery"));
        for (QDirIterator it(recovery, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
            const QString path = it.next();
            if (isLeftOverWrite(path)) {
                ++figures.leftOverWrites;
                continue;
            }
            ASSERT_EQ(unreadable(path), "") << context << ": " << path.toStdString();
            ++figures.filesChecked;
        }

        // The last save the child saw complete, and the one it may have been in.
        const QStringList lines = QString::fromUtf8(readBytes(log)).split('\n', Qt::SkipEmptyParts);
        ASSERT_FALSE(lines.isEmpty());
        ASSERT_FALSE(lines.join('\n').contains(QStringLiteral("no file"))) << context;
        const int saved = lines.last().section(' ', 1).toInt();
        int started = saved;
        while (QFileInfo::exists(folder.filePath("expect/" + QString::number(started + 1))))
            ++started;
        figures.savesCompleted += saved;
        figures.killsBeforeFirstSave += saved == 0 && started == 0;

        // A restore in a fresh process, on the scene file as the child saved it.
        const BatchRun restore = runBatch(
            "-plugin " ORVANE_PLUGIN_MODULE " -file " + folder.filePath(QStringLiteral("shot.ma")).toStdString()
                + " -command 'OVAnimationRecovery -restore' -python " + childScript,
            "HOME=" + folder.filePath(QStringLiteral("home")).toStdString() + " KILL_DIR=" + dir.path().toStdString()
                + " KILL_MODE=restore ASAN_OPTIONS=detect_leaks=0 QT_QPA_PLATFORM=offscreen");
        ASSERT_EQ(restore.status, 0) << context << restore.output;
        const QByteArray restored = readBytes(folder.filePath(QStringLiteral("restored")));
        const QByteArray last = readBytes(folder.filePath("expect/" + QString::number(saved)));
        if (started > saved) {
            ++figures.killsDuringSave;
            // The file of a save under way is there whole or not at all.
            const QByteArray pending = readBytes(folder.filePath("expect/" + QString::number(started)));
            if (restored == pending && restored != last)
                ++figures.ofThoseWritten;
            else
                ASSERT_EQ(restored.toStdString(), last.toStdString()) << context << restore.output;
        } else {
            ASSERT_EQ(restored.toStdString(), last.toStdString()) << context << restore.output;
        }
        dir.remove();
        if ((kill + 1) % 50 == 0)
            std::cout << "recovery kill test: " << kill + 1 << " kills, " << clock.elapsed() / 1000.0 << " s"
                      << std::endl;
    }
    std::cout << "recovery kill test: " << figures.kills << " kills in " << clock.elapsed() / 1000.0 << " s, "
              << figures.savesCompleted << " saves completed, " << figures.filesChecked
              << " recovery files parsed, " << figures.killsDuringSave << " kills during a save ("
              << figures.ofThoseWritten << " of whose files were whole and restored), "
              << figures.killsBeforeFirstSave << " before the first save, " << figures.leftOverWrites
              << " temporary files of cut writes left beside them (never read); every restore exact" << std::endl;
}
