#include "commands/KeySupport.h"

#include "commands/TimeArguments.h"
#include "openmayaanim/AnimCurveNodes.h"
#include "openmayaanim/KeySelection.h"
#include "scene/Operations.h"
#include "scene/Plugs.h"
#include "scene/Selection.h"

#include <maya/MAngle.h>
#include <maya/MAnimUtil.h>
#include <maya/MDistance.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MObjectArray.h>
#include <maya/MPlugArray.h>
#include <maya/MTime.h>

#include <algorithm>

namespace mayasim::commands {

// --- KeyEdits ------------------------------------------------------------------

namespace {

class SceneStep : public UndoItem
{
public:
    EditList edits;
    void undo() override { edits.revert(); }
    void redo() override { edits.apply(); }
};

class CurveStep : public UndoItem
{
public:
    MAnimCurveChange change;
    void undo() override { change.undoIt(); }
    void redo() override { change.redoIt(); }
};

} // namespace

class KeyEdits::Steps : public UndoItem
{
public:
    std::vector<std::unique_ptr<UndoItem>> steps;

    void undo() override
    {
        for (auto step = steps.rbegin(); step != steps.rend(); ++step)
            (*step)->undo();
    }
    void redo() override
    {
        for (auto& step : steps)
            step->redo();
    }
    // The last step when it is of that kind, else a new one.
    template <typename Step>
    Step& last()
    {
        if (auto* step = steps.empty() ? nullptr : dynamic_cast<Step*>(steps.back().get()))
            return *step;
        steps.push_back(std::make_unique<Step>());
        return static_cast<Step&>(*steps.back());
    }
};

KeyEdits::KeyEdits() : fSteps(std::make_unique<Steps>()) {}

KeyEdits::~KeyEdits()
{
    if (fSteps)
        fSteps->undo();
}

EditList& KeyEdits::scene()
{
    return fSteps->last<SceneStep>().edits;
}

MAnimCurveChange* KeyEdits::curves()
{
    return &fSteps->last<CurveStep>().change;
}

void KeyEdits::commit()
{
    recordUndo(std::move(fSteps));
}

// --- what the words name -----------------------------------------------------------

std::vector<std::string> attributeNames(const ParsedArgs& args)
{
    std::vector<std::string> names;
    for (const auto& use : args.uses("attribute"))
        names.push_back(use.at(0).text);
    return names;
}

namespace {

void addLeaves(const NodePtr& node, const PlugKey& key, std::vector<PlugRef>& plugs)
{
    if (!key.attribute->isCompound())
    {
        if (!ops::locked(*node, key))
            plugs.push_back({node, key});
        return;
    }
    for (const PlugKey& child : childKeys(key))
        addLeaves(node, child, plugs);
}

void addCurves(const MPlug& plug, std::vector<NodePtr>& curves)
{
    MObjectArray found;
    MAnimUtil::findAnimation(plug, found);
    for (unsigned int i = 0; i < found.length(); ++i)
        if (NodePtr curve = nodePtr(found[i]); std::find(curves.begin(), curves.end(), curve) == curves.end())
            curves.push_back(curve);
}

void addPlugCurves(const PlugRef& plug, std::vector<NodePtr>& curves)
{
    std::vector<PlugRef> leaves = unlockedLeaves(plug);
    if (leaves.empty()) // a locked plug still has its curves
        leaves.push_back(plug);
    for (const PlugRef& leaf : leaves)
        addCurves(makePlug(*leaf.node, leaf.key), curves);
}

void addNodeCurves(const NodePtr& node, const std::vector<std::string>& attributes, std::vector<NodePtr>& curves)
{
    if (anim::curveKind(*node))
    {
        if (std::find(curves.begin(), curves.end(), node) == curves.end())
            curves.push_back(node);
        return;
    }
    if (!attributes.empty())
    {
        for (const std::string& name : attributes)
            if (const AttributePtr attribute = node->findAttribute(name))
                addPlugCurves({node, keyOf(*attribute)}, curves);
        return;
    }
    MPlugArray plugs;
    MAnimUtil::findAnimatedPlugs(objectOf(node.get()), plugs);
    for (unsigned int i = 0; i < plugs.length(); ++i)
        addCurves(plugs[i], curves);
}

} // namespace

std::vector<PlugRef> unlockedLeaves(const PlugRef& plug)
{
    std::vector<PlugRef> leaves;
    addLeaves(plug.node, plug.key, leaves);
    return leaves;
}

std::vector<PlugRef> keyablePlugs(const NodePtr& node, const std::vector<std::string>& attributes)
{
    std::vector<PlugRef> plugs;
    if (attributes.empty())
    {
        for (const AttributePtr& attribute : node->allAttributes())
            if (!attribute->isCompound() && attribute->arrayDepth() == 0 &&
                makePlug(*node, keyOf(*attribute)).isKeyable())
                addLeaves(node, keyOf(*attribute), plugs);
        return plugs;
    }
    for (const std::string& name : attributes)
    {
        const AttributePtr attribute = node->findAttribute(name);
        if (!attribute)
            throw noMatch(nameOf(*node) + "." + name);
        addLeaves(node, keyOf(*attribute), plugs);
    }
    return plugs;
}

std::vector<NodePtr> curvesNamed(const std::vector<Word>& words, const std::vector<std::string>& attributes)
{
    std::vector<NodePtr> curves;
    if (words.empty())
    {
        for (const SelectionItem& item : SelectionAccess::items(selection::active()))
        {
            if (!item.plug.isNull())
                addPlugCurves({nodePtr(item.node), plugKey(item.plug)}, curves);
            else if (NodePtr node = nodePtr(item.node))
                addNodeCurves(node, attributes, curves);
        }
        return curves;
    }
    for (const Word& word : words)
    {
        if (word.text.find('.') != std::string::npos)
            for (const PlugRef& plug : plugs(word.text))
                addPlugCurves(plug, curves);
        else
            for (const NodePtr& node : nodes({word}, false))
                addNodeCurves(node, attributes, curves);
    }
    return curves;
}

std::vector<CurveKeys> keysActedOn(const ParsedArgs& args, const std::string& command)
{
    const std::string mode = args.has("animation") ? args.args("animation").at(0).text : "keysOrObjects";
    if (mode != "keys" && mode != "objects" && mode != "keysOrObjects")
        throw MelError(command + ": Invalid -animation value: " + mode);
    const std::vector<TimeRange> ranges = timeRanges(args, "time", command);
    const auto within = [&ranges](const NodePtr& curve, const std::vector<unsigned int>& indices) {
        MFnAnimCurve fn(objectOf(curve.get()));
        CurveKeys keys{curve, {}};
        for (unsigned int index : indices)
            if (ranges.empty() || inAny(ranges, fn.time(index)))
                keys.indices.push_back(index);
        return keys;
    };
    std::vector<CurveKeys> result;
    const anim::KeyPicks picks = anim::keyPicks();
    const bool usePicks = mode == "keys" || (mode == "keysOrObjects" && args.positional().empty() && !picks.empty());
    if (usePicks)
    {
        for (const anim::CurvePick& pick : picks)
            if (NodePtr curve = pick.curve.lock())
                result.push_back(within(curve, anim::pickedKeys(*curve)));
        return result;
    }
    for (const NodePtr& curve : curvesNamed(args.positional(), attributeNames(args)))
    {
        std::vector<unsigned int> all(MFnAnimCurve(objectOf(curve.get())).numKeys());
        for (unsigned int i = 0; i < all.size(); ++i)
            all[i] = i;
        result.push_back(within(curve, all));
    }
    return result;
}

// --- units ------------------------------------------------------------------------

double curveValueFromUi(const Node& curve, double value)
{
    switch (anim::curveKind(curve)->output)
    {
    case anim::OutputUnit::Angle: return MAngle::uiToInternal(value);
    case anim::OutputUnit::Distance: return MDistance::uiToInternal(value);
    case anim::OutputUnit::Time: return MTime(value, MTime::uiUnit()).as(MTime::kSeconds);
    case anim::OutputUnit::Unitless: break;
    }
    return value;
}

double curveValueToUi(const Node& curve, double value)
{
    switch (anim::curveKind(curve)->output)
    {
    case anim::OutputUnit::Angle: return MAngle::internalToUI(value);
    case anim::OutputUnit::Distance: return MDistance::internalToUI(value);
    case anim::OutputUnit::Time: return MTime(value, MTime::kSeconds).as(MTime::uiUnit());
    case anim::OutputUnit::Unitless: break;
    }
    return value;
}

} // namespace mayasim::commands
