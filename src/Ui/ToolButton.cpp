#include "Ui/ToolButton.h"

#include <maya/MGlobal.h>

#include <QGuiApplication>
#include <QLayout>
#include <QMenu>
#include <QMouseEvent>

namespace Ui {

ToolButton::ToolButton(const QString& toolTip, const QString& icon, QWidget* parent)
    : QPushButton(parent), menu(new QMenu(this))
{
    setFlat(true);
    setFixedSize(30, 30);
    setIconSize(QSize(30, 30));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setToolTip(toolTip);
    setIcon(QIcon(icon));
}

void ToolButton::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton) {
        menu->exec(event->globalPos());
        return;
    }
    QPushButton::mousePressEvent(event);
}

QAction* ToolButton::addCommandEntry(const QString& text, const MString& command, bool display, bool undo)
{
    QAction* action = menu->addAction(text);
    connect(action, &QAction::triggered, this, [command, display, undo] {
        MGlobal::executeCommand(command, display, undo);
    });
    return action;
}

void addSlotDeleteEntry(QMenu* menu, QWidget* slot)
{
    QObject::connect(menu->addAction(QStringLiteral("Delete")), &QAction::triggered, slot, [slot] {
        // Out of the row first, so that the save that follows leaves it out.
        if (slot->parentWidget() && slot->parentWidget()->layout())
            slot->parentWidget()->layout()->removeWidget(slot);
        // Every panel widget has this signal.
        QMetaObject::invokeMethod(slot, "uiStateChanged");
        slot->deleteLater();
    });
}

void ToolButton::addDeleteEntry() { addSlotDeleteEntry(menu, this); }

bool ToolButton::ctrlAndShift()
{
    const Qt::KeyboardModifiers both = Qt::ControlModifier | Qt::ShiftModifier;
    return (QGuiApplication::keyboardModifiers() & both) == both;
}

void ToolButton::copyOrPasteOnPress(const MString& command)
{
    connect(this, &QPushButton::pressed, this, [command] {
        if (ctrlAndShift())
            MGlobal::executeCommand(command + " -paste", true, true);
        else
            MGlobal::executeCommand(command, true, false);
    });
}

} // namespace Ui
