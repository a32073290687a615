#include "Utils/Nodes/SceneId/Node.h"

#include <maya/MDGModifier.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MPlug.h>

#include <QDateTime>

namespace SceneId {

const MString NodeName("OVSceneId");
const MTypeId NodeTypeId(0x1417C0);

MObject Node::id;

void* Node::creator()
{
    return new Node;
}

MStatus Node::initialize()
{
    MFnNumericAttribute numeric;
    MStatus status;
    id = numeric.create("id", "i", MFnNumericData::kDouble, 0.0, &status);
    if (!status)
        return status;
    numeric.setStorable(true);
    return addAttribute(id);
}

void Node::postConstructor()
{
    // Maya makes the name unique, so a second node becomes "OVSceneId1" and
    // the first keeps answering lookups by name.
    MDGModifier modifier;
    modifier.renameNode(thisMObject(), NodeName);
    modifier.doIt();
    // A scene read from a file sets its saved value over this one.
    MPlug(thisMObject(), id).setDouble(static_cast<double>(QDateTime::currentMSecsSinceEpoch()));
    MPxNode::postConstructor();
}

} // namespace SceneId
