// MArgParser and MArgDatabase: typed access to a call parsed against its
// command's syntax.
#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

#include "engine/CommandLine.h"

using mayasim::MelError;
using mayasim::ParsedCall;
using mayasim::Word;

namespace {

// The word a read refers to, or null with a failed status.
const Word* flagWord(const ParsedCall* call, const char* flag, unsigned int index)
{
    const mayasim::FlagUse* use = call ? call->use(flag ? flag : "") : nullptr;
    return use && index < use->arguments.size() ? &use->arguments[index] : nullptr;
}

const Word* argumentWord(const ParsedCall* call, unsigned int index)
{
    return call && index < call->commandArguments.size() ? &call->commandArguments[index] : nullptr;
}

template <typename T, typename Read>
MStatus read(const Word* word, T& result, Read convert)
{
    if (!word)
        return MS::kInvalidParameter;
    try {
        result = convert(*word);
        return MS::kSuccess;
    } catch (const MelError&) {
        return MS::kInvalidParameter;
    }
}

MStatus readWord(const Word* word, bool& result)
{
    return read(word, result, [](const Word& w) { return w.boolean(); });
}

MStatus readWord(const Word* word, int& result)
{
    return read(word, result, [](const Word& w) { return static_cast<int>(w.integer()); });
}

MStatus readWord(const Word* word, unsigned int& result)
{
    return read(word, result, [](const Word& w) {
        const long value = w.integer();
        if (value < 0)
            throw MelError(mayasim::kArgumentParseError);
        return static_cast<unsigned int>(value);
    });
}

MStatus readWord(const Word* word, double& result)
{
    return read(word, result, [](const Word& w) { return w.number(); });
}

MStatus readWord(const Word* word, MString& result)
{
    return read(word, result, [](const Word& w) { return MString(w.text.c_str()); });
}

template <typename T>
T returned(const Word* word, MStatus* status)
{
    T value{};
    const MStatus outcome = readWord(word, value);
    if (status)
        *status = outcome;
    return value;
}

bool enoughObjects(const ParsedCall& call, unsigned int count)
{
    return count >= call.syntax.minObjects && count <= call.syntax.maxObjects;
}

} // namespace

// --- MArgParser --------------------------------------------------------------------

MArgParser::MArgParser() : fCall(nullptr) {}

MArgParser::MArgParser(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus) : fCall(nullptr)
{
    MStatus status;
    try {
        fCall = new ParsedCall(
            mayasim::parseCall(mayasim::ArgAccess::spec(syntax), mayasim::ArgAccess::words(argList)));
    } catch (const MelError&) {
        status = MS::kInvalidParameter;
    }
    if (ReturnStatus)
        *ReturnStatus = status;
}

MArgParser::MArgParser(const MArgParser& rhs) : fCall(rhs.fCall ? new ParsedCall(*rhs.fCall) : nullptr) {}

MArgParser& MArgParser::operator=(const MArgParser& rhs)
{
    if (this != &rhs) {
        const ParsedCall* call = rhs.fCall ? new ParsedCall(*rhs.fCall) : nullptr;
        delete fCall;
        fCall = call;
    }
    return *this;
}

MArgParser::~MArgParser()
{
    delete fCall;
}

bool MArgParser::isFlagSet(const char* flag, MStatus* ReturnStatus) const
{
    const bool known = fCall && fCall->syntax.findFlag(flag ? flag : "") >= 0;
    if (ReturnStatus)
        *ReturnStatus = known ? MS::kSuccess : MS::kInvalidParameter;
    return known && fCall->use(flag) != nullptr;
}

bool MArgParser::isEdit(MStatus* ReturnStatus) const
{
    if (ReturnStatus)
        *ReturnStatus = fCall ? MS::kSuccess : MS::kFailure;
    return fCall && fCall->edit;
}

bool MArgParser::isQuery(MStatus* ReturnStatus) const
{
    if (ReturnStatus)
        *ReturnStatus = fCall ? MS::kSuccess : MS::kFailure;
    return fCall && fCall->query;
}

unsigned int MArgParser::numberOfFlagsUsed() const
{
    return fCall ? static_cast<unsigned int>(fCall->uses.size()) : 0;
}

unsigned int MArgParser::numberOfFlagUses(const char* flag) const
{
    unsigned int count = 0;
    while (fCall && fCall->use(flag ? flag : "", count))
        ++count;
    return count;
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, bool& result) const
{
    return readWord(flagWord(fCall, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, int& result) const
{
    return readWord(flagWord(fCall, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, double& result) const
{
    return readWord(flagWord(fCall, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, MString& result) const
{
    return readWord(flagWord(fCall, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const
{
    return readWord(flagWord(fCall, flag, index), result);
}

bool MArgParser::flagArgumentBool(const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    return returned<bool>(flagWord(fCall, flag, index), ReturnStatus);
}

double MArgParser::flagArgumentDouble(const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    return returned<double>(flagWord(fCall, flag, index), ReturnStatus);
}

int MArgParser::flagArgumentInt(const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    return returned<int>(flagWord(fCall, flag, index), ReturnStatus);
}

MString MArgParser::flagArgumentString(const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    return returned<MString>(flagWord(fCall, flag, index), ReturnStatus);
}

MStatus MArgParser::getFlagArgumentPosition(const char* flag, unsigned int i, unsigned int& position) const
{
    const mayasim::FlagUse* use = fCall ? fCall->use(flag ? flag : "", i) : nullptr;
    if (!use)
        return MS::kInvalidParameter;
    position = use->position;
    return MS::kSuccess;
}

MStatus MArgParser::getFlagArgumentList(const char* flag, unsigned int i, MArgList& args) const
{
    const mayasim::FlagUse* use = fCall ? fCall->use(flag ? flag : "", i) : nullptr;
    if (!use)
        return MS::kInvalidParameter;
    mayasim::ArgAccess::words(args) = use->arguments;
    return MS::kSuccess;
}

MStatus MArgParser::getCommandArgument(unsigned int index, bool& result) const
{
    return readWord(argumentWord(fCall, index), result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, int& result) const
{
    return readWord(argumentWord(fCall, index), result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, double& result) const
{
    return readWord(argumentWord(fCall, index), result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, MString& result) const
{
    return readWord(argumentWord(fCall, index), result);
}

bool MArgParser::commandArgumentBool(unsigned int index, MStatus* ReturnStatus) const
{
    return returned<bool>(argumentWord(fCall, index), ReturnStatus);
}

double MArgParser::commandArgumentDouble(unsigned int index, MStatus* ReturnStatus) const
{
    return returned<double>(argumentWord(fCall, index), ReturnStatus);
}

int MArgParser::commandArgumentInt(unsigned int index, MStatus* ReturnStatus) const
{
    return returned<int>(argumentWord(fCall, index), ReturnStatus);
}

MString MArgParser::commandArgumentString(unsigned int index, MStatus* ReturnStatus) const
{
    return returned<MString>(argumentWord(fCall, index), ReturnStatus);
}

MStatus MArgParser::getObjects(MStringArray& result) const
{
    if (!fCall)
        return MS::kFailure;
    result.clear();
    if (fCall->objects.empty() && fCall->syntax.selectionAsDefault) {
        MSelectionList active;
        MGlobal::getActiveSelectionList(active);
        active.getSelectionStrings(result);
    } else {
        for (const Word& object : fCall->objects)
            result.append(MString(object.text.c_str()));
    }
    return enoughObjects(*fCall, result.length()) ? MS::kSuccess : MS::kFailure;
}

// --- MArgDatabase ------------------------------------------------------------------

MArgDatabase::MArgDatabase() = default;

MArgDatabase::MArgDatabase(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus)
    : MArgParser(syntax, argList, ReturnStatus)
{
}

MArgDatabase::~MArgDatabase() = default;

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, MSelectionList& result) const
{
    const Word* word = flagWord(fCall, flag, index);
    return word ? result.add(MString(word->text.c_str())) : MStatus(MS::kInvalidParameter);
}

MStatus MArgDatabase::getCommandArgument(unsigned int index, MSelectionList& result) const
{
    const Word* word = argumentWord(fCall, index);
    return word ? result.add(MString(word->text.c_str())) : MStatus(MS::kInvalidParameter);
}

MStatus MArgDatabase::getObjects(MSelectionList& result) const
{
    if (!fCall)
        return MS::kFailure;
    if (fCall->objects.empty() && fCall->syntax.selectionAsDefault) {
        MSelectionList active;
        MGlobal::getActiveSelectionList(active);
        result.merge(active);
    } else {
        for (const Word& object : fCall->objects)
            if (!result.add(MString(object.text.c_str())))
                return MS::kInvalidParameter;
    }
    return enoughObjects(*fCall, result.length()) ? MS::kSuccess : MS::kFailure;
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, bool& result) const
{
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, int& result) const
{
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, double& result) const
{
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, MString& result) const
{
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const
{
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getCommandArgument(unsigned int index, bool& result) const
{
    return MArgParser::getCommandArgument(index, result);
}

MStatus MArgDatabase::getCommandArgument(unsigned int index, int& result) const
{
    return MArgParser::getCommandArgument(index, result);
}

MStatus MArgDatabase::getCommandArgument(unsigned int index, double& result) const
{
    return MArgParser::getCommandArgument(index, result);
}

MStatus MArgDatabase::getCommandArgument(unsigned int index, MString& result) const
{
    return MArgParser::getCommandArgument(index, result);
}

MStatus MArgDatabase::getObjects(MStringArray& result) const
{
    return MArgParser::getObjects(result);
}

const char* MArgDatabase::className()
{
    return "MArgDatabase";
}
