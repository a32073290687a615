#include "Ui/SelectionSetBtn.h"

#include "Ui/SelectionSet/Cmd.h"

#include <maya/MGlobal.h>

namespace Ui {

SelectionSetBtn::SelectionSetBtn(QWidget* parent)
    : ToolButton(QStringLiteral("selection set"), QStringLiteral(":/select.png"), parent)
{
    connect(this, &QPushButton::pressed, this,
            [] { MGlobal::executeCommand(SelectionSetUi::CommandName, false, false); });
    addDeleteEntry();
}

} // namespace Ui
