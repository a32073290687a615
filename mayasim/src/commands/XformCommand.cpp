// xform: the translation, rotation and scale of transforms, read and set in
// object space (the channels, the default) or world space. Values are in UI
// units; rotations in each node's rotate order.
#include "commands/CommandSupport.h"
#include "scene/Operations.h"
#include "scene/Transform.h"

#include <maya/MAngle.h>
#include <maya/MDistance.h>
#include <maya/MEulerRotation.h>
#include <maya/MQuaternion.h>
#include <maya/MTransformationMatrix.h>

namespace mayasim::commands {

namespace {

template <typename Convert>
MVector converted(const MVector& v, Convert convert)
{
    return {convert(v.x), convert(v.y), convert(v.z)};
}

MelValue floats(const MVector& v)
{
    return MelValue::ofFloats({v.x, v.y, v.z});
}

MVector vectorOf(const std::vector<Word>& words)
{
    return {words[0].number(), words[1].number(), words[2].number()};
}

// A point carried by a matrix.
MVector carried(const MVector& point, const MMatrix& m)
{
    return point * m + MVector(m[3][0], m[3][1], m[3][2]);
}

MEulerRotation::RotationOrder orderOf(const transform::Channels& c)
{
    return static_cast<MEulerRotation::RotationOrder>(c.rotateOrder);
}

MQuaternion rotationOf(const MMatrix& m)
{
    return MTransformationMatrix(m).rotation();
}

MVector scaleOf(const MMatrix& m)
{
    double scale[3];
    MTransformationMatrix(m).getScale(scale, MSpace::kWorld);
    return {scale[0], scale[1], scale[2]};
}

// Translation in world space is the translate channel carried by the parent.
MVector worldTranslation(Node& node)
{
    return carried(transform::read(node).translate, transform::parentMatrix(node));
}

MelValue query(const ParsedArgs& args, Node& node, bool world)
{
    const transform::Channels c = transform::read(node);
    if (args.has("translation"))
        return floats(converted(world ? worldTranslation(node) : c.translate, MDistance::internalToUI));
    if (args.has("rotation")) {
        const MVector radians =
            world ? rotationOf(transform::worldMatrix(node)).asEulerRotation().reorder(orderOf(c)).asVector()
                  : c.rotate;
        return floats(converted(radians, MAngle::internalToUI));
    }
    if (args.has("scale"))
        return floats(world ? scaleOf(transform::worldMatrix(node)) : c.scale);
    throw MelError("xform: Nothing to query.");
}

// The rotate channel that gives the node the world rotation `world`: the
// node's rotation stands between its rotate axis and its joint orient, and
// its parent's rotation comes after.
MVector localRotation(Node& node, const MVector& world)
{
    const transform::Channels c = transform::read(node);
    const MQuaternion axis = MEulerRotation(c.rotateAxis).asQuaternion();
    const MQuaternion orient = MEulerRotation(c.jointOrient).asQuaternion();
    const MQuaternion parent = rotationOf(transform::parentMatrix(node));
    const MQuaternion wanted = MEulerRotation(world, orderOf(c)).asQuaternion();
    const MQuaternion local = axis.inverse() * wanted * parent.inverse() * orient.inverse();
    return local.asEulerRotation().reorder(orderOf(c)).asVector();
}

MelValue xform(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0},
                           {"t", "translation", 3},
                           {"ro", "rotation", 3},
                           {"s", "scale", 3},
                           {"ws", "worldSpace", 0},
                           {"os", "objectSpace", 0}});
    const bool world = args.has("worldSpace") && !args.has("objectSpace");
    const std::vector<NodePtr> targets = nodes(args.positional(), true);
    if (targets.empty())
        throw MelError("xform: No object was specified or selected.");
    for (const NodePtr& target : targets)
        if (!target->hasFn(MFn::kTransform))
            throw MelError("xform: Object '" + nameOf(*target) + "' is not a transform.");
    if (args.has("query"))
        return query(args, *targets.front(), world);
    // Read before anything changes, so that a bad number changes nothing.
    const auto given = [&](const char* flag) { return args.has(flag) ? vectorOf(args.args(flag)) : MVector(); };
    const MVector translation = converted(given("translation"), MDistance::uiToInternal);
    const MVector rotation = converted(given("rotation"), MAngle::uiToInternal);
    const MVector scale = given("scale");
    undoable([&](EditList& edits) {
        for (const NodePtr& target : targets) {
            // Scale and rotation first: a world translation is reached after them.
            if (args.has("scale")) {
                const MVector parent = scaleOf(transform::parentMatrix(*target));
                ops::setVector(edits, target, "scale",
                               world ? MVector(scale.x / parent.x, scale.y / parent.y, scale.z / parent.z) : scale);
            }
            if (args.has("rotation"))
                ops::setVector(edits, target, "rotate", world ? localRotation(*target, rotation) : rotation);
            if (args.has("translation"))
                ops::setVector(edits, target, "translate",
                               world ? carried(translation, transform::parentMatrix(*target).inverse())
                                     : translation);
        }
    });
    return MelValue::none();
}

BuiltinRegistrar xformCommand("xform", xform);

} // namespace

} // namespace mayasim::commands
