// The node types Maya has built in, with the attributes the plug-in and
// animation files rely on.
#include "scene/NodeType.h"
#include "scene/Transform.h"

namespace mayasim {

namespace {

AttributePtr keyable(AttributePtr attribute)
{
    attribute->keyable = true;
    for (auto& child : attribute->children)
        child->keyable = true;
    return attribute;
}

AttributePtr hidden(AttributePtr attribute)
{
    attribute->hidden = true;
    return attribute;
}

// Marks an attribute whose change moves the node in the world.
AttributePtr moves(AttributePtr attribute)
{
    attribute->affectsWorldSpace = true;
    for (auto& child : attribute->children)
        child->affectsWorldSpace = true;
    return attribute;
}

AttributePtr output(AttributePtr attribute)
{
    attribute->writable = false;
    attribute->storable = false;
    return attribute;
}

AttributePtr matrixArray(const std::string& longName, const std::string& shortName)
{
    AttributePtr attribute = output(makeMatrix(longName, shortName));
    attribute->array = true;
    return attribute;
}

AttributePtr boolean(const std::string& longName, const std::string& shortName, bool value)
{
    return makeNumeric(longName, shortName, MFnNumericData::kBoolean, value ? 1.0 : 0.0);
}

NodeTypePtr add(const std::string& name, const NodeTypePtr& base, MFn::Type apiType, unsigned int id,
                std::initializer_list<AttributePtr> attributes)
{
    NodeTypePtr type = makeNodeType(name, base, apiType, id);
    for (const auto& attribute : attributes)
        type->addAttribute(attribute);
    registerNodeType(type);
    return type;
}

void registerBuiltins()
{
    NodeTypePtr node = add("node", nullptr, MFn::kDependencyNode, 0,
                           {hidden(makeMessage("message", "msg")), hidden(boolean("caching", "cch", false)),
                            hidden(boolean("frozen", "fzn", false)),
                            hidden(makeNumeric("isHistoricallyInteresting", "ihi", MFnNumericData::kChar, 2)),
                            hidden(makeEnum("nodeState", "nds",
                                            {{"Normal", 0}, {"HasNoEffect", 1}, {"Blocking", 2}, {"Waiting-Normal", 8},
                                             {"Waiting-HasNoEffect", 9}, {"Waiting-Blocking", 10}})),
                            hidden(makeTyped("binMembership", "bnm", MFnData::kString))});
    node->abstract = true;
    add("unknown", node, MFn::kUnknown, 0x554e4b4e, {})->acceptsUnknownAttributes = true;
    add("reference", node, MFn::kReference, 0x5245464e, {makeTyped("proxyTag", "ptag", MFnData::kString)});

    NodeTypePtr dagNode =
        add("dagNode", node, MFn::kDagNode, 0x4441474e,
            {keyable(boolean("visibility", "v", true)), boolean("template", "tmp", false),
             boolean("lodVisibility", "lodv", true), boolean("intermediateObject", "io", false),
             output(makeMatrix("matrix", "m")), output(makeMatrix("inverseMatrix", "im")),
             matrixArray("worldMatrix", "wm"), matrixArray("worldInverseMatrix", "wim"),
             matrixArray("parentMatrix", "pm"), matrixArray("parentInverseMatrix", "pim")});
    dagNode->abstract = true;
    dagNode->dag = true;
    dagNode->compute = transform::computeMatrixPlug;

    NodeTypePtr transform = add(
        "transform", dagNode, MFn::kTransform, 0x5846524d,
        {keyable(moves(makeTriple("translate", "t", MFnUnitAttribute::kDistance))),
         keyable(moves(makeTriple("rotate", "r", MFnUnitAttribute::kAngle))),
         keyable(moves(makeTriple("scale", "s", MFnUnitAttribute::kInvalid, 1.0))),
         moves(makeNumericCompound("shear", "sh",
                                   {makeNumeric("shearXY", "shxy", MFnNumericData::kDouble),
                                    makeNumeric("shearXZ", "shxz", MFnNumericData::kDouble),
                                    makeNumeric("shearYZ", "shyz", MFnNumericData::kDouble)})),
         moves(makeEnum("rotateOrder", "ro",
                        {{"xyz", 0}, {"yzx", 1}, {"zxy", 2}, {"xzy", 3}, {"yxz", 4}, {"zyx", 5}})),
         moves(makeTriple("rotateAxis", "ra", MFnUnitAttribute::kAngle)),
         moves(makeTriple("rotatePivot", "rp", MFnUnitAttribute::kDistance)),
         moves(makeTriple("rotatePivotTranslate", "rpt", MFnUnitAttribute::kDistance)),
         moves(makeTriple("scalePivot", "sp", MFnUnitAttribute::kDistance)),
         moves(makeTriple("scalePivotTranslate", "spt", MFnUnitAttribute::kDistance)),
         moves(boolean("inheritsTransform", "it", true)), output(makeMatrix("xformMatrix", "xm")),
         boolean("displayHandle", "dh", false), boolean("displayRotatePivot", "drp", false),
         boolean("displayScalePivot", "dsp", false)});

    add("joint", transform, MFn::kJoint, 0x4a4f494e,
        {moves(makeTriple("jointOrient", "jo", MFnUnitAttribute::kAngle)),
         moves(makeTriple("inverseScale", "is", MFnUnitAttribute::kInvalid, 1.0)),
         boolean("segmentScaleCompensate", "ssc", true), makeNumeric("radius", "radi", MFnNumericData::kDouble, 1.0),
         makeTriple("preferredAngle", "pa", MFnUnitAttribute::kAngle)});

    NodeTypePtr shape = add("shape", dagNode, MFn::kShape, 0x53484150, {});
    shape->abstract = true;
    shape->shape = true;

    add("locator", shape, MFn::kLocator, 0x4c4f4354,
        {makeTriple("localPosition", "lp", MFnUnitAttribute::kDistance),
         makeTriple("localScale", "los", MFnUnitAttribute::kInvalid, 1.0)});
    add("mesh", shape, MFn::kMesh, 0x444d5348, {});
    add("nurbsCurve", shape, MFn::kNurbsCurve, 0x4e435256, {});
    add("camera", shape, MFn::kCamera, 0x4443414d,
        {boolean("orthographic", "o", false),
         makeUnit("orthographicWidth", "ow", MFnUnitAttribute::kDistance, 30.0),
         makeNumeric("focalLength", "fl", MFnNumericData::kDouble, 35.0),
         makeUnit("nearClipPlane", "ncp", MFnUnitAttribute::kDistance, 0.1),
         makeUnit("farClipPlane", "fcp", MFnUnitAttribute::kDistance, 10000.0),
         makeUnit("centerOfInterest", "coi", MFnUnitAttribute::kDistance, 5.0),
         // The film back in inches (35 mm full aperture) and how it fits the view.
         makeNumeric("horizontalFilmAperture", "hfa", MFnNumericData::kDouble, 1.41732),
         makeNumeric("verticalFilmAperture", "vfa", MFnNumericData::kDouble, 0.94488),
         makeEnum("filmFit", "ff", {{"Fill", 0}, {"Horizontal", 1}, {"Vertical", 2}, {"Overscan", 3}}, 1),
         makeNumeric("overscan", "ovr", MFnNumericData::kDouble, 1.0)});
}

} // namespace

void ensureBuiltinNodeTypes()
{
    static const bool registered = (registerBuiltins(), true);
    (void)registered;
}

} // namespace mayasim
