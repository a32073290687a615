#include <maya/MSyntax.h>

#include "engine/CommandLine.h"

namespace {

std::string flagName(const char* name)
{
    std::string text = name ? name : "";
    return !text.empty() && text[0] == '-' ? text.substr(1) : text;
}

} // namespace

MSyntax::MSyntax() : fSpec(new mayasim::SyntaxSpec) {}

MSyntax::MSyntax(const MSyntax& other) : fSpec(new mayasim::SyntaxSpec(*other.fSpec)) {}

MSyntax::~MSyntax()
{
    delete fSpec;
}

const mayasim::SyntaxSpec& mayasim::ArgAccess::spec(const MSyntax& syntax)
{
    return *syntax.fSpec;
}

MSyntax& MSyntax::operator=(const MSyntax& rhs)
{
    *fSpec = *rhs.fSpec;
    return *this;
}

MStatus MSyntax::addFlag(const char* shortName, const char* longName, MArgType argType1, MArgType argType2,
                         MArgType argType3, MArgType argType4, MArgType argType5, MArgType argType6)
{
    mayasim::SyntaxFlag flag;
    flag.shortName = flagName(shortName);
    flag.longName = flagName(longName);
    if (flag.longName.empty() && flag.shortName.empty())
        return MS::kInvalidParameter;
    if (fSpec->findFlag(flag.shortName) >= 0 || fSpec->findFlag(flag.longName) >= 0)
        return MS::kFailure;
    for (MArgType type : {argType1, argType2, argType3, argType4, argType5, argType6}) {
        if (type == kNoArg || type == kInvalidArgType)
            break;
        flag.arguments.push_back(type);
    }
    fSpec->flags.push_back(std::move(flag));
    return MS::kSuccess;
}

MStatus MSyntax::makeFlagMultiUse(const char* flag)
{
    const int index = fSpec->findFlag(flagName(flag));
    if (index < 0)
        return MS::kInvalidParameter;
    fSpec->flags[static_cast<size_t>(index)].multiUse = true;
    return MS::kSuccess;
}

MStatus MSyntax::makeFlagQueryWithFullArgs(const char* flag, bool queryArgsAreOptional)
{
    const int index = fSpec->findFlag(flagName(flag));
    if (index < 0)
        return MS::kInvalidParameter;
    fSpec->flags[static_cast<size_t>(index)].queryWithArguments = true;
    fSpec->flags[static_cast<size_t>(index)].queryArgumentsOptional = queryArgsAreOptional;
    return MS::kSuccess;
}

MStatus MSyntax::addArg(MArgType arg)
{
    if (arg == kNoArg || arg == kInvalidArgType || arg == kLastArgType)
        return MS::kInvalidParameter;
    fSpec->commandArguments.push_back(arg);
    return MS::kSuccess;
}

void MSyntax::useSelectionAsDefault(bool useSelectionList)
{
    fSpec->selectionAsDefault = useSelectionList;
}

MStatus MSyntax::setObjectType(MObjectFormat objectFormat, unsigned int minimumObjects)
{
    return setObjectType(objectFormat, minimumObjects, fSpec->maxObjects);
}

MStatus MSyntax::setObjectType(MObjectFormat objectFormat, unsigned int minimumObjects, unsigned int maximumObjects)
{
    if (objectFormat == kInvalidObjectFormat || objectFormat == kLastObjectFormat || minimumObjects > maximumObjects)
        return MS::kInvalidParameter;
    fSpec->objectFormat = objectFormat;
    fSpec->minObjects = minimumObjects;
    fSpec->maxObjects = maximumObjects;
    return MS::kSuccess;
}

void MSyntax::setMinObjects(unsigned int minimumObjectCount)
{
    fSpec->minObjects = minimumObjectCount;
}

void MSyntax::setMaxObjects(unsigned int maximumObjectCount)
{
    fSpec->maxObjects = maximumObjectCount;
}

void MSyntax::enableQuery(bool supportsQuery)
{
    fSpec->canQuery = supportsQuery;
}

void MSyntax::enableEdit(bool supportsEdit)
{
    fSpec->canEdit = supportsEdit;
}

unsigned int MSyntax::minObjects() const
{
    return fSpec->minObjects;
}

unsigned int MSyntax::maxObjects() const
{
    return fSpec->maxObjects;
}

bool MSyntax::canQuery() const
{
    return fSpec->canQuery;
}

bool MSyntax::canEdit() const
{
    return fSpec->canEdit;
}

const char* MSyntax::className()
{
    return "MSyntax";
}
