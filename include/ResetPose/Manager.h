#pragma once
#include "CollectAnimation/DataBase.h"
#include "Snapshot/Manager.h"

#include <maya/MAnimCurveChange.h>
#include <maya/MDGModifier.h>

#include <QString>
#include <maya/MApiNamespace.h>

namespace ResetPose {

// Bits of the mode word: which channels a reset covers.
enum ModeBit : unsigned int
{
    TranslateBit = 1,
    RotateBit = 2,
    ScaleBit = 4,
    AllChannelsBit = 8,
    FlagGivenBit = 16 // set with any flag; nothing reads it
};

// Puts channels back to their stored pose, or to the attributes' defaults:
// the current values, or the selected keys when keys are meant.
class Manager
{
public:
    void setMode(bool translate, bool rotate, bool scale);

    void reset(const MSelectionList& objects);
    MStatus undoIt();
    MStatus redoIt();

private:
    bool channelMatches(const QString& name) const;
    void resetValues(const MSelectionList& objects);
    void resetKeys(const MSelectionList& objects);

    MDGModifier fModifier;
    MAnimCurveChange fChange;
    unsigned int fMode = AllChannelsBit;
    Snapshot::Manager fSnapshot;
    CollectAnimation::CtxAnim fCollection{&fChange};
};

} // namespace ResetPose
