#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! The context dependency graph evaluation happens in: normal (current
//! time) or a specific time.
class OPENMAYA_EXPORT MDGContext
{
public:
    MDGContext();
    MDGContext(const MTime& when);
    MDGContext(const MDGContext& in);
    ~MDGContext();

    static MDGContext fsNormal;
    bool isNormal(MStatus* ReturnStatus = NULL) const;

    MStatus getTime(MTime& outTime) const;

    MDGContext& operator=(const MDGContext& other);

    static const char* className();

    static const MDGContext current();
    bool isCurrent(MStatus* ReturnStatus = NULL) const;
    const MDGContext makeCurrent(MStatus* ReturnStatus = NULL) const;

private:
    // Null for the normal context, else the time it evaluates at (held apart
    // so this header needs no MTime.h, as Maya's doesn't).
    MTime* fTime;
};

OPENMAYA_NAMESPACE_CLOSE
