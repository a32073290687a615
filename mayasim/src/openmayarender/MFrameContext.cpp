// The frame and draw contexts of a view being drawn: its camera view.
#include <maya/MDrawContext.h>

#include "openmayarender/DrawPass.h"
#include "scene/Api.h"

#include <maya/MFnCamera.h>
#include <maya/MVector.h>

using namespace MHWRender;
using mayasim::CameraView;
using mayasim::DrawAccess;

namespace {

MMatrix matrixOf(const CameraView& view, MFrameContext::MatrixType type, MStatus* status)
{
    const MMatrix viewProjection = view.view * view.projection;
    mayasim::setStatus(status, MS::kSuccess);
    switch (type)
    {
    case MFrameContext::kViewMtx: return view.view;
    case MFrameContext::kViewTransposeMtx: return view.view.transpose();
    case MFrameContext::kViewInverseMtx: return view.view.inverse();
    case MFrameContext::kViewTranspInverseMtx: return view.view.inverse().transpose();
    case MFrameContext::kProjectionMtx: return view.projection;
    case MFrameContext::kProjectionTranposeMtx: return view.projection.transpose();
    case MFrameContext::kProjectionInverseMtx: return view.projection.inverse();
    case MFrameContext::kProjectionTranspInverseMtx: return view.projection.inverse().transpose();
    case MFrameContext::kViewProjMtx: return viewProjection;
    case MFrameContext::kViewProjTranposeMtx: return viewProjection.transpose();
    case MFrameContext::kViewProjInverseMtx: return viewProjection.inverse();
    case MFrameContext::kViewProjTranspInverseMtx: return viewProjection.inverse().transpose();
    default:
        // The object's matrices exist only while an object is drawn.
        mayasim::setStatus(status, MS::kFailure);
        return MMatrix();
    }
}

} // namespace

MFrameContext::MFrameContext() : fView(nullptr) {}

MFrameContext::~MFrameContext() = default;

MMatrix MFrameContext::getMatrix(MFrameContext::MatrixType mtype, MStatus* ReturnStatus) const
{
    return matrixOf(DrawAccess::view(*this), mtype, ReturnStatus);
}

MDoubleArray MFrameContext::getTuple(MFrameContext::TupleType ttype, MStatus* ReturnStatus) const
{
    const CameraView& view = DrawAccess::view(*this);
    MDoubleArray result;
    mayasim::setStatus(ReturnStatus, MS::kSuccess);
    const MMatrix placement = view.view.inverse();
    const auto vector = [&result](const MVector& v) {
        result.append(v.x);
        result.append(v.y);
        result.append(v.z);
    };
    switch (ttype)
    {
    case kViewPosition: vector(MVector(MPoint() * placement)); break;
    case kViewDirection: vector((MVector(0, 0, -1) * placement).normal()); break;
    case kViewUp: vector((MVector(0, 1, 0) * placement).normal()); break;
    case kViewRight: vector((MVector(1, 0, 0) * placement).normal()); break;
    case kViewportPixelSize:
        result.append(view.width);
        result.append(view.height);
        break;
    case kViewNearClipValue:
    case kViewUnnormlizedNearClipValue: result.append(view.nearClip); break;
    case kViewFarClipValue:
    case kViewUnnormalizedFarClipValue: result.append(view.farClip); break;
    }
    return result;
}

MStatus MFrameContext::getViewportDimensions(int& originX, int& originY, int& width, int& height) const
{
    const CameraView& view = DrawAccess::view(*this);
    originX = originY = 0;
    width = view.width;
    height = view.height;
    return MS::kSuccess;
}

MDagPath MFrameContext::getCurrentCameraPath(MStatus* ReturnStatus) const
{
    const CameraView& view = DrawAccess::view(*this);
    mayasim::setStatus(ReturnStatus, view.camera.isValid() ? MS::kSuccess : MS::kFailure);
    return view.camera;
}

void MFrameContext::worldToViewport(const MPoint& inPoint, double& xPos, double& yPos) const
{
    DrawAccess::view(*this).toViewport(inPoint, xPos, yPos);
}

void MFrameContext::viewportToWorld(double xPos, double yPos, MPoint& worldNearPt, MPoint& worldFarPt) const
{
    DrawAccess::view(*this).toWorld(xPos, yPos, worldNearPt, worldFarPt);
}

const char* MFrameContext::className()
{
    return "MFrameContext";
}

MDrawContext::MDrawContext() = default;

MDrawContext::~MDrawContext() = default;

MMatrix MDrawContext::getMatrix(MFrameContext::MatrixType mtype, MStatus* ReturnStatus) const
{
    return MFrameContext::getMatrix(mtype, ReturnStatus);
}

MDoubleArray MDrawContext::getTuple(MFrameContext::TupleType ttype, MStatus* ReturnStatus) const
{
    return MFrameContext::getTuple(ttype, ReturnStatus);
}

MStatus MDrawContext::getViewportDimensions(int& originX, int& originY, int& width, int& height) const
{
    return MFrameContext::getViewportDimensions(originX, originY, width, height);
}

const char* MDrawContext::className()
{
    return "MDrawContext";
}
