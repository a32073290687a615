#include "gui/GraphEditor.h"

#include "engine/Command.h"
#include "gui/Viewports.h"

#include <maya/MAnimControl.h>
#include <maya/MAnimUtil.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MGlobal.h>
#include <maya/MObjectArray.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MSelectionList.h>
#include <maya/MTime.h>
#include <mayasim/Host.h>

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace mayasim::gui {

namespace {

QPointer<GraphEditor>& instance()
{
    static QPointer<GraphEditor> editor;
    return editor;
}

// Whether the editor's outliner follows the selection; when it doesn't, it
// keeps the objects it held when that was turned off.
struct Outliner
{
    bool autoLoad = true;
    MSelectionList loaded;
};

Outliner& outliner()
{
    static Outliner state;
    return state;
}

const char* const kOutliner = "graphEditor1OutlineEd";

// Maya's graph editor: a dark field, x channels red, y green, z blue.
const QColor kField(58, 58, 58), kGrid(72, 72, 72), kZero(30, 30, 30), kKey(20, 20, 20),
    kSelectedKey(255, 255, 0), kOther(200, 200, 200), kCurrentTime(200, 40, 40);
constexpr int kKeySize = 6;
constexpr int kPickReach = 5;

QColor curveColour(const std::string& attribute)
{
    if (attribute.empty())
        return kOther;
    switch (attribute.back())
    {
    case 'X': case 'x': return QColor(230, 60, 60);
    case 'Y': case 'y': return QColor(60, 220, 60);
    case 'Z': case 'z': return QColor(70, 110, 255);
    default: return kOther;
    }
}

// Lines every 1, 2 or 5 times a power of ten, about 60 pixels apart.
double gridStep(double span, int pixels)
{
    const double raw = span * 60.0 / std::max(pixels, 1);
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    for (double factor : {1.0, 2.0, 5.0})
        if (factor * power >= raw)
            return factor * power;
    return 10 * power;
}

} // namespace

GraphEditor::GraphEditor(QWidget* parent) : QWidget(parent)
{
    setObjectName("graphEditor1");
    setFocusPolicy(Qt::ClickFocus);
    setMinimumHeight(60);
    instance() = this;
}

GraphEditor* graphEditor()
{
    return instance();
}

// The curves of the plugs the objects shown animate, in selection order.
std::vector<GraphEditor::Curve> GraphEditor::read() const
{
    std::vector<Curve> curves;
    MSelectionList selection = outliner().loaded;
    if (outliner().autoLoad)
        MGlobal::getActiveSelectionList(selection);
    const MTime::Unit unit = MTime::uiUnit();
    for (unsigned int i = 0; i < selection.length(); ++i)
    {
        MObject node;
        if (!selection.getDependNode(i, node) || node.hasFn(MFn::kAnimCurve))
            continue;
        MPlugArray plugs;
        MAnimUtil::findAnimatedPlugs(node, plugs, false);
        for (unsigned int p = 0; p < plugs.length(); ++p)
        {
            MObjectArray animation;
            MAnimUtil::findAnimation(plugs[p], animation);
            for (unsigned int a = 0; a < animation.length(); ++a)
            {
                MFnAnimCurve fn(animation[a]);
                Curve curve;
                curve.name = fn.name().asChar();
                curve.attribute = plugs[p].partialName().asChar();
                curve.angular = fn.animCurveType() == MFnAnimCurve::kAnimCurveTA;
                const std::vector<unsigned int> picked = host::selectedKeys(curve.name);
                for (unsigned int k = 0; k < fn.numKeys(); ++k)
                    curve.keys.push_back({fn.time(k).as(unit), fn.value(k) * (curve.angular ? 180 / M_PI : 1.0),
                                          std::find(picked.begin(), picked.end(), k) != picked.end()});
                curves.push_back(std::move(curve));
            }
        }
    }
    return curves;
}

void GraphEditor::sync()
{
    std::vector<Curve> curves = read();
    const auto names = [](const std::vector<Curve>& list) {
        std::vector<std::string> result;
        for (const Curve& curve : list)
            result.push_back(curve.name);
        return result;
    };
    const double now = MAnimControl::currentTime().as(MTime::uiUnit());
    const bool otherCurves = names(curves) != names(fCurves);
    const bool moved = now != fCurrentTime;
    fCurrentTime = now;
    const bool changed = otherCurves || [&] {
        for (size_t i = 0; i < curves.size(); ++i)
            for (size_t k = 0; k < curves[i].keys.size(); ++k)
                if (k >= fCurves[i].keys.size() || curves[i].keys[k].time != fCurves[i].keys[k].time ||
                    curves[i].keys[k].value != fCurves[i].keys[k].value ||
                    curves[i].keys[k].selected != fCurves[i].keys[k].selected)
                    return true;
        return false;
    }();
    if (!changed && !moved)
        return;
    fCurves = std::move(curves);
    if (otherCurves)
        frameAll();
    update();
}

void GraphEditor::frameAll()
{
    double first = 1e300, last = -1e300, low = 1e300, high = -1e300;
    for (const Curve& curve : fCurves)
        for (const Key& key : curve.keys)
        {
            first = std::min(first, key.time);
            last = std::max(last, key.time);
            low = std::min(low, key.value);
            high = std::max(high, key.value);
        }
    if (first > last)
        return;
    // A margin of a tenth all round; a flat or single key gets some room.
    const double width = std::max(last - first, 1.0), height = std::max(high - low, 1.0);
    fFrame = QRectF(first - width * 0.1, low - height * 0.1, width * 1.2, height * 1.2);
    update();
}

QPointF GraphEditor::toWidget(double time, double value) const
{
    return QPointF((time - fFrame.x()) / fFrame.width() * width(),
                   height() - (value - fFrame.y()) / fFrame.height() * height());
}

void GraphEditor::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), kField);
    painter.setRenderHint(QPainter::Antialiasing);
    const double timeStep = gridStep(fFrame.width(), width()), valueStep = gridStep(fFrame.height(), height());
    painter.setPen(kGrid);
    for (double t = std::ceil(fFrame.left() / timeStep) * timeStep; t <= fFrame.right(); t += timeStep)
    {
        const double x = toWidget(t, 0).x();
        painter.drawLine(QPointF(x, 0), QPointF(x, height()));
        painter.drawText(QPointF(x + 2, height() - 3), QString::number(t));
    }
    for (double v = std::ceil(fFrame.top() / valueStep) * valueStep; v <= fFrame.bottom(); v += valueStep)
    {
        const double y = toWidget(0, v).y();
        painter.setPen(std::fabs(v) < valueStep / 2 ? kZero : kGrid);
        painter.drawLine(QPointF(0, y), QPointF(width(), y));
        painter.drawText(QPointF(2, y - 2), QString::number(v));
    }
    for (const Curve& curve : fCurves)
    {
        // The curve as Maya evaluates it, a point every two pixels.
        MSelectionList list;
        MObject node;
        if (!list.add(curve.name.c_str()) || !list.getDependNode(0, node))
            continue;
        MFnAnimCurve fn(node);
        QPolygonF line;
        for (int x = 0; x <= width(); x += 2)
        {
            const double time = fFrame.x() + fFrame.width() * x / std::max(width(), 1);
            const double value = fn.evaluate(MTime(time, MTime::uiUnit())) * (curve.angular ? 180 / M_PI : 1.0);
            line << toWidget(time, value);
        }
        painter.setPen(QPen(curveColour(curve.attribute), 1.5));
        painter.drawPolyline(line);
        for (const Key& key : curve.keys)
        {
            const QPointF at = toWidget(key.time, key.value);
            painter.fillRect(QRectF(at.x() - kKeySize / 2.0, at.y() - kKeySize / 2.0, kKeySize, kKeySize),
                             key.selected ? kSelectedKey : kKey);
        }
    }
    // The current time, as Maya marks it.
    painter.setPen(QPen(kCurrentTime, 1));
    const double nowX = toWidget(fCurrentTime, 0).x();
    painter.drawLine(QPointF(nowX, 0), QPointF(nowX, height()));
    if (fPressAt && (fDragTo - *fPressAt).manhattanLength() > 2)
    {
        painter.setPen(QPen(QColor(230, 230, 230), 1, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRect(*fPressAt, fDragTo).normalized());
    }
}

// A click picks the key under the pointer, a drag the keys in its box;
// Shift adds to the picked keys, otherwise they are replaced.
void GraphEditor::pick(const QRectF& area, bool add)
{
    if (!add)
        host::clearKeySelection();
    for (const Curve& curve : fCurves)
    {
        std::vector<unsigned int> inside;
        for (size_t k = 0; k < curve.keys.size(); ++k)
            if (area.contains(toWidget(curve.keys[k].time, curve.keys[k].value)))
                inside.push_back(static_cast<unsigned int>(k));
        if (!inside.empty())
            host::selectKeys(curve.name, inside);
    }
    scheduleRefreshAll();
    sync();
}

void GraphEditor::mousePressEvent(QMouseEvent* event)
{
    setFocusedPanel(this);
    if (event->button() != Qt::LeftButton)
        return;
    fPressAt = event->pos();
    fDragTo = event->pos();
}

void GraphEditor::mouseMoveEvent(QMouseEvent* event)
{
    if (!fPressAt)
        return;
    fDragTo = event->pos();
    update();
}

void GraphEditor::mouseReleaseEvent(QMouseEvent* event)
{
    if (!fPressAt || event->button() != Qt::LeftButton)
        return;
    const QPoint from = *fPressAt;
    fPressAt.reset();
    const bool add = event->modifiers() & Qt::ShiftModifier;
    if ((event->pos() - from).manhattanLength() <= 2)
        pick(QRectF(from.x() - kPickReach, from.y() - kPickReach, 2 * kPickReach, 2 * kPickReach), add);
    else
        pick(QRectF(QRect(from, event->pos()).normalized()), add);
    update();
}

void GraphEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_A || event->key() == Qt::Key_F)
        frameAll();
    else
        QWidget::keyPressEvent(event);
}

namespace {

// toggleAutoLoad (a MEL procedure in Maya): whether the graph editor's
// outliner follows the selection. Tool state, so batch mode has it too.
MelValue toggleAutoLoad(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words, {});
    if (args.positional().size() != 2)
        throw MelError(call.name + ": Wrong number of arguments.");
    if (args.positional()[0].text != kOutliner)
        throw MelError(call.name + ": Object '" + args.positional()[0].text + "' not found.");
    const bool on = args.positional()[1].boolean();
    Outliner& state = outliner();
    if (!on && state.autoLoad)
        MGlobal::getActiveSelectionList(state.loaded);
    if (on)
        state.loaded.clear();
    state.autoLoad = on;
    return MelValue::none();
}

BuiltinRegistrar toggleAutoLoadCommand("toggleAutoLoad", toggleAutoLoad);

} // namespace

} // namespace mayasim::gui
