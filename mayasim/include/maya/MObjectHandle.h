#pragma once
#include <maya/MObject.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Tracks whether an MObject still refers to a live, valid object.
class OPENMAYA_EXPORT MObjectHandle
{
public:
    MObjectHandle();
    MObjectHandle(const MObject& object);
    MObjectHandle(const MObjectHandle& handle);
    ~MObjectHandle();
    MObject object() const;
    const MObject& objectRef() const;
    unsigned int hashCode() const;
    bool isValid() const;
    bool isAlive() const;

    bool operator==(const MObject& object) const;
    bool operator==(const MObjectHandle& object) const;
    bool operator!=(const MObject& object) const;
    bool operator!=(const MObjectHandle& object) const;

    MObjectHandle& operator=(const MObject& object);
    MObjectHandle& operator=(const MObjectHandle& other);

    static unsigned int objectHashCode(const MObject&);

private:
    // A handle doesn't keep its object alive: Maya frees a deleted node once
    // nothing (the undo queue) holds it, and the handle then reports it dead.
    alignas(void*) unsigned char fObject[2 * sizeof(void*)];
    mutable MObject fRef; // what objectRef() last handed out
    unsigned int fHash = 0;
};

OPENMAYA_NAMESPACE_CLOSE
