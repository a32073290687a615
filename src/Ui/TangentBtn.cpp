#include "Ui/TangentBtn.h"

#include "Tangent/Cmd.h"
#include "TangentBlending/Manager.h"
#include "Ui/RangeOverlay.h"

#include <maya/MQtUtil.h>

#include <QMenu>

namespace Ui {

namespace {

// The icons by type index.
const char* const Icons[TangentBlending::TangentTypeCount] = {
    ":/Tangent/linear.png", ":/Tangent/plateau.png", ":/Tangent/flat.png", ":/Tangent/clamped.png",
    ":/Tangent/spline.png", ":/Tangent/auto.png",    ":/Tangent/step.png"};

// The menu's order of the types.
const int MenuOrder[] = {5, 0, 4, 1, 2, 3, 6};

QAction* addSide(QMenu* menu, const QString& text)
{
    QAction* action = menu->addAction(text);
    action->setCheckable(true);
    action->setChecked(true);
    return action;
}

} // namespace

TangentBtn::TangentBtn(QWidget* parent) : ToolButton(QString(), QString(), parent)
{
    setBlendType(0);
    connect(this, &QPushButton::pressed, this, [this] {
        MString command = Tangent::CommandName + " -blendType " + MQtUtil::toMString(QString::number(type));
        if (inSide->isChecked())
            command += " -inTangent";
        if (outSide->isChecked())
            command += " -outTangent";
        runWithRangeOverlay(command, true, true);
    });
    for (int index : MenuOrder) {
        connect(menu->addAction(TangentBlending::tangentTypeName(index)), &QAction::triggered, this, [this, index] {
            setBlendType(index);
            emit uiStateChanged();
        });
    }
    menu->addSeparator();
    inSide = addSide(menu, QStringLiteral("In"));
    outSide = addSide(menu, QStringLiteral("Out"));
    connect(inSide, &QAction::toggled, this, &TangentBtn::uiStateChanged);
    connect(outSide, &QAction::toggled, this, &TangentBtn::uiStateChanged);
    menu->addSeparator();
    addDeleteEntry();
}

void TangentBtn::setBlendType(int blendType)
{
    type = blendType;
    const bool known = type >= 0 && type < TangentBlending::TangentTypeCount;
    setToolTip(TangentBlending::tangentTypeName(type));
    setIcon(QIcon(QString::fromLatin1(Icons[known ? type : TangentBlending::DefaultTangentType])));
}

} // namespace Ui
