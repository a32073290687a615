#pragma once
#include <maya/MTypes.h>
#include <mayasim/ArrayStore.h>
#include <maya/MVector.h>

//! Array of MVector values.
class OPENMAYA_EXPORT MVectorArray : public mayasim::ArrayStore<MVector, MVectorArray>
{
public:
    MVectorArray() = default;
    MVectorArray(const MVectorArray& other) = default;
    MVectorArray(const MVector src[], unsigned int count) : ArrayStore(src, count) {}
    MVectorArray(unsigned int initialSize, MVector initialValue = MVector()) : ArrayStore(initialSize, initialValue) {}
    MVectorArray& operator=(const MVectorArray& other) = default;
};
