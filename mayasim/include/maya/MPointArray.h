#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <maya/MPoint.h>
#include <maya/MArrayIteratorTemplate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Array of MPoint values.
class OPENMAYA_EXPORT MPointArray
{
public:
    typedef MArrayIteratorTemplate<MPointArray, MPoint> Iterator;
    typedef MArrayConstIteratorTemplate<MPointArray, MPoint> ConstIterator;

    MPointArray();
    MPointArray(const MPointArray& other);
BEGIN_NO_SCRIPT_SUPPORT:
    MPointArray(const MPoint points[], unsigned int count);
END_NO_SCRIPT_SUPPORT:
    MPointArray(const double points[][4], unsigned int count);
    MPointArray(const float points[][4], unsigned int count);
    MPointArray(unsigned int initialSize, const MPoint& initialValue = MPoint::origin);
    ~MPointArray();
    const MPoint& operator[](unsigned int index) const;
    MPointArray& operator=(const MPointArray& other);
    MStatus set(const MPoint& element, unsigned int index);
    MStatus set(unsigned int index, double x, double y, double z = 0, double w = 1);
    MStatus set(double element[4], unsigned int index);
    MStatus set(float element[4], unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(const MPoint& element, unsigned int index);
    MStatus append(const MPoint& element);
    MStatus append(double x, double y, double z = 0, double w = 1);
    MStatus copy(const MPointArray& source);
    MStatus clear();
    MStatus get(double[][4]) const;
    MStatus get(float[][4]) const;
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

BEGIN_NO_SCRIPT_SUPPORT:
    MPoint& operator[](unsigned int index);
    Iterator begin();
    Iterator end();
    ConstIterator begin() const;
    ConstIterator end() const;
    ConstIterator cbegin() const;
    ConstIterator cend() const;
END_NO_SCRIPT_SUPPORT:

    static const char* className();

private:
    void* fArray; // the elements, owned
};

OPENMAYA_NAMESPACE_CLOSE
