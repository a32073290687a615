// File references: a rig read into a namespace as read-only nodes that still
// take values and keys, the scene messages around creating, loading and
// removing a reference, and scenes that save their references and edits.
#include "FileTest.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MSceneMessage.h>

#include <gmock/gmock.h>

#include <deque>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

// The scene messages heard, by number.
class SceneMessageLog
{
public:
    SceneMessageLog()
    {
        for (int message = MSceneMessage::kSceneUpdate; message < MSceneMessage::kLast; ++message)
        {
            fListeners.push_back({&heard, message});
            fIds.append(MSceneMessage::addCallback(static_cast<MSceneMessage::Message>(message), record,
                                                   &fListeners.back()));
        }
    }
    ~SceneMessageLog() { MMessage::removeCallbacks(fIds); }

    std::vector<int> heard;

private:
    struct Listener
    {
        std::vector<int>* log;
        int message;
    };
    static void record(void* clientData)
    {
        auto* listener = static_cast<Listener*>(clientData);
        listener->log->push_back(listener->message);
    }

    std::deque<Listener> fListeners;
    MCallbackIdArray fIds;
};

const char* const kRig = R"(//Maya ASCII 2022 scene
requires maya "2022";
currentUnit -l centimeter -a degree -t film;
fileInfo "application" "rigging";
createNode transform -n "rig_grp";
createNode transform -n "ctrl" -p "rig_grp";
	addAttr -ci true -sn "blend" -ln "blend" -at "double" -min 0 -max 1 -k true;
	setAttr ".ty" 2;
	setAttr -l on ".sx";
createNode locator -n "ctrlShape" -p "ctrl";
createNode transform -n "driven";
createNode animCurveUU -n "driven_tz";
	setAttr -s 2 ".ktv[0:1]"  0 0 1 10;
connectAttr "ctrl.ty" "driven.ty";
connectAttr "ctrl.blend" "driven_tz.i";
connectAttr "driven_tz.o" "driven.tz";
playbackOptions -min 1 -max 48 -ast 1 -aet 48;
)";

class References : public FileTest
{
protected:
    void SetUp() override
    {
        FileTest::SetUp();
        rig = scratchFile("rig.ma");
        write(rig, kRig);
    }

    static bool referenced(const std::string& node)
    {
        MSelectionList list;
        MObject object;
        return list.add(node.c_str()) && list.getDependNode(0, object) &&
               MFnDependencyNode(object).isFromReferencedFile();
    }

    std::string rig;
};

TEST_F(References, ReferencedNodesAreReadOnlyButTakeValuesAndKeys)
{
    ASSERT_TRUE(mel("createNode transform -n \"prop\"; playbackOptions -min 1 -max 30"));
    SceneMessageLog log;
    ASSERT_TRUE(mel("file -r -ns \"rig\" \"" + rig + "\""));
    EXPECT_THAT(log.heard, ElementsAre(MSceneMessage::kBeforeCreateReference, MSceneMessage::kBeforeLoadReference,
                                       MSceneMessage::kBeforeFileRead, MSceneMessage::kAfterFileRead,
                                       MSceneMessage::kAfterLoadReference, MSceneMessage::kAfterCreateReference,
                                       MSceneMessage::kAfterSceneReadAndRecordEdits));

    // The file's nodes are in the namespace, its reference node in the scene.
    EXPECT_THAT(melStrings("ls \"rig:*\""), ElementsAre("rig:rig_grp", "rig:ctrl", "rig:ctrlShape", "rig:driven", "rig:driven_tz"));
    EXPECT_THAT(melStrings("ls \"*\""), ElementsAre(DEFAULT_CAMERAS, "prop", "rigRN"));
    EXPECT_THAT(melStrings("ls -l \"rig:ctrl\""), ElementsAre("|rig:rig_grp|rig:ctrl"));
    EXPECT_EQ(typeOf("rigRN"), "reference");
    EXPECT_TRUE(referenced("rig:ctrl"));
    EXPECT_TRUE(referenced("|rig:rig_grp|rig:ctrl|rig:ctrlShape"));
    EXPECT_FALSE(referenced("rigRN"));
    EXPECT_FALSE(referenced("prop"));
    EXPECT_EQ(melNumber("referenceQuery -isNodeReferenced \"rig:ctrl\""), 1.0);
    EXPECT_EQ(melNumber("referenceQuery -isNodeReferenced prop"), 0.0);
    EXPECT_EQ(melString("referenceQuery -filename \"rig:ctrl\""), rig);
    EXPECT_EQ(melString("referenceQuery -namespace \"rig:ctrl\""), ":rig");
    EXPECT_EQ(melString("referenceQuery -referenceNode \"rig:ctrl\""), "rigRN");
    EXPECT_EQ(melNumber("getAttr \"rig:ctrl.ty\""), 2.0);
    // A referenced file brings nodes, not the scene's settings.
    EXPECT_EQ(melString("fileInfo -q \"application\""), "");
    EXPECT_EQ(melNumber("playbackOptions -q -max"), 30.0);
    // Referencing is not undoable, and nothing before it can be undone.
    EXPECT_EQ(melString("undoInfo -q -undoName"), "");

    // Read-only: what Maya refuses on a referenced node fails and changes nothing.
    const std::string before = savedText("before.ma");
    EXPECT_FALSE(mel("delete \"rig:ctrl\""));
    EXPECT_FALSE(mel("rename \"rig:ctrl\" \"mine\""));
    EXPECT_FALSE(mel("parent -w \"rig:ctrl\""));
    EXPECT_FALSE(mel("setAttr -l off \"rig:ctrl.sx\""));
    EXPECT_FALSE(mel("deleteAttr \"rig:ctrl.blend\""));
    EXPECT_FALSE(mel("delete rigRN"));
    {
        MSelectionList list;
        MObject curve;
        ASSERT_TRUE(list.add("rig:driven_tz") && list.getDependNode(0, curve));
        EXPECT_EQ(MFnAnimCurve(curve).setValue(1, 20), MS::kFailure) << "a referenced curve keeps its keys";
    }
    EXPECT_THAT(errors(), Contains(HasSubstr("Cannot delete 'rig:ctrl' because it is from a referenced file.")));
    EXPECT_THAT(errors(), Contains(HasSubstr("Cannot delete locked node 'rigRN'.")));
    EXPECT_EQ(savedText("refused.ma"), before);

    // Edits: values, locks, new attributes and keys on its channels. The
    // curve is the scene's own node, named without the namespace.
    ASSERT_TRUE(mel("setAttr \"rig:ctrl.tx\" 3; setAttr -l on \"rig:ctrl.sy\"; addAttr -ln \"note\" -at double "
                    "\"rig:ctrl\""));
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 0 \"rig:ctrl.tz\""));
    ASSERT_TRUE(mel("setKeyframe -t 10 -v 5 \"rig:ctrl.tz\""));
    EXPECT_THAT(melStrings("ls -type animCurve \"*\""), ElementsAre("ctrl_translateZ"));
    EXPECT_FALSE(referenced("ctrl_translateZ"));
    EXPECT_EQ(melNumber("getAttr \"rig:ctrl.tx\""), 3.0);
    ASSERT_TRUE(mel("undo"));
    EXPECT_THAT(melNumbers("keyframe -q -vc \"rig:ctrl.tz\""), ElementsAre(0.0));
    ASSERT_TRUE(mel("redo"));
    EXPECT_THAT(melNumbers("keyframe -q -vc \"rig:ctrl.tz\""), ElementsAre(0.0, 5.0));
}

TEST_F(References, ASavedSceneReadsBackItsReferenceAndEdits)
{
    ASSERT_TRUE(mel("file -r -ns \"rig\" \"" + rig + "\""));
    ASSERT_TRUE(mel("setAttr \"rig:ctrl.tx\" 3; setAttr -l on \"rig:ctrl.sy\"; addAttr -ln \"note\" -at double "
                    "\"rig:ctrl\"; setKeyframe -t 1 -v 0 \"rig:ctrl.tz\"; setKeyframe -t 10 -v 5 \"rig:ctrl.tz\"; "
                    "disconnectAttr \"rig:ctrl.ty\" \"rig:driven.ty\"; setAttr \"rig:driven.ty\" 7"));
    const std::string path = scratchFile("shot.ma");
    ASSERT_TRUE(mel("file -rename \"" + path + "\"; file -save"));
    const std::string text = contents(path);
    // Maya's header lines, then the scene's own nodes and the edits; the
    // referenced file's own lines stay in it.
    EXPECT_THAT(text, HasSubstr("//Codeset: UTF-8\nfile -rdi 1 -ns \"rig\" -rfn \"rigRN\" -op \"v=0;\" -typ "
                                "\"mayaAscii\" \"" + rig + "\";\nfile -r -ns \"rig\" -dr 1 -rfn \"rigRN\" -op \"v=0;\" "
                                "-typ \"mayaAscii\" \"" + rig + "\";\nrequires maya \"2022\";"));
    EXPECT_THAT(text, HasSubstr("createNode reference -n \"rigRN\";"));
    EXPECT_THAT(text, HasSubstr("lockNode -l 1 ;"));
    EXPECT_THAT(text, HasSubstr("select -ne \"rig:ctrl\";\n\taddAttr -ci true -sn \"note\" -ln \"note\" -at \"double\";"
                                "\n\tsetAttr \".tx\" 3;\n\tsetAttr -l on \".sy\";\n"));
    EXPECT_THAT(text, HasSubstr("select -ne \"rig:driven\";\n\tsetAttr \".ty\" 7;\n"));
    EXPECT_THAT(text, HasSubstr("disconnectAttr \"rig:ctrl.ty\" \"rig:driven.ty\";\n"));
    EXPECT_THAT(text, HasSubstr("connectAttr \"ctrl_translateZ.o\" \"rig:ctrl.tz\";\n"));
    EXPECT_THAT(text, Not(HasSubstr("createNode transform -n \"rig:ctrl\"")));
    EXPECT_THAT(text, Not(HasSubstr("-max 1 -k true")));
    const std::string saved = savedText("saved.ma");

    SceneMessageLog log;
    ASSERT_TRUE(mel("file -f -o \"" + path + "\""));
    EXPECT_THAT(log.heard, ElementsAre(MSceneMessage::kBeforeOpen, MSceneMessage::kBeforeFileRead,
                                       MSceneMessage::kBeforeLoadReference, MSceneMessage::kBeforeFileRead,
                                       MSceneMessage::kAfterFileRead, MSceneMessage::kAfterLoadReference,
                                       MSceneMessage::kAfterFileRead, MSceneMessage::kAfterOpen,
                                       MSceneMessage::kAfterSceneReadAndRecordEdits));
    EXPECT_THAT(errors(), ElementsAre());
    EXPECT_EQ(melString("undoInfo -q -undoName"), "") << "opening a scene is no undo step";
    EXPECT_TRUE(referenced("rig:ctrl"));
    EXPECT_EQ(melNumber("getAttr \"rig:ctrl.tx\""), 3.0);
    EXPECT_EQ(melNumber("getAttr \"rig:driven.ty\""), 7.0);
    EXPECT_EQ(melNumber("getAttr -l \"rig:ctrl.sy\""), 1.0);
    EXPECT_THAT(melNumbers("keyframe -q -vc \"rig:ctrl.tz\""), ElementsAre(0.0, 5.0));
    EXPECT_FALSE(mel("delete \"rig:ctrl\""));
    EXPECT_EQ(savedText("saved.ma"), saved);
}

TEST_F(References, ReloadingKeepsTheEditsAndRemovingTakesTheNodesAndNamespace)
{
    ASSERT_TRUE(mel("file -r -ns \"rig\" \"" + rig + "\""));
    ASSERT_TRUE(mel("setAttr \"rig:ctrl.tx\" 3; setKeyframe -t 1 -v 4 \"rig:ctrl.tz\""));
    const std::string edited = savedText("edited.ma");

    SceneMessageLog log;
    EXPECT_EQ(melString("file -loadReference \"rigRN\""), rig);
    EXPECT_THAT(log.heard, ElementsAre(MSceneMessage::kBeforeLoadReference, MSceneMessage::kBeforeFileRead,
                                       MSceneMessage::kAfterFileRead, MSceneMessage::kAfterLoadReference));
    EXPECT_EQ(savedText("edited.ma"), edited);
    EXPECT_EQ(melNumber("getAttr \"rig:ctrl.tz\""), 4.0);

    // A second reference to the same file: its own namespace, node and copy number.
    ASSERT_TRUE(mel("file -r -ns \"rig\" \"" + rig + "\""));
    EXPECT_THAT(melStrings("file -q -reference"), ElementsAre(rig, rig + "{1}"));
    EXPECT_EQ(melString("referenceQuery -referenceNode \"rig1:ctrl\""), "rigRN1");
    EXPECT_EQ(melString("referenceQuery -filename -withoutCopyNumber \"rig1:ctrl\""), rig);

    log.heard.clear();
    ASSERT_TRUE(mel("file -removeReference -referenceNode \"rigRN\""));
    EXPECT_THAT(log.heard, ElementsAre(MSceneMessage::kBeforeRemoveReference, MSceneMessage::kAfterRemoveReference));
    EXPECT_THAT(melStrings("ls \"rig:*\""), ElementsAre());
    EXPECT_EQ(melNumber("namespace -exists \"rig\""), 0.0);
    // The scene's curve stays, with nothing left to drive.
    EXPECT_THAT(melStrings("ls -type animCurve \"*\""), ElementsAre("ctrl_translateZ"));
    EXPECT_THAT(melStrings("listConnections \"ctrl_translateZ\""), ElementsAre());
    ASSERT_TRUE(mel("file -removeReference \"" + rig + "{1}\""));
    EXPECT_THAT(melStrings("file -q -reference"), ElementsAre());
    EXPECT_THAT(melStrings("ls -type reference"), ElementsAre());
    EXPECT_FALSE(mel("file -removeReference \"" + rig + "\""));
}

TEST_F(References, AReferencedFileCanReferenceAnother)
{
    const std::string prop = scratchFile("prop.ma");
    write(prop, "createNode transform -n \"handle\";\n");
    write(rig, "file -r -ns \"prop\" -dr 1 -rfn \"propRN\" \"" + prop + "\";\n" + kRig +
                   "createNode reference -n \"propRN\";\nlockNode -l 1 ;\n");
    ASSERT_TRUE(mel("file -r -ns \"rig\" \"" + rig + "\""));
    EXPECT_TRUE(referenced("rig:prop:handle"));
    EXPECT_TRUE(referenced("rig:propRN"));
    EXPECT_EQ(melString("referenceQuery -referenceNode \"rig:prop:handle\""), "rig:propRN");
    EXPECT_EQ(melString("referenceQuery -namespace \"rig:prop:handle\""), ":rig:prop");
    EXPECT_THAT(melStrings("file -q -reference"), ElementsAre(rig));
    EXPECT_THAT(melStrings("namespaceInfo -listOnlyNamespaces -recurse -internal"), ElementsAre("rig", "rig:prop"));
    ASSERT_TRUE(mel("setAttr \"rig:prop:handle.tx\" 2"));
    const std::string saved = savedText("nested.ma");
    EXPECT_THAT(saved, Not(HasSubstr("propRN\" -op")));
    ASSERT_TRUE(mel("file -f -o \"" + scratchFile("nested.ma") + "\""));
    EXPECT_EQ(melNumber("getAttr \"rig:prop:handle.tx\""), 2.0);
    EXPECT_FALSE(mel("file -removeReference -referenceNode \"rig:propRN\""));
    ASSERT_TRUE(mel("file -removeReference -referenceNode \"rigRN\""));
    EXPECT_THAT(melStrings("ls"), ElementsAre(DEFAULT_CAMERAS));
    EXPECT_THAT(melStrings("namespaceInfo -listOnlyNamespaces -recurse -internal"), ElementsAre());
}

} // namespace
