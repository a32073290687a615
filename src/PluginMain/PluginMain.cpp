// The module's entry points: everything is registered here, in a fixed order,
// and deregistered in the exact reverse.
#include <maya/MFnPlugin.h>

#include "AnimationOffset/Registration.h"
#include "AnimationRecovery/Registration.h"
#include "KeyBlending/Registration.h"
#include "Mirror/Registration.h"
#include "MotionTrail/Registration.h"
#include "PieMenu/Registration.h"
#include "Relationship/Registration.h"
#include "ResetPose/Registration.h"
#include "Retiming/Registration.h"
#include "SelectOpposite/Registration.h"
#include "SelectionSet/Registration.h"
#include "Snapshot/Registration.h"
#include "Tangent/Registration.h"
#include "TangentBlending/Registration.h"
#include "TempPivot/Registration.h"
#include "Ui/Registration.h"
#include "Ui/TimelineOverlay/Registration.h"
#include "Utils/Nodes/SceneId/Registration.h"
#include "Utils/Report.h"
#include "Utils/Tasks.h"
#include "Utils/Version.h"
#include "XFormWorldSpace/Registration.h"

namespace {

const char* const Vendor = "Orvane";
const char* const RequiredApiVersion = "Any";

} // namespace

PLUGIN_EXPORT MStatus initializePlugin(MObject obj)
{
    MStatus status = MS::kSuccess;
    MFnPlugin plugin(obj, Vendor, PluginVersion, RequiredApiVersion, &status);
    if (!status) {
        OV_REPORT(QStringLiteral("Failed to initialize plugin"), "initializePlugin");
        return status;
    }
    // A failure stops the load where it is: what was registered stays so.
    if (!(status = KeyBlending::registerCommand(plugin)))
        return status;
    if (!(status = TangentBlending::registerCommand(plugin)))
        return status;
    if (!(status = Snapshot::registerCommand(plugin)))
        return status;
    if (!(status = ResetPose::registerCommand(plugin)))
        return status;
    if (!(status = AnimationOffset::registerCommand(plugin)))
        return status;
    if (!(status = TimelineOverlay::registerCommand(plugin)))
        return status;
    if (!(status = TempPivot::registerCommand(plugin)))
        return status;
    if (!(status = SceneId::registerNode(plugin)))
        return status;
    if (!(status = MotionTrail::registerAll(plugin)))
        return status;
    if (!(status = AnimationRecovery::registerCommand(plugin)))
        return status;
    if (!(status = SelectionSet::registerAll(plugin)))
        return status;
    if (!(status = Ui::registerCommands(plugin)))
        return status;
    if (!(status = Mirror::registerCommand(plugin)))
        return status;
    if (!(status = SelectOpposite::registerCommand(plugin)))
        return status;
    if (!(status = XFormWorldSpace::registerCommand(plugin)))
        return status;
    if (!(status = Retiming::registerCommand(plugin)))
        return status;
    if (!(status = Tangent::registerCommand(plugin)))
        return status;
    if (!(status = PieMenu::registerCommand(plugin)))
        return status;
    // The keys go to a command that is there.
    PieMenu::bindHotkeys();
    if (!(status = Relationship::registerCommand(plugin)))
        return status;
    return MS::kSuccess;
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject obj)
{
    MStatus status = MS::kSuccess;
    MFnPlugin plugin(obj, "Unknown", "Unknown", RequiredApiVersion);
    cancelAllTasks();
    if (!(status = Relationship::deregisterCommand(plugin)))
        return status;
    // No key stays bound to a command that is gone.
    PieMenu::unbindHotkeys();
    if (!(status = PieMenu::deregisterCommand(plugin)))
        return status;
    if (!(status = Tangent::deregisterCommand(plugin)))
        return status;
    if (!(status = Retiming::deregisterCommand(plugin)))
        return status;
    if (!(status = XFormWorldSpace::deregisterCommand(plugin)))
        return status;
    if (!(status = SelectOpposite::deregisterCommand(plugin)))
        return status;
    if (!(status = Mirror::deregisterCommand(plugin)))
        return status;
    if (!(status = Ui::deregisterCommands(plugin)))
        return status;
    if (!(status = SelectionSet::deregisterAll(plugin)))
        return status;
    if (!(status = AnimationRecovery::deregisterCommand(plugin)))
        return status;
    if (!(status = MotionTrail::deregisterAll(plugin)))
        return status;
    if (!(status = SceneId::deregisterNode(plugin)))
        return status;
    if (!(status = TempPivot::deregisterCommand(plugin)))
        return status;
    // No overlay outlives its command.
    TimelineOverlay::destroyAll();
    if (!(status = TimelineOverlay::deregisterCommand(plugin)))
        return status;
    if (!(status = AnimationOffset::deregisterCommand(plugin)))
        return status;
    if (!(status = ResetPose::deregisterCommand(plugin)))
        return status;
    if (!(status = Snapshot::deregisterCommand(plugin)))
        return status;
    if (!(status = TangentBlending::deregisterCommand(plugin)))
        return status;
    if (!(status = KeyBlending::deregisterCommand(plugin)))
        return status;
    return MS::kSuccess;
}
