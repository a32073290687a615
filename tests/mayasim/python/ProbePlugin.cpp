#include "ProbePlugin.h"

#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>
#include <mayasim/Host.h>

namespace pythontest {

ProbeCall& lastProbe()
{
    static ProbeCall call;
    return call;
}

namespace {

// Its flags: a string, three doubles, a boolean argument, a switch and a
// multi-use string. Its result: the objects it was given. Named "warn", it
// warns.
class Probe : public MPxCommand
{
public:
    static void* creator() { return new Probe; }
    static MSyntax newSyntax()
    {
        MSyntax syntax;
        syntax.addFlag("-n", "-name", MSyntax::kString);
        syntax.addFlag("-v", "-values", MSyntax::kDouble, MSyntax::kDouble, MSyntax::kDouble);
        syntax.addFlag("-on", "-enabled", MSyntax::kBoolean);
        syntax.addFlag("-sw", "-switch");
        syntax.addFlag("-it", "-item", MSyntax::kString);
        syntax.makeFlagMultiUse("-it");
        syntax.setObjectType(MSyntax::kStringObjects);
        syntax.enableQuery(true);
        syntax.enableEdit(true);
        return syntax;
    }
    MStatus doIt(const MArgList& args) override
    {
        MStatus status;
        MArgDatabase db(syntax(), args, &status);
        if (!status)
            return status;
        ProbeCall call;
        call.edit = db.isEdit();
        call.query = db.isQuery();
        for (const char* flag : {"-name", "-values", "-enabled", "-switch", "-item"}) {
            const unsigned int uses = db.numberOfFlagUses(flag);
            for (unsigned int use = 0; use < uses; ++use) {
                MArgList arguments;
                db.getFlagArgumentList(flag, use, arguments);
                std::vector<std::string> texts;
                for (unsigned int k = 0; k < arguments.length(); ++k)
                    texts.push_back(arguments.asString(k).asChar());
                call.flags[flag + 1].push_back(texts);
            }
        }
        MStringArray objects;
        db.getObjects(objects);
        for (unsigned int k = 0; k < objects.length(); ++k)
            call.objects.push_back(objects[k].asChar());
        if (call.flags.count("name") && call.flags["name"][0] == std::vector<std::string>{"warn"})
            MGlobal::displayWarning("probe warning");
        lastProbe() = call;
        setResult(objects);
        return MS::kSuccess;
    }
};

MStatus initialize(MObject plugin)
{
    return MFnPlugin(plugin, "Python Tests", "1.0", "Any").registerCommand("pyProbe", &Probe::creator,
                                                                            &Probe::newSyntax);
}

MStatus uninitialize(MObject plugin)
{
    return MFnPlugin(plugin).deregisterCommand("pyProbe");
}

} // namespace

bool loadProbe()
{
    return mayasim::host::loadLinkedPlugin("pythonTest", &initialize, &uninitialize);
}

bool unloadProbe()
{
    return MGlobal::executeCommand("unloadPlugin pythonTest");
}

} // namespace pythontest
