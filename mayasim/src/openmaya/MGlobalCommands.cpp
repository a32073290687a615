// MGlobal's command side: running MEL, output, undo state, option variables
// and version. The selection functions live with the selection code.
#include <maya/MGlobal.h>

#include "engine/IdleCommands.h"
#include "engine/Interpreter.h"
#include "engine/Output.h"
#include "engine/UndoQueue.h"
#include "gui/GuiHost.h"
#include "foundation/NumberText.h"
#include "python/Embedded.h"

#include <mayasim/Host.h>

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>

using mayasim::MelValue;
using Type = MelValue::Type;

namespace {

using mayasim::ScriptLanguage;

// MEL through the interpreter, Python through the embedded Python; the text
// of a Python result is its str().
mayasim::python::Outcome run(const MString& command, bool display, bool undo,
                             ScriptLanguage language = ScriptLanguage::Mel)
{
    const bool python = language == ScriptLanguage::Python;
    mayasim::logSentCommand(mayasim::host::SentCommand{command.asChar(), display, undo, python, false});
    const mayasim::RunOptions options{display, undo};
    if (python)
        return mayasim::python::run(command.asChar(), options);
    mayasim::python::Outcome outcome;
    static_cast<mayasim::RunOutcome&>(outcome) = mayasim::executeMel(command.asChar(), options);
    outcome.text = outcome.value.resultText();
    return outcome;
}

// Runs the command and hands its result over when it is of the kind asked
// for; a command that gave no such result fails.
template <typename Accept>
MStatus runFor(const MString& command, bool display, bool undo, Accept accept,
               ScriptLanguage language = ScriptLanguage::Mel)
{
    const mayasim::RunOutcome outcome = run(command, display, undo, language);
    if (!outcome.ok || !accept(outcome.value))
        return MS::kFailure;
    return MS::kSuccess;
}

// The result as text, for the StringResult functions.
MString textResult(const mayasim::python::Outcome& outcome, MStatus* status)
{
    if (status)
        *status = outcome.ok ? MS::kSuccess : MS::kFailure;
    return outcome.ok ? MString(outcome.text.c_str()) : MString();
}

auto intResult(int& result)
{
    return [&result](const MelValue& value) {
        if (value.type != Type::Int)
            return false;
        result = static_cast<int>(value.i);
        return true;
    };
}

auto stringResult(MString& result)
{
    return [&result](const MelValue& value) {
        if (value.type != Type::String)
            return false;
        result = value.s.c_str();
        return true;
    };
}

template <typename Array, typename Items>
void fill(Array& result, const Items& items)
{
    result.clear();
    for (const auto& item : items)
        result.append(item);
}

std::map<std::string, MelValue>& optionVars()
{
    static std::map<std::string, MelValue> store;
    return store;
}

const MelValue* optionVar(const MString& name, bool* exists)
{
    auto found = optionVars().find(name.asChar());
    const MelValue* value = found == optionVars().end() ? nullptr : &found->second;
    if (exists)
        *exists = value != nullptr;
    return value;
}

} // namespace

MString MGlobal::mayaVersion()
{
    return "2022";
}

int MGlobal::apiVersion()
{
    return MAYA_API_VERSION;
}

MGlobal::MMayaState MGlobal::mayaState(MStatus* ReturnStatus)
{
    if (ReturnStatus)
        *ReturnStatus = MS::kSuccess;
    // The GUI host is Maya with its interface; without it, a library app.
    return mayasim::gui::mainWindow() ? kInteractive : kLibraryApp;
}

MStatus MGlobal::sourceFile(const MString& fileName)
{
    std::ifstream file(fileName.asChar());
    if (!file)
        return MS::kNotFound;
    std::stringstream text;
    text << file.rdbuf();
    return mayasim::executeMel(text.str(), mayasim::RunOptions{false, true}).ok ? MS::kSuccess : MS::kFailure;
}

MStatus MGlobal::executeCommandOnIdle(const MString& command, bool displayEnabled)
{
    mayasim::logSentCommand(mayasim::host::SentCommand{command.asChar(), displayEnabled, true, false, true});
    mayasim::queueIdleCommand(command.asChar(), displayEnabled);
    return MS::kSuccess;
}

MStatus MGlobal::executeCommand(const MString& command, bool displayEnabled, bool undoEnabled)
{
    return run(command, displayEnabled, undoEnabled).ok ? MS::kSuccess : MS::kFailure;
}

MStatus MGlobal::executeCommand(const MString& command, int& result, bool displayEnabled, bool undoEnabled)
{
    return runFor(command, displayEnabled, undoEnabled, intResult(result));
}

MStatus MGlobal::executeCommand(const MString& command, double& result, bool displayEnabled, bool undoEnabled)
{
    return runFor(command, displayEnabled, undoEnabled, [&](const MelValue& value) {
        if (value.type != Type::Int && value.type != Type::Float)
            return false;
        result = value.asFloat();
        return true;
    });
}

MStatus MGlobal::executeCommand(const MString& command, MString& result, bool displayEnabled, bool undoEnabled)
{
    return runFor(command, displayEnabled, undoEnabled, stringResult(result));
}

MStatus MGlobal::executeCommand(const MString& command, MIntArray& result, bool displayEnabled, bool undoEnabled)
{
    return runFor(command, displayEnabled, undoEnabled, [&](const MelValue& value) {
        if (value.type == Type::IntArray) {
            std::vector<int> items(value.ia.begin(), value.ia.end());
            fill(result, items);
            return true;
        }
        if (value.type == Type::FloatArray) {
            // Times and other floats read into integers are truncated toward zero.
            std::vector<int> items;
            for (double item : value.fa)
                items.push_back(mayasim::truncatedTo<int>(item));
            fill(result, items);
            return true;
        }
        return false;
    });
}

MStatus MGlobal::executeCommand(const MString& command, MDoubleArray& result, bool displayEnabled,
                                bool undoEnabled)
{
    return runFor(command, displayEnabled, undoEnabled, [&](const MelValue& value) {
        if (value.type == Type::FloatArray) {
            fill(result, value.fa);
            return true;
        }
        if (value.type == Type::IntArray) {
            std::vector<double> items(value.ia.begin(), value.ia.end());
            fill(result, items);
            return true;
        }
        return false;
    });
}

MStatus MGlobal::executeCommand(const MString& command, MStringArray& result, bool displayEnabled,
                                bool undoEnabled)
{
    return runFor(command, displayEnabled, undoEnabled, [&](const MelValue& value) {
        if (value.type != Type::StringArray)
            return false;
        std::vector<MString> items;
        for (const std::string& item : value.sa)
            items.emplace_back(item.c_str());
        fill(result, items);
        return true;
    });
}

MString MGlobal::executeCommandStringResult(const MString& command, bool displayEnabled, bool undoEnabled,
                                            MStatus* ResultStatus)
{
    return textResult(run(command, displayEnabled, undoEnabled), ResultStatus);
}

MStatus MGlobal::executePythonCommand(const MString& command, bool displayEnabled, bool undoEnabled)
{
    return run(command, displayEnabled, undoEnabled, ScriptLanguage::Python).ok ? MS::kSuccess : MS::kFailure;
}

MStatus MGlobal::executePythonCommand(const MString& command, int& result, bool displayEnabled, bool undoEnabled)
{
    return runFor(command, displayEnabled, undoEnabled, intResult(result), ScriptLanguage::Python);
}

MStatus MGlobal::executePythonCommand(const MString& command, MString& result, bool displayEnabled, bool undoEnabled)
{
    return runFor(command, displayEnabled, undoEnabled, stringResult(result), ScriptLanguage::Python);
}

MString MGlobal::executePythonCommandStringResult(const MString& command, bool displayEnabled, bool undoEnabled,
                                                  MStatus* ReturnStatus)
{
    return textResult(run(command, displayEnabled, undoEnabled, ScriptLanguage::Python), ReturnStatus);
}

MStatus MGlobal::executePythonCommandOnIdle(const MString& command, bool displayEnabled)
{
    mayasim::logSentCommand(mayasim::host::SentCommand{command.asChar(), displayEnabled, true, true, true});
    mayasim::queueIdleCommand(command.asChar(), displayEnabled, ScriptLanguage::Python);
    return MS::kSuccess;
}

void MGlobal::displayInfo(const MString& theMessage)
{
    mayasim::writeOutput(mayasim::OutputKind::Info, theMessage.asChar());
}

void MGlobal::displayWarning(const MString& theWarning)
{
    mayasim::writeOutput(mayasim::OutputKind::Warning, theWarning.asChar());
}

void MGlobal::displayError(const MString& theError)
{
    mayasim::writeOutput(mayasim::OutputKind::Error, theError.asChar());
}

int MGlobal::optionVarIntValue(const MString& name, bool* exists)
{
    const MelValue* value = optionVar(name, exists);
    return value ? static_cast<int>(value->asInt()) : 0;
}

double MGlobal::optionVarDoubleValue(const MString& name, bool* exists)
{
    const MelValue* value = optionVar(name, exists);
    return value ? value->asFloat() : 0.0;
}

MString MGlobal::optionVarStringValue(const MString& name, bool* exists)
{
    const MelValue* value = optionVar(name, exists);
    return value ? MString(value->asString().c_str()) : MString();
}

bool MGlobal::setOptionVarValue(const MString& name, int value)
{
    optionVars()[name.asChar()] = MelValue::ofInt(value);
    return true;
}

bool MGlobal::setOptionVarValue(const MString& name, double value)
{
    optionVars()[name.asChar()] = MelValue::ofFloat(value);
    return true;
}

bool MGlobal::setOptionVarValue(const MString& name, MString value)
{
    optionVars()[name.asChar()] = MelValue::ofString(value.asChar());
    return true;
}

void MGlobal::removeOptionVar(const MString& name)
{
    optionVars().erase(name.asChar());
}

bool MGlobal::optionVarExists(const MString& name)
{
    return optionVars().count(name.asChar()) != 0;
}

bool MGlobal::isUndoing()
{
    return mayasim::undo::undoing();
}

bool MGlobal::isRedoing()
{
    return mayasim::undo::redoing();
}

const char* MGlobal::className()
{
    return "MGlobal";
}
