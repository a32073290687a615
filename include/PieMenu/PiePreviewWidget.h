#pragma once
// A ring of slices: the editor's preview, where slices are picked and
// swapped by a right drag, and the popup's menu, where the mouse's
// direction from the centre picks the slice.
#include "PieMenu/Menu.h"

#include <QPainterPath>
#include <QVector>
#include <QWidget>

namespace PieMenu {

class PiePreviewWidget : public QWidget
{
    Q_OBJECT

public:
    explicit PiePreviewWidget(QWidget* parent = nullptr);

    // Fits the ring to n slices, new ones empty; the same count keeps it.
    void setSliceCount(int n);
    void setSlice(int index, const Slice& slice);
    Slice sliceAt(int index) const;
    int sliceCount() const { return fSlices.size(); }
    const QVector<Slice>& allSlices() const { return fSlices; }
    int hoveredIndex() const { return fHoverIndex; }
    // Hover from where the cursor is now, wherever the mouse events go.
    void updateHoverFromCursor();
    void setPopupMode(bool on);
    void setTransparent(bool on);
    // The slice at a point of the widget, or -1.
    int hitIndex(const QPointF& point) const;

signals:
    void sliceClicked(int index);
    void centerClicked();
    void slicesSwapped(int indexA, int indexB);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Geometry;
    Geometry geometry() const;
    void rebuildPaths();
    void setHover(int index);
    void paintContent(QPainter& painter, int index, const Geometry& ring) const;

    QVector<Slice> fSlices;
    QVector<QPainterPath> fPaths; // one shape a slice, made at each resize or count change
    int fHoverIndex = -1;
    int fDragIndex = -1; // the slice a right drag carries
    bool fPopupMode = false;
    bool fTransparent = false;
};

} // namespace PieMenu
