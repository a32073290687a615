#pragma once
#include <maya/MTypes.h>
#include <mayasim/ArrayStore.h>


//! Array of double values.
class OPENMAYA_EXPORT MDoubleArray : public mayasim::ArrayStore<double, MDoubleArray>
{
public:
    MDoubleArray() = default;
    MDoubleArray(const MDoubleArray& other) = default;
    MDoubleArray(const double src[], unsigned int count) : ArrayStore(src, count) {}
    MDoubleArray(unsigned int initialSize, double initialValue = 0.0) : ArrayStore(initialSize, initialValue) {}
    MDoubleArray& operator=(const MDoubleArray& other) = default;
};
