#pragma once
// The selection set operations that the command and the panel share. Edits
// go through the modifier given, and are done by the time each returns.
#include <maya/MDGModifier.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

namespace SelectionSet {

// The set node of that full name, or a null object when it isn't one.
MObject findSet(const MString& name);
// The members kept in a content plug, in their order; none for a null plug.
MStringArray readMembers(const MPlug& content);

// A new set of the list's members, labelled; its node name, or an empty
// one when it couldn't be made.
MString createSet(const MString& label, const MSelectionList& list, MDGModifier& modifier);
// Value 0 replaces the active list by the members, 1 adds them, 2 removes
// them; the sign and fraction are dropped, 3 and more do nothing.
void selectMembers(const MString& name, double value);
// Value as for selectMembers: 0 makes the list the members, 1 adds what
// isn't in yet, 2 takes the list's strings out.
void modifyMembers(const MString& name, const MSelectionList& list, double value, MDGModifier& modifier);
// Whether the set was there to remove or to change.
bool removeSet(const MString& name, MDGModifier& modifier);
bool setHidden(const MString& name, bool hidden, MDGModifier& modifier);
// Hides or shows what a content plug names: components by hide and
// showHidden, objects by the level-of-detail visibility of their shapes.
void applyHidden(const MPlug& content, bool hidden);

} // namespace SelectionSet
