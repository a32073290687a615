#pragma once
#include "CollectAnimation/Records.h"

#include <maya/MTime.h>

#include <vector>
#include <maya/MApiNamespace.h>

// Blends that move keys toward the neighbours of their run: straight, eased,
// as a block, or toward and away from the line between the neighbours.
namespace KeyBlending {

using NodeKeysList = std::vector<CollectAnimation::NodeKeys>;

// Neighbors and Frame: the key itself at 0, a neighbour at -1 or 1.
void neighbors(NodeKeysList& nodes, double x, MAnimCurveChange* change);
double neighborsValue(const CollectAnimation::KeyInfo& key, double x);
// Frame: each curve's values at the two frame times become the neighbours.
void prepareFrame(NodeKeysList& nodes, const MTime& start, const MTime& end);

void ease(NodeKeysList& nodes, double x, MAnimCurveChange* change);
void blendToEase(NodeKeysList& nodes, double x, MAnimCurveChange* change);

// sideChosen is false until the first step with x not 0 of a drag, which
// widens lone keys to the far side of the curve; it then stays true.
void connectToNeighbors(NodeKeysList& nodes, double x, MAnimCurveChange* change, bool& sideChosen);

// Pull Push: a run ending at the last key gets a right neighbour at the
// spacing of the last two keys.
void preparePullPush(NodeKeysList& nodes);
void pullPush(NodeKeysList& nodes, double x, MAnimCurveChange* change);

} // namespace KeyBlending
