#include "python/Module.h"

#include "engine/Dispatch.h"
#include "python/Embedded.h"
#include "python/Values.h"

#include <map>

namespace mayasim::python {

namespace {

// What a failed command with nothing to say raises, as Maya does for a
// failing status.
const char* const kFailureText = "(kFailure): Unexpected Internal Failure";

std::string nameOf(PyObject* unicode)
{
    const char* name = PyUnicode_AsUTF8(unicode);
    if (!name) {
        PyErr_Clear();
        return {};
    }
    return name;
}

// maya.cmds.<name>(*args, **kwargs): `self` is the command's name.
PyObject* callCommand(PyObject* self, PyObject* args, PyObject* kwargs)
{
    std::vector<Word> words;
    for (Py_ssize_t at = 0; at < PyTuple_GET_SIZE(args); ++at)
        if (!appendWords(PyTuple_GET_ITEM(args, at), words))
            return nullptr;
    PyObject* key = nullptr;
    PyObject* value = nullptr;
    Py_ssize_t position = 0;
    while (kwargs && PyDict_Next(kwargs, &position, &key, &value))
        if (!appendKeyword(nameOf(key), value, words))
            return nullptr;
    try {
        return toPython(dispatchCommand(nameOf(self), words, commandsUndo()));
    } catch (const MelError& error) {
        PyErr_SetString(PyExc_RuntimeError, *error.what() ? error.what() : kFailureText);
    } catch (const std::exception& error) {
        PyErr_SetString(PyExc_RuntimeError, (std::string("Internal error: ") + error.what()).c_str());
    }
    return nullptr;
}

// One definition per command name, alive as long as the functions made from it.
PyMethodDef& definition(const std::string& name)
{
    static std::map<std::string, PyMethodDef> definitions;
    auto [entry, added] = definitions.try_emplace(name);
    if (added)
        entry->second = PyMethodDef{entry->first.c_str(),
                                    reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)(void)>(&callCommand)),
                                    METH_VARARGS | METH_KEYWORDS, nullptr};
    return entry->second;
}

// maya.cmds.__getattr__: the registry is read at each look-up, so a plug-in's
// commands come with its load and go with its unload.
PyObject* command(PyObject*, PyObject* name)
{
    if (!PyUnicode_Check(name) || !commandExists(nameOf(name))) {
        PyErr_Format(PyExc_AttributeError, "module 'maya.cmds' has no attribute '%S'", name);
        return nullptr;
    }
    PyObject* module = PyUnicode_FromString("maya.cmds");
    PyObject* function = PyCFunction_NewEx(&definition(nameOf(name)), name, module);
    Py_DECREF(module);
    return function;
}

// maya.cmds.__dir__
PyObject* commands(PyObject*, PyObject*)
{
    return toPython(MelValue::ofStrings(commandNames()));
}

// maya.mel.eval
PyObject* mel(PyObject*, PyObject* text)
{
    if (!PyUnicode_Check(text)) {
        PyErr_SetString(PyExc_TypeError, "eval() argument must be str");
        return nullptr;
    }
    const RunOutcome outcome = executeMel(python::text(text), RunOptions{false, commandsUndo()});
    if (!outcome.ok) {
        PyErr_SetString(PyExc_RuntimeError, "Error occurred during execution of MEL script");
        return nullptr;
    }
    return toPython(outcome.value);
}

// sys.stdout.write and sys.stderr.write
PyObject* write(PyObject*, PyObject* text)
{
    writePrinted(python::text(text));
    return PyLong_FromSsize_t(PyUnicode_Check(text) ? PyUnicode_GetLength(text) : 0);
}

PyMethodDef methods[] = {
    {"command", command, METH_O, "The maya.cmds function of a registered command."},
    {"commands", commands, METH_NOARGS, "The names of the registered commands."},
    {"mel", mel, METH_O, "Runs MEL text and returns its value."},
    {"write", write, METH_O, "Writes to the script output."},
    {nullptr, nullptr, 0, nullptr}};

PyModuleDef moduleDefinition = {PyModuleDef_HEAD_INIT, "_mayasim", "The command engine, for the maya package.",
                                -1, methods, nullptr, nullptr, nullptr, nullptr};

} // namespace

PyObject* createModule()
{
    return PyModule_Create(&moduleDefinition);
}

} // namespace mayasim::python
