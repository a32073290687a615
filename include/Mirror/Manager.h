#pragma once
#include "Mirror/FileManager.h"

#include <maya/MMatrix.h>
#include <maya/MObject.h>

#include <QString>
#include <maya/MApiNamespace.h>

namespace Mirror {

// A world or parent-space direction: 0 +X, 1 -X, 2 +Y, 3 -Y, 4 +Z, 5 -Z.
// Codes that differ only in sign share a letter.
using AxisCode = int;

// The mirror axis: always X, the world YZ plane being the mirror.
const AxisCode MirrorAxis = 0;

// Which direction each local axis of an object points in.
struct AxisFrame
{
    AxisCode axisX = 0;
    AxisCode axisY = 2;
    AxisCode axisZ = 4;
    bool valid = false; // the object was live when the frame was made

    // Axis 0, 1, 2 for X, Y, Z.
    AxisCode operator[](int axis) const { return axis == 0 ? axisX : axis == 1 ? axisY : axisZ; }
};

// The frames one pair is mirrored with: the rest frames in the parents'
// space, unless both agree on the mirror axis while their world frames
// don't, which is when the world frames are used instead.
struct MirrorFrames
{
    AxisFrame own;
    AxisFrame other;
    AxisFrame ownLocal;
    AxisFrame otherLocal;
    bool usesWorldFrames = false;
};

// The direction of each row of a matrix; ties go to the earlier axis.
AxisFrame frameOf(const MMatrix& matrix, bool live);
// The rest orientation: rotate axis, joint orient and parent, not the
// animated rotation, so joints and plain transforms get one answer.
AxisFrame localFrame(const MObject& object);
AxisFrame worldFrame(const MObject& object);
MirrorFrames makeFrames(const MObject& object, const MObject& opposite, AxisCode axis);
// The sign a channel takes from a to b: +1 or -1. Scale never flips.
double channelFactor(const QString& name, const AxisFrame& a, const AxisFrame& b, AxisCode axis);
double attributeFactor(const QString& name, const MirrorFrames& frames, AxisCode axis);

// Pose mirroring and its factor file; one global object.
class Manager
{
public:
    // Each object's channels onto its opposite, or onto itself without one:
    // all values read before any is written, so that a selected pair swaps.
    void mirror(const MSelectionList& selection, MDGModifier& modifier) const;
    // Freezes the computed factors of the selection, after pairing the
    // selection by position.
    bool snapshot(const MSelectionList& selection) const;
    bool removeSnapshot() const;
    bool removeSelectedFromSnapshot(const MSelectionList& selection) const;
    // Flips the stored factor of the channels highlighted in the channel box,
    // for the first object and its opposite.
    bool fixAttribute(const MSelectionList& selection) const;

private:
    FileManager fFile;
};

Manager& manager();

} // namespace Mirror
