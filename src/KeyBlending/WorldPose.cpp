#include "KeyBlending/WorldPose.h"

#include "Utils/Arithmetic.h"

#include <maya/MDGContext.h>
#include <maya/MDGContextGuard.h>
#include <maya/MDoubleArray.h>
#include <maya/MEulerRotation.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MTransformationMatrix.h>
#include <maya/MVector.h>

#include <algorithm>

namespace KeyBlending {

namespace {

// The three angles of an angle triple plug; zero when the plug is missing.
MVector anglesOf(const MPlug& plug)
{
    const MDoubleArray angles = TransformReader::childValues(plug);
    if (angles.length() < 3)
        return MVector();
    return MVector(angles[0], angles[1], angles[2]);
}

// An angle triple plug as a rotation in Maya's default XYZ order; identity
// when the plug is missing.
MQuaternion rotationOf(const MPlug& plug) { return MEulerRotation(anglesOf(plug)).asQuaternion(); }

// The translation the pivot would have if the matrix turned about it:
// translation row + pivot * rotation - pivot.
MVector pivotPath(const MMatrix& matrix, const MQuaternion& rotation, const MPoint& pivot)
{
    const MMatrix turn = rotation.asMatrix();
    MVector path;
    for (unsigned int column = 0; column < 3; ++column) {
        double turned = 0.0;
        for (unsigned int row = 0; row < 3; ++row)
            turned += pivot[row] * turn(row, column);
        path[column] = matrix(3, column) + turned - pivot[column];
    }
    return path;
}

void store(const MVector& value, double (&channels)[3])
{
    for (unsigned int i = 0; i < 3; ++i)
        channels[i] = value[i];
}

} // namespace

ObjectSpace readObjectSpace(TransformReader& reader)
{
    ObjectSpace space;
    space.rotateAxisQ = rotationOf(reader.attribute(TransformReader::RotateAxis));
    const MFnDependencyNode node(reader.object());
    if (node.hasAttribute("jointOrient"))
        space.jointOrientQ = rotationOf(node.findPlug("jointOrient", false));
    space.pivot = reader.rotatePivot();
    // MTransformationMatrix counts its orders from one above MEulerRotation's.
    space.rotationOrder = std::max(reader.rotationOrder() - 1, 0);
    return space;
}

MPlug rotatePlug(const MObject& node)
{
    const MFnDependencyNode fn(node);
    return fn.hasAttribute("rotate") ? fn.findPlug("rotate", false) : MPlug();
}

MVector anglesAt(const MPlug& plug, const MTime& time)
{
    const MDGContext context(time);
    const MDGContextGuard guard(context);
    return anglesOf(plug);
}

namespace {

// The rotate channels of a parent-space rotation: without the rotate axis
// before and the joint orient after, what is left is the object's own
// rotation, as the angles nearest pose.keyRotate.
void storeRotation(const MQuaternion& rotation, const ObjectSpace& object, PoseChannels& pose)
{
    const MQuaternion own = object.rotateAxisQ.inverse() * rotation * object.jointOrientQ.inverse();
    store(nearestEuler(own, static_cast<MEulerRotation::RotationOrder>(object.rotationOrder), pose.keyRotate),
          pose.rotate);
}

} // namespace

void poseOf(const MMatrix& local, const ObjectSpace& object, PoseChannels& pose)
{
    const MTransformationMatrix transform(local);
    const MQuaternion rotation = transform.rotation();
    storeRotation(rotation, object, pose);
    transform.getScale(pose.scale, MSpace::kTransform);
    store(pivotPath(local, rotation, object.pivot), pose.translate);
}

void blendPose(const MMatrix& a, const MMatrix& b, double t, const ObjectSpace& object, PoseChannels& pose)
{
    const MTransformationMatrix transformA(a);
    const MTransformationMatrix transformB(b);
    const MQuaternion rotationA = transformA.rotation();
    const MQuaternion rotationB = transformB.rotation();
    storeRotation(slerp(rotationA, rotationB, t), object, pose);

    double scaleA[3];
    double scaleB[3];
    transformA.getScale(scaleA, MSpace::kTransform);
    transformB.getScale(scaleB, MSpace::kTransform);
    store(lerp(MVector(scaleA), MVector(scaleB), t), pose.scale);

    // The pivot's path is blended, so an object with an offset pivot doesn't swing.
    store(lerp(pivotPath(a, rotationA, object.pivot), pivotPath(b, rotationB, object.pivot), t), pose.translate);
}

int channelIndex(const MString& name)
{
    // Made once: this runs for every key at every step.
    static const MString channels[] = {"translateX", "translateY", "translateZ", "rotateX", "rotateY",
                                       "rotateZ",    "scaleX",     "scaleY",     "scaleZ"};
    for (int i = 0; i < 9; ++i)
        if (name.indexW(channels[i]) >= 0)
            return i;
    return -1;
}

double channelOf(const PoseChannels& pose, int index)
{
    const double(&values)[3] = index < 3 ? pose.translate : index < 6 ? pose.rotate : pose.scale;
    return values[index % 3];
}

double channelValue(const MString& name, const PoseChannels& pose, double fallback)
{
    const int index = channelIndex(name);
    return index < 0 ? fallback : channelOf(pose, index);
}

} // namespace KeyBlending
