#pragma once
#include <maya/MTypes.h>
#include <maya/MObject.h>
#include <maya/MPxNode.h>
#include <maya/M3dView.h>
#include <maya/MBoundingBox.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Base class of locator node types defined by plug-ins.
class OPENMAYAUI_EXPORT MPxLocatorNode : public MPxNode
{
public:
    MPxLocatorNode();
    ~MPxLocatorNode() override;
    MPxNode::Type type() const override;

    virtual bool isBounded() const;
    virtual MBoundingBox boundingBox() const;

    unsigned int color(M3dView::DisplayStatus displayStatus);

    MColor colorRGB(M3dView::DisplayStatus displayStatus);

    virtual bool excludeAsLocator() const;

    virtual bool isTransparent() const;

    virtual bool drawLast() const;

    virtual bool useClosestPointForSelection() const;

    virtual MPoint closestPoint(MPoint cursorRayPoint, MVector cursorRayDir) const;

    static MObject underWorldObject;
    static MObject localPosition;
    static MObject localPositionX;
    static MObject localPositionY;
    static MObject localPositionZ;
    static MObject worldPosition;
    static MObject worldPositionX;
    static MObject worldPositionY;
    static MObject worldPositionZ;
    static MObject localScale;
    static MObject localScaleX;
    static MObject localScaleY;
    static MObject localScaleZ;

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
