// mayasim-batch -python: a Python file run on a scene, its print output and
// errors on stdout, and an exit status that says whether it worked.
#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <filesystem>
#include <string>
#include <sys/wait.h>

using ::testing::HasSubstr;

namespace {

struct BatchRun
{
    std::string output;
    int status = -1;
};

class BatchPython : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!std::filesystem::exists(program()))
            GTEST_SKIP() << "mayasim-batch is not built";
    }

    static std::string program() { return std::string(ORVANE_BINARY_DIR) + "/mayasim/mayasim-batch"; }

    std::string script(const std::string& text)
    {
        const QString path = QDir(fFolder.path()).filePath(QStringLiteral("script.py"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.c_str());
        return path.toStdString();
    }

    static BatchRun run(const std::string& arguments)
    {
        BatchRun result;
        FILE* pipe = popen((program() + " " + arguments + " 2>&1").c_str(), "r");
        char buffer[256];
        while (pipe && std::fgets(buffer, sizeof buffer, pipe))
            result.output += buffer;
        const int status = pipe ? pclose(pipe) : -1;
        result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return result;
    }

private:
    QTemporaryDir fFolder;
};

} // namespace

TEST_F(BatchPython, RunsAFileWithMayaCmdsAndTheSystemsPython)
{
    const std::string path = script("import sys\n"
                                    "ball = maya.cmds.createNode('transform', name='ball')\n"
                                    "maya.cmds.xform(ball, translation=(1, 2, 3))\n"
                                    "print(ball, maya.cmds.getAttr(ball + '.ty'))\n"
                                    "print(sys.prefix, sys.flags.isolated)\n");
    const BatchRun result = run("-python \"" + path + "\" -command \"getAttr ball.tz\"");
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_THAT(result.output, HasSubstr("ball 2.0\n"));
    EXPECT_THAT(result.output, HasSubstr(MAYASIM_PYTHON_PREFIX " 1\n"));
    EXPECT_THAT(result.output, HasSubstr("// Result: 3 //\n"));
}

TEST_F(BatchPython, AnExceptionNamesTheFileAndFailsTheRun)
{
    const std::string path = script("print('before')\nmaya.cmds.deleteUI('lost')\nprint('after')\n");
    const BatchRun result = run("-python \"" + path + "\"");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, HasSubstr("before\n# Error: RuntimeError: file " + path +
                                         " line 2: deleteUI: Object 'lost' not found.\n"));
    EXPECT_THAT(result.output, ::testing::Not(HasSubstr("after")));
    EXPECT_THAT(run("-python missing.py").output, HasSubstr("# Error: Cannot find file \"missing.py\".\n"));
}
