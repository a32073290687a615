// OVSelectionSet on a small scene of controls and a mesh: sets made, selected,
// changed, hidden and removed by MEL, each edit one undo step, and sets that
// travel with the file, with references and through a forced unload.
#include "PluginTest.h"

#include <maya/MFileIO.h>
#include <maya/MFnDependencyNode.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MStringArray.h>
#include <mayasim/Host.h>

#include <QDir>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <regex>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

class SelectionSetTest : public PluginTest
{
protected:
    void SetUp() override
    {
        PluginTest::SetUp();
        ASSERT_TRUE(MFileIO::open(ORVANE_TEST_DATA "/selection_sets.ma", nullptr, true));
    }

    static std::string result(const std::string& text)
    {
        MString answer;
        EXPECT_TRUE(MGlobal::executeCommand(text.c_str(), answer, false, true)) << text;
        return answer.asChar();
    }
    static int intResult(const std::string& text)
    {
        int answer = -1;
        EXPECT_TRUE(MGlobal::executeCommand(text.c_str(), answer, false, true)) << text;
        return answer;
    }
    static std::vector<std::string> strings(const std::string& text)
    {
        MStringArray answer;
        MGlobal::executeCommand(text.c_str(), answer, false, true);
        std::vector<std::string> list;
        for (unsigned int i = 0; i < answer.length(); ++i)
            list.push_back(answer[i].asChar());
        return list;
    }
    static std::vector<std::string> selection() { return strings("ls -sl"); }
    static std::string content(const std::string& set) { return result("getAttr " + set + ".content"); }
    static std::string typeOf(const std::string& node)
    {
        return MFnDependencyNode(nodeNamed(node)).typeName().asChar();
    }
    static int lodVisibility(const std::string& shape) { return intResult("getAttr " + shape + ".lodVisibility"); }
};

TEST_F(SelectionSetTest, CreatingNumbersEachSetAfterTheFreeNumberAndKeepsItsMembers)
{
    ASSERT_TRUE(mel("delete x1E0x1Ehands x1E1x1Espine x1E2x1Eface"));
    ASSERT_TRUE(mel("select -r hand_L_ctrl face.f[2] hand_R_ctrl"));
    EXPECT_EQ(result("OVSelectionSet arms"), "x1E0x1Earms");
    EXPECT_EQ(content("x1E0x1Earms"), "hand_L_ctrl face.f[2] hand_R_ctrl ");
    EXPECT_EQ(result("OVSelectionSet arms spine_ctrl"), "x1E1x1Earms");
    EXPECT_EQ(content("x1E1x1Earms"), "spine_ctrl ");
    EXPECT_EQ(intResult("OVSelectionSet -remove x1E0x1Earms"), 1);
    ASSERT_TRUE(mel("select -cl"));
    // The deleted set's number is free again; nothing selected makes an empty set.
    EXPECT_EQ(result("OVSelectionSet legs"), "x1E0x1Elegs");
    EXPECT_EQ(content("x1E0x1Elegs"), "");
    // A set renamed, here to another place in the order, is found by its new name;
    // its old number is free.
    ASSERT_TRUE(mel("rename x1E0x1Elegs x1E7x1Elegs; select -r face"));
    EXPECT_EQ(intResult("OVSelectionSet -h 1 x1E7x1Elegs"), 1);
    ASSERT_TRUE(mel("OVSelectionSet -m 0 x1E7x1Elegs"));
    EXPECT_EQ(content("x1E7x1Elegs"), "face ");
    EXPECT_EQ(result("OVSelectionSet legs"), "x1E0x1Elegs");
    // A label keeps only what a node name can hold.
    EXPECT_EQ(result("OVSelectionSet \"a b-c:d\" spine_ctrl"), "x1E2x1Ea_b_c_d");
    EXPECT_EQ(typeOf("x1E2x1Ea_b_c_d"), "OVSelectionSetNode");
    EXPECT_TRUE(reports().empty());
}

TEST_F(SelectionSetTest, SelectReplacesAddsOrRemovesByTheWholeModeWithoutSign)
{
    ASSERT_TRUE(mel("select -r spine_ctrl"));
    ASSERT_TRUE(mel("OVSelectionSet -select 0 x1E0x1Ehands"));
    EXPECT_THAT(selection(), ElementsAre("hand_L_ctrl", "hand_R_ctrl"));
    ASSERT_TRUE(mel("select -r spine_ctrl; OVSelectionSet -s -1 x1E0x1Ehands"));
    EXPECT_THAT(selection(), ElementsAre("spine_ctrl", "hand_L_ctrl", "hand_R_ctrl"));
    ASSERT_TRUE(mel("OVSelectionSet -s 2 x1E0x1Ehands"));
    EXPECT_THAT(selection(), ElementsAre("spine_ctrl"));
    ASSERT_TRUE(mel("OVSelectionSet -s 1.9 x1E0x1Ehands"));
    EXPECT_THAT(selection(), ElementsAre("spine_ctrl", "hand_L_ctrl", "hand_R_ctrl"));
    // Mode 3, a name that isn't a set, a set whose members are gone: nothing.
    ASSERT_TRUE(mel("select -r spine_ctrl"));
    EXPECT_TRUE(mel("OVSelectionSet -s 3 x1E0x1Ehands"));
    EXPECT_TRUE(mel("OVSelectionSet -s 0 face"));
    EXPECT_TRUE(mel("OVSelectionSet -s 0 nothere"));
    ASSERT_TRUE(mel("delete spine_ctrl; select -r hand_L_ctrl; OVSelectionSet -s 0 x1E1x1Espine"));
    EXPECT_THAT(selection(), ElementsAre("hand_L_ctrl"));
    // A member renamed is a member no more; the others still select.
    ASSERT_TRUE(mel("rename hand_R_ctrl hand_R_ctrl2; select -cl; OVSelectionSet -s 0 x1E0x1Ehands"));
    EXPECT_THAT(selection(), ElementsAre("hand_L_ctrl"));
    EXPECT_TRUE(reports().empty());
}

TEST_F(SelectionSetTest, ModifyReplacesAppendsOrTakesOutMembersAsOneUndoStepEach)
{
    expectOneUndoStep([] { ASSERT_TRUE(mel("OVSelectionSet -m 1 x1E0x1Ehands spine_ctrl hand_L_ctrl face")); });
    EXPECT_EQ(content("x1E0x1Ehands"), "hand_L_ctrl hand_R_ctrl spine_ctrl face ");
    expectOneUndoStep([] { ASSERT_TRUE(mel("OVSelectionSet -m 2 x1E0x1Ehands hand_L_ctrl face")); });
    EXPECT_EQ(content("x1E0x1Ehands"), "hand_R_ctrl spine_ctrl ");
    expectOneUndoStep([] { ASSERT_TRUE(mel("OVSelectionSet -m 0 x1E0x1Ehands face.f[1] spine_ctrl")); });
    EXPECT_EQ(content("x1E0x1Ehands"), "face.f[1] spine_ctrl ");
    ASSERT_TRUE(mel("select -cl"));
    expectOneUndoStep([] { ASSERT_TRUE(mel("OVSelectionSet -m 0 x1E0x1Ehands")); });
    EXPECT_EQ(content("x1E0x1Ehands"), "");
    const std::string before = sceneText();
    EXPECT_TRUE(mel("OVSelectionSet -m 3 x1E1x1Espine face"));
    EXPECT_TRUE(mel("OVSelectionSet -m 0 hand_L_ctrl face"));
    EXPECT_EQ(sceneText(), before);
}

TEST_F(SelectionSetTest, EachEditIsOneUndoStepAndTheFirstFlagGivenDecides)
{
    ASSERT_TRUE(mel("select -r face.f[0]"));
    expectOneUndoStep([] { EXPECT_EQ(result("OVSelectionSet lips"), "x1E3x1Elips"); });
    expectOneUndoStep([] { EXPECT_EQ(intResult("OVSelectionSet -hide true x1E0x1Ehands"), 1); });
    expectOneUndoStep([] { EXPECT_EQ(intResult("OVSelectionSet -r x1E0x1Ehands"), 1); });
    expectOneUndoStep([] { EXPECT_EQ(intResult("OVSelectionSet -r x1E3x1Elips"), 1); });
    // select before modify before remove before hide.
    ASSERT_TRUE(mel("select -r spine_ctrl"));
    ASSERT_TRUE(mel("OVSelectionSet -r -h true -m 0 -s 1 x1E1x1Espine face"));
    EXPECT_EQ(content("x1E1x1Espine"), "spine_ctrl ");
    ASSERT_TRUE(mel("OVSelectionSet -h true -r -m 1 x1E1x1Espine face"));
    EXPECT_EQ(content("x1E1x1Espine"), "spine_ctrl face ");
    EXPECT_EQ(intResult("OVSelectionSet -h true -r x1E1x1Espine"), 1);
    EXPECT_TRUE(nodeNamed("x1E1x1Espine").isNull()) << "removed, not hidden";
}

TEST_F(SelectionSetTest, HidingTakesShapesOutOfViewAndHidesComponentsUntilShownOrDeleted)
{
    ASSERT_TRUE(mel("OVSelectionSet -m 1 x1E0x1Ehands face.f[1]"));
    expectOneUndoStep([] { ASSERT_TRUE(mel("OVSelectionSet -h on x1E0x1Ehands")); });
    EXPECT_EQ(lodVisibility("hand_L_ctrlShape"), 0);
    EXPECT_EQ(lodVisibility("hand_R_ctrlShape"), 0);
    EXPECT_EQ(intResult("getAttr hand_L_ctrl.visibility"), 1) << "the object's own visibility stays";
    EXPECT_EQ(intResult("hide -tv face.f[1]"), 1);
    EXPECT_EQ(intResult("hide -tv face"), 2) << "only names with a [ go through hide";
    EXPECT_EQ(intResult("getAttr x1E0x1Ehands.hide"), 1);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(lodVisibility("hand_L_ctrlShape"), 1);
    EXPECT_EQ(intResult("hide -tv face.f[1]"), 2);
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(intResult("hide -tv face.f[1]"), 1);

    // New members of a hidden set stay as they are until hide is set again.
    ASSERT_TRUE(mel("OVSelectionSet -m 1 x1E0x1Ehands spine_ctrl"));
    EXPECT_EQ(lodVisibility("spine_ctrlShape"), 1);
    ASSERT_TRUE(mel("OVSelectionSet -h on x1E0x1Ehands"));
    EXPECT_EQ(lodVisibility("spine_ctrlShape"), 0);

    // Deleting a hidden set shows its members; undo hides them again.
    expectOneUndoStep([] { ASSERT_TRUE(mel("delete x1E0x1Ehands")); });
    EXPECT_EQ(lodVisibility("hand_L_ctrlShape"), 1);
    EXPECT_EQ(intResult("hide -tv face.f[1]"), 2);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(lodVisibility("hand_L_ctrlShape"), 0);
    EXPECT_EQ(intResult("hide -tv face.f[1]"), 1);
    expectOneUndoStep([] { ASSERT_TRUE(mel("OVSelectionSet -h off x1E0x1Ehands")); });
    EXPECT_EQ(lodVisibility("spine_ctrlShape"), 1);
    EXPECT_EQ(intResult("hide -tv face.f[1]"), 2);
}

TEST_F(SelectionSetTest, BadCallsFailAndChangeNothing)
{
    const std::string before = sceneText();
    EXPECT_FALSE(mel("OVSelectionSet -select x1E0x1Ehands"));
    EXPECT_FALSE(mel("OVSelectionSet -bogus 1 x1E0x1Ehands"));
    EXPECT_FALSE(mel("OVSelectionSet"));
    EXPECT_FALSE(mel("OVSelectionSet hands nothere"));
    EXPECT_TRUE(mel("OVSelectionSet -s 1e300 x1E0x1Ehands"));
    EXPECT_EQ(intResult("OVSelectionSet -r spine_ctrl"), 0);
    EXPECT_EQ(intResult("OVSelectionSet -h 1 nothere"), 0);
    EXPECT_TRUE(reports().empty()) << "a name that isn't a set is no report";
    EXPECT_EQ(sceneText(), before);
}

TEST_F(SelectionSetTest, SetsTravelWithTheFileAndWithReferences)
{
    ASSERT_TRUE(mel("OVSelectionSet -h 1 x1E0x1Ehands; OVSelectionSet -h 1 x1E2x1Eface"));
    QTemporaryDir folder;
    const std::string path = QDir(folder.path()).filePath(QStringLiteral("sets.ma")).toStdString();
    ASSERT_TRUE(mel("file -rename \"" + path + "\"; file -save -type \"mayaAscii\""));
    const std::string saved = sceneText();
    ASSERT_TRUE(MFileIO::newFile(true));
    ASSERT_TRUE(MFileIO::open(path.c_str(), nullptr, true));
    EXPECT_EQ(sceneText(), saved);
    EXPECT_EQ(content("x1E0x1Ehands"), "hand_L_ctrl hand_R_ctrl ");
    EXPECT_EQ(lodVisibility("hand_R_ctrlShape"), 0);
    EXPECT_EQ(intResult("hide -tv face.f[0:3]"), 1) << "loading the hidden set hides its components";
    ASSERT_TRUE(mel("OVSelectionSet -h 0 x1E0x1Ehands"));
    EXPECT_EQ(lodVisibility("hand_R_ctrlShape"), 1);

    // Referenced: the members, kept without a namespace, are found in the set's.
    ASSERT_TRUE(MFileIO::newFile(true));
    ASSERT_TRUE(mel("file -r -ns \"chr\" \"" + path + "\""));
    EXPECT_EQ(content("chr:x1E0x1Ehands"), "hand_L_ctrl hand_R_ctrl ");
    ASSERT_TRUE(mel("OVSelectionSet -s 0 chr:x1E0x1Ehands"));
    EXPECT_THAT(selection(), ElementsAre("chr:hand_L_ctrl", "chr:hand_R_ctrl"));
    expectOneUndoStep([] { EXPECT_EQ(intResult("OVSelectionSet -h 1 chr:x1E1x1Espine"), 1); });
    EXPECT_EQ(lodVisibility("chr:spine_ctrlShape"), 0);
    // The scene's own sets count their numbers apart from the reference's.
    EXPECT_EQ(result("OVSelectionSet mine chr:face"), "x1E0x1Emine");
}

// The scene text without its requires lines, which name the plug-in's version.
std::string withoutRequirements(const std::string& text)
{
    return std::regex_replace(text, std::regex("requires [^\n]*\n"), "");
}

TEST_F(SelectionSetTest, AForcedUnloadKeepsTheSetsAsUnknownNodesSavedAsBefore)
{
    ASSERT_TRUE(mel("OVSelectionSet -h 1 x1E1x1Espine"));
    const std::string before = withoutRequirements(sceneText());
    ASSERT_TRUE(mel("flushUndo"));
    EXPECT_FALSE(MGlobal::executeCommand("unloadPlugin orvane"));
    mayasim::host::clearOutput();
    ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin -force orvane"));
    for (const auto& line : mayasim::host::output())
        EXPECT_NE(line.kind, mayasim::host::OutputLine::Kind::Warning) << line.text;
    EXPECT_EQ(typeOf("x1E1x1Espine"), "OVSelectionSetNode");
    EXPECT_EQ(withoutRequirements(sceneText()), before);
    ASSERT_TRUE(mel("delete x1E1x1Espine"));
    EXPECT_EQ(lodVisibility("spine_ctrlShape"), 0) << "an unknown node runs no code";
    ASSERT_TRUE(MFileIO::newFile(true));
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
}

// This program has no interface, as Maya in batch mode: the strip's command
// says so and fails, changing nothing.
TEST_F(SelectionSetTest, TheStripNeedsMayasInterface)
{
    const std::string before = sceneText();
    EXPECT_FALSE(mel("OVSelectionSetUi"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: the panel needs Maya's interface; there is none in batch mode\n"));
    EXPECT_FALSE(mel("OVSelectionSetUi -moveUI"));
    EXPECT_EQ(sceneText(), before);
}

} // namespace
