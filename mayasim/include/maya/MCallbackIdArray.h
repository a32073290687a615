#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <maya/MMessage.h>
#include <maya/MArrayIteratorTemplate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Array of MCallbackId values.
class OPENMAYA_EXPORT MCallbackIdArray
{
public:
    typedef MArrayIteratorTemplate<MCallbackIdArray, MCallbackId> Iterator;
    typedef MArrayConstIteratorTemplate<MCallbackIdArray, MCallbackId> ConstIterator;

    MCallbackIdArray();
    MCallbackIdArray(const MCallbackIdArray& other);
    MCallbackIdArray(unsigned int initialSize, MCallbackId initialValue = 0);
    ~MCallbackIdArray();
    MCallbackId operator[](unsigned int index) const;
    MCallbackIdArray& operator=(const MCallbackIdArray& other);
    MStatus set(MCallbackId element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(MCallbackId element, unsigned int index);
    MStatus append(MCallbackId element);
    MStatus copy(const MCallbackIdArray& source);
    MStatus clear();
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

BEGIN_NO_SCRIPT_SUPPORT:
    MCallbackIdArray(const MCallbackId src[], unsigned int count);
    MStatus get(MCallbackId[]) const;
    MCallbackId& operator[](unsigned int index);
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
