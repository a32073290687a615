#pragma once
// Maya ASCII (.ma) files: reading runs their MEL into the scene; writing
// describes the scene in MEL that reads back to the same scene.
#include <string>

namespace mayasim::file {

// Runs the file's statements one by one. A failed statement is reported
// with its line and loading goes on; node types mayasim doesn't know load
// as generic nodes (one warning per type). Throws MelError when the file
// can't be read.
void readMayaAscii(const std::string& path);

// Throws MelError when the file can't be written.
void writeMayaAscii(const std::string& path);

} // namespace mayasim::file
