#pragma once
#include <maya/MFnAttribute.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for matrix attributes.
class OPENMAYA_EXPORT MFnMatrixAttribute : public MFnAttribute
{
public:
    MFnMatrixAttribute();
    MFnMatrixAttribute(MObject& object, MStatus* ReturnStatus = NULL);
    MFnMatrixAttribute(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnMatrixAttribute() override;
    MFn::Type type() const override;

    enum Type
    {
        kFloat,
        kDouble
    };

    MObject create(const MString& fullName, const MString& briefName, Type matrixType = kDouble,
                   MStatus* ReturnStatus = NULL);
    MStatus getDefault(MMatrix& defaultValue);
    MStatus setDefault(const MMatrix& defaultValue);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
