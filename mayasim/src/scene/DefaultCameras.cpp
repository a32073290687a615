#include "scene/DefaultCameras.h"

#include "scene/Operations.h"
#include "scene/Plugs.h"

#include <array>
#include <cmath>

namespace mayasim::cameras {

namespace {

struct Camera
{
    const char* name;
    double translate[3];
    double rotateDegrees[3];
    bool orthographic;
    double centerOfInterest;
};

// Where Maya puts them in a new scene.
const std::array<Camera, 4> kCameras = {{
    {"persp", {28, 21, 28}, {-27.938352729602379, 44.999999999999972, 0}, false, 44.82186966202994},
    {"top", {0, 1000.1, 0}, {-90, 0, 0}, true, 1000.1},
    {"front", {0, 0, 1000.1}, {0, 0, 0}, true, 1000.1},
    {"side", {1000.1, 0, 0}, {0, 90, 0}, true, 1000.1},
}};

std::array<std::weak_ptr<Node>, 8>& made()
{
    static std::array<std::weak_ptr<Node>, 8> nodes;
    return nodes;
}

void set(EditList& edits, const NodePtr& node, const char* attribute, double value)
{
    ops::setValue(edits, node, keyOf(*node->findAttribute(attribute)), Value::ofNumber(value), false);
}

} // namespace

void createDefaultCameras()
{
    EditList edits;
    for (size_t i = 0; i < kCameras.size(); ++i)
    {
        const Camera& camera = kCameras[i];
        NodePtr transform = ops::createNode(edits, "transform", camera.name, nullptr);
        const char* const translate[] = {"tx", "ty", "tz"};
        const char* const rotate[] = {"rx", "ry", "rz"};
        for (int axis = 0; axis < 3; ++axis)
        {
            set(edits, transform, translate[axis], camera.translate[axis]);
            set(edits, transform, rotate[axis], camera.rotateDegrees[axis] * M_PI / 180.0);
        }
        set(edits, transform, "v", 0.0);
        NodePtr shape = ops::createNode(edits, "camera", std::string(camera.name) + "Shape", transform);
        set(edits, shape, "o", camera.orthographic ? 1.0 : 0.0);
        set(edits, shape, "coi", camera.centerOfInterest);
        made()[2 * i] = transform;
        made()[2 * i + 1] = shape;
    }
}

bool isDefaultCamera(const Node& node)
{
    for (const auto& made : made())
        if (made.lock().get() == &node)
            return true;
    return false;
}

NodePtr defaultCameraShape(const std::string& name)
{
    for (size_t i = 0; i < kCameras.size(); ++i)
        if (name == kCameras[i].name)
        {
            NodePtr shape = made()[2 * i + 1].lock();
            return shape && shape->alive ? shape : nullptr;
        }
    return nullptr;
}

} // namespace mayasim::cameras
