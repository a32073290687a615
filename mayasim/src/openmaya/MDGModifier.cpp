#include <maya/MDGModifier.h>
#include <maya/MDagModifier.h>

#include "scene/Api.h"
#include "scene/Modifier.h"
#include "scene/Operations.h"
#include "scene/Plugs.h"

#include <maya/MAngle.h>
#include <maya/MDistance.h>
#include <maya/MPlug.h>
#include <maya/MTime.h>
#include <maya/MTypeId.h>

using namespace mayasim;

void ModifierOperation::doIt()
{
    if (fPerformed)
    {
        fEdits.apply();
        return;
    }
    try
    {
        fWork(fEdits);
        fPerformed = true;
    }
    catch (...)
    {
        fEdits.rollback();
        throw;
    }
}

void ModifierAccess::queue(MDGModifier& modifier, std::function<void(EditList&)> work)
{
    modifier.fQueue->operations.push_back(std::make_shared<ModifierOperation>(std::move(work)));
}

EditList ModifierAccess::takeEdits(MDGModifier& modifier)
{
    EditList all;
    ModifierQueue& queue = *modifier.fQueue;
    for (size_t i = 0; i < queue.applied; ++i)
    {
        EditList edits = queue.operations[i]->takeEdits();
        if (!edits.empty())
            all.adopt(std::make_unique<EditList>(std::move(edits)));
    }
    queue.operations.clear();
    queue.applied = 0;
    return all;
}

namespace {

struct PlugTarget
{
    NodePtr node;
    PlugKey key;
};

std::optional<PlugTarget> plugTarget(const MPlug& plug)
{
    NodePtr node = nodePtr(plug.node());
    if (!node || plug.isNull())
        return std::nullopt;
    return PlugTarget{node, plugKey(plug)};
}

MStatus queueValue(MDGModifier& modifier, const MPlug& plug, const Value& value)
{
    std::optional<PlugTarget> target = plugTarget(plug);
    if (!target)
        return MS::kInvalidParameter;
    ModifierAccess::queue(modifier, [t = *target, value](EditList& edits) {
        ops::setValue(edits, t.node, t.key, value, false);
    });
    return MS::kSuccess;
}

MObject queueCreate(MDGModifier& modifier, const NodeTypePtr& type, const MObject& parent, MStatus* status)
{
    NodePtr parentNode = nodePtr(parent);
    if (!type || type->abstract || (!parent.isNull() && !parentNode))
    {
        setStatus(status, MS::kInvalidParameter);
        return MObject();
    }
    NodePtr node = ops::newNode(type, "");
    ModifierAccess::queue(modifier, [node, parentNode](EditList& edits) { ops::insert(edits, node, parentNode); });
    setStatus(status, MS::kSuccess);
    return objectOf(node.get());
}

MStatus queueConnection(MDGModifier& modifier, const MPlug& source, const MPlug& dest, bool connect)
{
    std::optional<PlugTarget> from = plugTarget(source);
    std::optional<PlugTarget> to = plugTarget(dest);
    if (!from || !to)
        return MS::kInvalidParameter;
    PlugAddress a{from->node, from->key};
    PlugAddress b{to->node, to->key};
    ModifierAccess::queue(modifier, [a, b, connect](EditList& edits) {
        if (connect)
            ops::connect(edits, a, b, false);
        else
            ops::disconnect(edits, a, b);
    });
    return MS::kSuccess;
}

} // namespace

MDGModifier::MDGModifier() : fQueue(new ModifierQueue) {}

MDGModifier::~MDGModifier()
{
    delete fQueue;
}

MObject MDGModifier::createNode(const MTypeId& typeId, MStatus* ReturnStatus)
{
    return queueCreate(*this, findNodeType(typeId.id()), MObject(), ReturnStatus);
}

MObject MDGModifier::createNode(const MString& type, MStatus* ReturnStatus)
{
    return queueCreate(*this, findNodeType(type.asChar()), MObject(), ReturnStatus);
}

MStatus MDGModifier::deleteNode(const MObject& node)
{
    return deleteNode(node, true);
}

MStatus MDGModifier::deleteNode(const MObject& node, bool)
{
    NodePtr target = nodePtr(node);
    if (!target)
        return MS::kInvalidParameter;
    ModifierAccess::queue(*this, [target](EditList& edits) { ops::deleteNode(edits, target); });
    return MS::kSuccess;
}

MStatus MDGModifier::renameNode(const MObject& node, const MString& newName)
{
    NodePtr target = nodePtr(node);
    if (!target || newName.length() == 0)
        return MS::kInvalidParameter;
    const std::string name = newName.asChar();
    ModifierAccess::queue(*this, [target, name](EditList& edits) { ops::rename(edits, target, name); });
    return MS::kSuccess;
}

MStatus MDGModifier::setNodeLockState(const MObject& node, bool newState)
{
    NodePtr target = nodePtr(node);
    if (!target)
        return MS::kInvalidParameter;
    ModifierAccess::queue(*this,
        [target, newState](EditList& edits) { edits.run(editing::setNodeLocked(target, newState)); });
    return MS::kSuccess;
}

MStatus MDGModifier::connect(const MObject& sourceNode, const MObject& sourceAttr, const MObject& destNode,
                             const MObject& destAttr)
{
    return connect(MPlug(sourceNode, sourceAttr), MPlug(destNode, destAttr));
}

MStatus MDGModifier::disconnect(const MObject& sourceNode, const MObject& sourceAttr, const MObject& destNode,
                                const MObject& destAttr)
{
    return disconnect(MPlug(sourceNode, sourceAttr), MPlug(destNode, destAttr));
}

MStatus MDGModifier::connect(const MPlug& source, const MPlug& dest)
{
    return queueConnection(*this, source, dest, true);
}

MStatus MDGModifier::disconnect(const MPlug& source, const MPlug& dest)
{
    return queueConnection(*this, source, dest, false);
}

MStatus MDGModifier::addAttribute(const MObject& node, const MObject& attribute)
{
    NodePtr target = nodePtr(node);
    AttributePtr added = attributePtr(attribute);
    if (!target || !added)
        return MS::kInvalidParameter;
    ModifierAccess::queue(*this, [target, added](EditList& edits) { ops::addAttribute(edits, target, added); });
    return MS::kSuccess;
}

MStatus MDGModifier::removeAttribute(const MObject& node, const MObject& attribute)
{
    NodePtr target = nodePtr(node);
    AttributePtr removed = attributePtr(attribute);
    if (!target || !removed)
        return MS::kInvalidParameter;
    ModifierAccess::queue(*this, [target, removed](EditList& edits) { ops::removeAttribute(edits, target, removed); });
    return MS::kSuccess;
}

MStatus MDGModifier::commandToExecute(const MString& command)
{
    // The command runs on doIt; its own undo is the command engine's.
    const std::string text = command.asChar();
    ModifierAccess::queue(*this, [text](EditList&) {
        if (!runMel(text))
            throw MelError("commandToExecute failed: " + text);
    });
    return MS::kSuccess;
}

MStatus MDGModifier::newPlugValue(const MPlug& plug, MObject& plugValue)
{
    const DataObject* data = dataObject(plugValue);
    if (!data)
        return MS::kInvalidParameter;
    if (data->dataType() != MFnData::kNumeric)
        return queueValue(*this, plug, data->value());
    std::optional<PlugTarget> target = plugTarget(plug);
    if (!target)
        return MS::kInvalidParameter;
    const std::vector<PlugKey> children = childKeys(target->key);
    const std::vector<double> numbers = data->value().numbers;
    if (children.size() != numbers.size())
        return MS::kInvalidParameter;
    ModifierAccess::queue(*this, [t = *target, children, numbers](EditList& edits) {
        for (size_t i = 0; i < children.size(); ++i)
            ops::setValue(edits, t.node, children[i], Value::ofNumber(numbers[i]), false);
    });
    return MS::kSuccess;
}

MStatus MDGModifier::newPlugValueBool(const MPlug& plug, bool plugValue)
{
    return queueValue(*this, plug, Value::ofNumber(plugValue ? 1.0 : 0.0));
}

MStatus MDGModifier::newPlugValueChar(const MPlug& plug, char plugValue)
{
    return queueValue(*this, plug, Value::ofNumber(plugValue));
}

MStatus MDGModifier::newPlugValueDouble(const MPlug& plug, double plugValue)
{
    return queueValue(*this, plug, Value::ofNumber(plugValue));
}

MStatus MDGModifier::newPlugValueFloat(const MPlug& plug, float plugValue)
{
    return queueValue(*this, plug, Value::ofNumber(plugValue));
}

MStatus MDGModifier::newPlugValueInt(const MPlug& plug, int plugValue)
{
    return queueValue(*this, plug, Value::ofNumber(plugValue));
}

MStatus MDGModifier::newPlugValueInt64(const MPlug& plug, MInt64 plugValue)
{
    return queueValue(*this, plug, Value::ofNumber(static_cast<double>(plugValue)));
}

MStatus MDGModifier::newPlugValueMAngle(const MPlug& plug, const MAngle& plugValue)
{
    return queueValue(*this, plug, Value::ofNumber(plugValue.asRadians()));
}

MStatus MDGModifier::newPlugValueMDistance(const MPlug& plug, const MDistance& plugValue)
{
    return queueValue(*this, plug, Value::ofNumber(plugValue.asCentimeters()));
}

MStatus MDGModifier::newPlugValueMTime(const MPlug& plug, const MTime& plugValue)
{
    return queueValue(*this, plug, Value::ofNumber(plugValue.as(MTime::kSeconds)));
}

MStatus MDGModifier::newPlugValueShort(const MPlug& plug, short plugValue)
{
    return queueValue(*this, plug, Value::ofNumber(plugValue));
}

MStatus MDGModifier::newPlugValueString(const MPlug& plug, const MString& plugValue)
{
    return queueValue(*this, plug, Value::ofText(plugValue.asChar()));
}

MStatus MDGModifier::doIt()
{
    ModifierQueue& queue = *fQueue;
    for (; queue.applied < queue.operations.size(); ++queue.applied)
    {
        try
        {
            queue.operations[queue.applied]->doIt();
        }
        catch (const MelError&)
        {
            return MS::kFailure;
        }
    }
    return MS::kSuccess;
}

MStatus MDGModifier::undoIt()
{
    while (fQueue->applied > 0)
        fQueue->operations[--fQueue->applied]->undoIt();
    return MS::kSuccess;
}

const char* MDGModifier::className()
{
    return "MDGModifier";
}

// --- MDagModifier ----------------------------------------------------------------

MDagModifier::MDagModifier() = default;
MDagModifier::~MDagModifier() = default;

MObject MDagModifier::createNode(const MTypeId& typeId, const MObject& parent, MStatus* ReturnStatus)
{
    return queueCreate(*this, findNodeType(typeId.id()), parent, ReturnStatus);
}

MObject MDagModifier::createNode(const MString& type, const MObject& parent, MStatus* ReturnStatus)
{
    return queueCreate(*this, findNodeType(type.asChar()), parent, ReturnStatus);
}

MStatus MDagModifier::reparentNode(const MObject& node, const MObject& newParent)
{
    NodePtr target = nodePtr(node);
    NodePtr parent = nodePtr(newParent);
    if (!target || (!newParent.isNull() && !parent))
        return MS::kInvalidParameter;
    ModifierAccess::queue(*this, [target, parent](EditList& edits) { ops::reparent(edits, target, parent, true); });
    return MS::kSuccess;
}

const char* MDagModifier::className()
{
    return "MDagModifier";
}
