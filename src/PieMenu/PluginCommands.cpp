#include "PieMenu/PluginCommands.h"

#include "PieMenu/Manager.h"
#include "Ui/MotionTrailBtn.h"
#include "Ui/RangeOverlay.h"
#include "Utils/File/PluginManager.h"

#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>

#include <QApplication>
#include <QJsonArray>
#include <QJsonObject>
#include <QKeyEvent>
#include <QKeySequence>
#include <QTimer>
#include <QWidget>

namespace PieMenu {

namespace {

enum Row
{
    // Rows 0 to 6 set tangents, 21 to 25 reset: both act on the highlighted range.
    LastTangentRow = 6,
    ResetRow = 21,
    MotionTrailRow = 19,
    MoveKeysLeftRow = 15,
    MoveKeysRightRow = 16,
    ResetAllRow = 25,
    PanelRow = 32,
    SelectionSetPanelRow = 33
};

// Whether rows 15 and 16 jump to the new time: the retiming button's choice
// in the panel's file, read at each run; yes when there is none.
bool jumpToNewTime()
{
    const QJsonObject prefs
        = File::IO::readValue(File::PluginManager::pluginFilePath(QStringLiteral("prefs.json")), File::Format::Json)
              .toObject();
    for (const QJsonValue& widget : prefs.value(QStringLiteral("widgets")).toArray()) {
        const QJsonObject entry = widget.toObject();
        if (entry.value(QStringLiteral("kind")).toString() == QLatin1String("retimingBtn"))
            return entry.value(QStringLiteral("jumpToNewTime")).toBool(true);
    }
    return true;
}

void runMel(const QString& text, bool display)
{
    MGlobal::executeCommand(MString(text.toUtf8().constData()), display, true);
}

} // namespace

const QVector<PluginCommand>& pluginCommands()
{
    static const QVector<PluginCommand> rows = [] {
        const QString tangentCommand = QStringLiteral("OVTangent -blendType %1 -inTangent -outTangent");
        const QString opposite = QStringLiteral(":/select_opposite.png");
        const QString temp = QStringLiteral(":/temp_pivot.png");
        const QString reset = QStringLiteral(":/reset.png");
        const QString trail = QStringLiteral(":/motionTrailTool.png");
        const QString left = QStringLiteral(":/left_arrow.png");
        const QString right = QStringLiteral(":/right_arrow.png");
        const QString worldSpace = QStringLiteral(":/XFormWorldSpace.png");
        const QVector<std::pair<QString, QString>> labelsAndCommands = {
            {"linear tangent", tangentCommand.arg(0)},
            {"auto tangent", tangentCommand.arg(5)},
            {"spline tangent", tangentCommand.arg(4)},
            {"platue tangent", tangentCommand.arg(1)},
            {"flat tangent", tangentCommand.arg(2)},
            {"clamped tangent", tangentCommand.arg(3)},
            {"steep tangent", tangentCommand.arg(6)},
            {"mirror", "OVMirror"},
            {"select opposite", "OVSelectOpposite"},
            {"add opposite", "OVSelectOpposite -addOpposite"},
            {"deselect right", "OVSelectOpposite -deselectRight"},
            {"deselect left", "OVSelectOpposite -deselectLeft"},
            {"deselect center", "OVSelectOpposite -deselectCenter"},
            {"insert inbetween", "OVRetiming -value 1 -retimeType 3"},
            {"remove inbetween", "OVRetiming -value -1 -retimeType 3"},
            {"move keys left", "OVRetiming -value -1 -retimeType 0"},
            {"move keys right", "OVRetiming -value 1 -retimeType 0"},
            {"copy world space", "OVXFormWorldSpace"},
            {"paste world space", "OVXFormWorldSpace -paste"},
            {"motion trail", "OVMotionTrail"},
            {"delete all motion trails", "OVMotionTrail -deleteAll"},
            {"reset", "OVResetPose"},
            {"reset translate", "OVResetPose -translate"},
            {"reset rotate", "OVResetPose -rotate"},
            {"reset scale", "OVResetPose -scale"},
            {"reset translate, rotate, scale", "OVResetPose -translate -rotate -scale"},
            {"temp pivot", "OVTempPivot -enable true"},
            {"temp pivot last object", "OVTempPivot -lastObject -enable true"},
            {"temp pivot center", "OVTempPivot -center -enable true"},
            {"temp pivot world space", "OVTempPivot -worldSpace -enable true"},
            {"temp pivot reset pivot", "OVTempPivot -reset"},
            {"temp pivot toggle edit", "OVTempPivot -toggleEdit"},
            {"orvane", "orvane"},
            {"selection set", "OVSelectionSetUi"},
            {"animation offset", "OVAnimationOffset"},
        };
        const QStringList icons = {
            ":/Tangent/linear.png", ":/Tangent/auto.png", ":/Tangent/spline.png", ":/Tangent/plateau.png",
            ":/Tangent/flat.png",   ":/Tangent/clamped.png", ":/Tangent/step.png", ":/mirror.png",
            opposite,               opposite,              opposite,               opposite,
            opposite,               right,                 left,                   left,
            right,                  worldSpace,            worldSpace,             trail,
            trail,                  reset,                 reset,                  reset,
            reset,                  reset,                 temp,                   temp,
            temp,                   temp,                  temp,                   temp,
            QString(),              ":/select.png",        ":/animation_offset.png"};
        QVector<PluginCommand> table;
        for (int row = 0; row < labelsAndCommands.size(); ++row)
            table.append({row, labelsAndCommands[row].first, labelsAndCommands[row].second, icons[row]});
        return table;
    }();
    return rows;
}

const PluginCommand* pluginCommand(int index)
{
    const QVector<PluginCommand>& rows = pluginCommands();
    return index >= 0 && index < rows.size() ? &rows[index] : nullptr;
}

void runSlice(const Slice& slice)
{
    if (slice.commandLanguage == Hotkey) {
        sendKeys(slice.commandText);
        return;
    }
    const PluginCommand* row = pluginCommand(slice.pluginCommandIndex);
    if (row && (row->id == PanelRow || row->id == SelectionSetPanelRow)) {
        // The panel comes up under the mouse.
        runMel(row->command, true);
        runMel(row->command + QStringLiteral(" -moveUI"), true);
        return;
    }
    if (row && row->id == MotionTrailRow) {
        // The trail looks like one made from the panel's button.
        Ui::applyTrailStyle(Ui::readTrailStyle());
        return;
    }
    QString text = row ? row->command : slice.commandText.trimmed();
    if (row && (row->id == MoveKeysLeftRow || row->id == MoveKeysRightRow) && jumpToNewTime())
        text += QStringLiteral(" -JumpToNewTime");
    if (text.isEmpty())
        return;
    if (row && (row->id <= LastTangentRow || (row->id >= ResetRow && row->id <= ResetAllRow)))
        Ui::runWithRangeOverlay(MString(text.toUtf8().constData()), row->id != ResetAllRow, true);
    else if (row || slice.commandLanguage == Mel)
        runMel(text, true);
    else
        MGlobal::executePythonCommand(MString(text.toUtf8().constData()), true, true);
}

void sendKeys(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return;
    QKeySequence sequence(trimmed);
    if (sequence.isEmpty())
        sequence = QKeySequence(Manager::normalizeHotkey(trimmed));
    if (sequence.isEmpty())
        return;
    const int combination = sequence[0];
    const int key = combination & 0x1ffffff;
    const Qt::KeyboardModifiers modifiers(combination & ~0x1ffffff);
    QWidget* window = MQtUtil::mainWindow();
    if (!window)
        return;
    // After the present event, so the key lands where the user is now.
    QTimer::singleShot(0, window, [key, modifiers] {
        QWidget* target = QApplication::focusWidget();
        if (!target)
            target = MQtUtil::mainWindow();
        if (!target)
            return;
        QApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, key, modifiers));
        QApplication::postEvent(target, new QKeyEvent(QEvent::KeyRelease, key, modifiers));
    });
}

} // namespace PieMenu
