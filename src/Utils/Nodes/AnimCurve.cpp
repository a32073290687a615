#include "Utils/Nodes/AnimCurve.h"

#include "Utils/Arithmetic.h"
#include "Utils/MayaCmds/Keyframe.h"
#include "Utils/Nodes/Node.h"
#include "Utils/Report.h"

#include <maya/MFnAnimCurve.h>
#include <maya/MItSelectionList.h>
#include <maya/MSelectionList.h>

unsigned int leftNeighborIndex(const MObject& curve, const MTime& t)
{
    MFnAnimCurve fn(curve);
    const unsigned int i = fn.findClosest(t);
    if (fn.time(i) >= t && i != 0)
        return i - 1;
    return i;
}

unsigned int rightNeighborIndex(const MObject& curve, const MTime& t)
{
    MFnAnimCurve fn(curve);
    const unsigned int i = fn.findClosest(t);
    if (fn.time(i) <= t && i + 1 < fn.numKeys())
        return i + 1;
    return i;
}

std::vector<unsigned int> keysInRange(const MObject& curve, const MTime& start, const MTime& end)
{
    MFnAnimCurve fn(curve);
    std::vector<unsigned int> indices;
    const unsigned int count = fn.numKeys();
    for (unsigned int i = 0; i < count; ++i) {
        if (timeInRange(fn.time(i), start, end))
            indices.push_back(i);
    }
    return indices;
}

MIntArray selectedKeyIndices(const MObject& curve)
{
    MIntArray indices;
    if (!selectedKeyNames(nodeDisplayName(curve), indices))
        OV_REPORT(QStringLiteral("failed to get selected keyframes indices"), "getSelectedIndices");
    return indices;
}

bool hasAnimCurves(const MSelectionList& list)
{
    if (list.isEmpty())
        return false;
    MItSelectionList it(list, MFn::kAnimCurve);
    return !it.isDone();
}

namespace {

bool nameContainsAny(const MObject& curve, std::initializer_list<const char*> channels)
{
    const MString name = nodeDisplayName(curve);
    for (const char* channel : channels) {
        if (name.indexW(MString(channel)) >= 0)
            return true;
    }
    return false;
}

} // namespace

bool isRotationCurve(const MObject& curve) { return nameContainsAny(curve, {"rotateX", "rotateY", "rotateZ"}); }

bool isScaleCurve(const MObject& curve) { return nameContainsAny(curve, {"scaleX", "scaleY", "scaleZ"}); }

bool isTranslationCurve(const MObject& curve)
{
    return nameContainsAny(curve, {"translateX", "translateY", "translateZ"});
}

bool isTransformCurve(const MObject& curve)
{
    return isTranslationCurve(curve) || isRotationCurve(curve) || isScaleCurve(curve);
}
