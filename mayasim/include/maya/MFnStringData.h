#pragma once
#include <maya/MFnData.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for string data.
class OPENMAYA_EXPORT MFnStringData : public MFnData
{
public:
    MFnStringData();
    MFnStringData(MObject& object, MStatus* ReturnStatus = NULL);
    MFnStringData(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnStringData() override;
    MFn::Type type() const override;

    MString string(MStatus* ReturnStatus = NULL) const;
    MStatus set(const MString& newString);
    MObject create(const MString& str, MStatus* ReturnStatus = NULL);
    MObject create(MStatus* ReturnStatus = NULL);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
