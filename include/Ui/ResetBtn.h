#pragma once
#include "Ui/ToolButton.h"

namespace Ui {

// Puts the selection back in its default pose over the highlighted range.
class ResetBtn : public ToolButton
{
    Q_OBJECT

public:
    explicit ResetBtn(QWidget* parent);
};

} // namespace Ui
