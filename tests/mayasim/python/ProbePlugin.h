#pragma once
// A plug-in linked into the test program, with one command that records how
// its call was parsed, for maya.cmds' keyword arguments.
#include <map>
#include <string>
#include <vector>

namespace pythontest {

struct ProbeCall
{
    bool edit = false;
    bool query = false;
    std::map<std::string, std::vector<std::vector<std::string>>> flags; // long name -> each use's arguments
    std::vector<std::string> objects;
};

// The last call of "pyProbe".
ProbeCall& lastProbe();

// Loads and unloads the plug-in "pythonTest".
bool loadProbe();
bool unloadProbe();

} // namespace pythontest
