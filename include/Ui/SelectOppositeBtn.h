#pragma once
#include "Ui/ToolButton.h"

namespace Ui {

// Selects the opposite controls; the menu keeps the pairs and the automatic
// selection of opposites.
class SelectOppositeBtn : public ToolButton
{
    Q_OBJECT

public:
    explicit SelectOppositeBtn(QWidget* parent);
};

} // namespace Ui
