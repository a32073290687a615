// Hotkeys: hotkey sets, named commands and their keys (hotkeySet,
// nameCommand, hotkey, savePrefs -hotkeys), and in the GUI host the filter
// that runs them on key presses and releases anywhere in the application.
#include "gui/Hotkeys.h"

#include "engine/Command.h"

#include <QtCore/QDir>
#include <QtGui/QKeyEvent>
#include <QtGui/QKeySequence>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QTextEdit>

#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <tuple>

namespace mayasim::gui {

namespace {

const char* const kDefaultSet = "Maya_Default";

// A key with its modifiers, as Qt reports a press.
struct Combo
{
    int key = 0;
    bool ctl = false, alt = false, sht = false, cmd = false;
    bool operator<(const Combo& other) const
    {
        return std::tie(key, ctl, alt, sht, cmd) < std::tie(other.key, other.ctl, other.alt, other.sht, other.cmd);
    }
};

struct Binding
{
    std::string press, release; // named commands
};

struct HotkeySet
{
    std::map<Combo, Binding> keys;
    bool locked = false; // the sets that come with Maya can't be edited
};

struct NamedCommand
{
    std::string annotation, command;
    bool python = false;
};

struct Hotkeys
{
    std::map<std::string, HotkeySet> sets = {{kDefaultSet, {{}, true}}};
    std::string current = kDefaultSet;
    std::map<std::string, NamedCommand> named;
    std::map<int, Binding> down; // keys held, with what their release runs
};

Hotkeys& hotkeys()
{
    static Hotkeys state;
    return state;
}

// MEL text in a string literal.
std::string quoted(const std::string& text)
{
    std::string result = "\"";
    for (char c : text)
    {
        if (c == '"' || c == '\\')
            result += '\\';
        result += c == '\n' ? std::string("\\n") : std::string(1, c);
    }
    return result + "\"";
}

// Maya's key names: a character ("k", "K" for Shift+k) or a named key
// ("Up", "Page_Up", "F5", "Space").
Combo comboOf(const std::string& name, const std::string& command)
{
    Combo combo;
    const QString text = QString::fromStdString(name);
    if (text.size() == 1 && text[0].isLetter())
    {
        combo.key = Qt::Key_A + (text[0].toUpper().unicode() - 'A');
        combo.sht = text[0].isUpper();
        return combo;
    }
    static const std::map<QString, QString> mayaNames = {{"Page_Up", "PgUp"}, {"Page_Down", "PgDown"},
                                                          {"Escape", "Esc"},   {"Delete", "Del"},
                                                          {"Insert", "Ins"},   {"Return", "Return"}};
    const auto renamed = mayaNames.find(text);
    const QKeySequence sequence = QKeySequence::fromString(renamed == mayaNames.end() ? text : renamed->second);
    if (text.isEmpty() || sequence.count() != 1 || (sequence[0] & Qt::KeyboardModifierMask) != 0 ||
        sequence[0] == Qt::Key_unknown)
        throw MelError(command + ": Invalid key: " + name);
    combo.key = sequence[0];
    return combo;
}

std::string keyName(const Combo& combo)
{
    if (combo.key >= Qt::Key_A && combo.key <= Qt::Key_Z)
        return std::string(1, static_cast<char>((combo.sht ? 'A' : 'a') + combo.key - Qt::Key_A));
    return QKeySequence(combo.key).toString().toStdString();
}

// --- hotkeySet -------------------------------------------------------------------

MelValue hotkeySet(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0}, {"e", "edit", 0}, {"cu", "current", 0}, {"ex", "exists", 0},
                           {"src", "source", 1}, {"hsa", "hotkeySetArray", 0}});
    Hotkeys& state = hotkeys();
    // -exists answers whatever else is given, -query included (Maya ignores
    // the other flags).
    if (args.has("exists"))
    {
        if (args.positional().size() != 1)
            throw MelError("hotkeySet: Wrong number of arguments.");
        return MelValue::ofInt(state.sets.count(args.positional()[0].text) ? 1 : 0);
    }
    if (args.has("query"))
    {
        if (args.has("current"))
            return MelValue::ofString(state.current);
        if (args.has("hotkeySetArray"))
        {
            std::vector<std::string> names;
            for (const auto& [name, set] : state.sets)
                names.push_back(name);
            return MelValue::ofStrings(names);
        }
        throw MelError("hotkeySet: Nothing to query.");
    }
    if (args.positional().size() != 1)
        throw MelError("hotkeySet: Wrong number of arguments.");
    const std::string name = args.positional()[0].text;
    if (args.has("edit"))
    {
        if (!state.sets.count(name))
            throw MelError("hotkeySet: Hotkey set '" + name + "' does not exist.");
        if (args.has("current"))
            state.current = name;
        return MelValue::ofString(name);
    }
    if (state.sets.count(name))
        throw MelError("hotkeySet: Hotkey set '" + name + "' already exists.");
    const std::string source = args.has("source") ? args.args("source").at(0).text : state.current;
    const auto from = state.sets.find(source);
    if (from == state.sets.end())
        throw MelError("hotkeySet: Hotkey set '" + source + "' does not exist.");
    // A copy of its source, independent of it, and never locked.
    state.sets[name] = {from->second.keys, false};
    if (args.has("current"))
        state.current = name;
    return MelValue::ofString(name);
}

// --- nameCommand -----------------------------------------------------------------

MelValue nameCommand(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"ann", "annotation", 1}, {"c", "command", 1}, {"stp", "sourceType", 1}});
    if (args.positional().size() != 1)
        throw MelError("nameCommand: Wrong number of arguments.");
    NamedCommand named;
    if (args.has("annotation"))
        named.annotation = args.args("annotation").at(0).text;
    if (args.has("command"))
        named.command = args.args("command").at(0).text;
    if (args.has("sourceType"))
    {
        const std::string type = args.args("sourceType").at(0).text;
        if (type != "mel" && type != "python")
            throw MelError("nameCommand: Invalid source type: " + type);
        named.python = type == "python";
    }
    const std::string name = args.positional()[0].text;
    hotkeys().named[name] = named;
    return MelValue::ofString(name);
}

// --- hotkey ----------------------------------------------------------------------

MelValue hotkey(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0},
                           {"k", "keyShortcut", 1, true},
                           {"ctl", "ctrlModifier", 0},
                           {"alt", "altModifier", 0},
                           {"sht", "shiftModifier", 0},
                           {"cmd", "commandModifier", 0},
                           {"n", "name", 1},
                           {"rn", "releaseName", 1}});
    if (!args.has("keyShortcut"))
        throw MelError("hotkey: The -keyShortcut flag is required.");
    Combo combo = comboOf(args.args("keyShortcut").at(0).text, call.name);
    combo.ctl = args.has("ctrlModifier");
    combo.alt = args.has("altModifier");
    combo.sht = combo.sht || args.has("shiftModifier");
    combo.cmd = args.has("commandModifier");
    Hotkeys& state = hotkeys();
    HotkeySet& set = state.sets.at(state.current);
    if (args.has("query"))
    {
        const auto found = set.keys.find(combo);
        const Binding none;
        const Binding& binding = found == set.keys.end() ? none : found->second;
        if (args.has("releaseName"))
            return MelValue::ofString(binding.release);
        if (args.has("name"))
            return MelValue::ofString(binding.press);
        throw MelError("hotkey: Nothing to query.");
    }
    if (set.locked)
        throw MelError("hotkey: The current hotkey set '" + state.current +
                       "' is locked. Make another hotkey set current to change hotkeys.");
    for (const char* flag : {"name", "releaseName"})
        if (args.has(flag))
        {
            const std::string name = args.args(flag).at(0).text;
            if (!name.empty() && !state.named.count(name))
                throw MelError("hotkey: No named command '" + name + "'.");
        }
    Binding& binding = set.keys[combo];
    // An empty name unbinds.
    if (args.has("name"))
        binding.press = args.args("name").at(0).text;
    if (args.has("releaseName"))
        binding.release = args.args("releaseName").at(0).text;
    if (binding.press.empty() && binding.release.empty())
        set.keys.erase(combo);
    return MelValue::none();
}

// --- savePrefs -hotkeys -------------------------------------------------------------

// Maya's user preferences: $MAYA_APP_DIR/2022/prefs, else ~/maya/2022/prefs.
QString prefsFolder()
{
    const char* appDir = std::getenv("MAYA_APP_DIR");
    const QString base = appDir && *appDir ? QString(appDir) : QDir::home().filePath("maya");
    return QDir(base).filePath("2022/prefs");
}

bool writeFile(const QString& path, const std::string& text)
{
    // Written beside, then moved over, so a failure leaves the old file whole.
    const std::string temporary = (path + ".tmp").toStdString();
    {
        std::ofstream file(temporary, std::ios::binary | std::ios::trunc);
        if (!(file << text) || !file.flush())
            return false;
    }
    return std::rename(temporary.c_str(), path.toStdString().c_str()) == 0;
}

MelValue savePrefs(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words, {{"hk", "hotkeys", 0}});
    if (!args.positional().empty())
        throw MelError("savePrefs: Too many arguments.");
    const Hotkeys& state = hotkeys();
    const QDir prefs(prefsFolder());
    if (!prefs.mkpath("hotkeys"))
        throw MelError("savePrefs: Cannot create " + prefs.filePath("hotkeys").toStdString());
    std::string named;
    for (const auto& [name, command] : state.named)
        named += "nameCommand -annotation " + quoted(command.annotation) + " -sourceType " +
                 (command.python ? "\"python\"" : "\"mel\"") + " -command " + quoted(command.command) + " " +
                 quoted(name) + ";\n";
    bool ok = writeFile(prefs.filePath("userNamedCommands.mel"), named);
    for (const auto& [name, set] : state.sets)
    {
        if (set.locked)
            continue;
        std::string keys = "hotkeySet -source " + quoted(kDefaultSet) + " " + quoted(name) + ";\n";
        keys += "hotkeySet -e -current " + quoted(name) + ";\n";
        for (const auto& [combo, binding] : set.keys)
            keys += "hotkey -keyShortcut " + quoted(keyName(combo)) + (combo.ctl ? " -ctl" : "") +
                    (combo.alt ? " -alt" : "") + (combo.sht && !(combo.key >= Qt::Key_A && combo.key <= Qt::Key_Z) ? " -sht" : "") +
                    (combo.cmd ? " -cmd" : "") + " -name " + quoted(binding.press) + " -releaseName " +
                    quoted(binding.release) + ";\n";
        ok = writeFile(prefs.filePath("hotkeys/" + QString::fromStdString(name) + ".mhk"), keys) && ok;
    }
    if (!ok)
        throw MelError("savePrefs: Cannot write the hotkey preferences in " + prefs.path().toStdString());
    return MelValue::none();
}

BuiltinRegistrar hotkeySetCommand("hotkeySet", hotkeySet);
BuiltinRegistrar nameCommandCommand("nameCommand", nameCommand);
BuiltinRegistrar hotkeyCommand("hotkey", hotkey);
BuiltinRegistrar savePrefsCommand("savePrefs", savePrefs);

// --- key events ---------------------------------------------------------------------

void runNamed(const std::string& name)
{
    const auto found = hotkeys().named.find(name);
    if (found == hotkeys().named.end())
    {
        runMel("error " + quoted("No named command '" + name + "'."));
        return;
    }
    const NamedCommand& named = found->second;
    runMel(named.python ? "python(" + quoted(named.command) + ")" : named.command);
}

// Typing in a text field is not a hotkey.
bool isTextField(const QObject* object)
{
    return qobject_cast<const QLineEdit*>(object) || qobject_cast<const QAbstractSpinBox*>(object) ||
           qobject_cast<const QTextEdit*>(object) || qobject_cast<const QPlainTextEdit*>(object);
}

class KeyFilter : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
            return false;
        auto* key = static_cast<QKeyEvent*>(event);
        Hotkeys& state = hotkeys();
        auto held = state.down.find(key->key());
        if (event->type() == QEvent::KeyRelease)
        {
            if (held == state.down.end())
                return false;
            if (key->isAutoRepeat())
                return true; // the key is still down
            const std::string release = held->second.release;
            state.down.erase(held);
            if (!release.empty())
                runNamed(release);
            return true;
        }
        if (held != state.down.end())
            return true; // auto-repeat of a key already handled
        if (key->isAutoRepeat() || isTextField(watched))
            return false;
        const Qt::KeyboardModifiers mods = key->modifiers();
        const Combo combo{key->key(), mods.testFlag(Qt::ControlModifier), mods.testFlag(Qt::AltModifier),
                          mods.testFlag(Qt::ShiftModifier), mods.testFlag(Qt::MetaModifier)};
        const HotkeySet& set = state.sets.at(state.current);
        const auto found = set.keys.find(combo);
        if (found == set.keys.end())
            return false;
        // The release runs what was bound at the press, whatever the
        // modifiers are by then.
        state.down[key->key()] = found->second;
        if (!found->second.press.empty())
            runNamed(found->second.press);
        return true;
    }
};

} // namespace

void installHotkeys(QObject* owner)
{
    hotkeys().down.clear();
    qApp->installEventFilter(new KeyFilter(owner));
}

} // namespace mayasim::gui
