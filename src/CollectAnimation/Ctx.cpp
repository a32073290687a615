#include "CollectAnimation/Ctx.h"

#include "Utils/Nodes/AnimCurve.h"
#include "Utils/Nodes/Node.h"

#include <maya/MAnimUtil.h>
#include <maya/MFnAttribute.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MItDependencyNodes.h>
#include <maya/MItSelectionList.h>
#include <maya/MObjectArray.h>
#include <maya/MPlugArray.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

#include <algorithm>

namespace CollectAnimation {

namespace {

QString toQString(const MString& text) { return QString::fromUtf8(text.asChar()); }

bool isTimeCurve(const MObject& node)
{
    if (!node.hasFn(MFn::kAnimCurve))
        return false;
    return MFnAnimCurve(node).isTimeInput();
}

bool holdsCurve(const std::vector<CurveRecord>& curves, const MObject& curve)
{
    return std::any_of(curves.begin(), curves.end(), [&](const CurveRecord& r) { return r.curve == curve; });
}

// Adds what the second pass found to the node's record, or a new record.
void mergeInto(std::vector<NodeRecord>& records, const MObject& node, std::vector<PlugRecord>& plugs)
{
    auto existing = std::find_if(records.begin(), records.end(), [&](const NodeRecord& r) { return r.node == node; });
    if (existing == records.end()) {
        records.push_back(NodeRecord{node, {}, std::move(plugs)});
        return;
    }
    for (PlugRecord& plug : plugs) {
        auto held = std::find_if(existing->plugs.begin(), existing->plugs.end(),
                                 [&](const PlugRecord& r) { return r.plug == plug.plug; });
        if (held == existing->plugs.end()) {
            existing->plugs.push_back(std::move(plug));
            continue;
        }
        for (CurveRecord& curve : plug.curves) {
            if (!holdsCurve(held->curves, curve.curve))
                held->curves.push_back(std::move(curve));
        }
    }
}

} // namespace

QSet<QString> Ctx::channelBoxSelection(int sections)
{
    static const char* const queries[] = {
        "channelBox -q -selectedMainAttributes $gChannelBoxName",
        "channelBox -q -selectedShapeAttributes $gChannelBoxName",
        "channelBox -q -selectedOutputAttributes $gChannelBoxName",
        "channelBox -q -selectedHistoryAttributes $gChannelBoxName",
    };
    QSet<QString> names;
    for (int bit = 0; bit < 4; ++bit) {
        if (!(sections & (1 << bit)))
            continue;
        MStringArray result;
        if (!MGlobal::executeCommand(queries[bit], result))
            continue;
        for (const MString& name : result)
            names.insert(toQString(name));
    }
    return names;
}

ObjectSet Ctx::selectedAnimLayers()
{
    ObjectSet layers;
    for (MItDependencyNodes it(MFn::kAnimLayer); !it.isDone(); it.next()) {
        MObject layer = it.thisNode();
        MFnDependencyNode fn(layer);
        const MPlug selected = fn.findPlug("selected", false);
        const MPlug lock = fn.findPlug("lock", false);
        if (!selected.isNull() && selected.asBool() && !(lock.isNull() ? false : lock.asBool()))
            layers.insert(layer);
    }
    return layers;
}

CurveRecord Ctx::curveRecord(const MObject& curve)
{
    MFnAnimCurve fn(curve);
    CurveRecord record;
    record.curve = curve;
    record.isWeighted = fn.isWeighted();
    record.animCurveType = fn.animCurveType();
    record.preInfinity = fn.preInfinityType();
    record.postInfinity = fn.postInfinityType();
    const unsigned int count = fn.numKeys();
    record.keys.resize(count);
    for (unsigned int i = 0; i < count; ++i) {
        KeyRecord& key = record.keys[i];
        key.time = fn.time(i);
        key.value = fn.value(i);
        key.index = i;
        key.inTangentType = fn.inTangentType(i);
        key.outTangentType = fn.outTangentType(i);
        fn.getTangent(i, key.inAngle, key.inWeight, true);
        fn.getTangent(i, key.outAngle, key.outWeight, false);
        key.tangentsLocked = fn.tangentsLocked(i);
        key.weightsLocked = fn.weightsLocked(i);
    }
    return record;
}

std::vector<NodeRecord> Ctx::collect(const MSelectionList& selection)
{
    std::vector<NodeRecord> records;
    if (selection.isEmpty())
        return records;

    fChannelBox = channelBoxSelection(15);
    fLayers = selectedAnimLayers();
    fSelectionStrings.clear();
    const bool curvesSelected = hasAnimCurves(selection);
    if (curvesSelected) {
        MStringArray strings;
        selection.getSelectionStrings(strings);
        for (const MString& text : strings)
            fSelectionStrings.insert(toQString(text));
    }

    ObjectSet selectedCurves;
    for (MItSelectionList it(selection); !it.isDone(); it.next()) {
        MObject node;
        if (!it.getDependNode(node))
            continue;
        if (node.hasFn(MFn::kAnimCurve)) {
            if (isTimeCurve(node))
                selectedCurves.insert(node);
            continue;
        }
        std::vector<PlugRecord> plugs;
        if (gatherPlugs(node, plugs))
            records.push_back(NodeRecord{node, {}, std::move(plugs)});
    }

    // Curves picked by hand are honoured even where the first pass left their
    // channel out (hidden, locked, another layer).
    if (curvesSelected && !selectedCurves.empty())
        secondPass(selection, selectedCurves, records);

    fChannelBox.clear();
    fLayers.clear();
    fSelectionStrings.clear();
    return records;
}

void Ctx::secondPass(const MSelectionList& selection, const ObjectSet& selectedCurves,
                     std::vector<NodeRecord>& records) const
{
    for (MItSelectionList it(selection); !it.isDone(); it.next()) {
        MObject node;
        if (!it.getDependNode(node) || node.hasFn(MFn::kAnimCurve))
            continue;
        MPlugArray animated;
        MAnimUtil::findAnimatedPlugs(node, animated, false);
        std::vector<PlugRecord> plugs;
        for (const MPlug& plug : animated) {
            MObjectArray curves;
            MAnimUtil::findAnimation(plug, curves);
            PlugRecord record{plug, {}};
            for (const MObject& curve : curves) {
                if (selectedCurves.count(curve))
                    record.curves.push_back(curveRecord(curve));
            }
            if (!record.curves.empty())
                plugs.push_back(std::move(record));
        }
        if (!plugs.empty())
            mergeInto(records, node, plugs);
    }
}

bool Ctx::gatherPlugs(const MObject& node, std::vector<PlugRecord>& plugs) const
{
    if (!isValidObject(node))
        return false;
    MPlugArray animated;
    MAnimUtil::findAnimatedPlugs(node, animated, false);
    for (const MPlug& plug : animated) {
        MFnAttribute attribute(plug.attribute());
        if (attribute.isHidden() || plug.isLocked() || !(plug.isKeyable() || plug.isChannelBoxFlagSet()))
            continue;
        std::vector<CurveRecord> curves;
        if (gatherCurves(plug, curves))
            plugs.push_back(PlugRecord{plug, std::move(curves)});
    }
    return !plugs.empty();
}

void Ctx::candidatesFromLayers(const MPlug& plug, const ObjectSet& layers, MObjectArray& candidates) const
{
    MObjectArray plugLayers;
    MPlugArray layerPlugs;
    MAnimUtil::findAnimationLayers(plug, plugLayers, layerPlugs);
    for (unsigned int i = 0; i < plugLayers.length() && i < layerPlugs.length(); ++i) {
        if (!layers.count(plugLayers[i]))
            continue;
        const MPlug source = layerPlugs[i].source();
        if (!source.isNull() && !source.node().isNull())
            candidates.append(source.node());
    }
}

bool Ctx::gatherCurves(const MPlug& plug, std::vector<CurveRecord>& curves) const
{
    if (plug.isNull() || !MAnimUtil::isAnimated(plug, false))
        return false;
    // Channel box highlight restricts the channels, unless graph editor curves
    // are picked: those take precedence.
    if (fSelectionStrings.isEmpty() && !fChannelBox.isEmpty()
        && !fChannelBox.contains(toQString(plug.partialName(false, false, false, false, false, false))))
        return false;

    MObjectArray candidates;
    if (!fLayers.empty())
        candidatesFromLayers(plug, fLayers, candidates);
    if (candidates.length() == 0) {
        MString layerName;
        MGlobal::executeCommand("animLayer -q -bestLayer -attribute \"" + plug.name() + "\"", layerName);
        const MObject bestLayer = layerName.length() > 0 ? objectByName(layerName) : MObject();
        if (bestLayer.isNull()) {
            MObjectArray animation;
            MAnimUtil::findAnimation(plug, animation);
            if (animation.length() > 0)
                candidates.append(animation[0]);
        } else {
            candidatesFromLayers(plug, ObjectSet{bestLayer}, candidates);
        }
    }

    for (const MObject& candidate : candidates) {
        if (!isTimeCurve(candidate))
            continue;
        if (!fSelectionStrings.isEmpty() && !fSelectionStrings.contains(toQString(nodeDisplayName(candidate))))
            continue;
        curves.push_back(curveRecord(candidate));
    }
    return !curves.empty();
}

} // namespace CollectAnimation
