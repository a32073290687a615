#include "Ui/Tools.h"

#include "Ui/AnimationOffsetBtn.h"
#include "Ui/AnimationRecoveryBtn.h"
#include "Ui/KeySlider.h"
#include "Ui/MirrorBtn.h"
#include "Ui/MotionTrailBtn.h"
#include "Ui/RelationshipBtn.h"
#include "Ui/ResetBtn.h"
#include "Ui/RetimingBtn.h"
#include "Ui/SelectOppositeBtn.h"
#include "Ui/SelectionSetBtn.h"
#include "Ui/TangentBtn.h"
#include "Ui/TangentSlider.h"
#include "Ui/TempPivotBtn.h"
#include "Ui/XFormWorldSpaceBtn.h"

#include <QWidget>

namespace Ui {

namespace {

template <class Widget>
QWidget* make(QWidget* parent)
{
    return new Widget(parent);
}

// Both sliders store their type and the handle's value.
void saveSlider(const QWidget* widget, QJsonObject& entry)
{
    const auto* slider = static_cast<const BlendSliderBase*>(widget);
    entry.insert(QStringLiteral("blendType"), slider->blendType());
    entry.insert(QStringLiteral("sliderValue"), slider->value());
}

void restoreSlider(QWidget* widget, const QJsonObject& entry)
{
    static_cast<BlendSliderBase*>(widget)->setState(entry.value(QStringLiteral("blendType")).toInt(0),
                                                    entry.value(QStringLiteral("sliderValue")).toInt(0));
}

void saveTangent(const QWidget* widget, QJsonObject& entry)
{
    entry.insert(QStringLiteral("blendType"), static_cast<const TangentBtn*>(widget)->blendType());
}

void restoreTangent(QWidget* widget, const QJsonObject& entry)
{
    static_cast<TangentBtn*>(widget)->setBlendType(entry.value(QStringLiteral("blendType")).toInt(0));
}

void saveRecovery(const QWidget* widget, QJsonObject& entry)
{
    entry.insert(QStringLiteral("recoveryEnabled"), static_cast<const AnimationRecoveryBtn*>(widget)->recoveryEnabled());
}

// The file decides whether recovery runs once the panel is built.
void restoreRecovery(QWidget* widget, const QJsonObject& entry)
{
    static_cast<AnimationRecoveryBtn*>(widget)->setState(entry.value(QStringLiteral("recoveryEnabled")).toBool(true));
}

void saveRetiming(const QWidget* widget, QJsonObject& entry)
{
    const auto* retiming = static_cast<const RetimingBtn*>(widget);
    entry.insert(QStringLiteral("retimeType"), retiming->retimeType());
    entry.insert(QStringLiteral("retimeValue"), retiming->retimeValue());
    entry.insert(QStringLiteral("jumpToNewTime"), retiming->jumpToNewTime());
}

void restoreRetiming(QWidget* widget, const QJsonObject& entry)
{
    static_cast<RetimingBtn*>(widget)->setState(entry.value(QStringLiteral("retimeType")).toInt(0),
                                                entry.value(QStringLiteral("retimeValue")).toInt(1),
                                                entry.value(QStringLiteral("jumpToNewTime")).toBool(true));
}

} // namespace

const std::vector<Tool>& tools()
{
    static const std::vector<Tool> table = {
        {"Key Slider", "keyBlending", 0, true, &KeySlider::staticMetaObject, make<KeySlider>, saveSlider,
         restoreSlider},
        {"Tangent Slider", "tangentSlider", 0, true, &TangentSlider::staticMetaObject, make<TangentSlider>,
         saveSlider, restoreSlider},
        {"Tangent", "tangentBtn", 0, false, &TangentBtn::staticMetaObject, make<TangentBtn>, saveTangent,
         restoreTangent},
        {"Mirror", "mirrorBtn", 0, false, &MirrorBtn::staticMetaObject, make<MirrorBtn>, nullptr, nullptr},
        {"Select Opposite", "selectOppositeBtn", 0, false, &SelectOppositeBtn::staticMetaObject,
         make<SelectOppositeBtn>, nullptr, nullptr},
        {"Retiming", "retimingBtn", 0, false, &RetimingBtn::staticMetaObject, make<RetimingBtn>, saveRetiming,
         restoreRetiming},
        {"Copy World Space", "xFormWorldSpaceBtn", 0, false, &XFormWorldSpaceBtn::staticMetaObject,
         make<XFormWorldSpaceBtn>, nullptr, nullptr},
        {"Copy Relationship", "relationshipBtn", 0, false, &RelationshipBtn::staticMetaObject, make<RelationshipBtn>,
         nullptr, nullptr},
        {"Motion Trail", "motionTrailBtn", 1, false, &MotionTrailBtn::staticMetaObject, make<MotionTrailBtn>, nullptr,
         nullptr},
        {"Reset", "resetBtn", 1, false, &ResetBtn::staticMetaObject, make<ResetBtn>, nullptr, nullptr},
        {"Temp Pivot", "tempPivotBtn", 1, false, &TempPivotBtn::staticMetaObject, make<TempPivotBtn>, nullptr,
         nullptr},
        {"Selection Set", "selectionSetBtn", 1, false, &SelectionSetBtn::staticMetaObject, make<SelectionSetBtn>,
         nullptr, nullptr},
        {"Animation Offset", "animationOffsetBtn", 1, false, &AnimationOffsetBtn::staticMetaObject,
         make<AnimationOffsetBtn>, nullptr, nullptr},
        {"Animation Recovery", "animationRecoveryBtn", 2, false, &AnimationRecoveryBtn::staticMetaObject,
         make<AnimationRecoveryBtn>, saveRecovery, restoreRecovery},
    };
    return table;
}

const Tool* toolOfKind(const QString& kind)
{
    for (const Tool& tool : tools())
        if (kind == QLatin1String(tool.kind))
            return &tool;
    return nullptr;
}

const Tool* toolOf(const QWidget* widget)
{
    for (const Tool& tool : tools())
        if (tool.type->cast(widget))
            return &tool;
    return nullptr;
}

} // namespace Ui
