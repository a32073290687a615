#include "TestNodes.h"

#include <maya/MDataBlock.h>
#include <maya/MDataHandle.h>
#include <maya/MDGModifier.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnPlugin.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MPlug.h>
#include <maya/MPxLocatorNode.h>
#include <maya/MPxNode.h>
#include <maya/MTime.h>
#include <mayasim/Host.h>

namespace dgtest {

NodeRecord& nodeRecord()
{
    static NodeRecord record;
    return record;
}

namespace {

class Hider : public MPxNode
{
public:
    static MObject hide;
    static MObject content;
    static void* creator() { return new Hider; }
    static MStatus initialize()
    {
        MFnNumericAttribute numeric;
        hide = numeric.create("hide", "h", MFnNumericData::kBoolean, 0.0);
        numeric.setInternal(true);
        numeric.setKeyable(true);
        numeric.setStorable(true);
        MFnTypedAttribute typed;
        content = typed.create("content", "c", MFnData::kString);
        typed.setHidden(true);
        typed.setStorable(true);
        addAttribute(hide);
        addAttribute(content);
        return MS::kSuccess;
    }
    bool getInternalValue(const MPlug& plug, MDataHandle& handle) override
    {
        if (plug != hide)
            return false;
        handle.setBool(fHidden);
        return true;
    }
    bool setInternalValue(const MPlug& plug, const MDataHandle& handle) override
    {
        if (plug != hide)
            return false;
        fHidden = handle.asBool();
        nodeRecord().hideWrites.push_back(fHidden);
        return true;
    }

private:
    bool fHidden = false;
};
MObject Hider::hide;
MObject Hider::content;

class Clock : public MPxNode
{
public:
    static MObject input;
    static MObject output;
    static void* creator() { return new Clock; }
    static MStatus initialize()
    {
        MFnNumericAttribute numeric;
        input = numeric.create("input", "in", MFnNumericData::kDouble, 0.0);
        numeric.setKeyable(true);
        output = numeric.create("output", "out", MFnNumericData::kDouble, 0.0);
        numeric.setWritable(false);
        numeric.setStorable(false);
        addAttribute(input);
        addAttribute(output);
        attributeAffects(input, output);
        return MS::kSuccess;
    }
    MStatus compute(const MPlug& plug, MDataBlock& block) override
    {
        if (plug != output)
            return MS::kUnknownParameter;
        MTime time;
        block.context().getTime(time);
        const double frames = time.as(MTime::kFilm);
        block.outputValue(output).setDouble(block.inputValue(input).asDouble() + 2.0 * frames);
        block.setClean(plug);
        return MS::kSuccess;
    }
};
MObject Clock::input;
MObject Clock::output;

class Renamer : public MPxNode
{
public:
    static void* creator() { return new Renamer; }
    static MStatus initialize() { return MS::kSuccess; }
    void postConstructor() override
    {
        MDGModifier modifier;
        modifier.renameNode(thisMObject(), "dgRenamed");
        modifier.doIt();
        MPxNode::postConstructor();
    }
};

class Locator : public MPxLocatorNode
{
public:
    static void* creator() { return new Locator; }
    static MStatus initialize() { return MS::kSuccess; }
    bool excludeAsLocator() const override { return false; }
};

MStatus initializeTestNodes(MObject object)
{
    MFnPlugin plugin(object, "dgtest", "1.0", "Any");
    MStatus status = plugin.registerNode("dgHider", 0x7f001, Hider::creator, Hider::initialize);
    status = status ? plugin.registerNode("dgClock", 0x7f002, Clock::creator, Clock::initialize) : status;
    status = status ? plugin.registerNode("dgRenamer", 0x7f003, Renamer::creator, Renamer::initialize) : status;
    const MString classification("drawdb/geometry/dgLocator");
    return status ? plugin.registerNode("dgLocator", 0x7f004, Locator::creator, Locator::initialize,
                                        MPxNode::kLocatorNode, &classification)
                  : status;
}

MStatus uninitializeTestNodes(MObject object)
{
    MFnPlugin plugin(object);
    plugin.deregisterNode(0x7f004);
    plugin.deregisterNode(0x7f003);
    plugin.deregisterNode(0x7f002);
    return plugin.deregisterNode(0x7f001);
}

} // namespace

void loadTestNodes()
{
    static const bool loaded = mayasim::host::loadLinkedPlugin("dgTestNodes", initializeTestNodes, uninitializeTestNodes);
    (void)loaded;
}

} // namespace dgtest
