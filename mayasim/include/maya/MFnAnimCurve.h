#pragma once
#include <maya/MFnDependencyNode.h>
#include <maya/MTime.h>
#include <maya/MAngle.h>
#include <maya/MDoubleArray.h>
#include <maya/MTimeArray.h>
#include <maya/MIntArray.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for anim curve nodes: creating them, reading and editing
//! their keys and tangents, and evaluating them.
class OPENMAYAANIM_EXPORT MFnAnimCurve : public MFnDependencyNode
{
public:
    MFnAnimCurve();
    MFnAnimCurve(MObject& object, MStatus* ReturnStatus = NULL);
    MFnAnimCurve(const MObject& object, MStatus* ReturnStatus = NULL);
    MFnAnimCurve(const MPlug& plug, MStatus* ReturnStatus = NULL);
    ~MFnAnimCurve() override;
    MFn::Type type() const override;

    enum AnimCurveType
    {
        kAnimCurveTA = 0,
        kAnimCurveTL,
        kAnimCurveTT,
        kAnimCurveTU,
        kAnimCurveUA,
        kAnimCurveUL,
        kAnimCurveUT,
        kAnimCurveUU,
        kAnimCurveUnknown
    };

    enum TangentType
    {
        kTangentGlobal = 0,
        kTangentFixed,
        kTangentLinear,
        kTangentFlat,
        kTangentSmooth,
        kTangentStep,
        kTangentSlow,
        kTangentFast,
        kTangentClamped,
        kTangentPlateau,
        kTangentStepNext,
        kTangentAuto,
        kTangentShared1 = 19,
        kTangentShared2,
        kTangentShared3,
        kTangentShared4,
        kTangentShared5,
        kTangentShared6,
        kTangentShared7,
        kTangentShared8,
        kTangentCustomStart = 64,
        kTangentCustomEnd = 32767,
        kTangentTypeCount = 32768
    };

    enum InfinityType
    {
        kConstant = 0,
        kLinear = 1,
        kCycle = 3,
        kCycleRelative = 4,
        kOscillate = 5
    };

    typedef double TangentValue;

    MObject create(const MObject& node, const MObject& attribute, MDGModifier* modifier = NULL,
                   MStatus* ReturnStatus = NULL);
    MObject create(const MObject& node, const MObject& attribute, AnimCurveType animCurveType,
                   MDGModifier* modifier = NULL, MStatus* ReturnStatus = NULL);
    MObject create(const MPlug& plug, MDGModifier* modifier = NULL, MStatus* ReturnStatus = NULL);
    MObject create(const MPlug& plug, AnimCurveType animCurveType, MDGModifier* modifier = NULL,
                   MStatus* ReturnStatus = NULL);
    MObject create(AnimCurveType animCurveType, MDGModifier* modifier = NULL, MStatus* ReturnStatus = NULL);

    AnimCurveType animCurveType(MStatus* ReturnStatus = NULL) const;

    double evaluate(const MTime& atTime, MStatus* ReturnStatus = NULL) const;
    MStatus evaluate(const MTime& atTime, double& value) const;
    MStatus evaluate(const MTime& atTime, MTime& timeValue) const;
    MStatus evaluate(const double& atUnitlessInput, double& value) const;
    MStatus evaluate(const double& atUnitlessInput, MTime& timeValue) const;

    bool isStatic(MStatus* ReturnStatus = NULL) const;
    unsigned int numKeys(MStatus* ReturnStatus = NULL) const;
    MStatus remove(unsigned int index, MAnimCurveChange* change = NULL);

    unsigned int addKey(const MTime& time, double value, TangentType tangentInType = kTangentGlobal,
                        TangentType tangentOutType = kTangentGlobal, MAnimCurveChange* change = NULL,
                        MStatus* ReturnStatus = NULL);
    unsigned int addKey(const MTime& timeInput, const MTime& timeValue, TangentType tangentInType = kTangentGlobal,
                        TangentType tangentOutType = kTangentGlobal, MAnimCurveChange* change = NULL,
                        MStatus* ReturnStatus = NULL);
    unsigned int addKey(double unitlessInput, double value, TangentType tangentInType = kTangentGlobal,
                        TangentType tangentOutType = kTangentGlobal, MAnimCurveChange* change = NULL,
                        MStatus* ReturnStatus = NULL);
    unsigned int addKey(double unitlessInput, const MTime& time, TangentType tangentInType = kTangentGlobal,
                        TangentType tangentOutType = kTangentGlobal, MAnimCurveChange* change = NULL,
                        MStatus* ReturnStatus = NULL);
    unsigned int insertKey(const MTime& time, bool breakdown = false, MAnimCurveChange* change = nullptr,
                           MStatus* ReturnStatus = nullptr);

    bool find(const MTime& time, unsigned int& index, MStatus* ReturnStatus = NULL) const;
    bool find(double unitlessInput, unsigned int& index, MStatus* ReturnStatus = NULL) const;
    unsigned int findClosest(const MTime& time, MStatus* ReturnStatus = NULL) const;
    unsigned int findClosest(double unitlessInput, MStatus* ReturnStatus = NULL) const;

    MTime time(unsigned int index, MStatus* ReturnStatus = NULL) const;
    double value(unsigned int index, MStatus* ReturnStatus = NULL) const;
    double unitlessInput(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MStatus setValue(unsigned int index, double value, MAnimCurveChange* change = NULL);
    MStatus setTime(unsigned int index, const MTime& time, MAnimCurveChange* change = NULL);
    MStatus setUnitlessInput(unsigned int index, double unitlessInput, MAnimCurveChange* change = NULL);

    bool isTimeInput(MStatus* ReturnStatus = NULL) const;
    bool isUnitlessInput(MStatus* ReturnStatus = NULL) const;

    TangentType inTangentType(unsigned int index, MStatus* ReturnStatus = NULL) const;
    TangentType outTangentType(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MStatus setInTangentType(unsigned int index, TangentType tangentType, MAnimCurveChange* change = NULL);
    MStatus setOutTangentType(unsigned int index, TangentType tangentType, MAnimCurveChange* change = NULL);

    MStatus getTangent(unsigned int index, TangentValue& x, TangentValue& y, bool inTangent) const;
    MStatus getTangent(unsigned int index, MAngle& angle, double& weight, bool inTangent) const;
    MStatus setTangent(unsigned int index, TangentValue x, TangentValue y, bool inTangent,
                       MAnimCurveChange* change = NULL, bool convertUnits = true);
    MStatus setTangent(unsigned int index, const MAngle& angle, double weight, bool inTangent,
                       MAnimCurveChange* change = NULL, bool convertUnits = true);
    MStatus setAngle(unsigned int index, const MAngle& angle, bool inTangent, MAnimCurveChange* change = NULL);
    MStatus setWeight(unsigned int index, double weight, bool inTangent, MAnimCurveChange* change = NULL);

    bool weightsLocked(unsigned int index, MStatus* ReturnStatus = NULL) const;
    bool tangentsLocked(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MStatus setWeightsLocked(unsigned int index, bool locked, MAnimCurveChange* change = NULL);
    MStatus setTangentsLocked(unsigned int index, bool locked, MAnimCurveChange* change = NULL);

    InfinityType preInfinityType(MStatus* ReturnStatus = NULL) const;
    InfinityType postInfinityType(MStatus* ReturnStatus = NULL) const;
    MStatus setPreInfinityType(InfinityType infinityType, MAnimCurveChange* change = NULL);
    MStatus setPostInfinityType(InfinityType infinityType, MAnimCurveChange* change = NULL);

    bool isWeighted(MStatus* ReturnStatus = NULL) const;
    MStatus setIsWeighted(bool isWeighted, MAnimCurveChange* change = NULL);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
