#pragma once
// Shared set-up for the scene file tests: a new, unmodified scene per test,
// MEL helpers and the paths of the bundled and temporary files.
#include <maya/MDoubleArray.h>
#include <maya/MFileIO.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>
#include <mayasim/Host.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

// What plain `ls` lists first: the cameras every scene starts with.
#define DEFAULT_CAMERAS "persp", "perspShape", "top", "topShape", "front", "frontShape", "side", "sideShape"

class FileTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(MFileIO::newFile(true));
        mayasim::host::clearOutput();
    }

    static bool mel(const std::string& text) { return MGlobal::executeCommand(text.c_str(), false, true); }

    static std::string melString(const std::string& text)
    {
        return MGlobal::executeCommandStringResult(text.c_str()).asChar();
    }

    static std::vector<std::string> melStrings(const std::string& text)
    {
        MStringArray result;
        MGlobal::executeCommand(text.c_str(), result);
        std::vector<std::string> strings;
        for (const MString& s : result)
            strings.push_back(s.asChar());
        return strings;
    }

    static std::vector<double> melNumbers(const std::string& text)
    {
        MDoubleArray result;
        MGlobal::executeCommand(text.c_str(), result);
        return {result.begin(), result.end()};
    }

    static double melNumber(const std::string& text)
    {
        double result = 0.0;
        MGlobal::executeCommand(text.c_str(), result);
        return result;
    }

    // The node of that name; a null object if none.
    static MObject nodeNamed(const std::string& name)
    {
        MSelectionList list;
        MObject object;
        list.add(name.c_str());
        list.getDependNode(0, object);
        return object;
    }

    static std::string typeOf(const std::string& node)
    {
        const MObject object = nodeNamed(node);
        return object.isNull() ? std::string() : MFnDependencyNode(object).typeName().asChar();
    }

    static std::string dataFile(const std::string& name) { return std::string(ORVANE_TEST_DATA) + "/" + name; }

    // A file name of this test's own in the build folder.
    static std::string scratchFile(const std::string& name)
    {
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        const auto folder = std::filesystem::path(ORVANE_BINARY_DIR) / "file_tests" / test->test_suite_name();
        std::filesystem::create_directories(folder);
        return (folder / (std::string(test->name()) + "_" + name)).generic_string();
    }

    static std::string contents(const std::string& path)
    {
        std::ifstream in(path, std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        return text.str();
    }

    static void write(const std::string& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

    // The scene as a save to a file of this test's writes it, without the
    // lines that name the file.
    static std::string savedText(const std::string& name)
    {
        const std::string path = scratchFile(name);
        EXPECT_TRUE(MGlobal::executeCommand(("file -rename \"" + path + "\"; file -save").c_str()));
        std::string text = contents(path);
        text.erase(0, text.find("//Codeset"));
        return text.substr(0, text.rfind("// End of"));
    }

    // The text of the output lines of one kind.
    static std::vector<std::string> output(mayasim::host::OutputLine::Kind kind)
    {
        std::vector<std::string> lines;
        for (const auto& line : mayasim::host::output())
            if (line.kind == kind)
                lines.push_back(line.text);
        return lines;
    }
    static std::vector<std::string> errors() { return output(mayasim::host::OutputLine::Kind::Error); }
    static std::vector<std::string> warnings() { return output(mayasim::host::OutputLine::Kind::Warning); }
};
