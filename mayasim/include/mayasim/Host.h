#pragma once
// The host side of mayasim: what Maya's UI and main loop would do, for tests,
// mayasim-batch and the GUI host. Maya-API code never calls these.
#include <string>
#include <vector>

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

// --- main loop -------------------------------------------------------------
// One "idle" event: each idle callback runs once, in order. Callbacks added
// during the tick wait for the next one, as do commands queued on idle.
void pumpIdle();
// Advances the clock that timer callbacks run on, firing due timers.
void advanceClock(double seconds);
// Sets a named condition (e.g. "playblasting") and fires its callbacks.
void setCondition(const std::string& name, bool state);

} // namespace mayasim::host
#pragma GCC visibility pop
