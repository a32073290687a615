// mayasim's maya headers declare no more than Maya 2022's: plug-in code that
// the devkit rejects must fail to compile here too. Each test compiles a
// snippet with the project's compiler against mayasim's headers, once with
// a mistake the devkit rejects and once as written against the devkit.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>

namespace fs = std::filesystem;

namespace {

struct Compiled
{
    bool ok = false;
    std::string output; // the compiler's errors and warnings
};

Compiled compile(const std::string& source)
{
    const fs::path folder = fs::path(ORVANE_BINARY_DIR) / "header_snippets";
    fs::create_directories(folder);
    const fs::path file = folder / (std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()) +
                                    std::to_string(std::hash<std::string>()(source)) + ".cpp");
    std::ofstream(file) << source;
    const std::string command = std::string("\"") + MAYASIM_CXX_COMPILER + "\" -std=c++17 -Wall -Wextra -fsyntax-only" +
                                " -I\"" + MAYASIM_INCLUDE_DIR + "\" \"" + file.string() + "\" 2>&1";
    Compiled result;
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe)
        return result;
    std::array<char, 512> buffer{};
    while (fgets(buffer.data(), static_cast<int>(buffer.size()), pipe))
        result.output += buffer.data();
    result.ok = pclose(pipe) == 0;
    return result;
}

} // namespace

TEST(MayaHeaders, OfferNoShortDefaultOnANumericAttribute)
{
    const std::string header = "#include <maya/MFnNumericAttribute.h>\n";
    const Compiled mistake = compile(header + "void f(MFnNumericAttribute& fn) { short v = 0; fn.getDefault(v); }\n");
    EXPECT_FALSE(mistake.ok) << "Maya 2022 declares no getDefault(short&)";
    EXPECT_NE(mistake.output.find("getDefault"), std::string::npos) << mistake.output;

    const Compiled fixed = compile(header + "void f(MFnNumericAttribute& fn) { int v = 0; fn.getDefault(v); }\n");
    EXPECT_TRUE(fixed.ok) << fixed.output;
}

TEST(MayaHeaders, MEventMessageOnlyForwardDeclaresMString)
{
    const std::string callback = "void onIdle(void*) {}\n"
                                 "MCallbackId f() { return MEventMessage::addEventCallback(\"idle\", onIdle); }\n";
    const Compiled mistake = compile("#include <maya/MEventMessage.h>\n" + callback);
    EXPECT_FALSE(mistake.ok) << "a string literal needs MString.h to become an MString";
    EXPECT_NE(mistake.output.find("MString"), std::string::npos) << mistake.output;

    const Compiled fixed = compile("#include <maya/MEventMessage.h>\n#include <maya/MString.h>\n" + callback);
    EXPECT_TRUE(fixed.ok) << fixed.output;
}

TEST(MayaHeaders, KeepTheApiClassesInMayasVersionedNamespace)
{
    // A plug-in's own forward declaration names another class than Maya's,
    // before or after the header; MTypes.h declares them all, as Maya's does.
    EXPECT_FALSE(compile("class MPlug;\n#include <maya/MPlug.h>\n").ok);
    EXPECT_FALSE(compile("#include <maya/MPlug.h>\nclass MPlug;\n").ok);

    const Compiled fixed = compile("#include <maya/MTypes.h>\nvoid f(const MPlug&);\n");
    EXPECT_TRUE(fixed.ok) << fixed.output;
}

TEST(MayaHeaders, WarnWhereMayaDeprecates)
{
    const Compiled deprecated = compile("#include <maya/MPlug.h>\n"
                                        "double f(const MPlug& p) { return p.asDouble(MDGContext::fsNormal); }\n");
    EXPECT_TRUE(deprecated.ok) << deprecated.output;
    EXPECT_NE(deprecated.output.find("deprecated"), std::string::npos) << deprecated.output;
}

TEST(MayaHeaders, IncludeNoOtherHeadersThanMayasDo)
{
    // The standard and Qt headers Maya 2022's own headers include; anything
    // else (<memory>, <vector>, a mayasim header) would reach plug-in sources
    // here but not against the devkit.
    const std::set<std::string> allowed = {"cstddef", "iosfwd",   "iterator",       "stdint.h",
                                           "string",  "string.h", "QtCore/QString"};
    const std::regex include(R"(^\s*#\s*include\s*[<"]([^>"]+)[>"])");
    int headers = 0;
    for (const auto& entry : fs::directory_iterator(fs::path(MAYASIM_INCLUDE_DIR) / "maya"))
    {
        ++headers;
        std::ifstream file(entry.path());
        std::string line;
        while (std::getline(file, line))
        {
            std::smatch match;
            if (!std::regex_search(line, match, include))
                continue;
            const std::string name = match[1];
            EXPECT_TRUE(name.rfind("maya/", 0) == 0 || allowed.count(name))
                << entry.path().filename().string() << " includes " << name;
        }
    }
    EXPECT_GT(headers, 90);
}
