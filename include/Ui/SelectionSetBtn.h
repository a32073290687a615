#pragma once
#include "Ui/ToolButton.h"

namespace Ui {

// Opens or hides the selection set strip.
class SelectionSetBtn : public ToolButton
{
    Q_OBJECT

public:
    explicit SelectionSetBtn(QWidget* parent);
};

} // namespace Ui
