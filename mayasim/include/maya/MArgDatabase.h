#pragma once
#include <maya/MArgParser.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! MArgParser that also reads arguments and objects as selection lists.
class OPENMAYA_EXPORT MArgDatabase : public MArgParser
{
public:
    MArgDatabase();
    MArgDatabase(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus = NULL);
    virtual ~MArgDatabase();

    MStatus getFlagArgument(const char* flag, unsigned int index, MSelectionList& result) const;
    MStatus getCommandArgument(unsigned int index, MSelectionList& result) const;
    MStatus getObjects(MSelectionList& result) const;

    MStatus getFlagArgument(const char* flag, unsigned int index, bool& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, int& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, double& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MString& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const;
    MStatus getCommandArgument(unsigned int index, bool& result) const;
    MStatus getCommandArgument(unsigned int index, int& result) const;
    MStatus getCommandArgument(unsigned int index, double& result) const;
    MStatus getCommandArgument(unsigned int index, MString& result) const;
    MStatus getObjects(MStringArray& result) const;

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
