#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <maya/MArrayIteratorTemplate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Array of MDagPath values.
class OPENMAYA_EXPORT MDagPathArray
{
public:
    typedef MArrayIteratorTemplate<MDagPathArray, MDagPath> Iterator;
    typedef MArrayConstIteratorTemplate<MDagPathArray, MDagPath> ConstIterator;

    MDagPathArray();
    MDagPathArray(const MDagPathArray& other);
    MDagPathArray(unsigned int initializeSize, const MDagPath& initialValue);
    ~MDagPathArray();
    MDagPathArray& operator=(const MDagPathArray& other);
    const MDagPath& operator[](unsigned int index) const;
    MStatus set(const MDagPath& element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(const MDagPath& element, unsigned int index);
    MStatus append(const MDagPath& element);
    MStatus copy(const MDagPathArray& source);
    MStatus clear();
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

BEGIN_NO_SCRIPT_SUPPORT:
    MDagPath& operator[](unsigned int index);
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
