#include "PieMenu/EditDialog.h"

#include "PieMenu/HotkeyLineEdit.h"
#include "PieMenu/Manager.h"
#include "PieMenu/PiePreviewWidget.h"
#include "PieMenu/SliceDialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>

namespace PieMenu {

EditDialog::EditDialog(QWidget* parent)
    : QDialog(parent)
{
    resize(360, 400);
    auto* layout = new QVBoxLayout(this);

    auto* countRow = new QHBoxLayout;
    countRow->addWidget(new QLabel(QStringLiteral("slices:"), this));
    fSliceCount = new QSpinBox(this);
    fSliceCount->setRange(1, MaxSlices);
    fSliceCount->setValue(4);
    countRow->addWidget(fSliceCount);
    countRow->addStretch();
    layout->addLayout(countRow);

    fPreview = new PiePreviewWidget(this);
    layout->addWidget(fPreview, 1);

    auto* hotkeyRow = new QHBoxLayout;
    hotkeyRow->addWidget(new QLabel(QStringLiteral("Hotkey:"), this));
    fHotkey = new HotkeyLineEdit(this);
    hotkeyRow->addWidget(fHotkey);
    layout->addLayout(hotkeyRow);

    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch();
    auto* applyButton = new QPushButton(QStringLiteral("Apply"), this);
    auto* applyAndClose = new QPushButton(QStringLiteral("Apply and Close"), this);
    auto* closeButton = new QPushButton(QStringLiteral("Close"), this);
    applyAndClose->setDefault(true);
    buttonRow->addWidget(applyButton);
    buttonRow->addWidget(applyAndClose);
    buttonRow->addWidget(closeButton);
    layout->addLayout(buttonRow);

    connect(fSliceCount, QOverload<int>::of(&QSpinBox::valueChanged), this, &EditDialog::onSliceCountChanged);
    connect(fPreview, &PiePreviewWidget::sliceClicked, this, &EditDialog::onSliceClicked);
    connect(fPreview, &PiePreviewWidget::slicesSwapped, fPreview, QOverload<>::of(&QWidget::update));
    connect(applyButton, &QPushButton::clicked, this, &EditDialog::onApply);
    connect(applyAndClose, &QPushButton::clicked, this, &EditDialog::onApplyAndClose);
    connect(closeButton, &QPushButton::clicked, this, &EditDialog::onClose);
    // Presses anywhere in the dialog, its children's included.
    qApp->installEventFilter(this);
}

void EditDialog::loadMenu(int id)
{
    Manager& manager = Manager::instance();
    fMenuId = id;
    setWindowTitle(manager.displayName(id));
    const QVector<Slice>& slices = manager.slicesOf(id);
    const int count = std::clamp(slices.size(), 1, MaxSlices);
    {
        const QSignalBlocker blocker(fSliceCount);
        fSliceCount->setValue(count);
    }
    // Loaded whole, so no slice of the last menu shown stays behind.
    fPreview->setSliceCount(0);
    fPreview->setSliceCount(count);
    for (int i = 0; i < slices.size(); ++i)
        fPreview->setSlice(i, slices[i]);
    fHotkey->setText(hotkeyForDisplay(manager.hotkeyOf(id)));
}

bool EditDialog::apply()
{
    if (fMenuId < 0)
        return false;
    Manager& manager = Manager::instance();
    const QString hotkey = hotkeyForStore(fHotkey->text());
    if (!hotkey.isEmpty()) {
        const int owner = manager.findHotkeyOwner(hotkey, fMenuId);
        if (owner >= 0) {
            QMessageBox::warning(this, QStringLiteral("Hotkey"),
                                 QStringLiteral("This hotkey is already assigned to \"%1\".")
                                     .arg(manager.displayName(owner)),
                                 QMessageBox::Ok);
            return false;
        }
    }
    manager.setSlices(fMenuId, fPreview->allSlices());
    manager.setHotkey(fMenuId, hotkey);
    manager.save();
    return true;
}

void EditDialog::onSliceCountChanged(int count) { fPreview->setSliceCount(count); }

void EditDialog::onSliceClicked(int index)
{
    SliceDialog form(index, fPreview->sliceAt(index), this);
    if (form.exec() == QDialog::Accepted)
        fPreview->setSlice(index, form.slice());
}

void EditDialog::onApply() { apply(); }

void EditDialog::onApplyAndClose()
{
    if (apply())
        hide();
}

void EditDialog::onClose() { hide(); }

bool EditDialog::eventFilter(QObject* watched, QEvent* event)
{
    // A press elsewhere in the dialog ends typing in the hotkey field or the
    // spin box, so the next key isn't taken as a hotkey or a count.
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType()) {
        auto* widget = static_cast<QWidget*>(watched);
        const bool inField = widget == fHotkey || widget == fSliceCount || fHotkey->isAncestorOf(widget)
                             || fSliceCount->isAncestorOf(widget) || qobject_cast<QAbstractButton*>(widget);
        if (widget->window() == this && !inField && (fHotkey->hasFocus() || fSliceCount->hasFocus()))
            setFocus(Qt::MouseFocusReason);
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace PieMenu
