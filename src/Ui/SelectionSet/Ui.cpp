#include "Ui/SelectionSet/Ui.h"

#include "SelectionSet/Cmd.h"
#include "SelectionSet/Node.h"
#include "SelectionSet/Operations.h"
#include "Ui/SelectionSet/Button.h"
#include "Ui/SelectionSet/Dialog.h"
#include "Ui/SelectionSet/Manager.h"
#include "Utils/MayaCmds/WorkspaceControl.h"
#include "Utils/UndoChunk.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MItDependencyNodes.h>
#include <maya/MPlug.h>
#include <maya/MSceneMessage.h>

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QMenu>
#include <QPushButton>

namespace SelectionSetUi {

namespace {

// New set buttons stand behind the first stretch, left of the earlier ones.
const int NewButtonIndex = 1;

void rebuildAfterSceneChange(void* panel)
{
    static_cast<Ui*>(panel)->rebuild();
}

QPushButton* toolButton(const QString& icon, const QString& tip, QWidget* parent)
{
    auto* button = new QPushButton(QIcon(icon), QString(), parent);
    button->setFlat(true);
    button->setMaximumSize(30, 30);
    button->setToolTip(tip);
    return button;
}

// Sets a set node's colour as one undo step of its own; a set that is gone
// (its deletion undone by hand) is left alone, quietly, as its clicks are.
void setColorIndex(const QString& nodeName, int index)
{
    if (SelectionSet::findSet(nodeName.toUtf8().constData()).isNull())
        return;
    const QString command = QStringLiteral("setAttr %1.colorIndex %2").arg(nodeName).arg(index);
    MGlobal::executeCommand(command.toUtf8().constData(), false, true);
}

} // namespace

Ui::Ui()
{
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setsLayout = new QHBoxLayout(this);
    setsLayout->setContentsMargins(0, 0, 20, 0);
    setsLayout->addStretch(1);
    setsLayout->addStretch(1);
    createButton = toolButton(QStringLiteral(":/plus.png"), QStringLiteral("create set"), this);
    hideButton = toolButton(QStringLiteral(":/hide.png"), QStringLiteral("hide ui"), this);
    setsLayout->addWidget(createButton);
    setsLayout->addWidget(hideButton);
    dialog = new Dialog(this);
    menu = new QMenu(this);
    deleteAllAction = menu->addAction(QStringLiteral("Delete all"));
    deleteAllAction->setObjectName(QStringLiteral("deleteAll"));

    connect(createButton, &QPushButton::clicked, this, &Ui::onBtnCreateSetClicked);
    connect(hideButton, &QPushButton::clicked, this, &Ui::onBtnHideClicked);
    connect(deleteAllAction, &QAction::triggered, this, &Ui::deleteAll);
    connect(dialog, &Dialog::dataReady, this, &Ui::onDataReceived);

    callbackIds.append(MSceneMessage::addCallback(MSceneMessage::kAfterOpen, rebuildAfterSceneChange, this));
    callbackIds.append(MSceneMessage::addCallback(MSceneMessage::kAfterNew, rebuildAfterSceneChange, this));
    rebuild();
}

Ui::~Ui()
{
    MMessage::removeCallbacks(callbackIds);
}

QList<Button*> Ui::setButtons() const
{
    QList<Button*> buttons;
    for (int i = 0; i < setsLayout->count(); ++i) {
        if (auto* button = qobject_cast<Button*>(setsLayout->itemAt(i)->widget()))
            buttons.append(button);
    }
    return buttons;
}

void Ui::rebuild()
{
    for (Button* button : setButtons()) {
        setsLayout->removeWidget(button);
        button->deleteLater();
    }
    for (MItDependencyNodes it; !it.isDone(); it.next()) {
        MFnDependencyNode node(it.thisNode());
        if (node.typeId() != SelectionSet::NodeTypeId)
            continue;
        MStatus status;
        const MPlug colorPlug = node.findPlug("colorIndex", true, &status);
        const QString name = QString::fromUtf8(node.name().asChar());
        addSetButton(name, labelOf(name), status ? colorPlug.asInt() : 0);
    }
}

Button* Ui::addSetButton(const QString& nodeName, const QString& label, int colorIndex)
{
    auto* button = new Button(nodeName, this);
    setsLayout->insertWidget(NewButtonIndex, button);
    applySetStyle(label, colorIndex, button);
    connect(button, &Button::styleChangeRequested, dialog, &Dialog::openFor);
    return button;
}

void Ui::onDataReceived(SelectionSetData selectionSetData, Button* selectedSetButton)
{
    if (selectedSetButton) {
        setColorIndex(selectedSetButton->objectName(), selectionSetData.colorIndex);
        applySetStyle(selectionSetData.text, selectionSetData.colorIndex, selectedSetButton);
        return;
    }
    // The set of the active selection and its colour: one undo step.
    UndoChunk chunk(QStringLiteral("createSelectionSet"));
    chunk.open();
    MString nodeName;
    const QString command = QString::fromUtf8(SelectionSet::CommandName.asChar()) + QStringLiteral(" \"")
                            + selectionSetData.text + QStringLiteral("\"");
    MGlobal::executeCommand(command.toUtf8().constData(), nodeName, false, true);
    const QString name = QString::fromUtf8(nodeName.asChar());
    if (!name.isEmpty())
        setColorIndex(name, selectionSetData.colorIndex);
    chunk.close();
    if (!name.isEmpty())
        addSetButton(name, labelOf(name), selectionSetData.colorIndex);
}

void Ui::onBtnCreateSetClicked() { dialog->openFor(nullptr); }

void Ui::onBtnHideClicked() { hideWorkspaceControl(ControlName); }

void Ui::contextMenuEvent(QContextMenuEvent* event) { menu->exec(event->globalPos()); }

void Ui::deleteAll()
{
    UndoChunk chunk(QStringLiteral("deleteAllSelectionSets"));
    chunk.open();
    for (Button* button : setButtons()) {
        button->runSetCommand(QStringLiteral("-r"));
        setsLayout->removeWidget(button);
        button->deleteLater();
    }
    chunk.close();
}

} // namespace SelectionSetUi
