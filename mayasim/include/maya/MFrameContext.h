#pragma once
#include <maya/MStatus.h>
#include <maya/MMatrix.h>
#include <maya/MFloatArray.h>
#include <maya/MDoubleArray.h>
#include <maya/MBoundingBox.h>
#include <maya/MDagPath.h>
#include <maya/MString.h>
#include <maya/MColor.h>

namespace mayasim {
struct DrawAccess;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace MHWRender
{

//! What one frame of a view's drawing knows: camera, viewport, matrices.
class OPENMAYARENDER_EXPORT MFrameContext
{
public:
    //! Matrices that can be accessed.
    enum MatrixType
    {
        kWorldMtx,
        kWorldTransposeMtx,
        kWorldInverseMtx,
        kWorldTranspInverseMtx,
        kViewMtx,
        kViewTransposeMtx,
        kViewInverseMtx,
        kViewTranspInverseMtx,
        kProjectionMtx,
        kProjectionTranposeMtx,
        kProjectionInverseMtx,
        kProjectionTranspInverseMtx,
        kViewProjMtx,
        kViewProjTranposeMtx,
        kViewProjInverseMtx,
        kViewProjTranspInverseMtx,
        kWorldViewMtx,
        kWorldViewTransposeMtx,
        kWorldViewInverseMtx,
        kWorldViewTranspInverseMtx,
        kWorldViewProjMtx,
        kWorldViewProjTransposeMtx,
        kWorldViewProjInverseMtx,
        kWorldViewProjTranspInverseMtx
    };
    virtual MMatrix getMatrix(MFrameContext::MatrixType mtype, MStatus* ReturnStatus = NULL) const;

    //! Tuples that can be accessed.
    enum TupleType
    {
        kViewPosition,
        kViewDirection,
        kViewUp,
        kViewRight,
        kViewportPixelSize,
        kViewNearClipValue,
        kViewFarClipValue,
        kViewUnnormlizedNearClipValue,
        kViewUnnormalizedFarClipValue
    };
    virtual MDoubleArray getTuple(MFrameContext::TupleType ttype, MStatus* ReturnStatus = NULL) const;

    virtual MStatus getViewportDimensions(int& originX, int& originY, int& width, int& height) const;

    MDagPath getCurrentCameraPath(MStatus* ReturnStatus = NULL) const;

    void worldToViewport(const MPoint& inPoint, double& xPos, double& yPos) const;
    void viewportToWorld(double xPos, double yPos, MPoint& worldNearPt, MPoint& worldFarPt) const;

    static const char* className();

protected:
    MFrameContext();
    virtual ~MFrameContext();

private:
    friend struct mayasim::DrawAccess;
    // The view being drawn (mayasim's camera view of the panel).
    const void* fView;
};

} // namespace MHWRender

OPENMAYA_NAMESPACE_CLOSE
