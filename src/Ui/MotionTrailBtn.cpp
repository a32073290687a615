#include "Ui/MotionTrailBtn.h"

#include "MotionTrail/Cmd.h"
#include "Utils/File/PluginManager.h"

#include <maya/MGlobal.h>

#include <QActionGroup>
#include <QColorDialog>
#include <QInputDialog>
#include <QJsonArray>
#include <QJsonObject>
#include <QMenu>

namespace Ui {

namespace {

QString prefsPath() { return File::PluginManager::pluginFilePath(QStringLiteral("motionTrail_prefs.json")); }

// The range of the size dialogs.
const double MinimumSize = 0.1;
const double MaximumSize = 2147483647.0;

struct BoolKey
{
    const char* key;
    bool TrailStyle::*field;
};
struct DoubleKey
{
    const char* key;
    double TrailStyle::*field;
};
struct ColourKey
{
    const char* key;
    QColor TrailStyle::*field;
};

const BoolKey BoolKeys[] = {{"cameraSpace", &TrailStyle::cameraSpace},
                            {"showLine", &TrailStyle::showLine},
                            {"showPoints", &TrailStyle::showPoints},
                            {"pointsStyle", &TrailStyle::pointsStyle},
                            {"lineStyle", &TrailStyle::lineStyle},
                            {"showCurrentFrame", &TrailStyle::showCurrentFrame},
                            {"transparencyFalloff", &TrailStyle::transparencyFalloff}};
const DoubleKey DoubleKeys[] = {{"lineSize", &TrailStyle::lineSize},
                                {"pointsSize", &TrailStyle::pointsSize},
                                {"currentFrameSize", &TrailStyle::currentFrameSize}};
const ColourKey ColourKeys[] = {{"mainLineColor", &TrailStyle::mainLineColor},
                                {"secondaryLineColor", &TrailStyle::secondaryLineColor},
                                {"pointsColor", &TrailStyle::pointsColor},
                                {"currentFrameColor", &TrailStyle::currentFrameColor}};

MString flagText(const char* flag) { return MotionTrail::CommandName + " " + flag + " "; }

// Components from 0 to 1, as Maya writes numbers.
MString colourText(const QColor& colour)
{
    MString text;
    text += colour.red() / 255.0;
    text += " ";
    text += colour.green() / 255.0;
    text += " ";
    text += colour.blue() / 255.0;
    return text;
}

MString numberText(double value)
{
    MString text;
    text += value;
    return text;
}

} // namespace

// A hand-edited value of the wrong type, or outside what the menu can set,
// leaves that key's default.
TrailStyle readTrailStyle()
{
    TrailStyle style;
    const QJsonObject stored = File::IO::readValue(prefsPath(), File::Format::Json).toObject();
    for (const BoolKey& entry : BoolKeys)
        style.*entry.field = stored.value(QLatin1String(entry.key)).toBool(style.*entry.field);
    for (const DoubleKey& entry : DoubleKeys) {
        const double size = stored.value(QLatin1String(entry.key)).toDouble(style.*entry.field);
        if (size >= MinimumSize && size <= MaximumSize)
            style.*entry.field = size;
    }
    for (const ColourKey& entry : ColourKeys) {
        const QJsonArray rgb = stored.value(QLatin1String(entry.key)).toArray();
        if (rgb.size() < 3)
            continue;
        int components[3];
        bool valid = true;
        for (int i = 0; i < 3 && valid; ++i) {
            const double component = rgb[i].toDouble(-1.0);
            valid = component >= 0.0 && component <= 255.0;
            components[i] = qRound(component);
        }
        if (valid)
            style.*entry.field = QColor(components[0], components[1], components[2]);
    }
    return style;
}

void writeTrailStyle(const TrailStyle& style)
{
    QJsonObject stored;
    for (const BoolKey& entry : BoolKeys)
        stored.insert(QLatin1String(entry.key), style.*entry.field);
    for (const DoubleKey& entry : DoubleKeys)
        stored.insert(QLatin1String(entry.key), style.*entry.field);
    for (const ColourKey& entry : ColourKeys) {
        const QColor& colour = style.*entry.field;
        stored.insert(QLatin1String(entry.key), QJsonArray{colour.red(), colour.green(), colour.blue()});
    }
    File::IO::writeValue(stored, prefsPath(), File::Format::Json);
}

void applyTrailStyle(const TrailStyle& style)
{
    const auto run = [](const MString& text) { MGlobal::executeCommand(text, false, false); };
    run(MotionTrail::CommandName);
    run(flagText("-showLine") + (style.showLine ? "1" : "0"));
    run(flagText("-showPoints") + (style.showPoints ? "1" : "0"));
    run(flagText("-lineStyle") + (style.lineStyle ? "1" : "0"));
    run(flagText("-pointsStyle") + (style.pointsStyle ? "1" : "0"));
    run(flagText("-pointsSize") + numberText(style.pointsSize));
    run(flagText("-lineSize") + numberText(style.lineSize));
    run(flagText("-pointsColor") + colourText(style.pointsColor));
    run(flagText("-mainLineColor") + colourText(style.mainLineColor));
    run(flagText("-secondaryLineColor") + colourText(style.secondaryLineColor));
    run(flagText("-currentFrameColor") + colourText(style.currentFrameColor));
    run(flagText("-showCurrentFrame") + (style.showCurrentFrame ? "1" : "0"));
    run(flagText("-currentFrameSize") + numberText(style.currentFrameSize));
    run(flagText("-cameraSpace") + (style.cameraSpace ? "1" : "0"));
    run(flagText("-transparencyFalloff") + (style.transparencyFalloff ? "1" : "0"));
}

MotionTrailBtn::MotionTrailBtn(QWidget* parent)
    : ToolButton(QStringLiteral("motion trail"), QStringLiteral(":/motionTrailTool.png"), parent),
      style(readTrailStyle())
{
    connect(this, &QPushButton::pressed, this, [this] {
        if (ctrlAndShift())
            removeAll();
        else
            applyTrailStyle(style);
    });
    menu->setTearOffEnabled(true);
    cameraSpace = addToggle(QStringLiteral("Camera Space Mode"), &TrailStyle::cameraSpace, "-cameraSpace");
    menu->addSeparator();
    addToggle(QStringLiteral("Show Line"), &TrailStyle::showLine, "-showLine");
    auto* lines = new QActionGroup(this);
    auto* points = new QActionGroup(this);
    const auto addChoice = [this](QActionGroup* group, const QString& text, bool TrailStyle::*field, bool value,
                                  const char* flag) {
        QAction* action = menu->addAction(text);
        action->setCheckable(true);
        action->setChecked(style.*field == value);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, field, value, flag] {
            style.*field = value;
            send(flagText(flag) + (value ? "true" : "false"));
        });
    };
    addChoice(lines, QStringLiteral("Solid Line"), &TrailStyle::lineStyle, true, "-lineStyle");
    addChoice(lines, QStringLiteral("Dash Line"), &TrailStyle::lineStyle, false, "-lineStyle");
    addColour(QStringLiteral("Main Line Color"), &TrailStyle::mainLineColor, "-mainLineColor");
    addColour(QStringLiteral("Secondary Line Color"), &TrailStyle::secondaryLineColor, "-secondaryLineColor");
    addSize(QStringLiteral("Line Size"), &TrailStyle::lineSize, "-lineSize");
    menu->addSeparator();
    addToggle(QStringLiteral("Show Points"), &TrailStyle::showPoints, "-showPoints");
    addChoice(points, QStringLiteral("Squares Points"), &TrailStyle::pointsStyle, false, "-pointsStyle");
    addChoice(points, QStringLiteral("Circles Points"), &TrailStyle::pointsStyle, true, "-pointsStyle");
    addColour(QStringLiteral("Points Color"), &TrailStyle::pointsColor, "-pointsColor");
    addSize(QStringLiteral("Points Size"), &TrailStyle::pointsSize, "-pointsSize");
    menu->addSeparator();
    addToggle(QStringLiteral("Show Current Frame"), &TrailStyle::showCurrentFrame, "-showCurrentFrame");
    addColour(QStringLiteral("Current Frame Color"), &TrailStyle::currentFrameColor, "-currentFrameColor");
    addSize(QStringLiteral("Current Frame Size"), &TrailStyle::currentFrameSize, "-currentFrameSize");
    addToggle(QStringLiteral("Transparency Falloff"), &TrailStyle::transparencyFalloff, "-transparencyFalloff");
    menu->addSeparator();
    connect(menu->addAction(QIcon(QStringLiteral(":motionTrailRemove.png")), QStringLiteral("Remove All<Ctrl+Shift>")),
            &QAction::triggered, this, &MotionTrailBtn::removeAll);
    menu->addSeparator();
    addDeleteEntry();
}

QAction* MotionTrailBtn::addToggle(const QString& text, bool TrailStyle::*field, const char* flag)
{
    QAction* action = menu->addAction(text);
    action->setCheckable(true);
    action->setChecked(style.*field);
    connect(action, &QAction::toggled, this, [this, action, field, flag](bool on) {
        // A trail is never left with neither its line nor its points.
        const bool line = field == &TrailStyle::showLine;
        if (!on && (line || field == &TrailStyle::showPoints) && !(line ? style.showPoints : style.showLine)) {
            style.*field = true;
            {
                const QSignalBlocker blocker(action);
                action->setChecked(true);
            }
            send(flagText(flag) + "true");
            return;
        }
        style.*field = on;
        send(flagText(flag) + (on ? "1" : "0"));
    });
    return action;
}

void MotionTrailBtn::addColour(const QString& text, QColor TrailStyle::*field, const char* flag)
{
    connect(menu->addAction(QIcon(QStringLiteral(":/color_wheel.png")), text), &QAction::triggered, this,
            [this, field, flag] {
                const QColor colour = QColorDialog::getColor(style.*field, this);
                if (!colour.isValid())
                    return;
                style.*field = colour;
                send(flagText(flag) + colourText(colour));
            });
}

void MotionTrailBtn::addSize(const QString& text, double TrailStyle::*field, const char* flag)
{
    connect(menu->addAction(text), &QAction::triggered, this, [this, text, field, flag] {
        bool ok = false;
        const double size = QInputDialog::getDouble(this, text, QStringLiteral("Size"), style.*field, MinimumSize,
                                                    MaximumSize, 1, &ok);
        if (!ok)
            return;
        if (size <= 0) {
            writeTrailStyle(style);
            return;
        }
        style.*field = size;
        send(flagText(flag) + numberText(size));
    });
}

void MotionTrailBtn::send(const MString& command)
{
    MGlobal::executeCommandOnIdle(command, false);
    writeTrailStyle(style);
}

void MotionTrailBtn::removeAll()
{
    style.cameraSpace = false;
    {
        const QSignalBlocker blocker(cameraSpace);
        cameraSpace->setChecked(false);
    }
    send(MotionTrail::CommandName + " -deleteAll");
}

} // namespace Ui
