#pragma once
// The viewport area: Maya's four model panels ("modelPanel1" top,
// "modelPanel2" front, "modelPanel3" side, "modelPanel4" persp), each
// drawing the scene through its camera into an image: background gradient,
// grid, transforms, joints and locators, then the Viewport 2.0 pass of the
// plug-in locators' draw overrides on top.
#include "openmayarender/DrawPass.h"

#include <maya/MDagPath.h>

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include <string>
#include <vector>

namespace mayasim::gui {

class ModelPanel : public QWidget
{
public:
    ModelPanel(int number, const char* defaultCamera, QWidget* parent);

    // The camera shape the panel looks through: the one set, while it is in
    // the scene, else the panel's default camera.
    MDagPath camera() const;
    // Takes a camera shape or its transform; false for anything else.
    bool setCamera(const MDagPath& camera);
    CameraView view() const;

    bool motionTrails = true;
    bool locators = true;
    bool grid = true;

    // Draws again now, or at the next sync.
    void redraw();
    void scheduleRedraw();
    // Draws again when the scene changed since the last draw, or one was asked for.
    void sync();
    const render::DrawList& drawList() const { return fDrawList; }
    unsigned long refreshCount() const { return fRefreshes; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void drawScene(QPainter& painter, const CameraView& view);

    std::string fDefaultCamera;
    MDagPath fCamera;
    QImage fImage;
    render::DrawList fDrawList;
    unsigned long fRevision = 0;
    bool fDirty = true;
    unsigned long fRefreshes = 0;
    bool fDragging = false;
};

// The view area of the main window: the four panels, or one of them,
// above the graph editor.
QWidget* makeViewPanes(QWidget* parent);
// The model panels in number order; empty without a main window.
std::vector<ModelPanel*> modelPanels();
ModelPanel* modelPanel(const std::string& name);
// The model panel last clicked in; modelPanel4 (persp) at first.
ModelPanel* focusedModelPanel();
// The panel with focus (getPanel -withFocus): a model panel or the graph editor.
QWidget* focusedPanel();
void setFocusedPanel(QWidget* panel);
// Shows the four panels, or only the one named.
void showPanels(ModelPanel* only);
// Draw passes since the main window opened, in all views.
unsigned long refreshCount();
void syncViews();
void scheduleRefreshAll();
// Raised when a panel's options or camera change, as Maya's model editors do.
void modelEditorChanged();

} // namespace mayasim::gui
