#pragma once
// The functions a plug-in hands to MFnPlugin.
#include <maya/MApiNamespace.h>

typedef void* (*MCreatorFunction)();
typedef MSyntax (*MCreateSyntaxFunction)();
typedef MStatus (*MInitializeFunction)();
