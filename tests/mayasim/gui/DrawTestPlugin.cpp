#include "DrawTestPlugin.h"

#include <maya/M3dView.h>
#include <maya/MConditionMessage.h>
#include <maya/MDagPath.h>
#include <maya/MDrawRegistry.h>
#include <maya/MEventMessage.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MObjectHandle.h>
#include <maya/MPoint.h>
#include <maya/MPxDrawOverride.h>
#include <maya/MPxLocatorNode.h>
#include <maya/MStringArray.h>
#include <maya/MTypeId.h>

#include <unordered_set>

namespace drawtest {

const char* const kNodeType = "drawTestLocator";
const char* const kClassification = "drawdb/geometry/drawTest";

Record& record()
{
    static Record instance;
    return instance;
}

namespace {

const MString kRegistrant = "drawTestPlugin";

// Cameras of the panels that show motion trails, and whether a playblast runs.
struct Views
{
    std::unordered_set<unsigned int> enabledCameras;
    bool playblasting = false;
    MCallbackId editorChanged = 0;
    MCallbackId playblast = 0;
};

Views& views()
{
    static Views state;
    return state;
}

void refreshEnabledCameras(void*)
{
    views().enabledCameras.clear();
    MStringArray panels;
    MGlobal::executeCommand("getPanel -type \"modelPanel\"", panels);
    for (unsigned int i = 0; i < panels.length(); ++i)
    {
        int shows = 0;
        MGlobal::executeCommand("modelEditor -query -motionTrails " + panels[i], shows);
        M3dView view;
        MDagPath camera;
        if (shows && M3dView::getM3dViewFromModelPanel(panels[i], view) && view.getCamera(camera))
            views().enabledCameras.insert(MObjectHandle(camera.node()).hashCode());
    }
}

void playblastChanged(bool state, void*)
{
    views().playblasting = state;
}

class Locator : public MPxLocatorNode
{
public:
    static void* creator() { return new Locator; }
    static MStatus initialize() { return MS::kSuccess; }
    bool excludeAsLocator() const override { return false; }
};

class Data : public MUserData
{
public:
    Data() : MUserData(false) {}
    ~Data() override { ++record().userDataDestroyed; }
};

class Override : public MHWRender::MPxDrawOverride
{
public:
    explicit Override(const MObject& node) : MPxDrawOverride(node, nullptr, true) { ++record().overridesMade; }
    ~Override() override { ++record().overridesDestroyed; }
    static MPxDrawOverride* creator(const MObject& node) { return new Override(node); }

    MHWRender::DrawAPI supportedDrawAPIs() const override { return MHWRender::kAllDevices; }
    bool hasUIDrawables() const override { return true; }
    MUserData* prepareForDraw(const MDagPath&, const MDagPath&, const MHWRender::MFrameContext&,
                              MUserData* oldData) override
    {
        ++record().prepares;
        return oldData ? oldData : new Data;
    }
    void addUIDrawables(const MDagPath&, MHWRender::MUIDrawManager& drawManager,
                        const MHWRender::MFrameContext& frameContext, const MUserData*) override
    {
        const MDagPath camera = frameContext.getCurrentCameraPath();
        if (!views().enabledCameras.count(MObjectHandle(camera.node()).hashCode()) || views().playblasting)
            return;
        double x0 = 0, y0 = 0, x1 = 0, y1 = 0, cx = 0, cy = 0;
        frameContext.worldToViewport(MPoint(0, 0, 0), x0, y0);
        frameContext.worldToViewport(MPoint(2, 0, 0), x1, y1);
        frameContext.worldToViewport(MPoint(0, 0, -2), cx, cy);
        drawManager.beginDrawable(MHWRender::MUIDrawManager::kAutomatic, 0);
        drawManager.setColor(MColor(1.0F, 0.0F, 0.0F, 1.0F));
        drawManager.setLineWidth(3.0F);
        drawManager.line2d(MPoint(x0, y0, 0.0), MPoint(x1, y1, 0.0));
        drawManager.setColor(MColor(0.0F, 1.0F, 0.0F, 0.5F));
        drawManager.circle2d(MPoint(cx, cy, 0.0), 6.0, true);
        drawManager.endDrawable();
    }
};

} // namespace

MStatus initializePlugin(MObject plugin)
{
    MFnPlugin fn(plugin, "Orvane tests", "1.0", "Any");
    const MString classification = kClassification;
    MStatus status = fn.registerNode(kNodeType, MTypeId(0x7F0D01), Locator::creator, Locator::initialize,
                                     MPxNode::kLocatorNode, &classification);
    if (!status)
        return status;
    status = MHWRender::MDrawRegistry::registerDrawOverrideCreator(kClassification, kRegistrant, Override::creator);
    if (!status)
        return status;
    views().editorChanged = MEventMessage::addEventCallback("modelEditorChanged", refreshEnabledCameras);
    views().playblast = MConditionMessage::addConditionCallback("playblasting", playblastChanged);
    refreshEnabledCameras(nullptr);
    return MS::kSuccess;
}

MStatus uninitializePlugin(MObject plugin)
{
    MMessage::removeCallback(views().editorChanged);
    MMessage::removeCallback(views().playblast);
    MFnPlugin fn(plugin);
    MHWRender::MDrawRegistry::deregisterDrawOverrideCreator(kClassification, kRegistrant);
    return fn.deregisterNode(MTypeId(0x7F0D01));
}

} // namespace drawtest
