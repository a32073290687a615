// Namespaces: adding, setting and removing them, new nodes going into the
// current one, names and paths that carry them, namespace-aware wildcards,
// locked nodes, and namespaced names in saved files.
#include "FileTest.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

using Namespaces = FileTest;

TEST_F(Namespaces, NewNodesGoIntoTheCurrentNamespaceAndNamesCarryIt)
{
    EXPECT_THAT(melStrings("namespaceInfo -listOnlyNamespaces"), ElementsAre("UI", "shared"));
    EXPECT_EQ(melString("namespaceInfo -currentNamespace"), ":");
    EXPECT_EQ(melString("namespace -add \"FOO\""), "FOO");
    EXPECT_FALSE(mel("namespace -add \"FOO\""));
    EXPECT_EQ(melString("namespace -add \"BAR\" -parent \"FOO\""), "FOO:BAR");
    EXPECT_EQ(melString("namespace -add \"a:b\""), "a:b") << "missing levels are made";
    EXPECT_EQ(melNumber("namespace -exists \"a\""), 1.0);

    ASSERT_TRUE(mel("namespace -set \"FOO\""));
    EXPECT_EQ(melString("namespaceInfo -cur"), "FOO");
    EXPECT_EQ(melString("namespaceInfo -cur -absoluteName"), ":FOO");
    EXPECT_EQ(melString("createNode transform -n \"grp\""), "FOO:grp");
    EXPECT_EQ(melString("createNode transform -p \"FOO:grp\""), "FOO:transform1");
    EXPECT_EQ(melString("createNode transform -n \"ctrl\" -p \"FOO:grp\""), "FOO:ctrl");
    EXPECT_EQ(melString("createNode transform -n \":stage\""), "stage");
    ASSERT_TRUE(mel("namespace -set \"BAR\"")) << "relative to the current namespace";
    EXPECT_EQ(melString("namespaceInfo -cur"), "FOO:BAR");
    ASSERT_TRUE(mel("namespace -set \"..\""));
    EXPECT_EQ(melString("namespaceInfo -cur"), "FOO");
    ASSERT_TRUE(mel("namespace -set \":a:b\""));
    EXPECT_EQ(melString("namespaceInfo -cur -baseName"), "b");
    EXPECT_FALSE(mel("namespace -set \"nowhere\""));
    ASSERT_TRUE(mel("namespace -set \":\""));
    EXPECT_EQ(melString("createNode transform -n \"grp\""), "grp") << "another namespace, another name";

    // Lookups read names from the root, whatever the current namespace.
    EXPECT_THAT(melStrings("ls -l \"FOO:ctrl\""), ElementsAre("|FOO:grp|FOO:ctrl"));
    EXPECT_THAT(melStrings("ls \"|FOO:grp|FOO:ctrl\""), ElementsAre("FOO:ctrl"));
    EXPECT_THAT(melStrings("ls \":FOO:ctrl\""), ElementsAre("FOO:ctrl"));
    EXPECT_FALSE(mel("select \"ctrl\""));
    // Wildcards stay within one namespace level.
    EXPECT_THAT(melStrings("ls \"*\""), ElementsAre(DEFAULT_CAMERAS, "stage", "grp"));
    EXPECT_THAT(melStrings("ls \"FOO:*\""), ElementsAre("FOO:grp", "FOO:transform1", "FOO:ctrl"));
    EXPECT_THAT(melStrings("ls \"*:ctrl\""), ElementsAre("FOO:ctrl"));
    ASSERT_TRUE(mel("select \"FOO:*\""));
    EXPECT_THAT(melStrings("ls -sl"), ElementsAre("FOO:grp", "FOO:transform1", "FOO:ctrl"));

    // A new name is relative to the current namespace unless it starts with ':'.
    EXPECT_EQ(melString("rename \"FOO:transform1\" \"other\""), "other");
    EXPECT_EQ(melString("rename \"other\" \"FOO:other\""), "FOO:other");
    EXPECT_THAT(melStrings("namespaceInfo -listOnlyNamespaces -recurse -internal -absoluteName"),
                ElementsAre(":FOO", ":FOO:BAR", ":a", ":a:b"));
    EXPECT_THAT(melStrings("namespaceInfo -listOnlyDependencyNodes \"FOO\""), ElementsAre("FOO:grp", "FOO:other", "FOO:ctrl"));

    // Namespaced names round-trip through a file.
    const std::string path = scratchFile("spaces.ma");
    ASSERT_TRUE(mel("file -rename \"" + path + "\"; file -save"));
    EXPECT_THAT(contents(path), HasSubstr("createNode transform -n \"FOO:ctrl\" -p \"FOO:grp\";"));
    ASSERT_TRUE(mel("file -f -o \"" + path + "\""));
    EXPECT_THAT(melStrings("ls -l \"FOO:*\""), ElementsAre("|FOO:grp", "|FOO:grp|FOO:other", "|FOO:grp|FOO:ctrl"));
    EXPECT_EQ(melString("namespaceInfo -cur"), ":");
}

TEST_F(Namespaces, RemovingANamespaceNeedsItEmptyOrItsContentMergedOrDeleted)
{
    ASSERT_TRUE(mel("namespace -add \"FOO\"; namespace -add \"BAR\" -parent \"FOO\"; createNode transform -n \"ctrl\"; "
                    "createNode transform -n \"FOO:ctrl\"; createNode transform -n \"FOO:BAR:knob\"; "
                    "namespace -set \"FOO:BAR\""));
    EXPECT_FALSE(mel("namespace -removeNamespace \"FOO\""));
    EXPECT_THAT(errors().back(), HasSubstr("Namespace 'FOO' is not empty."));
    EXPECT_FALSE(mel("namespace -removeNamespace \":\""));
    EXPECT_FALSE(mel("namespace -removeNamespace \"UI\""));

    const std::string before = savedText("before.ma");
    ASSERT_TRUE(mel("namespace -removeNamespace \":FOO\" -mergeNamespaceWithRoot"));
    EXPECT_THAT(melStrings("ls \"*\""), ElementsAre(DEFAULT_CAMERAS, "ctrl", "ctrl1"));
    EXPECT_THAT(melStrings("ls \"BAR:*\""), ElementsAre("BAR:knob"));
    EXPECT_EQ(melNumber("namespace -exists \":FOO\""), 0.0);
    EXPECT_EQ(melString("namespaceInfo -cur"), ":") << "the root takes over from a removed current namespace";
    ASSERT_TRUE(mel("undo"));
    EXPECT_THAT(melStrings("ls \"FOO:*\""), ElementsAre("FOO:ctrl"));
    EXPECT_EQ(melString("namespaceInfo -cur"), "FOO:BAR");
    EXPECT_EQ(savedText("undone.ma"), before);

    ASSERT_TRUE(mel("namespace -removeNamespace \"FOO\" -deleteNamespaceContent"));
    EXPECT_THAT(melStrings("ls"), ElementsAre(DEFAULT_CAMERAS, "ctrl"));
    EXPECT_THAT(melStrings("namespaceInfo -listOnlyNamespaces -recurse -internal"), ElementsAre());
    ASSERT_TRUE(mel("namespace -add \"EMPTY\"; namespace -removeNamespace \"EMPTY\""));
    EXPECT_EQ(melNumber("namespace -exists \"EMPTY\""), 0.0);
}

TEST_F(Namespaces, ALockedNodeCannotBeDeletedRenamedOrReparented)
{
    ASSERT_TRUE(mel("createNode transform -n \"grp\"; createNode transform -n \"held\"; lockNode -lock true \"held\""));
    EXPECT_THAT(melNumbers("lockNode -q \"held\""), ElementsAre(1.0));
    EXPECT_FALSE(mel("delete \"held\""));
    EXPECT_THAT(errors().back(), HasSubstr("Cannot delete locked node 'held'."));
    EXPECT_FALSE(mel("rename \"held\" \"other\""));
    EXPECT_FALSE(mel("parent \"held\" \"grp\""));
    EXPECT_FALSE(mel("addAttr -ln \"extra\" -at double \"held\""));
    EXPECT_FALSE(mel("setAttr -l on \"held.tx\""));
    EXPECT_TRUE(mel("setAttr \"held.tx\" 2")) << "values still change";

    const std::string path = scratchFile("locked.ma");
    ASSERT_TRUE(mel("file -rename \"" + path + "\"; file -save"));
    EXPECT_THAT(contents(path), HasSubstr("\tsetAttr \".tx\" 2;\nlockNode -l 1 ;\n"));
    ASSERT_TRUE(mel("file -f -o \"" + path + "\""));
    EXPECT_THAT(melNumbers("lockNode -q \"held\""), ElementsAre(1.0));
    ASSERT_TRUE(mel("lockNode -l 0 \"held\"; delete \"held\""));
}

} // namespace
