#pragma once
// The pie menu itself: a frameless, see-through window centred on the
// mouse while the hotkey is held.
#include "PieMenu/Menu.h"

#include <QWidget>

namespace PieMenu {

class PiePreviewWidget;

class PieMenuPopup : public QWidget
{
    Q_OBJECT

public:
    explicit PieMenuPopup(QWidget* parent = nullptr);

    void showAt(const QPoint& globalPos, const QVector<Slice>& slices);
    // At the key's release: runs the slice the mouse points at, then hides.
    void closeAndRun();
    PiePreviewWidget* preview() const { return fPreview; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void runAndHide(int index);

    PiePreviewWidget* fPreview;
};

} // namespace PieMenu
