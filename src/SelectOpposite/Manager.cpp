#include "SelectOpposite/Manager.h"

#include "Utils/Nodes/Node.h"
#include "Utils/Nodes/Transform.h"
#include "Utils/Report.h"

#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MItSelectionList.h>
#include <maya/MModelMessage.h>

#include <cmath>

namespace SelectOpposite {

namespace {

// Built with the module, before the plug-in is initialised.
const std::vector<std::pair<QString, QString>> tokens = {
    {"_Left_", "_Right_"}, {"_left_", "_right_"}, {"_Lf_", "_Rt_"}, {"_lf_", "_rt_"}, {"_L_", "_R_"},
    {"_l_", "_r_"},        {"_Left", "_Right"},   {"_left", "_right"}, {"Left", "Right_"}, {"left", "right_"},
    {"Left", "Right"},     {"left", "right"},     {"Lf_", "Rt_"},     {"lf_", "rt_"},     {"_Lf", "_Rt"},
    {"_lf", "_rt"},        {"L_", "R_"},          {"l_", "r_"},       {"_L", "_R"},       {"_l", "_r"},
};

// Positions closer than this to the mirror plane, or to a mirrored point,
// count as on it.
const double PositionTolerance = 0.1;

const QString PartnerKey = QStringLiteral("on");
const QString SideKey = QStringLiteral("s");

QString toQString(const MString& text) { return QString::fromUtf8(text.asChar()); }

MObject liveByName(const QString& name)
{
    const MObject object = objectByName(MString(name.toUtf8().constData()));
    return isValidObject(object) ? object : MObject();
}

// The name under which the pairs hold an object; empty for none.
QString pairKey(const MObject& object)
{
    return isValidObject(object) ? toQString(nodeDisplayName(object)) : QString();
}

bool hasDagPath(const MObject& object, MDagPath& path)
{
    return isValidObject(object) && MDagPath::getAPathTo(object, path) && path.isValid();
}

// The first live object a swap of find for put names: everywhere in the
// name, else at its start, else at its end.
MObject replaceToken(const QString& name, const QString& find, const QString& put)
{
    if (name.contains(find)) {
        const MObject found = liveByName(QString(name).replace(find, put));
        if (!found.isNull())
            return found;
    }
    if (name.startsWith(find)) {
        const MObject found = liveByName(put + name.mid(find.size()));
        if (!found.isNull())
            return found;
    }
    if (name.endsWith(find))
        return liveByName(name.left(name.size() - find.size()) + put);
    return MObject();
}

// Every row in order, right forms made left (rightToLeft) or the reverse.
MObject swapTokens(const QString& name, bool rightToLeft)
{
    for (const auto& [left, right] : tokens) {
        const MObject found = rightToLeft ? replaceToken(name, right, left) : replaceToken(name, left, right);
        if (!found.isNull())
            return found;
    }
    return MObject();
}

// The swap on the full path, then the short name, then the partial path.
MObject findSwapped(const MObject& object, bool rightToLeft)
{
    if (!isValidObject(object))
        return MObject();
    MDagPath path;
    const bool isDag = hasDagPath(object, path);
    if (isDag) {
        const MObject found = swapTokens(toQString(path.fullPathName()), rightToLeft);
        if (!found.isNull())
            return found;
    }
    const MObject found = swapTokens(toQString(MFnDependencyNode(object).name()), rightToLeft);
    if (!found.isNull() || !isDag)
        return found;
    return swapTokens(toQString(path.partialPathName()), rightToLeft);
}

MObject findRightToLeft(const MObject& object) { return findSwapped(object, true); }
MObject findLeftToRight(const MObject& object) { return findSwapped(object, false); }

double worldX(const MDagPath& path) { return TransformReader(path).position(true).x; }

// The first other transform of the list that stands where the mirror of the
// node across the world YZ plane stands.
MObject oppositeByPosition(const MDagPath& node, const std::vector<std::pair<MDagPath, MPoint>>& candidates)
{
    const MPoint p = TransformReader(node).position(true);
    if (!(std::abs(p.x) > PositionTolerance))
        return MObject();
    for (const auto& [path, q] : candidates) {
        if (path == node)
            continue;
        if (std::abs(q.x + p.x) < PositionTolerance && std::abs(q.y - p.y) < PositionTolerance
            && std::abs(q.z - p.z) < PositionTolerance)
            return path.node();
    }
    return MObject();
}

// b becomes a's partner; a's former partner is forgotten, its side with it.
void setPartner(QJsonObject& pairs, const MObject& a, const MObject& b)
{
    if (!isValidObject(a))
        return;
    const QString key = pairKey(a);
    QJsonObject entry = pairs.value(key).toObject();
    pairs.remove(entry.value(PartnerKey).toString());
    entry.insert(PartnerKey, pairKey(b));
    pairs.insert(key, entry);
}

void setPair(QJsonObject& pairs, const MObject& a, const MObject& b)
{
    setPartner(pairs, a, b);
    setPartner(pairs, b, a);
}

// Side 0 means: left when the object stands on the positive x side.
void setSide(QJsonObject& pairs, const MObject& a, int side)
{
    MDagPath path;
    const QString key = pairKey(a);
    if (key.isEmpty() || !pairs.contains(key))
        return;
    if (side == UnknownSide)
        side = hasDagPath(a, path) && worldX(path) > PositionTolerance ? LeftSide : RightSide;
    QJsonObject entry = pairs.value(key).toObject();
    entry.insert(SideKey, side);
    pairs.insert(key, entry);
}

} // namespace

const std::vector<std::pair<QString, QString>>& oppositeTokens() { return tokens; }

MObject oppositeByName(const MObject& object)
{
    const MObject found = findRightToLeft(object);
    return found.isNull() ? findLeftToRight(object) : found;
}

MObject oppositeOf(const QJsonObject& pairs, const MObject& object)
{
    const auto entry = pairs.constFind(pairKey(object));
    if (entry != pairs.constEnd())
        return liveByName(entry->toObject().value(PartnerKey).toString());
    return oppositeByName(object);
}

Side sideOf(const QJsonObject& pairs, const MObject& object)
{
    // Only the two sides are ever stored; anything else is no entry.
    const int stored = pairs.value(pairKey(object)).toObject().value(SideKey).toInt();
    if (stored == LeftSide || stored == RightSide)
        return static_cast<Side>(stored);
    if (!findLeftToRight(object).isNull())
        return LeftSide;
    if (!findRightToLeft(object).isNull())
        return RightSide;
    return CentreSide;
}

MSelectionList Manager::oppositeSelection(const MSelectionList& list, int mode) const
{
    const QJsonObject pairs = readPairs();
    MSelectionList result;
    for (MItSelectionList it(list, MFn::kDagNode); !it.isDone(); it.next()) {
        MDagPath path;
        if (!it.getDagPath(path))
            continue;
        MDagPath opposite;
        const bool found = hasDagPath(oppositeOf(pairs, path.node()), opposite);
        if (mode == 0) {
            // Centre objects stay selected.
            result.merge(found ? opposite : path);
        } else {
            if (found)
                result.merge(opposite);
            result.merge(path);
        }
    }
    return result;
}

void Manager::selectOpposites(const MSelectionList& list, int mode) const
{
    const MSelectionList result = oppositeSelection(list, mode);
    if (!result.isEmpty())
        MGlobal::selectCommand(result, mode == 0 ? MGlobal::kReplaceList : MGlobal::kAddToList);
}

void Manager::deselect(const MSelectionList& list, Side side) const
{
    const QJsonObject pairs = readPairs();
    MSelectionList kept;
    for (MItSelectionList it(list, MFn::kDagNode); !it.isDone(); it.next()) {
        MDagPath path;
        if (it.getDagPath(path) && sideOf(pairs, path.node()) != side)
            kept.merge(path);
    }
    MGlobal::selectCommand(kept, MGlobal::kReplaceList);
}

bool Manager::snapshot(const MSelectionList& list) const
{
    QJsonObject pairs = readPairs();
    // Positions are read once; shapes and other non-transforms have none.
    std::vector<std::pair<MDagPath, MPoint>> transforms;
    for (MItSelectionList it(list, MFn::kTransform); !it.isDone(); it.next()) {
        MDagPath path;
        if (it.getDagPath(path) && path.node().hasFn(MFn::kTransform))
            transforms.emplace_back(path, TransformReader(path).position(true));
    }
    for (const auto& entry : transforms) {
        const MDagPath& path = entry.first;
        // Names are enough there, and nothing is stored.
        if (!oppositeByName(path.node()).isNull())
            continue;
        const MObject found = oppositeByPosition(path, transforms);
        if (found.isNull())
            continue;
        setPair(pairs, path.node(), found);
        setSide(pairs, path.node(), UnknownSide);
        setSide(pairs, found, UnknownSide);
    }
    return fFile.writeObject(pairs);
}

bool Manager::fixPairs(const MSelectionList& list) const
{
    if (list.isEmpty()) {
        OV_REPORT(QStringLiteral("selection is empty"), "fixPairs");
        return false;
    }
    MObject first;
    MObject second;
    list.getDependNode(0, first);
    if (list.length() > 1)
        list.getDependNode(1, second);
    QJsonObject pairs = readPairs();
    setPair(pairs, first, second);
    setSide(pairs, first, LeftSide);
    setSide(pairs, second, RightSide);
    return fFile.writeObject(pairs);
}

void Manager::activateAutoSelect()
{
    MMessage::removeCallback(fCallbackId);
    fCallbackId = MModelMessage::addCallback(MModelMessage::kActiveListModified, autoSelect, this);
}

void Manager::deactivateAutoSelect()
{
    // The id is forgotten with its callback: Maya may hand it out again.
    MMessage::removeCallback(fCallbackId);
    fCallbackId = 0;
}

void Manager::autoSelect(void* clientData)
{
    Manager& self = *static_cast<Manager*>(clientData);
    MSelectionList active;
    MGlobal::getActiveSelectionList(active);
    if (active.isEmpty())
        return;
    // Off while it selects, so that its own selection change doesn't re-enter.
    MMessage::removeCallback(self.fCallbackId);
    const MSelectionList result = self.oppositeSelection(active, 1);
    if (!result.isEmpty())
        MGlobal::selectCommand(result, MGlobal::kAddToList);
    self.fCallbackId = MModelMessage::addCallback(MModelMessage::kActiveListModified, autoSelect, &self);
}

Manager& manager()
{
    static Manager instance;
    return instance;
}

} // namespace SelectOpposite
