#include "gui/MoveTool.h"

#include "engine/Command.h"
#include "engine/Events.h"
#include "foundation/NumberText.h"
#include "gui/Viewports.h"

#include <maya/MEulerRotation.h>
#include <maya/MFnTransform.h>
#include <maya/MGlobal.h>
#include <maya/MQuaternion.h>
#include <maya/MSelectionList.h>
#include <maya/MVector.h>

#include <QtGui/QPainter>

#include <array>
#include <cmath>
#include <optional>

namespace mayasim::gui {

namespace {

struct Target
{
    MDagPath path;
    MPoint start; // world translation, or world pivot in pivot edit mode
};

struct Manipulator
{
    std::optional<MPoint> position; // manipPivot -position; else the selection's pivot
    double orientation[3] = {0, 0, 0}; // degrees
    bool editPivot = false;
    // The drag under way.
    bool dragging = false;
    bool moved = false;
    MPoint grabbed;
    std::optional<MPoint> positionAtPress;
    std::vector<Target> targets;
};

Manipulator& manipulator()
{
    static Manipulator state;
    return state;
}

// The selected transforms, the last selected last.
std::vector<MDagPath> selectedTransforms()
{
    MSelectionList list;
    MGlobal::getActiveSelectionList(list);
    std::vector<MDagPath> paths;
    for (unsigned int i = 0; i < list.length(); ++i)
    {
        MDagPath path;
        if (list.getDagPath(i, path) && path.node().hasFn(MFn::kTransform))
            paths.push_back(path);
    }
    return paths;
}

// Where the manipulator stands; nothing when no transform is selected.
std::optional<MPoint> manipulatorPosition()
{
    const std::vector<MDagPath> selected = selectedTransforms();
    if (selected.empty())
        return std::nullopt;
    if (manipulator().position)
        return manipulator().position;
    return MFnTransform(selected.back()).rotatePivot(MSpace::kWorld);
}

MMatrix orientationMatrix()
{
    const double* o = manipulator().orientation;
    return MEulerRotation(o[0] * M_PI / 180, o[1] * M_PI / 180, o[2] * M_PI / 180).asMatrix();
}

// Widget pixels to the world point on the plane through `through` facing
// the camera.
MPoint onViewPlane(const CameraView& view, const QPointF& at, const MPoint& through)
{
    MPoint nearPoint, farPoint;
    view.toWorld(at.x(), view.height - at.y(), nearPoint, farPoint);
    const MVector normal = (MVector(0, 0, -1) * view.view.inverse()).normal();
    const MVector ray = farPoint - nearPoint;
    const double along = ray * normal;
    if (std::fabs(along) < 1e-12)
        return through;
    return nearPoint + ray * (((through - nearPoint) * normal) / along);
}

std::string vectorText(const MPoint& p)
{
    return doubleText(p.x) + " " + doubleText(p.y) + " " + doubleText(p.z);
}

std::string nameOf(const MDagPath& path)
{
    return path.fullPathName().asChar();
}

// Moves the pivots to a world point as Maya's pivot edit does, the object
// staying where it is: in the parent's space the rotate pivot moves by d;
// rotatePivot moves by d through the inverse rotation (rotate axis, then
// rotate), rotatePivotTranslate takes up the rest; the scale pivot follows
// through the inverse scale (shear left aside). Set through MEL, so that
// undo takes it back.
void movePivot(const MDagPath& path, const MPoint& world)
{
    MFnTransform fn(path);
    const MVector d = (world - fn.rotatePivot(MSpace::kWorld)) * path.exclusiveMatrixInverse();
    MQuaternion axis, rotation;
    axis = fn.rotateOrientation(MSpace::kTransform);
    fn.getRotation(rotation, MSpace::kTransform);
    const MVector pivotMove = d * (axis * rotation).asMatrix().inverse();
    double scale[3] = {1, 1, 1};
    fn.getScale(scale);
    MVector scaleMove;
    for (int axisIndex = 0; axisIndex < 3; ++axisIndex)
        scaleMove[axisIndex] = scale[axisIndex] != 0 ? pivotMove[axisIndex] / scale[axisIndex] : 0.0;
    const MPoint rotatePivot = fn.rotatePivot(MSpace::kTransform) + pivotMove;
    const MPoint rotatePivotTranslate = fn.rotatePivotTranslation(MSpace::kTransform) + d - pivotMove;
    const MPoint scalePivot = fn.scalePivot(MSpace::kTransform) + scaleMove;
    const MPoint scalePivotTranslate = fn.scalePivotTranslation(MSpace::kTransform) + pivotMove - scaleMove;
    const std::string name = "\"" + nameOf(path) + ".";
    runMel("setAttr " + name + "rotatePivot\" " + vectorText(rotatePivot) + ";setAttr " + name +
           "rotatePivotTranslate\" " + vectorText(rotatePivotTranslate) + ";setAttr " + name + "scalePivot\" " +
           vectorText(scalePivot) + ";setAttr " + name + "scalePivotTranslate\" " + vectorText(scalePivotTranslate));
}

} // namespace

void drawManipulator(QPainter& painter, const CameraView& view)
{
    const std::optional<MPoint> position = manipulatorPosition();
    double x = 0, y = 0;
    if (!position || !view.toViewport(*position, x, y))
        return;
    // 60 pixels long whatever the distance.
    const double depth = view.orthographic ? 1.0 : -(*position * view.view).z;
    const double length = 60.0 * 2 * view.halfX * depth / view.width;
    const MMatrix axes = orientationMatrix();
    const QColor colours[] = {QColor(230, 40, 40), QColor(40, 230, 40), QColor(40, 80, 255)};
    const QPointF centre(x, view.height - y);
    for (int axis = 0; axis < 3; ++axis)
    {
        MVector direction;
        direction[axis] = 1;
        double ex = 0, ey = 0;
        if (!view.toViewport(*position + (direction * axes) * length, ex, ey))
            continue;
        painter.setPen(QPen(colours[axis], 2));
        painter.drawLine(centre, QPointF(ex, view.height - ey));
        painter.setBrush(colours[axis]);
        painter.drawEllipse(QPointF(ex, view.height - ey), 3, 3);
    }
    painter.setPen(QPen(QColor(255, 255, 0), 1));
    painter.setBrush(Qt::NoBrush);
    if (manipulator().editPivot)
        painter.drawEllipse(centre, 8, 8);
    else
        painter.drawRect(QRectF(centre.x() - 4, centre.y() - 4, 8, 8));
}

bool beginDrag(const CameraView& view, const QPointF& at)
{
    Manipulator& m = manipulator();
    const std::optional<MPoint> position = manipulatorPosition();
    if (!position || !view.valid)
        return false;
    m.targets.clear();
    for (const MDagPath& path : selectedTransforms())
    {
        MFnTransform fn(path);
        m.targets.push_back({path, m.editPivot ? fn.rotatePivot(MSpace::kWorld)
                                               : MPoint(fn.getTranslation(MSpace::kWorld))});
    }
    m.grabbed = onViewPlane(view, at, *position);
    m.positionAtPress = m.position;
    m.dragging = true;
    m.moved = false;
    runMel("undoInfo -openChunk -chunkName \"move\"", nullptr, false);
    return true;
}

void dragTo(const CameraView& view, const QPointF& at)
{
    Manipulator& m = manipulator();
    if (!m.dragging)
        return;
    const MVector delta = onViewPlane(view, at, m.grabbed) - m.grabbed;
    m.moved = true;
    if (m.positionAtPress)
        m.position = *m.positionAtPress + delta;
    std::string mel;
    for (const Target& target : m.targets)
    {
        if (m.editPivot)
            movePivot(target.path, target.start + delta);
        else
            mel += "xform -ws -t " + vectorText(target.start + delta) + " \"" + nameOf(target.path) + "\";";
    }
    if (!mel.empty())
        runMel(mel);
}

void endDrag()
{
    Manipulator& m = manipulator();
    if (!m.dragging)
        return;
    m.dragging = false;
    runMel("undoInfo -closeChunk", nullptr, false);
    if (m.moved)
        events::fireEvent("DragRelease");
}

namespace {

// manipPivot: the move manipulator's position and orientation (degrees).
MelValue manipPivot(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0}, {"p", "position", 3}, {"o", "orientation", 3}, {"r", "reset", 0},
                           {"rp", "resetPos", 0}, {"ro", "resetOri", 0}, {"v", "valid", 0}});
    Manipulator& m = manipulator();
    if (args.has("query"))
    {
        if (args.has("orientation"))
            return MelValue::ofFloats({m.orientation[0], m.orientation[1], m.orientation[2]});
        if (args.has("valid"))
            return MelValue::ofInt(manipulatorPosition() ? 1 : 0);
        const MPoint p = manipulatorPosition().value_or(MPoint());
        return MelValue::ofFloats({p.x, p.y, p.z});
    }
    // Read everything first: a bad number changes nothing.
    std::optional<MPoint> position;
    std::optional<std::array<double, 3>> orientation;
    if (args.has("position"))
    {
        const auto& words = args.args("position");
        position = MPoint(words.at(0).number(), words.at(1).number(), words.at(2).number());
    }
    if (args.has("orientation"))
    {
        const auto& words = args.args("orientation");
        orientation = std::array<double, 3>{words.at(0).number(), words.at(1).number(), words.at(2).number()};
    }
    for (double value : {position ? position->x : 0, position ? position->y : 0, position ? position->z : 0,
                         orientation ? (*orientation)[0] : 0, orientation ? (*orientation)[1] : 0,
                         orientation ? (*orientation)[2] : 0})
        if (!std::isfinite(value) || std::fabs(value) > 1e12)
            throw MelError(call.name + ": Invalid number: " + doubleText(value));
    if (args.has("reset") || args.has("resetPos"))
        m.position.reset();
    if (args.has("reset") || args.has("resetOri"))
        std::fill(m.orientation, m.orientation + 3, 0.0);
    if (position)
        m.position = position;
    if (orientation)
        std::copy(orientation->begin(), orientation->end(), m.orientation);
    scheduleRefreshAll();
    return MelValue::none();
}

// ctxEditMode: pivot edit mode on and off, as Maya's Insert key toggles it.
MelValue ctxEditMode(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words, {});
    manipulator().editPivot = !manipulator().editPivot;
    scheduleRefreshAll();
    return MelValue::none();
}

BuiltinRegistrar manipPivotCommand("manipPivot", manipPivot);
BuiltinRegistrar ctxEditModeCommand("ctxEditMode", ctxEditMode);

} // namespace

} // namespace mayasim::gui
