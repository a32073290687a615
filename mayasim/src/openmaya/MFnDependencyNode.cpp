#include <maya/MFnDependencyNode.h>

#include "scene/Api.h"
#include "scene/Evaluation.h"
#include "scene/Operations.h"
#include "scene/Plugs.h"
#include "scene/Scene.h"

#include <maya/MPlugArray.h>
#include <maya/MPxNode.h>

#include <set>

using namespace mayasim;

MObject mayasim::createForFunctionSet(MFnBase& functionSet, const NodeTypePtr& type, const std::string& name,
                                     const MObject& parent, MStatus* status)
{
    NodePtr parentNode = nodePtr(parent);
    NodePtr created;
    MStatus result = type && !type->abstract && (parent.isNull() || parentNode)
                         ? applyDirect([&](EditList& edits) { created = ops::createNode(edits, type, name, parentNode); })
                         : MStatus(MS::kInvalidParameter);
    setStatus(status, result.statusCode());
    if (!result)
        return MObject();
    MObject object = objectOf(created.get());
    functionSet.setObject(object);
    return object;
}

namespace {

NodePtr nodeOf(const MObject& object, MStatus* status)
{
    NodePtr node = nodePtr(object);
    setStatus(status, node ? MS::kSuccess : MS::kInvalidParameter);
    return node;
}

} // namespace

MFnDependencyNode::MFnDependencyNode() = default;

MFnDependencyNode::MFnDependencyNode(MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnDependencyNode::MFnDependencyNode(const MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnDependencyNode::~MFnDependencyNode() = default;

MFn::Type MFnDependencyNode::type() const
{
    return MFn::kDependencyNode;
}

MObject MFnDependencyNode::create(const MTypeId& typeId, MStatus* ReturnStatus)
{
    return createForFunctionSet(*this, findNodeType(typeId.id()), "", MObject(), ReturnStatus);
}

MObject MFnDependencyNode::create(const MTypeId& typeId, const MString& name, MStatus* ReturnStatus)
{
    return createForFunctionSet(*this, findNodeType(typeId.id()), name.asChar(), MObject(), ReturnStatus);
}

MObject MFnDependencyNode::create(const MString& type, MStatus* ReturnStatus)
{
    return createForFunctionSet(*this, findNodeType(type.asChar()), "", MObject(), ReturnStatus);
}

MObject MFnDependencyNode::create(const MString& type, const MString& name, MStatus* ReturnStatus)
{
    return createForFunctionSet(*this, findNodeType(type.asChar()), name.asChar(), MObject(), ReturnStatus);
}

MTypeId MFnDependencyNode::typeId(MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    return node ? MTypeId(node->type()->typeId) : MTypeId();
}

MString MFnDependencyNode::typeName(MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    return node ? MString(node->type()->name.c_str()) : MString();
}

MString MFnDependencyNode::name(MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    return node ? MString(node->name.c_str()) : MString();
}

MString MFnDependencyNode::absoluteName(MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    return node ? MString((":" + node->name).c_str()) : MString();
}

MString MFnDependencyNode::pluginName(MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    return node ? MString(node->type()->pluginName.c_str()) : MString();
}

MString MFnDependencyNode::setName(const MString& name, bool, MStatus* ReturnStatus)
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    if (!node)
        return MString();
    std::string result;
    MStatus status = applyDirect([&](EditList& edits) { result = ops::rename(edits, node, name.asChar()); });
    setStatus(ReturnStatus, status.statusCode());
    return MString(status ? result.c_str() : node->name.c_str());
}

MUuid MFnDependencyNode::uuid(MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    return node ? node->uuid : MUuid();
}

void MFnDependencyNode::setUuid(const MUuid& uuid, MStatus* ReturnStatus)
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    if (node)
        setStatus(ReturnStatus, applyDirect([&](EditList& edits) { ops::setUuid(edits, node, uuid); }).statusCode());
}

MStatus MFnDependencyNode::getConnections(MPlugArray& array) const
{
    MStatus status;
    NodePtr node = nodeOf(fObject, &status);
    array.clear();
    if (!node)
        return status;
    std::set<PlugKey> keys;
    for (const auto& entry : node->incoming)
        keys.insert(entry.first);
    for (const auto& entry : node->outgoing)
        if (!entry.second.empty())
            keys.insert(entry.first);
    for (const auto& key : keys)
        array.append(makePlug(*node, key));
    return MS::kSuccess;
}

unsigned int MFnDependencyNode::attributeCount(MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    return node ? static_cast<unsigned int>(node->allAttributes().size()) : 0;
}

MObject MFnDependencyNode::attribute(unsigned int index, MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    if (!node)
        return MObject();
    const std::vector<AttributePtr> all = node->allAttributes();
    if (index >= all.size())
    {
        setStatus(ReturnStatus, MS::kInvalidParameter);
        return MObject();
    }
    return makeObject(all[index]);
}

MObject MFnDependencyNode::attribute(const MString& attrName, MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    AttributePtr found = node ? node->findAttribute(attrName.asChar()) : nullptr;
    if (node && !found)
        setStatus(ReturnStatus, MS::kInvalidParameter);
    return found ? makeObject(found) : MObject();
}

MFnDependencyNode::MAttrClass MFnDependencyNode::attributeClass(const MObject& attr, MStatus* ReturnStatus) const
{
    Attribute* attribute = attributeObject(attr);
    setStatus(ReturnStatus, attribute ? MS::kSuccess : MS::kInvalidParameter);
    if (!attribute)
        return kInvalidAttr;
    return attribute->dynamic ? kLocalDynamicAttr : kNormalAttr;
}

bool MFnDependencyNode::hasAttribute(const MString& name, MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    return node && node->findAttribute(name.asChar());
}

MStatus MFnDependencyNode::addAttribute(const MObject& attr)
{
    MStatus status;
    NodePtr node = nodeOf(fObject, &status);
    AttributePtr attribute = attributePtr(attr);
    if (!node || !attribute)
        return MS::kInvalidParameter;
    return applyDirect([&](EditList& edits) { ops::addAttribute(edits, node, attribute); });
}

MStatus MFnDependencyNode::removeAttribute(const MObject& attr)
{
    MStatus status;
    NodePtr node = nodeOf(fObject, &status);
    AttributePtr attribute = attributePtr(attr);
    if (!node || !attribute)
        return MS::kInvalidParameter;
    return applyDirect([&](EditList& edits) { ops::removeAttribute(edits, node, attribute); });
}

MPlug MFnDependencyNode::findPlug(const MObject& attr, bool, MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    Attribute* attribute = attributeObject(attr);
    if (!node || !attribute)
    {
        setStatus(ReturnStatus, MS::kInvalidParameter);
        return MPlug();
    }
    return makePlug(*node, keyOf(*attribute));
}

MPlug MFnDependencyNode::findPlug(const MString& attrName, bool, MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    std::optional<PlugKey> key = node ? parsePlugPath(*node, attrName.asChar()) : std::nullopt;
    if (!key)
    {
        setStatus(ReturnStatus, MS::kInvalidParameter);
        return MPlug();
    }
    return makePlug(*node, *key);
}

MPlug MFnDependencyNode::findPlug(const MObject& attr, MStatus* ReturnStatus) const
{
    return findPlug(attr, false, ReturnStatus);
}

MPlug MFnDependencyNode::findPlug(const MString& attrName, MStatus* ReturnStatus) const
{
    return findPlug(attrName, false, ReturnStatus);
}

bool MFnDependencyNode::isFromReferencedFile(MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    return node && node->origin;
}

bool MFnDependencyNode::isLocked(MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    return node && node->locked;
}

MStatus MFnDependencyNode::setLocked(bool locked)
{
    MStatus status;
    NodePtr node = nodeOf(fObject, &status);
    if (!node)
        return status;
    return applyDirect([&](EditList& edits) { edits.run(editing::setNodeLocked(node, locked)); });
}

bool MFnDependencyNode::isDefaultNode(MStatus* ReturnStatus) const
{
    nodeOf(fObject, ReturnStatus);
    return false;
}

MPxNode* MFnDependencyNode::userNode(MStatus* ReturnStatus) const
{
    NodePtr node = nodeOf(fObject, ReturnStatus);
    if (node && !node->user)
        setStatus(ReturnStatus, MS::kFailure);
    return node ? node->user.get() : nullptr;
}

MString MFnDependencyNode::classification(const MString& nodeTypeName)
{
    NodeTypePtr type = findNodeType(nodeTypeName.asChar());
    return type ? MString(type->classification.c_str()) : MString();
}

const char* MFnDependencyNode::className()
{
    return "MFnDependencyNode";
}
