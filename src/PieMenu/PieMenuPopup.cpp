#include "PieMenu/PieMenuPopup.h"

#include "PieMenu/PiePreviewWidget.h"
#include "PieMenu/PluginCommands.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace PieMenu {

namespace {

const int PopupSize = 320;

} // namespace

PieMenuPopup::PieMenuPopup(QWidget* parent)
    : QWidget(parent, Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint)
    , fPreview(new PiePreviewWidget(this))
{
    // Hidden between uses, never closed.
    setAttribute(Qt::WA_DeleteOnClose, false);
    setAttribute(Qt::WA_TranslucentBackground, true);
    setAutoFillBackground(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(fPreview);
    fPreview->setPopupMode(true);
    fPreview->setTransparent(true);
    connect(fPreview, &PiePreviewWidget::sliceClicked, this, &PieMenuPopup::runAndHide);
    connect(fPreview, &PiePreviewWidget::centerClicked, this, &QWidget::hide);
}

void PieMenuPopup::showAt(const QPoint& globalPos, const QVector<Slice>& slices)
{
    fPreview->setSliceCount(std::max(slices.size(), 1));
    for (int i = 0; i < slices.size(); ++i)
        fPreview->setSlice(i, slices[i]);
    setFixedSize(PopupSize, PopupSize);
    move(globalPos.x() - width() / 2, globalPos.y() - height() / 2);
    show();
}

void PieMenuPopup::closeAndRun()
{
    fPreview->updateHoverFromCursor();
    runAndHide(fPreview->hoveredIndex());
}

void PieMenuPopup::runAndHide(int index)
{
    // Hidden first: a slice may open a window, or post keys to the focus widget.
    hide();
    if (index >= 0 && index < fPreview->sliceCount())
        runSlice(fPreview->sliceAt(index));
}

bool PieMenuPopup::eventFilter(QObject* watched, QEvent* event)
{
    // With the key held the mouse may be anywhere: hover follows the cursor.
    if (event->type() == QEvent::MouseMove)
        fPreview->updateHoverFromCursor();
    return QWidget::eventFilter(watched, event);
}

void PieMenuPopup::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        hide();
        return;
    }
    QWidget::keyPressEvent(event);
}

void PieMenuPopup::showEvent(QShowEvent* event)
{
    QCoreApplication::instance()->installEventFilter(this);
    QWidget::showEvent(event);
}

void PieMenuPopup::hideEvent(QHideEvent* event)
{
    QCoreApplication::instance()->removeEventFilter(this);
    QWidget::hideEvent(event);
}

} // namespace PieMenu
