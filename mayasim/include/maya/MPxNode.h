#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <maya/MObject.h>
#include <maya/MObjectArray.h>
#include <maya/MTypeId.h>
#include <maya/MDataHandle.h>
#include <maya/MDataBlock.h>
#include <maya/MPlug.h>
#include <maya/MString.h>
#include <maya/MDGContext.h>
#include <maya/MDeprecate.h>

namespace mayasim {
class Node;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Base class of node types defined by plug-ins.
class OPENMAYA_EXPORT MPxNode
{
public:
    enum Type
    {
        kDependNode,
        kLocatorNode,
        kDeformerNode,
        kManipContainer,
        kSurfaceShape,
        kFieldNode,
        kEmitterNode,
        kSpringNode,
        kIkSolverNode,
        kHardwareShader,
        kHwShaderNode,
        kTransformNode,
        kObjectSet,
        kFluidEmitterNode,
        kImagePlaneNode,
        kParticleAttributeMapperNode,
        kCameraSetNode,
        kConstraintNode,
        kManipulatorNode,
        kMotionPathNode,
        kClientDeviceNode,
        kThreadedDeviceNode,
        kAssembly,
        kSkinCluster,
        kGeometryFilter,
        kBlendShape,
        kLast
    };

    MPxNode();
    virtual ~MPxNode();
    virtual void postConstructor();
    virtual MStatus compute(const MPlug& plug, MDataBlock& dataBlock);
    virtual bool getInternalValue(const MPlug& plug, MDataHandle& dataHandle);
    virtual bool setInternalValue(const MPlug& plug, const MDataHandle& dataHandle);
    virtual int internalArrayCount(const MPlug& plug) const;
    virtual void copyInternalData(MPxNode*);
    virtual MTypeId typeId() const;
    virtual MString typeName() const;
    virtual MString name() const;
    virtual Type type() const;
    virtual bool isAbstractClass() const;
    virtual MObject thisMObject() const;

    static MStatus addAttribute(const MObject& attr);
    static MStatus inheritAttributesFrom(const MString& parentClassName);
    static MStatus attributeAffects(const MObject& whenChanges, const MObject& isAffected);

    static MObject message;
    static MObject isHistoricallyInteresting;
    static MObject caching;
    static MObject state;
    static MObject frozen;

    static const char* className();

    MPxNode(const MPxNode&) = delete;
    MPxNode& operator=(const MPxNode&) = delete;

private:
    friend class mayasim::Node;
    mayasim::Node* fNode = nullptr; // the scene node this instance is the user part of
};

OPENMAYA_NAMESPACE_CLOSE
