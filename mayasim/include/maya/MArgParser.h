#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>

namespace mayasim {
struct ParsedCall;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! An argument list parsed against a command's syntax.
class OPENMAYA_EXPORT MArgParser
{
public:
    MArgParser();
    MArgParser(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus = NULL);
    virtual ~MArgParser();

    MArgParser(const MArgParser& rhs);
    MArgParser& operator=(const MArgParser& rhs);

    bool isFlagSet(const char* flag, MStatus* ReturnStatus = NULL) const;
    bool isEdit(MStatus* ReturnStatus = NULL) const;
    bool isQuery(MStatus* ReturnStatus = NULL) const;
    unsigned int numberOfFlagsUsed() const;
    unsigned int numberOfFlagUses(const char* flag) const;

    MStatus getFlagArgument(const char* flag, unsigned int index, bool& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, int& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, double& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MString& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const;
    bool flagArgumentBool(const char* flag, unsigned int index, MStatus* ReturnStatus = NULL) const;
    double flagArgumentDouble(const char* flag, unsigned int index, MStatus* ReturnStatus = NULL) const;
    int flagArgumentInt(const char* flag, unsigned int index, MStatus* ReturnStatus = NULL) const;
    MString flagArgumentString(const char* flag, unsigned int index, MStatus* ReturnStatus = NULL) const;
    MStatus getFlagArgumentPosition(const char* flag, unsigned int i, unsigned int& position) const;
    MStatus getFlagArgumentList(const char* flag, unsigned int i, MArgList& args) const;

    MStatus getCommandArgument(unsigned int index, bool& result) const;
    MStatus getCommandArgument(unsigned int index, int& result) const;
    MStatus getCommandArgument(unsigned int index, double& result) const;
    MStatus getCommandArgument(unsigned int index, MString& result) const;
    bool commandArgumentBool(unsigned int index, MStatus* ReturnStatus = NULL) const;
    double commandArgumentDouble(unsigned int index, MStatus* ReturnStatus = NULL) const;
    int commandArgumentInt(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MString commandArgumentString(unsigned int index, MStatus* ReturnStatus = NULL) const;

    MStatus getObjects(MStringArray& result) const;

private:
    friend class MArgDatabase;
    const mayasim::ParsedCall* fCall; // null when parsing failed
};

OPENMAYA_NAMESPACE_CLOSE
