#pragma once
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MArrayIteratorTemplate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Array of MObject values.
class OPENMAYA_EXPORT MObjectArray
{
public:
    typedef MArrayIteratorTemplate<MObjectArray, MObject> Iterator;
    typedef MArrayConstIteratorTemplate<MObjectArray, MObject> ConstIterator;

    MObjectArray();
    MObjectArray(const MObjectArray& other);
    MObjectArray(unsigned int initialSize, const MObject& initialValue = MObject::kNullObj);
    ~MObjectArray();
    MObjectArray& operator=(const MObjectArray&);
    const MObject& operator[](unsigned int index) const;
    MStatus set(const MObject& element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(const MObject& element, unsigned int index);
    MStatus append(const MObject& element);
    MStatus copy(const MObjectArray& source);
    MStatus clear();
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

BEGIN_NO_SCRIPT_SUPPORT:
    MObjectArray(const MObject src[], unsigned int count);
    MStatus get(MObject array[]) const;
    MObject& operator[](unsigned int index);
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
