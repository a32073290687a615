#pragma once
// Animation layers as Maya builds them. Layers are animLayer nodes under the
// root "BaseAnimation" (child.parentLayer -> parent.childrenLayers[i]). A
// plug in layers is driven through a chain of blend nodes, one per layer,
// lowest layer first:
//   base curve -> blend1.inputA, layer 1 curve -> blend1.inputB,
//   blend1.output -> blend2.inputA, ..., top blend's output -> the plug.
// Each layer drives its blends' weights (foregroundWeight -> weightB,
// backgroundWeight -> weightA) and lists the plugs it holds in dagSetMembers.
#include "scene/Edits.h"
#include "scene/Node.h"

#include <maya/MPlug.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>
#include <maya/MApiNamespace.h>

namespace mayasim::layers {

bool isLayer(const Node& node);
bool isBlend(const Node& node);

// The root layer, or null when the scene has no layers.
NodePtr root();
NodePtr parentOf(const Node& layer);
std::vector<NodePtr> childrenOf(const Node& layer);
// The plugs a layer holds (its dagSetMembers' sources), in order.
std::vector<PlugAddress> membersOf(const Node& layer);

bool flag(Node& layer, const char* attribute);

// The inputs (A, B) of a blend node that feed one of its output plugs.
std::optional<std::pair<PlugKey, PlugKey>> blendInputs(const Node& blend, const PlugKey& output);

// One layer that holds a plug, with the blend input its curve drives.
struct Holder
{
    NodePtr layer;
    PlugAddress input;
};
// The layers that hold a plug, bottom to top: the root first (its input is
// the lowest blend's input A, where the base animation comes in), then one
// per blend node of the plug's chain. Empty for a plug in no layer.
std::vector<Holder> holdersOf(const Node& node, const PlugKey& key);

// The layer Maya keys a plug in: the topmost selected, unlocked layer that
// holds it (the root holds every plug), else the topmost unlocked layer
// that holds it, else the root. Null when the scene has no layers.
NodePtr bestLayer(const Node& node, const PlugKey& key);

// A new layer under `parent` (the root when null), making the root first
// when the scene has none.
NodePtr createLayer(EditList& edits, const std::string& name, const NodePtr& parent);
// Moves a layer under another one; nothing when it is there already.
void setParent(EditList& edits, const NodePtr& layer, const NodePtr& parent);
// Puts a leaf plug into a layer: a blend node enters the plug's chain at the
// layer's place in the stack. Nothing when the layer holds it already or is
// the root.
void addMember(EditList& edits, const NodePtr& layer, const NodePtr& node, const PlugKey& key);
// Fires a layer event now, and again whenever the edits are undone or redone.
void fireEvent(EditList& edits, const std::string& event);

// --- for the API and the key commands ---------------------------------------
// MAnimUtil::findAnimationLayers: the holders of a plug as layer nodes and
// blend input plugs (whose source is that layer's curve).
bool findAnimationLayers(const MPlug& plug, MObjectArray& layers, MPlugArray& plugs);
// The plug a key on `plug` goes into: the best layer's blend input when the
// plug is in layers (its curve drives it), otherwise the plug itself.
MPlug keyTarget(const MPlug& plug);

} // namespace mayasim::layers
