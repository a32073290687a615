#pragma once
// What the fuzz targets share: mayasim started once with the plug-in linked
// in, a throwaway folder as home and working directory, a cheap reset
// between inputs, and a guard that keeps inputs inside that folder.
#include <cstddef>
#include <cstdint>
#include <string>

namespace fuzz {

// The throwaway folder that is home (and so holds the plug-in's data
// folder) and working directory (where scenes saved without a folder land)
// while the target runs; mayasim starts in it before the first input.
const std::string& sandbox();
// The plug-in's data folder inside the sandbox.
std::string dataFolder();

// An empty scene with the plug-in loaded (an input may unload it), the
// host's panels cleared and the captured output dropped.
void resetScene();

// The input as text; MEL stops at a NUL as Maya's strings do.
std::string text(const uint8_t* data, size_t size);

// Whether an input could touch files outside the sandbox: it names a
// command that takes a file path (or builds command text at run time) and
// holds a folder separator outside the comment lines of a file header, or
// it names a command that runs code of another language. Such inputs are
// skipped, not run.
bool mayLeaveSandbox(const std::string& text);

// Writes the scene to a file in the sandbox, as a save would.
void writeScene();

} // namespace fuzz
