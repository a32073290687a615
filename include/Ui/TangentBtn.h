#pragma once
#include "Ui/ToolButton.h"

namespace Ui {

// Sets the tangents of the keys in the highlighted range (or at the current
// frame) to the button's type, on the sides checked in its menu.
class TangentBtn : public ToolButton
{
    Q_OBJECT

public:
    explicit TangentBtn(QWidget* parent);

    int blendType() const { return type; }
    // The tool tip and icon follow; an index outside the types shows "Auto"'s icon.
    void setBlendType(int blendType);

private:
    int type = 0;
    QAction* inSide;
    QAction* outSide;
};

} // namespace Ui
