#pragma once
#include <maya/MTypes.h>
#include <mayasim/ArrayStore.h>


//! Array of int values.
class OPENMAYA_EXPORT MIntArray : public mayasim::ArrayStore<int, MIntArray>
{
public:
    MIntArray() = default;
    MIntArray(const MIntArray& other) = default;
    MIntArray(const int src[], unsigned int count) : ArrayStore(src, count) {}
    MIntArray(unsigned int initialSize, int initialValue = 0) : ArrayStore(initialSize, initialValue) {}
    MIntArray& operator=(const MIntArray& other) = default;
};
