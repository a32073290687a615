// Maya ASCII: loading the subset animation files use, reporting bad lines as
// Maya does, and saving a scene that loads back the same.
#include "FileTest.h"

#include <gmock/gmock.h>

#include <cmath>

using ::testing::AllOf;
using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pointwise;

namespace {

// 16 numbers, row by row, to compare with getAttr's matrix result.
std::vector<double> rows(std::initializer_list<std::initializer_list<double>> matrix)
{
    std::vector<double> numbers;
    for (const auto& row : matrix)
        numbers.insert(numbers.end(), row);
    return numbers;
}

// The file's text without the lines that name the file itself.
std::string withoutFileName(const std::string& text)
{
    std::istringstream in(text);
    std::string kept, line;
    while (std::getline(in, line))
        if (line.rfind("//Name:", 0) != 0 && line.rfind("// End of ", 0) != 0)
            kept += line + "\n";
    return kept;
}

std::vector<std::string> matching(const std::vector<std::string>& lines, const std::string& part)
{
    std::vector<std::string> found;
    for (const std::string& line : lines)
        if (line.find(part) != std::string::npos)
            found.push_back(line);
    return found;
}

} // namespace

using MayaAscii = FileTest;

TEST_F(MayaAscii, PivotedRotatedHierarchyLoadsWithHandComputedWorldMatrices)
{
    ASSERT_TRUE(MFileIO::open(dataFile("pivoted_hierarchy.ma").c_str(), nullptr, true));
    EXPECT_THAT(errors(), IsEmpty());
    const double h = std::sqrt(0.5);
    // base: rotate Y 45 degrees, then translate (0, 10, 0).
    EXPECT_THAT(melNumbers("getAttr base.worldMatrix"),
                Pointwise(DoubleNear(1e-9), rows({{h, 0, -h, 0}, {0, 1, 0, 0}, {h, 0, h, 0}, {0, 10, 0, 1}})));
    // arm: rotate Z 90 degrees about the pivot (1, 0, 0), translate (5, 0, 0):
    // locally the origin goes to (1, -1, 0) + (5, 0, 0); then base's matrix.
    EXPECT_THAT(melNumbers("getAttr arm.worldMatrix"),
                Pointwise(DoubleNear(1e-9),
                          rows({{0, 1, 0, 0}, {-h, 0, h, 0}, {h, 0, h, 0}, {6 * h, 9, -6 * h, 1}})));
    // hand: 2 along arm's X axis, which points up the world Y axis.
    EXPECT_THAT(melNumbers("getAttr hand.worldMatrix"),
                Pointwise(DoubleNear(1e-9),
                          rows({{0, 1, 0, 0}, {-h, 0, h, 0}, {h, 0, h, 0}, {6 * h, 11, -6 * h, 1}})));
    EXPECT_EQ(melString("getAttr arm.rotatePivotX"), "1");
}

TEST_F(MayaAscii, SavedSceneLoadsBackTheSame)
{
    ASSERT_TRUE(mel("createNode transform -n root;"
                    "createNode transform -n child -p root;"
                    "setAttr child.translate 1 2 3; setAttr child.rx 30; setAttr child.rotateOrder 2;"
                    "setAttr -lock on child.tz;"
                    "createNode joint -n bone -p child; setAttr bone.jointOrient 0 0 -15;"
                    "createNode locator -n boneShape -p bone;"
                    "addAttr -ln weight -at double -dv 0.5 -k true root; setAttr root.weight 0.75;"
                    "addAttr -ln note -dt \"string\" root; setAttr -type \"string\" root.note \"a \\\"quoted\\\"; note\";"
                    "connectAttr root.weight child.sx; setAttr -lock on child.sx;"
                    "fileInfo \"studio\" \"test\";"));
    const std::string first = scratchFile("first.ma");
    const std::string second = scratchFile("second.ma");
    ASSERT_TRUE(MFileIO::saveAs(first.c_str()));

    ASSERT_TRUE(MFileIO::open(first.c_str(), nullptr, true));
    EXPECT_THAT(errors(), IsEmpty());
    EXPECT_THAT(melStrings("ls -type transform"), ElementsAre("persp", "top", "front", "side", "root", "child", "bone"))
        << "the default cameras, then the file's own";
    EXPECT_EQ(typeOf("bone"), "joint");
    EXPECT_THAT(melStrings("listRelatives -p boneShape"), ElementsAre("bone"));
    EXPECT_THAT(melStrings("listRelatives -p bone"), ElementsAre("child"));
    EXPECT_THAT(melNumbers("getAttr child.translate"), ElementsAre(1, 2, 3));
    EXPECT_NEAR(melNumber("getAttr child.rx"), 30, 1e-9);
    EXPECT_EQ(melString("getAttr child.rotateOrder"), "2");
    EXPECT_EQ(melString("getAttr -lock child.tz"), "1");
    EXPECT_THAT(melNumbers("getAttr bone.jointOrient"), Pointwise(DoubleNear(1e-9), {0.0, 0.0, -15.0}));
    EXPECT_EQ(melString("getAttr root.weight"), "0.75");
    EXPECT_EQ(melString("getAttr child.sx"), "0.75");
    EXPECT_EQ(melString("getAttr -lock child.sx"), "1");
    EXPECT_EQ(melString("getAttr root.note"), "a \"quoted\"; note");
    EXPECT_THAT(melStrings("fileInfo -q \"studio\""), ElementsAre("test"));

    // Saving the loaded scene writes the same file again.
    ASSERT_TRUE(MFileIO::saveAs(second.c_str()));
    EXPECT_EQ(withoutFileName(contents(second)), withoutFileName(contents(first)));
}

TEST_F(MayaAscii, UnknownNodeTypesLoadAsGenericNodesWithOneWarningPerType)
{
    const std::string path = dataFile("unknown_and_broken.ma");
    ASSERT_TRUE(MFileIO::open(path.c_str(), nullptr, true));
    const std::vector<std::string> unknownTypes = matching(warnings(), "Unrecognized");
    EXPECT_THAT(unknownTypes, ElementsAre("file: " + path +
                                          " line 6: Unrecognized node type 'studioRigHelper'; preserving node "
                                          "information during this session."));
    EXPECT_EQ(typeOf("mystery"), "studioRigHelper");
    EXPECT_EQ(melString("getAttr mystery.weight"), "3.5");
    EXPECT_EQ(melString("getAttr mystery.label"), "kept");
    EXPECT_EQ(typeOf("mystery2"), "studioRigHelper");

    // Saved and read again, the generic node keeps its type and values.
    const std::string saved = scratchFile("kept.ma");
    ASSERT_TRUE(MFileIO::saveAs(saved.c_str()));
    ASSERT_TRUE(MFileIO::open(saved.c_str(), nullptr, true));
    EXPECT_EQ(typeOf("mystery"), "studioRigHelper");
    EXPECT_EQ(melString("getAttr mystery.weight"), "3.5");
}

TEST_F(MayaAscii, BrokenLineIsReportedWithItsLineAndLoadingGoesOn)
{
    ASSERT_TRUE(MFileIO::open(dataFile("unknown_and_broken.ma").c_str(), nullptr, true));
    EXPECT_THAT(errors(), ElementsAre(HasSubstr("line 10: ")));
    EXPECT_THAT(warnings(), ::testing::Contains(HasSubstr("Errors have occurred while reading this scene")));
    EXPECT_EQ(melString("getAttr first.tx"), "1");
    EXPECT_EQ(melString("getAttr second.ty"), "2");
    EXPECT_EQ(melString("getAttr third.tz"), "3");
    EXPECT_THAT(melStrings("listRelatives -p third"), ElementsAre("second"));
}

TEST_F(MayaAscii, StatementsSpanLinesAndStringsKeepSemicolonsAndSlashes)
{
    const std::string path = scratchFile("layout.ma");
    write(path, "//Maya ASCII 2022 scene\n"
                "/* a block comment; with a semicolon */\n"
                "createNode transform\n"
                "    -n \"spread\";   // a trailing comment; with a semicolon\n"
                "\taddAttr -ln \"path\" -dt \"string\";\n"
                "\tsetAttr \".path\" -type \"string\" \"C:/a;b//c\";\n"
                "\tsetAttr \".t\" -type \"double3\"\n"
                "\t\t1 2\n"
                "\t\t3 ;\n"
                "\tsetAttr \".noSuchAttribute\" 1;\n");
    ASSERT_TRUE(MFileIO::open(path.c_str(), nullptr, true));
    EXPECT_EQ(melString("getAttr spread.path"), "C:/a;b//c");
    EXPECT_THAT(melNumbers("getAttr spread.t"), ElementsAre(1, 2, 3));
    // Lines count from the top, comments and multi-line statements included.
    EXPECT_THAT(errors(), ElementsAre(HasSubstr("line 10: ")));
}

TEST_F(MayaAscii, SettingsOfAMissingSharedNodeFallOnNoOtherNode)
{
    const std::string path = scratchFile("missing_shared.ma");
    write(path, "createNode transform -n \"last\";\n"
                "select -ne :missingGlobals;\n"
                "\tsetAttr \".tx\" 9;\n");
    ASSERT_TRUE(MFileIO::open(path.c_str(), nullptr, true));
    EXPECT_EQ(melString("getAttr last.tx"), "0");
    EXPECT_THAT(errors(), ElementsAre(HasSubstr("line 2: "), HasSubstr("line 3: ")));
}
