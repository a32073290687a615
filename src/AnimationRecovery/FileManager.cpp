#include "AnimationRecovery/FileManager.h"

#include "CollectAnimation/Ctx.h"
#include "Utils/Nodes/Node.h"
#include "Utils/Nodes/SceneId/Manager.h"
#include "Utils/Report.h"

#include <maya/MAngle.h>
#include <maya/MAnimCurveChange.h>
#include <maya/MDGModifier.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MSelectionList.h>
#include <maya/MString.h>
#include <maya/MTime.h>
#include <maya/MUuid.h>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace AnimationRecovery {

namespace {

const QString LastModifiedFile = QStringLiteral("lastModified");
const QString LayerFile = QStringLiteral("l");
const QString RootLayer = QStringLiteral("BaseAnimation");
const QString CurveFileSuffix = QStringLiteral("_a");

// Keys of a curve record and of "lastModified".
const QString DestinationKey = QStringLiteral("d");
const QString PlugKey = QStringLiteral("p");
const QString TypeKey = QStringLiteral("t");
const QString WeightedKey = QStringLiteral("w");
const QString PreInfinityKey = QStringLiteral("r");
const QString PostInfinityKey = QStringLiteral("o");
const QString KeysKey = QStringLiteral("k");
const QString TimeKey = QStringLiteral("l");

// Keys of a layer map.
const QString LayerNameKey = QStringLiteral("n");
const QString MuteKey = QStringLiteral("m");
const QString LockKey = QStringLiteral("l");
const QString SoloKey = QStringLiteral("s");
const QString WeightKey = QStringLiteral("w");
const QString OverrideKey = QStringLiteral("o");
const QString ParentKey = QStringLiteral("p");
const QString AttributesKey = QStringLiteral("a");

// Positions in a key array.
enum KeyField { InAngle, InWeight, OutAngle, OutWeight, Value, InType, OutType, TangentsLocked, WeightsLocked, KeyFieldCount };

// The curve files of a folder by the number in their names, oldest first:
// a file's time is its name, which stays unique where the clock doesn't.
std::vector<std::pair<qint64, QString>> curveFiles(const QString& folder)
{
    std::vector<std::pair<qint64, QString>> files;
    const QStringList names = QDir(folder).entryList({QStringLiteral("*") + CurveFileSuffix}, QDir::Files);
    for (const QString& name : names) {
        bool ok = false;
        const qint64 number = name.chopped(CurveFileSuffix.size()).toLongLong(&ok);
        if (ok)
            files.emplace_back(number, File::PluginManager::joinPath(folder, name));
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool isWholeNumberIn(const QJsonValue& value, double low, double high)
{
    const double number = value.toDouble(NAN);
    return value.isDouble() && std::isfinite(number) && number == std::trunc(number) && number >= low
           && number <= high;
}

bool isTangentType(const QJsonValue& value)
{
    return isWholeNumberIn(value, MFnAnimCurve::kTangentGlobal, MFnAnimCurve::kTangentAuto)
           || isWholeNumberIn(value, MFnAnimCurve::kTangentShared1, MFnAnimCurve::kTangentShared8);
}

bool isInfinityType(const QJsonValue& value)
{
    return isWholeNumberIn(value, MFnAnimCurve::kConstant, MFnAnimCurve::kLinear)
           || isWholeNumberIn(value, MFnAnimCurve::kCycle, MFnAnimCurve::kOscillate);
}

bool isWholeKey(const QString& time, const QJsonValue& value)
{
    bool ok = false;
    if (!std::isfinite(time.toDouble(&ok)) || !ok || !value.isArray())
        return false;
    const QJsonArray key = value.toArray();
    if (key.isEmpty())
        return true;
    if (key.size() != KeyFieldCount)
        return false;
    for (int field : {InAngle, InWeight, OutAngle, OutWeight, Value}) {
        if (!key[field].isDouble() || !std::isfinite(key[field].toDouble()))
            return false;
    }
    return isTangentType(key[InType]) && isTangentType(key[OutType]) && key[TangentsLocked].isBool()
           && key[WeightsLocked].isBool();
}

// Everything a rebuild reads is there and in range, so a curve is either
// rebuilt whole or not touched. An empty record stands for a removed curve.
bool isWholeRecord(const QJsonValue& value)
{
    if (!value.isObject())
        return false;
    const QJsonObject record = value.toObject();
    if (record.isEmpty())
        return true;
    if (!record.value(DestinationKey).isString() || !record.value(PlugKey).isString()
        || !isWholeNumberIn(record.value(TypeKey), MFnAnimCurve::kAnimCurveTA, MFnAnimCurve::kAnimCurveUU)
        || !record.value(WeightedKey).isBool() || !isInfinityType(record.value(PreInfinityKey))
        || !isInfinityType(record.value(PostInfinityKey)) || !record.value(KeysKey).isObject())
        return false;
    const QJsonObject keys = record.value(KeysKey).toObject();
    for (auto it = keys.begin(); it != keys.end(); ++it) {
        if (!isWholeKey(it.key(), it.value()))
            return false;
    }
    return true;
}

MString toMString(const QString& text) { return MString(text.toUtf8().constData()); }

// The node of a destination identifier; null when no live node has it.
MObject nodeByUuid(const QString& text)
{
    MStatus status;
    const MUuid uuid(toMString(text), &status);
    MSelectionList list;
    MObject node;
    if (!status || !uuid.valid() || !list.add(uuid) || !list.getDependNode(0, node) || !isValidObject(node))
        return MObject();
    return node;
}

bool nodeExists(const QString& name)
{
    MSelectionList list;
    return !name.isEmpty() && list.add(toMString(name));
}

bool plugBool(const MFnDependencyNode& node, const char* name)
{
    const MPlug plug = node.findPlug(name, false);
    return !plug.isNull() && plug.asBool();
}

// Names a file gives for MEL text: a node name, or a plug of one. Anything
// else (quotes, spaces, semicolons) would be MEL of the file's making.
bool isNodeName(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("^[A-Za-z_][A-Za-z0-9_:|]*$"));
    return pattern.match(text).hasMatch();
}

bool isPlugName(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("^[A-Za-z_][A-Za-z0-9_:|]*(\\.[A-Za-z_][A-Za-z0-9_]*(\\[[0-9]+\\])?)+$"));
    return pattern.match(text).hasMatch();
}

void readLayer(const MObject& layer, bool isBase, std::vector<AnimLayerInfo>& layers)
{
    const MFnDependencyNode fn(layer);
    AnimLayerInfo info;
    info.name = QString::fromUtf8(fn.name().asChar());
    info.mute = plugBool(fn, "mute");
    info.lock = plugBool(fn, "lock");
    info.solo = plugBool(fn, "solo");
    const MPlug weight = fn.findPlug("weight", false);
    info.weight = weight.isNull() ? 1.0 : weight.asDouble();
    info.override = plugBool(fn, "override");
    MPlugArray parents;
    const MPlug parentLayer = fn.findPlug("parentLayer", false);
    if (!parentLayer.isNull() && parentLayer.destinations(parents) && parents.length() > 0)
        info.parent = QString::fromUtf8(MFnDependencyNode(parents[0].node()).name().asChar());
    const MPlug members = fn.findPlug("dagSetMembers", false);
    for (unsigned int i = 0; !members.isNull() && i < members.numElements(); ++i) {
        const MPlug source = members.elementByPhysicalIndex(i).source();
        if (!source.isNull())
            info.attributes.push_back(QString::fromUtf8(source.name().asChar()));
    }
    info.isBase = isBase;
    layers.push_back(info);

    // Depth first, parents first: a rebuild in this order finds each parent made.
    const MPlug children = fn.findPlug("childrenLayers", false);
    for (unsigned int i = 0; !children.isNull() && i < children.numElements(); ++i) {
        const MPlug source = children.elementByPhysicalIndex(i).source();
        if (!source.isNull() && isValidObject(source.node()))
            readLayer(source.node(), false, layers);
    }
}

// The animLayer text that makes or edits one saved layer; empty when the
// map isn't a whole layer.
QString layerCommand(const QJsonObject& layer)
{
    const QString name = layer.value(LayerNameKey).toString();
    const QString parent = layer.value(ParentKey).toString();
    const double weight = layer.value(WeightKey).toDouble(NAN);
    if (!isNodeName(name) || !(parent.isEmpty() || isNodeName(parent)) || !std::isfinite(weight))
        return QString();
    const auto flag = [&layer](const QString& key) {
        return layer.value(key).toBool() ? QStringLiteral("1") : QStringLiteral("0");
    };
    QString text = QStringLiteral("animLayer");
    if (nodeExists(name))
        text += QStringLiteral(" -e ");
    // A parent that isn't there (the root of a scene without layers) leaves the layer at the top.
    if (nodeExists(parent))
        text += QStringLiteral(" -parent \"") + parent + QStringLiteral("\"");
    text += QStringLiteral(" -mute ") + flag(MuteKey) + QStringLiteral(" -override ") + flag(OverrideKey)
            + QStringLiteral(" -solo ") + flag(SoloKey) + QStringLiteral(" -weight ")
            + QString::number(weight, 'g', 6) + QStringLiteral(" -lock ") + flag(LockKey) + QStringLiteral(" \"")
            + name + QStringLiteral("\"");
    return text;
}

void deleteNodeNamed(const QString& name, MDGModifier& modifier)
{
    const MObject old = objectByName(toMString(name));
    if (isValidObject(old)) {
        modifier.deleteNode(old);
        modifier.doIt();
    }
}

} // namespace

qint64 FileManager::sceneFileTime()
{
    const QFileInfo info(sceneFilePath());
    return info.exists() ? info.lastModified().toMSecsSinceEpoch() : 0;
}

QString FileManager::sceneFolder() const
{
    if (sceneIsUntitled())
        return QString();
    return SceneId::manager().sceneDir(SceneId::AnimationRecoveryFolder);
}

QJsonObject FileManager::encodeCurve(const MObject& curve) const
{
    if (!isValidObject(curve))
        return QJsonObject();
    const MPlug output = MFnDependencyNode(curve).findPlug("output", false);
    MPlugArray destinations;
    if (output.isNull() || !output.destinations(destinations) || destinations.length() == 0)
        return QJsonObject();

    const CollectAnimation::CurveRecord read = CollectAnimation::Ctx::curveRecord(curve);
    QJsonObject keys;
    for (const CollectAnimation::KeyRecord& key : read.keys) {
        keys.insert(QString::number(key.time.value(), 'g', 6),
                    QJsonArray{key.inAngle.asRadians(), key.inWeight, key.outAngle.asRadians(), key.outWeight,
                               key.value, static_cast<int>(key.inTangentType),
                               static_cast<int>(key.outTangentType), key.tangentsLocked, key.weightsLocked});
    }
    // A curve that drives several plugs is kept with its first.
    const MPlug& destination = destinations[0];
    return QJsonObject{
        {DestinationKey, QString::fromUtf8(MFnDependencyNode(destination.node()).uuid().asString().asChar())},
        {PlugKey, QString::fromUtf8(destination.partialName().asChar())},
        {TypeKey, static_cast<int>(read.animCurveType)},
        {WeightedKey, read.isWeighted},
        {PreInfinityKey, static_cast<int>(read.preInfinity)},
        {PostInfinityKey, static_cast<int>(read.postInfinity)},
        {KeysKey, keys},
    };
}

bool FileManager::writeCurves(const QJsonObject& curves) const
{
    const QString folder = sceneFolder();
    if (folder.isEmpty())
        return false;
    writeLastModified(folder);
    // Two writes within one millisecond take the next free number.
    qint64 number = QDateTime::currentMSecsSinceEpoch();
    QString path;
    while (QFileInfo::exists(path = joinPath(folder, QString::number(number) + CurveFileSuffix)))
        ++number;
    return writeValue(curves, path, File::Format::Cbor);
}

void FileManager::writeLastModified(const QString& folder) const
{
    if (folder.isEmpty())
        return;
    // The time changes only when the scene is saved: rewriting the same one
    // before every file would double each save's synced writes.
    const qint64 time = sceneFileTime();
    if (readLastModified(folder) != time)
        writeValue(QJsonObject{{TimeKey, time}}, joinPath(folder, LastModifiedFile), File::Format::Cbor);
}

qint64 FileManager::readLastModified(const QString& folder) const
{
    if (folder.isEmpty())
        return 0;
    return readValue(joinPath(folder, LastModifiedFile), File::Format::Cbor)
        .toObject()
        .value(TimeKey)
        .toVariant()
        .toLongLong();
}

QJsonObject FileManager::readCurves(const QString& folder, qint64 since) const
{
    QJsonObject merged;
    for (const auto& [number, path] : curveFiles(folder)) {
        if (number <= since)
            continue;
        const QJsonValue content = readValue(path, File::Format::Cbor);
        if (!content.isObject()) {
            OV_REPORT(QStringLiteral("failed to read recovery file: ") + path, "readCurves");
            continue;
        }
        const QJsonObject curves = content.toObject();
        for (auto it = curves.begin(); it != curves.end(); ++it) {
            if (isWholeRecord(it.value()))
                merged.insert(it.key(), it.value());
            else
                OV_REPORT(QStringLiteral("bad curve record: ") + it.key() + QStringLiteral(" in ") + path,
                          "readCurves");
        }
    }
    return merged;
}

QString FileManager::folderDrivingThisScene() const
{
    const QString root = pluginSubDir(SceneId::AnimationRecoveryFolder);
    if (root.isEmpty())
        return QString();
    QString newest;
    qint64 newestNumber = 0;
    for (const QString& name : QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString folder = joinPath(root, name);
        const auto files = curveFiles(folder);
        if (files.empty() || files.back().first <= newestNumber)
            continue;
        const bool drivesThisScene = std::any_of(files.begin(), files.end(), [](const auto& file) {
            const QJsonObject curves = readValue(file.second, File::Format::Cbor).toObject();
            return std::any_of(curves.begin(), curves.end(), [](const QJsonValue& record) {
                return !nodeByUuid(record.toObject().value(DestinationKey).toString()).isNull();
            });
        });
        if (drivesThisScene) {
            newest = folder;
            newestNumber = files.back().first;
        }
    }
    return newest;
}

std::vector<AnimLayerInfo> FileManager::collectLayers() const
{
    std::vector<AnimLayerInfo> layers;
    const MObject root = objectByName(toMString(RootLayer));
    if (isValidObject(root))
        readLayer(root, true, layers);
    return layers;
}

QJsonArray FileManager::encodeLayers() const
{
    QJsonArray array;
    for (const AnimLayerInfo& layer : collectLayers()) {
        if (layer.isBase)
            continue;
        QJsonArray attributes;
        for (const QString& attribute : layer.attributes)
            attributes.append(attribute);
        array.append(QJsonObject{{LayerNameKey, layer.name},
                                 {MuteKey, layer.mute},
                                 {LockKey, layer.lock},
                                 {SoloKey, layer.solo},
                                 {WeightKey, layer.weight},
                                 {OverrideKey, layer.override},
                                 {ParentKey, layer.parent},
                                 {AttributesKey, attributes}});
    }
    return array;
}

bool FileManager::writeLayers(const QJsonArray& layers) const
{
    const QString folder = sceneFolder();
    if (folder.isEmpty())
        return false;
    writeLastModified(folder);
    return writeValue(layers, joinPath(folder, LayerFile), File::Format::Cbor);
}

void FileManager::restoreLayers(const QString& folder, qint64 since) const
{
    if (folder.isEmpty())
        return;
    const QString path = joinPath(folder, LayerFile);
    const QFileInfo info(path);
    if (!info.exists() || info.lastModified().toMSecsSinceEpoch() <= since)
        return;
    const QJsonValue content = readValue(path, File::Format::Cbor);
    if (!content.isArray()) {
        OV_REPORT(QStringLiteral("failed to read recovery file: ") + path, "restoreLayers");
        return;
    }
    for (const QJsonValue& value : content.toArray()) {
        const QJsonObject layer = value.toObject();
        const QString command = layerCommand(layer);
        if (command.isEmpty()) {
            OV_REPORT(QStringLiteral("bad layer record: ") + layer.value(LayerNameKey).toString(), "restoreLayers");
            continue;
        }
        // A layer that fails doesn't stop the others.
        MGlobal::executeCommand(toMString(command), false, true);
        QString attributes;
        for (const QJsonValue& attribute : layer.value(AttributesKey).toArray()) {
            const QString plug = attribute.toString();
            MSelectionList list;
            if (isPlugName(plug) && list.add(toMString(plug)))
                attributes += QStringLiteral("-attribute ") + plug + QStringLiteral(" ");
        }
        if (!attributes.isEmpty())
            MGlobal::executeCommand(toMString(QStringLiteral("animLayer -e ") + attributes
                                              + layer.value(LayerNameKey).toString()),
                                    false, true);
    }
}

void FileManager::applyAnimation(const QJsonObject& merged, MDGModifier& modifier, MAnimCurveChange& change) const
{
    for (auto it = merged.begin(); it != merged.end(); ++it) {
        const QString& name = it.key();
        const QJsonObject record = it.value().toObject();
        // A curve removed before it was saved stays removed.
        if (record.isEmpty()) {
            deleteNodeNamed(name, modifier);
            continue;
        }
        const QString destinationId = record.value(DestinationKey).toString();
        const MObject destination = nodeByUuid(destinationId);
        if (destination.isNull()) {
            OV_REPORT(QStringLiteral("dest node not found: ") + destinationId, "applyAnimation");
            continue;
        }
        const QString plugName = record.value(PlugKey).toString();
        MStatus status;
        const MPlug plug = MFnDependencyNode(destination).findPlug(toMString(plugName), false,
                                                                     &status);
        if (!status || plug.isNull()) {
            OV_REPORT(QStringLiteral("dest plug not found: ") + plugName, "applyAnimation");
            continue;
        }
        if (plug.isLocked()) {
            OV_REPORT(QStringLiteral("dest plug locked: ") + plugName, "applyAnimation");
            continue;
        }

        deleteNodeNamed(name, modifier);
        // Whatever else drives the plug now gives way to the saved curve.
        const MPlug source = plug.source();
        if (!source.isNull()) {
            modifier.disconnect(source, plug);
            modifier.doIt();
        }
        MFnAnimCurve curve;
        const MObject created =
            curve.create(static_cast<MFnAnimCurve::AnimCurveType>(record.value(TypeKey).toInt()), &modifier);
        modifier.renameNode(created, toMString(name));
        modifier.doIt();
        modifier.connect(curve.findPlug("output", false), plug);
        modifier.doIt();

        curve.setIsWeighted(record.value(WeightedKey).toBool(), &change);
        curve.setPreInfinityType(static_cast<MFnAnimCurve::InfinityType>(record.value(PreInfinityKey).toInt()),
                                 &change);
        curve.setPostInfinityType(static_cast<MFnAnimCurve::InfinityType>(record.value(PostInfinityKey).toInt()),
                                  &change);
        const QJsonObject keys = record.value(KeysKey).toObject();
        for (auto key = keys.begin(); key != keys.end(); ++key) {
            const QJsonArray a = key.value().toArray();
            if (a.isEmpty())
                continue;
            // The number is read in the present unit, as it was written in the unit of its day.
            const MTime time(key.key().toDouble(), MTime::uiUnit());
            const unsigned int i = curve.addKey(time, a[Value].toDouble(), MFnAnimCurve::kTangentGlobal,
                                                MFnAnimCurve::kTangentGlobal, &change);
            // Locks first: a new key starts locked, and a broken tangent must come back broken.
            curve.setTangentsLocked(i, a[TangentsLocked].toBool(), &change);
            curve.setWeightsLocked(i, a[WeightsLocked].toBool(), &change);
            curve.setTangent(i, MAngle(a[InAngle].toDouble(), MAngle::kRadians), a[InWeight].toDouble(), true,
                             &change, true);
            curve.setTangent(i, MAngle(a[OutAngle].toDouble(), MAngle::kRadians), a[OutWeight].toDouble(), false,
                             &change, true);
            curve.setInTangentType(i, static_cast<MFnAnimCurve::TangentType>(a[InType].toInt()), &change);
            curve.setOutTangentType(i, static_cast<MFnAnimCurve::TangentType>(a[OutType].toInt()), &change);
        }
    }
}

} // namespace AnimationRecovery
