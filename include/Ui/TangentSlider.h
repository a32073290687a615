#pragma once
#include "Ui/BlendSliderBase.h"

namespace Ui {

// Drives OVTangentBlending: a drag blends the selected keys' tangents toward
// a tangent type live, in one undo step.
class TangentSlider : public BlendSliderBase
{
    Q_OBJECT

public:
    explicit TangentSlider(QWidget* parent);
    ~TangentSlider() override;

    QString kind() const override;
    int blendType() const override { return type; }

public slots:
    void onPresetClicked(int percent) override;

protected:
    void fillMenu(QMenu* menu) override;
    void setBlendType(int type) override;
    void onValueChanged(int value) override;
    void onSliderPressed() override;
    // The key slider finishes the blend; the tangent slider applies it once more.
    bool endBlend() override;

private:
    int type = 0;
    QAction* inAction = nullptr;
    QAction* outAction = nullptr;
};

} // namespace Ui
