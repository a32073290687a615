#pragma once
#include <maya/MTime.h>
#include <maya/MStatus.h>
#include <maya/MArrayIteratorTemplate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Array of MTime values.
class OPENMAYA_EXPORT MTimeArray
{
public:
    typedef MArrayIteratorTemplate<MTimeArray, MTime> Iterator;
    typedef MArrayConstIteratorTemplate<MTimeArray, MTime> ConstIterator;

    MTimeArray();
    MTimeArray(const MTimeArray& other);
    MTimeArray(unsigned int initialSize, const MTime& initialValue);
    ~MTimeArray();
    MTimeArray& operator=(const MTimeArray&);
    const MTime& operator[](unsigned int index) const;
    MStatus set(const MTime& element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(const MTime& element, unsigned int index);
    MStatus append(const MTime& element);
    MStatus copy(const MTimeArray& source);
    MStatus clear();
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

BEGIN_NO_SCRIPT_SUPPORT:
    MTimeArray(const MTime src[], unsigned int count);
    MTime& operator[](unsigned int index);
    MStatus get(MTime array[]) const;
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
