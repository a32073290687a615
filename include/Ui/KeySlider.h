#pragma once
#include "Ui/BlendSliderBase.h"

#include <maya/MTime.h>

namespace Ui {

// Drives OVKeyBlending: a drag blends the selected keys live, in one undo
// step; the frame types blend toward the frames captured by "P" and "N".
class KeySlider : public BlendSliderBase
{
    Q_OBJECT

public:
    explicit KeySlider(QWidget* parent);
    ~KeySlider() override;

    QString kind() const override;
    int blendType() const override { return type; }

public slots:
    void onPresetClicked(int percent) override;
    void onFramePrevClicked();
    void onFrameNextClicked();

protected:
    void fillMenu(QMenu* menu) override;
    void setBlendType(int type) override;
    void onValueChanged(int value) override;
    void onSliderPressed() override;
    // The key slider finishes the blend; the tangent slider applies it once more.
    bool endBlend() override;

private:
    static bool isFrameType(int type);
    void captureFrame(bool previous);
    void restoreFrameOverlays();
    void showFrameOverlay(bool previous);

    int type = 0;
    QPushButton* framePrevButton;
    QPushButton* frameNextButton;
    double prevFrame = 0.0;
    double nextFrame = 0.0;
    bool hasPrev = false;
    bool hasNext = false;
    const QString prevOverlay = QStringLiteral("PREV_FRAME_UI_OVERLAY");
    const QString nextOverlay = QStringLiteral("NEXT_FRAME_OVERLAY");
};

} // namespace Ui
