#pragma once
// Viewport 2.0's pass over the plug-in locators of a view: each node whose
// draw classification has an override creator gets its override once, and
// on each refresh of each view prepareForDraw, then addUIDrawables, whose
// MUIDrawManager calls are recorded into the view's draw list.
#include "openmayaui/CameraView.h"
#include "scene/Node.h"

#include <maya/MColor.h>
#include <maya/MDrawContext.h>
#include <maya/MUIDrawManager.h>

#include <string>
#include <vector>

namespace mayasim {

namespace render {

// One recorded drawable, in viewport pixels with Maya's bottom-left origin
// (3D primitives as projected).
struct Primitive
{
    enum Kind : unsigned char { Line, Point, Circle, Rect, Text };
    Kind kind = Line;
    bool twoD = true;
    bool filled = false;
    MHWRender::MUIDrawManager::LineStyle lineStyle = MHWRender::MUIDrawManager::kSolid;
    MColor color;
    float lineWidth = 1.0F;
    float pointSize = 1.0F;
    unsigned int fontSize = MHWRender::MUIDrawManager::kDefaultFontSize;
    MHWRender::MUIDrawManager::TextAlignment alignment = MHWRender::MUIDrawManager::kLeft;
    double x1 = 0, y1 = 0; // line start; centre of a point, circle, rect; text position
    double x2 = 0, y2 = 0; // line end; a rect's half width and half height
    double radius = 0;     // a circle's, in pixels
    std::string text;
};

// What a view's last draw pass recorded; cleared, not freed, per pass.
using DrawList = std::vector<Primitive>;

// What a view lets through.
struct Filters
{
    bool locators = true; // off: locators that don't exclude themselves stay undrawn
};

// Runs every override for one view, appending to `list`.
void runDrawPass(const CameraView& view, const Filters& filters, DrawList& list);

// True when a DAG node and all its parents are visible and it isn't an
// intermediate object.
bool isDrawn(const Node& node);

// The draw list as mayasimUi answers it, one line per primitive.
std::string describe(const Primitive& primitive);

} // namespace render

namespace render {

// What an MUIDrawManager records into: the view (to project 3D drawables),
// the list, and the drawable's state (colour, sizes), reset by
// beginDrawable and endDrawable.
struct Recorder
{
    const CameraView* view = nullptr;
    DrawList* list = nullptr;
    Primitive state;
    bool open = false;
};

} // namespace render

// Between the draw pass and the classes whose constructors Maya keeps to
// itself.
struct DrawAccess
{
    static const CameraView& view(const MHWRender::MFrameContext& context)
    {
        return *static_cast<const CameraView*>(context.fView);
    }
    static render::Recorder& recorder(MHWRender::MUIDrawManager& manager)
    {
        return *static_cast<render::Recorder*>(manager.fData);
    }
    // Runs `work(frameContext, drawManager)` for one view.
    template <typename Work>
    static void withDrawing(const CameraView& view, render::DrawList& list, Work&& work)
    {
        MHWRender::MDrawContext context;
        context.fView = &view;
        render::Recorder recorder;
        recorder.view = &view;
        recorder.list = &list;
        MHWRender::MUIDrawManager manager(&recorder);
        work(static_cast<const MHWRender::MFrameContext&>(context), manager);
    }
};

} // namespace mayasim
