// The model panels: the scene drawn plainly through each panel's camera,
// then the draw overrides' output, rasterised with alpha blending.
#include "gui/Viewports.h"

#include "gui/GraphEditor.h"
#include "gui/MoveTool.h"

#include "engine/Events.h"
#include "scene/DefaultCameras.h"
#include "scene/Evaluation.h"
#include "scene/Plugs.h"
#include "scene/Scene.h"
#include "scene/Selection.h"
#include "scene/Transform.h"

#include <maya/MFnDagNode.h>
#include <maya/MVector.h>

#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QSplitter>

#include <array>
#include <cmath>

namespace mayasim::gui {

namespace {

struct Panels
{
    QPointer<QWidget> area;
    std::array<QPointer<ModelPanel>, 4> panels;
    QPointer<ModelPanel> focused;
    QPointer<QWidget> focusedPanel;
    unsigned long refreshes = 0;
};

Panels& state()
{
    static Panels panels;
    return panels;
}

// Maya's default colours: the background gradient, grid and object states.
const QColor kBackgroundTop(108, 113, 120), kBackgroundBottom(34, 34, 36);
const QColor kGridLine(92, 92, 92), kGridAxis(16, 16, 16);
const QColor kDormant(0, 4, 96), kJoint(0, 102, 204), kActive(255, 255, 255), kLead(66, 255, 163);
const QColor kLabel(220, 220, 220);

// Maya's grid: 12 units each way from the origin, a line every unit.
constexpr int kGridExtent = 12;

QPointF toWidget(double x, double y, int height)
{
    return QPointF(x, height - y);
}

// A world segment as the view shows it, cut at the near plane.
void worldLine(QPainter& painter, const CameraView& view, MPoint a, MPoint b)
{
    if (!view.orthographic)
    {
        const MPoint ca = a * view.view, cb = b * view.view;
        const double limit = -view.nearClip;
        if (ca.z > limit && cb.z > limit)
            return;
        if (ca.z > limit || cb.z > limit)
        {
            const double t = (limit - ca.z) / (cb.z - ca.z);
            const MPoint cut = (ca + (cb - ca) * t) * view.view.inverse();
            (ca.z > limit ? a : b) = cut;
        }
    }
    double ax = 0, ay = 0, bx = 0, by = 0;
    if (view.toViewport(a, ax, ay) && view.toViewport(b, bx, by))
        painter.drawLine(toWidget(ax, ay, view.height), toWidget(bx, by, view.height));
}

// The plane the grid lies in: the ground for a perspective camera and top,
// else the one facing an orthographic camera.
void drawGrid(QPainter& painter, const CameraView& view)
{
    const MVector facing = (MVector(0, 0, -1) * view.view.inverse()).normal();
    int normalAxis = 1;
    if (view.orthographic)
        for (int axis : {0, 2})
            if (std::fabs(facing[axis]) > std::fabs(facing[normalAxis]))
                normalAxis = axis;
    const int u = normalAxis == 0 ? 2 : 0, v = normalAxis == 1 ? 2 : 1;
    const auto at = [u, v](double a, double b) {
        double p[3] = {0, 0, 0};
        p[u] = a;
        p[v] = b;
        return MPoint(p[0], p[1], p[2]);
    };
    for (int i = -kGridExtent; i <= kGridExtent; ++i)
    {
        painter.setPen(QPen(i == 0 ? kGridAxis : kGridLine, i == 0 ? 2 : 1));
        worldLine(painter, view, at(i, -kGridExtent), at(i, kGridExtent));
        worldLine(painter, view, at(-kGridExtent, i), at(kGridExtent, i));
    }
}

// How the selection shows a node: the last selected object in the lead
// colour, the others in white; a shape follows its transform.
QColor statusColor(const Node& node, const QColor& dormant)
{
    const auto& items = SelectionAccess::items(selection::active());
    const Node* parent = node.parentNode().get();
    for (size_t i = 0; i < items.size(); ++i)
    {
        const Node* selected = nodeObject(items[i].node);
        if (selected && (selected == &node || (node.isShape() && selected == parent)))
            return i + 1 == items.size() ? kLead : kActive;
    }
    return dormant;
}

MPoint origin(Node& node)
{
    return MPoint() * transform::worldMatrix(node);
}

double number(Node& node, const char* attribute)
{
    const AttributePtr found = node.findAttribute(attribute);
    return found ? eval::read(node, keyOf(*found)).number : 0.0;
}

bool hasShape(const Node& node)
{
    for (const NodePtr& child : node.children)
        if (child->isShape())
            return true;
    return false;
}

void drawCircle(QPainter& painter, const CameraView& view, const MMatrix& placement, double radius)
{
    constexpr int kSegments = 24;
    MPoint previous = MPoint(radius, 0, 0) * placement;
    for (int i = 1; i <= kSegments; ++i)
    {
        const double angle = 2 * M_PI * i / kSegments;
        const MPoint next = MPoint(radius * std::cos(angle), 0, radius * std::sin(angle)) * placement;
        worldLine(painter, view, previous, next);
        previous = next;
    }
}

// Transforms without shapes show as a circle about their Y axis, as a
// control's curve would; joints as a ball with bones to their child joints;
// locators as three crossed lines.
void drawNode(QPainter& painter, const CameraView& view, Node& node)
{
    if (node.hasFn(MFn::kJoint))
    {
        painter.setPen(QPen(statusColor(node, kJoint), 1));
        const MPoint at = origin(node);
        double x = 0, y = 0, ex = 0, ey = 0;
        const double radius = number(node, "radius") * 0.5;
        const MVector across = (MVector(1, 0, 0) * view.view.inverse()).normal();
        if (view.toViewport(at, x, y) && view.toViewport(at + across * radius, ex, ey))
        {
            const double pixels = std::max(2.0, std::hypot(ex - x, ey - y));
            painter.drawEllipse(toWidget(x, y, view.height), pixels, pixels);
        }
        for (const NodePtr& child : node.children)
            if (child->hasFn(MFn::kJoint) && child->alive)
                worldLine(painter, view, at, origin(*child));
        return;
    }
    if (node.apiType() == MFn::kTransform && !hasShape(node))
    {
        painter.setPen(QPen(statusColor(node, kDormant), 1));
        drawCircle(painter, view, transform::worldMatrix(node), 1.0);
        return;
    }
    if (node.apiType() == MFn::kLocator)
    {
        NodePtr parent = node.parentNode();
        if (!parent)
            return;
        painter.setPen(QPen(statusColor(node, kDormant), 1));
        const MMatrix placement = transform::worldMatrix(*parent);
        const MPoint centre(number(node, "localPositionX"), number(node, "localPositionY"),
                            number(node, "localPositionZ"));
        const double scale[3] = {number(node, "localScaleX"), number(node, "localScaleY"),
                                 number(node, "localScaleZ")};
        for (int axis = 0; axis < 3; ++axis)
        {
            MVector offset;
            offset[axis] = scale[axis];
            worldLine(painter, view, (centre - offset) * placement, (centre + offset) * placement);
        }
    }
}

Qt::PenStyle penStyle(MHWRender::MUIDrawManager::LineStyle style)
{
    switch (style)
    {
    case MHWRender::MUIDrawManager::kShortDotted:
    case MHWRender::MUIDrawManager::kDotted: return Qt::DotLine;
    case MHWRender::MUIDrawManager::kShortDashed:
    case MHWRender::MUIDrawManager::kDashed: return Qt::DashLine;
    default: return Qt::SolidLine;
    }
}

QColor qColor(const MColor& c)
{
    const auto channel = [](float value) { return std::clamp(static_cast<double>(value), 0.0, 1.0); };
    return QColor::fromRgbF(channel(c.r), channel(c.g), channel(c.b), channel(c.a));
}

// What the overrides drew, over the scene.
void rasterise(QPainter& painter, const render::DrawList& list, int height)
{
    using render::Primitive;
    for (const Primitive& p : list)
    {
        const QColor colour = qColor(p.color);
        const QPointF at = toWidget(p.x1, p.y1, height);
        painter.setPen(QPen(colour, std::max(1.0F, p.lineWidth), penStyle(p.lineStyle), Qt::FlatCap));
        painter.setBrush(p.filled ? QBrush(colour) : Qt::NoBrush);
        switch (p.kind)
        {
        case Primitive::Line: painter.drawLine(at, toWidget(p.x2, p.y2, height)); break;
        case Primitive::Point:
        {
            const double half = std::max(1.0F, p.pointSize) / 2;
            painter.fillRect(QRectF(at.x() - half, at.y() - half, 2 * half, 2 * half), colour);
            break;
        }
        case Primitive::Circle:
            if (p.filled)
                painter.setPen(Qt::NoPen);
            painter.drawEllipse(at, p.radius, p.radius);
            break;
        case Primitive::Rect:
            if (p.filled)
                painter.setPen(Qt::NoPen);
            painter.drawRect(QRectF(at.x() - p.x2, at.y() - p.y2, 2 * p.x2, 2 * p.y2));
            break;
        case Primitive::Text:
        {
            QFont font = painter.font();
            font.setPixelSize(static_cast<int>(p.fontSize));
            painter.setFont(font);
            const int flags = p.alignment == MHWRender::MUIDrawManager::kCenter  ? Qt::AlignHCenter
                              : p.alignment == MHWRender::MUIDrawManager::kRight ? Qt::AlignRight
                                                                                  : Qt::AlignLeft;
            constexpr double kWide = 2000;
            const double left = flags == Qt::AlignHCenter ? at.x() - kWide / 2 : flags == Qt::AlignRight ? at.x() - kWide : at.x();
            painter.drawText(QRectF(left, at.y() - p.fontSize, kWide, p.fontSize * 1.5), flags | Qt::AlignTop,
                             QString::fromStdString(p.text));
            break;
        }
        }
    }
}

// The camera's name at the bottom, as Maya labels its views.
QString cameraLabel(const MDagPath& camera)
{
    MDagPath transform = camera;
    transform.pop();
    return QString::fromUtf8(transform.partialPathName().asChar());
}

} // namespace

ModelPanel::ModelPanel(int number, const char* defaultCamera, QWidget* parent)
    : QWidget(parent), fDefaultCamera(defaultCamera)
{
    setObjectName(QString("modelPanel%1").arg(number));
    setMinimumSize(40, 40);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

MDagPath ModelPanel::camera() const
{
    if (fCamera.isValid())
        if (Node* node = nodeObject(fCamera.node()); node && node->alive)
            return fCamera;
    const NodePtr shape = cameras::defaultCameraShape(fDefaultCamera);
    return shape ? pathTo(*shape) : MDagPath();
}

bool ModelPanel::setCamera(const MDagPath& camera)
{
    MDagPath shape = camera;
    if (!shape.node().hasFn(MFn::kCamera))
    {
        unsigned int shapes = 0;
        if (!shape.numberOfShapesDirectlyBelow(shapes) || shapes == 0 || !shape.extendToShape())
            return false;
    }
    if (!shape.node().hasFn(MFn::kCamera))
        return false;
    fCamera = shape;
    scheduleRedraw();
    return true;
}

CameraView ModelPanel::view() const
{
    return CameraView::of(camera(), width(), height());
}

void ModelPanel::scheduleRedraw()
{
    fDirty = true;
    update();
}

void ModelPanel::sync()
{
    if (fDirty || fRevision != events::sceneRevision() || fImage.size() != size())
        redraw();
}

void ModelPanel::redraw()
{
    fDirty = false;
    fRevision = events::sceneRevision();
    ++fRefreshes;
    ++state().refreshes;
    if (fImage.size() != size())
        fImage = QImage(size(), QImage::Format_RGB32);
    QPainter painter(&fImage);
    QLinearGradient gradient(0, 0, 0, height());
    gradient.setColorAt(0, kBackgroundTop);
    gradient.setColorAt(1, kBackgroundBottom);
    painter.fillRect(fImage.rect(), gradient);
    fDrawList.clear();
    const CameraView view = this->view();
    if (view.valid)
    {
        painter.setRenderHint(QPainter::Antialiasing);
        drawScene(painter, view);
        render::runDrawPass(view, render::Filters{locators}, fDrawList);
        rasterise(painter, fDrawList, view.height);
        drawManipulator(painter, view);
        painter.setPen(kLabel);
        painter.drawText(fImage.rect().adjusted(0, 0, 0, -6), Qt::AlignHCenter | Qt::AlignBottom,
                         cameraLabel(view.camera));
    }
    // Maya rings the view with focus.
    if (state().focused == this)
    {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(QPen(QColor(82, 133, 166), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(fImage.rect().adjusted(1, 1, -1, -1));
    }
    painter.end();
    update();
}

void ModelPanel::drawScene(QPainter& painter, const CameraView& view)
{
    if (grid)
        drawGrid(painter, view);
    for (const NodePtr& node : scene::nodes())
        if (node->isDag() && node->alive && !cameras::isDefaultCamera(*node) && render::isDrawn(*node))
            drawNode(painter, view, *node);
}

void ModelPanel::paintEvent(QPaintEvent*)
{
    sync();
    QPainter painter(this);
    painter.drawImage(0, 0, fImage);
}

void ModelPanel::resizeEvent(QResizeEvent*)
{
    scheduleRedraw();
}

// A press gives the view the focus; a left drag is the move tool's.
void ModelPanel::mousePressEvent(QMouseEvent* event)
{
    setFocusedPanel(this);
    fDragging = event->button() == Qt::LeftButton && beginDrag(view(), event->localPos());
}

void ModelPanel::mouseMoveEvent(QMouseEvent* event)
{
    if (fDragging)
        dragTo(view(), event->localPos());
}

void ModelPanel::mouseReleaseEvent(QMouseEvent* event)
{
    if (!fDragging || event->button() != Qt::LeftButton)
        return;
    fDragging = false;
    endDrag();
}

QWidget* makeViewPanes(QWidget* parent)
{
    Panels& s = state();
    auto* area = new QSplitter(Qt::Vertical, parent);
    area->setObjectName("viewPanes");
    auto* views = new QWidget(area);
    views->setObjectName("modelPanes");
    auto* layout = new QGridLayout(views);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(3);
    // Maya's four views: top and persp above, side and front below.
    const char* const cameras[] = {"top", "front", "side", "persp"};
    const int rows[] = {0, 1, 1, 0}, columns[] = {0, 1, 0, 1};
    for (int i = 0; i < 4; ++i)
    {
        s.panels[i] = new ModelPanel(i + 1, cameras[i], views);
        layout->addWidget(s.panels[i], rows[i], columns[i]);
    }
    area->addWidget(views);
    area->addWidget(new GraphEditor(area));
    area->setStretchFactor(0, 2);
    area->setStretchFactor(1, 1);
    s.area = area;
    s.focused = s.panels[3];
    s.focusedPanel = s.panels[3];
    return area;
}

std::vector<ModelPanel*> modelPanels()
{
    std::vector<ModelPanel*> result;
    for (const auto& panel : state().panels)
        if (panel)
            result.push_back(panel);
    return result;
}

ModelPanel* modelPanel(const std::string& name)
{
    const size_t bar = name.rfind('|');
    const QString wanted = QString::fromStdString(bar == std::string::npos ? name : name.substr(bar + 1));
    for (ModelPanel* panel : modelPanels())
        if (panel->objectName() == wanted)
            return panel;
    return nullptr;
}

ModelPanel* focusedModelPanel()
{
    return state().focused;
}

QWidget* focusedPanel()
{
    return state().focusedPanel;
}

void setFocusedPanel(QWidget* panel)
{
    Panels& s = state();
    s.focusedPanel = panel;
    auto* model = dynamic_cast<ModelPanel*>(panel);
    if (!model || model == s.focused)
        return;
    // The views show which has the focus.
    if (s.focused)
        s.focused->scheduleRedraw();
    s.focused = model;
    model->scheduleRedraw();
}

void showPanels(ModelPanel* only)
{
    for (ModelPanel* panel : modelPanels())
        panel->setVisible(!only || panel == only);
}

unsigned long refreshCount()
{
    return state().refreshes;
}

void syncViews()
{
    for (ModelPanel* panel : modelPanels())
        if (panel->isVisible())
            panel->sync();
    if (GraphEditor* editor = graphEditor())
        editor->sync();
}

void scheduleRefreshAll()
{
    for (ModelPanel* panel : modelPanels())
        panel->scheduleRedraw();
}

void modelEditorChanged()
{
    events::fireEvent("modelEditorChanged");
}

} // namespace mayasim::gui
