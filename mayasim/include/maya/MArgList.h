#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <maya/MString.h>

namespace mayasim {
struct ArgAccess;
struct ArgListData;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! The words of a command invocation, as the command's doIt receives them.
class OPENMAYA_EXPORT MArgList
{
public:
    static const unsigned int kInvalidArgIndex;
    MArgList();
    MArgList(const MArgList& other);
    ~MArgList();
    unsigned int length(MStatus* ReturnStatus = NULL) const;
    bool asBool(unsigned int index, MStatus* ret = NULL) const;
    int asInt(unsigned int index, MStatus* ret = NULL) const;
    double asDouble(unsigned int index, MStatus* ret = NULL) const;
    MString asString(unsigned int index, MStatus* ret = NULL) const;
    MArgList& operator=(const MArgList& other);

    unsigned int flagIndex(const char* shortFlag, const char* longFlag = NULL) const;

    MStatus addArg(bool arg);
    MStatus addArg(int arg);
    MStatus addArg(double arg);
    MStatus addArg(const MString& arg);

    MStatus get(unsigned int index, bool& ret) const;
    MStatus get(unsigned int index, int& ret) const;
    MStatus get(unsigned int index, double& ret) const;
    MStatus get(unsigned int index, MString& ret) const;
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MArgList& args);

    static const char* className();

private:
    friend struct mayasim::ArgAccess;
    mayasim::ArgListData* fData; // the words of the call
};

OPENMAYA_NAMESPACE_CLOSE
