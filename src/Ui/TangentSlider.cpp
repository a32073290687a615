#include "Ui/TangentSlider.h"

#include "TangentBlending/Cmd.h"
#include "Ui/TimelineOverlay/Operations.h"

#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include <QMenu>

namespace Ui {

namespace {

const char* const Colors[TangentBlending::TangentTypeCount] = {"#5B8FE8", "#E8A55B", "#48AAB5", "#9B59B6",
                                                               "#2ECC71", "#E67E22", "#607D8B"};

} // namespace

TangentSlider::TangentSlider(QWidget* parent)
    : BlendSliderBase(TangentBlending::TangentTypeCount - 1, QStringLiteral("TANGENT_BLENDING_UI_OVERLAY"), parent)
{
    setToolTip(QStringLiteral("ctrl: for nudge value \nctrl+shift: overshoot mode"));
    setFixedWidth(200);
    buildMenu();
    setBlendType(0);
}

TangentSlider::~TangentSlider()
{
    // Deleted mid-drag (the plug-in unloading): the blend ends as a release would.
    if (handle->isSliderDown())
        endBlend();
}

QString TangentSlider::kind() const { return QStringLiteral("tangentSlider"); }

void TangentSlider::fillMenu(QMenu* menu)
{
    // Step is no choice here, though a stored slider may hold it.
    for (int index : {5, 0, 4, 1, 2, 3})
        menu->addAction(TangentBlending::tangentTypeName(index))->setData(index);
    menu->addSeparator();
    inAction = menu->addAction(QStringLiteral("In"));
    outAction = menu->addAction(QStringLiteral("Out"));
    for (QAction* side : {inAction, outAction}) {
        side->setCheckable(true);
        side->setChecked(true);
        connect(side, &QAction::toggled, this, &TangentSlider::uiStateChanged);
    }
}

void TangentSlider::setBlendType(int t)
{
    type = t;
    const QString name = TangentBlending::tangentTypeName(t);
    if (name.isEmpty())
        return;
    showType(name, QColor(Colors[t]));
    blendTypeChanged(t);
}

void TangentSlider::onPresetClicked(int percent)
{
    MString command = presetCommand(TangentBlending::CommandName, percent);
    if (inAction->isChecked())
        command += " -inTangent";
    if (outAction->isChecked())
        command += " -outTangent";
    MGlobal::executeCommand(command, true, true);
}

void TangentSlider::onSliderPressed()
{
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    if (selection.length() == 0)
        return;
    queryRange();
    MGlobal::executeCommand(TangentBlending::CommandName + " -internal", false, true);
    TangentBlending::Manager* data = TangentBlending::activeData;
    if (!data)
        return;
    data->setInTangent(inAction->isChecked());
    data->setOutTangent(outAction->isChecked());
    data->setBlendType(type);
    data->collect(selection);
    if (rangeShown)
        showRangeOverlay(rangeOverlay, rangeStart, rangeEnd);
    takeMultiplier();
}

void TangentSlider::onValueChanged(int value)
{
    if (TangentBlending::activeData)
        TangentBlending::activeData->apply(value / 100.0 * multiplier);
}

bool TangentSlider::endBlend()
{
    if (!TangentBlending::activeData)
        return false;
    // Tangent blends have no closing step: the last value is applied again.
    TangentBlending::activeData->apply(handle->value() / 100.0 * multiplier);
    TangentBlending::activeData = nullptr;
    return true;
}

} // namespace Ui
