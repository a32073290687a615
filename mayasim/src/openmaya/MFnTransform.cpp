#include <maya/MFnTransform.h>

#include "scene/Api.h"
#include "scene/Operations.h"
#include "scene/Plugs.h"
#include "scene/Transform.h"

#include <maya/MEulerRotation.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MQuaternion.h>

using namespace mayasim;

namespace {

NodePtr transformNode(const MObject& object, MStatus* status = nullptr)
{
    NodePtr node = nodePtr(object);
    const bool ok = node && node->hasFn(MFn::kTransform);
    setStatus(status, ok ? MS::kSuccess : MS::kInvalidParameter);
    return ok ? node : nullptr;
}

MPoint asPoint(const MVector& v)
{
    return MPoint(v.x, v.y, v.z);
}

MVector asVector(const MPoint& p)
{
    return MVector(p.x, p.y, p.z);
}

// Runs channel writes on a transform; no undo (function sets don't record).
template <typename Work>
MStatus change(const MObject& object, Work&& work)
{
    NodePtr node = transformNode(object);
    if (!node)
        return MS::kInvalidParameter;
    return applyDirect([&](EditList& edits) { work(edits, node); });
}

MStatus setNumber(EditList& edits, const NodePtr& node, const std::string& attribute, double value)
{
    AttributePtr found = node->findAttribute(attribute);
    if (found)
        ops::setValue(edits, node, keyOf(*found), Value::ofNumber(value), false);
    return found ? MS::kSuccess : MS::kFailure;
}

// The rotation the rotate pivot turns with: rotate axis, rotate, joint orient.
MMatrix pivotRotation(const transform::Channels& c)
{
    return transform::rotation(c.rotateAxis, 0) * transform::rotation(c.rotate, c.rotateOrder) *
           transform::rotation(c.jointOrient, 0);
}

MVector translationRow(const MMatrix& m)
{
    return MVector(m[3][0], m[3][1], m[3][2]);
}

MVector timesLinear(const MVector& v, const MMatrix& m)
{
    return MVector(v.x * m[0][0] + v.y * m[1][0] + v.z * m[2][0], v.x * m[0][1] + v.y * m[1][1] + v.z * m[2][1],
                   v.x * m[0][2] + v.y * m[1][2] + v.z * m[2][2]);
}

// A point given in `space` as a transform-space pivot: world points are
// brought into the parent's space and relative to the translate channels.
MVector pivotInTransformSpace(Node& node, const MPoint& point, MSpace::Space space, const MVector& pivotTranslate)
{
    if (space != MSpace::kWorld)
        return asVector(point);
    const MPoint inParent = point * transform::parentMatrix(node).inverse();
    return asVector(inParent) - pivotTranslate - transform::read(node).translate;
}

} // namespace

MFnTransform::MFnTransform() = default;

MFnTransform::MFnTransform(MObject& object, MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, setObject(object).statusCode());
}

MFnTransform::MFnTransform(const MObject& object, MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, setObject(object).statusCode());
}

MFnTransform::MFnTransform(const MDagPath& object, MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, setObject(object).statusCode());
}

MFnTransform::~MFnTransform() = default;

MFn::Type MFnTransform::type() const
{
    return MFn::kTransform;
}

MObject MFnTransform::create(MObject parent, MStatus* ReturnStatus)
{
    return MFnDagNode::create(MString("transform"), parent, ReturnStatus);
}

MTransformationMatrix MFnTransform::transformation(MStatus* ReturnStatus) const
{
    NodePtr node = transformNode(fObject, ReturnStatus);
    MTransformationMatrix m;
    if (!node)
        return m;
    const transform::Channels c = transform::read(*node);
    const double scale[3] = {c.scale.x, c.scale.y, c.scale.z};
    const double shear[3] = {c.shear.x, c.shear.y, c.shear.z};
    const double rotate[3] = {c.rotate.x, c.rotate.y, c.rotate.z};
    m.setScale(scale, MSpace::kTransform);
    m.setShear(shear, MSpace::kTransform);
    m.setRotation(rotate, static_cast<MTransformationMatrix::RotationOrder>(c.rotateOrder + 1));
    m.setRotationOrientation(MEulerRotation(c.rotateAxis).asQuaternion());
    m.setScalePivot(asPoint(c.scalePivot), MSpace::kTransform, false);
    m.setScalePivotTranslation(c.scalePivotTranslate, MSpace::kTransform);
    m.setRotatePivot(asPoint(c.rotatePivot), MSpace::kTransform, false);
    m.setRotatePivotTranslation(c.rotatePivotTranslate, MSpace::kTransform);
    m.setTranslation(c.translate, MSpace::kTransform);
    return m;
}

MStatus MFnTransform::set(const MTransformationMatrix& transform)
{
    return change(fObject, [&](EditList& edits, const NodePtr& node) {
        double scale[3], shear[3], rotate[3];
        MTransformationMatrix::RotationOrder order;
        transform.getScale(scale, MSpace::kTransform);
        transform.getShear(shear, MSpace::kTransform);
        transform.getRotation(rotate, order);
        setNumber(edits, node, "rotateOrder", order - 1);
        ops::setVector(edits, node, "scale", MVector(scale[0], scale[1], scale[2]));
        ops::setVector(edits, node, "shear", MVector(shear[0], shear[1], shear[2]));
        ops::setVector(edits, node, "rotate", MVector(rotate[0], rotate[1], rotate[2]));
        ops::setVector(edits, node, "rotateAxis",
                       transform.rotationOrientation().asEulerRotation().reorder(MEulerRotation::kXYZ).asVector());
        ops::setVector(edits, node, "scalePivot", asVector(transform.scalePivot(MSpace::kTransform)));
        ops::setVector(edits, node, "scalePivotTranslate", transform.scalePivotTranslation(MSpace::kTransform));
        ops::setVector(edits, node, "rotatePivot", asVector(transform.rotatePivot(MSpace::kTransform)));
        ops::setVector(edits, node, "rotatePivotTranslate", transform.rotatePivotTranslation(MSpace::kTransform));
        ops::setVector(edits, node, "translate", transform.getTranslation(MSpace::kTransform));
    });
}

MVector MFnTransform::getTranslation(MSpace::Space space, MStatus* ReturnStatus) const
{
    NodePtr node = transformNode(fObject, ReturnStatus);
    if (!node)
        return MVector();
    const MVector t = transform::read(*node).translate;
    return space == MSpace::kWorld ? asVector(asPoint(t) * transform::parentMatrix(*node)) : t;
}

MVector MFnTransform::translation(MSpace::Space space, MStatus* ReturnStatus) const
{
    return getTranslation(space, ReturnStatus);
}

MStatus MFnTransform::setTranslation(const MVector& vec, MSpace::Space space)
{
    return change(fObject, [&](EditList& edits, const NodePtr& node) {
        const MVector t =
            space == MSpace::kWorld ? asVector(asPoint(vec) * transform::parentMatrix(*node).inverse()) : vec;
        ops::setVector(edits, node, "translate", t);
    });
}

MStatus MFnTransform::translateBy(const MVector& vec, MSpace::Space space)
{
    MStatus status;
    const MVector current = getTranslation(space, &status);
    return status ? setTranslation(current + vec, space) : status;
}

MStatus MFnTransform::getScale(double scale[3]) const
{
    NodePtr node = transformNode(fObject);
    if (!node)
        return MS::kInvalidParameter;
    const MVector s = transform::read(*node).scale;
    scale[0] = s.x;
    scale[1] = s.y;
    scale[2] = s.z;
    return MS::kSuccess;
}

MStatus MFnTransform::setScale(const double scale[3])
{
    return change(fObject, [&](EditList& edits, const NodePtr& node) {
        ops::setVector(edits, node, "scale", MVector(scale[0], scale[1], scale[2]));
    });
}

MStatus MFnTransform::scaleBy(const double scale[3])
{
    double current[3];
    MStatus status = getScale(current);
    if (!status)
        return status;
    const double scaled[3] = {current[0] * scale[0], current[1] * scale[1], current[2] * scale[2]};
    return setScale(scaled);
}

MPoint MFnTransform::scalePivot(MSpace::Space space, MStatus* ReturnStatus) const
{
    NodePtr node = transformNode(fObject, ReturnStatus);
    if (!node)
        return MPoint();
    const transform::Channels c = transform::read(*node);
    if (space != MSpace::kWorld)
        return asPoint(c.scalePivot);
    // The scale pivot's place after the scale stage, carried by the rest.
    transform::Channels rest = c;
    rest.scale = MVector(1.0, 1.0, 1.0);
    rest.shear = MVector();
    rest.scalePivot = MVector();
    return asPoint(c.scalePivot + c.scalePivotTranslate) * transform::compose(rest) * transform::parentMatrix(*node);
}

MStatus MFnTransform::setScalePivot(const MPoint& point, MSpace::Space space, bool balance)
{
    return change(fObject, [&](EditList& edits, const NodePtr& node) {
        const transform::Channels before = transform::read(*node);
        const MVector pivot = pivotInTransformSpace(*node, point, space, before.scalePivotTranslate);
        ops::setVector(edits, node, "scalePivot", pivot);
        if (!balance)
            return;
        // Keep the node in place: the scale pivot translate takes up the
        // shift, seen through the rotation that follows it.
        const MVector shift = translationRow(transform::compose(before)) - translationRow(transform::localMatrix(*node));
        const MVector compensation = timesLinear(shift, pivotRotation(before).inverse());
        ops::setVector(edits, node, "scalePivotTranslate", before.scalePivotTranslate + compensation);
    });
}

MVector MFnTransform::scalePivotTranslation(MSpace::Space, MStatus* ReturnStatus) const
{
    NodePtr node = transformNode(fObject, ReturnStatus);
    return node ? transform::read(*node).scalePivotTranslate : MVector();
}

MStatus MFnTransform::setScalePivotTranslation(const MVector& vec, MSpace::Space)
{
    return change(fObject,
                  [&](EditList& edits, const NodePtr& node) { ops::setVector(edits, node, "scalePivotTranslate", vec); });
}

MStatus MFnTransform::getShear(double shear[3]) const
{
    NodePtr node = transformNode(fObject);
    if (!node)
        return MS::kInvalidParameter;
    const MVector s = transform::read(*node).shear;
    shear[0] = s.x;
    shear[1] = s.y;
    shear[2] = s.z;
    return MS::kSuccess;
}

MStatus MFnTransform::setShear(const double shear[3])
{
    return change(fObject, [&](EditList& edits, const NodePtr& node) {
        ops::setVector(edits, node, "shear", MVector(shear[0], shear[1], shear[2]));
    });
}

MStatus MFnTransform::getRotation(MQuaternion& quaternion, MSpace::Space space) const
{
    NodePtr node = transformNode(fObject);
    if (!node)
        return MS::kInvalidParameter;
    if (space == MSpace::kWorld)
    {
        quaternion = MTransformationMatrix(transform::worldMatrix(*node)).rotation();
        return MS::kSuccess;
    }
    const transform::Channels c = transform::read(*node);
    quaternion = MEulerRotation(c.rotate, static_cast<MEulerRotation::RotationOrder>(c.rotateOrder)).asQuaternion();
    return MS::kSuccess;
}

MStatus MFnTransform::setRotation(const MQuaternion& quaternion, MSpace::Space)
{
    return change(fObject, [&](EditList& edits, const NodePtr& node) {
        const auto order = static_cast<MEulerRotation::RotationOrder>(transform::read(*node).rotateOrder);
        ops::setVector(edits, node, "rotate", quaternion.asEulerRotation().reorder(order).asVector());
    });
}

MStatus MFnTransform::getRotation(MEulerRotation& rotation) const
{
    NodePtr node = transformNode(fObject);
    if (!node)
        return MS::kInvalidParameter;
    const transform::Channels c = transform::read(*node);
    rotation = MEulerRotation(c.rotate, static_cast<MEulerRotation::RotationOrder>(c.rotateOrder));
    return MS::kSuccess;
}

MStatus MFnTransform::setRotation(const MEulerRotation& rotation)
{
    return change(fObject, [&](EditList& edits, const NodePtr& node) {
        setNumber(edits, node, "rotateOrder", rotation.order);
        ops::setVector(edits, node, "rotate", rotation.asVector());
    });
}

MStatus MFnTransform::getRotation(double rotation[3], MTransformationMatrix::RotationOrder& order) const
{
    MEulerRotation euler;
    MStatus status = getRotation(euler);
    rotation[0] = euler.x;
    rotation[1] = euler.y;
    rotation[2] = euler.z;
    order = static_cast<MTransformationMatrix::RotationOrder>(euler.order + 1);
    return status;
}

MStatus MFnTransform::setRotation(const double rotation[3], MTransformationMatrix::RotationOrder order)
{
    if (order <= MTransformationMatrix::kInvalid || order >= MTransformationMatrix::kLast)
        return MS::kInvalidParameter;
    return setRotation(MEulerRotation(rotation[0], rotation[1], rotation[2],
                                      static_cast<MEulerRotation::RotationOrder>(order - 1)));
}

MQuaternion MFnTransform::rotateOrientation(MSpace::Space, MStatus* ReturnStatus) const
{
    NodePtr node = transformNode(fObject, ReturnStatus);
    return node ? MEulerRotation(transform::read(*node).rotateAxis).asQuaternion() : MQuaternion();
}

MStatus MFnTransform::setRotateOrientation(const MQuaternion& quat, MSpace::Space, bool balance)
{
    return change(fObject, [&](EditList& edits, const NodePtr& node) {
        const transform::Channels before = transform::read(*node);
        const MEulerRotation axis = quat.asEulerRotation().reorder(MEulerRotation::kXYZ);
        ops::setVector(edits, node, "rotateAxis", axis.asVector());
        if (!balance)
            return;
        // Keep rotateAxis * rotate as it was.
        const auto order = static_cast<MEulerRotation::RotationOrder>(before.rotateOrder);
        const MMatrix kept = axis.asMatrix().inverse() * transform::rotation(before.rotateAxis, 0) *
                             transform::rotation(before.rotate, order);
        const MEulerRotation current(before.rotate, order);
        ops::setVector(edits, node, "rotate",
                       MEulerRotation::decompose(kept, order).closestSolution(current).asVector());
    });
}

MPoint MFnTransform::rotatePivot(MSpace::Space space, MStatus* ReturnStatus) const
{
    NodePtr node = transformNode(fObject, ReturnStatus);
    if (!node)
        return MPoint();
    const transform::Channels c = transform::read(*node);
    if (space != MSpace::kWorld)
        return asPoint(c.rotatePivot);
    return asPoint(c.rotatePivot + c.rotatePivotTranslate + c.translate) * transform::parentMatrix(*node);
}

MStatus MFnTransform::setRotatePivot(const MPoint& point, MSpace::Space space, bool balance)
{
    return change(fObject, [&](EditList& edits, const NodePtr& node) {
        const transform::Channels before = transform::read(*node);
        const MVector pivot = pivotInTransformSpace(*node, point, space, before.rotatePivotTranslate);
        ops::setVector(edits, node, "rotatePivot", pivot);
        if (!balance)
            return;
        // Keep the node in place: the rotate pivot translate takes up the shift.
        const MVector shift = translationRow(transform::compose(before)) - translationRow(transform::localMatrix(*node));
        ops::setVector(edits, node, "rotatePivotTranslate", before.rotatePivotTranslate + shift);
    });
}

MVector MFnTransform::rotatePivotTranslation(MSpace::Space, MStatus* ReturnStatus) const
{
    NodePtr node = transformNode(fObject, ReturnStatus);
    return node ? transform::read(*node).rotatePivotTranslate : MVector();
}

MStatus MFnTransform::setRotatePivotTranslation(const MVector& vec, MSpace::Space)
{
    return change(fObject, [&](EditList& edits, const NodePtr& node) {
        ops::setVector(edits, node, "rotatePivotTranslate", vec);
    });
}

MTransformationMatrix::RotationOrder MFnTransform::rotationOrder(MStatus* ReturnStatus) const
{
    NodePtr node = transformNode(fObject, ReturnStatus);
    if (!node)
        return MTransformationMatrix::kInvalid;
    return static_cast<MTransformationMatrix::RotationOrder>(transform::read(*node).rotateOrder + 1);
}

MStatus MFnTransform::setRotationOrder(MTransformationMatrix::RotationOrder order, bool reorder)
{
    if (order <= MTransformationMatrix::kInvalid || order >= MTransformationMatrix::kLast)
        return MS::kInvalidParameter;
    return change(fObject, [&](EditList& edits, const NodePtr& node) {
        const transform::Channels before = transform::read(*node);
        const auto target = static_cast<MEulerRotation::RotationOrder>(order - 1);
        setNumber(edits, node, "rotateOrder", target);
        if (reorder)
            ops::setVector(edits, node, "rotate",
                           MEulerRotation(before.rotate, static_cast<MEulerRotation::RotationOrder>(before.rotateOrder))
                               .reorder(target)
                               .asVector());
    });
}

const char* MFnTransform::className()
{
    return "MFnTransform";
}
