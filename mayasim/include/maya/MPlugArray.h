#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <maya/MArrayIteratorTemplate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Array of MPlug values.
class OPENMAYA_EXPORT MPlugArray
{
public:
    typedef MArrayIteratorTemplate<MPlugArray, MPlug> Iterator;
    typedef MArrayConstIteratorTemplate<MPlugArray, MPlug> ConstIterator;

    MPlugArray();
    MPlugArray(const MPlugArray& other);
    MPlugArray(unsigned int initializeSize, const MPlug& initialValue);
    ~MPlugArray();
    MPlugArray& operator=(const MPlugArray& other);
    const MPlug& operator[](unsigned int index) const;
    MStatus set(const MPlug& element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(const MPlug& element, unsigned int index);
    MStatus append(const MPlug& element);
    MStatus copy(const MPlugArray& source);
    MStatus clear();
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

BEGIN_NO_SCRIPT_SUPPORT:
    MPlugArray(const MPlug src[], unsigned int count);
    MStatus get(MPlug dest[]) const;
    MPlug& operator[](unsigned int index);
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
