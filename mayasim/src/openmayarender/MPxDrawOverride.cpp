// The base draw override: what a plug-in doesn't override does what
// Maya's defaults do.
#include <maya/MPxDrawOverride.h>

#include <maya/MDagPath.h>

using namespace MHWRender;

// Every draw prepares anew, as an override that is always dirty; the draw
// callback belongs to the legacy path that Viewport 2.0 here never takes.
MPxDrawOverride::MPxDrawOverride(const MObject&, GeometryDrawOverrideCb, bool) {}

MPxDrawOverride::~MPxDrawOverride() = default;

// Only the legacy OpenGL device, as in Maya: an override must say that it
// supports the Core Profile (mayasim's device) to be drawn.
DrawAPI MPxDrawOverride::supportedDrawAPIs() const
{
    return kOpenGL;
}

bool MPxDrawOverride::hasUIDrawables() const
{
    return false;
}

MMatrix MPxDrawOverride::transform(const MDagPath& objPath, const MDagPath&) const
{
    return objPath.inclusiveMatrix();
}

MBoundingBox MPxDrawOverride::boundingBox(const MDagPath&, const MDagPath&) const
{
    return MBoundingBox();
}

bool MPxDrawOverride::isBounded(const MDagPath&, const MDagPath&) const
{
    return false;
}

bool MPxDrawOverride::disableInternalBoundingBoxDraw() const
{
    return false;
}

bool MPxDrawOverride::excludedFromPostEffects() const
{
    return true;
}

bool MPxDrawOverride::isTransparent() const
{
    return false;
}

void MPxDrawOverride::addUIDrawables(const MDagPath&, MUIDrawManager&, const MFrameContext&, const MUserData*) {}

bool MPxDrawOverride::refineSelectionPath(const MSelectionInfo&, const MRenderItem&, MDagPath&, MObject&,
                                          MSelectionMask&)
{
    return false;
}

void MPxDrawOverride::updateSelectionGranularity(const MDagPath&, MSelectionContext&) {}

bool MPxDrawOverride::traceCallSequence() const
{
    return false;
}

void MPxDrawOverride::handleTraceMessage(const MString&) const {}

bool MPxDrawOverride::wantUserSelection() const
{
    return false;
}

bool MPxDrawOverride::userSelect(const MSelectionInfo&, const MDrawContext&, const MDagPath&, const MUserData*,
                                 MSelectionList&, MPointArray&)
{
    return false;
}

bool MPxDrawOverride::userSelect(MSelectionInfo&, const MDrawContext&, MPoint&, const MUserData*)
{
    return false;
}

const char* MPxDrawOverride::className()
{
    return "MPxDrawOverride";
}
