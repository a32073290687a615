#pragma once
// What a view sees through its camera: the world-to-camera matrix and the
// projection of Maya's camera model (focal length, film back, film fit,
// overscan; orthographic width), for a port of a given size in pixels.
// Viewport coordinates have Maya's bottom-left origin.
#include <maya/MDagPath.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>

namespace mayasim {

struct CameraView
{
    MDagPath camera;
    int width = 0;
    int height = 0;
    bool valid = false;
    bool orthographic = false;
    MMatrix view;       // world to camera space
    MMatrix projection; // camera space to clip space, OpenGL style, row vectors
    // The half extents of the view: tangents of the half angles (perspective)
    // or half widths in world units (orthographic).
    double halfX = 1.0;
    double halfY = 1.0;
    double nearClip = 0.1;
    double farClip = 10000.0;

    // The view of a camera shape's path in a port of width x height pixels;
    // not valid without a live camera or with an empty port.
    static CameraView of(const MDagPath& camera, int width, int height);

    // A world point in viewport pixels; false behind a perspective camera.
    bool toViewport(const MPoint& world, double& x, double& y) const;
    // The ray through a viewport pixel, on the near and far clip planes.
    void toWorld(double x, double y, MPoint& nearPoint, MPoint& farPoint) const;
};

} // namespace mayasim
