#include "openmayaui/CameraView.h"

#include <maya/MFnCamera.h>

namespace mayasim {

namespace {

constexpr double kMillimetresPerInch = 25.4;

// The film gate's half extents fitted to the port: horizontal fit keeps the
// gate's width across the port, vertical fit its height; fill picks the fit
// that leaves no part of the port outside the gate, overscan the one that
// shows all of the gate.
void fit(MFnCamera::FilmFit filmFit, double gateX, double gateY, double portAspect, double& halfX, double& halfY)
{
    const double gateAspect = gateX / gateY;
    bool horizontal = filmFit != MFnCamera::kVerticalFilmFit;
    if (filmFit == MFnCamera::kFillFilmFit)
        horizontal = portAspect >= gateAspect;
    else if (filmFit == MFnCamera::kOverscanFilmFit)
        horizontal = portAspect < gateAspect;
    halfX = horizontal ? gateX : gateY * portAspect;
    halfY = halfX / portAspect;
}

} // namespace

CameraView CameraView::of(const MDagPath& camera, int width, int height)
{
    CameraView result;
    result.camera = camera;
    result.width = width;
    result.height = height;
    MStatus status;
    MFnCamera fn(camera, &status);
    if (!status || !camera.isValid() || width <= 0 || height <= 0)
        return result;
    const double aspect = static_cast<double>(width) / height;
    const double hfa = fn.horizontalFilmAperture(), vfa = fn.verticalFilmAperture();
    const double overscan = fn.overscan();
    result.orthographic = fn.isOrtho();
    result.nearClip = fn.nearClippingPlane();
    result.farClip = fn.farClippingPlane();
    if (result.orthographic)
    {
        // The orthographic width spans the film back's width.
        const double halfWidth = fn.orthoWidth() / 2;
        fit(fn.filmFit(), halfWidth, halfWidth * vfa / hfa, aspect, result.halfX, result.halfY);
    }
    else
    {
        const double focal = fn.focalLength();
        fit(fn.filmFit(), hfa * kMillimetresPerInch / 2 / focal, vfa * kMillimetresPerInch / 2 / focal, aspect,
            result.halfX, result.halfY);
    }
    result.halfX *= overscan;
    result.halfY *= overscan;
    result.view = camera.inclusiveMatrix().inverse();

    const double n = result.nearClip, f = result.farClip;
    MMatrix& p = result.projection;
    p.setToIdentity();
    if (result.orthographic)
    {
        p[0][0] = 1 / result.halfX;
        p[1][1] = 1 / result.halfY;
        p[2][2] = -2 / (f - n);
        p[3][2] = -(f + n) / (f - n);
    }
    else
    {
        p[0][0] = 1 / result.halfX;
        p[1][1] = 1 / result.halfY;
        p[2][2] = -(f + n) / (f - n);
        p[2][3] = -1;
        p[3][2] = -2 * f * n / (f - n);
        p[3][3] = 0;
    }
    result.valid = true;
    return result;
}

bool CameraView::toViewport(const MPoint& world, double& x, double& y) const
{
    const MPoint c = world * view;
    const double depth = orthographic ? 1.0 : -c.z;
    if (!valid || depth <= 0)
    {
        x = y = 0;
        return false;
    }
    x = (c.x / (depth * halfX) + 1) / 2 * width;
    y = (c.y / (depth * halfY) + 1) / 2 * height;
    return true;
}

void CameraView::toWorld(double x, double y, MPoint& nearPoint, MPoint& farPoint) const
{
    const double nx = 2 * x / width - 1, ny = 2 * y / height - 1;
    const MMatrix toWorld = view.inverse();
    if (orthographic)
    {
        nearPoint = MPoint(nx * halfX, ny * halfY, -nearClip) * toWorld;
        farPoint = MPoint(nx * halfX, ny * halfY, -farClip) * toWorld;
        return;
    }
    nearPoint = MPoint(nx * halfX * nearClip, ny * halfY * nearClip, -nearClip) * toWorld;
    farPoint = MPoint(nx * halfX * farClip, ny * halfY * farClip, -farClip) * toWorld;
}

} // namespace mayasim
