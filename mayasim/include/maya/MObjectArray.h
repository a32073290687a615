#pragma once
#include <maya/MTypes.h>
#include <mayasim/ArrayStore.h>
#include <maya/MObject.h>

//! Array of MObject values.
class OPENMAYA_EXPORT MObjectArray : public mayasim::ArrayStore<MObject, MObjectArray>
{
public:
    MObjectArray() = default;
    MObjectArray(const MObjectArray& other) = default;
    MObjectArray(const MObject src[], unsigned int count) : ArrayStore(src, count) {}
    MObjectArray(unsigned int initialSize, MObject initialValue = MObject()) : ArrayStore(initialSize, initialValue) {}
    MObjectArray& operator=(const MObjectArray& other) = default;
};
