#pragma once
// Maya ASCII (.ma) files: reading runs their MEL into the scene; writing
// describes the scene in MEL that reads back to the same scene.
#include <string>

namespace mayasim {
struct Reference;
}

namespace mayasim::file {

// Runs the file's statements one by one. A failed statement is reported
// with its line and loading goes on; node types mayasim doesn't know load
// as generic nodes (one warning per type). Throws MelError when the file
// can't be read. A referenced file's scene settings (fileInfo, units,
// playback range) are left out.
void readMayaAscii(const std::string& path, bool asReference);

// Throws MelError when the file can't be written.
void writeMayaAscii(const std::string& path);
// The MEL that makes a loaded reference's edits again on a fresh load of its
// file: the values, flags, attributes and connections its nodes changed.
std::string referenceEdits(const Reference& reference);

} // namespace mayasim::file
