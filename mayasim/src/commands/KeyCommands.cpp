// setKeyframe, cutKey, keyframe and selectKey: keys set, removed, moved,
// queried and picked. Times and values on the command line are in UI units.
#include "commands/KeySupport.h"
#include "commands/TimeArguments.h"
#include "openmayaanim/AnimCurveNodes.h"
#include "openmayaanim/AnimLayers.h"
#include "openmayaanim/KeySelection.h"
#include "scene/Evaluation.h"
#include "scene/Operations.h"
#include "scene/Plugs.h"

#include <maya/MAnimControl.h>
#include <maya/MAnimUtil.h>
#include <maya/MDGContext.h>
#include <maya/MDGContextGuard.h>
#include <maya/MDGModifier.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MObjectArray.h>

#include <algorithm>
#include <optional>

namespace mayasim::commands {

namespace {

MObject objectFor(const NodePtr& node)
{
    return objectOf(node.get());
}

// --- setKeyframe ------------------------------------------------------------------

// Sets a key (internal value) on a curve, over the key at that time if any.
void setKeyOn(KeyEdits& edits, const MObject& curve, const MTime& time, double value,
              MFnAnimCurve::TangentType outType = MFnAnimCurve::kTangentGlobal)
{
    MFnAnimCurve fn(curve);
    MStatus status;
    fn.addKey(time, value, MFnAnimCurve::kTangentGlobal, outType, edits.curves(), &status);
    if (!status)
        throw MelError(std::string("setKeyframe: Cannot set a key on ") + fn.name().asChar() + ".");
}

// What the plug holds at a time: now, its present value (a value set on
// it since the last time change included); at another time, its input's.
double plugValueAt(const PlugRef& plug, const MTime& time)
{
    if (time == MAnimControl::currentTime())
        return eval::read(*plug.node, plug.key).number;
    MDGContextGuard guard{MDGContext(time)};
    return eval::read(*plug.node, plug.key).number;
}

// Keys a plug, making its curve when it has none. False for a plug that
// something other than keys drives.
bool keyPlug(KeyEdits& edits, const PlugRef& shown, const std::vector<MTime>& times, std::optional<double> uiValue)
{
    // A plug in animation layers is keyed through its best layer's blend input.
    const MPlug target = layers::keyTarget(makePlug(*shown.node, shown.key));
    const PlugRef plug{plugNode(target)->self(), plugKey(target)};
    MObjectArray found;
    MAnimUtil::findAnimation(target, found);
    MObject curve = found.length() > 0 ? found[0] : MObject();
    if (curve.isNull() && eval::drivingSource(*plug.node, plug.key))
        return false;
    // The values first: a new curve would drive the plug.
    std::vector<double> values;
    for (const MTime& time : times)
        values.push_back(uiValue ? 0.0 : plugValueAt(plug, time));
    if (curve.isNull())
    {
        MDGModifier modifier;
        MStatus status;
        curve = MFnAnimCurve().create(target, &modifier, &status);
        if (!status || !modifier.doIt())
            throw MelError("setKeyframe: Cannot key " + ops::plugText(*plug.node, plug.key) + ".");
        ops::absorb(edits.scene(), modifier);
    }
    // Switches (booleans and enums) hold their value until the next key.
    const Attribute& attribute = *plug.key.attribute;
    const bool stepped = attribute.kind == Attribute::Kind::Enum ||
                         (attribute.kind == Attribute::Kind::Numeric && attribute.numericType == MFnNumericData::kBoolean);
    for (std::size_t i = 0; i < times.size(); ++i)
        setKeyOn(edits, curve, times[i], uiValue ? curveValueFromUi(*nodeObject(curve), *uiValue) : values[i],
                 stepped ? MFnAnimCurve::kTangentStep : MFnAnimCurve::kTangentGlobal);
    // Keyed, the plug follows its curve again: a value set on it gives way.
    for (const PlugRef& keyed : {plug, shown})
        if (PlugState* state = keyed.node->state(keyed.key))
            state->heldStamp = -1;
    return true;
}

MelValue setKeyframe(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"t", "time", 1}, {"at", "attribute", 1}, {"v", "value", 1}, {"bd", "breakdown", 1}});
    if (args.has("breakdown") && args.args("breakdown").at(0).boolean())
        throw MelError("setKeyframe: Breakdown keys are not supported.");
    std::vector<MTime> times;
    for (const auto& use : args.uses("time"))
        times.push_back(timeArgument(use.at(0).text, call.name));
    if (times.empty())
        times.push_back(MAnimControl::currentTime());
    const std::optional<double> value =
        args.has("value") ? std::optional<double>(args.args("value").at(0).number()) : std::nullopt;
    const std::vector<std::string> attributes = attributeNames(args);

    std::vector<NodePtr> curves;
    std::vector<PlugRef> targets;
    const auto addNode = [&](const NodePtr& node) {
        if (anim::curveKind(*node))
            curves.push_back(node);
        else
            for (const PlugRef& plug : keyablePlugs(node, attributes))
                targets.push_back(plug);
    };
    if (args.positional().empty())
        for (const NodePtr& node : selectedNodes())
            addNode(node);
    for (const Word& word : args.positional())
    {
        if (word.text.find('.') == std::string::npos)
        {
            for (const NodePtr& node : nodes({word}, false))
                addNode(node);
            continue;
        }
        for (const PlugRef& plug : plugs(word.text))
            for (const PlugRef& leaf : unlockedLeaves(plug))
                targets.push_back(leaf);
    }
    if (curves.empty() && targets.empty() && args.positional().empty())
        throw MelError("setKeyframe: No objects specified.");

    KeyEdits edits;
    long keys = 0;
    for (const PlugRef& plug : targets)
        if (keyPlug(edits, plug, times, value))
            keys += static_cast<long>(times.size());
    for (const NodePtr& curve : curves)
        for (const MTime& time : times)
        {
            const MObject object = objectFor(curve);
            setKeyOn(edits, object, time,
                     value ? curveValueFromUi(*curve, *value) : MFnAnimCurve(object).evaluate(time));
            ++keys;
        }
    edits.commit();
    return MelValue::ofInt(keys);
}

// --- cutKey ------------------------------------------------------------------------

MelValue cutKey(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"t", "time", 1}, {"at", "attribute", 1}, {"an", "animation", 1}, {"cl", "clear", 0}});
    // Without -clear Maya also copies the keys to its clipboard, which
    // nothing here reads.
    KeyEdits edits;
    long cut = 0;
    for (const CurveKeys& keys : keysActedOn(args, call.name))
    {
        if (keys.indices.empty())
            continue;
        MFnAnimCurve fn(objectFor(keys.curve));
        for (auto index = keys.indices.rbegin(); index != keys.indices.rend(); ++index)
            if (!fn.remove(*index, edits.curves()))
                throw MelError("cutKey: Cannot cut keys of " + nameOf(*keys.curve) + ".");
        // A curve left without keys goes with them.
        if (fn.numKeys() == 0)
            ops::deleteNode(edits.scene(), keys.curve);
        ++cut;
    }
    edits.commit();
    return MelValue::ofInt(cut);
}

// --- keyframe ----------------------------------------------------------------------

std::vector<CurveKeys> pickedKeysOf(const ParsedArgs& args, const std::string& command)
{
    const std::vector<NodePtr> named =
        args.positional().empty() ? std::vector<NodePtr>() : curvesNamed(args.positional(), attributeNames(args));
    const std::vector<TimeRange> ranges = timeRanges(args, "time", command);
    std::vector<CurveKeys> result;
    for (const anim::CurvePick& pick : anim::keyPicks())
    {
        NodePtr curve = pick.curve.lock();
        if (!named.empty() && std::find(named.begin(), named.end(), curve) == named.end())
            continue;
        MFnAnimCurve fn(objectFor(curve));
        CurveKeys keys{curve, {}};
        for (unsigned int index : anim::pickedKeys(*curve))
            if (ranges.empty() || inAny(ranges, fn.time(index)))
                keys.indices.push_back(index);
        result.push_back(keys);
    }
    return result;
}

MelValue queryKeys(const ParsedArgs& args, const std::string& command)
{
    const std::vector<CurveKeys> found = args.has("selected") ? pickedKeysOf(args, command) : keysActedOn(args, command);
    long count = 0;
    for (const CurveKeys& keys : found)
        count += static_cast<long>(keys.indices.size());
    if (args.has("keyframeCount"))
        return MelValue::ofInt(count);
    if (count == 0)
        return MelValue::none(); // no answer at all, as in Maya
    std::vector<long> indices;
    std::vector<double> numbers;
    std::vector<std::string> names;
    const bool times = args.has("timeChange") || !args.has("valueChange");
    for (const CurveKeys& keys : found)
    {
        MFnAnimCurve fn(objectFor(keys.curve));
        if (!keys.indices.empty())
            names.push_back(nameOf(*keys.curve));
        for (unsigned int index : keys.indices)
        {
            indices.push_back(index);
            if (times)
                numbers.push_back(uiTime(fn.time(index)));
            if (args.has("valueChange"))
                numbers.push_back(curveValueToUi(*keys.curve, fn.value(index)));
        }
    }
    if (args.has("name"))
        return MelValue::ofStrings(names);
    if (args.has("indexValue"))
        return MelValue::ofInts(indices);
    return MelValue::ofFloats(numbers);
}

// Moves a curve's keys by whole ticks, in the order that keeps them apart.
void moveKeys(KeyEdits& edits, const CurveKeys& keys, const MTime& by)
{
    MFnAnimCurve fn(objectFor(keys.curve));
    std::vector<unsigned int> order = keys.indices;
    if (by > MTime(0.0))
        std::reverse(order.begin(), order.end());
    for (unsigned int index : order)
        if (!fn.setTime(index, fn.time(index) + by, edits.curves()))
            throw MelError("keyframe: Cannot move the keys of " + nameOf(*keys.curve) +
                           ": another key is in the way.");
}

MelValue editKeys(const ParsedArgs& args, const std::string& command)
{
    const auto number = [&args](const char* flag) {
        return args.has(flag) ? std::optional<double>(args.args(flag).at(0).number()) : std::nullopt;
    };
    const std::optional<double> timeChange = number("timeChange");
    const std::optional<double> valueChange = number("valueChange");
    const bool relative = args.has("relative");
    KeyEdits edits;
    const anim::KeyPicks before = anim::keyPicks();
    anim::KeyPicks picks = before;
    long edited = 0;
    for (const CurveKeys& keys : keysActedOn(args, command))
    {
        if (keys.indices.empty())
            continue;
        MFnAnimCurve fn(objectFor(keys.curve));
        if (valueChange)
            for (unsigned int index : keys.indices)
            {
                const double ui = relative ? curveValueToUi(*keys.curve, fn.value(index)) + *valueChange : *valueChange;
                fn.setValue(index, curveValueFromUi(*keys.curve, ui), edits.curves());
            }
        if (timeChange)
        {
            // Absolute: the first key lands on the time, the others keep their spacing.
            const MTime to(*timeChange, MTime::uiUnit());
            const MTime by = relative ? to : to - fn.time(keys.indices.front());
            // Picks stay on their keys, which keep their indices.
            const std::vector<unsigned int> picked = anim::pickedKeys(*keys.curve);
            picks = anim::withKeys(picks, *keys.curve, picked, anim::PickEdit::Remove);
            moveKeys(edits, keys, by);
            picks = anim::withKeys(picks, *keys.curve, picked, anim::PickEdit::Add);
        }
        ++edited;
    }
    edits.commit();
    if (timeChange)
    {
        undoable([&](EditList& selection) { anim::pick(picks, &selection); });
        recordUndo(std::make_unique<anim::PickChange>(before, picks));
    }
    return MelValue::ofInt(edited);
}

MelValue keyframe(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0},         {"e", "edit", 0},           {"sl", "selected", 0},
                           {"iv", "indexValue", 0},   {"vc", "valueChange", 1},   {"tc", "timeChange", 1},
                           {"kc", "keyframeCount", 0}, {"n", "name", 0},          {"t", "time", 1, true},
                           {"at", "attribute", 1, true}, {"an", "animation", 1, true}, {"r", "relative", 0},
                           {"a", "absolute", 0}});
    return args.has("query") ? queryKeys(args, call.name) : editKeys(args, call.name);
}

// --- selectKey ---------------------------------------------------------------------

MelValue selectKey(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"add", "add", 0}, {"rm", "remove", 0}, {"tgl", "toggle", 0}, {"cl", "clear", 0},
                           {"t", "time", 1}, {"at", "attribute", 1}, {"k", "keyframe", 0}});
    const anim::KeyPicks before = anim::keyPicks();
    const bool adjusting = args.has("add") || args.has("remove") || args.has("toggle");
    anim::KeyPicks after = adjusting ? before : anim::KeyPicks();
    const anim::PickEdit edit = args.has("remove")   ? anim::PickEdit::Remove
                                : args.has("toggle") ? anim::PickEdit::Toggle
                                                     : anim::PickEdit::Add;
    long curves = 0;
    if (!args.has("clear"))
    {
        const std::vector<TimeRange> ranges = timeRanges(args, "time", call.name);
        for (const NodePtr& curve : curvesNamed(args.positional(), attributeNames(args)))
        {
            MFnAnimCurve fn(objectFor(curve));
            std::vector<unsigned int> indices;
            for (unsigned int index = 0; index < fn.numKeys(); ++index)
                if (ranges.empty() || inAny(ranges, fn.time(index)))
                    indices.push_back(index);
            if (indices.empty())
                continue;
            after = anim::withKeys(after, *curve, indices, edit);
            ++curves;
        }
    }
    undoable([&](EditList& selection) { anim::pick(after, &selection); });
    recordUndo(std::make_unique<anim::PickChange>(before, after));
    return MelValue::ofInt(curves);
}

BuiltinRegistrar setKeyframeCommand("setKeyframe", setKeyframe);
BuiltinRegistrar cutKeyCommand("cutKey", cutKey);
BuiltinRegistrar keyframeCommand("keyframe", keyframe);
BuiltinRegistrar selectKeyCommand("selectKey", selectKey);

} // namespace

} // namespace mayasim::commands
