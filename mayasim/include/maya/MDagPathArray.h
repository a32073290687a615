#pragma once
#include <maya/MTypes.h>
#include <mayasim/ArrayStore.h>
#include <maya/MDagPath.h>

//! Array of MDagPath values.
class OPENMAYA_EXPORT MDagPathArray : public mayasim::ArrayStore<MDagPath, MDagPathArray>
{
public:
    MDagPathArray() = default;
    MDagPathArray(const MDagPathArray& other) = default;
    MDagPathArray(const MDagPath src[], unsigned int count) : ArrayStore(src, count) {}
    MDagPathArray(unsigned int initialSize, MDagPath initialValue = MDagPath()) : ArrayStore(initialSize, initialValue) {}
    MDagPathArray& operator=(const MDagPathArray& other) = default;
};
