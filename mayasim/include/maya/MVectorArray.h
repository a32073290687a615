#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <maya/MVector.h>
#include <maya/MArrayIteratorTemplate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Array of MVector values.
class OPENMAYA_EXPORT MVectorArray
{
public:
    typedef MArrayIteratorTemplate<MVectorArray, MVector> Iterator;
    typedef MArrayConstIteratorTemplate<MVectorArray, MVector> ConstIterator;

    MVectorArray();
    MVectorArray(const MVectorArray& other);
BEGIN_NO_SCRIPT_SUPPORT:
    MVectorArray(const MVector vectors[], unsigned int count);
END_NO_SCRIPT_SUPPORT:
    MVectorArray(const double vectors[][3], unsigned int count);
    MVectorArray(const float vectors[][3], unsigned int count);
    MVectorArray(unsigned int initialSize, const MVector& initialValue = MVector::zero);
    ~MVectorArray();
    const MVector& operator[](unsigned int index) const;
    MVectorArray& operator=(const MVectorArray& other);
    MStatus set(const MVector& element, unsigned int index);
    MStatus set(double element[3], unsigned int index);
    MStatus set(float element[3], unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(const MVector& element, unsigned int index);
    MStatus append(const MVector& element);
    MStatus copy(const MVectorArray& source);
    MStatus clear();
    MStatus get(double[][3]) const;
    MStatus get(float[][3]) const;
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

BEGIN_NO_SCRIPT_SUPPORT:
    MVector& operator[](unsigned int index);
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
