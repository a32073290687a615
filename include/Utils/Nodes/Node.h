#pragma once
#include <maya/MObject.h>
#include <maya/MObjectArray.h>
#include <maya/MString.h>
#include <maya/MApiNamespace.h>

// Names and liveness of nodes.
MString nodeDisplayName(const MObject& node);
bool isValidObject(const MObject& node);
MObject objectByName(const MString& name);
// Mode 0 replaces the active list, 1 adds to it, 2 removes from it.
void selectByName(const MSelectionList& list, int mode);
bool inEditMode();
MString concatenate(const MString& prefix, const MString& text);
// The DAG objects of a list, a picked shape standing for its transform.
MObjectArray transformsOf(const MSelectionList& list);
