#include "SelectionSet/Node.h"

#include "SelectionSet/Operations.h"

#include <maya/MDGModifier.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MNodeMessage.h>

namespace SelectionSet {

const MString NodeName("OVSelectionSetNode");
const MTypeId NodeTypeId(0x1417C2);
const MString NameSeparator("x1E");

MObject Node::content;
MObject Node::colorIndex;
MObject Node::hide;

namespace {

// A deleted set first shows what it hid: the change joins the deletion, so
// undoing the deletion hides the members again.
void showBeforeDeletion(MObject& node, MDGModifier& modifier, void*)
{
    modifier.newPlugValueBool(MPlug(node, Node::hide), false);
}

} // namespace

void* Node::creator()
{
    return new Node;
}

MStatus Node::initialize()
{
    MStatus status;
    MFnTypedAttribute typed;
    content = typed.create("content", "c", MFnData::kString, MObject::kNullObj, &status);
    if (!status)
        return status;
    typed.setHidden(true);
    typed.setStorable(true);
    if (!(status = addAttribute(content)))
        return status;

    MFnNumericAttribute numeric;
    colorIndex = numeric.create("colorIndex", "ci", MFnNumericData::kInt, 0.0, &status);
    if (!status)
        return status;
    numeric.setHidden(true);
    numeric.setStorable(true);
    if (!(status = addAttribute(colorIndex)))
        return status;

    hide = numeric.create("hide", "h", MFnNumericData::kBoolean, 0.0, &status);
    if (!status)
        return status;
    numeric.setInternal(true);
    numeric.setKeyable(true);
    numeric.setStorable(true);
    return addAttribute(hide);
}

Node::~Node()
{
    MMessage::removeCallbacks(fCallbacks);
}

void Node::postConstructor()
{
    MObject node = thisMObject();
    fCallbacks.append(MNodeMessage::addNodeAboutToDeleteCallback(node, showBeforeDeletion));
    MPxNode::postConstructor();
}

bool Node::getInternalValue(const MPlug& plug, MDataHandle& handle)
{
    if (plug != hide)
        return false;
    handle.setBool(fHidden);
    return true;
}

bool Node::setInternalValue(const MPlug& plug, const MDataHandle& handle)
{
    if (plug != hide)
        return false;
    fHidden = handle.asBool();
    applyHidden(MPlug(thisMObject(), content), fHidden);
    return true;
}

} // namespace SelectionSet
