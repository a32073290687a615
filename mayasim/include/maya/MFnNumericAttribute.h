#pragma once
#include <maya/MFnAttribute.h>
#include <maya/MFnNumericData.h>
#include <maya/MObject.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for numeric attributes (and compounds of 2 to 4 numbers).
class OPENMAYA_EXPORT MFnNumericAttribute : public MFnAttribute
{
public:
    MFnNumericAttribute();
    MFnNumericAttribute(MObject& object, MStatus* ReturnStatus = NULL);
    MFnNumericAttribute(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnNumericAttribute() override;
    MFn::Type type() const override;

    MObject create(const MString& fullName, const MString& briefName, MFnNumericData::Type unitType,
                   double defaultValue = 0, MStatus* ReturnStatus = NULL);
    MObject createColor(const MString& fullName, const MString& briefName, MStatus* ReturnStatus = NULL);
    MObject createPoint(const MString& fullName, const MString& briefName, MStatus* ReturnStatus = NULL);
    MObject create(const MString& fullName, const MString& briefName, const MObject& child1,
                   const MObject& child2, const MObject& child3 = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MObject create(const MString& fullName, const MString& briefName, const MObject& child1,
                   const MObject& child2, const MObject& child3, const MObject& child4,
                   MStatus* ReturnStatus = NULL);
    MFnNumericData::Type unitType(MStatus* ReturnStatus = NULL) const;
    MObject child(unsigned int index, MStatus* ReturnStatus = NULL) const;

    bool hasMin(MStatus* ReturnStatus = NULL) const;
    bool hasMax(MStatus* ReturnStatus = NULL) const;
    bool hasSoftMin(MStatus* ReturnStatus = NULL) const;
    bool hasSoftMax(MStatus* ReturnStatus = NULL) const;
    MStatus getMin(double& min1) const;
    MStatus getMax(double& max1) const;
    MStatus getSoftMin(double& min1) const;
    MStatus getSoftMax(double& max1) const;
    MStatus setMin(double min1);
    MStatus setMax(double max1);
    MStatus setSoftMin(double min1);
    MStatus setSoftMax(double max1);

    MStatus getDefault(bool& def1);
    MStatus getDefault(char& def1);
    MStatus getDefault(int& def1);
    MStatus getDefault(MInt64& def1);
    MStatus getDefault(float& def1);
    MStatus getDefault(double& def1);
    MStatus setDefault(bool def1);
    MStatus setDefault(char def1);
    MStatus setDefault(int def1);
    MStatus setDefault(MInt64 def1);
    MStatus setDefault(float def1);
    MStatus setDefault(double def1);
    MStatus setDefault(double def1, double def2);
    MStatus setDefault(double def1, double def2, double def3);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
