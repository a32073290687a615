#pragma once
#include "Ui/ToolButton.h"

namespace Ui {

// Copies how the selection sits relative to its last object; Ctrl+Shift pastes it.
class RelationshipBtn : public ToolButton
{
    Q_OBJECT

public:
    explicit RelationshipBtn(QWidget* parent);
};

} // namespace Ui
