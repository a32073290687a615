#include "Utils/Nodes/Transform.h"

#include "Utils/Report.h"

#include <maya/MDGContext.h>
#include <maya/MDGContextGuard.h>
#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMatrixData.h>
#include <maya/MFnTransform.h>

#include <cstdint>

// FNV-1a over the four bytes of the kind.
size_t TransformReader::KindHash::operator()(Kind kind) const
{
    const uint32_t value = static_cast<uint32_t>(kind);
    uint32_t hash = 2166136261u;
    for (int byte = 0; byte < 4; ++byte) {
        hash ^= (value >> (8 * byte)) & 0xFFu;
        hash *= 16777619u;
    }
    return hash;
}

TransformReader::TransformReader(const MObject& object) : fObject(object) {}

TransformReader::TransformReader(const MDagPath& path) : fObject(path.node()) {}

MPlug TransformReader::plugFor(Kind kind) const
{
    const auto found = fPlugs.find(kind);
    return found == fPlugs.end() ? MPlug() : found->second;
}

MPlug TransformReader::tryAdd(Kind kind, const char* name, bool isArray)
{
    MFnDependencyNode node(fObject);
    MPlug plug = node.findPlug(name, false);
    if (!plug.isNull() && isArray)
        plug = plug.elementByLogicalIndex(0);
    if (plug.isNull()) {
        OV_REPORT(QStringLiteral("failed to find: ") + QString::fromUtf8(name), "tryAdd");
        return MPlug();
    }
    fPlugs[kind] = plug;
    return plug;
}

MMatrix TransformReader::matrixOf(Kind kind, const char* name, bool isArray)
{
    MPlug plug = plugFor(kind);
    if (plug.isNull())
        plug = tryAdd(kind, name, isArray);
    if (plug.isNull())
        return MMatrix();
    MFnMatrixData data(plug.asMObject());
    return data.matrix();
}

MPoint TransformReader::pointOf(Kind kind, const char* name)
{
    MPlug plug = plugFor(kind);
    if (plug.isNull())
        plug = tryAdd(kind, name, false);
    if (plug.isNull())
        return MPoint();
    const MDoubleArray values = childValues(plug);
    if (values.length() < 3)
        return MPoint();
    return MPoint(values[0], values[1], values[2]);
}

MMatrix TransformReader::worldMatrix() { return matrixOf(WorldMatrix, "worldMatrix", true); }

MMatrix TransformReader::worldMatrix(const MDGContext& context)
{
    MDGContextGuard guard(context);
    return worldMatrix();
}

MMatrix TransformReader::worldInverseMatrix(const MDGContext& context)
{
    MDGContextGuard guard(context);
    return matrixOf(WorldInverseMatrix, "worldInverseMatrix", true);
}

MMatrix TransformReader::parentMatrix() { return matrixOf(ParentMatrix, "parentMatrix", true); }

MMatrix TransformReader::parentInverseMatrix() { return matrixOf(ParentInverseMatrix, "parentInverseMatrix", true); }

MMatrix TransformReader::parentInverseMatrix(const MDGContext& context)
{
    MDGContextGuard guard(context);
    return parentInverseMatrix();
}

MPoint TransformReader::rotatePivot() { return pointOf(RotatePivot, "rotatePivot"); }

MPoint TransformReader::position(bool world)
{
    if (world)
        return rotatePivot() * worldMatrix();
    return pointOf(Translate, "translate");
}

MPoint TransformReader::position(bool world, const MDGContext& context)
{
    MDGContextGuard guard(context);
    return position(world);
}

int TransformReader::rotationOrder() const
{
    MFnTransform transform(fObject);
    return static_cast<int>(transform.rotationOrder());
}

MDoubleArray TransformReader::childValues(const MPlug& plug)
{
    MDoubleArray values;
    const unsigned int count = plug.numChildren();
    for (unsigned int i = 0; i < count; ++i)
        values.append(plug.child(i).asDouble());
    return values;
}
