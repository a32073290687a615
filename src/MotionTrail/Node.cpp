#include "MotionTrail/Node.h"

#include "MotionTrail/Manager.h"

namespace MotionTrail {

const MString NodeName("OVMotionTrailNode");
const MTypeId NodeTypeId(0x1417C1);
const MString DrawClassification("drawdb/geometry/MotionTrail");
const MString DrawRegistrant("MotionTrailNode");
const MString OverrideName("MotionTrailOverride");

Node::~Node() = default;

bool Node::excludeAsLocator() const { return false; }

void* Node::creator() { return new Node; }

MStatus Node::initialize() { return MS::kSuccess; }

// Always dirty: the trails change at idle time, not through the node.
Override::Override(const MObject& node) : MPxDrawOverride(node, nullptr, true) {}

Override::~Override() = default;

MHWRender::DrawAPI Override::supportedDrawAPIs() const { return MHWRender::kAllDevices; }

bool Override::hasUIDrawables() const { return true; }

// Everything is read from the manager at the draw itself.
MUserData* Override::prepareForDraw(const MDagPath&, const MDagPath&, const MHWRender::MFrameContext&, MUserData*)
{
    return nullptr;
}

void Override::addUIDrawables(const MDagPath&, MHWRender::MUIDrawManager& drawManager,
                              const MHWRender::MFrameContext& frameContext, const MUserData*)
{
    Manager::instance().draw(frameContext.getCurrentCameraPath(), drawManager, frameContext);
}

MHWRender::MPxDrawOverride* Override::creator(const MObject& node) { return new Override(node); }

} // namespace MotionTrail
