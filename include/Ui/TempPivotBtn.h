#pragma once
#include "Ui/ToolButton.h"

namespace Ui {

// Turns the temporary pivot on for the selection, or off; the menu picks
// where it starts.
class TempPivotBtn : public ToolButton
{
    Q_OBJECT

public:
    explicit TempPivotBtn(QWidget* parent);
};

} // namespace Ui
