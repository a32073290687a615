#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>

namespace mayasim {
struct ArgAccess;
struct SyntaxSpec;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! The flags, command arguments and objects a command accepts.
class OPENMAYA_EXPORT MSyntax
{
public:
    //! Argument types.
    enum MArgType
    {
        kInvalidArgType,
        kNoArg,
        kBoolean,
        kLong,
        kDouble,
        kString,
        kUnsigned,
        kDistance,
        kAngle,
        kTime,
        kSelectionItem,
        kLastArgType
    };

    //! Object list types.
    enum MObjectFormat
    {
        kInvalidObjectFormat,
        kNone,
        kStringObjects,
        kSelectionList,
        kLastObjectFormat
    };

    MSyntax();
    MSyntax(const MSyntax& other);
    virtual ~MSyntax();
    MSyntax& operator=(const MSyntax& rhs);

    MStatus addFlag(const char* shortName, const char* longName, MArgType argType1 = kNoArg,
                    MArgType argType2 = kNoArg, MArgType argType3 = kNoArg, MArgType argType4 = kNoArg,
                    MArgType argType5 = kNoArg, MArgType argType6 = kNoArg);
    MStatus makeFlagMultiUse(const char* flag);
    MStatus makeFlagQueryWithFullArgs(const char* flag, bool queryArgsAreOptional);
    MStatus addArg(MArgType arg);
    void useSelectionAsDefault(bool useSelectionList = false);
    MStatus setObjectType(MObjectFormat objectFormat, unsigned int minimumObjects = 0);
    MStatus setObjectType(MObjectFormat objectFormat, unsigned int minimumObjects, unsigned int maximumObjects);
    void setMinObjects(unsigned int minimumObjectCount);
    void setMaxObjects(unsigned int maximumObjectCount);
    void enableQuery(bool supportsQuery = true);
    void enableEdit(bool supportsEdit = true);
    unsigned int minObjects() const;
    unsigned int maxObjects() const;
    bool canQuery() const;
    bool canEdit() const;

    static const char* className();

private:
    friend struct mayasim::ArgAccess;
    mayasim::SyntaxSpec* fSpec; // what the command engine parses a call against
};

OPENMAYA_NAMESPACE_CLOSE
