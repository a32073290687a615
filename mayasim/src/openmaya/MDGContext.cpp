#include <maya/MDGContext.h>
#include <maya/MDGContextGuard.h>
#include <maya/MTime.h>

#include "scene/Api.h"
#include "scene/Evaluation.h"

using mayasim::setStatus;

MDGContext MDGContext::fsNormal;

MDGContext::MDGContext() : fTime(nullptr) {}

MDGContext::MDGContext(const MTime& when) : fTime(new MTime(when)) {}

MDGContext::MDGContext(const MDGContext& in) : fTime(in.fTime ? new MTime(*in.fTime) : nullptr) {}

MDGContext::~MDGContext()
{
    delete fTime;
}

MDGContext& MDGContext::operator=(const MDGContext& other)
{
    if (this != &other) {
        MTime* copy = other.fTime ? new MTime(*other.fTime) : nullptr;
        delete fTime;
        fTime = copy;
    }
    return *this;
}

const MDGContext MDGContext::current()
{
    const mayasim::eval::Context& context = mayasim::eval::currentContext();
    return context.normal ? MDGContext() : MDGContext(context.time);
}

const MDGContext MDGContext::makeCurrent(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    MDGContext previous = current();
    mayasim::eval::setCurrentContext({fTime == nullptr, fTime ? *fTime : MTime()});
    return previous;
}

bool MDGContext::isNormal(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return fTime == nullptr;
}

bool MDGContext::isCurrent(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    const mayasim::eval::Context& context = mayasim::eval::currentContext();
    return context.normal == (fTime == nullptr) && (!fTime || context.time == *fTime);
}

MStatus MDGContext::getTime(MTime& outTime) const
{
    outTime = fTime ? *fTime : mayasim::eval::currentTime();
    return MS::kSuccess;
}

const char* MDGContext::className()
{
    return "MDGContext";
}

MDGContextGuard::MDGContextGuard(const MDGContext& tempContext) : fPrevious(new MDGContext(tempContext.makeCurrent()))
{
}

MDGContextGuard::~MDGContextGuard()
{
    fPrevious->makeCurrent();
    delete fPrevious;
}
