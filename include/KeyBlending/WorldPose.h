#pragma once
#include "CollectAnimation/Records.h"
#include "Utils/Nodes/AnimCurve.h"
#include "Utils/Nodes/Node.h"
#include "Utils/Nodes/Transform.h"

#include <maya/MFnAnimCurve.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MQuaternion.h>
#include <maya/MString.h>
#include <maya/MTime.h>
#include <maya/MVector.h>

#include <map>
#include <tuple>
#include <vector>
#include <maya/MApiNamespace.h>

// What the world-space blends share: the pose a step computes, the object's
// own rotation offsets and pivot, and the walk that writes transform channels
// from a pose.
namespace KeyBlending {

// The channel values of a blended pose, in the object's parent space.
struct PoseChannels
{
    double translate[3] = {0.0, 0.0, 0.0};
    // Radians, in the object's rotation order.
    double rotate[3] = {0.0, 0.0, 0.0};
    double scale[3] = {1.0, 1.0, 1.0};
    // The rotate channels at the key's own time, read at the press: of the
    // angles that give the blended rotation, rotate takes those nearest
    // these, so a channel keyed past a half turn keeps its winding.
    MVector keyRotate;
};

// What lies between a pose's rotation and the object's rotate channels, and
// the pivot whose path is blended.
struct ObjectSpace
{
    MQuaternion rotateAxisQ;
    MQuaternion jointOrientQ;
    MPoint pivot;
    // MEulerRotation::RotationOrder of the object.
    int rotationOrder = 0;
};

// A key's own time and the two times its pose is blended from.
using TimeTriple = std::tuple<MTime, MTime, MTime>;

// Read at the press, from the object as it stands.
ObjectSpace readObjectSpace(TransformReader& reader);
// The rotate plug of a node; null if it has none.
MPlug rotatePlug(const MObject& node);
// The three angles of an angle triple plug at a time; zero for a null plug.
MVector anglesAt(const MPlug& plug, const MTime& time);

// One collected object and the frame records of its keys. Key is what a key
// is matched to its record by.
template <typename Frame, typename Key>
struct ObjectRecord
{
    explicit ObjectRecord(CollectAnimation::NodeKeys& node) : source(&node), reader(node.node) {}

    // The record of the first frame with that key: a lookup, not a scan of
    // the frames, since it runs for every key at every step.
    const Frame* findFrame(const Key& key) const
    {
        const auto found = firstFrame.find(key);
        return found == firstFrame.end() ? nullptr : &frames[found->second];
    }

    // Once the object has frames: its space, and each frame's keyRotate.
    void readSpace()
    {
        space = readObjectSpace(reader);
        const MPlug rotate = rotatePlug(reader.object());
        for (Frame& frame : frames)
            frame.keyRotate = anglesAt(rotate, frame.time);
    }

    CollectAnimation::NodeKeys* source;
    TransformReader reader;
    std::vector<Frame> frames;
    // Each key's first record in frames, filled with them at the press.
    std::map<Key, size_t> firstFrame;
    // Read only for objects that have frames.
    ObjectSpace space;
};

// The channels that give the parent-space matrix local: the rotation as the
// angles nearest pose.keyRotate, the scale, and the translation that puts the
// pivot where the matrix does.
void poseOf(const MMatrix& local, const ObjectSpace& object, PoseChannels& pose);

// Blends the poses of the parent-space matrices a and b by t into pose: the
// rotation along the shortest arc, as the angles nearest pose.keyRotate;
// scale and the pivot's path in a line.
void blendPose(const MMatrix& a, const MMatrix& b, double t, const ObjectSpace& object, PoseChannels& pose);

// Which of the nine transform channels (translateX to scaleZ, 0 to 8) a
// name holds; -1 for none.
int channelIndex(const MString& name);
// Channel 0 to 8 of pose.
double channelOf(const PoseChannels& pose, int index);

// The component of pose that the curve named name drives, found by the
// channel name it contains; fallback for any other curve.
double channelValue(const MString& name, const PoseChannels& pose, double fallback);

// Writes valueOf(curve, key, transform, name) into every collected key of
// node, with transform whether the curve drives a transform channel and name
// the curve's name.
template <typename ValueOf>
void setEachKeyOf(CollectAnimation::NodeKeys& node, MAnimCurveChange* change, ValueOf&& valueOf)
{
    for (CollectAnimation::PlugKeys& plug : node.plugs)
        for (CollectAnimation::CurveKeys& curve : plug.curves) {
            MFnAnimCurve fn(curve.curve);
            const bool transform = isTransformCurve(curve.curve);
            const MString name = nodeDisplayName(curve.curve);
            for (const CollectAnimation::KeyInfo& key : curve.keys)
                fn.setValue(key.index, valueOf(fn, key, transform, name), change);
        }
}

} // namespace KeyBlending
