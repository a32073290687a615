#pragma once
#include <maya/MDGModifier.h>
#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MSelectionList.h>
#include <maya/MTime.h>
#include <maya/MApiNamespace.h>

namespace Relationship {

// Where one transform stands relative to another, kept to put it back later;
// one global object, so the copy outlives the command.
class Manager
{
public:
    // Stores the first of exactly two transforms relative to the second.
    bool copy(const MSelectionList& objects);
    // Puts the first object back where it stood relative to the second: at
    // the current time as a value change through modifier, or over the
    // highlighted range with keys, following the second wherever it is.
    // written tells whether modifier holds the values of the paste.
    bool paste(MDGModifier& modifier, bool& written);

private:
    bool pasteAtTime(const MTime& t, MDGModifier& modifier, bool withKey);
    bool writeChannels(const MMatrix& world, const MTime& t, MDGModifier& modifier) const;
    bool objectsLive() const;

    MObject fTarget;
    MObject fSource;
    MTime fCopyTime;
    MMatrix fTargetWorld;
    MMatrix fSourceWorld;
    MMatrix fRelation;
};

Manager& manager();

} // namespace Relationship
