#pragma once
#include "Ui/SelectionSet/Style.h"

#include <maya/MCallbackIdArray.h>

#include <QWidget>

class QAction;
class QHBoxLayout;
class QMenu;
class QPushButton;

namespace SelectionSetUi {

class Button;
class Dialog;

// The strip of set buttons: one per set node of the scene, rebuilt when a
// scene is opened or a new one made, with a button to make sets and one to
// hide the strip.
class Ui : public QWidget
{
    Q_OBJECT

public:
    Ui();
    ~Ui() override;

    // The buttons anew from the scene's set nodes.
    void rebuild();

public slots:
    void onDataReceived(SelectionSetUi::SelectionSetData selectionSetData, SelectionSetUi::Button* selectedSetButton);
    void onBtnCreateSetClicked();
    void onBtnHideClicked();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    // A button for the set node, left of the earlier ones.
    Button* addSetButton(const QString& nodeName, const QString& label, int colorIndex);
    QList<Button*> setButtons() const;
    void deleteAll();

    QPushButton* createButton = nullptr;
    QPushButton* hideButton = nullptr;
    QHBoxLayout* setsLayout = nullptr;
    Dialog* dialog = nullptr;
    QAction* deleteAllAction = nullptr;
    QMenu* menu = nullptr;
    MCallbackIdArray callbackIds;
};

} // namespace SelectionSetUi
