#pragma once
#include <maya/MFrameContext.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace MHWRender
{

//! The context of one draw: the frame's camera and viewport.
class OPENMAYARENDER_EXPORT MDrawContext : public MFrameContext
{
public:
    MMatrix getMatrix(MFrameContext::MatrixType mtype, MStatus* ReturnStatus = NULL) const override;
    MDoubleArray getTuple(MFrameContext::TupleType ttype, MStatus* ReturnStatus = NULL) const override;
    MStatus getViewportDimensions(int& originX, int& originY, int& width, int& height) const override;

    static const char* className();

private:
    friend struct mayasim::DrawAccess;
    MDrawContext();
    ~MDrawContext() override;
};

} // namespace MHWRender

OPENMAYA_NAMESPACE_CLOSE
