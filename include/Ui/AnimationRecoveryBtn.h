#pragma once
#include "Ui/ToolButton.h"

namespace Ui {

// Turns the background saving of animation on or off; its shield shows which.
class AnimationRecoveryBtn : public ToolButton
{
    Q_OBJECT

public:
    explicit AnimationRecoveryBtn(QWidget* parent);

    bool recoveryEnabled() const;
    // Brings the recovery manager to the stored state.
    void setState(bool enabled);

private:
    void showState();
};

} // namespace Ui
