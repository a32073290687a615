#include <maya/MFnBase.h>
#include <maya/MObject.h>

MFnBase::MFnBase() : fObject(*new MObject()) {}
MFnBase::~MFnBase() { delete &fObject; }

MFn::Type MFnBase::type() const
{
    return MFn::kBase;
}

bool MFnBase::hasObj(MFn::Type fnType) const
{
    return fnType == type() || fnType == MFn::kBase;
}

bool MFnBase::hasObj(const MObject& object) const
{
    return !object.isNull() && object.hasFn(type());
}

MObject MFnBase::object(MStatus* ReturnStatus) const
{
    if (ReturnStatus)
        *ReturnStatus = fObject.isNull() ? MS::kFailure : MS::kSuccess;
    return fObject;
}

MStatus MFnBase::setObject(MObject& object)
{
    return attach(object, nullptr);
}

MStatus MFnBase::setObject(const MObject& object)
{
    return attach(object, nullptr);
}

MStatus MFnBase::attach(const MObject& object, MStatus* ReturnStatus)
{
    MStatus status = hasObj(object) ? MS::kSuccess : MS::kInvalidParameter;
    fObject = status ? object : MObject();
    if (ReturnStatus)
        *ReturnStatus = status;
    return status;
}

const char* MFnBase::className()
{
    return "MFnBase";
}
