// M3dView on the GUI host's model panels. Without a main window (batch
// mode) there are no views: the lookups fail and nothing is refreshed.
#include <maya/M3dView.h>

#include "gui/Viewports.h"
#include "scene/Api.h"

#include <maya/MPoint.h>
#include <maya/MString.h>
#include <maya/MVector.h>

#include <cmath>

using namespace mayasim;
using gui::ModelPanel;

namespace {

ModelPanel* panelAt(int index)
{
    const std::vector<ModelPanel*> panels = gui::modelPanels();
    return index >= 0 && static_cast<size_t>(index) < panels.size() ? panels[index] : nullptr;
}

int indexOf(const ModelPanel* panel)
{
    const std::vector<ModelPanel*> panels = gui::modelPanels();
    for (size_t i = 0; i < panels.size(); ++i)
        if (panels[i] == panel)
            return static_cast<int>(i);
    return -1;
}

// The view's panel is looked up on each call, so a view kept past the
// main window's end fails instead of reaching a deleted panel.
ModelPanel* panelOf(int index, MStatus* status)
{
    ModelPanel* panel = panelAt(index);
    setStatus(status, panel ? MS::kSuccess : MS::kFailure);
    return panel;
}

} // namespace

M3dView::M3dView() : fPanel(-1) {}

M3dView::~M3dView() = default;

M3dView M3dView::active3dView(MStatus* ReturnStatus)
{
    M3dView view;
    view.fPanel = indexOf(gui::focusedModelPanel());
    setStatus(ReturnStatus, view.fPanel >= 0 ? MS::kSuccess : MS::kFailure);
    return view;
}

unsigned int M3dView::numberOf3dViews()
{
    return static_cast<unsigned int>(gui::modelPanels().size());
}

MStatus M3dView::get3dView(const unsigned int index, M3dView& view)
{
    if (!panelAt(static_cast<int>(index)))
        return MS::kInvalidParameter;
    view.fPanel = static_cast<int>(index);
    return MS::kSuccess;
}

MStatus M3dView::getM3dViewFromModelPanel(const MString& modelPaneName, M3dView& view)
{
    const int index = indexOf(gui::modelPanel(modelPaneName.asChar()));
    if (index < 0)
        return MS::kInvalidParameter;
    view.fPanel = index;
    return MS::kSuccess;
}

QWidget* M3dView::widget(MStatus* ReturnStatus) const
{
    return panelOf(fPanel, ReturnStatus);
}

int M3dView::portWidth(MStatus* ReturnStatus)
{
    ModelPanel* panel = panelOf(fPanel, ReturnStatus);
    return panel ? panel->width() : 0;
}

int M3dView::portHeight(MStatus* ReturnStatus)
{
    ModelPanel* panel = panelOf(fPanel, ReturnStatus);
    return panel ? panel->height() : 0;
}

bool M3dView::isVisible(MStatus* ReturnStatus)
{
    ModelPanel* panel = panelOf(fPanel, ReturnStatus);
    return panel && panel->isVisible();
}

MStatus M3dView::getCamera(MDagPath& camera)
{
    MStatus status;
    ModelPanel* panel = panelOf(fPanel, &status);
    if (!panel)
        return status;
    camera = panel->camera();
    return camera.isValid() ? MS::kSuccess : MS::kFailure;
}

MStatus M3dView::setCamera(MDagPath& camera)
{
    MStatus status;
    ModelPanel* panel = panelOf(fPanel, &status);
    if (!panel)
        return status;
    if (!panel->setCamera(camera))
        return MS::kInvalidParameter;
    gui::modelEditorChanged();
    return MS::kSuccess;
}

MStatus M3dView::scheduleRefreshAllViews()
{
    gui::scheduleRefreshAll();
    return MS::kSuccess;
}

MStatus M3dView::scheduleRefresh()
{
    MStatus status;
    if (ModelPanel* panel = panelOf(fPanel, &status))
        panel->scheduleRedraw();
    return status;
}

MStatus M3dView::refresh(bool all, bool force)
{
    MStatus status;
    ModelPanel* panel = panelOf(fPanel, &status);
    if (!panel)
        return status;
    for (ModelPanel* view : all ? gui::modelPanels() : std::vector<ModelPanel*>{panel})
        force ? view->redraw() : view->sync();
    return MS::kSuccess;
}

MStatus M3dView::viewToWorld(short x_pos, short y_pos, MPoint& worldPt, MVector& worldVector) const
{
    MPoint farPoint;
    const MStatus status = viewToWorld(x_pos, y_pos, worldPt, farPoint);
    if (status)
        worldVector = (farPoint - worldPt).normal();
    return status;
}

MStatus M3dView::viewToWorld(short x_pos, short y_pos, MPoint& nearClipPt, MPoint& farClipPt) const
{
    MStatus status;
    ModelPanel* panel = panelOf(fPanel, &status);
    if (!panel)
        return status;
    const CameraView view = panel->view();
    if (!view.valid)
        return MS::kFailure;
    view.toWorld(x_pos, y_pos, nearClipPt, farClipPt);
    return MS::kSuccess;
}

// Whole pixels, bottom-left origin; true when the point lands in the port.
bool M3dView::worldToView(const MPoint& worldPt, short& x_pos, short& y_pos, MStatus* ReturnStatus) const
{
    ModelPanel* panel = panelOf(fPanel, ReturnStatus);
    const CameraView view = panel ? panel->view() : CameraView();
    double x = 0, y = 0;
    const bool front = view.valid && view.toViewport(worldPt, x, y);
    x_pos = static_cast<short>(std::clamp(std::floor(x), -32768.0, 32767.0));
    y_pos = static_cast<short>(std::clamp(std::floor(y), -32768.0, 32767.0));
    return front && x >= 0 && y >= 0 && x < view.width && y < view.height;
}

MStatus M3dView::projectionMatrix(MMatrix& projectionMatrix) const
{
    MStatus status;
    ModelPanel* panel = panelOf(fPanel, &status);
    if (panel)
        projectionMatrix = panel->view().projection;
    return status;
}

MStatus M3dView::modelViewMatrix(MMatrix& modelViewMatrix) const
{
    MStatus status;
    ModelPanel* panel = panelOf(fPanel, &status);
    if (panel)
        modelViewMatrix = panel->view().view;
    return status;
}

const char* M3dView::className()
{
    return "M3dView";
}
