#pragma once
#include <maya/MTypes.h>
#include <mayasim/ArrayStore.h>
#include <maya/MPlug.h>

//! Array of MPlug values.
class OPENMAYA_EXPORT MPlugArray : public mayasim::ArrayStore<MPlug, MPlugArray>
{
public:
    MPlugArray() = default;
    MPlugArray(const MPlugArray& other) = default;
    MPlugArray(const MPlug src[], unsigned int count) : ArrayStore(src, count) {}
    MPlugArray(unsigned int initialSize, MPlug initialValue = MPlug()) : ArrayStore(initialSize, initialValue) {}
    MPlugArray& operator=(const MPlugArray& other) = default;
};
