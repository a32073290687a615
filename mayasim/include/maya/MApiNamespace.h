#pragma once
// The versioned namespace of the Maya 2022 API. Every API header includes
// this one (through MTypes.h), so every API class is declared, incomplete
// until its own header is included, wherever any API header is.
//
// Maya brings the classes to the global namespace with using-declarations;
// mayasim uses typedefs, which make a plug-in's own forward declaration
// ("class MPlug;") an error under every compiler, as Clang and MSVC already
// reject it against the devkit. Code that needs the names without the
// classes includes this header.

// Everything mayasim declares is exported from its one library, which
// stands in for all of Maya's.
#ifndef DLL_PUBLIC
#define DLL_PUBLIC __attribute__((visibility("default")))
#define DLL_PRIVATE __attribute__((visibility("hidden")))
#endif
#define OPENMAYA_EXPORT DLL_PUBLIC
#define OPENMAYAANIM_EXPORT DLL_PUBLIC
#define OPENMAYAUI_EXPORT DLL_PUBLIC
#define OPENMAYARENDER_EXPORT DLL_PUBLIC
#define FND_EXPORT DLL_PUBLIC
#define IMAGE_EXPORT DLL_PUBLIC

#define OPENMAYA_PRIVATE private
#define OPENMAYA_PRIVATE_NO_SWIG private

#define AUTODESK_NAMESPACE Autodesk
#define MAYA_NAMESPACE Maya
#define OPENMAYA_NAMESPACE_OPEN(API_VERSION) \
    namespace AUTODESK_NAMESPACE {           \
    namespace MAYA_NAMESPACE {               \
    namespace API_VERSION {
#define OPENMAYA_NAMESPACE_CLOSE \
    }                            \
    }                            \
    }
#define OPENMAYA_NAMESPACE_SCHEMA(API_VERSION) AUTODESK_NAMESPACE::MAYA_NAMESPACE::API_VERSION

#define OPENMAYA_MAJOR_NAMESPACE OpenMaya20220000
#define OPENMAYA_MAJOR_NAMESPACE_OPEN OPENMAYA_NAMESPACE_OPEN(OPENMAYA_MAJOR_NAMESPACE)
#define OPENMAYA_MAJOR_NAMESPACE_SCHEMA OPENMAYA_NAMESPACE_SCHEMA(OPENMAYA_MAJOR_NAMESPACE)

// The classes mayasim declares: those it implements, and those its
// signatures name without a header of their own here (MFileObject). A class
// added to mayasim's headers is added to this list.
#define MAYASIM_API_CLASSES(X)                                                                          \
    X(M3dView) X(MAngle) X(MAnimControl) X(MAnimCurveChange) X(MAnimMessage) X(MAnimUtil) X(MArgDatabase)          \
    X(MArgList) X(MArgParser) X(MBoundingBox) X(MCallbackIdArray) X(MColor) X(MConditionMessage) X(MDGContext)          \
    X(MDGContextGuard) X(MDGMessage) X(MDGModifier) X(MDagMessage) X(MDagModifier) X(MDagPath)          \
    X(MDagPathArray) X(MDataBlock) X(MDataHandle) X(MDistance) X(MDoubleArray) X(MEulerRotation)        \
    X(MEventMessage) X(MFileIO) X(MFileObject) X(MFloatArray) X(MFloatMatrix) X(MFloatPoint)            \
    X(MFloatVector) X(MFn) X(MFnAnimCurve) X(MFnCamera) X(MFnAttribute) X(MFnBase) X(MFnCompoundAttribute)           \
    X(MFnDagNode) X(MFnData) X(MFnDependencyNode) X(MFnEnumAttribute) X(MFnKeyframeDelta)               \
    X(MFnKeyframeDeltaAddRemove) X(MFnKeyframeDeltaInfType) X(MFnKeyframeDeltaMove)                     \
    X(MFnKeyframeDeltaTangent) X(MFnKeyframeDeltaWeighted) X(MFnMatrixAttribute) X(MFnMatrixData)       \
    X(MFnMessageAttribute) X(MFnNumericAttribute) X(MFnNumericData) X(MFnPlugin) X(MFnStringData)       \
    X(MFnTransform) X(MFnTypedAttribute) X(MFnUnitAttribute) X(MGlobal) X(MIntArray)                    \
    X(MItDependencyNodes) X(MItSelectionList) X(MLibrary) X(MMatrix) X(MMessage) X(MModelMessage)       \
    X(MNodeMessage) X(MObject) X(MObjectArray) X(MObjectHandle) X(MPlug) X(MPlugArray) X(MPoint)        \
    X(MPointArray) X(MPxCommand) X(MPxLocatorNode) X(MPxNode) X(MQuaternion) X(MSceneMessage) X(MSelectionMask)           \
    X(MSelectionList) X(MSpace) X(MStatus) X(MString) X(MStringArray) X(MSyntax) X(MTime) X(MTimeArray) \
    X(MTimerMessage) X(MTransformationMatrix) X(MTypeId) X(MUintArray) X(MUserData) X(MUuid) X(MVector)  \
    X(MVectorArray)

// Viewport 2.0's classes, in MHWRender inside the versioned namespace.
#define MAYASIM_RENDER_CLASSES(X)                                                                        \
    X(MDrawContext) X(MDrawRegistry) X(MFrameContext) X(MPxDrawOverride) X(MRenderItem)                 \
    X(MSelectionContext) X(MSelectionInfo) X(MUIDrawManager)

#define MAYASIM_DECLARE_API_CLASS(name) class name;
#define MAYASIM_GLOBAL_API_NAME(name) typedef OPENMAYA_MAJOR_NAMESPACE_SCHEMA::name name;

OPENMAYA_MAJOR_NAMESPACE_OPEN
MAYASIM_API_CLASSES(MAYASIM_DECLARE_API_CLASS)
namespace MHWRender {
MAYASIM_RENDER_CLASSES(MAYASIM_DECLARE_API_CLASS)
}
OPENMAYA_NAMESPACE_CLOSE

MAYASIM_API_CLASSES(MAYASIM_GLOBAL_API_NAME)
#define MAYASIM_GLOBAL_RENDER_NAME(name) typedef OPENMAYA_MAJOR_NAMESPACE_SCHEMA::MHWRender::name name;
namespace MHWRender {
MAYASIM_RENDER_CLASSES(MAYASIM_GLOBAL_RENDER_NAME)
}

#undef MAYASIM_DECLARE_API_CLASS
#undef MAYASIM_GLOBAL_API_NAME
#undef MAYASIM_GLOBAL_RENDER_NAME
#undef MAYASIM_API_CLASSES
#undef MAYASIM_RENDER_CLASSES
