#include "Mirror/Manager.h"

#include "CollectAnimation/Ctx.h"
#include "SelectOpposite/Manager.h"
#include "Snapshot/Manager.h"
#include "Utils/Nodes/Node.h"
#include "Utils/Nodes/Transform.h"
#include "Utils/Report.h"

#include <maya/MDGModifier.h>
#include <maya/MEulerRotation.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MItSelectionList.h>
#include <maya/MPlugArray.h>
#include <maya/MSelectionList.h>

#include <cmath>
#include <utility>
#include <vector>

namespace Mirror {

namespace {

QString toQString(const MString& text) { return QString::fromUtf8(text.asChar()); }

// X, Y or Z: the letter of a code, or of the axis index i.
QChar letterOf(AxisCode code) { return QChar(static_cast<char16_t>(u'X' + code / 2)); }
QChar letterOfIndex(int i) { return QChar(static_cast<char16_t>(u'X' + i)); }

bool sameCodes(const AxisFrame& a, const AxisFrame& b)
{
    return a.axisX == b.axisX && a.axisY == b.axisY && a.axisZ == b.axisZ;
}

// Whether the frames agree, code for code, on an axis whose letter is the mirror's.
bool agreeOnMirrorLetter(const AxisFrame& a, const AxisFrame& b, AxisCode axis)
{
    for (int i = 0; i < 3; ++i) {
        if (a[i] == b[i] && letterOf(a[i]) == letterOf(axis))
            return true;
    }
    return false;
}

// The local axis of the frame that lies along the mirror letter.
QChar alignedLocalAxis(const AxisFrame& frame, AxisCode axis)
{
    for (int i = 0; i < 3; ++i) {
        if (letterOf(frame[i]) == letterOf(axis))
            return letterOfIndex(i);
    }
    return letterOf(axis);
}

AxisCode codeOfRow(double x, double y, double z)
{
    const double ax = std::abs(x);
    const double ay = std::abs(y);
    const double az = std::abs(z);
    if (!(ax < ay) && !(ax < az))
        return x < 0.0 ? 1 : 0;
    if (!(ay < ax) && !(ay < az))
        return y < 0.0 ? 3 : 2;
    return z < 0.0 ? 5 : 4;
}

// Frames are read from transforms only; any other node keeps the default
// frame, not valid, and so copies its channels unchanged.
bool hasFrame(const MObject& object) { return isValidObject(object) && object.hasFn(MFn::kTransform); }

MMatrix eulerMatrix(const MPlug& plug)
{
    const MDoubleArray values = TransformReader::childValues(plug);
    if (values.length() < 3)
        return MMatrix();
    return MEulerRotation(values[0], values[1], values[2], MEulerRotation::kXYZ).asMatrix();
}

// Enum, boolean and integer channels (rotateOrder among them) only ever
// copy: a negated one is no valid value.
bool isSigned(const MPlug& plug)
{
    const MObject attribute = plug.attribute();
    if (attribute.hasFn(MFn::kUnitAttribute))
        return true;
    if (!attribute.hasFn(MFn::kNumericAttribute))
        return false;
    const MFnNumericData::Type type = MFnNumericAttribute(attribute).unitType();
    return type == MFnNumericData::kDouble || type == MFnNumericData::kFloat;
}

QString longName(const MPlug& plug) { return toQString(plug.partialName(false, false, false, false, false, true)); }

// "<node>.<longAttributeName>" of the node's plug of that attribute.
QString factorKey(const MObject& node, const MPlug& plug)
{
    return toQString(nodeDisplayName(node)) + QLatin1Char('.') + longName(plug);
}

// The stored factor when the file has the key, else the computed one.
double factorOf(const QJsonObject& factors, const QString& key, const MPlug& plug, const MirrorFrames& frames)
{
    if (!isSigned(plug))
        return 1.0;
    const auto stored = factors.constFind(key);
    if (stored != factors.constEnd())
        return stored->toDouble(0.0);
    return attributeFactor(longName(plug), frames, MirrorAxis);
}

// The opposite, or the object itself when it has none.
MObject oppositeOrSelf(const QJsonObject& pairs, const MObject& object)
{
    const MObject opposite = SelectOpposite::oppositeOf(pairs, object);
    return isValidObject(opposite) ? opposite : object;
}

std::vector<MObject> objectsOf(const MSelectionList& selection)
{
    std::vector<MObject> objects;
    for (MItSelectionList it(selection); !it.isDone(); it.next()) {
        MObject object;
        if (it.getDependNode(object) && isValidObject(object))
            objects.push_back(object);
    }
    return objects;
}

// The pose channels of the object, or those highlighted in the channel box
// that it has.
std::vector<MPlug> channelsOf(const MObject& object, const QSet<QString>& highlighted)
{
    std::vector<MPlug> plugs;
    if (highlighted.isEmpty()) {
        MSelectionList one;
        one.add(object);
        const MPlugArray channels = Snapshot::resettableChannels(one);
        for (unsigned int i = 0; i < channels.length(); ++i)
            plugs.push_back(channels[i]);
        return plugs;
    }
    const MFnDependencyNode node(object);
    for (const QString& name : highlighted) {
        const MPlug plug = node.findPlug(MString(name.toUtf8().constData()), false);
        if (!plug.isNull() && !plug.isCompound() && !plug.isArray())
            plugs.push_back(plug);
    }
    return plugs;
}

} // namespace

AxisFrame frameOf(const MMatrix& matrix, bool live)
{
    AxisFrame frame;
    if (!live)
        return frame;
    frame.axisX = codeOfRow(matrix(0, 0), matrix(0, 1), matrix(0, 2));
    frame.axisY = codeOfRow(matrix(1, 0), matrix(1, 1), matrix(1, 2));
    frame.axisZ = codeOfRow(matrix(2, 0), matrix(2, 1), matrix(2, 2));
    frame.valid = true;
    return frame;
}

AxisFrame localFrame(const MObject& object)
{
    if (!hasFrame(object))
        return AxisFrame();
    TransformReader reader(object);
    const MMatrix rotateAxis = eulerMatrix(reader.attribute(TransformReader::RotateAxis));
    const MPlug jointOrient = MFnDependencyNode(object).findPlug("jointOrient", false);
    const MMatrix orient = jointOrient.isNull() ? MMatrix() : eulerMatrix(jointOrient);
    return frameOf(rotateAxis * orient * reader.parentMatrix(), true);
}

AxisFrame worldFrame(const MObject& object)
{
    if (!hasFrame(object))
        return AxisFrame();
    return frameOf(TransformReader(object).worldMatrix(), true);
}

MirrorFrames makeFrames(const MObject& object, const MObject& opposite, AxisCode axis)
{
    MirrorFrames frames;
    frames.ownLocal = localFrame(object);
    frames.otherLocal = localFrame(opposite);
    frames.own = frames.ownLocal;
    frames.other = frames.otherLocal;
    if (!isValidObject(opposite) || !frames.ownLocal.valid || !frames.otherLocal.valid)
        return frames;
    const AxisFrame ownWorld = worldFrame(object);
    const AxisFrame otherWorld = worldFrame(opposite);
    if (!ownWorld.valid || !otherWorld.valid)
        return frames;
    // Rest frames that agree on the mirror axis, in world frames that don't:
    // the world frames tell the pair's relation.
    if (!agreeOnMirrorLetter(frames.ownLocal, frames.otherLocal, axis) || agreeOnMirrorLetter(ownWorld, otherWorld, axis))
        return frames;
    frames.own = ownWorld;
    frames.other = otherWorld;
    frames.usesWorldFrames = true;
    return frames;
}

double channelFactor(const QString& name, const AxisFrame& a, const AxisFrame& b, AxisCode axis)
{
    auto has = [&name](QChar text) { return name.contains(text); };
    const bool translate = name.contains(QLatin1String("translate"));
    const bool rotate = name.contains(QLatin1String("rotate"));
    const QChar L = alignedLocalAxis(a, axis);
    const QChar M = letterOf(axis);

    if (!a.valid || name.contains(QLatin1String("scale")))
        return 1.0;
    if (!b.valid || sameCodes(a, b)) {
        if (translate)
            return has(L) ? -1.0 : 1.0;
        if (rotate)
            return has(L) ? 1.0 : -1.0;
        return 1.0;
    }
    if (translate) {
        for (int i = 0; i < 3; ++i) {
            if (a[i] == b[i] && letterOf(a[i]) == M)
                return -1.0;
        }
        for (int i = 0; i < 3; ++i) {
            if (a[i] == b[i])
                return has(L) || has(letterOfIndex(i)) ? 1.0 : -1.0;
        }
        return -1.0;
    }
    if (rotate) {
        for (int i = 0; i < 3; ++i) {
            if (a[i] == b[i] && letterOf(a[i]) != M)
                return has(L) || has(letterOfIndex(i)) ? -1.0 : 1.0;
        }
        return 1.0;
    }
    return 1.0;
}

double attributeFactor(const QString& name, const MirrorFrames& frames, AxisCode axis)
{
    const double factor = channelFactor(name, frames.own, frames.other, axis);
    if (frames.usesWorldFrames)
        return factor;
    // Rest frames alike but for one axis pointing the other way: a pair
    // mirrored by behaviour, whose channels copy as they are.
    const AxisFrame& own = frames.ownLocal;
    const AxisFrame& other = frames.otherLocal;
    int sameLetters = 0;
    int sameCodeCount = 0;
    for (int i = 0; i < 3; ++i) {
        sameLetters += letterOf(own[i]) == letterOf(other[i]);
        sameCodeCount += own[i] == other[i];
    }
    if (other.valid && sameLetters == 3 && sameCodeCount == 2
        && (name.contains(QLatin1String("translate")) || name.contains(QLatin1String("rotate"))))
        return 1.0;
    return factor;
}

void Manager::mirror(const MSelectionList& selection, MDGModifier& modifier) const
{
    const QJsonObject pairs = SelectOpposite::manager().readPairs();
    const QJsonObject factors = fFile.readObject();
    const QSet<QString> highlighted = CollectAnimation::Ctx::channelBoxSelection(15);
    std::vector<std::pair<MPlug, double>> values;
    for (const MObject& object : objectsOf(selection)) {
        const MObject opposite = oppositeOrSelf(pairs, object);
        const MirrorFrames frames = makeFrames(object, opposite, MirrorAxis);
        const MFnDependencyNode target(opposite);
        for (const MPlug& plug : channelsOf(object, highlighted)) {
            const MPlug targetPlug = target.findPlug(plug.partialName(), false);
            if (targetPlug.isNull() || targetPlug.isLocked())
                continue;
            // A corrupt factor must not make a channel infinite.
            const double value = plug.asDouble() * factorOf(factors, factorKey(object, plug), plug, frames);
            if (std::isfinite(value))
                values.emplace_back(targetPlug, value);
        }
    }
    for (const auto& [plug, value] : values)
        modifier.newPlugValueDouble(plug, value);
    modifier.doIt();
}

bool Manager::snapshot(const MSelectionList& selection) const
{
    if (selection.isEmpty()) {
        OV_REPORT(QStringLiteral("selection is empty"), "snapshot");
        return false;
    }
    // Pairs by position first, so that they count below.
    SelectOpposite::manager().snapshot(selection);
    const QJsonObject pairs = SelectOpposite::manager().readPairs();
    QJsonObject factors = fFile.readObject();
    for (const MObject& object : objectsOf(selection)) {
        const MirrorFrames frames = makeFrames(object, SelectOpposite::oppositeOf(pairs, object), MirrorAxis);
        MSelectionList one;
        one.add(object);
        const MPlugArray channels = Snapshot::resettableChannels(one);
        for (unsigned int i = 0; i < channels.length(); ++i) {
            const double factor =
                isSigned(channels[i]) ? attributeFactor(longName(channels[i]), frames, MirrorAxis) : 1.0;
            factors.insert(factorKey(object, channels[i]), factor);
        }
    }
    return fFile.writeObject(factors);
}

bool Manager::removeSnapshot() const { return fFile.removeFile(fFile.dataFilePath()); }

bool Manager::removeSelectedFromSnapshot(const MSelectionList& selection) const
{
    const QJsonObject pairs = SelectOpposite::manager().readPairs();
    QJsonObject factors = fFile.readObject();
    const QSet<QString> highlighted = CollectAnimation::Ctx::channelBoxSelection(15);
    for (const MObject& object : objectsOf(selection)) {
        const MObject opposite = oppositeOrSelf(pairs, object);
        for (const MPlug& plug : channelsOf(object, highlighted)) {
            factors.remove(factorKey(object, plug));
            factors.remove(factorKey(opposite, plug));
        }
    }
    return fFile.writeObject(factors);
}

bool Manager::fixAttribute(const MSelectionList& selection) const
{
    if (selection.isEmpty()) {
        OV_REPORT(QStringLiteral("selection is empty"), "fixAttribute");
        return false;
    }
    const QSet<QString> highlighted = CollectAnimation::Ctx::channelBoxSelection(15);
    if (highlighted.isEmpty()) {
        OV_REPORT(QStringLiteral("select one or more attribute."), "fixAttribute");
        return false;
    }
    const QJsonObject pairs = SelectOpposite::manager().readPairs();
    QJsonObject factors = fFile.readObject();
    // The first object is the one fixed; its opposite takes the same factor.
    const std::vector<MObject> objects = objectsOf(selection);
    if (!objects.empty()) {
        const MObject& object = objects.front();
        const MObject opposite = oppositeOrSelf(pairs, object);
        const MirrorFrames frames = makeFrames(object, opposite, MirrorAxis);
        const MFnDependencyNode node(object);
        for (const QString& name : highlighted) {
            const MPlug plug = node.findPlug(MString(name.toUtf8().constData()), false);
            if (plug.isNull() || !isSigned(plug))
                continue;
            const double factor = -factorOf(factors, factorKey(object, plug), plug, frames);
            factors.insert(factorKey(object, plug), factor);
            factors.insert(factorKey(opposite, plug), factor);
        }
    }
    return fFile.writeObject(factors);
}

Manager& manager()
{
    static Manager instance;
    return instance;
}

} // namespace Mirror
