#pragma once
#include "Utils/File/PluginManager.h"

#include <maya/MObject.h>

namespace SceneId {

// Tool folders of the data folder that hold a file or folder a scene.
extern const QString AnimationRecoveryFolder;
extern const QString TempPivotFolder;

// Answers for the open scene's identity node; holds nothing.
class Manager : public File::PluginManager
{
public:
    // 0.0 when the scene has none: unsaved, or the node can't be had.
    double sceneId() const;
    // The node named "OVSceneId", made (outside the undo queue) when missing.
    MObject findOrCreateNode() const;
    // <data folder>/<toolFolder>/<identity>, not made itself; empty when the
    // scene has no identity or the tool folder can't be made.
    QString scenePath(const QString& toolFolder) const;
    // The same path made a folder.
    QString sceneDir(const QString& toolFolder) const;
};

const Manager& manager();

} // namespace SceneId
