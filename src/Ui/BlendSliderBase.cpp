#include "Ui/BlendSliderBase.h"

#include "Ui/TimelineOverlay/Operations.h"
#include "Utils/TimeControl.h"

#include <maya/MQtUtil.h>

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLayout>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QVBoxLayout>

#include <algorithm>

namespace Ui {

namespace {

const QColor GrooveColor(0x2B, 0x2B, 0x2B);
const int PresetSize = 15;

} // namespace

QColor contrastColor(const QColor& colour)
{
    const double luminance = 0.299 * colour.redF() + 0.587 * colour.greenF() + 0.114 * colour.blueF();
    return luminance > 0.55 ? QColor(0x1A, 0x1A, 0x1A) : QColor(0xF0, 0xF0, 0xF0);
}

QColor hoverShade(const QColor& colour)
{
    if (colour.hsvHueF() < 0)
        return colour.lighter(112);
    return QColor::fromHsvF(colour.hsvHueF(), std::clamp(colour.hsvSaturationF() * 0.85, 0.0, 1.0),
                            std::clamp(colour.valueF() * 1.08, 0.0, 1.0), 1.0);
}

QString handleInitials(const QString& name)
{
    QString initials;
    for (const QString& word : name.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (initials.size() == 2)
            break;
        initials += word.at(0).isLetter() ? word.at(0).toUpper() : word.at(0);
    }
    return initials;
}

HandleSlider::HandleSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent)
{
    setRange(-100, 100);
    setValue(0);
}

void HandleSlider::setLook(const QString& initials, const QColor& colour)
{
    fText = initials;
    if (colour.isValid())
        fColor = colour;
    fTextColor = contrastColor(fColor);
    const QString hex = QStringLiteral("#%1%2%3")
                            .arg(fColor.red(), 2, 16, QLatin1Char('0'))
                            .arg(fColor.green(), 2, 16, QLatin1Char('0'))
                            .arg(fColor.blue(), 2, 16, QLatin1Char('0'));
    setStyleSheet(QStringLiteral("QSlider::groove:horizontal{background-color: %1;border: 0px solid %1;height: 10px;"
                                 "border-radius: 5px;margin: 0 4px;padding : 0;}QSlider::handle:horizontal{"
                                 "background: %2;width: 50px;border: 1px solid %1;border-radius: 9px;"
                                 "margin: -4px 0;padding : 0;}")
                      .arg(GrooveColor.name(), hex));
    update();
}

void HandleSlider::paintEvent(QPaintEvent* event)
{
    QSlider::paintEvent(event);
    if (fText.isEmpty())
        return;
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect rect = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    if (!rect.isValid())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(fTextColor);
    QFont font = painter.font();
    font.setWeight(75);
    const int size = rect.height() - 6;
    font.setPixelSize(size < 9 ? 8 : size);
    painter.setFont(font);
    painter.drawText(rect, Qt::AlignCenter, fText);
}

PresetButton::PresetButton(int percent, int size, QWidget* parent) : QPushButton(parent)
{
    setToolTip(QStringLiteral("%1%").arg(double(percent), 0, 'g', -1));
    value = percent / 100.0;
    fillAngle = std::clamp(value * 360, -360.0, 360.0);
    restAngle = std::clamp(value >= 0 ? std::min((value - 1) * 360, 0.0) : std::max((value + 1) * 360, 0.0),
                           -360.0, 360.0);
    diameter = size + 2;
    pieRect = QRect(marginX, marginY + 2, diameter, diameter);
    setFixedHeight(size + (marginY + marginY) * 2);
    setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    setFlat(true);
    setAutoFillBackground(false);
    setAttribute(Qt::WA_TranslucentBackground);
    // Repaints as the mouse comes and goes, for the hover shade.
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    QPalette clear = palette();
    clear.setColor(QPalette::All, QPalette::Button, Qt::transparent);
    clear.setColor(QPalette::All, QPalette::Window, Qt::transparent);
    setPalette(clear);
    setStyleSheet(QStringLiteral("QPushButton {  background-color: transparent;  border: none;  padding: 0px;  "
                                 "margin: 0px;}QPushButton:focus { outline: none; }QPushButton:flat { border: none; "
                                 "}"));
}

void PresetButton::setColors(const QColor& colour, const QColor& hover)
{
    fillColor = colour;
    hoverColor = hover;
    update();
}

void PresetButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.translate((width() - 2 * marginX - diameter) * 0.5, 0);
    painter.setRenderHint(QPainter::Antialiasing);
    // An outline between two wedges, none around a full or empty one.
    const auto wedgePen = [&](double angle) {
        if (std::abs(angle) > 0 && std::abs(angle) < 360)
            painter.setPen(QPen(backColor, 1, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
        else
            painter.setPen(Qt::NoPen);
    };
    painter.setPen(Qt::NoPen);
    painter.setBrush(backColor);
    painter.drawPie(pieRect, int((fillAngle - 90) * -16), int((360 - fillAngle) * -16));
    wedgePen(fillAngle);
    painter.setBrush(underMouse() ? hoverColor : fillColor);
    painter.drawPie(pieRect, 1440, int(fillAngle * -16));
    wedgePen(restAngle);
    painter.setBrush(restColor);
    painter.drawPie(pieRect, 1440, int(restAngle * -16));
    painter.setPen(QPen(backColor, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(pieRect);
}

BlendSliderBase::BlendSliderBase(int lastType, const QString& rangeOverlay, QWidget* parent)
    : QWidget(parent), handle(new HandleSlider(this)), sliderRow(new QHBoxLayout), rangeOverlay(rangeOverlay),
      fLastType(lastType)
{
    handle->installEventFilter(this);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    sliderRow->setContentsMargins(0, 0, 0, 0);
    sliderRow->setSpacing(4);
    sliderRow->addWidget(handle, 1);
    column->addLayout(sliderRow);
    auto* presetRow = new QHBoxLayout;
    presetRow->setContentsMargins(0, 0, 0, 0);
    presetRow->setSpacing(0);
    for (int percent : {-100, -75, -50, -25, 0, 25, 50, 75, 100}) {
        auto* preset = new PresetButton(percent, PresetSize, this);
        presets.append(preset);
        presetRow->addWidget(preset);
        connect(preset, &QPushButton::clicked, this, [this, percent] {
            onPresetClicked(percent);
            emit uiStateChanged();
        });
    }
    column->addLayout(presetRow);

    connect(handle, &QSlider::valueChanged, this, [this](int value) {
        // A drag's steps leave prefs.json alone: a synced write per mouse move
        // would stall the drag, and the release stores the value it springs to.
        if (!handle->isSliderDown())
            emit uiStateChanged();
        onValueChanged(value);
    });
    connect(handle, &QSlider::sliderPressed, this, [this] { onSliderPressed(); });
    connect(handle, &QSlider::sliderReleased, this, [this] { onSliderReleased(); });
}

int BlendSliderBase::value() const { return handle->value(); }

void BlendSliderBase::setState(int type, int value)
{
    const bool blocked = handle->blockSignals(true);
    setBlendType(std::clamp(type, 0, fLastType));
    handle->setValue(std::clamp(value, -100, 100));
    handle->blockSignals(blocked);
}

void BlendSliderBase::resetBlendType() { setBlendType(0); }

void BlendSliderBase::blendTypeChanged(int) {}

void BlendSliderBase::buildMenu()
{
    menu = new QMenu(this);
    menu->setTearOffEnabled(true);
    fillMenu(menu);
    menu->addSeparator();
    deleteAction = menu->addAction(QStringLiteral("Delete"));
    connect(menu, &QMenu::triggered, this, &BlendSliderBase::onMenuTriggered);
}

void BlendSliderBase::onMenuTriggered(QAction* action)
{
    if (action == deleteAction) {
        // Out of the row first, so that the save that follows leaves it out.
        if (parentWidget() && parentWidget()->layout())
            parentWidget()->layout()->removeWidget(this);
        emit uiStateChanged();
        deleteLater();
        return;
    }
    // "In" and "Out" carry no data; their own signals report them.
    if (action->data().isValid()) {
        setBlendType(action->data().toInt());
        emit uiStateChanged();
    }
}

bool BlendSliderBase::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == handle && event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
        menu->exec(QCursor::pos());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void BlendSliderBase::showType(const QString& name, const QColor& colour)
{
    const QColor hover = hoverShade(colour);
    handle->setLook(handleInitials(name), colour);
    for (PresetButton* preset : qAsConst(presets))
        preset->setColors(colour, hover);
}

void BlendSliderBase::takeMultiplier()
{
    const Qt::KeyboardModifiers modifiers = QGuiApplication::keyboardModifiers();
    if (!(modifiers & Qt::ControlModifier))
        multiplier = 1.0;
    else
        multiplier = (modifiers & Qt::ShiftModifier) ? 4.0 : 0.1;
}

MString BlendSliderBase::presetCommand(const MString& command, int percent)
{
    takeMultiplier();
    return command + " -blendType " + MQtUtil::toMString(QString::number(blendType())) + " -blendValue " +
           MQtUtil::toMString(QString::number(percent / 100.0 * multiplier, 'g', 6));
}

void BlendSliderBase::onSliderReleased()
{
    const bool live = endBlend();
    // After the blend has ended, so this step does nothing to the scene.
    const bool springs = handle->value() != 0;
    handle->setValue(0);
    if (!springs)
        emit uiStateChanged();
    if (live && rangeShown)
        TimelineOverlay::remove(rangeOverlay);
}

void BlendSliderBase::queryRange() { rangeShown = timeSliderRange(rangeStart, rangeEnd); }

} // namespace Ui
