#include "Ui/Tools.h"

#include "Ui/KeySlider.h"
#include "Ui/MirrorBtn.h"
#include "Ui/SelectOppositeBtn.h"
#include "Ui/TangentSlider.h"

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

} // namespace

const std::vector<Tool>& tools()
{
    static const std::vector<Tool> table = {
        {"Key Slider", "keyBlending", 0, true, &KeySlider::staticMetaObject, make<KeySlider>, saveSlider,
         restoreSlider},
        {"Tangent Slider", "tangentSlider", 0, true, &TangentSlider::staticMetaObject, make<TangentSlider>,
         saveSlider, restoreSlider},
        {"Mirror", "mirrorBtn", 0, false, &MirrorBtn::staticMetaObject, make<MirrorBtn>, nullptr, nullptr},
        {"Select Opposite", "selectOppositeBtn", 0, false, &SelectOppositeBtn::staticMetaObject,
         make<SelectOppositeBtn>, nullptr, nullptr},
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
