#pragma once
#include <maya/MTypes.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MDataHandle.h>
#include <maya/MDGContext.h>
#include <memory>

namespace mayasim {
class DataBlockStorage;
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

    // mayasim: a block over a node's storage for one evaluation.
    explicit MDataBlock(std::shared_ptr<mayasim::DataBlockStorage> storage);

private:
    std::shared_ptr<mayasim::DataBlockStorage> fStorage;
};

OPENMAYA_NAMESPACE_CLOSE
