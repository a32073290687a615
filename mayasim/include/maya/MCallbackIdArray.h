#pragma once
#include <maya/MTypes.h>
#include <mayasim/ArrayStore.h>


//! Array of MCallbackId values.
class OPENMAYA_EXPORT MCallbackIdArray : public mayasim::ArrayStore<MCallbackId, MCallbackIdArray>
{
public:
    MCallbackIdArray() = default;
    MCallbackIdArray(const MCallbackIdArray& other) = default;
    MCallbackIdArray(const MCallbackId src[], unsigned int count) : ArrayStore(src, count) {}
    MCallbackIdArray(unsigned int initialSize, MCallbackId initialValue = 0) : ArrayStore(initialSize, initialValue) {}
    MCallbackIdArray& operator=(const MCallbackIdArray& other) = default;
};
