#include "Ui/SelectOppositeBtn.h"

#include "SelectOpposite/Cmd.h"

#include <maya/MGlobal.h>

#include <QMenu>

namespace Ui {

SelectOppositeBtn::SelectOppositeBtn(QWidget* parent)
    : ToolButton(QStringLiteral("Select opposite"), QStringLiteral(":select_opposite.png"), parent)
{
    const MString& command = SelectOpposite::CommandName;
    connect(this, &QPushButton::pressed, this, [command] { MGlobal::executeCommand(command, true, true); });
    addCommandEntry(QStringLiteral("Snapshot"), command + " -snapshot", true, false);
    addCommandEntry(QStringLiteral("Fix pairs"), command + " -fixPairs", true, false);
    menu->addSeparator();
    addCommandEntry(QStringLiteral("Add Opposite"), command + " -addOpposite", true, true);
    menu->addSeparator();
    addCommandEntry(QStringLiteral("Deselect Right"), command + " -deselectRight", true, true);
    addCommandEntry(QStringLiteral("Deselect Left"), command + " -deselectLeft", true, true);
    addCommandEntry(QStringLiteral("Deselect Center"), command + " -deselectCenter", true, true);
    menu->addSeparator();
    QAction* autoSelect = menu->addAction(QStringLiteral("Auto-select opposite"));
    autoSelect->setCheckable(true);
    connect(autoSelect, &QAction::toggled, this, [command](bool on) {
        MGlobal::executeCommand(command + (on ? " -activateAutoSelect" : " -deactivateAutoSelect"), true, false);
    });
    menu->addSeparator();
    addDeleteEntry();
}

} // namespace Ui
