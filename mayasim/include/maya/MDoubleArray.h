#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <maya/MArrayIteratorTemplate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Array of double values.
class OPENMAYA_EXPORT MDoubleArray
{
public:
    typedef MArrayIteratorTemplate<MDoubleArray, double> Iterator;
    typedef MArrayConstIteratorTemplate<MDoubleArray, double> ConstIterator;

    MDoubleArray();
    MDoubleArray(const MDoubleArray& other);
    MDoubleArray(const double src[], unsigned int count);
    MDoubleArray(const float src[], unsigned int count);
    MDoubleArray(unsigned int initialSize, double initialValue = 0);
    ~MDoubleArray();
    MDoubleArray& operator=(const MDoubleArray& other);
    MStatus set(double element, unsigned int index);
    MStatus set(float element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(double element, unsigned int index);
    MStatus append(double element);
    MStatus copy(const MDoubleArray& source);
    MStatus clear();
    MStatus get(double[]) const;
    MStatus get(float[]) const;
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

BEGIN_NO_SCRIPT_SUPPORT:
    double& operator[](unsigned int index);
    double operator[](unsigned int index) const;
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
