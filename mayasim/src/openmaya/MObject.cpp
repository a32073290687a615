#include <maya/MObject.h>
#include <maya/MObjectHandle.h>

#include "scene/Node.h"

#include <functional>

MObject MObject::kNullObj;

MObject::MObject() = default;
MObject::MObject(const MObject& other) = default;
MObject::MObject(MObject&& other) noexcept = default;
MObject::~MObject() = default;
MObject& MObject::operator=(const MObject& other) = default;
MObject& MObject::operator=(MObject&& other) noexcept = default;

MObject::MObject(std::shared_ptr<mayasim::Object> object) : fObject(std::move(object)) {}

bool MObject::hasFn(MFn::Type fs) const
{
    return fObject && fObject->hasFn(fs);
}

bool MObject::isNull() const
{
    return !fObject;
}

MFn::Type MObject::apiType() const
{
    return fObject ? fObject->apiType() : MFn::kInvalid;
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
    return fObject == other.fObject;
}

bool MObject::operator!=(const MObject& other) const
{
    return fObject != other.fObject;
}

const char* MObject::className()
{
    return "MObject";
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

MObjectHandle::MObjectHandle() = default;

MObjectHandle::MObjectHandle(const MObject& object)
    : fObject(object.simObject()), fHash(hashOf(object.simObject()))
{
}

MObjectHandle::MObjectHandle(const MObjectHandle& handle) = default;

MObjectHandle::~MObjectHandle() = default;

MObject MObjectHandle::object() const
{
    return MObject(fObject.lock());
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
    std::shared_ptr<mayasim::Object> object = fObject.lock();
    if (!object)
        return false;
    const auto* node = dynamic_cast<const mayasim::Node*>(object.get());
    return !node || node->alive;
}

bool MObjectHandle::isAlive() const
{
    return !fObject.expired();
}

bool MObjectHandle::operator==(const MObject& object) const
{
    return fObject.lock() == object.simObject();
}

bool MObjectHandle::operator==(const MObjectHandle& other) const
{
    return fObject.lock() == other.fObject.lock();
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
    fObject = object.simObject();
    fHash = hashOf(object.simObject());
    fRef = MObject();
    return *this;
}

MObjectHandle& MObjectHandle::operator=(const MObjectHandle& other) = default;

unsigned int MObjectHandle::objectHashCode(const MObject& object)
{
    return hashOf(object.simObject());
}
