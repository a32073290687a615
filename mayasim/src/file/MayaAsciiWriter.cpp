#include "engine/Command.h"
#include "engine/Dispatch.h"
#include "engine/FileInfo.h"
#include "engine/Plugins.h"
#include "file/MayaAscii.h"
#include "foundation/NumberText.h"
#include "scene/DefaultCameras.h"
#include "scene/References.h"
#include "scene/Scene.h"

#include <maya/MAngle.h>
#include <maya/MDistance.h>
#include <maya/MString.h>
#include <maya/MTime.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <fstream>
#include <sstream>

namespace mayasim::file {

namespace {

// A MEL string literal.
std::string melString(const std::string& text)
{
    std::string result = "\"";
    for (char c : text)
    {
        switch (c)
        {
        case '"': result += "\\\""; break;
        case '\\': result += "\\\\"; break;
        case '\n': result += "\\n"; break;
        case '\t': result += "\\t"; break;
        default: result += c;
        }
    }
    return result + "\"";
}

// The plug as setAttr names it within its node: array attributes with their
// index and the leaf (".ktv[3].kt", ".tx").
std::string plugPath(const PlugKey& key)
{
    const std::vector<const Attribute*> chain = key.attribute->chain();
    std::string path;
    size_t index = 0;
    for (size_t i = 0; i < chain.size(); ++i)
    {
        const Attribute* attribute = chain[i];
        const bool leaf = i + 1 == chain.size();
        if (!attribute->array && !leaf)
            continue;
        path += "." + attribute->shortName;
        if (attribute->array && index < key.indices.size() && key.indices[index] >= 0)
            path += "[" + std::to_string(key.indices[index]) + "]";
        if (attribute->array)
            ++index;
    }
    return path;
}

bool storable(const Attribute& attribute)
{
    for (const Attribute* a : attribute.chain())
        if (!a->storable)
            return false;
    return true;
}

// A number as setAttr reads it: in the UI unit of its kind.
std::string numberText(const Attribute& attribute, double value)
{
    if (attribute.kind == Attribute::Kind::Unit)
    {
        switch (attribute.unitType)
        {
        case MFnUnitAttribute::kAngle: value = MAngle(value, MAngle::kRadians).as(MAngle::uiUnit()); break;
        case MFnUnitAttribute::kDistance: value = MDistance(value).as(MDistance::uiUnit()); break;
        case MFnUnitAttribute::kTime: value = MTime(value, MTime::kSeconds).as(MTime::uiUnit()); break;
        default: break;
        }
    }
    if (attribute.kind == Attribute::Kind::Numeric && attribute.numericType == MFnNumericData::kBoolean)
        return value != 0.0 ? "yes" : "no";
    return doubleText(value);
}

std::string joinedNumbers(const std::vector<double>& numbers)
{
    std::string text;
    for (double number : numbers)
        text += " " + doubleText(number);
    return text;
}

// The arguments of setAttr after the plug name; empty when the value has no
// form in the file.
std::string valueText(const Attribute& attribute, const Value& value, MFnData::Type dataType)
{
    switch (value.kind)
    {
    case Value::Kind::Number: return numberText(attribute, value.number);
    case Value::Kind::Text: return "-type \"string\" " + melString(value.text);
    case Value::Kind::Matrix:
    {
        std::vector<double> numbers;
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 4; ++column)
                numbers.push_back(value.matrix(row, column));
        return "-type \"matrix\"" + joinedNumbers(numbers);
    }
    case Value::Kind::Texts:
    {
        std::string text = "-type \"stringArray\" " + std::to_string(value.texts.size());
        for (const std::string& item : value.texts)
            text += " " + melString(item);
        return text;
    }
    case Value::Kind::Numbers:
    {
        const char* type = dataType == MFnData::kIntArray ? "Int32Array" : "doubleArray";
        return std::string("-type \"") + type + "\" " + std::to_string(value.numbers.size()) +
               joinedNumbers(value.numbers);
    }
    case Value::Kind::Data:
        if (const DataObject* data = dataObject(value.data))
            return valueText(attribute, data->value(), data->dataType());
        return {};
    case Value::Kind::Empty: break;
    }
    return {};
}

std::string enumText(const Attribute& attribute)
{
    std::string text;
    short next = 0;
    for (const auto& [name, index] : attribute.enumFields)
    {
        text += (text.empty() ? "" : ":") + name;
        if (index != next)
            text += "=" + std::to_string(index);
        next = static_cast<short>(index + 1);
    }
    return text;
}

std::string addAttrLine(const Attribute& attribute)
{
    std::string line = "\taddAttr -ci true -sn " + melString(attribute.shortName) + " -ln " + melString(attribute.longName);
    switch (attribute.kind)
    {
    case Attribute::Kind::Typed: line += " -dt " + melString(attribute.typeName()); break;
    case Attribute::Kind::Compound:
        line += " -at \"compound\" -nc " + std::to_string(attribute.children.size());
        break;
    default: line += " -at " + melString(attribute.typeName()); break;
    }
    if (attribute.kind == Attribute::Kind::Enum)
        line += " -en " + melString(enumText(attribute));
    if (attribute.holdsNumber())
    {
        if (attribute.defaultNumber() != 0.0)
            line += " -dv " + numberText(attribute, attribute.defaultNumber());
        if (attribute.minimum)
            line += " -min " + numberText(attribute, *attribute.minimum);
        if (attribute.maximum)
            line += " -max " + numberText(attribute, *attribute.maximum);
        if (attribute.softMinimum)
            line += " -smn " + numberText(attribute, *attribute.softMinimum);
        if (attribute.softMaximum)
            line += " -smx " + numberText(attribute, *attribute.softMaximum);
    }
    if (attribute.array)
        line += " -m";
    if (attribute.keyable)
        line += " -k true";
    if (attribute.hidden)
        line += " -h true";
    if (!attribute.storable)
        line += " -s false";
    if (const auto parent = attribute.parentAttribute())
        line += " -p " + melString(parent->longName);
    return line + ";\n";
}

// A dynamic attribute, then its children (addAttr -p names the parent).
void writeAddAttr(std::ostream& out, const Attribute& attribute)
{
    out << addAttrLine(attribute);
    for (const AttributePtr& child : attribute.children)
        writeAddAttr(out, *child);
}

// The state reading the file gives a plug before any line of its own: what
// the referenced file left for a node read from one, else nothing set.
const PlugState* loadedState(const Node& node, const PlugKey& key)
{
    if (!node.origin)
        return nullptr;
    const auto loaded = node.origin->plugs.find(key);
    return loaded == node.origin->plugs.end() ? nullptr : &loaded->second;
}

// One setAttr per plug whose value or flags differ from what reading gives
// it. Locks on connected plugs wait until the connections are made: a
// locked destination refuses connectAttr.
void writePlugs(std::ostream& out, const Node& node, std::vector<std::string>& lateLocks)
{
    for (const auto& [key, state] : node.plugs)
    {
        const Attribute& attribute = *key.attribute;
        if (!storable(attribute))
            continue;
        const PlugState* loaded = loadedState(node, key);
        const Value& loadedValue = loaded && !loaded->value.isEmpty() ? loaded->value : attribute.defaultValue;
        const bool loadedKeyable = loaded && loaded->keyable ? *loaded->keyable : attribute.keyable;
        const bool loadedChannelBox = loaded && loaded->channelBox ? *loaded->channelBox : attribute.channelBox;
        const std::string path = melString(plugPath(key));
        // A connected plug's value comes from its input when the file is read.
        const bool connected = node.incoming.count(key) > 0;
        if (!connected && !state.value.isEmpty() && state.value != loadedValue)
        {
            const std::string value = valueText(attribute, state.value, attribute.dataType);
            if (!value.empty())
                out << "\tsetAttr " << path << " " << value << ";\n";
        }
        std::string flags;
        if (state.keyable && *state.keyable != loadedKeyable)
            flags += *state.keyable ? " -k on" : " -k off";
        if (state.channelBox && *state.channelBox != loadedChannelBox)
            flags += *state.channelBox ? " -cb on" : " -cb off";
        if (state.locked && !(loaded && loaded->locked))
        {
            if (connected)
                lateLocks.push_back(scene::partialPathName(node) + plugPath(key));
            else
                flags += " -l on";
        }
        if (!flags.empty())
            out << "\tsetAttr" << flags << " " << path << ";\n";
    }
}

void writeNode(std::ostream& out, const Node& node, std::vector<std::string>& lateLocks)
{
    out << "createNode " << node.type()->name << " -n " << melString(node.name);
    if (const NodePtr parent = node.parentNode())
        out << " -p " << melString(scene::partialPathName(*parent));
    out << ";\n";
    out << "\trename -uid " << melString(node.uuid.asString().asChar()) << ";\n";
    for (const AttributePtr& top : node.dynamicAttributes)
        writeAddAttr(out, *top);
    writePlugs(out, node, lateLocks);
    if (node.type()->fileLines)
        out << node.type()->fileLines(node, numberText);
    if (node.locked)
        out << "lockNode -l 1 ;\n";
}

// A node read from a referenced file: the reference makes it, the scene's
// file holds its edits, addressed by selecting it.
void writeReferencedNode(std::ostream& out, const Node& node, std::vector<std::string>& lateLocks)
{
    std::ostringstream edits;
    const auto& loaded = node.origin->dynamicAttributes;
    for (const AttributePtr& top : node.dynamicAttributes)
        if (std::find(loaded.begin(), loaded.end(), top) == loaded.end())
            writeAddAttr(edits, *top);
    writePlugs(edits, node, lateLocks);
    if (!edits.str().empty())
        out << "select -ne " << melString(scene::partialPathName(node)) << ";\n" << edits.str();
}

std::string plugText(const Node& node, const PlugKey& key)
{
    return melString(scene::partialPathName(node) + plugPath(key));
}

// Whether the referenced file a node was read from makes this connection.
bool loadedConnection(const Node& node, const PlugKey& key, const PlugAddress& source)
{
    if (!node.origin)
        return false;
    const auto loaded = node.origin->incoming.find(key);
    return loaded != node.origin->incoming.end() && loaded->second == source;
}

// The connections referenced nodes lost (before their values: a value
// set where a connection was), the lines of the nodes included, the
// connections into or out of them that reading doesn't make, and the late
// locks; all in file order.
void writeNodes(std::ostream& out, const std::vector<NodePtr>& ordered,
                const std::function<bool(const Node&)>& included)
{
    for (const NodePtr& node : ordered)
        if (node->origin && included(*node))
            for (const auto& [key, source] : node->origin->incoming)
            {
                const auto now = node->incoming.find(key);
                if (now != node->incoming.end() && now->second == source)
                    continue;
                if (const NodePtr from = source.lock(); from && from->alive)
                    out << "disconnectAttr " << plugText(*from, source.key) << " " << plugText(*node, key) << ";\n";
            }
    std::vector<std::string> lateLocks;
    for (const NodePtr& node : ordered)
        if (included(*node))
            node->origin ? writeReferencedNode(out, *node, lateLocks) : writeNode(out, *node, lateLocks);
    for (const NodePtr& node : ordered)
        for (const auto& [key, source] : node->incoming)
            if (const NodePtr from = source.lock();
                from && !loadedConnection(*node, key, source) && (included(*node) || included(*from)))
                out << "connectAttr " << plugText(*from, source.key) << " " << plugText(*node, key) << ";\n";
    for (const std::string& plug : lateLocks)
        out << "setAttr -l on " << melString(plug) << ";\n";
}

// DAG nodes parent first, depth first in child order; then the others in
// creation order. The default cameras stay out: every scene makes its own.
std::vector<NodePtr> nodesInFileOrder()
{
    std::vector<NodePtr> ordered;
    std::vector<NodePtr> pending(scene::worldChildren().rbegin(), scene::worldChildren().rend());
    while (!pending.empty())
    {
        NodePtr node = pending.back();
        pending.pop_back();
        if (cameras::isDefaultCamera(*node))
            continue;
        ordered.push_back(node);
        pending.insert(pending.end(), node->children.rbegin(), node->children.rend());
    }
    for (const NodePtr& node : scene::nodes())
        if (!node->isDag())
            ordered.push_back(node);
    return ordered;
}

// Maya's header lines for the scene's own references: their depth and
// namespace, then the references themselves, which reading makes where
// they stand (Maya defers them to the end of the file).
std::string referenceLines()
{
    std::string depths;
    std::string references;
    for (const ReferencePtr& reference : references::all())
    {
        if (reference->parent.lock())
            continue; // the referenced file makes it
        const std::string common = "-rfn " + melString(reference->nodeName) + " -op \"v=0;\" -typ \"mayaAscii\" " +
                                   melString(reference->path) + ";\n";
        depths += "file -rdi 1 -ns " + melString(reference->space) + " " + common;
        references += "file -r -ns " + melString(reference->space) + " -dr 1 " + common;
    }
    return depths + references;
}

// "requires -nodeType ..." for each plug-in whose node types the scene's own
// nodes use (a referenced file names its own).
std::string pluginRequirements(const std::vector<NodePtr>& nodes)
{
    std::vector<std::pair<std::string, std::vector<std::string>>> plugins; // in order of first use
    for (const NodePtr& node : nodes)
    {
        const NodeType& type = *node->type();
        if (type.pluginName.empty() || node->origin)
            continue;
        auto plugin = std::find_if(plugins.begin(), plugins.end(),
                                   [&](const auto& entry) { return entry.first == type.pluginName; });
        if (plugin == plugins.end())
            plugin = plugins.insert(plugins.end(), {type.pluginName, {}});
        if (std::find(plugin->second.begin(), plugin->second.end(), type.name) == plugin->second.end())
            plugin->second.push_back(type.name);
    }
    std::string lines;
    for (const auto& [name, types] : plugins)
    {
        const auto loaded = plugins::findLoaded(name);
        lines += "requires";
        for (const std::string& type : types)
            lines += " -nodeType " + melString(type);
        lines += " " + melString(name) + " " + melString(loaded ? loaded->version : "Unknown") + ";\n";
    }
    return lines;
}

// The value of a MEL query, for the scene settings the file restores.
std::string queried(const std::string& command)
{
    MelValue value;
    runMel(command, &value, false);
    return value.asString();
}

// A settings command with the values its queries give ("currentUnit -l
// centimeter ..."); nothing when mayasim has no such command.
std::string settingsLine(const std::string& command, std::initializer_list<std::pair<const char*, const char*>> flags)
{
    if (!findBuiltin(command))
        return {};
    std::string line = command;
    for (const auto& [flag, query] : flags)
        line += std::string(" ") + flag + " " + queried(command + " -q " + query);
    return line + ";\n";
}

} // namespace

void writeMayaAscii(const std::string& path)
{
    const std::string name = std::filesystem::path(path).filename().string();
    std::ostringstream out;
    out << "//Maya ASCII 2022 scene\n//Name: " << name << "\n//Codeset: UTF-8\n";
    out << referenceLines();
    const std::vector<NodePtr> nodes = nodesInFileOrder();
    out << "requires maya \"2022\";\n" << pluginRequirements(nodes);
    out << settingsLine("currentUnit", {{"-l", "-fullName -linear"}, {"-a", "-fullName -angle"}, {"-t", "-time"}});
    for (const auto& [key, value] : fileInfo())
        out << "fileInfo " << melString(key) << " " << melString(value) << ";\n";
    writeNodes(out, nodes, [](const Node&) { return true; });
    out << settingsLine("playbackOptions", {{"-min", "-min"}, {"-max", "-max"}, {"-ast", "-ast"}, {"-aet", "-aet"}});
    out << "// End of " << name << "\n";

    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!(file << out.str()) || !file.flush())
        throw MelError("Could not write file: " + path);
}

std::string referenceEdits(const Reference& reference)
{
    const auto fromReference = [&](const Node& node) {
        for (ReferencePtr at = node.origin ? node.origin->reference : nullptr; at; at = at->parent.lock())
            if (at.get() == &reference)
                return true;
        return false;
    };
    std::ostringstream out;
    writeNodes(out, nodesInFileOrder(), fromReference);
    return out.str();
}

} // namespace mayasim::file
