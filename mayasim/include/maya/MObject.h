#pragma once
#include <maya/MTypes.h>
#include <maya/MFn.h>
#include <memory>

namespace mayasim {
class Object;
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
    static const char* className();

    // mayasim: the object behind the handle.
    explicit MObject(std::shared_ptr<mayasim::Object> object);
    const std::shared_ptr<mayasim::Object>& simObject() const { return fObject; }

private:
    std::shared_ptr<mayasim::Object> fObject;
};

OPENMAYA_NAMESPACE_CLOSE
