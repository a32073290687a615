#pragma once
#include "Ui/SelectionSet/Style.h"

#include <QDialog>
#include <QLineEdit>
#include <QPointer>

class QButtonGroup;
class QPushButton;
class QVBoxLayout;

namespace SelectionSetUi {

class Button;

// A name field that keeps to what a node name can hold: every other
// character becomes "_" where it is typed. Return and Enter confirm.
class CustomLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit CustomLineEdit(QWidget* parent);

signals:
    void enterOrReturnPressed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

// "Selection Sets Tool": the name and colour of a new set, or of a set's button.
class Dialog : public QDialog
{
    Q_OBJECT

public:
    explicit Dialog(QWidget* parent);

    // Opens for a new set (no button) or for the button's set.
    void openFor(Button* button);

signals:
    void dataReady(SelectionSetUi::SelectionSetData selectionSetData, SelectionSetUi::Button* selectedSetButton);

public slots:
    void onOk();
    void onCancel();

private:
    QPointer<Button> selectedSetButton;
    CustomLineEdit* lineEdit = nullptr;
    QPushButton* okButton = nullptr;
    QPushButton* cancelButton = nullptr;
    QButtonGroup* colorGroup = nullptr;
    QVBoxLayout* mainLayout = nullptr;
};

} // namespace SelectionSetUi
