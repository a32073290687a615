#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <string.h>
#include <maya/MFnNumericData.h>
#include <maya/MFnData.h>
#include <maya/MTypeId.h>
#include <maya/MObject.h>
#include <maya/MDeprecate.h>

namespace mayasim {
struct DataAccess;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! One attribute's value inside a node's data block, for compute and for
//! internal attributes.
class OPENMAYA_EXPORT MDataHandle
{
public:
    MDataHandle();
    MDataHandle(const MDataHandle& other);
    MDataHandle& operator=(const MDataHandle& other);
    ~MDataHandle();

    bool isNumeric() const;
    MObject attribute();

    bool& asBool() const;
    char& asChar() const;
    unsigned char& asUChar() const;
    short& asShort() const;
    int& asInt() const;
    MInt64& asInt64() const;
    float& asFloat() const;
    double& asDouble() const;
    MDistance asDistance() const;
    MAngle asAngle() const;
    MTime asTime() const;
    MMatrix& asMatrix() const;
    MString& asString() const;
    MObject data();

    void set(bool);
    void set(char);
    void set(short);
    void set(int);
    void set(MInt64);
    void set(float);
    void set(double);
    void set(const MMatrix&);
    void set(const MDistance&);
    void set(const MAngle&);
    void set(const MTime&);
    void set(const MString&);
    MStatus set(const MObject& data);
    void setBool(bool);
    void setChar(char);
    void setShort(short);
    void setInt(int);
    void setInt64(MInt64);
    void setFloat(float);
    void setDouble(double);
    void setMMatrix(const MMatrix&);
    void setMDistance(const MDistance&);
    void setMAngle(const MAngle&);
    void setMTime(const MTime&);
    void setString(const MString&);
    void setClean();

private:
    friend struct mayasim::DataAccess;
    MDataHandle(void* slot);

    // A shared hold on the value slot the handle works on.
    alignas(void*) unsigned char fSlot[2 * sizeof(void*)];
};

OPENMAYA_NAMESPACE_CLOSE
