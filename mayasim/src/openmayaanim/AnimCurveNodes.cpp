#include "openmayaanim/AnimCurveNodes.h"

#include "file/SceneFile.h"
#include "openmayaanim/KeyAttributes.h"
#include "scene/Evaluation.h"
#include "scene/NodeType.h"

#include <unordered_map>

namespace mayasim::anim {

namespace {

const CurveKind kKinds[] = {
    {0, "animCurveTA", true, OutputUnit::Angle},  {1, "animCurveTL", true, OutputUnit::Distance},
    {2, "animCurveTT", true, OutputUnit::Time},   {3, "animCurveTU", true, OutputUnit::Unitless},
    {4, "animCurveUA", false, OutputUnit::Angle}, {5, "animCurveUL", false, OutputUnit::Distance},
    {6, "animCurveUT", false, OutputUnit::Time},  {7, "animCurveUU", false, OutputUnit::Unitless},
};

const MFn::Type kApiTypes[] = {MFn::kAnimCurveTimeToAngular,     MFn::kAnimCurveTimeToDistance,
                               MFn::kAnimCurveTimeToTime,        MFn::kAnimCurveTimeToUnitless,
                               MFn::kAnimCurveUnitlessToAngular, MFn::kAnimCurveUnitlessToDistance,
                               MFn::kAnimCurveUnitlessToTime,    MFn::kAnimCurveUnitlessToUnitless};

// Maya's type ids: 'PCTA', 'PCTL', ... ("param curve").
unsigned int typeIdOf(const CurveKind& kind)
{
    const std::string name = kind.typeName;
    return 0x50430000u | (static_cast<unsigned int>(name[9]) << 8) | static_cast<unsigned int>(name[10]);
}

AttributePtr valueAttribute(const std::string& longName, const std::string& shortName, OutputUnit unit)
{
    switch (unit)
    {
    case OutputUnit::Angle: return makeUnit(longName, shortName, MFnUnitAttribute::kAngle);
    case OutputUnit::Distance: return makeUnit(longName, shortName, MFnUnitAttribute::kDistance);
    case OutputUnit::Time: return makeUnit(longName, shortName, MFnUnitAttribute::kTime);
    case OutputUnit::Unitless: break;
    }
    return makeNumeric(longName, shortName, MFnNumericData::kDouble);
}

std::optional<Value> computeOutput(Node& node, const PlugKey& key)
{
    if (key.attribute->longName != "output")
        return std::nullopt;
    const CurveKind* kind = curveKind(node);
    const PlugKey input{node.findAttribute("input").get(), {}};
    double at;
    if (kind->timeInput && !eval::drivingSource(node, input))
        at = wholeTicks(eval::evaluationTime().as(MTime::kSeconds));
    else
        at = eval::read(node, input).number;
    return Value::ofNumber(curveData(node)->evaluate(at));
}

// A duplicate of a curve gets the same keys, as one edit of its empty curve.
void copyKeys(Node& original, Node& copy)
{
    const AnimCurveData& from = *curveData(original);
    AnimCurveData& to = *curveData(copy);
    CurveEdit fill{0, {}, {}, to.settings(), from.settings()};
    for (std::size_t i = 0; i < from.size(); ++i)
        fill.after.push_back(from.key(i));
    to.apply(fill, true);
}

void registerCurveTypes()
{
    NodeTypePtr base = makeNodeType("animCurve", findNodeType("node"), MFn::kAnimCurve);
    base->abstract = true;
    registerNodeType(base);
    for (std::size_t i = 0; i < std::size(kKinds); ++i)
    {
        const CurveKind& kind = kKinds[i];
        NodeTypePtr type = makeNodeType(kind.typeName, base, kApiTypes[i], typeIdOf(kind));
        type->addAttribute(valueAttribute("input", "i", kind.timeInput ? OutputUnit::Time : OutputUnit::Unitless));
        AttributePtr output = valueAttribute("output", "o", kind.output);
        output->writable = false;
        output->storable = false;
        type->addAttribute(output);
        type->compute = computeOutput;
        type->copyData = copyKeys;
        declareKeyAttributes(*type,
                             valueAttribute("keyTime", "kt", kind.timeInput ? OutputUnit::Time : OutputUnit::Unitless),
                             valueAttribute("keyValue", "kv", kind.output));
        registerNodeType(type);
    }
}

const bool registered = (registerCurveTypes(), true);

struct Held
{
    std::weak_ptr<Object> node;
    std::shared_ptr<AnimCurveData> data;
};

// Curves by node. An entry is only trusted while its node lives, as a new
// node may come to the address of a destroyed one.
std::unordered_map<const Node*, Held>& curves()
{
    static std::unordered_map<const Node*, Held> table;
    return table;
}

} // namespace

const CurveKind* curveKind(int animCurveType)
{
    return animCurveType >= 0 && animCurveType < static_cast<int>(std::size(kKinds)) ? &kKinds[animCurveType] : nullptr;
}

const CurveKind* curveKind(const Node& node)
{
    // Only these types have these api types.
    for (std::size_t i = 0; i < std::size(kKinds); ++i)
        if (node.type()->apiType == kApiTypes[i])
            return &kKinds[i];
    return nullptr;
}

std::shared_ptr<AnimCurveData> curveData(Node& node)
{
    // An entry whose node lives is this node's: no two live nodes share an
    // address. The previous call's entry is looked at first, as reads and
    // edits come curve by curve; entries stay in place until the sweep below.
    static std::pair<const Node*, const Held*> last{nullptr, nullptr};
    if (last.first == &node && !last.second->node.expired())
        return last.second->data;
    auto found = curves().find(&node);
    if (found != curves().end() && !found->second.node.expired())
    {
        last = {&node, &found->second};
        return found->second.data;
    }
    last = {nullptr, nullptr};
    for (auto it = curves().begin(); it != curves().end();)
        it = it->second.node.expired() ? curves().erase(it) : std::next(it);
    auto data = std::make_shared<AnimCurveData>(curveKind(node)->timeInput);
    curves()[&node] = {node.weak_from_this(), data};
    // A curve a file makes is weighted unless the file says otherwise: the
    // node's default, which files leave out.
    if (file::reading())
        data->setWeighted(true, nullptr);
    return data;
}

} // namespace mayasim::anim
