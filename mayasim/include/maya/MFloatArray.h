#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <maya/MArrayIteratorTemplate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Array of float values.
class OPENMAYA_EXPORT MFloatArray
{
public:
    typedef MArrayIteratorTemplate<MFloatArray, float> Iterator;
    typedef MArrayConstIteratorTemplate<MFloatArray, float> ConstIterator;

    MFloatArray();
    MFloatArray(const MFloatArray& other);
    MFloatArray(const float src[], unsigned int count);
    MFloatArray(const double src[], unsigned int count);
    MFloatArray(unsigned int initialSize, float initialValue = 0);
    ~MFloatArray();
    MFloatArray& operator=(const MFloatArray& other);
    MStatus set(float element, unsigned int index);
    MStatus set(double element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(float element, unsigned int index);
    MStatus append(float element);
    MStatus copy(const MFloatArray& source);
    MStatus clear();
    MStatus get(float[]) const;
    MStatus get(double[]) const;
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

BEGIN_NO_SCRIPT_SUPPORT:
    float& operator[](unsigned int index);
    float operator[](unsigned int index) const;
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
