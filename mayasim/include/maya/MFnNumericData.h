#pragma once
#include <maya/MFnData.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for numeric data: single numbers and 2, 3 or 4 tuples.
class OPENMAYA_EXPORT MFnNumericData : public MFnData
{
public:
    MFnNumericData();
    MFnNumericData(MObject& object, MStatus* ReturnStatus = NULL);
    MFnNumericData(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnNumericData() override;
    MFn::Type type() const override;

    enum Type
    {
        kInvalid,
        kBoolean,
        kByte,
        kChar,
        kShort,
        k2Short,
        k3Short,
        kLong,
        kInt = kLong,
        k2Long,
        k2Int = k2Long,
        k3Long,
        k3Int = k3Long,
        kInt64,
        kFloat,
        k2Float,
        k3Float,
        kDouble,
        k2Double,
        k3Double,
        k4Double,
        kAddr,
        kLast
    };

    MObject create(Type dataType, MStatus* ReturnStatus = NULL);
    Type numericType(MStatus* ReturnStatus = NULL);
    MStatus getData(double& val1, double& val2);
    MStatus getData(double& val1, double& val2, double& val3);
    MStatus getData(double& val1, double& val2, double& val3, double& val4);
    MStatus setData(double val1, double val2);
    MStatus setData(double val1, double val2, double val3);
    MStatus setData(double val1, double val2, double val3, double val4);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
