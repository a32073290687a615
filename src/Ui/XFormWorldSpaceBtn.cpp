#include "Ui/XFormWorldSpaceBtn.h"

#include "XFormWorldSpace/Cmd.h"

#include <QMenu>

namespace Ui {

XFormWorldSpaceBtn::XFormWorldSpaceBtn(QWidget* parent)
    : ToolButton(QStringLiteral("copy world space (copy);\nCtrl+Shift+click or right-click for paste"),
                 QStringLiteral(":CopyWorldSpace.png"), parent)
{
    const MString& command = XFormWorldSpace::CommandName;
    copyOrPasteOnPress(command);
    addCommandEntry(QStringLiteral("Paste <ctrl+shift>"), command + " -paste", true, true)
        ->setIcon(QIcon(QStringLiteral(":PasteWorldSpace.png")));
    menu->addSeparator();
    addDeleteEntry();
}

} // namespace Ui
