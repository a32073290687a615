#include "engine/Interpreter.h"
#include "engine/Output.h"

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
    return executeMel(text.str(), RunOptions{false, true, 1, true}).ok;
}

} // namespace mayasim::host
