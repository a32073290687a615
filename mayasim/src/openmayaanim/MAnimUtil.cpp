// Which plugs keys drive: a plug is animated when anim curves driven by time
// reach its input, directly or through unit conversions and the blend nodes
// of animation layers. Set driven keys (curves driven by another plug) are
// not animation here, as in Maya.
#include <maya/MAnimUtil.h>

#include "openmayaanim/AnimCurveNodes.h"
#include "openmayaanim/AnimLayers.h"
#include "scene/Evaluation.h"
#include "scene/Plugs.h"

#include <maya/MDagPath.h>
#include <maya/MObjectArray.h>
#include <maya/MPlugArray.h>

#include <algorithm>

using namespace mayasim;

namespace {

std::optional<PlugKey> keyNamed(const Node& node, const char* attribute)
{
    const AttributePtr found = node.findAttribute(attribute);
    return found ? std::optional<PlugKey>(keyOf(*found)) : std::nullopt;
}

// The nodes a value passes through on its way from the keys.
std::vector<const char*> passedInputs(const Node& node)
{
    const std::string& type = node.type()->name;
    if (type == "unitConversion")
        return {"input"};
    return {};
}

bool drivenByTime(const Node& curve)
{
    if (!anim::curveKind(curve)->timeInput)
        return false;
    const std::optional<PlugKey> input = keyNamed(curve, "input");
    const std::optional<PlugAddress> source = input ? eval::drivingSource(curve, *input) : std::nullopt;
    const NodePtr driver = source ? source->lock() : nullptr;
    return !driver || driver->type()->name == "time";
}

void collectCurves(const Node& node, const PlugKey& key, std::vector<NodePtr>& curves, int depth)
{
    const std::optional<PlugAddress> source = eval::drivingSource(node, key);
    const NodePtr from = source ? source->lock() : nullptr;
    if (!from || depth > 32)
        return;
    if (anim::curveKind(*from))
    {
        if (drivenByTime(*from) && std::find(curves.begin(), curves.end(), from) == curves.end())
            curves.push_back(from);
        return;
    }
    // A layer's blend node: the lower layers' value and the layer's own.
    if (const auto inputs = layers::blendInputs(*from, source->key))
    {
        collectCurves(*from, inputs->first, curves, depth + 1);
        collectCurves(*from, inputs->second, curves, depth + 1);
        return;
    }
    for (const char* input : passedInputs(*from))
        if (const std::optional<PlugKey> inputKey = keyNamed(*from, input))
            collectCurves(*from, *inputKey, curves, depth + 1);
}

std::vector<NodePtr> curvesDriving(const MPlug& plug)
{
    std::vector<NodePtr> curves;
    if (const Node* node = plug.isNull() ? nullptr : plugNode(plug))
        collectCurves(*node, plugKey(plug), curves, 0);
    return curves;
}

// The node's driven plugs that keys animate, in attribute order.
std::vector<MPlug> animatedPlugsOf(const Node& node)
{
    std::vector<PlugKey> keys;
    for (const auto& [key, source] : node.incoming)
        if (!key.attribute->isCompound())
            keys.push_back(key);
    const std::vector<AttributePtr> order = node.allAttributes();
    const auto position = [&order](const PlugKey& key) {
        return std::find_if(order.begin(), order.end(), [&key](const AttributePtr& a) { return a.get() == key.attribute; });
    };
    std::stable_sort(keys.begin(), keys.end(),
                     [&](const PlugKey& a, const PlugKey& b) { return position(a) < position(b); });
    std::vector<MPlug> plugs;
    for (const PlugKey& key : keys)
    {
        MPlug plug = makePlug(node, key);
        if (!curvesDriving(plug).empty())
            plugs.push_back(plug);
    }
    return plugs;
}

// The node, then (with checkParent) its DAG parents up to the world.
std::vector<const Node*> nodesToCheck(const MObject& object, bool checkParent)
{
    std::vector<const Node*> nodes;
    for (const Node* node = nodeObject(object); node; node = checkParent ? node->parentNode().get() : nullptr)
        nodes.push_back(node);
    return nodes;
}

bool failWith(MStatus* status)
{
    if (status)
        *status = MS::kInvalidParameter;
    return false;
}

template <typename T>
bool succeedWith(MStatus* status, T result)
{
    if (status)
        *status = MS::kSuccess;
    return result;
}

} // namespace

bool MAnimUtil::isAnimated(const MObject& node, bool checkParent, MStatus* ReturnStatus)
{
    MPlugArray plugs;
    return findAnimatedPlugs(node, plugs, checkParent, ReturnStatus);
}

bool MAnimUtil::isAnimated(const MDagPath& path, bool checkParent, MStatus* ReturnStatus)
{
    MPlugArray plugs;
    return findAnimatedPlugs(path, plugs, checkParent, ReturnStatus);
}

bool MAnimUtil::isAnimated(const MPlug& plug, bool /*checkParent*/, MStatus* ReturnStatus)
{
    // A plug is examined alone: a compound's children are not looked at.
    if (plug.isNull())
        return failWith(ReturnStatus);
    return succeedWith(ReturnStatus, !curvesDriving(plug).empty());
}

bool MAnimUtil::findAnimatedPlugs(const MObject& node, MPlugArray& animatedPlugs, bool checkParent,
                                  MStatus* ReturnStatus)
{
    const std::vector<const Node*> nodes = nodesToCheck(node, checkParent);
    if (nodes.empty())
        return failWith(ReturnStatus);
    const unsigned int before = animatedPlugs.length();
    for (const Node* each : nodes)
        for (const MPlug& plug : animatedPlugsOf(*each))
            animatedPlugs.append(plug);
    return succeedWith(ReturnStatus, animatedPlugs.length() > before);
}

bool MAnimUtil::findAnimatedPlugs(const MDagPath& path, MPlugArray& animatedPlugs, bool checkParent,
                                  MStatus* ReturnStatus)
{
    // One path has one parent chain, so it reads like its node.
    return findAnimatedPlugs(path.node(), animatedPlugs, checkParent, ReturnStatus);
}

bool MAnimUtil::findAnimation(const MPlug& plug, MObjectArray& animation, MStatus* ReturnStatus)
{
    if (plug.isNull())
        return failWith(ReturnStatus);
    const std::vector<NodePtr> curves = curvesDriving(plug);
    for (const NodePtr& curve : curves)
        animation.append(objectOf(curve.get()));
    return succeedWith(ReturnStatus, !curves.empty());
}

bool MAnimUtil::findAnimationLayers(const MPlug& plug, MObjectArray& layers, MPlugArray& plugs,
                                    MStatus* ReturnStatus)
{
    if (plug.isNull())
        return failWith(ReturnStatus);
    return succeedWith(ReturnStatus, mayasim::layers::findAnimationLayers(plug, layers, plugs));
}

const char* MAnimUtil::className()
{
    return "MAnimUtil";
}
