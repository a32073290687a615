#include "Ui/MirrorBtn.h"

#include "Mirror/Cmd.h"

#include <maya/MGlobal.h>

#include <QMenu>

namespace Ui {

MirrorBtn::MirrorBtn(QWidget* parent) : ToolButton(QStringLiteral("Mirror"), QStringLiteral(":mirror.png"), parent)
{
    connect(this, &QPushButton::pressed, this, [] { MGlobal::executeCommand(Mirror::CommandName, true, true); });
    addCommandEntry(QStringLiteral("Snapshot"), Mirror::CommandName + " -snapshot", true, false);
    addCommandEntry(QStringLiteral("Fix Attribute"), Mirror::CommandName + " -fixAttribute", true, false);
    menu->addSeparator();
    addCommandEntry(QStringLiteral("Remove Selected From Snapshot"),
                    Mirror::CommandName + " -removeSelectedFromSnapshot", true, false);
    addCommandEntry(QStringLiteral("Remove Snapshot"), Mirror::CommandName + " -removeSnapshot", true, false);
    menu->addSeparator();
    addDeleteEntry();
}

} // namespace Ui
