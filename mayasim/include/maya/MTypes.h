#pragma once
// Base types and export macros of the Maya 2022 API.

#include <maya/MApiNamespace.h>
#include <maya/MDeprecate.h>
#include <stdint.h>

#define MAYA_APP_VERSION 2022
#define MAYA_API_VERSION 20220000

#ifndef PLUGIN_EXPORT
#define PLUGIN_EXPORT DLL_PUBLIC
#endif

#define BEGIN_NO_SCRIPT_SUPPORT public
#define END_NO_SCRIPT_SUPPORT public

#ifndef NULL
#define NULL 0L
#endif

typedef signed short short2[2];
typedef signed short short3[3];
typedef signed int long2[2];
typedef signed int long3[3];
typedef signed int int2[2];
typedef signed int int3[3];
typedef float float2[2];
typedef float float3[3];
typedef double double2[2];
typedef double double3[3];
typedef double double4[4];

typedef unsigned long MUint64;
typedef long MInt64;

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Transformation spaces.
class MSpace
{
public:
    enum Space
    {
        kInvalid = 0,
        kTransform = 1,
        kPreTransform = 2,
        kPostTransform = 3,
        kWorld = 4,
        kLast = 5,
        kObject = kPreTransform
    };
};

OPENMAYA_NAMESPACE_CLOSE
