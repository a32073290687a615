#include "engine/Interpreter.h"
#include "engine/Output.h"
#include "file/Statements.h"

#include <mayasim/Script.h>

#include <fstream>
#include <sstream>

namespace mayasim::host {

bool runScript(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
    {
        writeOutput(OutputKind::Error, "Cannot find file \"" + path + "\" for source statement.");
        return false;
    }
    std::ostringstream text;
    text << in.rdbuf();
    for (const file::Statement& statement : file::splitStatements(text.str()))
    {
        writeOutput(OutputKind::Echo, statement.text + ";");
        const RunOutcome outcome = executeMel(statement.text + ";", RunOptions{false, true, statement.line});
        if (!outcome.ok)
            return false;
        if (outcome.value.type != MelValue::Type::None)
            writeOutput(OutputKind::Result, outcome.value.resultText());
    }
    return true;
}

} // namespace mayasim::host
