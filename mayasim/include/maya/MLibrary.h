#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Starts and ends Maya in a standalone (library mode) program.
class OPENMAYA_EXPORT MLibrary
{
public:
    MLibrary();
    virtual ~MLibrary();
    static MStatus initialize(const char* applicationName, bool useBatchLicense = false);
    static MStatus initialize(bool wantScriptOutput, const char* applicationName, bool useBatchLicense = false);

    static void cleanup(int exitStatus = 0, bool exitWhenDone = true);
};

OPENMAYA_NAMESPACE_CLOSE
