#pragma once
// A plug-in linked into the test program: commands that record how the
// engine called them.
#include <maya/MStatus.h>

#include <map>
#include <string>
#include <vector>
#include <maya/MApiNamespace.h>

namespace enginetest {

// What the probe command read through MArgDatabase.
struct ProbeRecord
{
    bool parsed = false;
    bool edit = false;
    bool query = false;
    std::map<std::string, std::vector<std::string>> flags; // long name -> arguments as read
    std::string argument;
    std::vector<std::string> objects;
};

struct Record
{
    std::vector<std::string> args;       // recordArgs: the words of the last call
    ProbeRecord probe;
    std::vector<std::string> hotkeyCalls; // fakeHotkeySet: each call's words joined by blanks
    int counter = 0;                      // the counter commands' shared value
    int liveCounters = 0;                 // counter command objects alive
    std::vector<std::string> undoLog;     // "undo 3", "redo 3" with isUndoing/isRedoing checked
    bool objectsRead = false;             // selectProbe: MArgDatabase::getObjects succeeded
    std::vector<std::string> objects;     // selectProbe: the objects' selection strings
    int selectProbeRuns = 0;
};

Record& record();

MStatus initialize(MObject plugin);
MStatus uninitialize(MObject plugin);
// A second plug-in that tries names already taken ("undo", "recordArgs")
// before a free one ("clashFree").
MStatus initializeClashing(MObject plugin);
MStatus uninitializeClashing(MObject plugin);

// Loads the plug-in as "engineTest" with fresh records.
void load();
void unload();

} // namespace enginetest
