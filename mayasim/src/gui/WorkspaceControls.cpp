// The workspaceControl command: a control is a QDockWidget that floats as a
// window titled by its label or docks into the main window; its widget,
// named after the control, is what the uiScript fills.
#include "gui/WorkspaceControls.h"

#include "engine/Command.h"
#include "gui/GuiHost.h"

#include <QtCore/QPointer>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QLayout>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QVBoxLayout>

#include <map>

namespace mayasim::gui {

namespace {

struct Control
{
    QPointer<QDockWidget> dock;
    QPointer<QWidget> widget;
    std::string uiScript;
    std::vector<std::string> requiredPlugins;
    bool retain = true;
    bool deleteLater = true;
};

std::map<std::string, Control>& controls()
{
    static std::map<std::string, Control> registry;
    return registry;
}

// A control whose widgets are gone (closed without -retain) no longer exists.
Control* find(const std::string& name)
{
    auto found = controls().find(name);
    if (found == controls().end())
        return nullptr;
    if (!found->second.dock || !found->second.widget)
    {
        controls().erase(found);
        return nullptr;
    }
    return &found->second;
}

void runUiScript(const Control& control)
{
    if (!control.uiScript.empty())
        runMel(control.uiScript);
}

Qt::DockWidgetArea dockArea(const std::string& word)
{
    if (word == "left")
        return Qt::LeftDockWidgetArea;
    if (word == "top")
        return Qt::TopDockWidgetArea;
    if (word == "bottom")
        return Qt::BottomDockWidgetArea;
    if (word == "right")
        return Qt::RightDockWidgetArea;
    throw MelError("workspaceControl: Invalid dock position: " + word);
}

void setFloating(Control& control, bool floating, Qt::DockWidgetArea area = Qt::RightDockWidgetArea)
{
    if (!floating)
    {
        mainWindow()->addDockWidget(area, control.dock);
        // On the right it takes a tab beside the channel box, as Maya's
        // panels do.
        auto* channelBox = mainWindow()->findChild<QDockWidget*>("ChannelBoxLayerEditor");
        if (area == Qt::RightDockWidgetArea && channelBox && channelBox != control.dock.data())
            mainWindow()->tabifyDockWidget(channelBox, control.dock);
    }
    control.dock->setFloating(floating);
    if (!floating)
        control.dock->raise();
}

void close(const std::string& name, Control& control)
{
    if (control.retain)
    {
        control.dock->hide();
        return;
    }
    QDockWidget* dock = control.dock;
    const bool later = control.deleteLater;
    controls().erase(name);
    if (later)
        dock->deleteLater();
    else
        delete dock;
}

MelValue create(const std::string& name, const ParsedArgs& args)
{
    if (find(name) || findWidget(QString::fromStdString(name)))
        throw MelError("workspaceControl: Object's name '" + name + "' is not unique.");
    Control control;
    auto* dock = new QDockWidget(mainWindow());
    dock->setObjectName(QString::fromStdString(name) + "DockWidget");
    auto* widget = new QWidget(dock);
    widget->setObjectName(QString::fromStdString(name));
    auto* layout = new QVBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    dock->setWidget(widget);
    dock->setWindowTitle(QString::fromStdString(args.has("label") ? args.args("label").at(0).text : name));
    control.dock = dock;
    control.widget = widget;
    if (args.has("retain"))
        control.retain = args.args("retain").at(0).boolean();
    if (args.has("deleteLater"))
        control.deleteLater = args.args("deleteLater").at(0).boolean();
    if (args.has("uiScript"))
        control.uiScript = args.args("uiScript").at(0).text;
    for (const auto& use : args.uses("requiredPlugin"))
        control.requiredPlugins.push_back(use.at(0).text);
    if (args.has("loadImmediately"))
        args.args("loadImmediately").at(0).boolean(); // the host loads every control at once
    const int width = args.has("initialWidth") ? static_cast<int>(args.args("initialWidth").at(0).integer()) : 300;
    const int height = args.has("initialHeight") ? static_cast<int>(args.args("initialHeight").at(0).integer()) : 400;
    dock->resize(width, height);
    Control& stored = controls()[name] = control;
    // A new control floats unless told to dock.
    if (args.has("dockToMainWindow"))
        setFloating(stored, false, dockArea(args.args("dockToMainWindow").at(0).text));
    else
        setFloating(stored, args.has("floating") ? args.args("floating").at(0).boolean() : true);
    dock->show();
    dock->raise();
    runUiScript(stored);
    return MelValue::ofString(fullName(widget).toStdString());
}

MelValue query(const Control& control, const ParsedArgs& args)
{
    if (args.has("floating"))
        return MelValue::ofInt(control.dock->isFloating() ? 1 : 0);
    if (args.has("visible"))
        return MelValue::ofInt(control.dock->isVisible() ? 1 : 0);
    if (args.has("label"))
        return MelValue::ofString(control.dock->windowTitle().toStdString());
    if (args.has("uiScript"))
        return MelValue::ofString(control.uiScript);
    if (args.has("retain"))
        return MelValue::ofInt(control.retain ? 1 : 0);
    if (args.has("requiredPlugin"))
        return MelValue::ofStrings(control.requiredPlugins);
    throw MelError("workspaceControl: Nothing to query.");
}

void edit(const std::string& name, Control& control, const ParsedArgs& args)
{
    if (args.has("label"))
        control.dock->setWindowTitle(QString::fromStdString(args.args("label").at(0).text));
    if (args.has("uiScript"))
        control.uiScript = args.args("uiScript").at(0).text;
    if (args.has("retain"))
        control.retain = args.args("retain").at(0).boolean();
    if (args.has("dockToMainWindow"))
        setFloating(control, false, dockArea(args.args("dockToMainWindow").at(0).text));
    if (args.has("floating"))
        setFloating(control, args.args("floating").at(0).boolean());
    if (args.has("restore"))
    {
        control.dock->show();
        control.dock->raise();
    }
    if (args.has("visible"))
        control.dock->setVisible(args.args("visible").at(0).boolean());
    if (args.has("close"))
        close(name, control);
}

MelValue workspaceControlCommand(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0},
                           {"e", "edit", 0},
                           {"ex", "exists", 0},
                           {"l", "label", 1},
                           {"rt", "retain", 1},
                           {"dl", "deleteLater", 1},
                           {"li", "loadImmediately", 1},
                           {"fl", "floating", 1},
                           {"rp", "requiredPlugin", 1},
                           {"ui", "uiScript", 1},
                           {"cl", "close", 0},
                           {"vis", "visible", 1},
                           {"rs", "restore", 0},
                           {"dtm", "dockToMainWindow", 2},
                           {"iw", "initialWidth", 1},
                           {"ih", "initialHeight", 1}});
    requireInterface(call.name);
    if (args.positional().size() != 1)
        throw MelError("workspaceControl: Wrong number of arguments.");
    const std::string name = args.positional()[0].text;
    if (args.has("exists"))
        return MelValue::ofInt(find(name) ? 1 : 0);
    if (!args.has("query") && !args.has("edit"))
        return create(name, args);
    Control* control = find(name);
    if (!control)
        throw MelError("workspaceControl: Object '" + name + "' not found.");
    if (args.has("query"))
        return query(*control, args);
    // The path before the edit: closing may delete the control.
    const std::string path = fullName(control->widget).toStdString();
    edit(name, *control, args);
    return MelValue::ofString(path);
}

BuiltinRegistrar registrar("workspaceControl", workspaceControlCommand);

} // namespace

QWidget* workspaceControl(const std::string& name)
{
    Control* control = find(name);
    return control ? control->widget.data() : nullptr;
}

bool rebuildWorkspaceControl(const std::string& name)
{
    Control* control = find(name);
    if (!control)
        return false;
    QLayout* layout = control->widget->layout();
    while (QLayoutItem* item = layout->takeAt(0))
    {
        delete item->widget();
        delete item;
    }
    qDeleteAll(control->widget->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
    runUiScript(*control);
    return true;
}

void closeWorkspaceControls()
{
    for (auto& [name, control] : controls())
        delete control.dock;
    controls().clear();
}

void requireInterface(const std::string& command)
{
    if (!mainWindow())
        throw MelError(command + ": This command needs the interface; it is not available in batch mode.");
}

} // namespace mayasim::gui
