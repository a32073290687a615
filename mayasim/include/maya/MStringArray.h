#pragma once
#include <maya/MTypes.h>
#include <mayasim/ArrayStore.h>
#include <maya/MString.h>

//! Array of MString values.
class OPENMAYA_EXPORT MStringArray : public mayasim::ArrayStore<MString, MStringArray>
{
public:
    MStringArray() = default;
    MStringArray(const MStringArray& other) = default;
    MStringArray(const MString src[], unsigned int count) : ArrayStore(src, count) {}
    MStringArray(unsigned int initialSize, MString initialValue = MString()) : ArrayStore(initialSize, initialValue) {}
    MStringArray& operator=(const MStringArray& other) = default;
};
