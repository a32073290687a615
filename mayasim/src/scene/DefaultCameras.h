#pragma once
// The cameras every scene starts with, as in Maya: "persp" and the
// orthographic "top", "front" and "side", each a transform with a camera
// shape ("perspShape"). They are the scene's nodes like any other, but
// files leave them out: views start from these defaults after open.
#include "scene/Node.h"

#include <string>

namespace mayasim::cameras {

// Makes the four cameras in the empty scene (no undo: a new scene's own).
void createDefaultCameras();
// True for the default cameras' transforms and shapes.
bool isDefaultCamera(const Node& node);
// The default camera's shape by its transform's name ("persp"), while it
// is in the scene; null otherwise.
NodePtr defaultCameraShape(const std::string& name);

} // namespace mayasim::cameras
