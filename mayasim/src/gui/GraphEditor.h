#pragma once
// The graph editor panel "graphEditor1": the animation curves of the
// selected objects over time, with click and box selection of keys (the
// host's key selection, which keyframe and selectKey read) and frame all.
#include <QtCore/QRectF>
#include <QtWidgets/QWidget>

#include <optional>
#include <string>
#include <vector>

namespace mayasim::gui {

class GraphEditor : public QWidget
{
public:
    explicit GraphEditor(QWidget* parent);
    // Draws again when what it shows has changed.
    void sync();
    // Fits the view to all keys of the curves shown.
    void frameAll();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Key
    {
        double time = 0;  // UI time unit
        double value = 0; // UI units
        bool selected = false;
    };
    struct Curve
    {
        std::string name;
        std::string attribute; // the short name of the plug it drives
        bool angular = false;
        std::vector<Key> keys;
    };
    std::vector<Curve> read() const;
    QPointF toWidget(double time, double value) const;
    // The keys within a widget rectangle, picked as a person would.
    void pick(const QRectF& area, bool add);

    std::vector<Curve> fCurves;
    QRectF fFrame{0, -1, 24, 2}; // time and value shown: x, y, width, height
    double fCurrentTime = 0;     // UI time unit
    std::optional<QPoint> fPressAt;
    QPoint fDragTo;
};

GraphEditor* graphEditor();

} // namespace mayasim::gui
