#pragma once
#include <maya/MFn.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Base of all function sets: attaches to an MObject of a compatible type.
//! Function sets can be neither copied nor have their address taken.
class OPENMAYA_EXPORT MFnBase
{
public:
    virtual ~MFnBase();
    virtual MFn::Type type() const;
    bool hasObj(MFn::Type) const;
    bool hasObj(const MObject&) const;
    MObject object(MStatus* ReturnStatus = nullptr) const;
    virtual MStatus setObject(MObject& object);

BEGIN_NO_SCRIPT_SUPPORT:
    virtual MStatus setObject(const MObject& object);
END_NO_SCRIPT_SUPPORT:

    static const char* className();

protected:
    MFnBase();
    // Attaches when the object is compatible with this function set.
    MStatus attach(const MObject& object, MStatus* ReturnStatus);

    // The attached object, held apart so that this header needs no MObject.h.
    MObject& fObject;

private:
    MFnBase(const MFnBase& rhs);
    MFnBase& operator=(const MFnBase&);
    MFnBase* operator&() const;
};

OPENMAYA_NAMESPACE_CLOSE
