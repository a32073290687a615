#include "KeyBlending/ScaleBlends.h"

namespace KeyBlending {

void ScaleFromAverage::prepare(const NodeKeysList&) {}
void ScaleFromAverage::blend(double, MAnimCurveChange*) const {}
void ScaleFromFrame::prepare(const NodeKeysList&, const MTime&, const MTime&) {}
void ScaleFromFrame::blend(double, MAnimCurveChange*) const {}
void scaleFromNeighborLeft(NodeKeysList&, double, MAnimCurveChange*) {}
void scaleFromNeighborRight(NodeKeysList&, double, MAnimCurveChange*) {}

} // namespace KeyBlending
