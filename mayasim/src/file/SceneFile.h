#pragma once
// The open scene as a document: its file, whether it changed since it was
// read or written, and the file operations with the messages Maya raises
// around them. The `file` command and MFileIO both come here; each
// operation throws MelError in Maya's words when it can't be done.
#include "scene/References.h"

#include <string>

namespace mayasim::file {

// The scene's file path; empty while the scene is untitled.
const std::string& scenePath();
// What MFileIO::currentFile reports: the path, or "<directory>/untitled".
std::string currentFile();
void rename(const std::string& path);

bool modified();
void setModified(bool modified);

// File > New. Without force, unsaved changes make it fail.
void newScene(bool force);
// File > Open: replaces the scene with the file's.
void open(const std::string& path, bool force);
// File > Import: adds the file's nodes to the scene.
void import(const std::string& path);
// Saves to the scene's own path (rename first), or exports everything to
// another file without changing the scene's path.
void save();
// Renames and saves; the scene keeps its old path when saving fails.
void saveAs(const std::string& path);
void exportAll(const std::string& path);

// File > Create Reference: reads the file's nodes into a namespace of its
// own (the name wanted, or the file's, made unique) as read-only nodes, and
// makes the reference node (named as wanted, or "<namespace>RN"). In a file
// being read, the reference is read where its line stands and the file's
// own lines make its reference node.
struct CreatedReference
{
    ReferencePtr reference;
    std::vector<NodePtr> nodes; // all it made, nested references' included
};
CreatedReference createReference(const std::string& path, const std::string& space, const std::string& nodeName);
// Reads a reference's file again and makes its edits again.
void loadReference(const ReferencePtr& reference);
// Takes a reference's nodes, nested references and reference node out of
// the scene, and its namespace when that is left empty.
void removeReference(const ReferencePtr& reference);

// True while a file is being read, written, opened or the scene renewed.
bool reading();
bool writing();
bool opening();
bool newing();
bool importing();

// An empty, untitled, unmodified scene (library start and end).
void resetDocument();

} // namespace mayasim::file
