#include <maya/MPxLocatorNode.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>
#include <maya/MPxNode.h>

#include "scene/Node.h"
#include "scene/NodeType.h"

#include <maya/MDataBlock.h>
#include <maya/MDataHandle.h>
#include <maya/MPlug.h>

using namespace mayasim;

namespace {

MObject builtinAttribute(const char* typeName, const char* attributeName)
{
    NodeTypePtr type = findNodeType(typeName);
    AttributePtr attribute = type ? type->findAttribute(attributeName) : nullptr;
    return attribute ? makeObject(attribute) : MObject();
}

} // namespace

MObject MPxNode::message = builtinAttribute("node", "message");
MObject MPxNode::isHistoricallyInteresting = builtinAttribute("node", "isHistoricallyInteresting");
MObject MPxNode::caching = builtinAttribute("node", "caching");
MObject MPxNode::state = builtinAttribute("node", "nodeState");
MObject MPxNode::frozen = builtinAttribute("node", "frozen");

MPxNode::MPxNode() = default;
MPxNode::~MPxNode() = default;

void MPxNode::postConstructor() {}

MStatus MPxNode::compute(const MPlug&, MDataBlock&)
{
    return MS::kUnknownParameter;
}

bool MPxNode::getInternalValue(const MPlug&, MDataHandle&)
{
    return false;
}

bool MPxNode::setInternalValue(const MPlug&, const MDataHandle&)
{
    return false;
}

int MPxNode::internalArrayCount(const MPlug&) const
{
    return -1;
}

void MPxNode::copyInternalData(MPxNode*) {}

MTypeId MPxNode::typeId() const
{
    return fNode ? MTypeId(fNode->type()->typeId) : MTypeId();
}

MString MPxNode::typeName() const
{
    return fNode ? MString(fNode->type()->name.c_str()) : MString();
}

MString MPxNode::name() const
{
    return fNode ? MString(fNode->name.c_str()) : MString();
}

MPxNode::Type MPxNode::type() const
{
    return kDependNode;
}

bool MPxNode::isAbstractClass() const
{
    return false;
}

MObject MPxNode::thisMObject() const
{
    return objectOf(fNode);
}

MStatus MPxNode::addAttribute(const MObject& attr)
{
    NodeTypePtr type = typeBeingInitialized();
    AttributePtr attribute = attributePtr(attr);
    if (!type || !attribute || type->findAttribute(attribute->longName))
        return MS::kFailure;
    type->addAttribute(attribute);
    return MS::kSuccess;
}

MStatus MPxNode::inheritAttributesFrom(const MString& parentClassName)
{
    NodeTypePtr type = typeBeingInitialized();
    NodeTypePtr parent = findNodeType(parentClassName.asChar());
    if (!type || !parent)
        return MS::kFailure;
    for (const auto& attribute : parent->attributes)
        if (!type->findAttribute(attribute->longName))
            type->addAttribute(attribute);
    return MS::kSuccess;
}

MStatus MPxNode::attributeAffects(const MObject& whenChanges, const MObject& isAffected)
{
    NodeTypePtr type = typeBeingInitialized();
    const Attribute* from = attributeObject(whenChanges);
    const Attribute* to = attributeObject(isAffected);
    if (!type || !from || !to)
        return MS::kFailure;
    type->affects.emplace(from, to);
    return MS::kSuccess;
}

const char* MPxNode::className()
{
    return "MPxNode";
}

// --- MPxLocatorNode ------------------------------------------------------------

MObject MPxLocatorNode::underWorldObject;
MObject MPxLocatorNode::localPosition = builtinAttribute("locator", "localPosition");
MObject MPxLocatorNode::localPositionX = builtinAttribute("locator", "localPositionX");
MObject MPxLocatorNode::localPositionY = builtinAttribute("locator", "localPositionY");
MObject MPxLocatorNode::localPositionZ = builtinAttribute("locator", "localPositionZ");
MObject MPxLocatorNode::worldPosition;
MObject MPxLocatorNode::worldPositionX;
MObject MPxLocatorNode::worldPositionY;
MObject MPxLocatorNode::worldPositionZ;
MObject MPxLocatorNode::localScale = builtinAttribute("locator", "localScale");
MObject MPxLocatorNode::localScaleX = builtinAttribute("locator", "localScaleX");
MObject MPxLocatorNode::localScaleY = builtinAttribute("locator", "localScaleY");
MObject MPxLocatorNode::localScaleZ = builtinAttribute("locator", "localScaleZ");

MPxLocatorNode::MPxLocatorNode() = default;
MPxLocatorNode::~MPxLocatorNode() = default;

MPxNode::Type MPxLocatorNode::type() const
{
    return kLocatorNode;
}

bool MPxLocatorNode::isBounded() const
{
    return false;
}

MBoundingBox MPxLocatorNode::boundingBox() const
{
    return MBoundingBox();
}

// Maya's default palette for locators: dark blue at rest, white when
// selected, light green for the lead object, grey when templated.
unsigned int MPxLocatorNode::color(M3dView::DisplayStatus displayStatus)
{
    switch (displayStatus)
    {
    case M3dView::kLead: return 18;
    case M3dView::kActive:
    case M3dView::kActiveAffected: return 16;
    case M3dView::kTemplate:
    case M3dView::kActiveTemplate: return 2;
    default: return 5;
    }
}

MColor MPxLocatorNode::colorRGB(M3dView::DisplayStatus displayStatus)
{
    switch (color(displayStatus))
    {
    case 18: return MColor(0.26F, 1.0F, 0.64F);
    case 16: return MColor(1.0F, 1.0F, 1.0F);
    case 2: return MColor(0.25F, 0.25F, 0.25F);
    default: return MColor(0.0F, 0.016F, 0.376F);
    }
}

bool MPxLocatorNode::excludeAsLocator() const
{
    return true;
}

bool MPxLocatorNode::isTransparent() const
{
    return false;
}

bool MPxLocatorNode::drawLast() const
{
    return false;
}

bool MPxLocatorNode::useClosestPointForSelection() const
{
    return false;
}

// Without its own answer a locator is picked at its origin.
MPoint MPxLocatorNode::closestPoint(MPoint, MVector) const
{
    return MPoint();
}

const char* MPxLocatorNode::className()
{
    return "MPxLocatorNode";
}
