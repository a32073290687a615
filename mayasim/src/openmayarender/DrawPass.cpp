// MDrawRegistry and the draw pass of plug-in locators: overrides are made
// once per node and dropped when their node dies or their creator goes.
#include "openmayarender/DrawPass.h"

#include "engine/Output.h"
#include "engine/Plugins.h"
#include "foundation/NumberText.h"
#include "scene/Evaluation.h"
#include "scene/NodeType.h"
#include "scene/Plugs.h"
#include "scene/Scene.h"
#include "scene/Selection.h"

#include <maya/MDrawRegistry.h>
#include <maya/MPxDrawOverride.h>
#include <maya/MPxLocatorNode.h>

#include <algorithm>
#include <memory>

using MHWRender::MDrawRegistry;
using MHWRender::MPxDrawOverride;

namespace mayasim::render {

namespace {

// The device mayasim's views draw with: Maya 2022's default, OpenGL's
// core profile.
constexpr MHWRender::DrawAPI kDevice = MHWRender::kOpenGLCoreProfile;

struct Creator
{
    std::string classification;
    std::string registrant;
    MDrawRegistry::DrawOverrideCreator create = nullptr;
};

std::vector<Creator>& creators()
{
    static std::vector<Creator> all;
    return all;
}

// One node's override, with the user data Maya keeps for it.
struct Entry
{
    std::weak_ptr<Node> node;
    MDrawRegistry::DrawOverrideCreator creator = nullptr;
    std::unique_ptr<MPxDrawOverride> override;
    std::unique_ptr<MUserData> data;
};

std::vector<Entry>& entries()
{
    static std::vector<Entry> all;
    return all;
}

// A node type's classification holds ':'-separated classes; an override
// draws the types one of whose classes is its classification.
MDrawRegistry::DrawOverrideCreator creatorFor(const NodeType& type)
{
    const std::string& classes = type.classification;
    for (const Creator& creator : creators())
    {
        for (size_t start = 0; start <= classes.size();)
        {
            const size_t end = std::min(classes.find(':', start), classes.size());
            if (classes.compare(start, end - start, creator.classification) == 0)
                return creator.create;
            start = end + 1;
        }
    }
    return nullptr;
}

void dropEntries(const std::function<bool(const Entry&)>& condition)
{
    auto& all = entries();
    all.erase(std::remove_if(all.begin(), all.end(), condition), all.end());
}

Entry* entryFor(const NodePtr& node, MDrawRegistry::DrawOverrideCreator creator)
{
    for (Entry& entry : entries())
        if (entry.node.lock() == node)
            return &entry;
    Entry made;
    made.node = node;
    made.creator = creator;
    made.override.reset(creator(objectOf(node.get())));
    // Maya's words when an override can't draw on the device in use.
    if (made.override && !(made.override->supportedDrawAPIs() & kDevice))
        writeOutput(OutputKind::Error, "line 0: Failed to create evaluator for \"" + node->type()->classification +
                                           "\" classification because the current drawing API isn't supported.");
    entries().push_back(std::move(made));
    return &entries().back();
}

bool flag(Node& node, const char* attribute)
{
    const AttributePtr found = node.findAttribute(attribute);
    return found && eval::read(node, keyOf(*found)).number != 0.0;
}

std::string numbers(std::initializer_list<double> values)
{
    std::string text;
    for (double value : values)
        text += " " + doubleText(value);
    return text;
}

} // namespace

bool isDrawn(const Node& node)
{
    for (NodePtr at = const_cast<Node&>(node).self(); at; at = at->parentNode())
        if (!flag(*at, "visibility") || flag(*at, "intermediateObject"))
            return false;
    return true;
}

void runDrawPass(const CameraView& view, const Filters& filters, DrawList& list)
{
    dropEntries([](const Entry& entry) {
        const NodePtr node = entry.node.lock();
        return !node || !node->alive || !node->user;
    });
    // By index: an override's code may add nodes to the scene.
    for (size_t i = 0; i < scene::nodes().size(); ++i)
    {
        const NodePtr node = scene::nodes()[i];
        if (node->apiType() != MFn::kPluginLocatorNode || !node->user)
            continue;
        const MDrawRegistry::DrawOverrideCreator creator = creatorFor(*node->type());
        if (!creator)
            continue;
        if (!filters.locators && static_cast<const MPxLocatorNode*>(node->user.get())->excludeAsLocator())
            continue;
        if (!isDrawn(*node))
            continue;
        Entry* entry = entryFor(node, creator);
        MPxDrawOverride* override = entry->override.get();
        if (!override || !(override->supportedDrawAPIs() & kDevice))
            continue;
        const MDagPath path = pathTo(*node);
        DrawAccess::withDrawing(view, list, [&](const MHWRender::MFrameContext& context,
                                                MHWRender::MUIDrawManager& manager) {
            MUserData* data = override->prepareForDraw(path, view.camera, context, entry->data.get());
            // Maya deletes the old data when the override hands back new data.
            if (data != entry->data.get())
                entry->data.reset(data);
            if (override->hasUIDrawables())
                override->addUIDrawables(path, manager, context, data);
            if (entry->data && entry->data->deleteAfterUse())
                entry->data.reset();
        });
    }
}

std::string describe(const Primitive& primitive)
{
    static const char* const names[][2] = {{"line", "line2d"}, {"point", "point2d"}, {"circle", "circle2d"},
                                           {"rect", "rect2d"},  {"text", "text2d"}};
    std::string text = names[primitive.kind][primitive.twoD ? 1 : 0];
    switch (primitive.kind)
    {
    case Primitive::Line: text += numbers({primitive.x1, primitive.y1, primitive.x2, primitive.y2}); break;
    case Primitive::Point: text += numbers({primitive.x1, primitive.y1}) + " size" + numbers({primitive.pointSize}); break;
    case Primitive::Circle:
        text += numbers({primitive.x1, primitive.y1, primitive.radius}) + (primitive.filled ? " filled" : "");
        break;
    case Primitive::Rect:
        text += numbers({primitive.x1, primitive.y1, primitive.x2, primitive.y2}) + (primitive.filled ? " filled" : "");
        break;
    case Primitive::Text: text += numbers({primitive.x1, primitive.y1}) + " \"" + primitive.text + "\""; break;
    }
    const MColor& c = primitive.color;
    text += " color" + numbers({c.r, c.g, c.b, c.a});
    if (primitive.kind == Primitive::Line || (primitive.kind != Primitive::Point && !primitive.filled))
        text += " width" + numbers({primitive.lineWidth}) + " style" + numbers({double(primitive.lineStyle)});
    return text;
}

} // namespace mayasim::render

using namespace mayasim;

MStatus MDrawRegistry::registerDrawOverrideCreator(const MString& drawClassification, const MString& registrantId,
                                                   DrawOverrideCreator creator)
{
    const std::string classification = drawClassification.asChar();
    auto& all = render::creators();
    const bool taken = std::any_of(all.begin(), all.end(), [&](const render::Creator& existing) {
        return existing.classification == classification;
    });
    const bool ok = plugins::registrationAllowed() && creator && !classification.empty() && !taken;
    if (ok)
        all.push_back({classification, registrantId.asChar(), creator});
    plugins::recordRegistration(registrantId.asChar(), "registerDrawOverrideCreator", classification, ok);
    return ok ? MS::kSuccess : MS::kFailure;
}

MStatus MDrawRegistry::deregisterDrawOverrideCreator(const MString& drawClassification, const MString& registrantId)
{
    const std::string classification = drawClassification.asChar();
    auto& all = render::creators();
    const auto found = std::find_if(all.begin(), all.end(), [&](const render::Creator& existing) {
        return existing.classification == classification && existing.registrant == registrantId.asChar();
    });
    const bool ok = plugins::registrationAllowed() && found != all.end();
    if (ok)
    {
        const DrawOverrideCreator creator = found->create;
        all.erase(found);
        render::dropEntries([creator](const render::Entry& entry) { return entry.creator == creator; });
    }
    plugins::recordRegistration(registrantId.asChar(), "deregisterDrawOverrideCreator", classification, ok);
    return ok ? MS::kSuccess : MS::kFailure;
}

const char* MDrawRegistry::className()
{
    return "MDrawRegistry";
}
