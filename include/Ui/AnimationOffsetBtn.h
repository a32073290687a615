#pragma once
#include "Ui/ToolButton.h"

namespace Ui {

// Turns the animation offset mode on or off.
class AnimationOffsetBtn : public ToolButton
{
    Q_OBJECT

public:
    explicit AnimationOffsetBtn(QWidget* parent);
};

} // namespace Ui
