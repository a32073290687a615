#pragma once
#include <maya/MTypes.h>
#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Base of all function sets: attaches to an MObject of a compatible type.
class OPENMAYA_EXPORT MFnBase
{
public:
    virtual ~MFnBase();
    virtual MFn::Type type() const;
    bool hasObj(MFn::Type) const;
    bool hasObj(const MObject&) const;
    MObject object(MStatus* ReturnStatus = NULL) const;
    virtual MStatus setObject(MObject& object);
    virtual MStatus setObject(const MObject& object);
    static const char* className();

protected:
    MFnBase();
    // Attaches when the object is compatible with this function set.
    MStatus attach(const MObject& object, MStatus* ReturnStatus);

    MObject fObject;
};

OPENMAYA_NAMESPACE_CLOSE
