#include "KeyBlending/CurveShaping.h"

namespace KeyBlending {

void Infinity::prepare(NodeKeysList&) {}
void Infinity::blend(double, MAnimCurveChange*) const {}
void NoiseWave::prepare(const NodeKeysList&) {}
void NoiseWave::blend(double, MAnimCurveChange*) const {}
void SmoothRough::prepare(const NodeKeysList&) {}
void SmoothRough::blend(double, MAnimCurveChange*) const {}
void GapSmoother::prepare(const NodeKeysList&) {}
void GapSmoother::blend(double, MAnimCurveChange*) const {}
void prepareBuffer(NodeKeysList&) {}
void buffer(NodeKeysList&, double, MAnimCurveChange*) {}

} // namespace KeyBlending
