#pragma once
#include <maya/MFn.h>
#include <maya/MTypes.h>

namespace mayasim {
struct ObjectAccess;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Generic handle on an internal Maya object (node, attribute, data).
class OPENMAYA_EXPORT MObject
{
public:
    MObject();
    MObject(const MObject& other);
    MObject(MObject&& other) noexcept;
    ~MObject();
    bool hasFn(MFn::Type fs) const;
    bool isNull() const;
    MFn::Type apiType() const;
    const char* apiTypeStr() const;
    bool operator==(const MObject& other) const;
    bool operator!=(const MObject& other) const;
    MObject& operator=(const MObject& other);
    MObject& operator=(MObject&& other) noexcept;

    static MObject kNullObj;

private:
    friend struct mayasim::ObjectAccess;
    MObject(void* object);

    // A shared hold on the object behind the handle.
    alignas(void*) unsigned char fObject[2 * sizeof(void*)];
};

OPENMAYA_NAMESPACE_CLOSE
