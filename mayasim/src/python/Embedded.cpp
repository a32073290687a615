#define PY_SSIZE_T_CLEAN
#include <Python.h>

#include "python/Embedded.h"

#include "engine/Output.h"
#include "engine/UndoQueue.h"
#include "python/Module.h"
#include "python/Values.h"

#include <mayasim/Script.h>

#include <fstream>
#include <sstream>
#include <vector>

namespace mayasim::python {

namespace {

// The file name Maya gives Python typed into its script editor.
const char* const kConsole = "<maya console>";

// Makes the maya package, whose modules live in sys.modules only, and sends
// what print() writes to the script output.
const char* const kBootstrap = R"(
import sys, types, _mayasim

class ScriptOutput:
    encoding = 'utf-8'
    errors = 'surrogateescape'
    def write(self, text):
        return _mayasim.write(text)
    def flush(self):
        pass
    def isatty(self):
        return False

sys.stdout = sys.stderr = ScriptOutput()

maya = types.ModuleType('maya')
maya.__path__ = []
maya.cmds = types.ModuleType('maya.cmds', "Maya's commands: the built-ins and the commands of loaded plug-ins.")
maya.cmds.__getattr__ = _mayasim.command
maya.cmds.__dir__ = _mayasim.commands
maya.mel = types.ModuleType('maya.mel', 'MEL from Python.')
maya.mel.eval = _mayasim.mel
sys.modules.update({'maya': maya, 'maya.cmds': maya.cmds, 'maya.mel': maya.mel})
)";

struct State
{
    bool started = false;
    std::vector<bool> runs; // each Python run under way, innermost last: whether its commands record undo
    std::string printed;    // print() output that no newline has ended yet
};

State& state()
{
    static State instance;
    return instance;
}

// Writes the finished lines; with `all`, the unfinished one too.
void flushPrinted(bool all)
{
    std::string& printed = state().printed;
    size_t start = 0;
    for (size_t end = printed.find('\n'); end != std::string::npos; end = printed.find('\n', start)) {
        writeOutput(OutputKind::Info, printed.substr(start, end - start));
        start = end + 1;
    }
    printed.erase(0, start);
    if (all && !printed.empty()) {
        writeOutput(OutputKind::Info, printed);
        printed.clear();
    }
}

std::string attributeText(PyObject* object, const char* name)
{
    PyObject* attribute = PyObject_GetAttrString(object, name);
    if (!attribute) {
        PyErr_Clear();
        return {};
    }
    std::string result = text(attribute);
    Py_DECREF(attribute);
    return result;
}

// The file and line of a traceback's innermost frame.
void innermostFrame(PyObject* traceback, std::string& file, std::string& line)
{
    PyObject* entry = traceback;
    Py_XINCREF(entry);
    while (entry && entry != Py_None) {
        line = attributeText(entry, "tb_lineno");
        if (PyObject* frame = PyObject_GetAttrString(entry, "tb_frame")) {
            if (PyObject* code = PyObject_GetAttrString(frame, "f_code")) {
                file = attributeText(code, "co_filename");
                Py_DECREF(code);
            }
            Py_DECREF(frame);
        }
        PyObject* next = PyObject_GetAttrString(entry, "tb_next");
        PyErr_Clear();
        Py_DECREF(entry);
        entry = next;
    }
    Py_XDECREF(entry);
}

// Prints the pending exception as Maya does: the traceback's last line, with
// where it was raised: "RuntimeError: file <maya console> line 1: message".
void reportException()
{
    PyObject* type = nullptr;
    PyObject* value = nullptr;
    PyObject* traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    std::string file = kConsole;
    std::string line = "1";
    std::string message = value ? text(value) : std::string();
    if (type && PyErr_GivenExceptionMatches(type, PyExc_SyntaxError)) {
        file = attributeText(value, "filename");
        line = attributeText(value, "lineno");
        message = attributeText(value, "msg");
    } else {
        innermostFrame(traceback, file, line);
    }
    std::string name = type ? reinterpret_cast<PyTypeObject*>(type)->tp_name : "Exception";
    name = name.substr(name.rfind('.') + 1);
    writeOutput(OutputKind::Error, name + ": file " + file + " line " + line + ": " + message);
    Py_XDECREF(type);
    Py_XDECREF(value);
    Py_XDECREF(traceback);
}

// Compiles and runs in __main__. A text that is one expression, when
// `expression`, gives its value; other texts give None.
PyObject* evaluate(const std::string& code, const char* file, bool expression)
{
    PyObject* compiled = expression ? Py_CompileString(code.c_str(), file, Py_eval_input) : nullptr;
    if (!compiled) {
        PyErr_Clear();
        compiled = Py_CompileString(code.c_str(), file, Py_file_input);
    }
    if (!compiled)
        return nullptr;
    PyObject* globals = PyModule_GetDict(PyImport_AddModule("__main__"));
    PyObject* result = PyEval_EvalCode(compiled, globals, globals);
    Py_DECREF(compiled);
    return result;
}

Outcome execute(const std::string& code, const char* file, const RunOptions& options, bool expression)
{
    const LanguageScope language(ScriptLanguage::Python);
    Outcome outcome;
    if (options.display)
        writeOutput(OutputKind::Echo, code);
    if (!state().started) {
        writeOutput(OutputKind::Error, "Python is not running.");
        return outcome;
    }
    // One step, like a MEL statement; a built-in's frame, so that a failure
    // takes back what the commands it ran did.
    undo::Execution execution;
    undo::CommandFrame frame(true, options.undo);
    state().runs.push_back(options.undo);
    PyObject* result = evaluate(code, file, expression);
    state().runs.pop_back();
    flushPrinted(true);
    if (!result) {
        reportException();
        return outcome;
    }
    const bool none = result == Py_None;
    outcome.ok = true;
    outcome.value = toMel(result);
    outcome.text = none ? std::string() : text(result);
    Py_DECREF(result);
    frame.succeed();
    execution.statementFinished(code);
    if (options.display && !none)
        writeOutput(OutputKind::Result, outcome.text);
    return outcome;
}

} // namespace

bool start()
{
    if (state().started)
        return true;
    static const bool moduleAdded = PyImport_AppendInittab("_mayasim", &createModule) == 0;
    PyConfig config;
    // Isolated: no environment variables, user site or signal handlers. The
    // home is the interpreter mayasim was built with, whatever is on PATH.
    PyConfig_InitIsolatedConfig(&config);
    PyStatus status = PyConfig_SetBytesString(&config, &config.home, MAYASIM_PYTHON_HOME);
    if (!PyStatus_Exception(status))
        status = Py_InitializeFromConfig(&config);
    PyConfig_Clear(&config);
    if (!moduleAdded || PyStatus_Exception(status)) {
        writeOutput(OutputKind::Error, std::string("Python failed to start: ") +
                                           (status.err_msg ? status.err_msg : "no room for the maya module"));
        return false;
    }
    PyObject* globals = PyDict_New();
    PyDict_SetItemString(globals, "__builtins__", PyEval_GetBuiltins());
    PyObject* result = PyRun_String(kBootstrap, Py_file_input, globals, globals);
    Py_XDECREF(result);
    Py_DECREF(globals);
    // Scripts use maya.cmds and maya.mel without importing them, as in Maya.
    state().started = result && PyRun_SimpleString("import maya.cmds\nimport maya.mel\n") == 0;
    if (!state().started) {
        PyErr_Clear();
        Py_FinalizeEx();
        writeOutput(OutputKind::Error, "Python failed to start: the maya package could not be made.");
    }
    return state().started;
}

void stop()
{
    if (!state().started)
        return;
    flushPrinted(true);
    Py_FinalizeEx();
    state().started = false;
}

Outcome run(const std::string& code, const RunOptions& options)
{
    return execute(code, kConsole, options, true);
}

bool commandsUndo()
{
    return state().runs.empty() || state().runs.back();
}

void writePrinted(const std::string& text)
{
    state().printed += text;
    flushPrinted(false);
}

} // namespace mayasim::python

namespace mayasim::host {

bool runPythonFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        const LanguageScope language(ScriptLanguage::Python);
        writeOutput(OutputKind::Error, "Cannot find file \"" + path + "\".");
        return false;
    }
    std::ostringstream code;
    code << in.rdbuf();
    return python::execute(code.str(), path.c_str(), RunOptions{false, true}, false).ok;
}

} // namespace mayasim::host
