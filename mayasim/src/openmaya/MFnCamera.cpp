// MFnCamera reads and writes the camera shape's own attributes; what the
// camera sees follows from them and from its transform (mayasim's README
// gives the camera model).
#include <maya/MFnCamera.h>

#include "scene/Api.h"

#include <maya/MDagPath.h>
#include <maya/MMatrix.h>
#include <maya/MPlug.h>
#include <maya/MVector.h>

#include <cmath>

using namespace mayasim;

namespace {

// Millimetres per inch: focal lengths are in millimetres, film backs in inches.
constexpr double kMillimetresPerInch = 25.4;

double number(const MFnCamera& camera, const char* attribute, MStatus* status)
{
    MStatus found;
    const MPlug plug = camera.findPlug(attribute, true, &found);
    if (!found || camera.object().apiType() != MFn::kCamera)
    {
        setStatus(status, MS::kInvalidParameter);
        return 0.0;
    }
    return plug.asDouble(status);
}

MStatus setNumber(MFnCamera& camera, const char* attribute, double value)
{
    MStatus found;
    MPlug plug = camera.findPlug(attribute, true, &found);
    if (!found || camera.object().apiType() != MFn::kCamera)
        return MS::kInvalidParameter;
    return plug.setDouble(value);
}

// The camera's world placement: its transform's world matrix, in the
// space asked for (object space is the camera's own).
MMatrix placement(const MFnCamera& camera, MSpace::Space space)
{
    return space == MSpace::kWorld ? camera.dagPath().inclusiveMatrix() : MMatrix();
}

} // namespace

MFnCamera::MFnCamera() = default;

MFnCamera::MFnCamera(MObject& object, MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, setObject(object).statusCode());
}

MFnCamera::MFnCamera(const MObject& object, MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, setObject(object).statusCode());
}

MFnCamera::MFnCamera(const MDagPath& object, MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, setObject(object).statusCode());
}

MFnCamera::~MFnCamera() = default;

MFn::Type MFnCamera::type() const
{
    return MFn::kCamera;
}

// A camera looks down its negative z axis, y up, from its origin.
MPoint MFnCamera::eyePoint(MSpace::Space space, MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, object().apiType() == MFn::kCamera ? MS::kSuccess : MS::kInvalidParameter);
    return MPoint() * placement(*this, space);
}

MVector MFnCamera::viewDirection(MSpace::Space space, MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, object().apiType() == MFn::kCamera ? MS::kSuccess : MS::kInvalidParameter);
    return (MVector(0, 0, -1) * placement(*this, space)).normal();
}

MVector MFnCamera::upDirection(MSpace::Space space, MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, object().apiType() == MFn::kCamera ? MS::kSuccess : MS::kInvalidParameter);
    return (MVector(0, 1, 0) * placement(*this, space)).normal();
}

MVector MFnCamera::rightDirection(MSpace::Space space, MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, object().apiType() == MFn::kCamera ? MS::kSuccess : MS::kInvalidParameter);
    return (MVector(1, 0, 0) * placement(*this, space)).normal();
}

MPoint MFnCamera::centerOfInterestPoint(MSpace::Space space, MStatus* ReturnStatus) const
{
    const double distance = centerOfInterest(ReturnStatus);
    return MPoint(0, 0, -distance) * placement(*this, space);
}

MStatus MFnCamera::setHorizontalFilmAperture(double hFilmAperture)
{
    return hFilmAperture > 0 ? setNumber(*this, "hfa", hFilmAperture) : MS::kInvalidParameter;
}

double MFnCamera::horizontalFilmAperture(MStatus* ReturnStatus) const
{
    return number(*this, "hfa", ReturnStatus);
}

MStatus MFnCamera::setVerticalFilmAperture(double vFilmAperture)
{
    return vFilmAperture > 0 ? setNumber(*this, "vfa", vFilmAperture) : MS::kInvalidParameter;
}

double MFnCamera::verticalFilmAperture(MStatus* ReturnStatus) const
{
    return number(*this, "vfa", ReturnStatus);
}

double MFnCamera::aspectRatio(MStatus* ReturnStatus) const
{
    const double height = verticalFilmAperture(ReturnStatus);
    return height > 0 ? horizontalFilmAperture(ReturnStatus) / height : 0.0;
}

MStatus MFnCamera::setFilmFit(FilmFit filmFit)
{
    return filmFit >= kFillFilmFit && filmFit < kInvalid ? setNumber(*this, "ff", filmFit) : MS::kInvalidParameter;
}

MFnCamera::FilmFit MFnCamera::filmFit(MStatus* ReturnStatus) const
{
    MStatus status;
    const double fit = number(*this, "ff", &status);
    setStatus(ReturnStatus, status.statusCode());
    return status ? static_cast<FilmFit>(static_cast<int>(fit)) : kInvalid;
}

MStatus MFnCamera::setOverscan(double overscan)
{
    return overscan > 0 ? setNumber(*this, "ovr", overscan) : MS::kInvalidParameter;
}

double MFnCamera::overscan(MStatus* ReturnStatus) const
{
    return number(*this, "ovr", ReturnStatus);
}

double MFnCamera::horizontalFieldOfView(MStatus* ReturnStatus) const
{
    const double aperture = horizontalFilmAperture(ReturnStatus);
    return 2.0 * std::atan(0.5 * aperture * kMillimetresPerInch / focalLength(ReturnStatus));
}

double MFnCamera::verticalFieldOfView(MStatus* ReturnStatus) const
{
    const double aperture = verticalFilmAperture(ReturnStatus);
    return 2.0 * std::atan(0.5 * aperture * kMillimetresPerInch / focalLength(ReturnStatus));
}

MStatus MFnCamera::setFocalLength(double focalLength)
{
    // Maya's limits for a focal length.
    return focalLength >= 2.5 && focalLength <= 100000 ? setNumber(*this, "fl", focalLength) : MS::kInvalidParameter;
}

double MFnCamera::focalLength(MStatus* ReturnStatus) const
{
    return number(*this, "fl", ReturnStatus);
}

double MFnCamera::nearClippingPlane(MStatus* ReturnStatus) const
{
    return number(*this, "ncp", ReturnStatus);
}

double MFnCamera::farClippingPlane(MStatus* ReturnStatus) const
{
    return number(*this, "fcp", ReturnStatus);
}

MStatus MFnCamera::setCenterOfInterest(double dist)
{
    return dist > 0 ? setNumber(*this, "coi", dist) : MS::kInvalidParameter;
}

double MFnCamera::centerOfInterest(MStatus* ReturnStatus) const
{
    return number(*this, "coi", ReturnStatus);
}

MStatus MFnCamera::setIsOrtho(bool orthoState)
{
    return setNumber(*this, "o", orthoState ? 1.0 : 0.0);
}

bool MFnCamera::isOrtho(MStatus* ReturnStatus) const
{
    return number(*this, "o", ReturnStatus) != 0.0;
}

MStatus MFnCamera::setOrthoWidth(double orthoWidth)
{
    return orthoWidth > 0 ? setNumber(*this, "ow", orthoWidth) : MS::kInvalidParameter;
}

double MFnCamera::orthoWidth(MStatus* ReturnStatus) const
{
    return number(*this, "ow", ReturnStatus);
}

const char* MFnCamera::className()
{
    return "MFnCamera";
}
