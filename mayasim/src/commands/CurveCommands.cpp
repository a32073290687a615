// keyTangent and bufferCurve: tangents of keys and the global defaults, and
// the buffer curves the graph editor keeps beside curves.
#include "commands/KeySupport.h"
#include "openmayaanim/AnimCurveNodes.h"
#include "openmayaanim/ChangeLog.h"

#include <maya/MAngle.h>
#include <maya/MAnimControl.h>
#include <maya/MFnAnimCurve.h>

#include <map>
#include <optional>

namespace mayasim::commands {

namespace {

MObject objectFor(const NodePtr& node)
{
    return objectOf(node.get());
}

// --- keyTangent --------------------------------------------------------------------

const std::pair<const char*, MFnAnimCurve::TangentType> kTangentNames[] = {
    {"fixed", MFnAnimCurve::kTangentFixed},   {"linear", MFnAnimCurve::kTangentLinear},
    {"flat", MFnAnimCurve::kTangentFlat},     {"spline", MFnAnimCurve::kTangentSmooth},
    {"step", MFnAnimCurve::kTangentStep},     {"slow", MFnAnimCurve::kTangentSlow},
    {"fast", MFnAnimCurve::kTangentFast},     {"clamped", MFnAnimCurve::kTangentClamped},
    {"plateau", MFnAnimCurve::kTangentPlateau}, {"stepnext", MFnAnimCurve::kTangentStepNext},
    {"auto", MFnAnimCurve::kTangentAuto},
};

MFnAnimCurve::TangentType tangentNamed(const std::string& name)
{
    for (const auto& [text, type] : kTangentNames)
        if (name == text)
            return type;
    throw MelError("keyTangent: Invalid tangent type: " + name);
}

std::string tangentName(MFnAnimCurve::TangentType type)
{
    for (const auto& [text, named] : kTangentNames)
        if (named == type)
            return text;
    return "spline"; // the shared and plug-in types show as smooth ones
}

// The global tangent types: what new keys get.
MelValue globalTangents(const ParsedArgs& args)
{
    if (args.has("query"))
    {
        const bool in = args.has("inTangentType");
        if (!in && !args.has("outTangentType"))
            throw MelError("keyTangent: Nothing to query.");
        return MelValue::ofStrings(
            {tangentName(in ? MAnimControl::globalInTangentType() : MAnimControl::globalOutTangentType())});
    }
    // Check both names before changing either.
    const auto typeOf = [&args](const char* flag, MFnAnimCurve::TangentType current) {
        return args.has(flag) ? tangentNamed(args.args(flag).at(0).text) : current;
    };
    const MFnAnimCurve::TangentType in = typeOf("inTangentType", MAnimControl::globalInTangentType());
    const MFnAnimCurve::TangentType out = typeOf("outTangentType", MAnimControl::globalOutTangentType());
    MAnimControl::setGlobalInTangentType(in);
    MAnimControl::setGlobalOutTangentType(out);
    return MelValue::none();
}

MelValue queryTangents(const ParsedArgs& args, const std::string& command)
{
    std::vector<std::string> names;
    std::vector<double> numbers;
    std::vector<long> flags;
    for (const CurveKeys& keys : keysActedOn(args, command))
    {
        MFnAnimCurve fn(objectFor(keys.curve));
        for (unsigned int index : keys.indices)
        {
            if (args.has("inTangentType") || args.has("outTangentType"))
                names.push_back(tangentName(args.has("inTangentType") ? fn.inTangentType(index)
                                                                      : fn.outTangentType(index)));
            if (args.has("lock"))
                flags.push_back(fn.tangentsLocked(index) ? 1 : 0);
            for (const auto& [angleFlag, weightFlag, in] :
                 {std::make_tuple("inAngle", "inWeight", true), std::make_tuple("outAngle", "outWeight", false)})
            {
                MAngle angle;
                double weight = 0.0;
                fn.getTangent(index, angle, weight, in);
                if (args.has(angleFlag))
                    numbers.push_back(angle.as(MAngle::uiUnit()));
                if (args.has(weightFlag))
                    numbers.push_back(weight);
            }
        }
    }
    if (!names.empty())
        return MelValue::ofStrings(names);
    if (!flags.empty())
        return MelValue::ofInts(flags);
    return numbers.empty() ? MelValue::none() : MelValue::ofFloats(numbers);
}

void require(const MStatus& status, const NodePtr& curve)
{
    if (!status)
        throw MelError("keyTangent: Cannot change the tangents of " + nameOf(*curve) + ".");
}

MelValue editTangents(const ParsedArgs& args, const std::string& command)
{
    const auto number = [&args](const char* flag) {
        return args.has(flag) ? std::optional<double>(args.args(flag).at(0).number()) : std::nullopt;
    };
    // Plain flags and values rather than optionals: GCC's release build
    // misreads optionals read inside the loop as maybe uninitialized.
    const bool setIn = args.has("inTangentType");
    const bool setOut = args.has("outTangentType");
    const bool setLock = args.has("lock");
    const MFnAnimCurve::TangentType in =
        setIn ? tangentNamed(args.args("inTangentType").at(0).text) : MFnAnimCurve::kTangentGlobal;
    const MFnAnimCurve::TangentType out =
        setOut ? tangentNamed(args.args("outTangentType").at(0).text) : MFnAnimCurve::kTangentGlobal;
    const bool lock = setLock && args.args("lock").at(0).boolean();
    KeyEdits edits;
    long edited = 0;
    for (const CurveKeys& keys : keysActedOn(args, command))
    {
        if (keys.indices.empty())
            continue;
        MFnAnimCurve fn(objectFor(keys.curve));
        for (unsigned int index : keys.indices)
        {
            if (setIn)
                require(fn.setInTangentType(index, in, edits.curves()), keys.curve);
            if (setOut)
                require(fn.setOutTangentType(index, out, edits.curves()), keys.curve);
            if (setLock)
                require(fn.setTangentsLocked(index, lock, edits.curves()), keys.curve);
            for (const auto& [angleFlag, weightFlag, side] :
                 {std::make_tuple("inAngle", "inWeight", true), std::make_tuple("outAngle", "outWeight", false)})
            {
                if (const std::optional<double> angle = number(angleFlag))
                    require(fn.setAngle(index, MAngle(*angle, MAngle::uiUnit()), side, edits.curves()), keys.curve);
                if (const std::optional<double> weight = number(weightFlag))
                    require(fn.setWeight(index, *weight, side, edits.curves()), keys.curve);
            }
        }
        ++edited;
    }
    edits.commit();
    return MelValue::ofInt(edited);
}

MelValue keyTangent(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0},           {"e", "edit", 0},           {"g", "global", 0},
                           {"itt", "inTangentType", 1}, {"ott", "outTangentType", 1}, {"l", "lock", 1},
                           {"ia", "inAngle", 1},        {"oa", "outAngle", 1},      {"iw", "inWeight", 1},
                           {"ow", "outWeight", 1},      {"t", "time", 1, true},     {"at", "attribute", 1, true},
                           {"an", "animation", 1, true}});
    if (args.has("global"))
        return globalTangents(args);
    return args.has("query") ? queryTangents(args, call.name) : editTangents(args, call.name);
}

// --- bufferCurve -------------------------------------------------------------------

struct Buffer
{
    std::vector<anim::Key> keys;
    anim::CurveSettings settings;
};

struct HeldBuffer
{
    std::weak_ptr<Node> curve;
    Buffer buffer;
};

// Buffers by curve; an entry counts only while its curve lives.
std::map<const Node*, HeldBuffer>& buffers()
{
    static std::map<const Node*, HeldBuffer> table;
    return table;
}

std::optional<Buffer> bufferOf(const NodePtr& curve)
{
    const auto found = buffers().find(curve.get());
    if (found == buffers().end() || found->second.curve.lock() != curve)
        return std::nullopt;
    return found->second.buffer;
}

void setBuffer(const NodePtr& curve, const std::optional<Buffer>& buffer)
{
    if (buffer)
        buffers()[curve.get()] = {curve, *buffer};
    else
        buffers().erase(curve.get());
}

class BufferChange : public UndoItem
{
public:
    BufferChange(NodePtr curve, std::optional<Buffer> before, std::optional<Buffer> after)
        : fCurve(std::move(curve)), fBefore(std::move(before)), fAfter(std::move(after))
    {
    }
    void undo() override { setBuffer(fCurve, fBefore); }
    void redo() override { setBuffer(fCurve, fAfter); }

private:
    NodePtr fCurve;
    std::optional<Buffer> fBefore;
    std::optional<Buffer> fAfter;
};

Buffer contentOf(const anim::AnimCurveData& data)
{
    Buffer buffer{{}, data.settings()};
    for (std::size_t i = 0; i < data.size(); ++i)
        buffer.keys.push_back(data.key(i));
    return buffer;
}

// Maya's documented behaviour: without -overwrite a curve that already has
// a buffer keeps it; -swap exchanges curve and buffer where a buffer exists
// and leaves other curves alone. There are no file references here, so
// -useReferencedCurve has nothing to act on. The result counts the curves
// acted on that hold a buffer afterwards.
MelValue bufferCurve(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0},
                           {"ex", "exists", 0},
                           {"sw", "swap", 0},
                           {"ov", "overwrite", 1},
                           {"urc", "useReferencedCurve", 0},
                           {"an", "animation", 1, true},
                           {"at", "attribute", 1, true},
                           {"t", "time", 1, true}});
    if (args.has("query"))
    {
        if (args.has("useReferencedCurve"))
            return MelValue::ofInt(0);
        if (!args.has("exists"))
            throw MelError("bufferCurve: Nothing to query.");
        const std::vector<CurveKeys> curves = keysActedOn(args, call.name);
        return MelValue::ofInt(!curves.empty() && bufferOf(curves.front().curve) ? 1 : 0);
    }
    const bool overwrite = args.has("overwrite") && args.args("overwrite").at(0).boolean();
    KeyEdits edits;
    std::vector<std::unique_ptr<BufferChange>> changes;
    for (const CurveKeys& keys : keysActedOn(args, call.name))
    {
        const std::shared_ptr<anim::AnimCurveData> data = anim::curveData(*keys.curve);
        const std::optional<Buffer> before = bufferOf(keys.curve);
        std::optional<Buffer> after = before;
        if (args.has("swap"))
        {
            if (!before)
                continue; // a curve without a buffer stays as it is
            after = contentOf(*data);
            // The buffer's keys replace the curve's, as one recorded edit.
            const anim::CurveEdit swap{0, after->keys, before->keys, after->settings, before->settings};
            data->apply(swap, true);
            anim::ChangeLog::of(edits.curves())->record(*data, swap);
        }
        else if (overwrite || !before)
            after = contentOf(*data);
        changes.push_back(std::make_unique<BufferChange>(keys.curve, before, after));
    }
    edits.commit();
    // Every curve with a change record holds a buffer afterwards.
    const long buffered = static_cast<long>(changes.size());
    for (auto& change : changes)
    {
        change->redo();
        recordUndo(std::move(change));
    }
    return MelValue::ofInt(buffered);
}

BuiltinRegistrar keyTangentCommand("keyTangent", keyTangent);
BuiltinRegistrar bufferCurveCommand("bufferCurve", bufferCurve);

} // namespace

} // namespace mayasim::commands
