#include "Ui/SelectionSet/Button.h"

#include "SelectionSet/Cmd.h"

#include <maya/MGlobal.h>

#include <QGuiApplication>
#include <QLayout>
#include <QMenu>
#include <QMouseEvent>

namespace SelectionSetUi {

namespace {

const char* const HideText = "Hide <Ctrl+Shift>";
const char* const ShowText = "Show <Ctrl+Shift>";

QAction* addEntry(QMenu* menu, const QString& text, const QString& tip)
{
    QAction* action = menu->addAction(text);
    action->setStatusTip(tip);
    return action;
}

} // namespace

Button::Button(const QString& nodeName, QWidget* parent) : QPushButton(parent)
{
    setObjectName(nodeName);
    // Its right press opens its own menu; the strip's must not follow.
    setContextMenuPolicy(Qt::PreventContextMenu);
    setToolTip(QStringLiteral("shift+click: add set to selection\nctrl+click: remove set from selection\n"
                              "ctrl+shift+click: toggle hide objects in set"));
    menu = new QMenu(this);
    addAction = addEntry(menu, QStringLiteral("Add"), QStringLiteral("Add new object(s) to Selection Set."));
    removeAction = addEntry(menu, QStringLiteral("Remove"), QStringLiteral("Remove object(s) from Selection Set."));
    updateAction =
        addEntry(menu, QStringLiteral("Update"), QStringLiteral("Replace the set with the current selection."));
    styleAction = addEntry(menu, QStringLiteral("Change style"), QStringLiteral("Change color / style."));
    deleteAction = addEntry(menu, QStringLiteral("Delete"), QStringLiteral("Delete selection set"));
    hideAction = addEntry(menu, QStringLiteral("Hide    <Ctrl+Shift>"),
                          QStringLiteral("Hide all objects in selection set"));

    connect(this, &QPushButton::clicked, this, &Button::onClicked);
    connect(addAction, &QAction::triggered, this, [this] { modifyMembers(1.0); });
    connect(removeAction, &QAction::triggered, this, [this] { modifyMembers(2.0); });
    connect(updateAction, &QAction::triggered, this, [this] { modifyMembers(0.0); });
    connect(styleAction, &QAction::triggered, this, [this] { emit styleChangeRequested(this); });
    connect(deleteAction, &QAction::triggered, this, [this] {
        runSetCommand(QStringLiteral("-r"));
        if (parentWidget() && parentWidget()->layout())
            parentWidget()->layout()->removeWidget(this);
        deleteLater();
    });
    connect(hideAction, &QAction::triggered, this, &Button::toggleHidden);
}

void Button::runSetCommand(const QString& flags) const
{
    const QString command = QString::fromUtf8(SelectionSet::CommandName.asChar()) + QLatin1Char(' ') + flags
                            + QLatin1Char(' ') + objectName();
    MGlobal::executeCommand(command.toUtf8().constData(), false, true);
}

void Button::onClicked()
{
    const Qt::KeyboardModifiers modifiers = QGuiApplication::keyboardModifiers();
    const bool control = modifiers.testFlag(Qt::ControlModifier);
    const bool shift = modifiers.testFlag(Qt::ShiftModifier);
    if (control && shift)
        toggleHidden();
    else if (shift)
        runSetCommand(QStringLiteral("-s 1"));
    else if (control)
        runSetCommand(QStringLiteral("-s 2"));
    else
        runSetCommand(QStringLiteral("-s 0"));
}

void Button::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton) {
        menu->exec(event->globalPos());
        return;
    }
    QPushButton::mousePressEvent(event);
}

void Button::toggleHidden()
{
    hidden = !hidden;
    runSetCommand(hidden ? QStringLiteral("-h 1") : QStringLiteral("-h 0"));
    hideAction->setText(QString::fromLatin1(hidden ? ShowText : HideText));
}

// The set's members by the active selection: 0 become it, 1 take it in,
// 2 leave it out.
void Button::modifyMembers(double mode)
{
    runSetCommand(QStringLiteral("-m ") + QString::number(mode));
}

} // namespace SelectionSetUi
