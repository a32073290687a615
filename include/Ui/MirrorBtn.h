#pragma once
#include "Ui/ToolButton.h"

namespace Ui {

// Mirrors the selected controls; the menu keeps the mirror snapshot.
class MirrorBtn : public ToolButton
{
    Q_OBJECT

public:
    explicit MirrorBtn(QWidget* parent);
};

} // namespace Ui
