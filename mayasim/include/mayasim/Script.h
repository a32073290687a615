#pragma once
// Running script files as a host does (mayasim-batch -script, -python).
#include <string>

#pragma GCC visibility push(default)
namespace mayasim::host {

// Runs the file's statements in turn as if each were entered in the script
// editor: echoed, then its result. Stops at the first failing statement, as
// sourcing a script does. False when the file can't be read or a statement
// failed.
bool runScript(const std::string& path);

// Runs a Python file (mayasim-batch -python) as one undo step; errors name
// the file. False when it can't be read or raised an exception.
bool runPythonFile(const std::string& path);

} // namespace mayasim::host
#pragma GCC visibility pop
