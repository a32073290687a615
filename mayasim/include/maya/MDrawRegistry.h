#pragma once
#include <maya/MString.h>
#include <maya/MStatus.h>
#include <maya/MObject.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace MHWRender
{

//! Associates draw classifications of node types with the overrides that
//! draw them in Viewport 2.0.
class OPENMAYARENDER_EXPORT MDrawRegistry
{
public:
    typedef MPxDrawOverride* (*DrawOverrideCreator)(const MObject&);
    static MStatus registerDrawOverrideCreator(const MString& drawClassification, const MString& registrantId,
                                               DrawOverrideCreator creator);
    static MStatus deregisterDrawOverrideCreator(const MString& drawClassification, const MString& registrantId);

    static const char* className();

private:
    MDrawRegistry();
    ~MDrawRegistry();
};

} // namespace MHWRender

OPENMAYA_NAMESPACE_CLOSE
