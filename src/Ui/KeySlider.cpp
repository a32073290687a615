#include "Ui/KeySlider.h"

#include "KeyBlending/Cmd.h"
#include "Ui/TimelineOverlay/Operations.h"

#include <maya/MAnimControl.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include <QHBoxLayout>
#include <QMenu>

namespace Ui {

namespace {

const char* const Colors[KeyBlending::BlendTypeCount] = {
    "#F2E56C", "#4DBEFF", "#E8A55B", "#9B59B6", "#7EDDA7", "#6BB56B", "#C77DFF", "#4ECB8E", "#E67E22",
    "#95A5A6", "#EB7ADF", "#1ABC9C", "#34495E", "#E74C3C", "#F39C12", "#2ECC71", "#8E44AD", "#16A085",
    "#D35400", "#C0392B", "#27AE60", "#2980B9", "#BB82EA", "#00BCD4", "#F1C40F"};

QPushButton* frameButton(const QString& text, const QString& toolTip, QWidget* parent)
{
    auto* button = new QPushButton(text, parent);
    button->setToolTip(toolTip);
    button->setFlat(true);
    button->setFixedSize(10, 10);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return button;
}

} // namespace

KeySlider::KeySlider(QWidget* parent)
    : BlendSliderBase(KeyBlending::BlendTypeCount - 1, QStringLiteral("KEY_BLENDING_UI_OVERLAY"), parent),
      framePrevButton(frameButton(QStringLiteral("P"), QStringLiteral("Capture current frame as previous (B)"), this)),
      frameNextButton(frameButton(QStringLiteral("N"), QStringLiteral("Capture current frame as next (N)"), this))
{
    setToolTip(QStringLiteral("ctrl: for nudge value \nctrl+shift: overshoot mode"));
    setFixedWidth(200);
    sliderRow->insertWidget(0, framePrevButton);
    sliderRow->addWidget(frameNextButton);
    connect(framePrevButton, &QPushButton::clicked, this, &KeySlider::onFramePrevClicked);
    connect(frameNextButton, &QPushButton::clicked, this, &KeySlider::onFrameNextClicked);
    buildMenu();
    // Which also puts the frame overlays at the playback range.
    setBlendType(0);
}

KeySlider::~KeySlider()
{
    // Deleted mid-drag (the plug-in unloading): the blend ends as a release would.
    if (handle->isSliderDown())
        endBlend();
}

QString KeySlider::kind() const { return QStringLiteral("keyBlending"); }

bool KeySlider::isFrameType(int type) { return type == 2 || type == 6 || type == 13; }

void KeySlider::fillMenu(QMenu* menu)
{
    const std::initializer_list<std::initializer_list<int>> groups = {
        {0, 1, 2, 3}, {4, 5, 6, 7}, {8, 9, 10, 24}, {11, 12, 13, 14, 15}, {16, 17, 18, 19}, {20, 21}, {22, 23}};
    for (const auto& group : groups) {
        if (group.begin() != groups.begin()->begin())
            menu->addSeparator();
        for (int index : group) {
            const QString name = KeyBlending::Data::blendTypeName(index);
            if (!name.isEmpty())
                menu->addAction(name)->setData(index);
        }
    }
}

void KeySlider::setBlendType(int t)
{
    type = t;
    const QString name = KeyBlending::Data::blendTypeName(t);
    if (!name.isEmpty()) {
        // A type with a name is one of the table.
        showType(name, QColor(Colors[t]));
        blendTypeChanged(t);
        restoreFrameOverlays();
    }
    if (!isFrameType(t)) {
        TimelineOverlay::hideOverlay(prevOverlay);
        TimelineOverlay::hideOverlay(nextOverlay);
    }
}

void KeySlider::restoreFrameOverlays()
{
    framePrevButton->setVisible(isFrameType(type));
    frameNextButton->setVisible(isFrameType(type));
    prevFrame = MAnimControl::minTime().as(MTime::uiUnit());
    nextFrame = MAnimControl::maxTime().as(MTime::uiUnit());
    hasPrev = hasNext = true;
    showFrameOverlay(true);
    showFrameOverlay(false);
}

void KeySlider::showFrameOverlay(bool previous)
{
    const QString& name = previous ? prevOverlay : nextOverlay;
    const MTime time(previous ? prevFrame : nextFrame, MTime::uiUnit());
    showRangeOverlay(name, time, time);
    if (TimelineOverlay::Operations* overlay = TimelineOverlay::entry(name)) {
        overlay->setText(previous ? QStringLiteral("P") : QStringLiteral("N"));
        overlay->setTextBold(true);
        overlay->setTextItalic(false);
    }
}

void KeySlider::captureFrame(bool previous)
{
    const double now = MAnimControl::currentTime().as(MTime::uiUnit());
    (previous ? prevFrame : nextFrame) = now;
    (previous ? hasPrev : hasNext) = true;
    showFrameOverlay(previous);
}

void KeySlider::onFramePrevClicked() { captureFrame(true); }

void KeySlider::onFrameNextClicked() { captureFrame(false); }

void KeySlider::onPresetClicked(int percent)
{
    MString command = presetCommand(KeyBlending::CommandName, percent);
    if (isFrameType(type)) {
        command += " -frameTimes ";
        command += prevFrame;
        command += " ";
        command += nextFrame;
    }
    MGlobal::executeCommand(command, true, true);
}

void KeySlider::onSliderPressed()
{
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    if (selection.length() == 0)
        return;
    MGlobal::executeCommand(KeyBlending::CommandName + " -internal", false, true);
    KeyBlending::Data* data = KeyBlending::activeData;
    if (!data)
        return;
    data->setBlendType(type);
    if (isFrameType(type) && hasPrev && hasNext)
        data->setFrameTimes(prevFrame, nextFrame);
    data->collect(selection);
    queryRange();
    if (rangeShown)
        showRangeOverlay(rangeOverlay, rangeStart, rangeEnd);
    takeMultiplier();
}

void KeySlider::onValueChanged(int value)
{
    if (KeyBlending::activeData)
        KeyBlending::activeData->blend(value / 100.0 * multiplier);
}

bool KeySlider::endBlend()
{
    if (!KeyBlending::activeData)
        return false;
    KeyBlending::activeData->finish();
    KeyBlending::activeData = nullptr;
    return true;
}

} // namespace Ui
