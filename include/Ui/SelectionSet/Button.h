#pragma once
#include <QPushButton>

class QAction;
class QMenu;

namespace SelectionSetUi {

// One set: a click selects its members, with Shift adds them, with Ctrl
// takes them out, with both hides or shows them. The object name is the set
// node's name; the right press menu edits the set.
class Button : public QPushButton
{
    Q_OBJECT

public:
    Button(const QString& nodeName, QWidget* parent);

    // Runs a set command on this button's set, as one undo step.
    void runSetCommand(const QString& flags) const;

signals:
    // "Change style": the panel opens its dialog for this button.
    void styleChangeRequested(SelectionSetUi::Button* button);

public slots:
    void onClicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void toggleHidden();
    void modifyMembers(double mode);

    bool hidden = false;
    QMenu* menu = nullptr;
    QAction* addAction = nullptr;
    QAction* removeAction = nullptr;
    QAction* updateAction = nullptr;
    QAction* styleAction = nullptr;
    QAction* deleteAction = nullptr;
    QAction* hideAction = nullptr;
};

} // namespace SelectionSetUi
