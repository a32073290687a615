// The script editor's history pane, and the log of command texts sent
// through MGlobal, both kept for the host.
#include "engine/Output.h"

#include <mayasim/Host.h>

#include <iostream>

namespace mayasim {

namespace {

struct OutputState
{
    std::vector<host::OutputLine> lines;
    std::vector<host::SentCommand> sent;
    bool echo = false;
    ScriptLanguage language = ScriptLanguage::Mel;
};

OutputState& state()
{
    static OutputState instance;
    return instance;
}

std::string decorated(OutputKind kind, const std::string& text)
{
    if (state().language == ScriptLanguage::Python) {
        switch (kind) {
        case OutputKind::Warning: return "# Warning: " + text;
        case OutputKind::Error: return "# Error: " + text;
        case OutputKind::Result: return "# Result: " + text;
        case OutputKind::Info:
        case OutputKind::Echo: return text;
        }
    }
    switch (kind) {
    case OutputKind::Warning: return "// Warning: " + text + " //";
    case OutputKind::Error: return "// Error: " + text + " //";
    case OutputKind::Result: return "// Result: " + text + " //";
    case OutputKind::Info:
    case OutputKind::Echo: break;
    }
    return text;
}

} // namespace

static_assert(static_cast<int>(OutputKind::Echo) == static_cast<int>(host::OutputLine::Kind::Echo),
              "the host's line kinds follow OutputKind");

void writeOutput(OutputKind kind, const std::string& text)
{
    host::OutputLine line{static_cast<host::OutputLine::Kind>(kind), text, decorated(kind, text)};
    if (state().echo)
        std::cout << line.printed << std::endl;
    state().lines.push_back(std::move(line));
}

LanguageScope::LanguageScope(ScriptLanguage language) : fPrevious(state().language)
{
    state().language = language;
}

LanguageScope::~LanguageScope()
{
    state().language = fPrevious;
}

void logSentCommand(host::SentCommand command)
{
    state().sent.push_back(std::move(command));
}

namespace host {

const std::vector<OutputLine>& output()
{
    return state().lines;
}

void clearOutput()
{
    state().lines.clear();
}

void setEchoOutput(bool echo)
{
    state().echo = echo;
}

const std::vector<SentCommand>& sentCommands()
{
    return state().sent;
}

void clearSentCommands()
{
    state().sent.clear();
}

} // namespace host

} // namespace mayasim
