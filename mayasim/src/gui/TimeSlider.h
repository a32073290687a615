#pragma once
// The time slider ($gPlayBackSlider) and the range slider under it. Both
// draw and edit the host's own state: the current time and playback range of
// MAnimControl, the highlight that timeControl answers from.
#include <QtWidgets/QWidget>

#include <optional>
#include <utility>
#include <vector>

class QDoubleSpinBox;
class QTimer;
class QToolButton;

namespace mayasim::gui {

class TimeSlider : public QWidget
{
public:
    explicit TimeSlider(QWidget* parent);
    // Repaints when what it shows has changed.
    void sync();
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    struct View
    {
        double first = 1, last = 120, current = 1;
        std::optional<std::pair<double, double>> highlight;
        std::vector<double> keys;
        bool operator==(const View& other) const;
    };
    static View read();
    double frameAt(int x) const;
    double xOf(double frame) const;
    double frameWidth() const;
    void dragTo(double frame);

    View fView;
    std::optional<double> fAnchor; // a shift-drag's first frame
    bool fScrubbing = false;
};

// The range slider under the time slider: the animation and playback ends
// around a bar that shows the playback range within the animation range.
class RangeSlider : public QWidget
{
public:
    explicit RangeSlider(QWidget* parent);
    void sync();

private:
    QDoubleSpinBox* fFields[4] = {}; // animation start, playback start, playback end, animation end
    QWidget* fBar = nullptr;
};

// The current time field and the play buttons; playback moves the current
// time one frame per tick of a timer, looping over the playback range.
class PlaybackControls : public QWidget
{
public:
    explicit PlaybackControls(QWidget* parent);
    void sync();
    void play(int direction); // 1 forwards, -1 backwards, 0 stops

private:
    void step(int frames);
    QDoubleSpinBox* fCurrent = nullptr;
    QToolButton* fPlay[2] = {}; // backwards, forwards
    QTimer* fTimer = nullptr;
    int fDirection = 0;
};

} // namespace mayasim::gui
