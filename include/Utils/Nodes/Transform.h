#pragma once
#include <maya/MDoubleArray.h>
#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MPoint.h>

#include <unordered_map>
#include <maya/MApiNamespace.h>

// Reads the transform attributes of one object at the current time or at any
// frame, keeping the plugs it found.
class TransformReader
{
public:
    enum Kind : int
    {
        WorldMatrix = 0,
        WorldInverseMatrix = 1,
        ParentMatrix = 2,
        ParentInverseMatrix = 3,
        RotateAxis = 4,
        RotatePivot = 5,
        Translate = 6
    };

    explicit TransformReader(const MObject& object);
    explicit TransformReader(const MDagPath& path);

    // Finds the plug and caches it; a missing attribute is reported and
    // cached as a null plug.
    MPlug tryAdd(Kind kind, const char* name, bool isArray);
    // The plug of the kind's attribute: from the cache, or tried at the
    // first read. An attribute found missing isn't looked for again, so
    // reads at every step of a drag report it once.
    MPlug attribute(Kind kind);

    MMatrix worldMatrix();
    MMatrix worldMatrix(const MDGContext& context);
    MMatrix worldInverseMatrix(const MDGContext& context);
    MMatrix parentMatrix();
    MMatrix parentInverseMatrix();
    MMatrix parentInverseMatrix(const MDGContext& context);
    MPoint rotatePivot();
    MPoint position(bool world);
    MPoint position(bool world, const MDGContext& context);
    int rotationOrder() const;
    static MDoubleArray childValues(const MPlug& plug);

    const MObject& object() const { return fObject; }

private:
    struct KindHash
    {
        size_t operator()(Kind kind) const;
    };

    MMatrix matrixOf(Kind kind);
    MPoint pointOf(Kind kind);

    MObject fObject;
    std::unordered_map<Kind, MPlug, KindHash> fPlugs;
};
