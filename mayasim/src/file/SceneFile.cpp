#include "file/SceneFile.h"

#include "engine/Command.h"
#include "engine/Events.h"
#include "engine/FileInfo.h"
#include "engine/UndoQueue.h"
#include "file/MayaAscii.h"
#include "openmayaanim/TimeControl.h"
#include "scene/Scene.h"
#include "scene/Selection.h"

#include <maya/MSceneMessage.h>

#include <filesystem>

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
    clearFileInfo();
    undo::flush();
    anim::resetTime();
}

void readInto(const std::string& path, bool& phase)
{
    During during(phase);
    During reading(document().reading);
    events::fireSceneMessage(MSceneMessage::kBeforeFileRead);
    // The file's select lines only aim its relative setAttr lines: reading
    // leaves the selection as it was (empty after clearing for open).
    const MSelectionList selected = selection::active();
    try
    {
        readMayaAscii(path);
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
    readInto(absolute(path), document().importing);
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
