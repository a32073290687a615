#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <maya/MArrayIteratorTemplate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Array of unsigned int values.
class OPENMAYA_EXPORT MUintArray
{
public:
    typedef MArrayIteratorTemplate<MUintArray, unsigned int> Iterator;
    typedef MArrayConstIteratorTemplate<MUintArray, unsigned int> ConstIterator;

    MUintArray();
    MUintArray(const MUintArray& other);
    MUintArray(const unsigned int src[], unsigned int count);
    MUintArray(unsigned int initialSize, unsigned int initialValue = 0);
    ~MUintArray();
    MUintArray& operator=(const MUintArray& other);
    MStatus set(unsigned int element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(unsigned int element, unsigned int index);
    MStatus append(unsigned int element);
    MStatus copy(const MUintArray& source);
    MStatus clear();
    MStatus get(unsigned int[]) const;
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

BEGIN_NO_SCRIPT_SUPPORT:
    unsigned int& operator[](unsigned int index);
    unsigned int operator[](unsigned int index) const;
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
