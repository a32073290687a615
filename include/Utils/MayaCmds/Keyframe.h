#pragma once
#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MString.h>

#include <set>

// Key queries through MEL; each returns whether Maya succeeded.
bool queryKeyframe(const MString& flags, std::set<int>& result);
bool queryKeyframeAtTimes(const MString& flags, const MString& start, const MString& end, std::set<int>& result);
bool selectedKeyNames(const MString& name, MIntArray& result);
bool selectedKeyTimes(const MString& name, MDoubleArray& result);
