#include "file/SceneFile.h"

#include "engine/Command.h"
#include "engine/Events.h"
#include "engine/FileInfo.h"
#include "engine/UndoQueue.h"
#include "file/MayaAscii.h"
#include "openmayaanim/TimeControl.h"
#include "scene/DefaultCameras.h"
#include "scene/Namespaces.h"
#include "scene/Operations.h"
#include "scene/Scene.h"
#include "scene/Selection.h"

#include <maya/MSceneMessage.h>

#include <cctype>
#include <filesystem>
#include <set>
#include <utility>

namespace mayasim::file {

namespace {

struct Document
{
    std::string path;
    bool modified = false;
    bool reading = false;
    bool writing = false;
    bool opening = false;
    bool newing = false;
    bool importing = false;
    bool referencing = false;
};

Document& document()
{
    static Document instance;
    return instance;
}

// Sets a document flag for the length of an operation.
class During
{
public:
    explicit During(bool& flag) : fFlag(flag) { fFlag = true; }
    ~During() { fFlag = false; }
    During(const During&) = delete;
    During& operator=(const During&) = delete;

private:
    bool& fFlag;
};

std::string absolute(const std::string& path)
{
    return std::filesystem::absolute(std::filesystem::path(path)).lexically_normal().generic_string();
}

void requireNoUnsavedChanges(bool force)
{
    if (!force && document().modified)
        throw MelError("Unsaved changes.");
}

// Check callbacks may cancel the operation (MSceneMessage::addCheckCallback).
void requireChecksPass(int checkMessage)
{
    if (!events::fireSceneCheck(checkMessage))
        throw MelError("The operation was cancelled by a callback.");
}

// The nodes, the selection, fileInfo and the undo queue go; the document
// becomes untitled.
void clearScene()
{
    selection::setActive(MSelectionList());
    for (const NodePtr& node : scene::nodes())
        node->alive = false;
    scene::clear();
    ns::reset();
    references::clear();
    clearFileInfo();
    undo::flush();
    anim::resetTime();
    cameras::createDefaultCameras();
}

void readInto(const std::string& path, bool& phase, bool asReference = false)
{
    During during(phase);
    During reading(document().reading);
    events::fireSceneMessage(MSceneMessage::kBeforeFileRead);
    // The file's select lines only aim its relative setAttr lines: reading
    // leaves the selection as it was (empty after clearing for open).
    const MSelectionList selected = selection::active();
    try
    {
        readMayaAscii(path, asReference);
    }
    catch (...)
    {
        selection::setActive(selected);
        throw;
    }
    selection::setActive(selected);
    events::fireSceneMessage(MSceneMessage::kAfterFileRead);
}

void requireReadable(const std::string& path)
{
    if (!std::filesystem::is_regular_file(path))
        throw MelError("File not found: " + path);
}

// The reference whose file is being read, which the references its file
// makes are nested in.
ReferencePtr& readingReference()
{
    static ReferencePtr instance;
    return instance;
}

class ReadingReference
{
public:
    explicit ReadingReference(ReferencePtr reference) : fOuter(std::exchange(readingReference(), std::move(reference)))
    {
    }
    ~ReadingReference() { readingReference() = fOuter; }
    ReadingReference(const ReadingReference&) = delete;
    ReadingReference& operator=(const ReadingReference&) = delete;

private:
    ReferencePtr fOuter;
};

// Maya names a reference node after its namespace without its number:
// "rig" -> "rigRN", "rig1" -> "rigRN1" when "rigRN" is taken.
std::string referenceNodeName(const std::string& space)
{
    std::string base = ns::baseName(space);
    while (!base.empty() && std::isdigit(static_cast<unsigned char>(base.back())))
        base.pop_back();
    return scene::uniqueName(ns::join(ns::namespaceOf(space), base + "RN"), nullptr, nullptr);
}

// The reference nodes a file read didn't make for the references its lines
// made (lines written by hand), or a reference made by command needs (null
// `parent`: the scene's own references). They are locked, as Maya's are.
void makeMissingReferenceNodes(const ReferencePtr& parent)
{
    for (const ReferencePtr& reference : references::all())
    {
        if (reference->parent.lock() != parent || references::referenceNode(*reference))
            continue;
        EditList edits;
        NodePtr node = ops::createNode(edits, "reference", ":" + reference->nodeName, nullptr);
        edits.run(editing::setNodeLocked(node, true));
    }
}

// Reads a reference's file into its namespace and marks what it made.
std::vector<NodePtr> readReference(const ReferencePtr& reference)
{
    std::set<const Node*> before;
    for (const NodePtr& node : scene::nodes())
        before.insert(node.get());
    {
        EditList edits;
        ns::add(edits, reference->space);
    }
    {
        ns::ReadingInside inside(reference->space);
        ReadingReference reading(reference);
        readInto(reference->path, document().referencing, true);
        makeMissingReferenceNodes(reference);
    }
    std::vector<NodePtr> made;
    for (const NodePtr& node : scene::nodes())
        if (!before.count(node.get()))
            made.push_back(node);
    references::markLoaded(reference, made);
    return made;
}

bool nestedIn(const ReferencePtr& reference, const ReferencePtr& outer)
{
    for (ReferencePtr at = reference; at; at = at->parent.lock())
        if (at == outer)
            return true;
    return false;
}

// Takes out the nodes read from a reference and from the references nested
// in it, with those references. The reference itself stays.
void unloadNodes(const ReferencePtr& reference)
{
    std::vector<NodePtr> doomed;
    for (const NodePtr& node : scene::nodes())
        if (node->origin && nestedIn(node->origin->reference, reference))
            doomed.push_back(node);
    EditList edits;
    for (const NodePtr& node : doomed)
    {
        node->origin.reset();
        node->locked = false;
    }
    for (const NodePtr& node : doomed)
        ops::deleteNode(edits, node);
    for (const ReferencePtr& other : std::vector<ReferencePtr>(references::all()))
        if (other != reference && nestedIn(other, reference))
            references::remove(other);
}

void requireTopLevel(const ReferencePtr& reference)
{
    if (reference->parent.lock())
        throw MelError("The reference '" + reference->nodeName + "' is nested in another reference.");
}

} // namespace

const std::string& scenePath()
{
    return document().path;
}

std::string currentFile()
{
    if (!document().path.empty())
        return document().path;
    return absolute("untitled");
}

void rename(const std::string& path)
{
    document().path = path.empty() ? std::string() : absolute(path);
}

bool modified()
{
    return document().modified;
}

void setModified(bool modified)
{
    document().modified = modified;
}

void newScene(bool force)
{
    requireNoUnsavedChanges(force);
    requireChecksPass(MSceneMessage::kBeforeNewCheck);
    During newing(document().newing);
    events::fireEvent("PreFileNewOrOpened");
    events::fireEvent("PreFileNew");
    events::fireSceneMessage(MSceneMessage::kBeforeNew);
    clearScene();
    document().path.clear();
    document().modified = false;
    events::fireSceneMessage(MSceneMessage::kAfterNew);
    events::fireEvent("NewSceneOpened");
}

void open(const std::string& path, bool force)
{
    requireReadable(path);
    requireNoUnsavedChanges(force);
    requireChecksPass(MSceneMessage::kBeforeOpenCheck);
    const std::string fullPath = absolute(path);
    {
        During opening(document().opening);
        events::fireEvent("PreFileNewOrOpened");
        events::fireEvent("PreFileOpened");
        events::fireSceneMessage(MSceneMessage::kBeforeOpen);
        clearScene();
        document().path = fullPath;
        readInto(fullPath, document().opening);
        makeMissingReferenceNodes(nullptr);
        // The file's own edits are not undoable, and leave the scene unmodified.
        undo::flush();
        document().modified = false;
    }
    events::fireSceneMessage(MSceneMessage::kAfterOpen);
    events::fireSceneMessage(MSceneMessage::kAfterSceneReadAndRecordEdits);
    events::fireEvent("SceneOpened");
    events::fireEvent("PostSceneRead");
}

void import(const std::string& path)
{
    requireReadable(path);
    requireChecksPass(MSceneMessage::kBeforeImportCheck);
    events::fireSceneMessage(MSceneMessage::kBeforeImport);
    const size_t referenceCount = references::all().size();
    readInto(absolute(path), document().importing);
    makeMissingReferenceNodes(nullptr);
    // References the file made can't be undone, nor can what they stand on.
    if (references::all().size() != referenceCount)
        undo::flush();
    events::fireSceneMessage(MSceneMessage::kAfterImport);
    events::fireSceneMessage(MSceneMessage::kAfterSceneReadAndRecordEdits);
    events::fireEvent("SceneImported");
    events::fireEvent("PostSceneRead");
}

void save()
{
    if (document().path.empty())
        throw MelError("Untitled scene: rename it before saving.");
    requireChecksPass(MSceneMessage::kBeforeSaveCheck);
    events::fireSceneMessage(MSceneMessage::kBeforeSave);
    {
        During writing(document().writing);
        writeMayaAscii(document().path);
    }
    document().modified = false;
    events::fireSceneMessage(MSceneMessage::kAfterSave);
    events::fireEvent("SceneSaved");
}

void saveAs(const std::string& path)
{
    const std::string previous = document().path;
    rename(path);
    try
    {
        save();
    }
    catch (const MelError&)
    {
        document().path = previous;
        throw;
    }
}

void exportAll(const std::string& path)
{
    requireChecksPass(MSceneMessage::kBeforeExportCheck);
    events::fireSceneMessage(MSceneMessage::kBeforeExport);
    {
        During writing(document().writing);
        writeMayaAscii(absolute(path));
    }
    events::fireSceneMessage(MSceneMessage::kAfterExport);
}

CreatedReference createReference(const std::string& path, const std::string& space, const std::string& nodeName)
{
    requireReadable(path);
    // A file's own reference line reads it as part of the file: no create
    // messages, no checks, and the file makes the reference node.
    const bool inFile = reading();
    if (!inFile)
        requireChecksPass(MSceneMessage::kBeforeCreateReferenceCheck);
    const std::string wanted = space.empty() ? std::filesystem::path(path).stem().string() : space;
    const bool fromRoot = !wanted.empty() && wanted[0] == ':';
    const std::string valid = ns::validName(wanted.substr(fromRoot ? 1 : 0));
    if (valid.empty() || valid.back() == ':')
        throw MelError("Invalid namespace name: " + wanted);
    const std::string fullSpace = ns::uniqueChild(fromRoot ? std::string() : ns::current(), valid);
    const std::string refNode = nodeName.empty() ? referenceNodeName(fullSpace) : ns::qualify(nodeName);
    if (!inFile)
        events::fireSceneMessage(MSceneMessage::kBeforeCreateReference);
    events::fireSceneMessage(MSceneMessage::kBeforeLoadReference);
    const ReferencePtr reference = references::add(absolute(path), fullSpace, refNode, readingReference());
    std::vector<NodePtr> made = readReference(reference);
    if (!inFile)
        makeMissingReferenceNodes(nullptr);
    events::fireSceneMessage(MSceneMessage::kAfterLoadReference);
    if (inFile)
        return {reference, made};
    events::fireSceneMessage(MSceneMessage::kAfterCreateReference);
    events::fireSceneMessage(MSceneMessage::kAfterSceneReadAndRecordEdits);
    // Referencing is not undoable; what the queue holds may name the scene
    // from before.
    undo::flush();
    return {reference, made};
}

void loadReference(const ReferencePtr& reference)
{
    requireTopLevel(reference);
    requireReadable(reference->path);
    requireChecksPass(MSceneMessage::kBeforeLoadReferenceCheck);
    const std::string edits = referenceEdits(*reference);
    events::fireSceneMessage(MSceneMessage::kBeforeLoadReference);
    unloadNodes(reference);
    readReference(reference);
    runMel(edits, nullptr, false);
    events::fireSceneMessage(MSceneMessage::kAfterLoadReference);
    undo::flush();
}

void removeReference(const ReferencePtr& reference)
{
    requireTopLevel(reference);
    events::fireSceneMessage(MSceneMessage::kBeforeRemoveReference);
    unloadNodes(reference);
    if (NodePtr node = references::referenceNode(*reference))
    {
        EditList edits;
        node->locked = false;
        ops::deleteNode(edits, node);
    }
    references::remove(reference);
    // Its namespace goes with it when nothing else lives there.
    if (ns::nodesIn(reference->space, true).empty())
    {
        EditList edits;
        std::vector<std::string> spaces = ns::under(reference->space, true);
        for (auto it = spaces.rbegin(); it != spaces.rend(); ++it)
            ns::remove(edits, *it);
        ns::remove(edits, reference->space);
    }
    events::fireSceneMessage(MSceneMessage::kAfterRemoveReference);
    undo::flush();
}

bool reading()
{
    return document().reading;
}

bool writing()
{
    return document().writing;
}

bool opening()
{
    return document().opening;
}

bool newing()
{
    return document().newing;
}

bool importing()
{
    return document().importing;
}

void resetDocument()
{
    clearScene();
    document() = Document{};
}

} // namespace mayasim::file
