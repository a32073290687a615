// The key-edit messages: deltas built from each curve edit, queued until the
// next idle tick or a flush, then handed to the keyframe-edited and
// curve-edited callbacks.
#include <maya/MAnimMessage.h>

#include "engine/Callbacks.h"
#include "engine/IdleCommands.h"
#include "engine/LevelBuffer.h"
#include "file/SceneFile.h"
#include "openmayaanim/AnimCurveNodes.h"
#include "openmayaanim/KeyEvents.h"
#include "scene/Scene.h"

#include <maya/MObjectArray.h>

#include <algorithm>
#include <cstdint>
#include <unordered_map>

namespace mayasim::anim {

namespace {

using DeltaBlock = std::shared_ptr<std::vector<KeyframeDelta>>;

struct Pending
{
    // Objects are made of the deltas at delivery, all sharing their block.
    // A block no object holds any more after its delivery is kept for a
    // later one, so a delivery allocates nothing once the blocks have grown.
    DeltaBlock deltas = std::make_shared<std::vector<KeyframeDelta>>();
    std::vector<DeltaBlock> spareBlocks;
    std::vector<MObject> curves; // in the order of their first edit
    std::uint64_t delivery = 0;  // counts deliveries, so a curve is listed once in each
    bool scheduled = false;

    DeltaBlock takeDeltas()
    {
        DeltaBlock taken = std::move(deltas);
        if (spareBlocks.empty())
            deltas = std::make_shared<std::vector<KeyframeDelta>>();
        else
        {
            deltas = std::move(spareBlocks.back());
            spareBlocks.pop_back();
        }
        return taken;
    }
    void giveBack(DeltaBlock block)
    {
        if (block.use_count() > 1)
            return; // a callback kept a delta
        block->clear();
        spareBlocks.push_back(std::move(block));
    }
};

Pending& pending()
{
    static Pending state;
    return state;
}

// What the messages keep of a curve: the scene node that holds its keys
// (a curve is usually edited many times in a row) and the delivery that
// last listed it.
struct Known
{
    std::weak_ptr<Node> node;
    std::uint64_t listedIn = ~std::uint64_t{0};
};

Known* knownOf(AnimCurveData& curve)
{
    static std::unordered_map<const AnimCurveData*, Known> known;
    // The curve of the previous edit, looked at first: an entry stays in
    // place until it is erased, which only its own curve does below.
    static std::pair<const AnimCurveData*, Known*> last{nullptr, nullptr};
    if (last.first == &curve && !last.second->node.expired())
        return last.second;
    last = {nullptr, nullptr};
    const auto holds = [&curve](const NodePtr& node) {
        return node && curveKind(*node) && curveData(*node).get() == &curve;
    };
    // A node found once keeps its keys while it lives, and they keep their address.
    Known& entry = known[&curve];
    if (entry.node.expired())
    {
        const auto& nodes = scene::nodes();
        const auto found = std::find_if(nodes.begin(), nodes.end(), holds);
        if (found == nodes.end())
        {
            known.erase(&curve);
            return nullptr;
        }
        entry.node = *found;
    }
    last = {&curve, &entry};
    return &entry;
}

KeyframeDelta& delta(std::vector<KeyframeDelta>& out, KeyframeDelta::Kind kind, const MObject& curve,
                     std::size_t index)
{
    return out.emplace_back(kind, curve, static_cast<unsigned int>(index));
}

// Moves and tangent changes of a key that stays on the curve, or a key set
// over it.
void compareKey(std::vector<KeyframeDelta>& out, const MObject& curve, std::size_t index, const Key& before,
                const Key& after, bool replaced)
{
    if (replaced)
    {
        KeyframeDelta& key = delta(out, KeyframeDelta::Kind::AddRemove, curve, index);
        key.addRemove = KeyframeDelta::Replaced;
        key.input = after.input;
        key.previousValue = before.value;
        key.value = after.value;
    }
    else if (before.input != after.input || before.value != after.value)
    {
        KeyframeDelta& move = delta(out, KeyframeDelta::Kind::Move, curve, index);
        move.previousIndex = static_cast<unsigned int>(index);
        move.previousInput = before.input;
        move.input = after.input;
        move.previousValue = before.value;
        move.value = after.value;
    }
    for (Side side : {Side::In, Side::Out})
        if (before.type(side) != after.type(side) || !(before.tangent(side) == after.tangent(side)))
        {
            KeyframeDelta& tangent = delta(out, KeyframeDelta::Kind::Tangent, curve, index);
            tangent.side = side;
            tangent.previousType = before.type(side);
            tangent.type = after.type(side);
            tangent.previousTangent = before.tangent(side);
            tangent.tangent = after.tangent(side);
        }
}

// The one key an edit added (in `longer`) or removed (from it): the first
// position where the two runs of keys part.
std::size_t partingPoint(const std::vector<Key>& longer, const std::vector<Key>& shorter)
{
    std::size_t at = 0;
    while (at < shorter.size() && longer[at].input == shorter[at].input)
        ++at;
    return at;
}

void describe(std::vector<KeyframeDelta>& out, const MObject& curve, const AnimCurveData& data, const CurveEdit& edit)
{
    const CurveSettings& was = edit.settingsBefore;
    const CurveSettings& is = edit.settingsAfter;
    if (was.weighted != is.weighted)
        delta(out, KeyframeDelta::Kind::Weighted, curve, 0).wasWeighted = was.weighted;
    for (Side side : {Side::In, Side::Out})
    {
        const InfinityType before = side == Side::In ? was.preInfinity : was.postInfinity;
        const InfinityType after = side == Side::In ? is.preInfinity : is.postInfinity;
        if (before == after)
            continue;
        KeyframeDelta& infinity = delta(out, KeyframeDelta::Kind::Infinity, curve, 0);
        infinity.side = side;
        infinity.previousInfinity = before;
        infinity.infinity = after;
    }

    const std::vector<Key>& before = edit.before;
    const std::vector<Key>& after = edit.after;
    if (before.size() == after.size())
    {
        for (std::size_t i = 0; i < before.size(); ++i)
            compareKey(out, curve, edit.first + i, before[i], after[i],
                       before[i].input == after[i].input && KeyReplacement::active(data, after[i].input));
        return;
    }
    // One key came or went; the others keep their order around it.
    const bool added = after.size() > before.size();
    const std::vector<Key>& longer = added ? after : before;
    const std::vector<Key>& shorter = added ? before : after;
    const std::size_t at = partingPoint(longer, shorter);
    KeyframeDelta& change = delta(out, KeyframeDelta::Kind::AddRemove, curve, edit.first + at);
    change.addRemove = added ? KeyframeDelta::Added : KeyframeDelta::Removed;
    change.input = longer[at].input;
    change.value = longer[at].value;
    for (std::size_t i = 0; i < shorter.size(); ++i)
    {
        const std::size_t inLonger = i < at ? i : i + 1;
        const std::size_t index = edit.first + (added ? inLonger : i);
        compareKey(out, curve, index, added ? before[i] : before[inLonger], added ? after[inLonger] : after[i], false);
    }
}

void curveEdited(AnimCurveData& curve, const CurveEdit& edit)
{
    if (file::reading())
        return; // a scene being read is no edit
    // Messages wait for the next idle tick (or a flush), as Maya queues
    // them. An edit is kept for the callbacks registered when it is made:
    // one nobody listens to costs nothing.
    Pending& p = pending();
    const bool deltasWanted = callbacks::listened(callbacks::Channel::AnimKeyframeEdited);
    const bool curvesWanted = callbacks::listened(callbacks::Channel::AnimCurveEdited);
    if (!deltasWanted && !curvesWanted)
        return;
    Known* known = knownOf(curve);
    if (!known)
        return;
    const MObject node = makeObject(known->node.lock());
    if (deltasWanted)
        describe(*p.deltas, node, curve, edit);
    if (curvesWanted && known->listedIn != p.delivery)
    {
        known->listedIn = p.delivery;
        p.curves.push_back(node);
    }
    p.scheduled = true;
}

void deliverIfQueued()
{
    if (pending().scheduled)
        deliverKeyEdits();
}

[[maybe_unused]] const bool observing = (setEditObserver(curveEdited), setIdleStartWork(deliverIfQueued), true);

// The arrays of one delivery, kept from delivery to delivery.
struct Delivery
{
    MObjectArray deltas;
    MObjectArray curves;
    MObjectArray handed;

    void clear()
    {
        deltas.clear();
        curves.clear();
        handed.clear();
    }
};

void fireWith(callbacks::Channel channel, MObjectArray& objects, MObjectArray& handed)
{
    // Each callback gets its own copy, which it may change; the last one
    // called gets the delivery's array itself, which nobody reads after it.
    const std::size_t listeners = callbacks::listeners(channel);
    std::size_t called = 0;
    callbacks::fire(channel, [](const callbacks::Callback&) { return true; },
                    [&](const callbacks::Callback& c) {
                        const auto function = c.as<MMessage::MObjArray>();
                        if (++called == listeners)
                            return function(objects, c.clientData);
                        handed = objects;
                        function(handed, c.clientData);
                    });
}

} // namespace

std::vector<std::pair<const AnimCurveData*, double>>& replacements()
{
    static std::vector<std::pair<const AnimCurveData*, double>> active;
    return active;
}

KeyReplacement::KeyReplacement(const AnimCurveData& curve, double input) : fCurve(&curve), fInput(input)
{
    replacements().emplace_back(fCurve, fInput);
}

KeyReplacement::~KeyReplacement()
{
    auto& active = replacements();
    active.erase(std::find(active.begin(), active.end(), std::make_pair(fCurve, fInput)));
}

bool KeyReplacement::active(const AnimCurveData& curve, double input)
{
    const auto& active = replacements();
    return std::find(active.begin(), active.end(), std::make_pair(&curve, input)) != active.end();
}

void deliverKeyEdits()
{
    Pending& p = pending();
    p.scheduled = false;
    ++p.delivery;
    // Callbacks may edit curves again: those edits are the next delivery's,
    // which may come before this one ends and then takes the next level.
    LevelBuffer<Delivery> buffer;
    Delivery& d = buffer.get();
    // Objects are made only for a message someone listens to.
    DeltaBlock block;
    if (!p.deltas->empty() && callbacks::listened(callbacks::Channel::AnimKeyframeEdited))
    {
        block = p.takeDeltas();
        for (KeyframeDelta& delta : *block)
            d.deltas.append(makeObject(std::shared_ptr<Object>(block, &delta)));
    }
    p.deltas->clear();
    if (callbacks::listened(callbacks::Channel::AnimCurveEdited))
        for (const MObject& curve : p.curves)
            d.curves.append(curve);
    p.curves.clear();
    if (d.deltas.length() > 0)
        fireWith(callbacks::Channel::AnimKeyframeEdited, d.deltas, d.handed);
    if (d.curves.length() > 0)
        fireWith(callbacks::Channel::AnimCurveEdited, d.curves, d.handed);
    d.clear();
    if (block)
        p.giveBack(std::move(block));
}

} // namespace mayasim::anim

namespace {

MCallbackId addAnimCallback(mayasim::callbacks::Channel channel, MMessage::MObjArray func, void* clientData,
                            MStatus* ReturnStatus)
{
    if (!func)
    {
        if (ReturnStatus)
            *ReturnStatus = MS::kInvalidParameter;
        return 0;
    }
    mayasim::callbacks::Callback callback;
    callback.channel = channel;
    callback.function = mayasim::callbacks::untyped(func);
    callback.clientData = clientData;
    if (ReturnStatus)
        *ReturnStatus = MS::kSuccess;
    return mayasim::callbacks::add(std::move(callback));
}

} // namespace

MCallbackId MAnimMessage::addAnimCurveEditedCallback(MMessage::MObjArray func, void* clientData,
                                                     MStatus* ReturnStatus)
{
    return addAnimCallback(mayasim::callbacks::Channel::AnimCurveEdited, func, clientData, ReturnStatus);
}

MCallbackId MAnimMessage::addAnimKeyframeEditedCallback(MMessage::MObjArray func, void* clientData,
                                                        MStatus* ReturnStatus)
{
    return addAnimCallback(mayasim::callbacks::Channel::AnimKeyframeEdited, func, clientData, ReturnStatus);
}

void MAnimMessage::flushAnimKeyframeEditedCallbacks()
{
    mayasim::anim::deliverKeyEdits();
}

const char* MAnimMessage::className()
{
    return "MAnimMessage";
}
