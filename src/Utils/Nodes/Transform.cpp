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

namespace {

struct KindAttribute
{
    const char* name;
    bool isArray;
};

// By kind: the matrices are arrays whose element 0 is the one path's.
const KindAttribute kindAttributes[] = {
    {"worldMatrix", true},  {"worldInverseMatrix", true}, {"parentMatrix", true}, {"parentInverseMatrix", true},
    {"rotateAxis", false},  {"rotatePivot", false},       {"translate", false},
};

} // namespace

TransformReader::TransformReader(const MObject& object) : fObject(object) {}

TransformReader::TransformReader(const MDagPath& path) : fObject(path.node()) {}

MPlug TransformReader::tryAdd(Kind kind, const char* name, bool isArray)
{
    MFnDependencyNode node(fObject);
    MPlug plug = node.findPlug(name, false);
    if (!plug.isNull() && isArray)
        plug = plug.elementByLogicalIndex(0);
    if (plug.isNull())
        OV_REPORT(QStringLiteral("failed to find: ") + QString::fromUtf8(name), "tryAdd");
    // A null plug stays in the cache as the attribute found missing.
    fPlugs[kind] = plug;
    return plug;
}

MPlug TransformReader::attribute(Kind kind)
{
    const auto found = fPlugs.find(kind);
    if (found != fPlugs.end())
        return found->second;
    const KindAttribute& entry = kindAttributes[kind];
    return tryAdd(kind, entry.name, entry.isArray);
}

MMatrix TransformReader::matrixOf(Kind kind)
{
    const MPlug plug = attribute(kind);
    if (plug.isNull())
        return MMatrix();
    MFnMatrixData data(plug.asMObject());
    return data.matrix();
}

MPoint TransformReader::pointOf(Kind kind)
{
    const MPlug plug = attribute(kind);
    if (plug.isNull())
        return MPoint();
    // Read child by child: a read at every idle tick allocates nothing.
    if (plug.numChildren() < 3)
        return MPoint();
    return MPoint(plug.child(0).asDouble(), plug.child(1).asDouble(), plug.child(2).asDouble());
}

MMatrix TransformReader::worldMatrix() { return matrixOf(WorldMatrix); }

MMatrix TransformReader::worldMatrix(const MDGContext& context)
{
    MDGContextGuard guard(context);
    return worldMatrix();
}

MMatrix TransformReader::worldInverseMatrix(const MDGContext& context)
{
    MDGContextGuard guard(context);
    return matrixOf(WorldInverseMatrix);
}

MMatrix TransformReader::parentMatrix() { return matrixOf(ParentMatrix); }

MMatrix TransformReader::parentInverseMatrix() { return matrixOf(ParentInverseMatrix); }

MMatrix TransformReader::parentInverseMatrix(const MDGContext& context)
{
    MDGContextGuard guard(context);
    return parentInverseMatrix();
}

MPoint TransformReader::rotatePivot() { return pointOf(RotatePivot); }

MPoint TransformReader::position(bool world)
{
    if (world)
        return rotatePivot() * worldMatrix();
    return pointOf(Translate);
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
