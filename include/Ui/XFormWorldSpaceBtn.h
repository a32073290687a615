#pragma once
#include "Ui/ToolButton.h"

namespace Ui {

// Copies the world-space transforms of the selection; Ctrl+Shift pastes them.
class XFormWorldSpaceBtn : public ToolButton
{
    Q_OBJECT

public:
    explicit XFormWorldSpaceBtn(QWidget* parent);
};

} // namespace Ui
