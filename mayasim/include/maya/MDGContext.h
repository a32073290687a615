#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <maya/MTime.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! The context dependency graph evaluation happens in: normal (current
//! time) or a specific time.
class OPENMAYA_EXPORT MDGContext
{
public:
    MDGContext();
    MDGContext(const MTime& when);
    MDGContext(const MDGContext& in);
    virtual ~MDGContext();

    static MDGContext fsNormal;
    static MDGContext current();
    MDGContext makeCurrent() const;

    bool isNormal(MStatus* ReturnStatus = NULL) const;
    bool isCurrent(MStatus* ReturnStatus = NULL) const;
    MStatus getTime(MTime& outTime) const;
    MTime getTime(MStatus* ReturnStatus = NULL) const;

    MDGContext& operator=(const MDGContext& other);
    static const char* className();

private:
    bool fNormal = true;
    MTime fTime;
};

OPENMAYA_NAMESPACE_CLOSE
