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

// The language of the script running now. Messages written while Python
// runs take Python's comment mark, as in Maya ("# Error: text").
enum class ScriptLanguage
{
    Mel,
    Python
};
class LanguageScope
{
public:
    explicit LanguageScope(ScriptLanguage language);
    ~LanguageScope();
    LanguageScope(const LanguageScope&) = delete;
    LanguageScope& operator=(const LanguageScope&) = delete;

private:
    ScriptLanguage fPrevious;
};

namespace host {
struct SentCommand;
}
// Every command text sent through MGlobal, for host::sentCommands().
void logSentCommand(host::SentCommand command);

} // namespace mayasim
