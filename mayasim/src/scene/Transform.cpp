#include "scene/Transform.h"

#include "foundation/NumberText.h"
#include "scene/Evaluation.h"
#include "scene/Plugs.h"

#include <maya/MEulerRotation.h>

namespace mayasim::transform {

double readNumber(Node& node, const std::string& attribute)
{
    AttributePtr found = node.findAttribute(attribute);
    if (!found)
        return 0.0;
    const Value value = eval::read(node, keyOf(*found));
    return value.kind == Value::Kind::Number ? value.number : found->defaultNumber();
}

MVector readVector(Node& node, const std::string& compound)
{
    AttributePtr found = node.findAttribute(compound);
    if (!found || found->children.size() < 3)
        return MVector();
    double v[3];
    for (int i = 0; i < 3; ++i)
    {
        const Attribute& child = *found->children[static_cast<size_t>(i)];
        const Value value = eval::read(node, keyOf(child));
        v[i] = value.kind == Value::Kind::Number ? value.number : child.defaultNumber();
    }
    return MVector(v[0], v[1], v[2]);
}

Channels read(Node& node)
{
    Channels c;
    c.translate = readVector(node, "translate");
    c.rotate = readVector(node, "rotate");
    c.scale = readVector(node, "scale");
    c.shear = readVector(node, "shear");
    // A file may set any number; only the six orders name a rotation.
    const int order = truncatedTo<int>(readNumber(node, "rotateOrder"));
    c.rotateOrder = order >= MEulerRotation::kXYZ && order <= MEulerRotation::kZYX ? order : MEulerRotation::kXYZ;
    c.rotateAxis = readVector(node, "rotateAxis");
    c.rotatePivot = readVector(node, "rotatePivot");
    c.rotatePivotTranslate = readVector(node, "rotatePivotTranslate");
    c.scalePivot = readVector(node, "scalePivot");
    c.scalePivotTranslate = readVector(node, "scalePivotTranslate");
    if (node.hasFn(MFn::kJoint))
    {
        c.jointOrient = readVector(node, "jointOrient");
        c.inverseScale = readVector(node, "inverseScale");
    }
    return c;
}

MMatrix translation(const MVector& v)
{
    MMatrix m;
    m[3][0] = v.x;
    m[3][1] = v.y;
    m[3][2] = v.z;
    return m;
}

MMatrix scaling(const MVector& v)
{
    MMatrix m;
    m[0][0] = v.x;
    m[1][1] = v.y;
    m[2][2] = v.z;
    return m;
}

MMatrix shearing(const MVector& v)
{
    MMatrix m;
    m[1][0] = v.x; // xy
    m[2][0] = v.y; // xz
    m[2][1] = v.z; // yz
    return m;
}

MMatrix rotation(const MVector& radians, int rotateOrder)
{
    return MEulerRotation(radians.x, radians.y, radians.z, static_cast<MEulerRotation::RotationOrder>(rotateOrder))
        .asMatrix();
}

MMatrix compose(const Channels& c)
{
    const MVector inverseScale(c.inverseScale.x != 0.0 ? 1.0 / c.inverseScale.x : 1.0,
                               c.inverseScale.y != 0.0 ? 1.0 / c.inverseScale.y : 1.0,
                               c.inverseScale.z != 0.0 ? 1.0 / c.inverseScale.z : 1.0);
    return translation(-c.scalePivot) * scaling(c.scale) * shearing(c.shear) * translation(c.scalePivot) *
           translation(c.scalePivotTranslate) * translation(-c.rotatePivot) * rotation(c.rotateAxis, 0) *
           rotation(c.rotate, c.rotateOrder) * rotation(c.jointOrient, 0) * translation(c.rotatePivot) *
           translation(c.rotatePivotTranslate) * scaling(inverseScale) * translation(c.translate);
}

MMatrix localMatrix(Node& node)
{
    return node.hasFn(MFn::kTransform) ? compose(read(node)) : MMatrix();
}

namespace {

MMatrix readMatrix(Node& node, const std::string& attribute)
{
    AttributePtr found = node.findAttribute(attribute);
    if (!found)
        return MMatrix();
    PlugKey key = keyOf(*found);
    if (!key.indices.empty())
        key.indices.back() = 0;
    const Value value = eval::read(node, key);
    return value.kind == Value::Kind::Matrix ? value.matrix : MMatrix();
}

} // namespace

MMatrix parentMatrix(Node& node)
{
    NodePtr parent = node.parentNode();
    return parent ? readMatrix(*parent, "worldMatrix") : MMatrix();
}

MMatrix worldMatrix(Node& node)
{
    const bool inherits = readNumber(node, "inheritsTransform") != 0.0 || !node.findAttribute("inheritsTransform");
    return inherits ? readMatrix(node, "matrix") * parentMatrix(node) : readMatrix(node, "matrix");
}

std::optional<Value> computeMatrixPlug(Node& node, const PlugKey& key)
{
    const std::string& name = key.attribute->longName;
    if (name == "matrix" || name == "xformMatrix")
        return Value::ofMatrix(localMatrix(node));
    if (name == "inverseMatrix")
        return Value::ofMatrix(localMatrix(node).inverse());
    if (key.indices.empty() || key.indices.back() < 0)
        return std::nullopt; // the array plugs themselves hold no matrix
    if (name == "worldMatrix")
        return Value::ofMatrix(worldMatrix(node));
    if (name == "worldInverseMatrix")
        return Value::ofMatrix(worldMatrix(node).inverse());
    if (name == "parentMatrix")
        return Value::ofMatrix(parentMatrix(node));
    if (name == "parentInverseMatrix")
        return Value::ofMatrix(parentMatrix(node).inverse());
    return std::nullopt;
}

} // namespace mayasim::transform

#include <maya/MTransformationMatrix.h>

namespace mayasim::transform {

Channels solve(Node& node, const MMatrix& local)
{
    Channels c = read(node);
    MMatrix linear = local;
    linear[3][0] = linear[3][1] = linear[3][2] = 0.0;
    const MTransformationMatrix parts(linear);
    double scale[3], shear[3];
    parts.getScale(scale, MSpace::kTransform);
    parts.getShear(shear, MSpace::kTransform);
    c.scale = MVector(scale[0], scale[1], scale[2]);
    c.shear = MVector(shear[0], shear[1], shear[2]);
    const MMatrix rotate =
        rotation(c.rotateAxis, 0).inverse() * parts.asRotateMatrix() * rotation(c.jointOrient, 0).inverse();
    const auto order = static_cast<MEulerRotation::RotationOrder>(c.rotateOrder);
    const MEulerRotation current(c.rotate, order);
    c.rotate = MEulerRotation::decompose(rotate, order).closestSolution(current).asVector();
    c.translate = MVector();
    const MMatrix withoutTranslate = compose(c);
    c.translate = MVector(local[3][0] - withoutTranslate[3][0], local[3][1] - withoutTranslate[3][1],
                          local[3][2] - withoutTranslate[3][2]);
    return c;
}

} // namespace mayasim::transform
