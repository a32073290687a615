#pragma once
#include <maya/MBoundingBox.h>
#include <maya/MMatrix.h>
#include <maya/MUserData.h>
#include <maya/MViewport2Renderer.h>
#include <maya/MUIDrawManager.h>
#include <maya/MFrameContext.h>
#include <maya/MDeprecate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace MHWRender
{

//! Base class of a plug-in's Viewport 2.0 drawing of a DAG node type.
class OPENMAYARENDER_EXPORT MPxDrawOverride
{
public:
    //! User draw callback: draw context and blind user data.
    typedef void (*GeometryDrawOverrideCb)(const MDrawContext&, const MUserData*);

    MPxDrawOverride(const MObject& obj, GeometryDrawOverrideCb callback, bool isAlwaysDirty = true);

    virtual ~MPxDrawOverride();

    virtual ::MHWRender::DrawAPI supportedDrawAPIs() const;
    virtual bool hasUIDrawables() const;

    virtual MMatrix transform(const MDagPath& objPath, const MDagPath& cameraPath) const;

    virtual MBoundingBox boundingBox(const MDagPath& objPath, const MDagPath& cameraPath) const;

    virtual bool isBounded(const MDagPath& objPath, const MDagPath& cameraPath) const;

    virtual bool disableInternalBoundingBoxDraw() const;
    virtual bool excludedFromPostEffects() const;
    virtual bool isTransparent() const;

    virtual MUserData* prepareForDraw(const MDagPath& objPath, const MDagPath& cameraPath,
                                      const MFrameContext& frameContext, MUserData* oldData) = 0;

    virtual void addUIDrawables(const MDagPath& objPath, MUIDrawManager& drawManager,
                                const MFrameContext& frameContext, const MUserData* data);

    virtual bool refineSelectionPath(const MSelectionInfo& selectInfo, const MRenderItem& hitItem, MDagPath& path,
                                     MObject& geomComponents, MSelectionMask& objectMask);

    virtual void updateSelectionGranularity(const MDagPath& path, MSelectionContext& selectionContext);

    virtual bool traceCallSequence() const;
    virtual void handleTraceMessage(const MString& message) const;

    virtual bool wantUserSelection() const;
    virtual bool userSelect(const MSelectionInfo& selectInfo, const MDrawContext& context, const MDagPath& objPath,
                            const MUserData* data, MSelectionList& selectionList, MPointArray& worldSpaceHitPts);

    OPENMAYA_DEPRECATED(2019, "Use the other userSelect() method instead.")
    virtual bool userSelect(MSelectionInfo& selectInfo, const MDrawContext& context, MPoint& hitPoint,
                            const MUserData* data);

    static const char* className();
};

} // namespace MHWRender

OPENMAYA_NAMESPACE_CLOSE
