#pragma once
// Values between Python and the command engine: MEL values as Python objects,
// Python objects as MEL values and as the words of a command call.
#define PY_SSIZE_T_CLEAN
#include <Python.h>

#include "engine/Command.h"

#include <string>
#include <vector>

namespace mayasim::python {

// A new reference: int, float, str, a list of them, or None.
PyObject* toPython(const MelValue& value);

// What MEL takes from a Python result: int, float and str as they are; a
// list or tuple as an int, float or string array (a mixed one as the str()
// of each item); anything else as its str(). Clears any Python error.
MelValue toMel(PyObject* object);

// str(object) in UTF-8; empty (and no error left set) when str() fails.
std::string text(PyObject* object);

// The words of a command's positional argument (a list or tuple gives one
// per element) and of a keyword argument (a flag whose value keeps its
// shape). False with a Python TypeError set when a value has no word form.
bool appendWords(PyObject* value, std::vector<Word>& words);
bool appendKeyword(const std::string& flag, PyObject* value, std::vector<Word>& words);

} // namespace mayasim::python
