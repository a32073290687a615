// MUIDrawManager records what a draw override draws into the view's draw
// list, 3D drawables projected into viewport pixels as the view sees them.
// Drawing outside beginDrawable/endDrawable is ignored.
#include <maya/MUIDrawManager.h>

#include "openmayarender/DrawPass.h"

#include <maya/MPointArray.h>
#include <maya/MString.h>
#include <maya/MVector.h>

#include <cmath>

using namespace MHWRender;
using mayasim::DrawAccess;
using Drawn = mayasim::render::Primitive;
using mayasim::render::Recorder;

namespace {

// A new primitive of the drawable's state, or null outside a drawable.
Drawn* add(MUIDrawManager& manager, Drawn::Kind kind, bool twoD)
{
    Recorder& recorder = DrawAccess::recorder(manager);
    if (!recorder.open)
        return nullptr;
    recorder.list->push_back(recorder.state);
    Drawn& added = recorder.list->back();
    added.kind = kind;
    added.twoD = twoD;
    return &added;
}

void drop(MUIDrawManager& manager)
{
    DrawAccess::recorder(manager).list->pop_back();
}

// A point in viewport pixels: 2D points are pixels already.
bool place(MUIDrawManager& manager, const MPoint& point, bool twoD, double& x, double& y)
{
    if (twoD)
    {
        x = point.x;
        y = point.y;
        return true;
    }
    return DrawAccess::recorder(manager).view->toViewport(point, x, y);
}

// Any unit vector at right angles to `normal`.
MVector across(const MVector& normal)
{
    const MVector n = normal.length() > 0 ? normal.normal() : MVector(0, 0, 1);
    const MVector other = std::fabs(n.x) < 0.9 ? MVector(1, 0, 0) : MVector(0, 1, 0);
    return (n ^ other).normal();
}

void addLine(MUIDrawManager& manager, const MPoint& from, const MPoint& to, bool twoD)
{
    Drawn* line = add(manager, Drawn::Line, twoD);
    if (line && !(place(manager, from, twoD, line->x1, line->y1) && place(manager, to, twoD, line->x2, line->y2)))
        drop(manager);
}

void addPoint(MUIDrawManager& manager, const MPoint& at, bool twoD)
{
    Drawn* point = add(manager, Drawn::Point, twoD);
    if (point && !place(manager, at, twoD, point->x1, point->y1))
        drop(manager);
}

// A 3D circle draws as a circle of its projected radius around its
// projected centre.
void addCircle(MUIDrawManager& manager, const MPoint& center, const MVector& normal, double radius, bool filled,
               bool twoD)
{
    Drawn* circle = add(manager, Drawn::Circle, twoD);
    if (!circle)
        return;
    circle->filled = filled;
    double edgeX = 0, edgeY = 0;
    if (!place(manager, center, twoD, circle->x1, circle->y1) ||
        !place(manager, center + across(normal) * radius, twoD, edgeX, edgeY))
        return drop(manager);
    circle->radius = twoD ? radius : std::hypot(edgeX - circle->x1, edgeY - circle->y1);
}

void addText(MUIDrawManager& manager, const MPoint& position, const MString& text,
             MUIDrawManager::TextAlignment alignment, bool twoD)
{
    Drawn* label = add(manager, Drawn::Text, twoD);
    if (!label)
        return;
    label->alignment = alignment;
    label->text = text.asChar();
    if (!place(manager, position, twoD, label->x1, label->y1))
        drop(manager);
}

} // namespace

MUIDrawManager::MUIDrawManager(void* data) : fData(data) {}

MUIDrawManager::~MUIDrawManager() = default;

void MUIDrawManager::beginDrawable(Selectability, unsigned int)
{
    Recorder& recorder = DrawAccess::recorder(*this);
    recorder.state = Drawn();
    recorder.open = true;
}

void MUIDrawManager::endDrawable()
{
    Recorder& recorder = DrawAccess::recorder(*this);
    recorder.state = Drawn();
    recorder.open = false;
}

void MUIDrawManager::setColor(const MColor& color)
{
    DrawAccess::recorder(*this).state.color = color;
}

void MUIDrawManager::setPointSize(float value)
{
    DrawAccess::recorder(*this).state.pointSize = value;
}

void MUIDrawManager::setLineWidth(float value)
{
    DrawAccess::recorder(*this).state.lineWidth = value;
}

void MUIDrawManager::setLineStyle(LineStyle style)
{
    DrawAccess::recorder(*this).state.lineStyle = style;
}

// Flat colour is all the recorder draws.
void MUIDrawManager::setPaintStyle(PaintStyle) {}

void MUIDrawManager::line(const MPoint& startPoint, const MPoint& endPoint)
{
    addLine(*this, startPoint, endPoint, false);
}

void MUIDrawManager::line2d(const MPoint& startPoint, const MPoint& endPoint)
{
    addLine(*this, startPoint, endPoint, true);
}

MStatus MUIDrawManager::lineList(const MPointArray& points, bool draw2D)
{
    if (points.length() % 2 != 0)
        return MS::kInvalidParameter;
    for (unsigned int i = 0; i + 1 < points.length(); i += 2)
        addLine(*this, points[i], points[i + 1], draw2D);
    return MS::kSuccess;
}

MStatus MUIDrawManager::lineStrip(const MPointArray& points, bool draw2D)
{
    for (unsigned int i = 0; i + 1 < points.length(); ++i)
        addLine(*this, points[i], points[i + 1], draw2D);
    return MS::kSuccess;
}

void MUIDrawManager::point(const MPoint& point)
{
    addPoint(*this, point, false);
}

void MUIDrawManager::point2d(const MPoint& point)
{
    addPoint(*this, point, true);
}

MStatus MUIDrawManager::points(const MPointArray& points, bool draw2D)
{
    for (unsigned int i = 0; i < points.length(); ++i)
        addPoint(*this, points[i], draw2D);
    return MS::kSuccess;
}

// A 3D rectangle draws as a 2D one of its projected half sizes.
void MUIDrawManager::rect(const MPoint& center, const MVector& up, const MVector& normal, double scaleX,
                          double scaleY, bool filled)
{
    Drawn* box = add(*this, Drawn::Rect, false);
    if (!box)
        return;
    box->filled = filled;
    const MVector right = (up ^ normal).normal();
    double rightX = 0, rightY = 0, topX = 0, topY = 0;
    if (!place(*this, center, false, box->x1, box->y1) || !place(*this, center + right * scaleX, false, rightX, rightY) ||
        !place(*this, center + up.normal() * scaleY, false, topX, topY))
        return drop(*this);
    box->x2 = std::hypot(rightX - box->x1, rightY - box->y1);
    box->y2 = std::hypot(topX - box->x1, topY - box->y1);
}

void MUIDrawManager::rect2d(const MPoint& center, const MVector&, double scaleX, double scaleY, bool filled)
{
    Drawn* box = add(*this, Drawn::Rect, true);
    if (!box)
        return;
    box->filled = filled;
    box->x1 = center.x;
    box->y1 = center.y;
    box->x2 = scaleX;
    box->y2 = scaleY;
}

void MUIDrawManager::circle(const MPoint& center, const MVector& normal, double radius, bool filled)
{
    addCircle(*this, center, normal, radius, filled, false);
}

void MUIDrawManager::circle2d(const MPoint& center, double radius, bool filled)
{
    addCircle(*this, center, MVector(0, 0, 1), radius, filled, true);
}

void MUIDrawManager::setFontSize(const unsigned int fontSize)
{
    DrawAccess::recorder(*this).state.fontSize = fontSize;
}

void MUIDrawManager::text(const MPoint& position, const MString& text, TextAlignment alignment, const int*,
                          const MColor*, bool)
{
    addText(*this, position, text, alignment, false);
}

void MUIDrawManager::text2d(const MPoint& position, const MString& text, TextAlignment alignment, const int*,
                            const MColor*, bool)
{
    addText(*this, position, text, alignment, true);
}
