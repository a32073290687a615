#pragma once
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MTime.h>

#include <vector>
#include <maya/MApiNamespace.h>

// Key lookups on an animation curve node.
unsigned int leftNeighborIndex(const MObject& curve, const MTime& t);
unsigned int rightNeighborIndex(const MObject& curve, const MTime& t);
std::vector<unsigned int> keysInRange(const MObject& curve, const MTime& start, const MTime& end);
// The keys picked in the graph editor; empty (and reported) when Maya has none.
MIntArray selectedKeyIndices(const MObject& curve);
bool hasAnimCurves(const MSelectionList& list);

// Channel tests on the curve's name, which holds the channel in Maya's default naming.
bool isRotationCurve(const MObject& curve);
bool isScaleCurve(const MObject& curve);
bool isTranslationCurve(const MObject& curve);
bool isTransformCurve(const MObject& curve);
