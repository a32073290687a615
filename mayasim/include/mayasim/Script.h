#pragma once
// Running script files as a host does (mayasim-batch -script, -python).
#include <string>

#pragma GCC visibility push(default)
namespace mayasim::host {

// Runs the file's statements in turn as if each were entered in the script
// editor: echoed, then its result. As sourcing a script does, a syntax error
// anywhere runs nothing, a failing statement stops the rest, and the file's
// locals and local procs last to its end. False when the file can't be read
// or a statement failed.
bool runScript(const std::string& path);

// Runs a Python file (mayasim-batch -python) as one undo step; errors name
// the file. False when it can't be read or raised an exception.
bool runPythonFile(const std::string& path);

} // namespace mayasim::host
#pragma GCC visibility pop
