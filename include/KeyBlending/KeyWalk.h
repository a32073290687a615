#pragma once
#include "CollectAnimation/Records.h"

#include <maya/MFnAnimCurve.h>

#include <optional>
#include <vector>
#include <maya/MApiNamespace.h>

namespace KeyBlending {

// Calls visit(curveKeys) for every curve of the collected tree, const or not.
template <typename NodeList, typename Visit>
void forEachCurve(NodeList& nodes, Visit&& visit)
{
    for (auto& node : nodes)
        for (auto& plug : node.plugs)
            for (auto& curve : plug.curves)
                visit(curve);
}

// Calls visit(first, end) for each run of keys edited together: a run ends
// before a key whose left neighbour differs from the key before it.
template <typename Visit>
void forEachRun(const std::vector<CollectAnimation::KeyInfo>& keys, Visit&& visit)
{
    size_t first = 0;
    for (size_t k = 1; k <= keys.size(); ++k) {
        if (k < keys.size() && keys[k].leftTime == keys[k - 1].leftTime)
            continue;
        visit(first, k);
        first = k;
    }
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
