#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <maya/MDataHandle.h>

namespace mayasim {
struct DataAccess;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! The values of one node's attributes during a compute.
class OPENMAYA_EXPORT MDataBlock
{
public:
    MDataBlock(const MDataBlock& in);
    virtual ~MDataBlock();

    MDataHandle inputValue(const MPlug& plug, MStatus* ReturnStatus = NULL);
    MDataHandle inputValue(const MObject& attribute, MStatus* ReturnStatus = NULL);
    MDataHandle outputValue(const MPlug& plug, MStatus* ReturnStatus = NULL);
    MDataHandle outputValue(const MObject& attribute, MStatus* ReturnStatus = NULL);
    MStatus setClean(const MPlug& plug);
    MStatus setClean(const MObject& attribute);
    bool isClean(const MPlug& plug);
    MDGContext context(MStatus* ReturnStatus = NULL);

    static const char* className();

private:
    friend struct mayasim::DataAccess;
    MDataBlock(void* storage);

    // A shared hold on the node's storage for one evaluation.
    alignas(void*) unsigned char fStorage[2 * sizeof(void*)];
};

OPENMAYA_NAMESPACE_CLOSE
