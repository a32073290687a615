#pragma once
// What an MObject points at. Nodes, attributes and data objects all derive
// from mayasim::Object; MObject shares ownership, so an object stays in
// memory while any MObject (or the undo queue) still holds it.
#include <maya/MFn.h>
#include <maya/MObject.h>

#include <memory>

namespace mayasim {

class Object : public std::enable_shared_from_this<Object>
{
public:
    virtual ~Object() = default;
    virtual MFn::Type apiType() const = 0;
    // True for the object's own type and every type it derives from.
    virtual bool hasFn(MFn::Type type) const = 0;
};

// Between an MObject and the object it holds.
struct ObjectAccess
{
    static MObject make(std::shared_ptr<Object> object);
    static const std::shared_ptr<Object>& shared(const MObject& object);
};

inline MObject makeObject(std::shared_ptr<Object> object)
{
    return ObjectAccess::make(std::move(object));
}

inline const std::shared_ptr<Object>& sharedObject(const MObject& object)
{
    return ObjectAccess::shared(object);
}

} // namespace mayasim
