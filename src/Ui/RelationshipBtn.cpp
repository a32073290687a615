#include "Ui/RelationshipBtn.h"

#include "Relationship/Cmd.h"

#include <QMenu>

namespace Ui {

RelationshipBtn::RelationshipBtn(QWidget* parent)
    : ToolButton(QStringLiteral("copy relationship (copy);\nCtrl+Shift+click or right-click for paste"),
                 QStringLiteral(":Relationship.png"), parent)
{
    const MString& command = Relationship::CommandName;
    copyOrPasteOnPress(command);
    addCommandEntry(QStringLiteral("Paste Relationship <ctrl+shift>"), command + " -paste", true, true);
    menu->addSeparator();
    addDeleteEntry();
}

} // namespace Ui
