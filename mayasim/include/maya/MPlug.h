#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <maya/MDGContext.h>
#include <maya/MObject.h>
#include <maya/MIntArray.h>
#include <maya/MDeprecate.h>

namespace mayasim {
struct PlugAccess;
struct PlugIndices;
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
    virtual ~MPlug();

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
    MPlug child(MObject& attr, MStatus* ReturnStatus = NULL) const;
    MPlug child(unsigned int index, MStatus* ReturnStatus = NULL) const;
    unsigned int numElements(MStatus* ReturnStatus = NULL) const;
    unsigned int evaluateNumElements(MStatus* ReturnStatus = NULL);
    unsigned int numChildren(MStatus* ReturnStatus = NULL) const;
    unsigned int numConnectedElements(MStatus* ReturnStatus = NULL) const;
    unsigned int numConnectedChildren(MStatus* ReturnStatus = NULL) const;
    unsigned int getExistingArrayAttributeIndices(MIntArray& indices, MStatus* ReturnStatus = NULL);
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
    double asDouble(MStatus* ReturnStatus = NULL) const;
    float asFloat(MStatus* ReturnStatus = NULL) const;
    MInt64 asInt64(MStatus* ReturnStatus = NULL) const;
    int asInt(MStatus* ReturnStatus = NULL) const;
    short asShort(MStatus* ReturnStatus = NULL) const;
    bool asBool(MStatus* ReturnStatus = NULL) const;
    MDistance asMDistance(MStatus* ReturnStatus = NULL) const;
    MAngle asMAngle(MStatus* ReturnStatus = NULL) const;
    MTime asMTime(MStatus* ReturnStatus = NULL) const;
    char asChar(MStatus* ReturnStatus = NULL) const;
    MString asString(MStatus* ReturnStatus = NULL) const;

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
    // attribute down to fAttribute, -1 where no element is chosen; null
    // when the path has no array.
    mayasim::PlugIndices* fIndices;

    friend struct mayasim::PlugAccess;

public:
    OPENMAYA_DEPRECATED(2018, "Use asMObject(MStatus*) instead. "
                              "If needed, use MDGContextGuard to switch the context.")
    MObject asMObject(const MDGContext&, MStatus* ReturnStatus = NULL) const;
    OPENMAYA_DEPRECATED(2018, "Use asDouble(MStatus*) instead. "
                              "If needed, use MDGContextGuard to switch the context.")
    double asDouble(const MDGContext&, MStatus* ReturnStatus = NULL) const;
    OPENMAYA_DEPRECATED(2018, "Use asFloat(MStatus*) instead. "
                              "If needed, use MDGContextGuard to switch the context.")
    float asFloat(const MDGContext&, MStatus* ReturnStatus = NULL) const;
    OPENMAYA_DEPRECATED(2018, "Use asInt64(MStatus*) instead. "
                              "If needed, use MDGContextGuard to switch the context.")
    MInt64 asInt64(const MDGContext&, MStatus* ReturnStatus = NULL) const;
    OPENMAYA_DEPRECATED(2018, "Use asInt(MStatus*) instead. "
                              "If needed, use MDGContextGuard to switch the context.")
    int asInt(const MDGContext&, MStatus* ReturnStatus = NULL) const;
    OPENMAYA_DEPRECATED(2018, "Use asShort(MStatus*) instead. "
                              "If needed, use MDGContextGuard to switch the context.")
    short asShort(const MDGContext&, MStatus* ReturnStatus = NULL) const;
    OPENMAYA_DEPRECATED(2018, "Use asBool(MStatus*) instead. "
                              "If needed, use MDGContextGuard to switch the context.")
    bool asBool(const MDGContext&, MStatus* ReturnStatus = NULL) const;
    OPENMAYA_DEPRECATED(2018, "Use asMDistance(MStatus*) instead. "
                              "If needed, use MDGContextGuard to switch the context.")
    MDistance asMDistance(const MDGContext&, MStatus* ReturnStatus = NULL) const;
    OPENMAYA_DEPRECATED(2018, "Use asMAngle(MStatus*) instead. "
                              "If needed, use MDGContextGuard to switch the context.")
    MAngle asMAngle(const MDGContext&, MStatus* ReturnStatus = NULL) const;
    OPENMAYA_DEPRECATED(2018, "Use asMTime(MStatus*) instead. "
                              "If needed, use MDGContextGuard to switch the context.")
    MTime asMTime(const MDGContext&, MStatus* ReturnStatus = NULL) const;
    OPENMAYA_DEPRECATED(2018, "Use asChar(MStatus*) instead. "
                              "If needed, use MDGContextGuard to switch the context.")
    char asChar(const MDGContext&, MStatus* ReturnStatus = NULL) const;
    OPENMAYA_DEPRECATED(2018, "Use asString(MStatus*) instead. "
                              "If needed, use MDGContextGuard to switch the context.")
    MString asString(const MDGContext&, MStatus* ReturnStatus = NULL) const;
};

OPENMAYA_NAMESPACE_CLOSE
