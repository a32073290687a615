#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <maya/MArrayIteratorTemplate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Array of MString values.
class OPENMAYA_EXPORT MStringArray
{
public:
    typedef MArrayIteratorTemplate<MStringArray, MString> Iterator;
    typedef MArrayConstIteratorTemplate<MStringArray, MString> ConstIterator;

    MStringArray();
    MStringArray(const MStringArray& other);
    MStringArray(const MString strings[], unsigned int count);
    MStringArray(const char* strings[], unsigned int count);
    MStringArray(unsigned int initialSize, const MString& initialValue);
    ~MStringArray();
    MString operator[](unsigned int index) const;
    MStringArray& operator=(const MStringArray& other);
    MStatus set(const MString& element, unsigned int index);
    MStatus set(char* element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(const MString& element, unsigned int index);
    MStatus append(const MString& element);
    MStatus clear();
    MStatus get(MString array[]) const;
    MStatus get(char* array[]) const;
    int indexOf(const MString& element) const;
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

BEGIN_NO_SCRIPT_SUPPORT:
    MString& operator[](unsigned int index);
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
