#pragma once
// A field that takes a key combination instead of text: the next key
// pressed, with its modifiers, in native form.
#include <QLineEdit>

namespace PieMenu {

class HotkeyLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit HotkeyLineEdit(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

// Stored portable text shown natively, and back.
QString hotkeyForDisplay(const QString& portable);
QString hotkeyForStore(const QString& native);

} // namespace PieMenu
