#pragma once
// The anim curve node types (animCurveTA, TL, TT, TU and the unitless-input
// UA, UL, UT, UU). Each node keeps its keys in an AnimCurveData; its
// "output" is that curve evaluated at the input: the "input" plug when
// something drives it, otherwise (time-input curves) the evaluation time,
// so a read inside an MDGContextGuard gives the value at the guard's time.
#include "openmayaanim/AnimCurveData.h"
#include "scene/Node.h"

#include <memory>
#include <string>

namespace mayasim::anim {

enum class OutputUnit
{
    Angle,    // radians
    Distance, // centimetres
    Time,     // seconds
    Unitless
};

struct CurveKind
{
    int animCurveType; // MFnAnimCurve::AnimCurveType
    const char* typeName;
    bool timeInput;
    OutputUnit output;
};

// The kind of an anim curve node, or null for other nodes.
const CurveKind* curveKind(const Node& node);
// The kind for an MFnAnimCurve::AnimCurveType, or null.
const CurveKind* curveKind(int animCurveType);

// The keys of an anim curve node, made empty on first use.
std::shared_ptr<AnimCurveData> curveData(Node& node);

} // namespace mayasim::anim
