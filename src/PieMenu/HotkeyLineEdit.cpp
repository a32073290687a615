#include "PieMenu/HotkeyLineEdit.h"

#include <QKeyEvent>
#include <QKeySequence>

namespace PieMenu {

HotkeyLineEdit::HotkeyLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
    setClearButtonEnabled(true);
    setFocusPolicy(Qt::ClickFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
    setPlaceholderText(QStringLiteral("Click here, then press keys…"));
}

void HotkeyLineEdit::keyPressEvent(QKeyEvent* event)
{
    // Typing never inserts text: every key is taken here.
    event->accept();
    const int key = event->key();
    // The keys themselves too, where the platform maps no standard key.
    if (event->matches(QKeySequence::Delete) || event->matches(QKeySequence::Backspace) || key == Qt::Key_Delete
        || key == Qt::Key_Backspace || key == Qt::Key_unknown
        || key == Qt::Key_Escape || key == Qt::Key_Tab || key == Qt::Key_Backtab) {
        clear();
        return;
    }
    // A modifier alone waits for the real key.
    if (key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Meta || key == Qt::Key_Alt)
        return;
    const int modifiers = static_cast<int>(event->modifiers() & ~Qt::KeypadModifier);
    const QKeySequence sequence(modifiers | key);
    if (!sequence.isEmpty())
        setText(sequence.toString(QKeySequence::NativeText));
}

QString hotkeyForDisplay(const QString& portable)
{
    return QKeySequence::fromString(portable, QKeySequence::PortableText).toString(QKeySequence::NativeText);
}

QString hotkeyForStore(const QString& native)
{
    return QKeySequence::fromString(native.trimmed(), QKeySequence::NativeText).toString(QKeySequence::PortableText);
}

} // namespace PieMenu
