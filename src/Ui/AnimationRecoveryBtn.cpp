#include "Ui/AnimationRecoveryBtn.h"

#include "AnimationRecovery/Cmd.h"
#include "AnimationRecovery/Manager.h"

#include <QMenu>

namespace Ui {

AnimationRecoveryBtn::AnimationRecoveryBtn(QWidget* parent)
    : ToolButton(QStringLiteral("animation recovery"), QString(), parent)
{
    showState();
    connect(this, &QPushButton::pressed, this, [this] {
        setState(!recoveryEnabled());
        emit uiStateChanged();
    });
    addCommandEntry(QStringLiteral("Restore"), AnimationRecovery::CommandName + " -restore", false, false);
    menu->addSeparator();
    addDeleteEntry();
}

bool AnimationRecoveryBtn::recoveryEnabled() const { return AnimationRecovery::Manager::instance().enabled(); }

void AnimationRecoveryBtn::setState(bool enabled)
{
    AnimationRecovery::Manager& manager = AnimationRecovery::Manager::instance();
    if (enabled)
        manager.enable();
    else
        manager.disable();
    showState();
}

void AnimationRecoveryBtn::showState()
{
    // The manager's own state: an enable that failed shows red.
    setIcon(QIcon(recoveryEnabled() ? QStringLiteral(":/green_shield.png") : QStringLiteral(":/red_shield.png")));
}

} // namespace Ui
