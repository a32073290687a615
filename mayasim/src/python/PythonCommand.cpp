// The MEL command `python`: runs its one string as Python and gives back
// the value of a single expression, converted to MEL's types.
#include "python/Embedded.h"

namespace mayasim::python {

namespace {

MelValue python(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words, {});
    if (args.positional().size() != 1)
        throw MelError("python: Wrong number of arguments.");
    // The command's own frame decides whether the work joins the undo queue.
    Outcome outcome = run(args.positional()[0].text, RunOptions{false, true});
    if (!outcome.ok)
        throw MelError(""); // the Python error is printed already
    return std::move(outcome.value);
}

BuiltinRegistrar pythonCommand("python", python);

} // namespace

} // namespace mayasim::python
