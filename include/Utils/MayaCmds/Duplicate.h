#pragma once
#include <maya/MObject.h>
#include <maya/MString.h>

// Duplicates a node by name through MEL; a null object on failure.
MObject duplicateNode(const MString& name, bool undoable);
