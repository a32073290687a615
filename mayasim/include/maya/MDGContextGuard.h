#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Makes a context current for the guard's lifetime, then restores the
//! previous one.
class OPENMAYA_EXPORT MDGContextGuard
{
public:
    ~MDGContextGuard();
    MDGContextGuard(const MDGContext& tempContext);

    MDGContextGuard() = delete;
    MDGContextGuard(const MDGContextGuard&) = delete;
    MDGContextGuard& operator=(const MDGContextGuard&) = delete;

private:
    MDGContext* fPrevious;
};

OPENMAYA_NAMESPACE_CLOSE
