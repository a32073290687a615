#pragma once
#include <maya/MTypes.h>
#include <mayasim/ArrayStore.h>


//! Array of float values.
class OPENMAYA_EXPORT MFloatArray : public mayasim::ArrayStore<float, MFloatArray>
{
public:
    MFloatArray() = default;
    MFloatArray(const MFloatArray& other) = default;
    MFloatArray(const float src[], unsigned int count) : ArrayStore(src, count) {}
    MFloatArray(unsigned int initialSize, float initialValue = 0.0f) : ArrayStore(initialSize, initialValue) {}
    MFloatArray& operator=(const MFloatArray& other) = default;
};
