#include "KeyBlending/WorldSpace.h"

namespace KeyBlending {

void WorldSpace::prepare(NodeKeysList&) {}
void WorldSpace::blend(double, MAnimCurveChange*) {}
void NeighborsWorldSpace::prepare(NodeKeysList&) {}
void NeighborsWorldSpace::blend(double, MAnimCurveChange*) {}
void FrameWorldSpace::prepare(NodeKeysList&, const MTime&, const MTime&) {}
void InfinityWorldSpace::prepare(NodeKeysList&) {}
void InfinityWorldSpace::blend(double, MAnimCurveChange*) {}

} // namespace KeyBlending
