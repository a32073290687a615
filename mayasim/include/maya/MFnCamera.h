#pragma once
#include <maya/MFnDagNode.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MPoint.h>
#include <maya/MDGContext.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for cameras: lens, film back, fit and orthographic width.
class OPENMAYA_EXPORT MFnCamera : public MFnDagNode
{
public:
    MFnCamera();
    MFnCamera(MObject& object, MStatus* ReturnStatus = NULL);
    MFnCamera(const MDagPath& object, MStatus* ReturnStatus = NULL);
BEGIN_NO_SCRIPT_SUPPORT:
    MFnCamera(const MObject& object, MStatus* ReturnStatus = NULL);
END_NO_SCRIPT_SUPPORT:
    ~MFnCamera() override;
    MFn::Type type() const override;

    enum FilmFit
    {
        kFillFilmFit,
        kHorizontalFilmFit,
        kVerticalFilmFit,
        kOverscanFilmFit,
        kInvalid
    };

    MPoint eyePoint(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL) const;
    MVector viewDirection(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL) const;
    MVector upDirection(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL) const;
    MVector rightDirection(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL) const;
    MPoint centerOfInterestPoint(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL) const;

    MStatus setHorizontalFilmAperture(double hFilmAperture);
    double horizontalFilmAperture(MStatus* ReturnStatus = NULL) const;
    MStatus setVerticalFilmAperture(double vFilmAperture);
    double verticalFilmAperture(MStatus* ReturnStatus = NULL) const;
    double aspectRatio(MStatus* ReturnStatus = NULL) const;
    MStatus setFilmFit(FilmFit filmFit);
    FilmFit filmFit(MStatus* ReturnStatus = NULL) const;
    MStatus setOverscan(double overscan);
    double overscan(MStatus* ReturnStatus = NULL) const;
    double horizontalFieldOfView(MStatus* ReturnStatus = NULL) const;
    double verticalFieldOfView(MStatus* ReturnStatus = NULL) const;
    MStatus setFocalLength(double focalLength);
    double focalLength(MStatus* ReturnStatus = NULL) const;
    double nearClippingPlane(MStatus* ReturnStatus = NULL) const;
    double farClippingPlane(MStatus* ReturnStatus = NULL) const;
    MStatus setCenterOfInterest(double dist);
    double centerOfInterest(MStatus* ReturnStatus = NULL) const;
    MStatus setIsOrtho(bool orthoState);
    bool isOrtho(MStatus* ReturnStatus = NULL) const;
    MStatus setOrthoWidth(double orthoWidth);
    double orthoWidth(MStatus* ReturnStatus = NULL) const;

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
