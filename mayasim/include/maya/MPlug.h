#pragma once
#include <maya/MTypes.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <vector>

namespace mayasim {
struct PlugAccess;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A node's attribute, or one element or child of it, as a connection point
//! with a value.
class OPENMAYA_EXPORT MPlug
{
public:
    MPlug();
    MPlug(const MPlug& in);
    MPlug(const MObject& node, const MObject& attribute);
    ~MPlug();

    MStatus setAttribute(MObject& attribute);
    MObject attribute(MStatus* ReturnStatus = NULL) const;
    MObject node(MStatus* ReturnStatus = NULL) const;
    MString name(MStatus* ReturnStatus = NULL) const;
    MString partialName(bool includeNodeName = false, bool includeNonMandatoryIndices = false,
                        bool includeInstancedIndices = false, bool useAlias = false,
                        bool useFullAttributePath = false, bool useLongNames = false,
                        MStatus* ReturnStatus = NULL) const;
    MString info(MStatus* ReturnStatus = NULL) const;

    bool isNetworked(MStatus* ReturnStatus = NULL) const;
    bool isArray(MStatus* ReturnStatus = NULL) const;
    bool isElement(MStatus* ReturnStatus = NULL) const;
    bool isCompound(MStatus* ReturnStatus = NULL) const;
    bool isChild(MStatus* ReturnStatus = NULL) const;
    bool isDynamic(MStatus* ReturnStatus = NULL) const;
    bool isNull(MStatus* ReturnStatus = NULL) const;
    bool isFromReferencedFile(MStatus* ReturnStatus = NULL) const;

    unsigned int logicalIndex(MStatus* ReturnStatus = NULL) const;
    MPlug elementByLogicalIndex(unsigned int logicalIndex, MStatus* ReturnStatus = NULL) const;
    MPlug elementByPhysicalIndex(unsigned int physicalIndex, MStatus* ReturnStatus = NULL) const;
    MPlug array(MStatus* ReturnStatus = NULL) const;
    MPlug parent(MStatus* ReturnStatus = NULL) const;
    MPlug child(const MObject& attr, MStatus* ReturnStatus = NULL) const;
    MPlug child(unsigned int index, MStatus* ReturnStatus = NULL) const;
    unsigned int numElements(MStatus* ReturnStatus = NULL) const;
    unsigned int evaluateNumElements(MStatus* ReturnStatus = NULL) const;
    unsigned int numChildren(MStatus* ReturnStatus = NULL) const;
    unsigned int numConnectedElements(MStatus* ReturnStatus = NULL) const;
    unsigned int numConnectedChildren(MStatus* ReturnStatus = NULL) const;
    int getExistingArrayAttributeIndices(MIntArray& indices, MStatus* ReturnStatus = NULL);
    MStatus setNumElements(unsigned int);

    bool connectedTo(MPlugArray& array, bool asDst, bool asSrc, MStatus* ReturnStatus = NULL) const;
    bool isConnected(MStatus* ReturnStatus = NULL) const;
    bool isSource(MStatus* ReturnStatus = NULL) const;
    bool isDestination(MStatus* ReturnStatus = NULL) const;
    MPlug source(MStatus* ReturnStatus = NULL) const;
    bool destinations(MPlugArray& theDestinations, MStatus* ReturnStatus = NULL) const;

    bool isKeyable(MStatus* ReturnStatus = NULL) const;
    MStatus setKeyable(bool keyable);
    bool isLocked(MStatus* ReturnStatus = NULL) const;
    MStatus setLocked(bool locked);
    bool isChannelBoxFlagSet(MStatus* ReturnStatus = NULL) const;
    MStatus setChannelBox(bool channelBox);

    MObject asMObject(MStatus* ReturnStatus = NULL) const;
    MObject asMObject(const MDGContext& ctx, MStatus* ReturnStatus = NULL) const;
    double asDouble(MStatus* ReturnStatus = NULL) const;
    double asDouble(const MDGContext& ctx, MStatus* ReturnStatus = NULL) const;
    float asFloat(MStatus* ReturnStatus = NULL) const;
    float asFloat(const MDGContext& ctx, MStatus* ReturnStatus = NULL) const;
    MInt64 asInt64(MStatus* ReturnStatus = NULL) const;
    MInt64 asInt64(const MDGContext& ctx, MStatus* ReturnStatus = NULL) const;
    int asInt(MStatus* ReturnStatus = NULL) const;
    int asInt(const MDGContext& ctx, MStatus* ReturnStatus = NULL) const;
    short asShort(MStatus* ReturnStatus = NULL) const;
    short asShort(const MDGContext& ctx, MStatus* ReturnStatus = NULL) const;
    bool asBool(MStatus* ReturnStatus = NULL) const;
    bool asBool(const MDGContext& ctx, MStatus* ReturnStatus = NULL) const;
    MDistance asMDistance(MStatus* ReturnStatus = NULL) const;
    MDistance asMDistance(const MDGContext& ctx, MStatus* ReturnStatus = NULL) const;
    MAngle asMAngle(MStatus* ReturnStatus = NULL) const;
    MAngle asMAngle(const MDGContext& ctx, MStatus* ReturnStatus = NULL) const;
    MTime asMTime(MStatus* ReturnStatus = NULL) const;
    MTime asMTime(const MDGContext& ctx, MStatus* ReturnStatus = NULL) const;
    char asChar(MStatus* ReturnStatus = NULL) const;
    char asChar(const MDGContext& ctx, MStatus* ReturnStatus = NULL) const;
    MString asString(MStatus* ReturnStatus = NULL) const;
    MString asString(const MDGContext& ctx, MStatus* ReturnStatus = NULL) const;

    MStatus setMObject(const MObject& val);
    MStatus setDouble(double val);
    MStatus setFloat(float val);
    MStatus setInt(int val);
    MStatus setInt64(MInt64 val);
    MStatus setShort(short val);
    MStatus setBool(bool val);
    MStatus setMDistance(const MDistance& val);
    MStatus setMAngle(const MAngle& val);
    MStatus setMTime(const MTime& val);
    MStatus setChar(char val);
    MStatus setString(const MString& val);

    MPlug& operator=(const MPlug& other);
    MPlug operator[](MObject& attr) const;
    MPlug operator[](unsigned int physicalIndex) const;
    bool operator==(const MPlug& other) const;
    bool operator==(const MObject& other) const;
    bool operator!=(const MPlug& other) const;
    bool operator!=(const MObject& other) const;
    operator MObject() const;

    static const char* className();

private:
    MObject fNode;
    MObject fAttribute;
    // One logical index per array attribute on the path from the root
    // attribute down to fAttribute; -1 where no element is chosen.
    std::vector<int> fIndices;

    friend struct mayasim::PlugAccess;
};

OPENMAYA_NAMESPACE_CLOSE
