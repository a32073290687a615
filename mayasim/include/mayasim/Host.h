#pragma once
// The host side of mayasim: what Maya's UI and main loop would do, for tests,
// mayasim-batch and the GUI host. Maya-API code never calls these.
#include <cstddef>
#include <string>
#include <vector>
#include <maya/MApiNamespace.h>

// Exported from the library, whose symbols are hidden by default.
#pragma GCC visibility push(default)
namespace mayasim::host {

// --- script output -------------------------------------------------------
struct OutputLine
{
    enum class Kind { Info, Warning, Error, Result, Echo } kind;
    std::string text;     // as given, without decoration
    std::string printed;  // as Maya's script editor shows it ("// Warning: x //")
};
const std::vector<OutputLine>& output();
void clearOutput();
// Print each output line to stdout as it is written (mayasim-batch).
void setEchoOutput(bool echo);
// Every command text sent through MGlobal, with its display and undo flags.
struct SentCommand
{
    std::string text;
    bool display = false;
    bool undo = false;
    bool python = false;
    bool onIdle = false;
};
const std::vector<SentCommand>& sentCommands();
void clearSentCommands();

// --- plug-in registration ---------------------------------------------------
// Every MFnPlugin register/deregister call, in order, with its outcome.
struct Registration
{
    std::string plugin;
    std::string call; // "registerCommand", "deregisterNode", ...
    std::string name; // command or node type name
    bool succeeded = false;
};
const std::vector<Registration>& registrations();
void clearRegistrations();
// The n-th registration call from now (1 = the next one) fails; counts both
// register and deregister calls. 0 cancels.
void failRegistrationAt(int n);
// Loads a plug-in linked into the program itself, as loadPlugin loads a
// module: its initializePlugin runs now, its uninitializePlugin on
// "unloadPlugin <name>". False (with Maya's message) when initialization fails.
using PluginEntryPoint = MStatus (*)(MObject);
bool loadLinkedPlugin(const std::string& name, PluginEntryPoint initialize, PluginEntryPoint uninitialize);

// --- MEL ---------------------------------------------------------------------
// Bounds the loop passes and proc calls each MEL run may make, for fuzzing,
// where an endless loop would stall; past the bound the run fails. 0, the
// default, is no bound, as in Maya.
void setMelStepBudget(long steps);

// --- main loop -------------------------------------------------------------
// One "idle" event: each idle callback runs once, in order. Callbacks added
// during the tick wait for the next one, as do commands queued on idle.
void pumpIdle();
// Advances the clock that timer callbacks run on, firing due timers.
void advanceClock(double seconds);
// Sets a named condition (e.g. "playblasting") and fires its callbacks.
void setCondition(const std::string& name, bool state);
// How many callbacks are registered, on every message: a plug-in that
// unloads cleanly leaves the count where it found it.
size_t callbackCount();
// Raises an event only Maya's UI raises ("DragRelease" at the end of a
// manipulator drag, "modelEditorChanged" when a view's options change).
void raiseEvent(const std::string& name);

// --- UI state: graph editor, channel box, time slider ----------------------
// What Maya's panels hold and MEL queries answer from (keyframe, selectKey,
// channelBox, timeControl). The graph editor's key selection, by curve node
// name and key index: picking keys puts their curves into the active
// selection, as Maya does; a curve that leaves the active selection loses
// its picked keys. False when there is no such curve or key.
bool selectKeys(const std::string& curve, const std::vector<unsigned int>& indices);
bool deselectKeys(const std::string& curve, const std::vector<unsigned int>& indices);
void clearKeySelection();
std::vector<unsigned int> selectedKeys(const std::string& curve);

// The highlighted attributes of each channel box section, as short names.
enum class ChannelBoxSection { Main, Shape, Output, History };
void setChannelBoxHighlight(ChannelBoxSection section, const std::vector<std::string>& shortNames);
std::vector<std::string> channelBoxHighlight(ChannelBoxSection section);

// The time slider's highlighted frames, first to last (UI time unit).
// timeControl answers with the range one frame past the last.
void setTimeSliderHighlight(double first, double last);
void clearTimeSliderHighlight();
// The objects whose keys the time slider shows: those of its main list
// connection (timeControl -mainListConnection), by default the selection.
std::vector<std::string> timeSliderObjects();
// False when nothing is highlighted.
bool timeSliderHighlight(double& first, double& last);

} // namespace mayasim::host
#pragma GCC visibility pop
