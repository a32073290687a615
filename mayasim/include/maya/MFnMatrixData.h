#pragma once
#include <maya/MFnData.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for matrix data.
class OPENMAYA_EXPORT MFnMatrixData : public MFnData
{
public:
    MFnMatrixData();
    MFnMatrixData(MObject& object, MStatus* ReturnStatus = NULL);
    MFnMatrixData(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnMatrixData() override;
    MFn::Type type() const override;

    bool isTransformation(MStatus* ReturnStatus = NULL) const;
    const MMatrix& matrix(MStatus* ReturnStatus = NULL) const;
    MTransformationMatrix transformation(MStatus* ReturnStatus = NULL) const;
    MStatus set(const MMatrix& matrix);
    MStatus set(const MTransformationMatrix& transformation);
    MObject create(MStatus* ReturnStatus = NULL);
    MObject create(const MMatrix& in, MStatus* ReturnStatus = NULL);
    MObject create(const MTransformationMatrix& in, MStatus* ReturnStatus = NULL);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
