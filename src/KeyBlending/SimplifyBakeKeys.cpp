#include "KeyBlending/SimplifyBakeKeys.h"

namespace KeyBlending {

void SimplifyBakeKeys::prepare(CollectAnimation::DataBase&, const MSelectionList&) {}
void SimplifyBakeKeys::blend(double, MAnimCurveChange*) {}

} // namespace KeyBlending
