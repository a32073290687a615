#include <maya/MFnDagNode.h>

#include "scene/Api.h"
#include "scene/Operations.h"
#include "scene/Scene.h"
#include "scene/Selection.h"
#include "scene/Transform.h"

#include <maya/MDagPathArray.h>
#include <maya/MMatrix.h>

using namespace mayasim;

MFnDagNode::MFnDagNode() : fPath(*new MDagPath()) {}

MFnDagNode::MFnDagNode(MObject& object, MStatus* ReturnStatus) : MFnDagNode()
{
    setStatus(ReturnStatus, setObject(object).statusCode());
}

MFnDagNode::MFnDagNode(const MObject& object, MStatus* ReturnStatus) : MFnDagNode()
{
    setStatus(ReturnStatus, setObject(object).statusCode());
}

MFnDagNode::MFnDagNode(const MDagPath& object, MStatus* ReturnStatus) : MFnDagNode()
{
    setStatus(ReturnStatus, setObject(object).statusCode());
}

MFnDagNode::~MFnDagNode() { delete &fPath; }

MFn::Type MFnDagNode::type() const
{
    return MFn::kDagNode;
}

MStatus MFnDagNode::setObject(const MDagPath& path)
{
    MStatus status = attach(path.node(), nullptr);
    fPath = status ? path : MDagPath();
    return status;
}

MStatus MFnDagNode::setObject(MObject& object)
{
    return setObject(static_cast<const MObject&>(object));
}

MStatus MFnDagNode::setObject(const MObject& object)
{
    MStatus status = attach(object, nullptr);
    fPath = status ? pathTo(*nodeObject(object)) : MDagPath();
    return status;
}

namespace {

// Only DAG types are created through MFnDagNode.
NodeTypePtr dagType(const NodeTypePtr& type)
{
    return type && type->dag ? type : nullptr;
}

Node* dagNode(const MObject& object, MStatus* status)
{
    Node* node = nodeObject(object);
    setStatus(status, node && node->isDag() ? MS::kSuccess : MS::kFailure);
    return node && node->isDag() ? node : nullptr;
}

} // namespace

MObject MFnDagNode::create(const MTypeId& typeId, MObject& parent, MStatus* ReturnStatus)
{
    return createForFunctionSet(*this, dagType(findNodeType(typeId.id())), "", parent, ReturnStatus);
}

MObject MFnDagNode::create(const MTypeId& typeId, const MString& name, MObject& parent, MStatus* ReturnStatus)
{
    return createForFunctionSet(*this, dagType(findNodeType(typeId.id())), name.asChar(), parent, ReturnStatus);
}

MObject MFnDagNode::create(const MString& type, MObject& parent, MStatus* ReturnStatus)
{
    return createForFunctionSet(*this, dagType(findNodeType(type.asChar())), "", parent, ReturnStatus);
}

MObject MFnDagNode::create(const MString& type, const MString& name, MObject& parent, MStatus* ReturnStatus)
{
    return createForFunctionSet(*this, dagType(findNodeType(type.asChar())), name.asChar(), parent, ReturnStatus);
}

unsigned int MFnDagNode::parentCount(MStatus* ReturnStatus) const
{
    Node* node = dagNode(fObject, ReturnStatus);
    return node && node->parentNode() ? 1 : 0;
}

MObject MFnDagNode::parent(unsigned int i, MStatus* ReturnStatus) const
{
    Node* node = dagNode(fObject, ReturnStatus);
    NodePtr parentNode = node && i == 0 ? node->parentNode() : nullptr;
    if (!parentNode)
        setStatus(ReturnStatus, MS::kInvalidParameter);
    return objectOf(parentNode.get());
}

MStatus MFnDagNode::addChild(MObject& child, unsigned int, bool)
{
    NodePtr parentNode = nodePtr(fObject);
    NodePtr childNode = nodePtr(child);
    if (!parentNode || !childNode)
        return MS::kInvalidParameter;
    return applyDirect([&](EditList& edits) { ops::reparent(edits, childNode, parentNode, true); });
}

MStatus MFnDagNode::removeChild(MObject& child)
{
    NodePtr parentNode = nodePtr(fObject);
    NodePtr childNode = nodePtr(child);
    if (!parentNode || !childNode || childNode->parentNode() != parentNode)
        return MS::kInvalidParameter;
    return applyDirect([&](EditList& edits) { ops::reparent(edits, childNode, nullptr, true); });
}

unsigned int MFnDagNode::childCount(MStatus* ReturnStatus) const
{
    Node* node = dagNode(fObject, ReturnStatus);
    return node ? static_cast<unsigned int>(node->children.size()) : 0;
}

MObject MFnDagNode::child(unsigned int i, MStatus* ReturnStatus) const
{
    Node* node = dagNode(fObject, ReturnStatus);
    if (!node || i >= node->children.size())
    {
        setStatus(ReturnStatus, MS::kInvalidParameter);
        return MObject();
    }
    return objectOf(node->children[i].get());
}

bool MFnDagNode::hasParent(const MObject& node, MStatus* ReturnStatus) const
{
    Node* self = dagNode(fObject, ReturnStatus);
    return self && self->parentNode() && self->parentNode().get() == nodeObject(node);
}

bool MFnDagNode::hasChild(const MObject& node, MStatus* ReturnStatus) const
{
    Node* self = dagNode(fObject, ReturnStatus);
    const Node* other = nodeObject(node);
    return self && other && other->parentNode().get() == self;
}

bool MFnDagNode::isChildOf(const MObject& node, MStatus* ReturnStatus) const
{
    return hasParent(node, ReturnStatus);
}

bool MFnDagNode::isParentOf(const MObject& node, MStatus* ReturnStatus) const
{
    return hasChild(node, ReturnStatus);
}

bool MFnDagNode::isInstanced(bool, MStatus* ReturnStatus) const
{
    dagNode(fObject, ReturnStatus);
    return false;
}

MStatus MFnDagNode::getPath(MDagPath& path) const
{
    if (!fPath.isValid())
        return MS::kFailure;
    path = fPath;
    return MS::kSuccess;
}

MStatus MFnDagNode::getAllPaths(MDagPathArray& paths) const
{
    return MDagPath::getAllPathsTo(fObject, paths);
}

MString MFnDagNode::fullPathName(MStatus* ReturnStatus) const
{
    return fPath.fullPathName(ReturnStatus);
}

MString MFnDagNode::partialPathName(MStatus* ReturnStatus) const
{
    return fPath.partialPathName(ReturnStatus);
}

MMatrix MFnDagNode::transformationMatrix(MStatus* ReturnStatus) const
{
    Node* node = dagNode(fObject, ReturnStatus);
    return node ? transform::localMatrix(*node) : MMatrix();
}

MDagPath MFnDagNode::dagPath(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, fPath.isValid() ? MS::kSuccess : MS::kFailure);
    return fPath;
}

const char* MFnDagNode::className()
{
    return "MFnDagNode";
}
