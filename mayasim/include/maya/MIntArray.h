#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <maya/MArrayIteratorTemplate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Array of int values.
class OPENMAYA_EXPORT MIntArray
{
public:
    typedef MArrayIteratorTemplate<MIntArray, int> Iterator;
    typedef MArrayConstIteratorTemplate<MIntArray, int> ConstIterator;

    MIntArray();
    MIntArray(const MIntArray& other);
    MIntArray(const int src[], unsigned int count);
    MIntArray(unsigned int initialSize, int initialValue = 0);
    ~MIntArray();
    MIntArray& operator=(const MIntArray& other);
    MStatus set(int element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(int element, unsigned int index);
    MStatus append(int element);
    MStatus copy(const MIntArray& source);
    MStatus clear();
    MStatus get(int[]) const;
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

BEGIN_NO_SCRIPT_SUPPORT:
    int& operator[](unsigned int index);
    int operator[](unsigned int index) const;
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
