#pragma once
#include <maya/MPxNode.h>
#include <maya/MString.h>
#include <maya/MTypeId.h>

namespace SceneId {

extern const MString NodeName;
extern const MTypeId NodeTypeId;

// The scene's identity: one node a scene whose stored "id" is the moment it
// was made, in milliseconds since 1970. Saved with the scene, so a reopened
// or renamed scene keeps it.
class Node : public MPxNode
{
public:
    static void* creator();
    static MStatus initialize();
    void postConstructor() override;

    static MObject id;
};

} // namespace SceneId
