#pragma once
// Maya's transform stack, with row vectors:
//   matrix = SP^-1 * S * SH * SP * ST * RP^-1 * RA * R * JO * RP * RT * IS^-1 * T
// (SP scale pivot, ST its translate, SH shear, RP rotate pivot, RT its
// translate, RA rotate axis (XYZ), R rotate in its rotate order; joints add
// JO (joint orient, XYZ) and IS (inverse scale)); world = matrix * parent.
#include "scene/Node.h"

#include <maya/MMatrix.h>
#include <maya/MVector.h>

namespace mayasim::transform {

struct Channels
{
    MVector translate;
    MVector rotate; // radians
    MVector scale{1.0, 1.0, 1.0};
    MVector shear; // xy, xz, yz
    int rotateOrder = 0;
    MVector rotateAxis;
    MVector rotatePivot;
    MVector rotatePivotTranslate;
    MVector scalePivot;
    MVector scalePivotTranslate;
    MVector jointOrient;
    MVector inverseScale{1.0, 1.0, 1.0};
};

// The channels of a transform (or joint) as they evaluate now.
Channels read(Node& node);
MMatrix compose(const Channels& channels);

MMatrix translation(const MVector& v);
MMatrix scaling(const MVector& v);
MMatrix shearing(const MVector& v);
MMatrix rotation(const MVector& radians, int rotateOrder);

// The node's own matrix (identity for DAG nodes that aren't transforms).
MMatrix localMatrix(Node& node);
// The world matrix of the node's parent (identity under the world).
MMatrix parentMatrix(Node& node);
MMatrix worldMatrix(Node& node);

// Computes the matrix plugs of DAG nodes (the dagNode type's compute).
std::optional<Value> computeMatrixPlug(Node& node, const PlugKey& key);

// A vector from the three children of a compound plug.
MVector readVector(Node& node, const std::string& compound);
double readNumber(Node& node, const std::string& attribute);

} // namespace mayasim::transform

namespace mayasim::transform {

// The channels that give a node the local matrix `local`, keeping its
// pivots, rotate axis, joint orient and rotate order: scale, shear, rotate
// and translate are solved for.
Channels solve(Node& node, const MMatrix& local);

} // namespace mayasim::transform
