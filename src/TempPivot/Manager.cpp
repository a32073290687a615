#include "TempPivot/Manager.h"

#include "Utils/Arithmetic.h"
#include "Utils/File/IO.h"
#include "Utils/MayaCmds/ManipPivot.h"
#include "Utils/Nodes/Node.h"
#include "Utils/Nodes/SceneId/Manager.h"
#include "Utils/Report.h"
#include "Utils/Tasks.h"

#include <maya/MAngle.h>
#include <maya/MAnimMessage.h>
#include <maya/MDGMessage.h>
#include <maya/MDagPath.h>
#include <maya/MDistance.h>
#include <maya/MEulerRotation.h>
#include <maya/MEventMessage.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnTransform.h>
#include <maya/MGlobal.h>
#include <maya/MModelMessage.h>
#include <maya/MPlug.h>
#include <maya/MQuaternion.h>
#include <maya/MStringArray.h>
#include <maya/MTransformationMatrix.h>
#include <maya/MVector.h>

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace TempPivot {

namespace {

// The pivot's attributes whose change is a user's move of the pivot.
const char* const MoveAttributes[] = {"t", "tx", "ty", "tz", "r", "rx", "ry", "rz", "s", "sx", "sy", "sz"};

bool isMoveAttribute(const MString& name)
{
    for (const char* attribute : MoveAttributes)
        if (name == attribute)
            return true;
    return false;
}

MString partialPathName(const MObject& node)
{
    MDagPath path;
    if (!MDagPath::getAPathTo(node, path))
        return MString();
    return path.partialPathName();
}

bool isFinite(const MVector& v) { return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z); }

// "[x, y, z]" with Maya's text of each double.
MString vectorText(const MVector& v)
{
    MString text("[");
    text += v.x;
    text += ", ";
    text += v.y;
    text += ", ";
    text += v.z;
    text += "]";
    return text;
}

// The three values of a compound attribute as an Euler rotation in XYZ
// order, as a quaternion; identity when the node has no such attribute.
MQuaternion eulerAttribute(const MObject& node, const char* name)
{
    const MPlug plug = MFnDependencyNode(node).findPlug(name, false);
    if (plug.isNull())
        return MQuaternion();
    const MDoubleArray values = TransformReader::childValues(plug);
    if (values.length() < 3)
        return MQuaternion();
    return MEulerRotation(values[0], values[1], values[2], MEulerRotation::kXYZ).asQuaternion();
}

MPoint worldRotatePivot(const MObject& node) { return MFnTransform(node).rotatePivot(MSpace::kWorld); }

void setPivots(MFnTransform& transform, const MPoint& point)
{
    transform.setRotatePivot(point, MSpace::kTransform, true);
    transform.setScalePivot(point, MSpace::kTransform, true);
}

QJsonArray threeNumbers(const double values[3]) { return QJsonArray{values[0], values[1], values[2]}; }

// The three numbers of an entry's array; false unless it holds them.
bool readThree(const QJsonValue& value, double out[3])
{
    const QJsonArray array = value.toArray();
    if (array.size() != 3)
        return false;
    for (int i = 0; i < 3; ++i) {
        if (!array[i].isDouble() || !std::isfinite(array[i].toDouble()))
            return false;
        out[i] = array[i].toDouble();
    }
    return true;
}

MString utf8(const QString& text) { return MString(text.toUtf8().constData()); }

} // namespace

Manager& Manager::instance()
{
    static Manager manager;
    return manager;
}

void Manager::setModes(bool center, bool lastObject, bool worldSpace)
{
    fCenterMode = center;
    fLastObjectMode = lastObject;
    fWorldSpaceMode = worldSpace;
}

bool Manager::pivotAlive() const { return isValidObject(fPivot.object()); }

void Manager::deletePivotNode()
{
    if (!pivotAlive())
        return;
    MObject node = fPivot.object();
    MGlobal::deleteNode(node);
}

MSelectionList Manager::targetList() const
{
    MSelectionList list;
    MDagPath path;
    for (const PivotTarget& target : fTargets)
        if (isValidObject(target.object.object()) && MDagPath::getAPathTo(target.object.object(), path))
            list.add(path);
    return list;
}

QString Manager::pivotFilePath() { return SceneId::manager().scenePath(SceneId::TempPivotFolder); }

bool Manager::enable(const MSelectionList& list)
{
    fTargets.clear();
    const MObjectArray transforms = transformsOf(list);
    for (unsigned int i = 0; i < transforms.length(); ++i)
        fTargets.push_back(PivotTarget{TransformReader(transforms[i]), MMatrix()});
    if (fTargets.empty()) {
        OV_REPORT(QStringLiteral("no transfrom/s is selected"), "enable");
        return false;
    }
    attachTimeline(list);
    createPivotObject();
    followTargets();
    fActiveCallbacks.append(MModelMessage::addCallback(MModelMessage::kActiveListModified, onSelectionChanged, this));
    fActiveCallbacks.append(MDGMessage::addTimeChangeCallback(onTimeChange, this));
    fActiveCallbacks.append(MAnimMessage::addAnimCurveEditedCallback(onCurvesEdited, this));
    fActiveCallbacks.append(MEventMessage::addEventCallback("PreFileNewOrOpened", onNewScene, this));
    fActiveCallbacks.append(MEventMessage::addEventCallback("DragRelease", onDragRelease, this));
    fEnabled = true;
    return true;
}

bool Manager::disable()
{
    savePivot();
    detachTimeline();
    removeAttributeCallback();
    MMessage::removeCallbacks(fActiveCallbacks);
    fActiveCallbacks.clear();
    cancelTask(fCloseChunkTask);
    cancelTask(fRefreshMatricesTask);
    cancelTask(fFollowTask);
    // The queued close is gone with its task: a drag cut short still ends its chunk.
    fUndoChunk.close();
    deletePivotNode();
    fPivot = TransformReader(MObject::kNullObj);
    fCenterMode = fLastObjectMode = fWorldSpaceMode = fEnabled = false;
    return true;
}

bool Manager::toggleEdit()
{
    if (!fEnabled)
        return false;
    inEditMode();
    return true;
}

bool Manager::reset()
{
    if (!fEnabled || !pivotAlive())
        return false;
    MFnTransform pivot(fPivot.object());
    setPivots(pivot, MPoint::origin);
    const double zero[3] = {0.0, 0.0, 0.0};
    setManipPivotOrientation(zero);
    inEditMode();
    queueRefresh();
    return true;
}

void Manager::attachTimeline(const MSelectionList& list)
{
    MGlobal::executeCommand("toggleAutoLoad graphEditor1OutlineEd false");
    MStringArray names;
    list.getSelectionStrings(names);
    QString objects = QStringLiteral("[");
    for (unsigned int i = 0; i < names.length(); ++i) {
        if (i > 0)
            objects += QStringLiteral(", ");
        objects += QStringLiteral("\"") + QString::fromUtf8(names[i].asChar()) + QStringLiteral("\"");
    }
    objects += QStringLiteral("]");
    const QString& c = fConnectionName;
    const QString python =
        QStringLiteral("if maya.cmds.selectionConnection(\"") + c
        + QStringLiteral("\", q=True, exists=True):\n\tmaya.cmds.deleteUI(\"") + c
        + QStringLiteral("\")\nselection_connection = maya.cmds.selectionConnection(\"") + c
        + QStringLiteral("\")\nfor obj in ") + objects
        + QStringLiteral(":\n\tmaya.cmds.selectionConnection(selection_connection, edit=True, select=obj)\n"
                         "playBack_slider = maya.mel.eval('$tmpVar=$gPlayBackSlider')\n"
                         "maya.cmds.timeControl(playBack_slider, edit=True, mainListConnection=selection_connection)");
    MGlobal::executePythonCommand(utf8(python));
}

void Manager::detachTimeline()
{
    MGlobal::executeCommand("toggleAutoLoad graphEditor1OutlineEd true");
    const QString& c = fConnectionName;
    const QString python =
        QStringLiteral("playBack_slider = maya.mel.eval('$tmpVar=$gPlayBackSlider')\n"
                       "maya.cmds.timeControl(playBack_slider, e=True, mainListConnection=\"animationList\")\n"
                       "if maya.cmds.selectionConnection(\"")
        + c + QStringLiteral("\", q=True, exists=True):\n\tmaya.cmds.deleteUI(\"") + c + QStringLiteral("\")");
    MGlobal::executePythonCommand(utf8(python));
}

void Manager::createPivotObject()
{
    deletePivotNode();
    MFnDependencyNode creator;
    fPivot = TransformReader(creator.create("transform"));
    double pivot[3] = {0.0, 0.0, 0.0};
    double orientation[3] = {0.0, 0.0, 0.0};
    if (!fCenterMode && !fWorldSpaceMode) {
        alignToTarget();
        if (loadPivot(QString::fromUtf8(partialPathName(fPivot.object()).asChar()), pivot, orientation)) {
            MFnTransform transform(fPivot.object());
            setPivots(transform, MPoint(pivot[0], pivot[1], pivot[2]));
        }
    } else {
        centerOnTargets();
    }
    // The orientation found is what the next save writes back, unless a drag
    // turns the manipulator first.
    for (int i = 0; i < 3; ++i)
        fPivotOrientation[i] = orientation[i];
    MGlobal::selectByName(partialPathName(fPivot.object()), MGlobal::kReplaceList);
    inEditMode();
    if (orientation[0] != 0.0 || orientation[1] != 0.0 || orientation[2] != 0.0)
        setManipPivotOrientation(orientation);
}

void Manager::alignToTarget()
{
    MFnTransform pivot(fPivot.object());
    const MPoint ownPivot = pivot.rotatePivot(MSpace::kTransform);
    setPivots(pivot, MPoint::origin);
    PivotTarget& target = fLastObjectMode ? fTargets.back() : fTargets.front();
    MTransformationMatrix placement(target.object.worldMatrix());
    placement.setTranslation(MVector(worldRotatePivot(target.object.object())), MSpace::kWorld);
    pivot.set(placement);
    setPivots(pivot, ownPivot);
}

void Manager::centerOnTargets()
{
    MFnTransform pivot(fPivot.object());
    setPivots(pivot, MPoint::origin);
    MVector sum;
    for (const PivotTarget& target : fTargets)
        sum += MVector(worldRotatePivot(target.object.object()));
    pivot.setTranslation(sum / static_cast<double>(fTargets.size()), MSpace::kWorld);
}

void Manager::storeRelativeMatrices()
{
    if (!pivotAlive())
        return;
    // A pivot scaled to nothing has no inverse: the matrices taken before
    // stay, so that scaling it back brings the targets back.
    const MMatrix pivotMatrix = fPivot.worldMatrix();
    if (!(std::abs(pivotMatrix.det4x4()) > 1e-12))
        return;
    const MMatrix inverse = pivotMatrix.inverse();
    for (PivotTarget& target : fTargets)
        if (isValidObject(target.object.object()))
            target.relativeMatrix = target.object.worldMatrix() * inverse;
}

void Manager::followTargets()
{
    removeAttributeCallback();
    if (!pivotAlive())
        return;
    // Targets deleted meanwhile are left behind; the pivot stays put without any.
    fTargets.erase(std::remove_if(fTargets.begin(), fTargets.end(),
                                  [](const PivotTarget& target) { return !isValidObject(target.object.object()); }),
                   fTargets.end());
    if (fCenterMode && !fTargets.empty())
        centerOnTargets();
    else if (!fCenterMode && !fWorldSpaceMode && !fTargets.empty())
        alignToTarget();
    storeRelativeMatrices();
    MObject node = fPivot.object();
    fAttributeCallback = MNodeMessage::addAttributeChangedCallback(node, onPivotAttributeChanged, this);
}

void Manager::removeAttributeCallback()
{
    if (fAttributeCallback == 0)
        return;
    MMessage::removeCallback(fAttributeCallback);
    fAttributeCallback = 0;
}

void Manager::queueRefresh()
{
    fRefreshMatricesTask = deferTaskReplacing(fRefreshMatricesTask, [this] { storeRelativeMatrices(); });
}

void Manager::queueFollow()
{
    fFollowTask = deferTaskReplacing(fFollowTask, [this] { followTargets(); });
}

void Manager::applyPivotMove()
{
    const MMatrix pivotMatrix = fPivot.worldMatrix();
    for (PivotTarget& target : fTargets) {
        const MObject& object = target.object.object();
        if (!isValidObject(object))
            continue;
        const MMatrix local = target.relativeMatrix * pivotMatrix * target.object.parentInverseMatrix();
        const MQuaternion axis = eulerAttribute(object, "rotateAxis");
        const MQuaternion jointOrient = eulerAttribute(object, "jointOrient");
        const MTransformationMatrix localTransform(local);
        const MQuaternion rotation = localTransform.rotation();
        double scale[3] = {1.0, 1.0, 1.0};
        localTransform.getScale(scale, MSpace::kTransform);
        const MQuaternion own = axis.inverse() * rotation * jointOrient.inverse();

        // The pivot of the target itself: the translate that puts it back
        // where a rotation about it would leave it.
        const MVector pivot(target.object.rotatePivot());
        const MVector row(local[3][0], local[3][1], local[3][2]);
        const MVector translate = row + pivot * rotation.asMatrix() - pivot;

        // Angles nearest the target's current ones, so that a channel at 270
        // degrees isn't written as -90.
        const MDoubleArray rotate =
            TransformReader::childValues(MFnDependencyNode(object).findPlug("rotate", false));
        const MVector current = rotate.length() == 3 ? MVector(rotate[0], rotate[1], rotate[2]) : MVector();
        const auto order = static_cast<MEulerRotation::RotationOrder>(std::max(target.object.rotationOrder() - 1, 0));
        const MVector angles = nearestEuler(own, order, current);

        // xform reads the scene's units.
        const MDistance::Unit linear = MDistance::uiUnit();
        const MAngle::Unit angular = MAngle::uiUnit();
        const MVector translateUi(MDistance(translate.x).asUnits(linear), MDistance(translate.y).asUnits(linear),
                                  MDistance(translate.z).asUnits(linear));
        const MVector rotateUi(MAngle(angles.x).asUnits(angular), MAngle(angles.y).asUnits(angular),
                               MAngle(angles.z).asUnits(angular));
        const MVector scaleValues(scale[0], scale[1], scale[2]);
        const MString name = partialPathName(object);
        if (!isFinite(translateUi) || !isFinite(rotateUi) || !isFinite(scaleValues)) {
            OV_REPORT(QStringLiteral("cannot move ") + QString::fromUtf8(name.asChar())
                          + QStringLiteral(": its position is not a finite number"),
                      "applyPivotMove");
            continue;
        }
        MString command("maya.cmds.xform(\"");
        command += name;
        command += "\", translation=";
        command += vectorText(translateUi);
        command += ", rotation=";
        command += vectorText(rotateUi);
        command += ", scale=";
        command += vectorText(scaleValues);
        command += ", ws=False)";
        MGlobal::executePythonCommand(command, false, true);
    }
}

void Manager::savePivot()
{
    if (!pivotAlive())
        return;
    const QString path = pivotFilePath();
    if (path.isEmpty())
        return;
    QJsonObject pivots = File::IO::readValue(path, File::Format::Cbor).toObject();
    const MPoint pivot = MFnTransform(fPivot.object()).rotatePivot(MSpace::kTransform);
    const double point[3] = {pivot.x, pivot.y, pivot.z};
    QJsonObject entry;
    entry.insert(QStringLiteral("r"), threeNumbers(point));
    entry.insert(QStringLiteral("m"), threeNumbers(fPivotOrientation));
    pivots.insert(QString::fromUtf8(partialPathName(fPivot.object()).asChar()), entry);
    File::IO::writeValue(pivots, path, File::Format::Cbor);
}

bool Manager::loadPivot(const QString& name, double pivot[3], double orientation[3]) const
{
    const QString path = pivotFilePath();
    if (path.isEmpty())
        return false;
    const QJsonObject pivots = File::IO::readValue(path, File::Format::Cbor).toObject();
    const auto found = pivots.find(name);
    if (found == pivots.end())
        return false;
    const QJsonObject entry = found.value().toObject();
    double readPivot[3];
    double readOrientation[3];
    // A damaged entry is no entry: the pivot starts where it would without one.
    if (!readThree(entry.value(QStringLiteral("r")), readPivot)
        || !readThree(entry.value(QStringLiteral("m")), readOrientation))
        return false;
    for (int i = 0; i < 3; ++i) {
        pivot[i] = readPivot[i];
        orientation[i] = readOrientation[i];
    }
    return true;
}

void Manager::onPivotAttributeChanged(MNodeMessage::AttributeMessage message, MPlug& plug, MPlug&, void* clientData)
{
    Manager* manager = static_cast<Manager*>(clientData);
    // An undo of the pivot doesn't move the targets: it only takes new
    // relative matrices once the scene has settled.
    if (MGlobal::isUndoing() || MGlobal::isRedoing()) {
        manager->queueRefresh();
        return;
    }
    if (!(message & MNodeMessage::kAttributeSet))
        return;
    if (isMoveAttribute(plug.partialName())) {
        // A whole drag is one chunk, closed at the first idle after its last change.
        manager->fUndoChunk.open();
        manager->fCloseChunkTask =
            deferTaskReplacing(manager->fCloseChunkTask, [manager] { manager->fUndoChunk.close(); });
        manager->applyPivotMove();
        return;
    }
    // A change of the pivot node's own pivot.
    manager->queueRefresh();
}

void Manager::onSelectionChanged(void* clientData)
{
    Manager* manager = static_cast<Manager*>(clientData);
    MSelectionList active;
    MGlobal::getActiveSelectionList(active);
    if (active.length() == 1) {
        MDagPath path;
        if (active.getDagPath(0, path) && path.node() == manager->fPivot.object())
            return;
    }
    manager->disable();
}

void Manager::onTimeChange(MTime&, void* clientData) { static_cast<Manager*>(clientData)->queueFollow(); }

void Manager::onCurvesEdited(MObjectArray&, void* clientData) { static_cast<Manager*>(clientData)->queueFollow(); }

void Manager::onNewScene(void* clientData) { static_cast<Manager*>(clientData)->disable(); }

void Manager::onDragRelease(void* clientData)
{
    Manager* manager = static_cast<Manager*>(clientData);
    double orientation[3];
    if (manipPivotOrientation(orientation))
        for (int i = 0; i < 3; ++i)
            manager->fPivotOrientation[i] = orientation[i];
}

} // namespace TempPivot
