#include "TestPlugin.h"

#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MDoubleArray.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MPxCommand.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

#include <mayasim/Host.h>

namespace enginetest {

Record& record()
{
    static Record instance;
    return instance;
}

namespace {

// Takes its words as they come: no syntax.
class RecordArgs : public MPxCommand
{
public:
    static void* creator() { return new RecordArgs; }
    MStatus doIt(const MArgList& args) override
    {
        record().args.clear();
        for (unsigned int k = 0; k < args.length(); ++k)
            record().args.push_back(args.asString(k).asChar());
        setResult(static_cast<int>(args.length()));
        return MS::kSuccess;
    }
};

// Produces the kind of result its flag names.
class TypedResult : public MPxCommand
{
public:
    static void* creator() { return new TypedResult; }
    static MSyntax newSyntax()
    {
        MSyntax syntax;
        syntax.addFlag("-i", "-int", MSyntax::kLong);
        syntax.addFlag("-d", "-double", MSyntax::kDouble);
        syntax.addFlag("-s", "-string", MSyntax::kString);
        syntax.addFlag("-b", "-bool", MSyntax::kBoolean);
        syntax.addFlag("-ia", "-ints");
        syntax.addFlag("-da", "-doubles");
        syntax.addFlag("-sa", "-strings");
        syntax.addFlag("-ap", "-append");
        return syntax;
    }
    MStatus doIt(const MArgList& args) override
    {
        MArgDatabase db(syntax(), args);
        if (db.isFlagSet("-i"))
            setResult(db.flagArgumentInt("-i", 0));
        if (db.isFlagSet("-d"))
            setResult(db.flagArgumentDouble("-d", 0));
        if (db.isFlagSet("-s"))
            setResult(db.flagArgumentString("-s", 0));
        if (db.isFlagSet("-b"))
            setResult(db.flagArgumentBool("-b", 0));
        if (db.isFlagSet("-ia")) {
            MIntArray values;
            values.append(3);
            values.append(-1);
            setResult(values);
        }
        if (db.isFlagSet("-da")) {
            MDoubleArray values;
            values.append(10.75);
            values.append(-2.5);
            setResult(values);
        }
        if (db.isFlagSet("-sa")) {
            MStringArray values;
            values.append("tx");
            values.append("ry");
            setResult(values);
        }
        if (db.isFlagSet("-ap")) {
            appendToResult(1);
            appendToResult(2.5);
        }
        return MS::kSuccess;
    }
};

// Reads every flag it was given back through MArgDatabase.
class Probe : public MPxCommand
{
public:
    static void* creator() { return new Probe; }
    static MSyntax newSyntax()
    {
        MSyntax syntax;
        syntax.addFlag("-d", "-double", MSyntax::kDouble);
        syntax.addFlag("-b", "-bool", MSyntax::kBoolean);
        syntax.addFlag("-u", "-unsigned", MSyntax::kUnsigned);
        syntax.addFlag("-l", "-long", MSyntax::kLong);
        syntax.addFlag("-s", "-string", MSyntax::kString);
        syntax.addFlag("-c", "-color", MSyntax::kDouble, MSyntax::kDouble, MSyntax::kDouble);
        syntax.addFlag("", "-onlyLong", MSyntax::kBoolean);
        syntax.addFlag("-m", "-multi", MSyntax::kString);
        syntax.makeFlagMultiUse("-m");
        syntax.addArg(MSyntax::kString);
        syntax.setObjectType(MSyntax::kStringObjects);
        syntax.enableEdit();
        syntax.enableQuery();
        return syntax;
    }
    MStatus doIt(const MArgList& args) override
    {
        MStatus status;
        MArgDatabase db(syntax(), args, &status);
        ProbeRecord& probe = record().probe;
        probe = ProbeRecord{};
        probe.parsed = status;
        if (!status)
            return status;
        probe.edit = db.isEdit();
        probe.query = db.isQuery();
        if (db.isFlagSet("-d"))
            probe.flags["double"] = {std::to_string(db.flagArgumentDouble("-d", 0))};
        if (db.isFlagSet("-bool"))
            probe.flags["bool"] = {db.flagArgumentBool("-bool", 0) ? "true" : "false"};
        if (db.isFlagSet("-u")) {
            unsigned int value = 0;
            db.getFlagArgument("-u", 0, value);
            probe.flags["unsigned"] = {std::to_string(value)};
        }
        if (db.isFlagSet("-l"))
            probe.flags["long"] = {std::to_string(db.flagArgumentInt("-l", 0))};
        if (db.isFlagSet("-s"))
            probe.flags["string"] = {db.flagArgumentString("-s", 0).asChar()};
        if (db.isFlagSet("-c"))
            for (unsigned int k = 0; k < 3; ++k)
                probe.flags["color"].push_back(std::to_string(db.flagArgumentDouble("-c", k)));
        if (db.isFlagSet("-onlyLong"))
            probe.flags["onlyLong"] = {db.flagArgumentBool("-onlyLong", 0) ? "true" : "false"};
        for (unsigned int use = 0; use < db.numberOfFlagUses("-m"); ++use) {
            MArgList useArgs;
            db.getFlagArgumentList("-m", use, useArgs);
            probe.flags["multi"].push_back(useArgs.asString(0).asChar());
        }
        MString argument;
        db.getCommandArgument(0, argument);
        probe.argument = argument.asChar();
        MStringArray objects;
        db.getObjects(objects);
        for (unsigned int k = 0; k < objects.length(); ++k)
            probe.objects.push_back(objects[k].asChar());
        return MS::kSuccess;
    }
};

// Acts on at least one object, the active selection when none is named.
class SelectProbe : public MPxCommand
{
public:
    static void* creator() { return new SelectProbe; }
    static MSyntax newSyntax()
    {
        MSyntax syntax;
        syntax.setObjectType(MSyntax::kSelectionList, 1);
        syntax.useSelectionAsDefault(true);
        return syntax;
    }
    MStatus doIt(const MArgList& args) override
    {
        ++record().selectProbeRuns;
        MArgDatabase db(syntax(), args);
        MSelectionList list;
        record().objectsRead = db.getObjects(list);
        MStringArray strings;
        list.getSelectionStrings(strings);
        record().objects.clear();
        for (unsigned int k = 0; k < strings.length(); ++k)
            record().objects.push_back(strings[k].asChar());
        return MS::kSuccess;
    }
};

// Adds to the shared counter; undoable.
class Counter : public MPxCommand
{
public:
    Counter() { ++record().liveCounters; }
    ~Counter() override { --record().liveCounters; }
    static void* creator() { return new Counter; }
    static MSyntax newSyntax()
    {
        MSyntax syntax;
        syntax.addFlag("-by", "-by", MSyntax::kLong);
        return syntax;
    }
    MStatus doIt(const MArgList& args) override
    {
        MArgDatabase db(syntax(), args);
        if (db.isFlagSet("-by"))
            fStep = db.flagArgumentInt("-by", 0);
        return redoIt();
    }
    MStatus redoIt() override
    {
        record().counter += fStep;
        if (MGlobal::isRedoing())
            record().undoLog.push_back("redo " + std::to_string(fStep));
        return MS::kSuccess;
    }
    MStatus undoIt() override
    {
        record().counter -= fStep;
        record().undoLog.push_back((MGlobal::isUndoing() ? "undo " : "undo without isUndoing ") + std::to_string(fStep));
        return MS::kSuccess;
    }
    bool isUndoable() const override { return true; }

private:
    int fStep = 1;
};

// Runs two undoable counter commands from inside its own doIt.
class Nested : public MPxCommand
{
public:
    static void* creator() { return new Nested; }
    MStatus doIt(const MArgList&) override
    {
        MGlobal::executeCommand("counter -by 10", false, true);
        return MGlobal::executeCommand("counter -by 100", false, true);
    }
};

class Failing : public MPxCommand
{
public:
    static void* creator() { return new Failing; }
    MStatus doIt(const MArgList&) override
    {
        displayError("failing: refused");
        return MS::kFailure;
    }
};

// Stands in for Maya's hotkeySet (as fakeHotkeySet, so it never clashes with
// a built-in), answering as a fresh Maya does.
class HotkeySet : public MPxCommand
{
public:
    static void* creator() { return new HotkeySet; }
    static MSyntax newSyntax()
    {
        MSyntax syntax;
        syntax.addFlag("-cu", "-current");
        syntax.addFlag("-ex", "-exists");
        syntax.addFlag("-src", "-source", MSyntax::kString);
        syntax.setObjectType(MSyntax::kStringObjects);
        syntax.enableQuery();
        syntax.enableEdit();
        return syntax;
    }
    MStatus doIt(const MArgList& args) override
    {
        std::string call;
        for (unsigned int k = 0; k < args.length(); ++k)
            call += (k ? " " : "") + std::string(args.asString(k).asChar());
        record().hotkeyCalls.push_back(call);
        MArgDatabase db(syntax(), args);
        if (db.isQuery() && db.isFlagSet("-current"))
            setResult(MString("Maya_Default"));
        else if (db.isQuery() && db.isFlagSet("-exists"))
            setResult(false);
        return MS::kSuccess;
    }
};

struct Registered
{
    const char* name;
    MCreatorFunction creator;
    MCreateSyntaxFunction syntax;
};

const Registered kCommands[] = {
    {"recordArgs", &RecordArgs::creator, nullptr},
    {"typedResult", &TypedResult::creator, &TypedResult::newSyntax},
    {"probe", &Probe::creator, &Probe::newSyntax},
    {"selectProbe", &SelectProbe::creator, &SelectProbe::newSyntax},
    {"counter", &Counter::creator, &Counter::newSyntax},
    {"nested", &Nested::creator, nullptr},
    {"failing", &Failing::creator, nullptr},
    {"fakeHotkeySet", &HotkeySet::creator, &HotkeySet::newSyntax},
};

} // namespace

MStatus initialize(MObject plugin)
{
    MStatus status;
    MFnPlugin fn(plugin, "Engine Tests", "1.0", "Any", &status);
    if (!status)
        return status;
    for (const Registered& command : kCommands) {
        status = fn.registerCommand(command.name, command.creator, command.syntax);
        if (!status)
            return status;
    }
    return MS::kSuccess;
}

// Deregisters in reverse order and stops at the first failure.
MStatus uninitialize(MObject plugin)
{
    MFnPlugin fn(plugin);
    for (auto command = std::rbegin(kCommands); command != std::rend(kCommands); ++command) {
        const MStatus status = fn.deregisterCommand(command->name);
        if (!status)
            return status;
    }
    return MS::kSuccess;
}

MStatus initializeClashing(MObject plugin)
{
    MFnPlugin fn(plugin);
    fn.registerCommand("undo", &RecordArgs::creator);
    fn.registerCommand("recordArgs", &RecordArgs::creator);
    return fn.registerCommand("clashFree", &RecordArgs::creator);
}

MStatus uninitializeClashing(MObject plugin)
{
    return MFnPlugin(plugin).deregisterCommand("clashFree");
}

void load()
{
    record() = Record{};
    mayasim::host::loadLinkedPlugin("engineTest", &initialize, &uninitialize);
}

void unload()
{
    MGlobal::executeCommand("unloadPlugin engineTest");
}

} // namespace enginetest
