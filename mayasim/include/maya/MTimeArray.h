#pragma once
#include <maya/MTypes.h>
#include <mayasim/ArrayStore.h>
#include <maya/MTime.h>

//! Array of MTime values.
class OPENMAYA_EXPORT MTimeArray : public mayasim::ArrayStore<MTime, MTimeArray>
{
public:
    MTimeArray() = default;
    MTimeArray(const MTimeArray& other) = default;
    MTimeArray(const MTime src[], unsigned int count) : ArrayStore(src, count) {}
    MTimeArray(unsigned int initialSize, MTime initialValue = MTime()) : ArrayStore(initialSize, initialValue) {}
    MTimeArray& operator=(const MTimeArray& other) = default;
};
