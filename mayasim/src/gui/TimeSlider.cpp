// The time slider, range slider and play buttons. They keep no state of
// their own: each paint reads MAnimControl and the host's highlight, and each
// edit writes there.
#include "gui/TimeSlider.h"

#include "gui/GuiHost.h"

#include <maya/MAnimControl.h>
#include <maya/MAnimUtil.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MGlobal.h>
#include <maya/MObjectArray.h>
#include <maya/MPlugArray.h>
#include <maya/MSelectionList.h>
#include <maya/MTime.h>
#include <mayasim/Host.h>

#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QToolButton>

#include <algorithm>
#include <cmath>
#include <functional>
#include <set>

namespace mayasim::gui {

namespace {

constexpr int kMargin = 8;
const QColor kTrack(43, 43, 43);
const QColor kTick(140, 140, 140);
const QColor kLabel(200, 200, 200);
const QColor kKey(204, 39, 40);
const QColor kCurrent(210, 210, 210, 120);
const QColor kHighlight(200, 60, 60, 120);

double uiFrames(const MTime& time)
{
    return time.as(MTime::uiUnit());
}

void setCurrentFrame(double frame)
{
    MAnimControl::setCurrentTime(MTime(frame, MTime::uiUnit()));
}

// The keys of the objects of the slider's main list: the active selection,
// or the selection connection timeControl -mainListConnection gave it.
std::vector<double> keyTimes()
{
    MSelectionList selection;
    for (const std::string& name : mayasim::host::timeSliderObjects())
        selection.add(name.c_str());
    std::set<double> times;
    for (unsigned int i = 0; i < selection.length(); ++i)
    {
        MObject node;
        if (!selection.getDependNode(i, node))
            continue;
        MPlugArray plugs;
        MAnimUtil::findAnimatedPlugs(node, plugs);
        for (unsigned int p = 0; p < plugs.length(); ++p)
        {
            MObjectArray curves;
            MAnimUtil::findAnimation(plugs[p], curves);
            for (unsigned int c = 0; c < curves.length(); ++c)
            {
                MFnAnimCurve curve(curves[c]);
                for (unsigned int k = 0; k < curve.numKeys(); ++k)
                    times.insert(uiFrames(curve.time(k)));
            }
        }
    }
    return {times.begin(), times.end()};
}

// Frames between marks: the first of 1, 2, 5, 10, 20, 50... whose marks
// stay `spacing` pixels apart.
int frameStep(double frameWidth, double spacing)
{
    for (int scale = 1;; scale *= 10)
        for (int step : {1, 2, 5})
            if (step * scale * frameWidth >= spacing || scale > 100000)
                return step * scale;
}

QString frameText(double frame)
{
    return QString::number(frame, 'g', 10);
}

} // namespace

// --- TimeSlider ------------------------------------------------------------

bool TimeSlider::View::operator==(const View& other) const
{
    return first == other.first && last == other.last && current == other.current &&
           highlight == other.highlight && keys == other.keys;
}

TimeSlider::TimeSlider(QWidget* parent) : QWidget(parent)
{
    setObjectName("timeControl1");
    setMinimumHeight(34);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    fView = read();
}

QSize TimeSlider::sizeHint() const
{
    return {600, 34};
}

TimeSlider::View TimeSlider::read()
{
    View view;
    view.first = uiFrames(MAnimControl::minTime());
    view.last = uiFrames(MAnimControl::maxTime());
    view.current = uiFrames(MAnimControl::currentTime());
    double first = 0, last = 0;
    if (host::timeSliderHighlight(first, last))
        view.highlight = std::make_pair(first, last);
    view.keys = keyTimes();
    return view;
}

void TimeSlider::sync()
{
    View view = read();
    if (view == fView)
        return;
    fView = std::move(view);
    update();
}

double TimeSlider::frameWidth() const
{
    const double frames = std::max(1.0, fView.last - fView.first + 1.0);
    return std::max(1.0, width() - 2.0 * kMargin) / frames;
}

double TimeSlider::xOf(double frame) const
{
    return kMargin + (frame - fView.first) * frameWidth();
}

double TimeSlider::frameAt(int x) const
{
    const double frame = fView.first + std::floor((x - kMargin) / frameWidth());
    return std::clamp(frame, fView.first, fView.last);
}

void TimeSlider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), kTrack);
    const double w = frameWidth();
    const int bottom = height() - 1;
    const QFontMetrics metrics(font());
    const int textTop = 1, textHeight = metrics.height();
    // The frame numbers of the current time and of the highlight's ends
    // take the place of the tick labels they would cover.
    std::vector<QRect> taken;
    const auto frameLabel = [&](double frame, double x, bool alignRight) {
        const QString text = frameText(frame);
        const int width = metrics.horizontalAdvance(text) + 2;
        return QRect(alignRight ? int(x) - width - 2 : int(x) + 2, textTop, width, textHeight);
    };

    // The current frame's label goes beside its block, inside the slider.
    const bool showCurrent = fView.current >= fView.first && fView.current <= fView.last;
    const QRectF block(xOf(fView.current), 0, std::max(2.0, w), height());
    QRect currentLabel = frameLabel(fView.current, block.right(), false);
    if (currentLabel.right() > width())
        currentLabel = frameLabel(fView.current, block.left(), true);
    if (showCurrent)
        taken.push_back(currentLabel);
    const auto isFree = [&](const QRect& label) {
        return std::none_of(taken.begin(), taken.end(),
                            [&](const QRect& other) { return other.adjusted(-4, 0, 4, 0).intersects(label); });
    };

    if (fView.highlight)
    {
        // Maya's highlight: a red band over the range, its ends' frames at
        // its edges and a double arrow in its middle.
        const auto [a, b] = *fView.highlight;
        const QRectF band(xOf(a), 0, (b - a + 1) * w, height());
        painter.fillRect(band, kHighlight);
        painter.setPen(Qt::white);
        const std::pair<double, QRect> ends[] = {{a, frameLabel(a, band.left(), false)},
                                                 {b, frameLabel(b, band.right(), true)}};
        for (const auto& [frame, label] : ends)
            if (isFree(label))
            {
                painter.drawText(label, Qt::AlignCenter, frameText(frame));
                taken.push_back(label);
            }
        const QPointF middle(band.center().x(), height() - 9);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(Qt::white);
        painter.setPen(Qt::NoPen);
        painter.drawPolygon(QPolygonF({middle + QPointF(-1, -4), middle + QPointF(-6, 0), middle + QPointF(-1, 4)}));
        painter.drawPolygon(QPolygonF({middle + QPointF(1, -4), middle + QPointF(6, 0), middle + QPointF(1, 4)}));
        painter.setRenderHint(QPainter::Antialiasing, false);
    }

    // Keys: a red mark over each keyed frame.
    for (double key : fView.keys)
        if (key >= fView.first && key <= fView.last)
            painter.fillRect(QRectF(xOf(key), textHeight + 2, std::max(2.0, w * 0.5), height() - textHeight - 2),
                             kKey);

    // The current time: a light block one frame wide, its frame beside it.
    if (showCurrent)
    {
        painter.fillRect(block, kCurrent);
        painter.fillRect(currentLabel, QColor(30, 30, 30));
        painter.setPen(QColor(255, 255, 255));
        painter.drawText(currentLabel, Qt::AlignCenter, frameText(fView.current));
    }

    // Ticks: a short one per frame when there is room (else per few
    // frames), a long one under each label.
    const int step = frameStep(w, 36.0), minorStep = frameStep(w, 4.0);
    const int firstFrame = static_cast<int>(std::ceil(fView.first));
    for (int frame = firstFrame; frame <= fView.last; ++frame)
    {
        const bool labelled = frame % step == 0;
        if (!labelled && frame % minorStep != 0)
            continue;
        const int x = static_cast<int>(std::round(xOf(frame)));
        painter.setPen(kTick);
        painter.drawLine(x, bottom - (labelled ? 9 : 4), x, bottom);
        if (!labelled)
            continue;
        const QRect label = frameLabel(frame, x, false);
        if (isFree(label) && label.right() < width())
        {
            painter.setPen(kLabel);
            painter.drawText(label, Qt::AlignLeft | Qt::AlignVCenter, QString::number(frame));
        }
    }
}

void TimeSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const double frame = frameAt(event->pos().x());
    if (event->modifiers() & Qt::ShiftModifier)
    {
        fAnchor = frame;
        dragTo(frame);
        return;
    }
    // A plain click moves the time and drops the highlight, as in Maya.
    fScrubbing = true;
    host::clearTimeSliderHighlight();
    setCurrentFrame(frame);
    syncWidgets();
}

void TimeSlider::mouseMoveEvent(QMouseEvent* event)
{
    const double frame = frameAt(event->pos().x());
    if (fAnchor)
        dragTo(frame);
    else if (fScrubbing && frame != uiFrames(MAnimControl::currentTime()))
    {
        setCurrentFrame(frame);
        syncWidgets();
    }
}

void TimeSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (fAnchor)
        dragTo(frameAt(event->pos().x()));
    fAnchor.reset();
    fScrubbing = false;
}

void TimeSlider::dragTo(double frame)
{
    host::setTimeSliderHighlight(std::min(*fAnchor, frame), std::max(*fAnchor, frame));
    sync();
}

// --- RangeSlider -------------------------------------------------------------

namespace {

QDoubleSpinBox* timeField(QWidget* parent, const QString& name)
{
    auto* field = new QDoubleSpinBox(parent);
    field->setObjectName(name);
    field->setRange(-1e6, 1e6);
    field->setDecimals(0);
    field->setButtonSymbols(QAbstractSpinBox::NoButtons);
    field->setAlignment(Qt::AlignRight);
    field->setKeyboardTracking(false);
    field->setFixedWidth(56);
    field->setFocusPolicy(Qt::ClickFocus);
    return field;
}

void setField(QDoubleSpinBox* field, double value)
{
    if (field->value() == value)
        return;
    const QSignalBlocker blocker(field);
    field->setValue(value);
}

// The bar between the playback ends: the playback range as a handle within
// the animation range.
class RangeBar : public QWidget
{
public:
    explicit RangeBar(QWidget* parent) : QWidget(parent)
    {
        setObjectName("rangeBar");
        setMinimumHeight(20);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), kTrack);
        const double start = uiFrames(MAnimControl::animationStartTime());
        const double end = uiFrames(MAnimControl::animationEndTime());
        const double span = std::max(1.0, end - start);
        const double w = width() - 4.0;
        const double x0 = 2 + (uiFrames(MAnimControl::minTime()) - start) / span * w;
        const double x1 = 2 + (uiFrames(MAnimControl::maxTime()) - start) / span * w;
        const QRectF handle(x0, 3, std::max(8.0, x1 - x0), height() - 6);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QColor(40, 40, 40));
        painter.setBrush(QColor(110, 110, 110));
        painter.drawRoundedRect(handle, 3, 3);
        painter.setPen(kLabel);
        painter.drawText(handle.adjusted(4, 0, -4, 0), Qt::AlignLeft | Qt::AlignVCenter,
                         frameText(uiFrames(MAnimControl::minTime())));
        painter.drawText(handle.adjusted(4, 0, -4, 0), Qt::AlignRight | Qt::AlignVCenter,
                         frameText(uiFrames(MAnimControl::maxTime())));
    }
};

// Edits go through playbackOptions, so they are undoable and raise the
// range messages as typing the command would.
void runPlaybackOption(const char* flag, double value)
{
    MGlobal::executeCommand(MString("playbackOptions -") + flag + " " + frameText(value).toUtf8().constData(), false,
                            true);
    syncWidgets();
}

} // namespace

RangeSlider::RangeSlider(QWidget* parent) : QWidget(parent)
{
    setObjectName("rangeControl1");
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->setSpacing(4);
    const char* const names[] = {"animationStartField", "playbackStartField", "playbackEndField",
                                 "animationEndField"};
    const char* const flags[] = {"ast", "min", "max", "aet"};
    for (int i = 0; i < 4; ++i)
    {
        fFields[i] = timeField(this, names[i]);
        const char* flag = flags[i];
        connect(fFields[i], QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                [flag](double value) { runPlaybackOption(flag, value); });
    }
    fBar = new RangeBar(this);
    layout->addWidget(fFields[0]);
    layout->addWidget(fFields[1]);
    layout->addWidget(fBar, 1);
    layout->addWidget(fFields[2]);
    layout->addWidget(fFields[3]);
    sync();
}

void RangeSlider::sync()
{
    const MTime ends[] = {MAnimControl::animationStartTime(), MAnimControl::minTime(), MAnimControl::maxTime(),
                          MAnimControl::animationEndTime()};
    for (int i = 0; i < 4; ++i)
        setField(fFields[i], uiFrames(ends[i]));
    fBar->update();
}

// --- PlaybackControls --------------------------------------------------------

PlaybackControls::PlaybackControls(QWidget* parent) : QWidget(parent)
{
    setObjectName("playbackControls");
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->setSpacing(1);
    fCurrent = timeField(this, "currentTimeField");
    connect(fCurrent, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [](double frame) {
        setCurrentFrame(frame);
        syncWidgets();
    });
    layout->addWidget(fCurrent);
    layout->addSpacing(4);

    struct Button
    {
        const char* name;
        const char* icon;
        const char* tip;
        std::function<void()> action;
    };
    const Button buttons[] = {
        {"goToStart", "timestart.png", "Go to start of playback range",
         [this] { play(0), setCurrentFrame(uiFrames(MAnimControl::minTime())), syncWidgets(); }},
        {"stepBack", "timeprev.png", "Step back one frame", [this] { play(0), step(-1); }},
        {"playBackwards", "timerev.png", "Play backwards", [this] { play(fDirection == -1 ? 0 : -1); }},
        {"playForwards", "timeplay.png", "Play forwards", [this] { play(fDirection == 1 ? 0 : 1); }},
        {"stepForward", "timenext.png", "Step forward one frame", [this] { play(0), step(1); }},
        {"goToEnd", "timeend.png", "Go to end of playback range",
         [this] { play(0), setCurrentFrame(uiFrames(MAnimControl::maxTime())), syncWidgets(); }},
    };
    for (const Button& spec : buttons)
    {
        auto* button = new QToolButton(this);
        button->setObjectName(spec.name);
        button->setIcon(QIcon(hostPixmap(spec.icon)));
        button->setIconSize(QSize(16, 16));
        button->setToolTip(spec.tip);
        button->setAutoRaise(true);
        connect(button, &QToolButton::clicked, this, spec.action);
        layout->addWidget(button);
        if (std::string(spec.name) == "playBackwards")
            fPlay[0] = button;
        else if (std::string(spec.name) == "playForwards")
            fPlay[1] = button;
    }
    fTimer = new QTimer(this);
    connect(fTimer, &QTimer::timeout, this, [this] { step(fDirection); });
    sync();
}

void PlaybackControls::sync()
{
    setField(fCurrent, uiFrames(MAnimControl::currentTime()));
}

void PlaybackControls::play(int direction)
{
    if (direction == fDirection)
        return;
    fDirection = direction;
    fPlay[0]->setIcon(QIcon(hostPixmap(direction == -1 ? "timestop.png" : "timerev.png")));
    fPlay[1]->setIcon(QIcon(hostPixmap(direction == 1 ? "timestop.png" : "timeplay.png")));
    if (direction == 0)
    {
        fTimer->stop();
        host::setCondition("playingBack", false);
        return;
    }
    // One frame per tick at the scene's frame rate.
    const double framesPerSecond = MTime(1.0, MTime::kSeconds).as(MTime::uiUnit());
    fTimer->start(static_cast<int>(std::max(1.0, 1000.0 / framesPerSecond)));
    host::setCondition("playingBack", true);
}

void PlaybackControls::step(int frames)
{
    const double first = uiFrames(MAnimControl::minTime());
    const double last = uiFrames(MAnimControl::maxTime());
    double frame = std::round(uiFrames(MAnimControl::currentTime())) + frames;
    // Playback and stepping loop over the playback range.
    if (frame > last)
        frame = first;
    else if (frame < first)
        frame = last;
    setCurrentFrame(frame);
    syncWidgets();
}

} // namespace mayasim::gui
