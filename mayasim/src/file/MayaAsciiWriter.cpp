#include "engine/Command.h"
#include "engine/Dispatch.h"
#include "engine/FileInfo.h"
#include "engine/Plugins.h"
#include "file/MayaAscii.h"
#include "foundation/NumberText.h"
#include "scene/Scene.h"

#include <maya/MAngle.h>
#include <maya/MDistance.h>
#include <maya/MString.h>
#include <maya/MTime.h>

#include <algorithm>
#include <filesystem>
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

// Locks on connected plugs wait until the connections are made: a locked
// destination refuses connectAttr.
void writeNode(std::ostream& out, const Node& node, std::vector<std::string>& lateLocks)
{
    out << "createNode " << node.type()->name << " -n " << melString(node.name);
    if (const NodePtr parent = node.parentNode())
        out << " -p " << melString(scene::partialPathName(*parent));
    out << ";\n";
    out << "\trename -uid " << melString(node.uuid.asString().asChar()) << ";\n";
    for (const AttributePtr& top : node.dynamicAttributes)
        writeAddAttr(out, *top);
    for (const auto& [key, state] : node.plugs)
    {
        const Attribute& attribute = *key.attribute;
        if (!storable(attribute))
            continue;
        const std::string path = melString(plugPath(key));
        // A connected plug's value comes from its input when the file is read.
        const bool connected = node.incoming.count(key) > 0;
        if (!connected && !state.value.isEmpty() && state.value != attribute.defaultValue)
        {
            const std::string value = valueText(attribute, state.value, attribute.dataType);
            if (!value.empty())
                out << "\tsetAttr " << path << " " << value << ";\n";
        }
        std::string flags;
        if (state.keyable && *state.keyable != attribute.keyable)
            flags += *state.keyable ? " -k on" : " -k off";
        if (state.channelBox && *state.channelBox != attribute.channelBox)
            flags += *state.channelBox ? " -cb on" : " -cb off";
        if (state.locked && connected)
            lateLocks.push_back(scene::partialPathName(node) + plugPath(key));
        else if (state.locked)
            flags += " -l on";
        if (!flags.empty())
            out << "\tsetAttr" << flags << " " << path << ";\n";
    }
    if (node.type()->fileLines)
        out << node.type()->fileLines(node, numberText);
}

// DAG nodes parent first, depth first in child order; then the others in
// creation order.
std::vector<NodePtr> nodesInFileOrder()
{
    std::vector<NodePtr> ordered;
    std::vector<NodePtr> pending(scene::worldChildren().rbegin(), scene::worldChildren().rend());
    while (!pending.empty())
    {
        NodePtr node = pending.back();
        pending.pop_back();
        ordered.push_back(node);
        pending.insert(pending.end(), node->children.rbegin(), node->children.rend());
    }
    for (const NodePtr& node : scene::nodes())
        if (!node->isDag())
            ordered.push_back(node);
    return ordered;
}

// "requires -nodeType ..." for each plug-in whose node types the scene uses.
std::string pluginRequirements(const std::vector<NodePtr>& nodes)
{
    std::vector<std::pair<std::string, std::vector<std::string>>> plugins; // in order of first use
    for (const NodePtr& node : nodes)
    {
        const NodeType& type = *node->type();
        if (type.pluginName.empty())
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
    const std::vector<NodePtr> nodes = nodesInFileOrder();
    out << "requires maya \"2022\";\n" << pluginRequirements(nodes);
    out << settingsLine("currentUnit", {{"-l", "-fullName -linear"}, {"-a", "-fullName -angle"}, {"-t", "-time"}});
    for (const auto& [key, value] : fileInfo())
        out << "fileInfo " << melString(key) << " " << melString(value) << ";\n";
    std::vector<std::string> lateLocks;
    for (const NodePtr& node : nodes)
        writeNode(out, *node, lateLocks);
    for (const NodePtr& node : nodes)
        for (const auto& [key, source] : node->incoming)
            if (const NodePtr from = source.lock())
                out << "connectAttr " << melString(scene::partialPathName(*from) + plugPath(source.key)) << " "
                    << melString(scene::partialPathName(*node) + plugPath(key)) << ";\n";
    for (const std::string& plug : lateLocks)
        out << "setAttr -l on " << melString(plug) << ";\n";
    out << settingsLine("playbackOptions", {{"-min", "-min"}, {"-max", "-max"}, {"-ast", "-ast"}, {"-aet", "-aet"}});
    out << "// End of " << name << "\n";

    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!(file << out.str()) || !file.flush())
        throw MelError("Could not write file: " + path);
}

} // namespace mayasim::file
