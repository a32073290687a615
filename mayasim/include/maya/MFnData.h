#pragma once
#include <maya/MFnBase.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Base of the function sets for data objects that flow through plugs.
class OPENMAYA_EXPORT MFnData : public MFnBase
{
public:
    MFnData();
    MFnData(MObject& object, MStatus* ReturnStatus = NULL);
    MFnData(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnData() override;
    MFn::Type type() const override;

    enum Type
    {
        kInvalid,
        kNumeric,
        kPlugin,
        kPluginGeometry,
        kString,
        kMatrix,
        kStringArray,
        kDoubleArray,
        kFloatArray,
        kIntArray,
        kPointArray,
        kVectorArray,
        kMatrixArray,
        kComponentList,
        kMesh,
        kLattice,
        kNurbsCurve,
        kNurbsSurface,
        kSphere,
        kDynArrayAttrs,
        kDynSweptGeometry,
        kSubdSurface,
        kNObject,
        kNId,
        kAny,
        kLast
    };

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
