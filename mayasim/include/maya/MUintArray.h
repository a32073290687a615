#pragma once
#include <maya/MTypes.h>
#include <mayasim/ArrayStore.h>


//! Array of unsigned int values.
class OPENMAYA_EXPORT MUintArray : public mayasim::ArrayStore<unsigned int, MUintArray>
{
public:
    MUintArray() = default;
    MUintArray(const MUintArray& other) = default;
    MUintArray(const unsigned int src[], unsigned int count) : ArrayStore(src, count) {}
    MUintArray(unsigned int initialSize, unsigned int initialValue = 0u) : ArrayStore(initialSize, initialValue) {}
    MUintArray& operator=(const MUintArray& other) = default;
};
