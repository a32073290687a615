#include "Ui/AnimationOffsetBtn.h"

#include "AnimationOffset/Manager.h"

namespace Ui {

AnimationOffsetBtn::AnimationOffsetBtn(QWidget* parent)
    : ToolButton(QStringLiteral("animation offset"), QStringLiteral(":/animation_offset.png"), parent)
{
    connect(this, &QPushButton::pressed, this, [] { AnimationOffset::Manager::instance().toggle(); });
    addDeleteEntry();
}

} // namespace Ui
