#include <maya/MObject.h>
#include <maya/MObjectHandle.h>

#include "foundation/InPlace.h"
#include "scene/Node.h"

#include <functional>

using mayasim::buildInPlace;
using mayasim::destroyInPlace;
using mayasim::inPlace;
using mayasim::sharedObject;

namespace {

using Hold = std::shared_ptr<mayasim::Object>;
using WeakHold = std::weak_ptr<mayasim::Object>;

} // namespace

MObject MObject::kNullObj;

MObject::MObject()
{
    buildInPlace<Hold>(fObject);
}

MObject::MObject(const MObject& other)
{
    buildInPlace<Hold>(fObject, inPlace<Hold>(other.fObject));
}

MObject::MObject(MObject&& other) noexcept
{
    buildInPlace<Hold>(fObject, std::move(inPlace<Hold>(other.fObject)));
}

MObject::MObject(void* object)
{
    buildInPlace<Hold>(fObject, std::move(*static_cast<Hold*>(object)));
}

MObject::~MObject()
{
    destroyInPlace<Hold>(fObject);
}

MObject& MObject::operator=(const MObject& other)
{
    inPlace<Hold>(fObject) = inPlace<Hold>(other.fObject);
    return *this;
}

MObject& MObject::operator=(MObject&& other) noexcept
{
    inPlace<Hold>(fObject) = std::move(inPlace<Hold>(other.fObject));
    return *this;
}

namespace mayasim {

MObject ObjectAccess::make(std::shared_ptr<Object> object)
{
    return MObject(&object);
}

const std::shared_ptr<Object>& ObjectAccess::shared(const MObject& object)
{
    return inPlace<Hold>(object.fObject);
}

} // namespace mayasim

bool MObject::hasFn(MFn::Type fs) const
{
    const Hold& object = inPlace<Hold>(fObject);
    return object && object->hasFn(fs);
}

bool MObject::isNull() const
{
    return !inPlace<Hold>(fObject);
}

MFn::Type MObject::apiType() const
{
    const Hold& object = inPlace<Hold>(fObject);
    return object ? object->apiType() : MFn::kInvalid;
}

const char* MObject::apiTypeStr() const
{
    // Names of the types mayasim's objects have; others print by number.
    switch (apiType())
    {
    case MFn::kInvalid: return "kInvalid";
    case MFn::kDependencyNode: return "kDependencyNode";
    case MFn::kTransform: return "kTransform";
    case MFn::kJoint: return "kJoint";
    case MFn::kLocator: return "kLocator";
    case MFn::kMesh: return "kMesh";
    case MFn::kCamera: return "kCamera";
    case MFn::kUnknown: return "kUnknown";
    case MFn::kPluginDependNode: return "kPluginDependNode";
    case MFn::kPluginLocatorNode: return "kPluginLocatorNode";
    case MFn::kNumericAttribute: return "kNumericAttribute";
    case MFn::kDoubleAngleAttribute: return "kDoubleAngleAttribute";
    case MFn::kDoubleLinearAttribute: return "kDoubleLinearAttribute";
    case MFn::kTimeAttribute: return "kTimeAttribute";
    case MFn::kEnumAttribute: return "kEnumAttribute";
    case MFn::kTypedAttribute: return "kTypedAttribute";
    case MFn::kCompoundAttribute: return "kCompoundAttribute";
    case MFn::kMatrixAttribute: return "kMatrixAttribute";
    case MFn::kMessageAttribute: return "kMessageAttribute";
    case MFn::kAttribute3Double: return "kAttribute3Double";
    default: return "kBase";
    }
}

bool MObject::operator==(const MObject& other) const
{
    return inPlace<Hold>(fObject) == inPlace<Hold>(other.fObject);
}

bool MObject::operator!=(const MObject& other) const
{
    return inPlace<Hold>(fObject) != inPlace<Hold>(other.fObject);
}

// --- MObjectHandle ---------------------------------------------------------

namespace {

unsigned int hashOf(const std::shared_ptr<mayasim::Object>& object)
{
    if (!object)
        return 0;
    return static_cast<unsigned int>(std::hash<const void*>()(object.get()));
}

} // namespace

MObjectHandle::MObjectHandle()
{
    buildInPlace<WeakHold>(fObject);
}

MObjectHandle::MObjectHandle(const MObject& object) : fHash(hashOf(sharedObject(object)))
{
    buildInPlace<WeakHold>(fObject, sharedObject(object));
}

MObjectHandle::MObjectHandle(const MObjectHandle& handle) : fRef(handle.fRef), fHash(handle.fHash)
{
    buildInPlace<WeakHold>(fObject, inPlace<WeakHold>(handle.fObject));
}

MObjectHandle::~MObjectHandle()
{
    destroyInPlace<WeakHold>(fObject);
}

MObject MObjectHandle::object() const
{
    return mayasim::makeObject(inPlace<WeakHold>(fObject).lock());
}

const MObject& MObjectHandle::objectRef() const
{
    fRef = object();
    return fRef;
}

unsigned int MObjectHandle::hashCode() const
{
    return fHash;
}

bool MObjectHandle::isValid() const
{
    const Hold object = inPlace<WeakHold>(fObject).lock();
    if (!object)
        return false;
    const auto* node = dynamic_cast<const mayasim::Node*>(object.get());
    return !node || node->alive;
}

bool MObjectHandle::isAlive() const
{
    return !inPlace<WeakHold>(fObject).expired();
}

bool MObjectHandle::operator==(const MObject& object) const
{
    return inPlace<WeakHold>(fObject).lock() == sharedObject(object);
}

bool MObjectHandle::operator==(const MObjectHandle& other) const
{
    return inPlace<WeakHold>(fObject).lock() == inPlace<WeakHold>(other.fObject).lock();
}

bool MObjectHandle::operator!=(const MObject& object) const
{
    return !(*this == object);
}

bool MObjectHandle::operator!=(const MObjectHandle& other) const
{
    return !(*this == other);
}

MObjectHandle& MObjectHandle::operator=(const MObject& object)
{
    inPlace<WeakHold>(fObject) = sharedObject(object);
    fHash = hashOf(sharedObject(object));
    fRef = MObject();
    return *this;
}

MObjectHandle& MObjectHandle::operator=(const MObjectHandle& other)
{
    inPlace<WeakHold>(fObject) = inPlace<WeakHold>(other.fObject);
    fRef = other.fRef;
    fHash = other.fHash;
    return *this;
}

unsigned int MObjectHandle::objectHashCode(const MObject& object)
{
    return hashOf(sharedObject(object));
}
