#pragma once
// `_mayasim`, the built-in module behind maya.cmds and maya.mel: command
// functions made from the command registry as it is at each look-up, MEL
// evaluation, and the script output that print() writes to.
#define PY_SSIZE_T_CLEAN
#include <Python.h>

namespace mayasim::python {

// For PyImport_AppendInittab, before the interpreter starts.
PyObject* createModule();

} // namespace mayasim::python
