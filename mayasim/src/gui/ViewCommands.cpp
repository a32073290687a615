// The commands of Maya's panels and views: getPanel, modelEditor, refresh
// and playblast, on the GUI host's model panels. Batch mode has no panels:
// getPanel answers nothing, refresh does nothing, the others fail.
#include "engine/Command.h"
#include "gui/GraphEditor.h"
#include "gui/GuiHost.h"
#include "gui/Viewports.h"
#include "gui/WorkspaceControls.h"
#include "scene/Scene.h"
#include "scene/Selection.h"

#include <maya/MAnimControl.h>
#include <maya/MTime.h>
#include <mayasim/Host.h>

#include <QtCore/QCoreApplication>
#include <QtGui/QCursor>
#include <QtWidgets/QApplication>

#include <algorithm>

namespace mayasim::gui {

namespace {

const char* const kModelPanel = "modelPanel";

const char* const kScriptedPanel = "scriptedPanel";

// A panel by its name, or the panel whose widget holds `widget`.
QWidget* panelHolding(QWidget* widget)
{
    for (; widget; widget = widget->parentWidget())
        if (dynamic_cast<ModelPanel*>(widget) || widget == graphEditor())
            return widget;
    return nullptr;
}

std::string nameOf(const QWidget* panel)
{
    return panel ? panel->objectName().toStdString() : "";
}

std::vector<std::string> panelNames(bool models, bool scripted)
{
    std::vector<std::string> names;
    if (models)
        for (ModelPanel* panel : modelPanels())
            names.push_back(nameOf(panel));
    if (scripted && graphEditor())
        names.push_back(nameOf(graphEditor()));
    return names;
}

MelValue getPanel(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"typ", "type", 1}, {"sty", "scriptType", 1}, {"all", "all", 0}, {"wf", "withFocus", 0},
                           {"up", "underPointer", 0}, {"to", "typeOf", 1}, {"vis", "visiblePanels", 0}});
    if (args.has("typeOf"))
    {
        const std::string name = args.args("typeOf").at(0).text;
        if (modelPanel(name))
            return MelValue::ofString(kModelPanel);
        if (graphEditor() && name == nameOf(graphEditor()))
            return MelValue::ofString(kScriptedPanel);
        throw MelError(call.name + ": Object '" + name + "' not found.");
    }
    if (args.has("withFocus"))
        return MelValue::ofString(nameOf(focusedPanel()));
    if (args.has("underPointer"))
        return MelValue::ofString(mainWindow() ? nameOf(panelHolding(QApplication::widgetAt(QCursor::pos()))) : "");
    if (args.has("type"))
    {
        const std::string type = args.args("type").at(0).text;
        return MelValue::ofStrings(panelNames(type == kModelPanel, type == kScriptedPanel));
    }
    if (args.has("scriptType"))
        return MelValue::ofStrings(panelNames(false, args.args("scriptType").at(0).text == "graphEditor"));
    std::vector<std::string> names = panelNames(true, true);
    if (args.has("visiblePanels"))
        names.erase(std::remove_if(names.begin(), names.end(),
                                   [](const std::string& name) {
                                       QWidget* panel = modelPanel(name);
                                       if (!panel)
                                           panel = graphEditor();
                                       return !panel->isVisible();
                                   }),
                    names.end());
    return MelValue::ofStrings(names);
}

ModelPanel* requirePanel(const Invocation& call, const ParsedArgs& args)
{
    requireInterface(call.name);
    if (args.positional().size() != 1)
        throw MelError(call.name + ": Wrong number of arguments.");
    const std::string name = args.positional()[0].text;
    ModelPanel* panel = modelPanel(name);
    if (!panel)
        throw MelError(call.name + ": Object '" + name + "' not found.");
    return panel;
}

// A camera by the name of its transform or its shape.
MDagPath cameraNamed(const std::string& command, const std::string& name)
{
    const NodePtr node = scene::find(name);
    if (!node || !node->isDag())
        throw MelError(command + ": Object '" + name + "' not found.");
    MDagPath path = pathTo(*node);
    unsigned int shapes = 0;
    if (!node->hasFn(MFn::kCamera) && path.numberOfShapesDirectlyBelow(shapes) && shapes > 0)
        path.extendToShape();
    if (!path.node().hasFn(MFn::kCamera))
        throw MelError(command + ": '" + name + "' is not a camera.");
    return path;
}

MelValue modelEditor(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0}, {"e", "edit", 0}, {"cam", "camera", 1}, {"mt", "motionTrails", 1},
                           {"lc", "locators", 1}, {"gr", "grid", 1}});
    ModelPanel* panel = requirePanel(call, args);
    if (args.has("query"))
    {
        if (args.has("camera"))
        {
            MDagPath transform = panel->camera();
            transform.pop();
            return MelValue::ofString(transform.partialPathName().asChar());
        }
        if (args.has("motionTrails"))
            return MelValue::ofInt(panel->motionTrails);
        if (args.has("locators"))
            return MelValue::ofInt(panel->locators);
        if (args.has("grid"))
            return MelValue::ofInt(panel->grid);
        throw MelError(call.name + ": Nothing to query.");
    }
    if (!args.has("edit"))
        throw MelError(call.name + ": Object's name '" + panel->objectName().toStdString() + "' is not unique.");
    // Everything is read before anything changes, so a bad word changes nothing.
    const std::optional<MDagPath> camera =
        args.has("camera") ? std::optional(cameraNamed(call.name, args.args("camera").at(0).text)) : std::nullopt;
    const auto flag = [&args](const char* name, bool& value) {
        if (args.has(name))
            value = args.args(name).at(0).boolean();
    };
    bool motionTrails = panel->motionTrails, locators = panel->locators, grid = panel->grid;
    flag("motionTrails", motionTrails);
    flag("locators", locators);
    flag("grid", grid);
    panel->motionTrails = motionTrails;
    panel->locators = locators;
    panel->grid = grid;
    if (camera)
        panel->setCamera(*camera);
    panel->scheduleRedraw();
    modelEditorChanged();
    return MelValue::none();
}

MelValue refresh(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words, {{"f", "force", 0}, {"cv", "currentView", 0}});
    std::vector<ModelPanel*> panels = modelPanels();
    if (args.has("currentView"))
        panels = focusedModelPanel() ? std::vector<ModelPanel*>{focusedModelPanel()} : std::vector<ModelPanel*>{};
    for (ModelPanel* panel : panels)
        args.has("force") ? panel->redraw() : panel->sync();
    QCoreApplication::processEvents();
    return MelValue::none();
}

// Frames of the playback range (or -startTime/-endTime) drawn one by one in
// the view with focus, each saved as "<filename>.<frame>.png" when a file
// is named, with the "playblasting" condition on meanwhile.
MelValue playblast(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"st", "startTime", 1}, {"et", "endTime", 1}, {"f", "filename", 1}, {"fmt", "format", 1},
                           {"v", "viewer", 1}, {"fo", "forceOverwrite", 0}, {"orn", "showOrnaments", 1},
                           {"p", "percent", 1}, {"c", "compression", 1}, {"qlt", "quality", 1},
                           {"os", "offScreen", 0}, {"cc", "clearCache", 1}});
    requireInterface(call.name);
    ModelPanel* panel = focusedModelPanel();
    if (!panel)
        throw MelError(call.name + ": There is no view to playblast.");
    if (args.has("format") && args.args("format").at(0).text != "image")
        throw MelError(call.name + ": Format '" + args.args("format").at(0).text + "' is not supported.");
    const MTime::Unit unit = MTime::uiUnit();
    const double first = args.has("startTime") ? args.args("startTime").at(0).number()
                                               : MAnimControl::minTime().as(unit);
    const double last = args.has("endTime") ? args.args("endTime").at(0).number() : MAnimControl::maxTime().as(unit);
    if (!(first <= last) || last - first > 100000)
        throw MelError(call.name + ": The start time must come before the end time.");
    const std::string filename = args.has("filename") ? args.args("filename").at(0).text : "";
    const MTime before = MAnimControl::currentTime();
    host::setCondition("playblasting", true);
    std::string failed;
    for (double frame = first; frame <= last && failed.empty(); frame += 1)
    {
        MAnimControl::setCurrentTime(MTime(frame, unit));
        panel->redraw();
        if (!filename.empty())
        {
            const QString path = QString("%1.%2.png").arg(QString::fromStdString(filename)).arg(static_cast<long>(frame), 4, 10, QChar('0'));
            if (!panel->grab().save(path, "PNG"))
                failed = path.toStdString();
        }
    }
    MAnimControl::setCurrentTime(before);
    host::setCondition("playblasting", false);
    panel->redraw();
    if (!failed.empty())
        throw MelError(call.name + ": Cannot write '" + failed + "'.");
    return MelValue::ofString(filename.empty() ? "" : filename + ".####.png");
}

// Maya's panel layouts by name (a MEL procedure in Maya): the perspective
// view alone, or the four views.
MelValue setNamedPanelLayout(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words, {});
    requireInterface(call.name);
    if (args.positional().size() != 1)
        throw MelError(call.name + ": Wrong number of arguments.");
    const std::string layout = args.positional()[0].text;
    if (layout == "Single Perspective View")
        showPanels(modelPanel("modelPanel4"));
    else if (layout == "Four View")
        showPanels(nullptr);
    else
        throw MelError(call.name + ": No panel layout '" + layout + "'.");
    QCoreApplication::processEvents();
    return MelValue::none();
}

BuiltinRegistrar getPanelCommand("getPanel", getPanel);
BuiltinRegistrar setNamedPanelLayoutCommand("setNamedPanelLayout", setNamedPanelLayout);
BuiltinRegistrar modelEditorCommand("modelEditor", modelEditor);
BuiltinRegistrar refreshCommand("refresh", refresh);
BuiltinRegistrar playblastCommand("playblast", playblast);

} // namespace

} // namespace mayasim::gui
