#include <maya/MDagPath.h>

#include "scene/Api.h"
#include "scene/Scene.h"
#include "scene/Selection.h"
#include "scene/Transform.h"

#include <maya/MDagPathArray.h>
#include <maya/MMatrix.h>
#include <maya/MString.h>

using namespace mayasim;

namespace {

Node* last(const std::vector<MObject>& nodes)
{
    return nodes.empty() ? nullptr : nodeObject(nodes.back());
}

} // namespace

MDagPath::MDagPath() : fNodes(new DagPathNodes) {}

MDagPath::MDagPath(const MDagPath& src) : fNodes(new DagPathNodes(*src.fNodes)) {}

MDagPath::~MDagPath()
{
    delete fNodes;
}

MDagPath& MDagPath::operator=(const MDagPath& src)
{
    fNodes->nodes = src.fNodes->nodes;
    return *this;
}

MStatus MDagPath::getAllPathsTo(const MObject& node, MDagPathArray& pathArray)
{
    pathArray.clear();
    MDagPath path;
    MStatus status = getAPathTo(node, path);
    if (status)
        pathArray.append(path);
    return status;
}

MStatus MDagPath::getAPathTo(const MObject& node, MDagPath& path)
{
    const Node* target = nodeObject(node);
    if (!target || !target->isDag())
        return MS::kInvalidParameter;
    path = pathTo(*target);
    return MS::kSuccess;
}

MDagPath MDagPath::getAPathTo(const MObject& node, MStatus* ReturnStatus)
{
    MDagPath path;
    MStatus status = getAPathTo(node, path);
    if (ReturnStatus)
        *ReturnStatus = status;
    return path;
}

bool MDagPath::hasFn(MFn::Type type, MStatus* ReturnStatus) const
{
    return node(ReturnStatus).hasFn(type);
}

MFn::Type MDagPath::apiType(MStatus* ReturnStatus) const
{
    return node(ReturnStatus).apiType();
}

bool MDagPath::isValid(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    if (fNodes->nodes.empty())
        return false;
    for (size_t i = 0; i < fNodes->nodes.size(); ++i)
    {
        const Node* n = nodeObject(fNodes->nodes[i]);
        if (!n || !n->alive || (i > 0 && n->parentNode().get() != nodeObject(fNodes->nodes[i - 1])))
            return false;
    }
    return true;
}

MObject MDagPath::node(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, fNodes->nodes.empty() ? MS::kFailure : MS::kSuccess);
    return fNodes->nodes.empty() ? MObject() : fNodes->nodes.back();
}

MObject MDagPath::transform(MStatus* ReturnStatus) const
{
    for (auto it = fNodes->nodes.rbegin(); it != fNodes->nodes.rend(); ++it)
        if (it->hasFn(MFn::kTransform))
        {
            setStatus(ReturnStatus, MS::kSuccess);
            return *it;
        }
    setStatus(ReturnStatus, MS::kInvalidParameter);
    return MObject();
}

unsigned int MDagPath::length(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return static_cast<unsigned int>(fNodes->nodes.size());
}

MStatus MDagPath::extendToShape()
{
    const Node* n = last(fNodes->nodes);
    if (!n)
        return MS::kFailure;
    if (n->isShape())
        return MS::kSuccess;
    unsigned int shapes = 0;
    MStatus status = numberOfShapesDirectlyBelow(shapes);
    if (!status || shapes != 1)
        return MS::kFailure;
    return extendToShapeDirectlyBelow(0);
}

MStatus MDagPath::extendToShapeDirectlyBelow(unsigned int index)
{
    const Node* n = last(fNodes->nodes);
    if (!n)
        return MS::kFailure;
    unsigned int seen = 0;
    for (const auto& child : n->children)
        if (child->isShape() && seen++ == index)
            return push(objectOf(child.get()));
    return MS::kFailure;
}

MStatus MDagPath::numberOfShapesDirectlyBelow(unsigned int& count) const
{
    count = 0;
    const Node* n = last(fNodes->nodes);
    if (!n)
        return MS::kFailure;
    for (const auto& child : n->children)
        count += child->isShape() ? 1 : 0;
    return MS::kSuccess;
}

MStatus MDagPath::push(const MObject& child)
{
    const Node* c = nodeObject(child);
    if (!c || !c->isDag() || c->parentNode().get() != last(fNodes->nodes))
        return MS::kInvalidParameter;
    fNodes->nodes.push_back(child);
    return MS::kSuccess;
}

MStatus MDagPath::pop(unsigned int num)
{
    if (num > fNodes->nodes.size())
        return MS::kInvalidParameter;
    fNodes->nodes.resize(fNodes->nodes.size() - num);
    return MS::kSuccess;
}

unsigned int MDagPath::childCount(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return static_cast<unsigned int>(scene::childrenOf(last(fNodes->nodes)).size());
}

MObject MDagPath::child(unsigned int i, MStatus* ReturnStatus) const
{
    const auto& children = scene::childrenOf(last(fNodes->nodes));
    setStatus(ReturnStatus, i < children.size() ? MS::kSuccess : MS::kInvalidParameter);
    return i < children.size() ? objectOf(children[i].get()) : MObject();
}

MMatrix MDagPath::inclusiveMatrix(MStatus* ReturnStatus) const
{
    Node* n = last(fNodes->nodes);
    setStatus(ReturnStatus, n ? MS::kSuccess : MS::kFailure);
    return n ? transform::worldMatrix(*n) : MMatrix();
}

MMatrix MDagPath::exclusiveMatrix(MStatus* ReturnStatus) const
{
    Node* n = last(fNodes->nodes);
    setStatus(ReturnStatus, n ? MS::kSuccess : MS::kFailure);
    return n ? transform::parentMatrix(*n) : MMatrix();
}

MMatrix MDagPath::inclusiveMatrixInverse(MStatus* ReturnStatus) const
{
    return inclusiveMatrix(ReturnStatus).inverse();
}

MMatrix MDagPath::exclusiveMatrixInverse(MStatus* ReturnStatus) const
{
    return exclusiveMatrix(ReturnStatus).inverse();
}

bool MDagPath::operator==(const MDagPath& src) const
{
    return fNodes->nodes == src.fNodes->nodes;
}

MStatus MDagPath::set(const MDagPath& src)
{
    fNodes->nodes = src.fNodes->nodes;
    return MS::kSuccess;
}

unsigned int MDagPath::pathCount(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return fNodes->nodes.empty() ? 0 : 1;
}

MStatus MDagPath::getPath(MDagPath& path, unsigned int i) const
{
    if (i != 0 || fNodes->nodes.empty())
        return MS::kInvalidParameter;
    path = *this;
    return MS::kSuccess;
}

MString MDagPath::fullPathName(MStatus* ReturnStatus) const
{
    const Node* n = last(fNodes->nodes);
    setStatus(ReturnStatus, n ? MS::kSuccess : MS::kFailure);
    return n ? MString(scene::fullPathName(*n).c_str()) : MString();
}

MString MDagPath::partialPathName(MStatus* ReturnStatus) const
{
    const Node* n = last(fNodes->nodes);
    setStatus(ReturnStatus, n ? MS::kSuccess : MS::kFailure);
    return n ? MString(scene::partialPathName(*n).c_str()) : MString();
}

bool MDagPath::isInstanced(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return false;
}

unsigned int MDagPath::instanceNumber(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return 0;
}

const char* MDagPath::className()
{
    return "MDagPath";
}
