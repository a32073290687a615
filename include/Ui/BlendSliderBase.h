#pragma once
#include "Ui/RangeOverlay.h"

#include <maya/MString.h>
#include <maya/MTime.h>

#include <QColor>
#include <QList>
#include <QPushButton>
#include <QSlider>
#include <QString>
#include <QWidget>

class QAction;
class QHBoxLayout;
class QMenu;

namespace Ui {

// The handle of a blend slider: a style-sheet pill in the blend type's
// colour, with the type's initials painted over it.
class HandleSlider : public QSlider
{
    Q_OBJECT

public:
    explicit HandleSlider(QWidget* parent);

    // An invalid colour keeps the one there is.
    void setLook(const QString& initials, const QColor& colour);
    const QString& text() const { return fText; }
    const QColor& color() const { return fColor; }
    const QColor& textColor() const { return fTextColor; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString fText;
    QColor fColor{0x48, 0xAA, 0xB5};
    QColor fTextColor;
};

// One of the nine fixed blends under the handle, drawn as a pie whose wedge
// is the share of a full blend it applies.
class PresetButton : public QPushButton
{
    Q_OBJECT

public:
    PresetButton(int percent, int size, QWidget* parent);

    // The wedge in `colour`, or in `hover` while the mouse is over it.
    void setColors(const QColor& colour, const QColor& hover);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double value;
    double fillAngle;
    double restAngle;
    const int marginX = 3;
    const int marginY = 3;
    int diameter;
    QRect pieRect;
    QColor backColor{0x3A, 0x3A, 0x3A};
    QColor fillColor{0xDF, 0x6E, 0x41};
    QColor hoverColor{0xDF, 0x6E, 0x41};
    QColor restColor{0x48, 0xAA, 0xB5};
};

// Dark text on light colours, light text on dark ones.
QColor contrastColor(const QColor& colour);
// The colour a preset takes while the mouse is over it.
QColor hoverShade(const QColor& colour);
// The first characters of the first two words, letters upper-cased.
QString handleInitials(const QString& name);

// What both blend sliders share: the handle that drives a live blend while it
// is dragged and springs back to 0 at release, the presets, the type menu.
class BlendSliderBase : public QWidget
{
    Q_OBJECT

public:
    // lastType: the highest type index; rangeOverlay: the overlay shown over
    // the highlighted range during a drag.
    BlendSliderBase(int lastType, const QString& rangeOverlay, QWidget* parent);

    virtual QString kind() const = 0;
    virtual int blendType() const = 0;
    int value() const;
    // Restores a stored slider, clamped to what it offers, without a step.
    void setState(int type, int value);

signals:
    void uiStateChanged();

public slots:
    virtual void onPresetClicked(int percent) = 0;
    void onMenuTriggered(QAction* action);

protected:
    virtual void fillMenu(QMenu* menu) = 0;
    virtual void setBlendType(int type) = 0;
    virtual void resetBlendType();
    virtual void onValueChanged(int value) = 0;
    virtual void onSliderPressed() = 0;
    virtual void onSliderReleased();
    virtual void blendTypeChanged(int type);

    // Ends the live blend, if one runs; whether one did.
    virtual bool endBlend() = 0;

    bool eventFilter(QObject* watched, QEvent* event) override;
    // For the derived constructor: the menu, once the type entries can be made.
    void buildMenu();
    // The handle's and presets' look for a type of this name and colour.
    void showType(const QString& name, const QColor& colour);
    // The blend speed for the modifiers held at this moment.
    void takeMultiplier();
    // A preset's command up to its value, the multiplier taken anew.
    MString presetCommand(const MString& command, int percent);
    // The highlighted range into rangeStart, rangeEnd and rangeShown.
    void queryRange();

    HandleSlider* handle;
    QHBoxLayout* sliderRow;
    QList<PresetButton*> presets;
    QMenu* menu = nullptr;
    QAction* deleteAction = nullptr;
    MTime rangeStart;
    MTime rangeEnd;
    bool rangeShown = false;
    double multiplier = 1.0;
    const QString rangeOverlay;

private:
    const int fLastType;
};

} // namespace Ui
