// The channel box and the time slider: what the user has highlighted in
// them (set by the host), and the channelBox and timeControl queries that
// read it; the time slider's main list, whose objects' keys it shows.
#include "commands/CommandSupport.h"
#include "commands/TimeArguments.h"
#include "commands/UiObjects.h"
#include "engine/Interpreter.h"

#include <maya/MAnimControl.h>
#include <mayasim/Host.h>

#include <array>
#include <optional>
#include <tuple>

namespace mayasim {

namespace {

// The time slider's own main list, which follows the active list.
const char* const kAnimationList = "animationList";

struct Panels
{
    std::array<std::vector<std::string>, 4> channelBox; // by ChannelBoxSection
    std::optional<std::pair<double, double>> sliderHighlight; // first and last frame
    std::string mainList = kAnimationList;
};

Panels& panels()
{
    static Panels state;
    return state;
}

// A control named by its name or by a path ending in it, as Maya's UI
// names nest ("MayaWindow|...|timeControl1").
bool namesControl(const std::string& text, const std::string& variable)
{
    const std::string name = globalVariable(variable).asString();
    const size_t bar = text.rfind('|');
    return (bar == std::string::npos ? text : text.substr(bar + 1)) == name;
}

void requireControl(const std::string& command, const std::vector<Word>& positional, const std::string& variable)
{
    if (positional.size() != 1)
        throw MelError(command + ": Wrong number of arguments.");
    if (!namesControl(positional[0].text, variable))
        throw MelError(command + ": Object '" + positional[0].text + "' not found.");
}

MelValue channelBox(const Invocation& call)
{
    const char* const sections[] = {"selectedMainAttributes", "selectedShapeAttributes",
                                    "selectedOutputAttributes", "selectedHistoryAttributes"};
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0}, {"sma", sections[0], 0}, {"ssa", sections[1], 0},
                           {"soa", sections[2], 0}, {"sha", sections[3], 0}});
    requireControl(call.name, args.positional(), "gChannelBoxName");
    if (!args.has("query"))
        throw MelError("channelBox: Only queries are supported.");
    for (size_t section = 0; section < 4; ++section)
        if (args.has(sections[section]))
        {
            // Nothing highlighted gives no answer at all, as in Maya.
            const std::vector<std::string>& names = panels().channelBox[section];
            return names.empty() ? MelValue::none() : MelValue::ofStrings(names);
        }
    throw MelError("channelBox: Nothing to query.");
}

// [start, end + 1] of the highlight, or of the current frame without one.
std::pair<double, double> sliderRange()
{
    if (const auto& highlight = panels().sliderHighlight)
        return {highlight->first, highlight->second + 1.0};
    const double current = commands::uiTime(MAnimControl::currentTime());
    return {current, current + 1.0};
}

std::string rangeText(const std::pair<double, double>& range)
{
    // Maya's answer carries the quotes of a MEL string.
    return "\"" + MelValue::ofFloat(range.first).asString() + ":" + MelValue::ofFloat(range.second).asString() +
           "\"";
}

// A deleted connection leaves the slider on its own list.
std::string mainList()
{
    const std::string& name = panels().mainList;
    return name == kAnimationList || commands::connectionExists(name) ? name : kAnimationList;
}

MelValue timeControl(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0}, {"e", "edit", 0}, {"ra", "rangeArray", 0}, {"rng", "range", 1},
                           {"rv", "rangeVisible", 0}, {"mlc", "mainListConnection", 1}});
    requireControl(call.name, args.positional(), "gPlayBackSlider");
    if (args.has("query"))
    {
        const std::pair<double, double> range = sliderRange();
        if (args.has("rangeArray"))
            return MelValue::ofFloats({range.first, range.second});
        if (args.has("range"))
            return MelValue::ofString(rangeText(range));
        if (args.has("rangeVisible"))
            return MelValue::ofInt(panels().sliderHighlight ? 1 : 0);
        if (args.has("mainListConnection"))
            return MelValue::ofString(mainList());
        throw MelError("timeControl: Nothing to query.");
    }
    if (args.has("mainListConnection"))
    {
        const std::string name = args.args("mainListConnection").at(0).text;
        if (name != kAnimationList && !commands::connectionExists(name))
            throw MelError("timeControl: Object '" + name + "' not found.");
        panels().mainList = name;
    }
    if (args.has("range"))
    {
        std::string text = args.args("range").at(0).text;
        if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
            text = text.substr(1, text.size() - 2);
        const commands::TimeRange range = commands::timeRange(text, call.name);
        if (!range.from || !range.to || *range.to <= *range.from)
            throw MelError("timeControl: Invalid range: " + text);
        host::setTimeSliderHighlight(commands::uiTime(*range.from), commands::uiTime(*range.to) - 1.0);
    }
    return MelValue::none();
}

BuiltinRegistrar channelBoxCommand("channelBox", channelBox);
BuiltinRegistrar timeControlCommand("timeControl", timeControl);

} // namespace

namespace host {

void setChannelBoxHighlight(ChannelBoxSection section, const std::vector<std::string>& shortNames)
{
    panels().channelBox[static_cast<size_t>(section)] = shortNames;
}

std::vector<std::string> channelBoxHighlight(ChannelBoxSection section)
{
    return panels().channelBox[static_cast<size_t>(section)];
}

void setTimeSliderHighlight(double first, double last)
{
    panels().sliderHighlight = std::make_pair(first, last);
}

void clearTimeSliderHighlight()
{
    panels().sliderHighlight.reset();
}

std::vector<std::string> timeSliderObjects()
{
    const std::string list = mainList();
    const MelValue names =
        commands::namesOf(list == kAnimationList ? commands::selectedNodes() : commands::connectionObjects(list));
    return names.sa;
}

bool timeSliderHighlight(double& first, double& last)
{
    if (!panels().sliderHighlight)
        return false;
    std::tie(first, last) = *panels().sliderHighlight;
    return true;
}

} // namespace host

} // namespace mayasim
