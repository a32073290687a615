#pragma once
// The editor of one pie menu: its slice count, a live preview on which a
// click edits a slice and a right drag swaps two, and its hotkey.
#include <QDialog>

class QSpinBox;

namespace PieMenu {

class HotkeyLineEdit;
class PiePreviewWidget;

class EditDialog : public QDialog
{
    Q_OBJECT

public:
    explicit EditDialog(QWidget* parent = nullptr);

    void loadMenu(int id);
    int menuId() const { return fMenuId; }
    // Stores the preview's slices and the hotkey, and saves; false when the
    // hotkey belongs to another menu, with nothing stored.
    bool apply();

public slots:
    void onSliceCountChanged(int count);
    void onSliceClicked(int index);
    void onApply();
    void onApplyAndClose();
    void onClose();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSpinBox* fSliceCount;
    PiePreviewWidget* fPreview;
    HotkeyLineEdit* fHotkey;
    int fMenuId = -1;
};

} // namespace PieMenu
