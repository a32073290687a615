#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MPxCommand.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

#include "engine/Output.h"
#include "engine/PluginCommands.h"
#include "foundation/InPlace.h"

using mayasim::inPlace;
using mayasim::MelValue;
using Type = MelValue::Type;

namespace {

using SyntaxHold = std::shared_ptr<const MSyntax>;

void setRunningResult(MelValue value)
{
    if (MelValue* result = mayasim::runningCommandResult())
        *result = std::move(value);
}

// The values a result holds: none, its one scalar, or its array items.
std::vector<MelValue> items(const MelValue& result)
{
    std::vector<MelValue> values;
    if (result.type == Type::Int || result.type == Type::Float || result.type == Type::String)
        values.push_back(result);
    for (long v : result.ia)
        values.push_back(MelValue::ofInt(v));
    for (double v : result.fa)
        values.push_back(MelValue::ofFloat(v));
    for (const std::string& v : result.sa)
        values.push_back(MelValue::ofString(v));
    return values;
}

// Appending turns the result into an array: of ints while every item is an
// int, of floats while every item is a number, otherwise of strings.
void appendRunningResult(const MelValue& item)
{
    MelValue* result = mayasim::runningCommandResult();
    if (!result)
        return;
    std::vector<MelValue> values = items(*result);
    values.push_back(item);
    bool ints = true, numbers = true;
    for (const MelValue& value : values) {
        ints = ints && value.type == Type::Int;
        numbers = numbers && value.type != Type::String;
    }
    MelValue array = ints ? MelValue::ofInts({}) : numbers ? MelValue::ofFloats({}) : MelValue::ofStrings({});
    for (const MelValue& value : values) {
        if (ints)
            array.ia.push_back(value.i);
        else if (numbers)
            array.fa.push_back(value.asFloat());
        else
            array.sa.push_back(value.asString());
    }
    *result = std::move(array);
}

template <typename T, typename Array, typename Convert>
std::vector<T> itemsOf(const Array& array, Convert convert)
{
    std::vector<T> items;
    for (unsigned int k = 0; k < array.length(); ++k)
        items.push_back(convert(array[k]));
    return items;
}

std::string stringOf(const MString& text)
{
    return text.asChar();
}

} // namespace

MPxCommand::MPxCommand()
{
    mayasim::buildInPlace<SyntaxHold>(fSyntax);
}

MPxCommand::~MPxCommand()
{
    mayasim::destroyInPlace<SyntaxHold>(fSyntax);
}

MStatus MPxCommand::doIt(const MArgList&)
{
    return MS::kSuccess;
}

MStatus MPxCommand::undoIt()
{
    return MS::kSuccess;
}

MStatus MPxCommand::redoIt()
{
    return MS::kSuccess;
}

bool MPxCommand::isUndoable() const
{
    return false;
}

bool MPxCommand::hasSyntax() const
{
    return inPlace<SyntaxHold>(fSyntax) != nullptr;
}

MSyntax MPxCommand::syntax() const
{
    const SyntaxHold& syntax = inPlace<SyntaxHold>(fSyntax);
    return syntax ? *syntax : MSyntax();
}

bool MPxCommand::isHistoryOn() const
{
    return fHistoryOn;
}

MString MPxCommand::commandString() const
{
    return fCommandString;
}

MStatus MPxCommand::setHistoryOn(bool state)
{
    fHistoryOn = state;
    return MS::kSuccess;
}

MStatus MPxCommand::setCommandString(const MString& text)
{
    fCommandString = text;
    return MS::kSuccess;
}

void MPxCommand::displayInfo(const MString& theInfo)
{
    mayasim::writeOutput(mayasim::OutputKind::Info, theInfo.asChar());
}

void MPxCommand::displayWarning(const MString& theWarning, bool)
{
    mayasim::writeOutput(mayasim::OutputKind::Warning, theWarning.asChar());
}

void MPxCommand::displayError(const MString& theError, bool)
{
    mayasim::writeOutput(mayasim::OutputKind::Error, theError.asChar());
}

void MPxCommand::clearResult()
{
    setRunningResult(MelValue::none());
}

void MPxCommand::setResult(unsigned int val)
{
    setRunningResult(MelValue::ofInt(static_cast<long>(val)));
}

void MPxCommand::setResult(int val)
{
    setRunningResult(MelValue::ofInt(val));
}

void MPxCommand::setResult(double val)
{
    setRunningResult(MelValue::ofFloat(val));
}

void MPxCommand::setResult(bool val)
{
    setRunningResult(MelValue::ofInt(val ? 1 : 0));
}

void MPxCommand::setResult(const char* val)
{
    setRunningResult(MelValue::ofString(val ? val : ""));
}

void MPxCommand::setResult(const MString& val)
{
    setRunningResult(MelValue::ofString(val.asChar()));
}

void MPxCommand::setResult(const MIntArray& val)
{
    setRunningResult(MelValue::ofInts(itemsOf<long>(val, [](int v) { return v; })));
}

void MPxCommand::setResult(const MDoubleArray& val)
{
    setRunningResult(MelValue::ofFloats(itemsOf<double>(val, [](double v) { return v; })));
}

void MPxCommand::setResult(const MStringArray& val)
{
    setRunningResult(MelValue::ofStrings(itemsOf<std::string>(val, stringOf)));
}

void MPxCommand::appendToResult(int val)
{
    appendRunningResult(MelValue::ofInt(val));
}

void MPxCommand::appendToResult(double val)
{
    appendRunningResult(MelValue::ofFloat(val));
}

void MPxCommand::appendToResult(bool val)
{
    appendRunningResult(MelValue::ofInt(val ? 1 : 0));
}

void MPxCommand::appendToResult(const char* val)
{
    appendRunningResult(MelValue::ofString(val ? val : ""));
}

void MPxCommand::appendToResult(const MString& val)
{
    appendRunningResult(MelValue::ofString(val.asChar()));
}

void MPxCommand::appendToResult(const MStringArray& val)
{
    for (const std::string& item : itemsOf<std::string>(val, stringOf))
        appendRunningResult(MelValue::ofString(item));
}

bool MPxCommand::isCurrentResultArray()
{
    const MelValue* result = mayasim::runningCommandResult();
    return result && result->isArray();
}

MPxCommand::MResultType MPxCommand::currentResultType()
{
    const MelValue* result = mayasim::runningCommandResult();
    switch (result ? result->type : Type::None) {
    case Type::Int:
    case Type::IntArray: return kLong;
    case Type::Float:
    case Type::FloatArray: return kDouble;
    case Type::String:
    case Type::StringArray: return kString;
    case Type::None: break;
    }
    return kNoArg;
}

const char* MPxCommand::className()
{
    return "MPxCommand";
}
