#include <maya/MDGContext.h>
#include <maya/MDGContextGuard.h>

#include "scene/Api.h"
#include "scene/Evaluation.h"

using mayasim::setStatus;

MDGContext MDGContext::fsNormal;

MDGContext::MDGContext() = default;

MDGContext::MDGContext(const MTime& when) : fNormal(false), fTime(when) {}

MDGContext::MDGContext(const MDGContext& in) = default;

MDGContext::~MDGContext() = default;

MDGContext& MDGContext::operator=(const MDGContext& other) = default;

MDGContext MDGContext::current()
{
    const mayasim::eval::Context& context = mayasim::eval::currentContext();
    return context.normal ? MDGContext() : MDGContext(context.time);
}

MDGContext MDGContext::makeCurrent() const
{
    MDGContext previous = current();
    mayasim::eval::setCurrentContext({fNormal, fTime});
    return previous;
}

bool MDGContext::isNormal(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return fNormal;
}

bool MDGContext::isCurrent(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    const mayasim::eval::Context& context = mayasim::eval::currentContext();
    return context.normal == fNormal && (fNormal || context.time == fTime);
}

MStatus MDGContext::getTime(MTime& outTime) const
{
    outTime = fNormal ? mayasim::eval::currentTime() : fTime;
    return MS::kSuccess;
}

MTime MDGContext::getTime(MStatus* ReturnStatus) const
{
    MTime time;
    MStatus status = getTime(time);
    if (ReturnStatus)
        *ReturnStatus = status;
    return time;
}

const char* MDGContext::className()
{
    return "MDGContext";
}

MDGContextGuard::MDGContextGuard(const MDGContext& context) : fPrevious(context.makeCurrent()) {}

MDGContextGuard::~MDGContextGuard()
{
    fPrevious.makeCurrent();
}
