#include "openmayaanim/KeySelection.h"

#include "openmayaanim/AnimCurveNodes.h"
#include "scene/Scene.h"
#include "scene/Selection.h"

#include <maya/MSelectionList.h>
#include <mayasim/Host.h>

#include <algorithm>

namespace mayasim::anim {

namespace {

KeyPicks& stored()
{
    static KeyPicks picks;
    return picks;
}

bool isSelected(const Node& curve)
{
    for (const SelectionItem& item : SelectionAccess::items(selection::active()))
        if (nodeObject(item.node) == &curve)
            return true;
    return false;
}

// The curve's picks that still name keys, as indices.
std::vector<unsigned int> indicesOf(Node& curve, const std::vector<double>& inputs)
{
    const std::shared_ptr<AnimCurveData> data = curveData(curve);
    std::vector<unsigned int> indices;
    for (double input : inputs)
        if (std::size_t index = 0; data->find(input, index))
            indices.push_back(static_cast<unsigned int>(index));
    std::sort(indices.begin(), indices.end());
    return indices;
}

bool hasPicks(const KeyPicks& picks, const Node& curve)
{
    return std::any_of(picks.begin(), picks.end(), [&curve](const CurvePick& p) {
        return p.curve.lock().get() == &curve && !p.inputs.empty();
    });
}

} // namespace

KeyPicks keyPicks()
{
    KeyPicks live;
    for (const CurvePick& p : stored())
        if (NodePtr curve = p.curve.lock(); curve && curve->alive && isSelected(*curve) && !p.inputs.empty())
            live.push_back(p);
    return live;
}

std::vector<unsigned int> pickedKeys(Node& curve)
{
    for (const CurvePick& p : keyPicks())
        if (p.curve.lock().get() == &curve)
            return indicesOf(curve, p.inputs);
    return {};
}

KeyPicks withKeys(KeyPicks picks, Node& curve, const std::vector<unsigned int>& indices, PickEdit edit)
{
    auto at = std::find_if(picks.begin(), picks.end(), [&curve](const CurvePick& p) { return p.curve.lock().get() == &curve; });
    if (at == picks.end())
        at = picks.insert(picks.end(), CurvePick{curve.self(), {}});
    const std::shared_ptr<AnimCurveData> data = curveData(curve);
    std::vector<double>& inputs = at->inputs;
    for (unsigned int index : indices)
    {
        const double input = data->key(index).input;
        const auto found = std::lower_bound(inputs.begin(), inputs.end(), input);
        const bool present = found != inputs.end() && *found == input;
        if (present && edit != PickEdit::Add)
            inputs.erase(found);
        else if (!present && edit != PickEdit::Remove)
            inputs.insert(found, input);
    }
    if (inputs.empty())
        picks.erase(at);
    return picks;
}

void pick(const KeyPicks& picks, EditList* edits)
{
    stored() = picks;
    MSelectionList list = selection::active();
    for (unsigned int i = list.length(); i-- > 0;) {
        const Node* node = nodeObject(SelectionAccess::items(list)[i].node);
        if (node && curveKind(*node) && !hasPicks(picks, *node))
            list.remove(i);
    }
    for (const CurvePick& p : picks)
        if (NodePtr curve = p.curve.lock(); curve && !p.inputs.empty())
            list.add(objectOf(curve.get()), true);
    if (edits)
        selection::select(*edits, list);
    else
        selection::setActive(list);
}

void PickChange::undo()
{
    stored() = fBefore;
}

void PickChange::redo()
{
    stored() = fAfter;
}

} // namespace mayasim::anim

namespace mayasim::host {

namespace {

// The curve a host call names, and whether all the indices are its keys.
NodePtr curveWithKeys(const std::string& name, const std::vector<unsigned int>& indices)
{
    NodePtr curve = scene::find(name);
    if (!curve || !anim::curveKind(*curve))
        return nullptr;
    const std::size_t count = anim::curveData(*curve)->size();
    const bool valid = std::all_of(indices.begin(), indices.end(), [count](unsigned int i) { return i < count; });
    return valid ? curve : nullptr;
}

bool changePicks(const std::string& curve, const std::vector<unsigned int>& indices, anim::PickEdit edit)
{
    const NodePtr node = curveWithKeys(curve, indices);
    if (node)
        anim::pick(anim::withKeys(anim::keyPicks(), *node, indices, edit), nullptr);
    return node != nullptr;
}

} // namespace

bool selectKeys(const std::string& curve, const std::vector<unsigned int>& indices)
{
    return changePicks(curve, indices, anim::PickEdit::Add);
}

bool deselectKeys(const std::string& curve, const std::vector<unsigned int>& indices)
{
    return changePicks(curve, indices, anim::PickEdit::Remove);
}

void clearKeySelection()
{
    anim::pick({}, nullptr);
}

std::vector<unsigned int> selectedKeys(const std::string& curve)
{
    const NodePtr node = curveWithKeys(curve, {});
    return node ? anim::pickedKeys(*node) : std::vector<unsigned int>();
}

} // namespace mayasim::host
