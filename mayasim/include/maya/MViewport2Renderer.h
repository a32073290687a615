#pragma once
#include <maya/MApiNamespace.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace MHWRender
{

//! The drawing APIs a draw override may support, as bits.
enum DrawAPI
{
    kNone = 0,
    kOpenGL = (1 << 0),
    kDirectX11 = (1 << 1),
    kOpenGLCoreProfile = (1 << 2),
    kAllDevices = (kOpenGL | kDirectX11 | kOpenGLCoreProfile)
};

} // namespace MHWRender

OPENMAYA_NAMESPACE_CLOSE

namespace MHWRender
{
using OPENMAYA_MAJOR_NAMESPACE_SCHEMA::MHWRender::DrawAPI;
using OPENMAYA_MAJOR_NAMESPACE_SCHEMA::MHWRender::kNone;
using OPENMAYA_MAJOR_NAMESPACE_SCHEMA::MHWRender::kOpenGL;
using OPENMAYA_MAJOR_NAMESPACE_SCHEMA::MHWRender::kDirectX11;
using OPENMAYA_MAJOR_NAMESPACE_SCHEMA::MHWRender::kOpenGLCoreProfile;
using OPENMAYA_MAJOR_NAMESPACE_SCHEMA::MHWRender::kAllDevices;
} // namespace MHWRender
