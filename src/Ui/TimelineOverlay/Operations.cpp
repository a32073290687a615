#include "Ui/TimelineOverlay/Operations.h"

#include "Utils/TimeControl.h"

#include <maya/MAnimControl.h>
#include <maya/MQtUtil.h>

#include <QEvent>
#include <QFontMetrics>
#include <QHash>
#include <QPainter>
#include <QPixmap>

#include <algorithm>

namespace TimelineOverlay {

namespace {

// Made before the plug-in loads, emptied at unload.
QHash<QString, QPointer<Operations>> registry;

} // namespace

Operations::Operations(QWidget* parent)
    : QWidget(parent)
    , fStartRange(MAnimControl::minTime())
    , fEndRange(MAnimControl::maxTime())
{
    // The slider under the overlay keeps its clicks and drags.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_NoSystemBackground);
    if (parent)
        parent->installEventFilter(this);
}

Operations::~Operations() = default;

void Operations::setStartRange(const MTime& time)
{
    fStartRange = time;
    update();
}

void Operations::setEndRange(const MTime& time)
{
    fEndRange = time;
    update();
}

void Operations::setBackgroundColor(const QColor& color)
{
    if (color.isValid())
        fBackgroundColor = color;
    update();
}

void Operations::setLineColor(const QColor& color)
{
    if (color.isValid())
        fLineColor = color;
    update();
}

void Operations::setAlpha(int alpha)
{
    fAlpha = std::clamp(alpha, 0, 255);
    update();
}

void Operations::setLineWidth(int width)
{
    fLineWidth = std::max(1, width);
    update();
}

void Operations::setShowLine(bool show)
{
    fShowLine = show;
    update();
}

void Operations::setShowBackground(bool show)
{
    fShowBackground = show;
    update();
}

void Operations::setShowIcon(bool show)
{
    fShowIcon = show;
    update();
}

void Operations::setIconSize(int size)
{
    fIconSize = std::max(8, size);
    update();
}

void Operations::setIconPath(const QString& path)
{
    fIconPath = path;
    update();
}

void Operations::setText(const QString& text)
{
    fText = text;
    update();
}

void Operations::setTextSize(int size)
{
    fTextSize = std::max(0, size);
    update();
}

void Operations::setTextColor(const QColor& color)
{
    if (color.isValid())
        fTextColor = color;
    update();
}

void Operations::setTextBold(bool bold)
{
    fTextBold = bold;
    update();
}

void Operations::setTextItalic(bool italic)
{
    fTextItalic = italic;
    update();
}

void Operations::fitParent()
{
    if (parentWidget())
        setGeometry(parentWidget()->rect());
}

bool Operations::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        fitParent();
    return QWidget::eventFilter(watched, event);
}

void Operations::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    fitParent();
}

QFont Operations::textFont(const QRect& band) const
{
    QFont font = this->font();
    if (fTextSize > 0)
        font.setPixelSize(std::min(fTextSize, std::max(band.height() - 4, 6)));
    else
        font.setPixelSize(std::max(std::min(band.height() - 4, 16), 8));
    font.setWeight(fTextBold ? 75 : 50);
    font.setStyle(fTextItalic ? QFont::StyleItalic : QFont::StyleNormal);
    return font;
}

void Operations::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect r = rect();
    if (r.isEmpty())
        return;
    QColor background = fBackgroundColor;
    background.setAlpha(fAlpha);

    // Read afresh on every paint, so a changed playback range shows at once.
    const double lo = MAnimControl::minTime().as(MTime::uiUnit());
    const double hi = MAnimControl::maxTime().as(MTime::uiUnit());
    const double s = std::max(lo, fStartRange.as(MTime::uiUnit()));
    const double e = std::min(hi, fEndRange.as(MTime::uiUnit()));
    // Each frame owns a cell, so the last frame of the range has width too.
    const double p = r.width() / std::max(1.0, hi - lo + 1.0);
    const double x0 = r.x() + (s - lo) * p;
    const double x1 = r.x() + (e - lo + 1.0) * p;
    const QRect band(static_cast<int>(x0), r.y(), static_cast<int>(x1 - x0), r.height());
    // A start after the end gives no band at all; fillRect would paint
    // the rectangle flipped.
    if (band.width() <= 0)
        return;

    if (fShowBackground)
        painter.fillRect(band, background);
    if (fShowLine)
        painter.fillRect(band.x(), band.center().y() - fLineWidth / 2, band.width(), fLineWidth, fLineColor);

    const bool hasText = !fText.isEmpty() && band.width() > 2 && band.height() > 2;
    QPixmap pixmap;
    if (fShowIcon && band.height() > 0) {
        pixmap = QPixmap(fIconPath);
        if (!pixmap.isNull()) {
            const int side = std::max(std::min(band.height() - 2, fIconSize), 8);
            pixmap = pixmap.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        }
    }

    const QPoint centre = band.center();
    if (!pixmap.isNull() && !hasText) {
        painter.drawPixmap(centre.x() - pixmap.width() / 2, centre.y() - pixmap.height() / 2, pixmap);
        return;
    }
    if (!hasText)
        return;
    painter.setFont(textFont(band));
    const QFontMetrics metrics(painter.font());
    painter.setPen(fTextColor);
    if (pixmap.isNull()) {
        const QString shown = metrics.elidedText(fText, Qt::ElideRight, std::max(4, band.width() - 4));
        painter.drawText(band, Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextSingleLine, shown);
        return;
    }
    const int room = std::max(0, band.width() - 4);
    QString shown = metrics.elidedText(fText, Qt::ElideRight, std::max(4, room - pixmap.width() - 4));
    const int total = metrics.horizontalAdvance(shown) + pixmap.width() + 4;
    // When the limits cross, the lower one wins.
    const int startX = std::min(std::max(centre.x() - total / 2, band.left() + 2), band.right() - total - 1);
    const int textWidth = std::max(4, band.right() - 5 - startX - pixmap.width());
    shown = metrics.elidedText(fText, Qt::ElideRight, textWidth);
    painter.drawPixmap(startX, centre.y() - pixmap.height() / 2, pixmap);
    painter.drawText(QRect(startX + pixmap.width() + 4, band.top(), textWidth, band.height()),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

bool exists(const QString& name) { return registry.contains(name); }

bool isVisible(const QString& name)
{
    const QPointer<Operations> widget = registry.value(name);
    return widget && widget->isVisible();
}

void remove(const QString& name)
{
    delete registry.value(name).data();
    registry.remove(name);
}

Operations* entry(const QString& name) { return registry[name].data(); }

bool showOverlay(const QString& name)
{
    const MString slider = playbackSliderName();
    QWidget* parent = slider.length() ? MQtUtil::findControl(slider) : nullptr;
    if (!parent)
        return false;
    QPointer<Operations>& widget = registry[name];
    if (!widget)
        widget = new Operations(parent);
    widget->show();
    return true;
}

void hideOverlay(const QString& name)
{
    if (Operations* widget = registry.value(name))
        widget->hide();
}

void destroyAll()
{
    for (const QPointer<Operations>& widget : qAsConst(registry))
        delete widget.data();
    registry.clear();
}

} // namespace TimelineOverlay
