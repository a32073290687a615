#pragma once
#include "CollectAnimation/Records.h"

#include <maya/MFnAnimCurve.h>

#include <optional>
#include <vector>

class MAnimCurveChange;

namespace KeyBlending {

// Calls visit(curveKeys) for every curve of the collected tree.
template <typename Visit>
void forEachCurve(std::vector<CollectAnimation::NodeKeys>& nodes, Visit&& visit)
{
    for (CollectAnimation::NodeKeys& node : nodes)
        for (CollectAnimation::PlugKeys& plug : node.plugs)
            for (CollectAnimation::CurveKeys& curve : plug.curves)
                visit(curve);
}

// Writes valueOf(fn, key) into every collected key; an empty answer leaves
// that key unwritten.
template <typename ValueOf>
void setEachKey(std::vector<CollectAnimation::NodeKeys>& nodes, MAnimCurveChange* change, ValueOf&& valueOf)
{
    forEachCurve(nodes, [&](CollectAnimation::CurveKeys& curve) {
        MFnAnimCurve fn(curve.curve);
        for (const CollectAnimation::KeyInfo& key : curve.keys) {
            const std::optional<double> value = valueOf(fn, key);
            if (value)
                fn.setValue(key.index, *value, change);
        }
    });
}

} // namespace KeyBlending
