// mayasimUi: drives the GUI host as a person would (mouse, keys, menus,
// dialogs) and reads back what a person would see (screenshots, pixels,
// widget texts). Input goes through Qt's window-system entry points, as real
// input does, so modifiers reach QGuiApplication::keyboardModifiers().
#include "engine/Command.h"
#include "gui/GuiHost.h"
#include "gui/Viewports.h"
#include "gui/WorkspaceControls.h"

#include <QtCore/QEventLoop>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QCursor>
#include <QtGui/QKeySequence>
#include <QtGui/QWindow>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractSlider>
#include <QtWidgets/QApplication>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QSpinBox>

#include <cmath>
#include <deque>
#include <functional>
#include <map>
#include <optional>

// Qt's own entry points for input from the window system (what QTest uses).
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button, QEvent::Type type,
                                      Qt::KeyboardModifiers mods, int timestamp);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* w, QEvent::Type t, int k, Qt::KeyboardModifiers mods,
                                    const QString& text, bool autorep, ushort count);
QT_END_NAMESPACE

namespace mayasim::gui {

namespace {

const char* const kCommand = "mayasimUi";

[[noreturn]] void fail(const std::string& message)
{
    throw MelError(std::string(kCommand) + ": " + message);
}

// --- the object --------------------------------------------------------------

QWidget* object(const ParsedArgs& args)
{
    if (args.positional().empty())
        return mainWindow();
    const QString path = QString::fromStdString(args.positional()[0].text);
    QWidget* widget = nullptr;
    if (path == "popup")
        widget = QApplication::activePopupWidget();
    else if (path == "dialog")
        widget = QApplication::activeModalWidget();
    else
        widget = findWidget(path);
    if (!widget)
        fail("Object '" + path.toStdString() + "' not found.");
    return widget;
}

// A path that findWidget resolves to the widget: its window's name, then per
// level the child's name, or Class#n when it has none.
QString pathOf(const QWidget* widget)
{
    QStringList levels;
    for (const QWidget* w = widget; w; w = w->parentWidget())
    {
        const QWidget* parent = w->parentWidget();
        if (!w->objectName().isEmpty() || !parent)
        {
            levels.prepend(w->objectName());
            continue;
        }
        int index = 0;
        for (QObject* sibling : parent->children())
        {
            if (sibling == w)
                break;
            if (qobject_cast<QWidget*>(sibling) && sibling->metaObject()->className() == QString(w->metaObject()->className()))
                ++index;
        }
        levels.prepend(QString("%1#%2").arg(w->metaObject()->className()).arg(index));
    }
    return levels.join('|');
}

QString textOf(const QWidget* widget)
{
    if (auto* button = qobject_cast<const QAbstractButton*>(widget))
        return button->text();
    if (auto* label = qobject_cast<const QLabel*>(widget))
        return label->text();
    if (auto* line = qobject_cast<const QLineEdit*>(widget))
        return line->text();
    if (auto* spin = qobject_cast<const QAbstractSpinBox*>(widget))
        return spin->text();
    if (auto* combo = qobject_cast<const QComboBox*>(widget))
        return combo->currentText();
    return widget->windowTitle();
}

MelValue valueOf(const QWidget* widget)
{
    if (auto* slider = qobject_cast<const QAbstractSlider*>(widget))
        return MelValue::ofInt(slider->value());
    if (auto* spin = qobject_cast<const QSpinBox*>(widget))
        return MelValue::ofInt(spin->value());
    if (auto* spin = qobject_cast<const QDoubleSpinBox*>(widget))
        return MelValue::ofFloat(spin->value());
    if (auto* progress = qobject_cast<const QProgressBar*>(widget))
        return MelValue::ofInt(progress->value());
    if (auto* combo = qobject_cast<const QComboBox*>(widget))
        return MelValue::ofInt(combo->currentIndex());
    fail(std::string("A ") + widget->metaObject()->className() + " has no value.");
}

QImage imageOf(QWidget* widget)
{
    syncWidgets();
    QApplication::processEvents();
    return widget->grab().toImage();
}

// --- input ---------------------------------------------------------------------

Qt::KeyboardModifiers modifiers(const ParsedArgs& args)
{
    Qt::KeyboardModifiers result;
    if (!args.has("modifiers"))
        return result;
    for (const QString& word : QString::fromStdString(args.args("modifiers").at(0).text).toLower().split('+', Qt::SkipEmptyParts))
    {
        if (word == "ctrl" || word == "control")
            result |= Qt::ControlModifier;
        else if (word == "shift")
            result |= Qt::ShiftModifier;
        else if (word == "alt")
            result |= Qt::AltModifier;
        else if (word == "meta" || word == "cmd" || word == "command")
            result |= Qt::MetaModifier;
        else
            fail("Invalid modifier: " + word.toStdString());
    }
    return result;
}

Qt::MouseButton button(const ParsedArgs& args)
{
    const std::string name = args.has("button") ? args.args("button").at(0).text : "left";
    if (name == "left")
        return Qt::LeftButton;
    if (name == "middle")
        return Qt::MiddleButton;
    if (name == "right")
        return Qt::RightButton;
    fail("Invalid button: " + name);
}

// A whole number of pixels, milliseconds or steps, within reason.
int whole(const Word& word, int low, int high)
{
    const double value = word.number();
    if (!(value >= low && value <= high))
        fail("Invalid number: " + word.text);
    return static_cast<int>(std::lround(value));
}

QPoint point(const std::vector<Word>& words, size_t first)
{
    return {whole(words.at(first), -100000, 100000), whole(words.at(first + 1), -100000, 100000)};
}

struct Mouse
{
    Qt::MouseButtons held;
    // The modifier keys a gesture's -modifiers pressed, down until the
    // gesture ends, as a person lets go of them after the click.
    Qt::KeyboardModifiers keys;
    // The window of the last press and the point in it, where a release
    // goes when what it names is gone.
    QPointer<QWidget> pressedIn;
    QPoint pressedAt;
    int timestamp = 0;
};

Mouse& mouse()
{
    static Mouse state;
    return state;
}

// One mouse event at a point of the widget, sent to its window.
void sendMouse(QWidget* widget, QPoint at, QEvent::Type type, Qt::MouseButton which, Qt::KeyboardModifiers mods)
{
    QWidget* window = widget->window();
    QWindow* handle = window->windowHandle();
    if (!handle)
        fail("The widget is not shown.");
    // What the widgets show is what the person clicks on.
    syncWidgets();
    Mouse& state = mouse();
    if (type == QEvent::MouseButtonPress)
        state.held |= which;
    else if (type == QEvent::MouseButtonRelease)
        state.held &= ~Qt::MouseButtons(which);
    const QPoint local = widget->mapTo(window, at);
    if (type == QEvent::MouseButtonPress)
    {
        state.pressedIn = window;
        state.pressedAt = local;
    }
    // Clicks far apart in time, so two of them never make a double click.
    state.timestamp += type == QEvent::MouseButtonRelease ? 1000 : 10;
    qt_handleMouseEvent(handle, local, window->mapToGlobal(local), state.held,
                        type == QEvent::MouseMove ? Qt::NoButton : which, type, mods, state.timestamp);
    QApplication::processEvents();
}

// A key sequence word ("Ctrl+K", "Shift", "F5") as a key and its modifiers.
std::pair<int, Qt::KeyboardModifiers> keyOf(const std::string& text)
{
    static const std::map<std::string, int> modifierKeys = {
        {"ctrl", Qt::Key_Control}, {"shift", Qt::Key_Shift}, {"alt", Qt::Key_Alt}, {"meta", Qt::Key_Meta}};
    const auto lone = modifierKeys.find(QString::fromStdString(text).toLower().toStdString());
    if (lone != modifierKeys.end())
        return {lone->second, {}};
    const QKeySequence sequence = QKeySequence::fromString(QString::fromStdString(text));
    const int key = static_cast<int>(sequence[0] & ~Qt::KeyboardModifierMask);
    if (sequence.count() != 1 || key == 0 || key == Qt::Key_unknown)
        fail("Invalid key: " + text);
    return {key, Qt::KeyboardModifiers(sequence[0] & Qt::KeyboardModifierMask)};
}

QString keyText(int key, Qt::KeyboardModifiers mods)
{
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return QChar((mods & Qt::ShiftModifier) ? key : key - Qt::Key_A + 'a');
    if (key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde)
        return QChar(key);
    return {};
}

// Keys go to the window that has the focus (a popup when one is open),
// else the main window.
QWindow* keyWindow()
{
    QWidget* target = QApplication::activePopupWidget();
    if (!target)
        target = QApplication::activeModalWidget();
    if (!target)
        target = QApplication::activeWindow();
    if (!target)
        target = mainWindow();
    return target->window()->windowHandle();
}

void sendKey(bool press, int key, Qt::KeyboardModifiers mods, bool autoRepeat)
{
    QWindow* window = keyWindow();
    if (!window)
        fail("No window to send keys to.");
    qt_handleKeyEvent(window, press ? QEvent::KeyPress : QEvent::KeyRelease, key, mods, keyText(key, mods),
                      autoRepeat, 1);
    QApplication::processEvents();
}

// The modifier key presses and releases that take the held modifiers from
// one set to another: releases first, in reverse order, then presses.
void changeModifierKeys(Qt::KeyboardModifiers from, Qt::KeyboardModifiers to)
{
    const std::pair<Qt::KeyboardModifier, int> order[] = {{Qt::ShiftModifier, Qt::Key_Shift},
                                                          {Qt::ControlModifier, Qt::Key_Control},
                                                          {Qt::AltModifier, Qt::Key_Alt},
                                                          {Qt::MetaModifier, Qt::Key_Meta}};
    Qt::KeyboardModifiers down = from;
    for (int i = 3; i >= 0; --i)
        if (down & order[i].first && !(to & order[i].first))
        {
            down &= ~Qt::KeyboardModifiers(order[i].first);
            sendKey(false, order[i].second, down, false);
        }
    for (const auto& [modifier, modifierKey] : order)
        if (to & modifier && !(down & modifier))
        {
            sendKey(true, modifierKey, down, false);
            down |= modifier;
        }
}

// The modifiers first, as a keyboard sends them; released in reverse.
void keyAction(const std::string& text, bool press, bool release, bool autoRepeat)
{
    const auto [key, mods] = keyOf(text);
    if (press)
    {
        if (!autoRepeat)
            changeModifierKeys({}, mods);
        sendKey(true, key, mods, autoRepeat);
    }
    if (release)
    {
        sendKey(false, key, mods, autoRepeat);
        if (!autoRepeat)
            changeModifierKeys(mods, {});
    }
}

// A mouse gesture's modifier keys go down before its events, and up once no
// button is held any more: Qt keeps the modifiers of the last input event,
// so keys never released would stay held for whatever comes next.
void holdGestureKeys(Qt::KeyboardModifiers mods)
{
    changeModifierKeys(mouse().keys, mods);
    mouse().keys = mods;
}

void endGestureKeys()
{
    if (mouse().held)
        return;
    changeModifierKeys(mouse().keys, {});
    mouse().keys = {};
}

// A person's release always happens: when the widget a release names is
// gone (the press deleted it), the button is let go where it was pressed,
// else it would stay held and every later click would be lost.
void releaseLostPress(Qt::MouseButton which, Qt::KeyboardModifiers mods)
{
    Mouse& state = mouse();
    if (!(state.held & which))
        return;
    if (state.pressedIn && state.pressedIn->windowHandle())
        sendMouse(state.pressedIn, state.pressedAt, QEvent::MouseButtonRelease, which, mods);
    else
        state.held &= ~Qt::MouseButtons(which);
    endGestureKeys();
}

// --- menus and dialogs --------------------------------------------------------

QString plain(QString text)
{
    return text.remove('&').trimmed();
}

void triggerMenuEntry(const std::string& entry)
{
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        fail("No popup menu is open.");
    for (QAction* action : menu->actions())
        if (plain(action->text()) == QString::fromStdString(entry))
        {
            if (!action->isEnabled())
                fail("Menu entry '" + entry + "' is disabled.");
            if (action->menu())
            {
                action->menu()->popup(menu->pos());
                return;
            }
            menu->close();
            action->trigger();
            return;
        }
    fail("No menu entry '" + entry + "'.");
}

struct DialogAnswer
{
    std::string button;
    std::optional<std::string> value;
};

struct Dialogs : QObject
{
    std::deque<DialogAnswer> pending;
    std::pair<std::string, std::string> last; // title and text of the last dialog shown

    bool eventFilter(QObject* watched, QEvent* event) override;
};

Dialogs& dialogs();

QString dialogText(const QWidget* dialog)
{
    if (auto* box = qobject_cast<const QMessageBox*>(dialog))
        return box->text();
    if (auto* input = qobject_cast<const QInputDialog*>(dialog))
        return input->labelText();
    for (const QLabel* label : dialog->findChildren<QLabel*>())
        if (!label->text().isEmpty())
            return label->text();
    return {};
}

void fill(QWidget* dialog, const std::string& value)
{
    const QString text = QString::fromStdString(value);
    if (auto* input = qobject_cast<QInputDialog*>(dialog))
    {
        if (input->inputMode() == QInputDialog::IntInput)
            input->setIntValue(text.toInt());
        else if (input->inputMode() == QInputDialog::DoubleInput)
            input->setDoubleValue(text.toDouble());
        else
            input->setTextValue(text);
        return;
    }
    if (auto* colours = qobject_cast<QColorDialog*>(dialog))
    {
        const QStringList parts = text.split(' ', Qt::SkipEmptyParts);
        if (parts.size() != 3)
            fail("A colour is given as \"r g b\".");
        double channels[3];
        bool unit = true;
        for (int i = 0; i < 3; ++i)
        {
            channels[i] = parts[i].toDouble();
            unit = unit && channels[i] <= 1.0;
        }
        // Maya's colours run 0 to 1; bigger numbers are taken as 0 to 255.
        colours->setCurrentColor(unit ? QColor::fromRgbF(channels[0], channels[1], channels[2])
                                      : QColor(int(channels[0]), int(channels[1]), int(channels[2])));
        return;
    }
    if (auto* files = qobject_cast<QFileDialog*>(dialog))
    {
        files->selectFile(text);
        return;
    }
    if (auto* spin = dialog->findChild<QDoubleSpinBox*>())
        return spin->setValue(text.toDouble());
    if (auto* spin = dialog->findChild<QSpinBox*>())
        return spin->setValue(text.toInt());
    if (auto* line = dialog->findChild<QLineEdit*>())
        return line->setText(text);
    fail("The dialog has no field to fill.");
}

void answer(QWidget* dialog, const DialogAnswer& answer)
{
    if (answer.value)
        fill(dialog, *answer.value);
    const QString wanted = QString::fromStdString(answer.button);
    for (QAbstractButton* button : dialog->findChildren<QAbstractButton*>())
        if (plain(button->text()) == wanted && button->isVisible())
        {
            button->click();
            return;
        }
    fail("The dialog has no button '" + answer.button + "'.");
}

// Dialogs shown record their words; one answered ahead gets its answer as
// soon as its event loop runs.
bool Dialogs::eventFilter(QObject* watched, QEvent* event)
{
    auto* dialog = qobject_cast<QDialog*>(watched);
    if (event->type() != QEvent::Show || !dialog || !dialog->isWindow())
        return false;
    last = {dialog->windowTitle().toStdString(), dialogText(dialog).toStdString()};
    if (!pending.empty())
    {
        DialogAnswer next = pending.front();
        pending.pop_front();
        QPointer<QDialog> target(dialog);
        QTimer::singleShot(0, dialog, [target, next] {
            if (!target)
                return;
            try
            {
                answer(target, next);
            }
            catch (const MelError& error)
            {
                // Nobody waits for the answer: say why it failed, and close
                // the dialog so that the script goes on.
                qWarning("%s", error.what());
                target->reject();
            }
        });
    }
    return false;
}

Dialogs& dialogs()
{
    static Dialogs* state = [] {
        auto* created = new Dialogs;
        created->setParent(qApp);
        qApp->installEventFilter(created);
        return created;
    }();
    return *state;
}

// --- the command -----------------------------------------------------------------

MelValue query(const ParsedArgs& args)
{
    // What a person sees: the widgets up to date and laid out.
    syncWidgets();
    QApplication::processEvents();
    if (args.has("dialog"))
    {
        if (QWidget* open = QApplication::activeModalWidget())
            return MelValue::ofStrings({open->windowTitle().toStdString(), dialogText(open).toStdString()});
        return MelValue::ofStrings({dialogs().last.first, dialogs().last.second});
    }
    if (args.has("exists"))
    {
        try
        {
            object(args);
            return MelValue::ofInt(1);
        }
        catch (const MelError&)
        {
            return MelValue::ofInt(0);
        }
    }
    QWidget* widget = object(args);
    if (args.has("refreshCount"))
    {
        const auto* panel = dynamic_cast<const ModelPanel*>(widget);
        return MelValue::ofInt(static_cast<long>(panel ? panel->refreshCount() : refreshCount()));
    }
    if (args.has("drawList"))
    {
        const auto* panel = dynamic_cast<const ModelPanel*>(widget);
        if (!panel)
            fail("'" + widget->objectName().toStdString() + "' is not a model panel.");
        std::vector<std::string> lines;
        for (const render::Primitive& primitive : panel->drawList())
            lines.push_back(render::describe(primitive));
        return MelValue::ofStrings(lines);
    }
    if (args.has("pixel"))
    {
        const QPoint at = point(args.args("pixel"), 0);
        const QImage image = imageOf(widget);
        if (!image.rect().contains(at))
            fail("The pixel is outside the widget.");
        const QColor colour = image.pixelColor(at);
        return MelValue::ofString(QString("%1 %2 %3 %4")
                                      .arg(colour.red())
                                      .arg(colour.green())
                                      .arg(colour.blue())
                                      .arg(colour.alpha())
                                      .toStdString());
    }
    if (args.has("geometry"))
    {
        const QRect geometry = widget->geometry();
        return MelValue::ofInts({geometry.x(), geometry.y(), geometry.width(), geometry.height()});
    }
    if (args.has("visible"))
        return MelValue::ofInt(widget->isVisible() ? 1 : 0);
    if (args.has("text"))
        return MelValue::ofString(textOf(widget).toStdString());
    if (args.has("toolTip"))
        return MelValue::ofString(widget->toolTip().toStdString());
    if (args.has("checked"))
    {
        auto* button = qobject_cast<QAbstractButton*>(widget);
        return MelValue::ofInt(button && button->isChecked() ? 1 : 0);
    }
    if (args.has("value"))
        return valueOf(widget);
    if (args.has("children"))
    {
        std::vector<std::string> children;
        for (QObject* child : widget->children())
            if (auto* childWidget = qobject_cast<QWidget*>(child))
                children.push_back(pathOf(childWidget).toStdString() + " " + child->metaObject()->className() + " " +
                                   child->objectName().toStdString());
        return MelValue::ofStrings(children);
    }
    if (args.has("find"))
    {
        const QString text = QString::fromStdString(args.args("find").at(0).text);
        std::vector<std::string> found;
        std::function<void(QWidget*)> visit = [&](QWidget* parent) {
            for (QObject* child : parent->children())
                if (auto* w = qobject_cast<QWidget*>(child))
                {
                    if (QString(w->metaObject()->className()).contains(text) || w->objectName().contains(text) ||
                        textOf(w).contains(text) || w->toolTip().contains(text))
                        found.push_back(pathOf(w).toStdString());
                    visit(w);
                }
        };
        visit(widget);
        return MelValue::ofStrings(found);
    }
    fail("Nothing to query.");
}

MelValue mayasimUi(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0},
                           {"ss", "screenshot", 1},
                           {"px", "pixel", 2, true},
                           {"pr", "press", 0},
                           {"rl", "release", 0},
                           {"cl", "click", 0},
                           {"b", "button", 1},
                           {"at", "at", 2},
                           {"mod", "modifiers", 1},
                           {"mv", "move", 2},
                           {"dr", "drag", 4},
                           {"st", "steps", 1},
                           {"k", "key", 1},
                           {"kp", "keyPress", 1},
                           {"kr", "keyRelease", 1},
                           {"ar", "autoRepeat", 0},
                           {"cur", "cursor", 2},
                           {"m", "menu", 1},
                           {"dlg", "dialog", 1},
                           {"v", "value", 1},
                           {"pu", "pump", 1},
                           {"ex", "exists", 0},
                           {"geo", "geometry", 0},
                           {"vis", "visible", 0},
                           {"tx", "text", 0},
                           {"tt", "toolTip", 0},
                           {"chk", "checked", 0},
                           {"ch", "children", 0},
                           {"f", "find", 1, true},
                           {"rs", "resize", 2},
                           {"rb", "rebuild", 0},
                           {"dl", "drawList", 0},
                           {"rc", "refreshCount", 0}});
    requireInterface(call.name);
    dialogs();
    if (args.has("query"))
        return query(args);

    if (args.has("pump"))
    {
        QEventLoop loop;
        QTimer::singleShot(whole(args.args("pump").at(0), 0, 3600000), &loop, &QEventLoop::quit);
        loop.exec();
        return MelValue::none();
    }
    if (args.has("dialog"))
    {
        DialogAnswer reply{args.args("dialog").at(0).text, {}};
        if (args.has("value"))
            reply.value = args.args("value").at(0).text;
        if (QWidget* open = QApplication::activeModalWidget())
            answer(open, reply);
        else
            dialogs().pending.push_back(reply);
        return MelValue::none();
    }
    if (args.has("menu"))
    {
        triggerMenuEntry(args.args("menu").at(0).text);
        return MelValue::none();
    }
    const bool autoRepeat = args.has("autoRepeat");
    if (args.has("key"))
        keyAction(args.args("key").at(0).text, true, true, autoRepeat);
    if (args.has("keyPress"))
        keyAction(args.args("keyPress").at(0).text, true, false, autoRepeat);
    if (args.has("keyRelease"))
        keyAction(args.args("keyRelease").at(0).text, false, true, autoRepeat);
    if (args.has("key") || args.has("keyPress") || args.has("keyRelease"))
        return MelValue::none();

    QWidget* widget = nullptr;
    try
    {
        widget = object(args);
    }
    catch (const MelError&)
    {
        if (args.has("release"))
            releaseLostPress(button(args), modifiers(args));
        throw;
    }
    if (args.has("rebuild"))
    {
        if (!rebuildWorkspaceControl(args.positional().at(0).text))
            fail("No workspace control '" + args.positional().at(0).text + "'.");
        return MelValue::none();
    }
    if (args.has("screenshot"))
    {
        const std::string path = args.args("screenshot").at(0).text;
        if (!imageOf(widget).save(QString::fromStdString(path), "PNG"))
            fail("Cannot write '" + path + "'.");
        return MelValue::ofString(path);
    }
    if (args.has("resize"))
    {
        const QPoint size = point(args.args("resize"), 0);
        widget->resize(size.x(), size.y());
        QApplication::processEvents();
        return MelValue::none();
    }
    if (args.has("cursor"))
    {
        QCursor::setPos(widget->mapToGlobal(point(args.args("cursor"), 0)));
        return MelValue::none();
    }
    const Qt::KeyboardModifiers mods = modifiers(args);
    const Qt::MouseButton which = button(args);
    const QPoint at = args.has("at") ? point(args.args("at"), 0) : widget->rect().center();
    if (!args.has("drag") && !args.has("move") && !args.has("press") && !args.has("release") && !args.has("click"))
        fail("Nothing to do.");
    holdGestureKeys(mods);
    if (args.has("drag"))
    {
        const std::vector<Word>& words = args.args("drag");
        const QPoint from = point(words, 0), to = point(words, 2);
        const int steps = args.has("steps") ? whole(args.args("steps").at(0), 1, 10000) : 1;
        sendMouse(widget, from, QEvent::MouseButtonPress, which, mods);
        for (int i = 1; i <= steps; ++i)
            sendMouse(widget, from + (to - from) * i / steps, QEvent::MouseMove, which, mods);
        sendMouse(widget, to, QEvent::MouseButtonRelease, which, mods);
    }
    else if (args.has("move"))
        sendMouse(widget, point(args.args("move"), 0), QEvent::MouseMove, which, mods);
    else if (args.has("press"))
        sendMouse(widget, at, QEvent::MouseButtonPress, which, mods);
    else if (args.has("release"))
        sendMouse(widget, at, QEvent::MouseButtonRelease, which, mods);
    else if (args.has("click"))
    {
        sendMouse(widget, at, QEvent::MouseButtonPress, which, mods);
        sendMouse(widget, at, QEvent::MouseButtonRelease, which, mods);
    }
    endGestureKeys();
    syncWidgets();
    return MelValue::none();
}

BuiltinRegistrar registrar("mayasimUi", mayasimUi);

} // namespace

} // namespace mayasim::gui
