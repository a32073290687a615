#pragma once
#include <maya/MTypes.h>
#include <mayasim/ArrayStore.h>
#include <maya/MPoint.h>

//! Array of MPoint values.
class OPENMAYA_EXPORT MPointArray : public mayasim::ArrayStore<MPoint, MPointArray>
{
public:
    MPointArray() = default;
    MPointArray(const MPointArray& other) = default;
    MPointArray(const MPoint src[], unsigned int count) : ArrayStore(src, count) {}
    MPointArray(unsigned int initialSize, MPoint initialValue = MPoint()) : ArrayStore(initialSize, initialValue) {}
    MPointArray& operator=(const MPointArray& other) = default;
};
