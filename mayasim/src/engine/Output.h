#pragma once
// What Maya's script editor would show. Everything written here is kept for
// the host (tests read it back, mayasim-batch prints it).
#include <string>

namespace mayasim {

enum class OutputKind
{
    Info,    // MGlobal::displayInfo: the text as it is
    Warning, // "// Warning: text //"
    Error,   // "// Error: text //"
    Result,  // "// Result: text //"
    Echo     // an echoed command (executeCommand with display on)
};

void writeOutput(OutputKind kind, const std::string& text);

namespace host {
struct SentCommand;
}
// Every command text sent through MGlobal, for host::sentCommands().
void logSentCommand(host::SentCommand command);

} // namespace mayasim
