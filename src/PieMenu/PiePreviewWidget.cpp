#include "PieMenu/PiePreviewWidget.h"

#include "PieMenu/Icons.h"

#include <QCursor>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace PieMenu {

namespace {

const double DegreesPerRadian = 57.29577951308232;
const double Pi = 3.14159265358979323846;

} // namespace

struct PiePreviewWidget::Geometry
{
    QPointF centre;
    double outer; // R
    double inner; // r
    double step;  // degrees a slice

    QRectF rect(double radius) const
    {
        return QRectF(centre.x() - radius, centre.y() - radius, radius * 2.0, radius * 2.0);
    }
};

PiePreviewWidget::PiePreviewWidget(QWidget* parent)
    : QWidget(parent)
{
    setMinimumSize(260, 260);
    setAttribute(Qt::WA_MouseTracking);
}

PiePreviewWidget::Geometry PiePreviewWidget::geometry() const
{
    Geometry ring;
    ring.centre = QPointF(width() * 0.5, height() * 0.5);
    ring.outer = std::min(width(), height()) * 0.5 - 4.0;
    ring.inner = ring.outer * 0.38;
    ring.step = fSlices.isEmpty() ? 360.0 : 360.0 / fSlices.size();
    return ring;
}

void PiePreviewWidget::setSliceCount(int n)
{
    n = std::max(n, 0);
    if (n == fSlices.size() && !fSlices.isEmpty())
        return;
    fSlices.resize(n);
    rebuildPaths();
    fHoverIndex = -1;
    update();
}

void PiePreviewWidget::setSlice(int index, const Slice& slice)
{
    if (index < 0 || index >= fSlices.size())
        return;
    fSlices[index] = slice;
    update();
}

Slice PiePreviewWidget::sliceAt(int index) const
{
    return index >= 0 && index < fSlices.size() ? fSlices[index] : Slice();
}

void PiePreviewWidget::setPopupMode(bool on) { fPopupMode = on; }

void PiePreviewWidget::setTransparent(bool on)
{
    fTransparent = on;
    setAttribute(Qt::WA_TranslucentBackground, on);
    if (on)
        setAutoFillBackground(false);
    update();
}

void PiePreviewWidget::rebuildPaths()
{
    fPaths.clear();
    if (fSlices.isEmpty())
        return;
    const Geometry ring = geometry();
    const QRectF outerRect = ring.rect(ring.outer);
    const QRectF innerRect = ring.rect(ring.inner);
    if (fSlices.size() == 1) {
        QPainterPath outer, inner;
        outer.addEllipse(outerRect);
        inner.addEllipse(innerRect);
        fPaths.append(outer.subtracted(inner));
        return;
    }
    for (int i = 0; i < fSlices.size(); ++i) {
        const double a = 90.0 - i * ring.step;
        QPainterPath path;
        path.arcMoveTo(outerRect, a);
        path.arcTo(outerRect, a, -ring.step);
        path.arcTo(innerRect, a - ring.step, ring.step);
        path.closeSubpath();
        fPaths.append(path);
    }
}

int PiePreviewWidget::hitIndex(const QPointF& point) const
{
    if (!fPopupMode) {
        for (int i = fPaths.size() - 1; i >= 0; --i) {
            if (fPaths[i].contains(point))
                return i;
        }
        return -1;
    }
    const int n = fSlices.size();
    if (n == 0)
        return -1;
    const Geometry ring = geometry();
    const double dx = point.x() - ring.centre.x();
    const double dy = ring.centre.y() - point.y();
    if (dx * dx + dy * dy <= ring.inner * ring.inner)
        return -1;
    if (n == 1)
        return 0;
    // Direction alone picks the slice: a marking menu, however far the mouse went.
    double angle = std::atan2(dy, dx) * DegreesPerRadian;
    if (angle < 0.0)
        angle += 360.0;
    const double clockwise = std::fmod(90.0 - angle + 360.0, 360.0);
    const int index = static_cast<int>(clockwise / (360.0 / n));
    return std::clamp(index, 0, n - 1);
}

void PiePreviewWidget::setHover(int index)
{
    if (index == fHoverIndex)
        return;
    fHoverIndex = index;
    update();
}

void PiePreviewWidget::updateHoverFromCursor() { setHover(hitIndex(mapFromGlobal(QCursor::pos()))); }

void PiePreviewWidget::mouseMoveEvent(QMouseEvent* event)
{
    setHover(hitIndex(event->localPos()));
    QWidget::mouseMoveEvent(event);
}

void PiePreviewWidget::leaveEvent(QEvent* event)
{
    // The popup keeps its hover while the mouse roams outside it.
    if (!fPopupMode || fDragIndex >= 0)
        setHover(-1);
    QWidget::leaveEvent(event);
}

void PiePreviewWidget::mousePressEvent(QMouseEvent* event)
{
    const int index = hitIndex(event->localPos());
    if (event->button() == Qt::RightButton && index >= 0 && !fPopupMode) {
        fDragIndex = index;
        grabMouse();
        fHoverIndex = index;
        setCursor(Qt::DragMoveCursor);
        update();
        event->accept();
        return;
    }
    if (event->button() == Qt::LeftButton) {
        const Geometry ring = geometry();
        const QPointF offset = event->localPos() - ring.centre;
        if (index >= 0)
            emit sliceClicked(index);
        else if (QPointF::dotProduct(offset, offset) <= ring.inner * ring.inner)
            emit centerClicked();
    }
    QWidget::mousePressEvent(event);
}

void PiePreviewWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::RightButton || fDragIndex < 0) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    const int source = fDragIndex;
    const int target = hitIndex(event->localPos());
    fDragIndex = -1;
    releaseMouse();
    unsetCursor();
    fHoverIndex = target;
    update();
    if (target >= 0 && target != source) {
        std::swap(fSlices[source], fSlices[target]);
        emit slicesSwapped(source, target);
    }
    event->accept();
}

void PiePreviewWidget::resizeEvent(QResizeEvent* event)
{
    rebuildPaths();
    QWidget::resizeEvent(event);
}

void PiePreviewWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!fTransparent)
        painter.fillRect(rect(), palette().color(QPalette::Window));
    const QPen defaultPen(QColor(96, 96, 96, 210), 1, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    const QColor dragColour(210, 130, 40);
    const QColor hoverColour(45, 120, 235);
    const Geometry ring = geometry();
    for (int i = 0; i < fPaths.size(); ++i) {
        if (fPaths[i].isEmpty())
            continue;
        if (i == fDragIndex || i == fHoverIndex) {
            const QColor colour = i == fDragIndex ? dragColour : hoverColour;
            QColor fill = colour;
            fill.setAlpha(i == fDragIndex ? 75 : 70);
            painter.setBrush(fill);
            painter.setPen(QPen(colour, 2));
        } else {
            painter.setBrush(palette().color(i % 2 == 0 ? QPalette::Base : QPalette::AlternateBase));
            painter.setPen(defaultPen);
        }
        painter.drawPath(fPaths[i]);
        paintContent(painter, i, ring);
    }
}

void PiePreviewWidget::paintContent(QPainter& painter, int index, const Geometry& ring) const
{
    const bool whole = fSlices.size() == 1;
    const double step = whole ? 360.0 : ring.step;
    const double mid = (ring.inner + ring.outer) * 0.5;
    // A single ring shows its content at the top.
    const double angle = (whole ? 90.0 : 90.0 - index * step - step / 2.0) / DegreesPerRadian;
    const QPointF centre(ring.centre.x() + mid * std::cos(angle), ring.centre.y() - mid * std::sin(angle));
    const double side = std::max(std::min(step * Pi / 180.0 * mid * 0.52, (ring.outer - ring.inner) * 0.82), 24.0);
    const QRectF cell = QRectF(centre.x() - side / 2.0, centre.y() - side / 2.0, side, side).adjusted(2, 2, -2, -2);

    QFont font = painter.font();
    font.setPixelSize(std::clamp(static_cast<int>(cell.height() * 0.22), 8, 12));
    painter.setFont(font);
    const QFontMetrics metrics(font);

    const Slice& slice = fSlices[index];
    const QIcon icon = sliceIcon(slice.iconPath);
    QRectF iconArea = cell;
    if (!icon.isNull() && !slice.label.isEmpty())
        iconArea.setBottom(cell.bottom() - (metrics.height() + 2));
    if (!icon.isNull() && iconArea.width() >= 2 && iconArea.height() >= 2) {
        const QPixmap pixmap = icon.pixmap(iconArea.size().toSize());
        const QSizeF shown = QSizeF(pixmap.size()).scaled(iconArea.size(), Qt::KeepAspectRatio);
        const QRectF target(iconArea.center().x() - shown.width() / 2.0, iconArea.center().y() - shown.height() / 2.0,
                            shown.width(), shown.height());
        painter.drawPixmap(target, pixmap, QRectF(pixmap.rect()));
    }
    QString text = slice.label;
    if (text.isEmpty() && icon.isNull())
        text = QString::number(index + 1);
    if (text.isEmpty())
        return;
    painter.setPen(palette().color(QPalette::WindowText));
    const QRectF textArea = icon.isNull() ? cell : QRectF(cell.left(), cell.bottom() - metrics.height(), cell.width(), metrics.height());
    painter.drawText(textArea, Qt::AlignCenter, metrics.elidedText(text, Qt::ElideRight, static_cast<int>(cell.width())));
}

} // namespace PieMenu
