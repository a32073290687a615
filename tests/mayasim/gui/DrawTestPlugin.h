#pragma once
// A small locator plug-in with a Viewport 2.0 draw override, drawn the way
// a motion trail is: a 2D line from the origin to (2, 0, 0) and a filled
// circle at (0, 0, -2), placed through worldToViewport; nothing in views
// whose panel has motion trails off, and nothing while a playblast runs.
#include <maya/MApiNamespace.h>

#include <string>

namespace drawtest {

extern const char* const kNodeType;       // "drawTestLocator"
extern const char* const kClassification; // "drawdb/geometry/drawTest"

MStatus initializePlugin(MObject plugin);
MStatus uninitializePlugin(MObject plugin);

// What the plug-in saw, for the tests.
struct Record
{
    int overridesMade = 0;
    int overridesDestroyed = 0;
    int prepares = 0;
    int userDataDestroyed = 0;
};
Record& record();

} // namespace drawtest
