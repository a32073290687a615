#pragma once
// The key attributes of the anim curve node types, as Maya 2022 declares
// them: keyTimeValue (ktv, of keyTime kt and keyValue kv), keyTanInType and
// keyTanOutType (kit, kot), keyTanInX/Y and keyTanOutX/Y (kix, kiy, kox,
// koy), keyTanLocked (ktl), keyWeightLocked (kwl), weightedTangents (wgt),
// preInfinity and postInfinity (pre, pst), tangentType (tan) and
// keyBreakdown (kbd).
//
// The keys live in the curve's AnimCurveData, not in plugs: setAttr on these
// attributes edits the keys (that is how .ma files load curves) and getAttr
// reads them. Element i is key i, in time order. Saved files describe the
// keys as Maya writes them. tangentType and keyBreakdown are plain plugs:
// tangentType is the type of the keys that keyTimeValue adds, which lets a
// file list only the types that differ from it.
#include "scene/NodeType.h"

namespace mayasim::anim {

// Adds the key attributes to an anim curve node type; keyTime and keyValue
// come in the type's input and output units.
void declareKeyAttributes(NodeType& type, const AttributePtr& keyTime, const AttributePtr& keyValue);

} // namespace mayasim::anim
