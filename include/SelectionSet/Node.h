#pragma once
#include <maya/MCallbackIdArray.h>
#include <maya/MPxNode.h>
#include <maya/MString.h>
#include <maya/MTypeId.h>

namespace SelectionSet {

extern const MString NodeName;
extern const MTypeId NodeTypeId;
// What a set's node name puts around its number, before its label:
// "x1E3x1Earms" is set number 3, labelled arms. The panel takes names apart by it.
extern const MString NameSeparator;

// One selection set: its members as selection strings in "content", the
// panel's colour in "colorIndex", and "hide", whose every change (command,
// undo, file load, animation) hides or shows the members.
class Node : public MPxNode
{
public:
    ~Node() override;
    void postConstructor() override;
    bool getInternalValue(const MPlug& plug, MDataHandle& handle) override;
    bool setInternalValue(const MPlug& plug, const MDataHandle& handle) override;

    static void* creator();
    static MStatus initialize();

    static MObject content;
    static MObject colorIndex;
    static MObject hide;

private:
    bool fHidden = false;
    // The about-to-delete callback, taken back when the node loses its
    // plug-in part (a forced unload keeps the node as an unknown one).
    MCallbackIdArray fCallbacks;
};

} // namespace SelectionSet
