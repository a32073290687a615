#include "Ui/ResetBtn.h"

#include "ResetPose/Cmd.h"
#include "Snapshot/Cmd.h"
#include "Ui/RangeOverlay.h"

#include <QMenu>

namespace Ui {

ResetBtn::ResetBtn(QWidget* parent) : ToolButton(QStringLiteral("reset"), QStringLiteral(":/reset.png"), parent)
{
    const MString& command = ResetPose::CommandName;
    const MString all = command + " -translate -rotate -scale";
    connect(this, &QPushButton::pressed, this, [command, all] {
        runWithRangeOverlay(ctrlAndShift() ? all : command, true, true);
    });
    const auto addResetEntry = [this](const QString& text, const MString& reset, bool display) {
        connect(menu->addAction(text), &QAction::triggered, this,
                [reset, display] { runWithRangeOverlay(reset, display, true); });
    };
    addResetEntry(QStringLiteral("Translate"), command + " -translate", true);
    addResetEntry(QStringLiteral("Rotate"), command + " -rotate", true);
    addResetEntry(QStringLiteral("Scale"), command + " -scale", true);
    addResetEntry(QStringLiteral("Translate Rotate Scale <ctrl+shift"), all, false);
    menu->addSeparator();
    addCommandEntry(QStringLiteral("Snapshot"), Snapshot::CommandName, false, false);
    addCommandEntry(QStringLiteral("Clear Snapshot"), Snapshot::CommandName + " -clear", false, false);
    menu->addSeparator();
    addDeleteEntry();
}

} // namespace Ui
