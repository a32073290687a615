#include "engine/Command.h"
#include "engine/Interpreter.h"
#include "engine/Output.h"
#include "file/MayaAscii.h"
#include "file/Statements.h"
#include "scene/NodeType.h"

#include <fstream>
#include <set>
#include <sstream>

namespace mayasim::file {

namespace {

// The words of a statement, quotes removed ("createNode", "transform", ...).
std::vector<std::string> wordsOf(const std::string& text)
{
    std::vector<std::string> words;
    std::istringstream in(text);
    std::string word;
    while (in >> std::ws && !in.eof())
    {
        if (in.peek() == '"')
        {
            in.get();
            std::getline(in, word, '"');
        }
        else
        {
            in >> word;
        }
        words.push_back(word);
    }
    return words;
}

// The node type a createNode statement names, or "" for other statements.
std::string createdType(const std::string& statement)
{
    const std::vector<std::string> words = wordsOf(statement);
    if (words.empty() || words[0] != "createNode")
        return {};
    static const std::set<std::string> flagsWithArgument = {"-n", "-name", "-p", "-parent"};
    for (size_t i = 1; i < words.size(); ++i)
    {
        if (flagsWithArgument.count(words[i]))
            ++i;
        else if (words[i].empty() || words[i][0] != '-')
            return words[i];
    }
    return {};
}

// Node types the file uses that mayasim doesn't know are registered as
// generic types for the length of the read, so the file's own createNode,
// setAttr and connectAttr keep their nodes and attributes.
class UnknownTypes
{
public:
    UnknownTypes(const std::string& path) : fPath(path) {}
    ~UnknownTypes()
    {
        for (const NodeTypePtr& type : fRegistered)
            deregisterNodeType(type);
    }
    UnknownTypes(const UnknownTypes&) = delete;
    UnknownTypes& operator=(const UnknownTypes&) = delete;

    void declare(const Statement& statement)
    {
        const std::string typeName = createdType(statement.text);
        if (typeName.empty() || findNodeType(typeName))
            return;
        const NodeTypePtr type = unknownNodeType(typeName);
        registerNodeType(type);
        fRegistered.push_back(type);
        writeOutput(OutputKind::Warning, "file: " + fPath + " line " + std::to_string(statement.line) +
                                             ": Unrecognized node type '" + typeName +
                                             "'; preserving node information during this session.");
    }

private:
    std::string fPath;
    std::vector<NodeTypePtr> fRegistered;
};

} // namespace

void readMayaAscii(const std::string& path, bool asReference)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw MelError("Could not read file: " + path);
    std::ostringstream text;
    text << in.rdbuf();

    UnknownTypes unknownTypes(path);
    bool failed = false;
    // A referenced file brings nodes, not the scene's settings.
    static const std::set<std::string> sceneSettings = {"fileInfo", "currentUnit", "playbackOptions"};
    for (const Statement& statement : splitStatements(text.str()))
    {
        if (asReference)
            if (const std::vector<std::string> words = wordsOf(statement.text);
                !words.empty() && sceneSettings.count(words.front()))
                continue;
        unknownTypes.declare(statement);
        if (executeMel(statement.text + ";", RunOptions{false, false, statement.line}).ok)
            continue;
        failed = true;
        // The relative setAttr lines after a failed "select -ne :node" must
        // not fall on the node selected before it.
        if (wordsOf(statement.text).front() == "select")
            runMel("select -clear", nullptr, false);
    }
    if (failed)
        writeOutput(OutputKind::Warning, "Errors have occurred while reading this scene that may result in data "
                                         "loss. Please check the Script Editor for details.");
}

} // namespace mayasim::file
