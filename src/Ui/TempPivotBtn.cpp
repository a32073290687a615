#include "Ui/TempPivotBtn.h"

#include "TempPivot/Manager.h"

#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include <QMenu>

namespace Ui {

namespace {

MSelectionList activeSelection()
{
    MSelectionList list;
    MGlobal::getActiveSelectionList(list);
    return list;
}

} // namespace

TempPivotBtn::TempPivotBtn(QWidget* parent)
    : ToolButton(QStringLiteral("temp pivot"), QStringLiteral(":/temp_pivot.png"), parent)
{
    connect(this, &QPushButton::pressed, this, [] {
        TempPivot::Manager& manager = TempPivot::Manager::instance();
        if (manager.isEnabled())
            manager.disable();
        else
            manager.enable(activeSelection());
    });
    // A mode entry starts the pivot anew in that mode, even when it is on:
    // then the pivot itself is what is selected, and it stands for its objects.
    const auto addMode = [this](const QString& text, bool center, bool lastObject, bool worldSpace) {
        connect(menu->addAction(text), &QAction::triggered, this, [center, lastObject, worldSpace] {
            TempPivot::Manager& manager = TempPivot::Manager::instance();
            const MSelectionList list = manager.isEnabled() ? manager.targetList() : activeSelection();
            manager.disable();
            manager.setModes(center, lastObject, worldSpace);
            manager.enable(list);
        });
    };
    addMode(QStringLiteral("Last Object"), false, true, false);
    addMode(QStringLiteral("Center"), true, false, false);
    addMode(QStringLiteral("World Space"), false, false, true);
    menu->addSeparator();
    connect(menu->addAction(QStringLiteral("Reset")), &QAction::triggered, this,
            [] { TempPivot::Manager::instance().reset(); });
    connect(menu->addAction(QStringLiteral("Toggle Edit")), &QAction::triggered, this,
            [] { TempPivot::Manager::instance().toggleEdit(); });
    menu->addSeparator();
    addDeleteEntry();
}

} // namespace Ui
