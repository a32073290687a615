#pragma once
#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace TimelineOverlay {

extern const MString CommandName;

// OVTimelineOverlay name [flags]: queries, removes, or sets and shows the
// named overlay on the time slider. Every flag given applies, in a fixed
// order. Not undoable: overlays are interface, not scene.
class Cmd : public MPxCommand
{
public:
    MStatus doIt(const MArgList& args) override;

    static void* creator();
    static MSyntax createSyntax();
};

} // namespace TimelineOverlay
